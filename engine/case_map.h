// Case mapping of the editor's code page (Windows-1252): the case commands, searches
// without regard to case, the case modifiers of replacement templates and the
// interface's character functions all use this one table.
#pragma once
#include <array>
#include <cstdint>

namespace zol {

namespace detail {
constexpr std::array<uint8_t, 256> makeLowerTable() {
    std::array<uint8_t, 256> t{};
    for (int c = 0; c < 256; ++c) t[c] = static_cast<uint8_t>(c);
    for (int c = 'A'; c <= 'Z'; ++c) t[c] = static_cast<uint8_t>(c + 32);
    for (int c = 0xC0; c <= 0xDE; ++c)
        if (c != 0xD7) t[c] = static_cast<uint8_t>(c + 32);
    t[0x8A] = 0x9A;
    t[0x8C] = 0x9C;
    t[0x8E] = 0x9E;
    t[0x9F] = 0xFF;
    return t;
}
constexpr std::array<uint8_t, 256> makeUpperTable() {
    std::array<uint8_t, 256> t{};
    const std::array<uint8_t, 256> lower = makeLowerTable();
    for (int c = 0; c < 256; ++c) t[c] = static_cast<uint8_t>(c);
    for (int c = 0; c < 256; ++c)
        if (lower[c] != c) t[lower[c]] = static_cast<uint8_t>(c);
    return t;
}
inline constexpr std::array<uint8_t, 256> kLower = makeLowerTable();
inline constexpr std::array<uint8_t, 256> kUpper = makeUpperTable();
}  // namespace detail

inline char cpLower(char c) { return static_cast<char>(detail::kLower[static_cast<uint8_t>(c)]); }
inline char cpUpper(char c) { return static_cast<char>(detail::kUpper[static_cast<uint8_t>(c)]); }
// A letter of the code page: it has an upper- or lower-case partner (plus the few
// letters without one).
inline bool cpIsLetter(char c) {
    const uint8_t b = static_cast<uint8_t>(c);
    return detail::kLower[b] != b || detail::kUpper[b] != b || b == 0xAA || b == 0xBA || b == 0xDF;
}

}  // namespace zol
