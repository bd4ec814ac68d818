// The recent find and replace texts that the dialogs offer. The lists themselves
// belong to the settings store, which loads and saves them; the application hands
// them over at start-up.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zol {

constexpr size_t kSearchHistorySize = 8;     // entries per list
constexpr size_t kSearchHistoryMaxLen = 80;  // longer texts are not kept (they would not load back)

// Where the lists live; null leaves a list in memory only.
void setSearchHistoryLists(std::vector<std::string>* find, std::vector<std::string>* replace);
const std::vector<std::string>& findHistory();
const std::vector<std::string>& replaceHistory();
// Puts a text at the front of its list, removing an earlier copy and the oldest entry
// beyond kSearchHistorySize. Empty and over-long texts are ignored.
void rememberFind(std::string_view text);
void rememberReplace(std::string_view text);
// The list operation itself.
void pushHistory(std::vector<std::string>& list, std::string_view text);

}  // namespace zol
