// Building documents from text and reading them back.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "engine/document.h"

namespace zol::test {

using Lines = std::vector<std::string>;

// A document holding `text` (lines separated by "\n") through the edit primitives, so
// that the listeners of changes see it; cursor at the start, clean, no undo.
void fill(Document& doc, std::string_view text);
// The whole text with "\n" between lines.
std::string textOf(const Document& doc);
Lines linesOf(const Document& doc);
// The comment-state bits of the lines, one digit each.
std::string commentBits(const Document& doc);
// "line 1" up to "line <count>", each with its line end: the text ends in an empty line.
std::string numberedLines(int count);
// "col,line", so that failures print positions readably.
std::string str(Pos p);

}  // namespace zol::test
