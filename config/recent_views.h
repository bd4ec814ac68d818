// The per-file view memory (cursor and window of recently closed files), kept in
// section "LastFilesInfo".
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zol {

constexpr const char* kRecentViewSection = "LastFilesInfo";
constexpr int kRecentViewMax = 40;
constexpr size_t kRecentViewPathMax = 259;

struct RecentView {
    std::string path;   // full path, 1..kRecentViewPathMax characters
    int16_t column = 0;
    int32_t line = 0;
    int x = 0, y = 0, width = 0, height = 0;
    int showState = 1;  // 1 normal, 2 minimised, 3 maximised
};

// Oldest first; at most kRecentViewMax records, no two paths equal without regard to
// case.
std::vector<RecentView>& recentViews();

// Removes any record of the same path, drops the oldest when the list is full, and
// appends the new record.
void recentViewAdd(std::string_view path, int16_t column, int32_t line, int x, int y, int width, int height,
                   int showState);
// The record of path, or null.
const RecentView* recentViewFind(std::string_view path);

// Replaces the list with the records of keys "1".."40" of "zol.ini".
void recentViewLoad();
// Writes the records in list order to keys "1".."40", unused keys as empty strings.
bool recentViewSave();

// "\"%s\" %hd %ld %d %d %d %d %d"
std::string formatRecentView(const RecentView& view);
// A record needs its path and all seven numbers.
std::optional<RecentView> parseRecentView(std::string_view value);

}  // namespace zol
