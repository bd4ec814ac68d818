// Line drawing: while it is on, the cursor keys draw box lines.
#pragma once
#include <cstdint>

#include "engine/document.h"

namespace zol {

// Horizontal and vertical strokes each single or double.
enum class LineStyle : uint8_t { Single, Double, SingleDoubleVertical, DoubleSingleVertical };
constexpr int kLineStyleCount = 4;

struct LineDrawState {
    LineStyle style = LineStyle::Single;
    // Box characters of code page 437 for documents in the OEM code page; ASCII
    // strokes otherwise, which every code page shows.
    bool oemCharset = false;
};
LineDrawState& lineDrawState();

enum class DrawDir : uint8_t { Left, Right, Up, Down };

// One cursor step while drawing: the strokes of the cell left and of the cell
// entered join, and the cursor moves. False when nothing was drawn (read-only
// document, the edge of the text); the caller then moves as usual.
bool drawLineStep(Document& doc, DrawDir dir);

// The character that joins the strokes already in `cell` with a new one toward
// `dir` in `style`.
char joinStroke(char cell, DrawDir dir, LineStyle style, bool oem);

}  // namespace zol
