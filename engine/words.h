// Word boundaries inside one line, shared by the word movements, word selection and
// the word deletions. Offsets are byte offsets into the line; turning them into
// columns is the caller's business (engine/columns.h).
#pragma once
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zol {

// Letters, digits, underscore and every byte of 128 or more.
bool isWordChar(char c);

enum class CharClass : uint8_t { Blank, Word, Punct };  // Blank is space or tab
CharClass charClass(char c);

// Plain: punctuation separates words like blanks do.
// MS: a run of punctuation is a word of its own; moving right stops after the
//     blanks that follow a word.
// Smart: as MS, and also stops inside words at case humps ("fooBar", "HTMLParser")
//     and after underscores ("foo_bar").
enum class WordStyle : uint8_t { Plain, MS, Smart };

// Where a move right from `offset` stops on this line; text.size() when no further
// stop lies on the line.
size_t wordRightOffset(std::string_view text, size_t offset, WordStyle style);
// Where a move left from `offset` stops on this line; 0 when no earlier stop exists.
size_t wordLeftOffset(std::string_view text, size_t offset, WordStyle style);
// The run of word characters at `offset`, or ending just before it. False when
// neither side of `offset` is a word character.
bool wordAt(std::string_view text, size_t offset, size_t& begin, size_t& end);

}  // namespace zol
