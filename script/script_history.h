// The scripts the user ran last, kept in section "ScriptHistory" of the settings for the
// script dialog to offer again.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace zol {

constexpr const char* kScriptHistorySection = "ScriptHistory";
// As many as a drop-down list shows without scrolling; older runs fall off the end.
constexpr int kScriptHistoryMax = 10;

// Most recent first, no two equal, none empty; the runner adds full paths.
std::vector<std::string>& scriptHistory();

// Puts the script first, removing an earlier entry for it and the oldest beyond the maximum.
void scriptHistoryAdd(std::string_view path);

// Keys "1" up to kScriptHistoryMax, "1" the most recent: the owner routines of the
// settings store.
void scriptHistoryLoad(std::string_view section, std::string_view file);
// Unused keys are written empty, so that no entry dropped from the list comes back.
void scriptHistorySave(std::string_view section, std::string_view file);

}  // namespace zol
