// Colouring one line of text with a language definition, and the lighter routine that
// computes only whether the line ends inside a multi-line comment.
#pragma once
#include <cstdint>
#include <string_view>

#include "syntax/table.h"

namespace zol {

// Writes one palette index per byte of text into out (text.size() bytes) and returns 1
// when the line ends inside an unterminated multi-line comment, else 0. inComment tells
// whether the line starts inside one. An empty text returns inComment.
int scanLine(const SyntaxHighlight& def, std::string_view text, uint8_t* out, int inComment);
// The same through the table: slot 0 or an empty slot fills out with 0 and returns 0.
int scanLine(const SyntaxHighlightTable& table, int slot, std::string_view text, uint8_t* out, int inComment);

// The carried bit alone, without colours.
int commentState(const SyntaxHighlight& def, std::string_view text, int inComment);
int commentState(const SyntaxHighlightTable& table, int slot, std::string_view text, int inComment);

}  // namespace zol
