// The key file's numbers are 16- and 32-bit little-endian words and its names are
// fixed-size NUL-terminated fields. These read and write them for every section.
#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace zol {

// Reads that fail, and stay failed, at the end of the bytes; a failed read gives 0 or
// an empty text.
struct KeyFileReader {
    std::string_view bytes;
    size_t pos = 0;  // may lie past the end; the next read then fails
    bool failed = false;

    bool has(size_t n) {
        if (!failed && (pos > bytes.size() || bytes.size() - pos < n)) failed = true;
        return !failed;
    }
    uint16_t u16() {
        if (!has(2)) return 0;
        const auto b = reinterpret_cast<const unsigned char*>(bytes.data() + pos);
        pos += 2;
        return static_cast<uint16_t>(b[0] | (b[1] << 8));
    }
    uint32_t u32() {
        const uint32_t lo = u16();
        return lo | (static_cast<uint32_t>(u16()) << 16);
    }
    void skip(size_t n) {
        if (has(n)) pos += n;
    }
    // The text up to the first NUL of a field of size bytes, at most size - 1 of them.
    std::string field(size_t size) {
        if (!has(size)) return {};
        const char* at = bytes.data() + pos;
        pos += size;
        const void* nul = std::memchr(at, '\0', size - 1);
        return std::string(at, nul ? static_cast<size_t>(static_cast<const char*>(nul) - at) : size - 1);
    }
};

inline void put16(std::string& out, uint16_t v) {
    out += static_cast<char>(v & 0xFF);
    out += static_cast<char>(v >> 8);
}

// Overwrites the four bytes at `at`, which must exist.
inline void put32At(std::string& out, size_t at, uint32_t v) {
    for (size_t i = 0; i < 4; ++i) out[at + i] = static_cast<char>((v >> (8 * i)) & 0xFF);
}

// A NUL-terminated text in a field of size bytes, cut to size - 1, the rest zero.
inline void putField(std::string& out, std::string_view text, size_t size) {
    const size_t n = std::min(text.size(), size - 1);
    out.append(text.substr(0, n));
    out.append(size - n, '\0');
}

}  // namespace zol
