#include "config/recent_files.h"

#include "engine/text_util.h"
#include "platform/profile.h"

#include <algorithm>

namespace zol {

RecentFiles& recentFiles() {
    static RecentFiles list;
    return list;
}

void recentFileAdd(std::string_view path) {
    if (path.empty()) return;
    auto& files = recentFiles().files;
    files.erase(std::remove_if(files.begin(), files.end(), [&](const std::string& f) { return equalsNoCase(f, path); }),
                files.end());
    files.insert(files.begin(), std::string(path));
    if (files.size() > static_cast<size_t>(kRecentFilesMax)) files.resize(kRecentFilesMax);
}

void recentFilesLoad(std::string_view section, std::string_view file) {
    RecentFiles& list = recentFiles();
    list = RecentFiles();
    for (int i = kRecentFilesMax; i >= 1; --i) recentFileAdd(getProfileString(section, std::to_string(i), "", file));
    list.displayFileDir = getProfileInt(section, "DisplayFileDir", 0, file) & 1;
    list.removeCurDir = getProfileInt(section, "RemoveCurDir", 1, file) & 1;
}

void recentFilesSave(std::string_view section, std::string_view file) {
    const RecentFiles& list = recentFiles();
    for (int i = 1; i <= kRecentFilesMax; ++i) {
        size_t at = static_cast<size_t>(i - 1);
        writeProfileString(section, std::to_string(i), at < list.files.size() ? list.files[at] : std::string(), file);
    }
    writeProfileInt(section, "DisplayFileDir", list.displayFileDir, file);
    writeProfileInt(section, "RemoveCurDir", list.removeCurDir, file);
}

}  // namespace zol
