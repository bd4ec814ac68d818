#include "script/script_history.h"

#include <algorithm>

#include "platform/profile.h"

namespace zol {

std::vector<std::string>& scriptHistory() {
    static std::vector<std::string> list;
    return list;
}

void scriptHistoryAdd(std::string_view path) {
    if (path.empty()) return;
    auto& list = scriptHistory();
    list.erase(std::remove(list.begin(), list.end(), path), list.end());
    list.insert(list.begin(), std::string(path));
    if (list.size() > static_cast<size_t>(kScriptHistoryMax)) list.resize(kScriptHistoryMax);
}

void scriptHistoryLoad(std::string_view section, std::string_view file) {
    scriptHistory().clear();
    for (int i = kScriptHistoryMax; i >= 1; --i) scriptHistoryAdd(getProfileString(section, std::to_string(i), "", file));
}

void scriptHistorySave(std::string_view section, std::string_view file) {
    const auto& list = scriptHistory();
    for (int i = 1; i <= kScriptHistoryMax; ++i) {
        const size_t at = static_cast<size_t>(i - 1);
        writeProfileString(section, std::to_string(i), at < list.size() ? list[at] : std::string(), file);
    }
}

}  // namespace zol
