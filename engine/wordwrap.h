// Word wrap: where a long line breaks into screen rows, and which documents wrap.
//
// Soft wrap never changes the text: a wrapped line is shown in several rows, as the
// method (WrapMethod, engine/options.h) says. A word wider than a row is broken where
// the row ends.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "engine/document.h"
#include "engine/options.h"

namespace zol {

// Row width in columns for a method: the word-wrap column or the window's width.
int wrapWidth(WrapMethod method, int windowColumns);
// Byte offsets at which rows after the first begin; none when the line fits or the
// width is below 1. Columns count from the start of the line, so tabs keep their
// stops. Blanks at a break stay at the end of the row they follow.
std::vector<size_t> wrapBreaks(std::string_view line, int width, WrapMethod method);

// The extension lists from the settings ("AlwaysWordWrapFileExt",
// "NeverWordWrapFileExt"): extensions separated by blanks, commas or semicolons,
// each with or without a leading "*." or ".", compared without regard to case.
struct WrapFileRules {
    std::string always;
    std::string never;
};
WrapFileRules& wrapFileRules();

// True when the file name's extension is in the list.
bool extensionListed(std::string_view list, std::string_view fileName);
// Sets the document's wrap from its name when it is read or named: never-listed
// extensions do not wrap, always-listed ones do, others follow the global setting.
void applyWrapRule(Document& doc);
// Whether the document may be shown soft-wrapped: column selections, line drawing
// and tool output need the text's own columns on screen.
bool canSoftWordWrap(const Document& doc);

}  // namespace zol
