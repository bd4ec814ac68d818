// The capacity of one line, in columns and in bytes.
#pragma once

namespace zol {

// kMaxColumns is the editor's fixed capacity: what Zol_GetMaxLineLen reports and what
// every message that says "3200" means. The byte limits bound a line's storage
// whatever its characters: kMaxLineBytes is the columns and ten bytes of slack, and a
// line read from a file is cut at kSplitBytes, so that the line, its CR LF and a
// terminating NUL still fit in kMaxLineBytes. While every character is one byte and at
// least one column wide, a line reaches the column limit first; the byte limits come
// into play once a character may take more bytes than columns.
constexpr int kMaxColumns = 3200;
constexpr int kMaxLineBytes = kMaxColumns + 10;
constexpr int kSplitBytes = kMaxLineBytes - 2 - 1;  // room for CR LF and the NUL

}  // namespace zol
