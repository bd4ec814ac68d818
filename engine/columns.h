// The one place where bytes become screen columns. Everything that turns a byte
// offset into a column or back goes through here, so that a code page whose
// characters span several bytes changes only this file.
#pragma once
#include <cstddef>
#include <string_view>

namespace zol {

// Column reached after a character at column `col` (tabs jump to the next stop).
int advanceColumn(char c, int col);
// The same for text laid out with another tab size (the tab-width conversions).
int advanceColumn(char c, int col, int tabSize);
// Width of a line in columns after tab expansion.
int lineWidth(std::string_view text);
// Column at which the byte at `offset` is shown (offset may equal the length).
int columnOfOffset(std::string_view text, size_t offset);

struct ColumnHit {
    size_t offset;    // byte shown at the column, or the length when beyond the end
    int charColumn;   // column where that byte starts
    bool insideTab;   // column falls on a later column of a tab's expansion
    int padding;      // columns past the end of the line (0 when inside the text)
};
ColumnHit locateColumn(std::string_view text, int col);

// 1-based column at which *p is shown; 1 for a pointer before the line or null input.
int charColumnPos(const char* line, const char* p);
// Character shown at 1-based column `col`: the first column of a tab yields the tab,
// later columns the character after it; past the end the terminating zero.
const char* charPtr(const char* line, int col);

}  // namespace zol
