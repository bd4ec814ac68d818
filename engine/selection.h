// Selection helpers shared by the selection commands, the movements and the commands
// that act on the selection (delete, cut, copy, block commands, the interface).
//
// The selection lives in Document: selExists, selMode, selAnchor (fixed end) and
// selEnd (moving end, where the cursor stands after a selecting move). Invariants
// kept here: a selection exists only when its two ends differ; in column mode the
// selection is the rectangle between the two ends' lines and columns.
#pragma once
#include <string>

#include "engine/document.h"

namespace zol {

// The two ends ordered by line, then column. False, and both set to the cursor, when
// there is no selection.
bool selectionRange(const Document& doc, Pos& begin, Pos& end);
bool isColumnSelection(const Document& doc);
// A selection that covers something: a column selection without width selects nothing.
bool hasSelection(const Document& doc);
// Left and right column of a column-mode rectangle (right is exclusive).
int selLeftCol(const Document& doc);
int selRightCol(const Document& doc);

// Removes the selection (marking mode stays as it is); both ends go to the cursor.
void clearSelection(Document& doc);
// Selects from anchor to end, clamped to the text's lines and the column limit. The
// cursor is not moved.
void setSelection(Document& doc, Pos anchor, Pos end);
// Moves the selection's moving end to `to`; without a selection the anchor is the
// cursor, in marking mode the anchor set by StartSelect. The cursor is not moved.
void extendSelection(Document& doc, Pos to);

// The selected text, lines joined with CR LF; a column selection gives one row of the
// rectangle per line. Empty without a selection.
std::string selectedText(const Document& doc);
// Columns [left, right) of a line as a rectangle: tabs become blanks and a short line
// is padded, so a column block keeps its shape wherever it is pasted.
std::string columnSlice(std::string_view line, int left, int right);
// A line with its columns [left, right) replaced by `text`: a short line is padded to
// `left` with blanks, and a tab cut by either edge leaves blanks for its part outside.
std::string spliceColumns(std::string_view line, int left, int right, std::string_view text);
// Deletes the selected text as one undo record and puts the cursor where it began
// (top-left corner of a column rectangle). False when there is no selection, the
// document is read-only or the edit failed.
bool deleteSelection(Document& doc);

}  // namespace zol
