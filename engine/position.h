// A place in a document: screen column (after tab expansion) and line, both 0-based.
#pragma once
#include <cstdint>

namespace zol {

struct Pos {
    int16_t col = 0;   // 0..kMaxColumns
    int32_t line = 0;  // 0..last line index

    friend bool operator==(const Pos&, const Pos&) = default;
};

// Ordered by line first, then by column.
inline bool before(const Pos& a, const Pos& b) {
    return a.line < b.line || (a.line == b.line && a.col < b.col);
}
inline Pos earlier(const Pos& a, const Pos& b) { return before(b, a) ? b : a; }
inline Pos later(const Pos& a, const Pos& b) { return before(a, b) ? b : a; }

inline Pos makePos(int col, int32_t line) { return Pos{static_cast<int16_t>(col), line}; }

}  // namespace zol
