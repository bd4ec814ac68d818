// Cursor movement shared by the movement commands and their selecting twins.
#pragma once
#include <cstdint>
#include <string_view>

#include "engine/document.h"

namespace zol {

enum class Move : uint8_t {
    Left, Right, Up, Down, PageUp, PageDown, LineStart, LineEnd,
    WordLeft, WordRight, WordLeftMS, WordRightMS, WordLeftSmart, WordRightSmart,
    TextStart, TextEnd, TopOfWindow, BottomOfWindow, ScrollUp, ScrollDown,
    FirstNonBlank, ParaUp, ParaDown, NextTabPos, PrevTabPos,
};

// Carries out one movement. With `extend`, or while marking (doc.selecting), the
// selection grows from its anchor to the new cursor; otherwise it is removed.
// Returns 1 when the cursor or the selection changed.
int moveCursor(Document& doc, Move move, bool extend);
// The common end of every movement: selection, cursor, desired column, view.
// `vertical` keeps doc.desiredCol = wantedCol for the next up/down move.
int placeCursor(Document& doc, Pos to, bool extend, bool vertical = false, int wantedCol = -1);
// Column where the cursor may stand on `line` when it wants column `col`: clamped to
// the line's end unless the cursor may go beyond it, and pulled to a tab's first
// column unless it may stand inside tabs.
int allowedColumn(const Document& doc, int32_t line, int col);

// A line of nothing but blanks and tabs (or nothing) separates paragraphs.
bool isBlankLine(std::string_view text);
// First and last line of the paragraph holding `line`; false on a blank line.
bool paragraphAt(const Document& doc, int32_t line, int32_t& first, int32_t& last);

}  // namespace zol
