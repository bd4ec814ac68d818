// The lines a block command works on, shared by the block, case, comment and text
// tool families.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "engine/document.h"

namespace zol {

struct LineBlock {
    int32_t first = 0;  // first line of the block
    int32_t last = 0;   // last line, first <= last
};

// The selection's lines, or the cursor's line without a selection. A character
// selection that ends in column 0 of a later line leaves that line out.
LineBlock selectedLines(const Document& doc);
// Every line of the selection, or of the whole document without one.
LineBlock selectedLinesOrAll(const Document& doc);
// Copies of the block's lines, walked once from the first.
std::vector<std::string> blockTexts(const Document& doc, LineBlock b);

// Gives the block new line texts as one undo record and ends the command. The
// selection stays (repeated indents and comments are common); each end keeps its
// column shifted by the change of its line's width, and the cursor follows the
// moving end. Nothing changed is still a success.
int finishLineEdit(Document& doc, LineBlock b, const std::vector<std::string>& texts);

}  // namespace zol
