#include "config/recent_views.h"

#include "config/profile_values.h"
#include "config/settings.h"
#include "engine/text_util.h"
#include "platform/profile.h"

#include <algorithm>

namespace zol {

std::vector<RecentView>& recentViews() {
    static std::vector<RecentView> list;
    return list;
}

void recentViewAdd(std::string_view path, int16_t column, int32_t line, int x, int y, int width, int height,
                   int showState) {
    if (path.empty()) return;
    path = path.substr(0, kRecentViewPathMax);
    auto& list = recentViews();
    list.erase(std::remove_if(list.begin(), list.end(), [&](const RecentView& v) { return equalsNoCase(v.path, path); }),
               list.end());
    if (list.size() >= static_cast<size_t>(kRecentViewMax)) list.erase(list.begin());
    list.push_back({std::string(path), column, line, x, y, width, height, showState});
}

const RecentView* recentViewFind(std::string_view path) {
    for (const RecentView& v : recentViews())
        if (equalsNoCase(v.path, path)) return &v;
    return nullptr;
}

std::string formatRecentView(const RecentView& v) {
    return "\"" + v.path + "\" " + std::to_string(v.column) + " " + std::to_string(v.line) + " " + std::to_string(v.x) +
           " " + std::to_string(v.y) + " " + std::to_string(v.width) + " " + std::to_string(v.height) + " " +
           std::to_string(v.showState);
}

std::optional<RecentView> parseRecentView(std::string_view value) {
    RecentView v;
    size_t pos = 0;
    if (!scanPathField(value, v.path, pos) || v.path.empty()) return std::nullopt;
    if (v.path.size() > kRecentViewPathMax) v.path.resize(kRecentViewPathMax);
    int64_t n[7];
    if (scanNumbers(value.substr(pos), n, 7) != 7) return std::nullopt;
    // The stored widths: a 16-bit column, a 32-bit line and plain ints.
    v.column = static_cast<int16_t>(n[0]);
    v.line = static_cast<int32_t>(n[1]);
    v.x = static_cast<int>(n[2]);
    v.y = static_cast<int>(n[3]);
    v.width = static_cast<int>(n[4]);
    v.height = static_cast<int>(n[5]);
    v.showState = static_cast<int>(n[6]);
    return v;
}

void recentViewLoad() {
    recentViews().clear();
    for (int i = 1; i <= kRecentViewMax; ++i) {
        std::optional<RecentView> v = parseRecentView(getProfileString(kRecentViewSection, std::to_string(i), "", kSettingsFile));
        if (v) recentViewAdd(v->path, v->column, v->line, v->x, v->y, v->width, v->height, v->showState);
    }
}

bool recentViewSave() {
    ProfileBatch batch(kSettingsFile);
    const auto& list = recentViews();
    for (int i = 1; i <= kRecentViewMax; ++i) {
        size_t at = static_cast<size_t>(i - 1);
        writeProfileString(kRecentViewSection, std::to_string(i), at < list.size() ? formatRecentView(list[at]) : std::string(),
                           kSettingsFile);
    }
    return batch.commit();
}

}  // namespace zol
