// Document accessors with the outside world's conventions: 1-based positions, column
// before line, caller's buffers, and a neutral answer for a missing document. The
// script library and the plug-in interface are thin wrappers over these.
#pragma once
#include <cstdint>

#include "engine/document.h"

namespace zol {

int32_t numberOfLines(const Document* doc);
// Copies at most size - 1 characters of line `line` (1-based) and terminates them.
// Out of range: 0 and an empty buffer. size below 2: 0 and the buffer untouched.
int getLine(const Document* doc, int32_t line, char* buf, int size);
// Width in columns after tab expansion (byteLength 0) or length in bytes; -1 out of range.
int getLineLen(const Document* doc, int32_t line, int byteLength);
// Replaces a whole line; CR and LF become blanks so the line never splits.
// Refused (false) on a read-only document, a null text or a line out of range.
bool setLine(Document* doc, int32_t line, const char* text);
// Only the numbers of a TextFormat are accepted.
bool setTextFileFormat(Document* doc, int32_t number);
// Earlier and later end of the selection, 1-based; false and 0, 0 without one.
bool selectionBegin(const Document* doc, int* col, int32_t* line);
bool selectionEnd(const Document* doc, int* col, int32_t* line);
// 0 none, 1 character selection, 2 column selection.
int selectionType(const Document* doc);

// Places the cursor at a 1-based column and line, as a click does: ignored unless both
// are at least 1; the line is clamped to the text. Without exactly, a column inside a
// tab goes to the tab's start and one past the end of the line to the end unless the
// cursor may go beyond it. extend selects from the cursor (or the selection's anchor)
// to the new place, else the selection goes. Ends any keyboard selection in progress,
// and the next typed command starts a new undo step.
void placeCursor(Document* doc, int col, int32_t line, bool extend, bool exactly);

}  // namespace zol
