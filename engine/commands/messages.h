// Texts the editing commands show the user.
#pragma once

#include "engine/line_list.h"

namespace zol {

// An edit that would make a line wider than kMaxColumns is refused with this text.
static_assert(kMaxColumns == 3200, "the message below names the capacity");
inline constexpr const char* kMsgLineTooLong = "Line too long: a line holds at most 3200 columns.";

}  // namespace zol

namespace zol {

// Titles of the questions the block and typing commands ask.
inline constexpr const char* kTitleFillBlock = "Fill Block";
inline constexpr const char* kTitleInsertSymbol = "Insert Symbol";

// "WordCount": words, lines and characters, in that order.
inline constexpr const char* kMsgWordCount = "Words: %ld\nLines: %ld\nCharacters: %ld";

}  // namespace zol

namespace zol {

// "LineDrawStyle" names the style it switched to.
inline constexpr const char* kMsgLineStyleSingle = "Line drawing: single lines";
inline constexpr const char* kMsgLineStyleDouble = "Line drawing: double lines";
inline constexpr const char* kMsgLineStyleDoubleVertical = "Line drawing: double vertical lines";
inline constexpr const char* kMsgLineStyleDoubleHorizontal = "Line drawing: double horizontal lines";
// Named bookmarks are shared by all documents and kept in the settings file.
inline constexpr int kMaxNamedBookmarks = 32;
static_assert(kMaxNamedBookmarks == 32, "the message below names the capacity");
inline constexpr const char* kMsgTooManyBookmarks = "No more bookmarks: the list holds at most 32.";
inline constexpr const char* kMsgBookmarkExists = "A bookmark of that name already exists.";

}  // namespace zol
