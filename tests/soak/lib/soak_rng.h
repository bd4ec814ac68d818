// The soak's random numbers: a SplitMix64 stream of our own, so that a seed names the
// same run on every compiler and standard library (the standard distributions are
// free to differ between them).
#pragma once
#include <cstdint>
#include <initializer_list>

namespace zol::soak {

class Rng {
public:
    explicit Rng(uint64_t seed) : state_(seed) {}

    uint64_t next() {
        uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }
    // 0 .. n-1; n must be above 0.
    uint32_t below(uint32_t n) { return static_cast<uint32_t>(next() % n); }
    int between(int lo, int hi) { return lo + static_cast<int>(below(static_cast<uint32_t>(hi - lo + 1))); }
    bool percent(uint32_t p) { return below(100) < p; }
    template <typename T>
    T pick(std::initializer_list<T> items) {
        return items.begin()[below(static_cast<uint32_t>(items.size()))];
    }

private:
    uint64_t state_;
};

}  // namespace zol::soak
