// The recent-files list of the File menu, kept in section "LastOpened".
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace zol {

constexpr const char* kRecentFilesSection = "LastOpened";
constexpr int kRecentFilesMax = 4;

struct RecentFiles {
    // Most recent first; at most kRecentFilesMax, no two equal without regard to case,
    // none empty.
    std::vector<std::string> files;
    bool displayFileDir = false;
    bool removeCurDir = true;
};

RecentFiles& recentFiles();

// Puts path first, removing an earlier entry for it and the oldest beyond the maximum.
void recentFileAdd(std::string_view path);

// Keys are read from "4" down to "1", each put first, so that "1" ends up first.
void recentFilesLoad(std::string_view section, std::string_view file);
// Keys "1".."4" in list order (unused ones empty), "DisplayFileDir", "RemoveCurDir".
void recentFilesSave(std::string_view section, std::string_view file);

}  // namespace zol
