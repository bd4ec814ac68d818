#include "config/profile_owners.h"
#include "config/settings.h"
#include "config/settings_list.h"
#include "engine/options.h"
#include "engine/shell.h"
#include "files/messages.h"
#include "platform/profile.h"

#include <string>

namespace zol {

namespace {

void writeInt(const char* section, const char* key, int value) { writeProfileInt(section, key, value, kSettingsFile); }

void writeString(const char* section, const char* key, std::string_view value) {
    writeProfileString(section, key, value, kSettingsFile);
}

void writeWindow(const char* section, const char* key, const WindowPlacement& w) {
    writeString(section, key,
                std::to_string(w.x) + " " + std::to_string(w.y) + " " + std::to_string(w.width) + " " +
                    std::to_string(w.height) + " " + std::to_string(w.maximized ? 1 : 0));
}

void saveRow(const SettingRow& row, SettingTarget& target) {
    if (row.kind == SettingKind::Window) return writeWindow(row.section, row.key, target.settings.window);
    if (!row.field) return;
    switch (row.save) {
    case SaveRule::Never: return;
    case SaveRule::AsInFile:
        return writeInt(row.section, row.key, getProfileInt(row.section, row.key, row.def, kSettingsFile));
    case SaveRule::WithPrinterFont:
        if (target.settings.printing.fontName.empty()) return;
        break;
    default: break;
    }
    if (row.kind == SettingKind::Text) return writeString(row.section, row.key, settingText(row, target));
    const int value = settingNumber(row, target);
    writeInt(row.section, row.key, row.save == SaveRule::Low16Bits ? value & 0xFFFF : value);
}

// With everyTime false the rows of the option sections, with true those written on
// every save.
void saveRows(bool everyTime) {
    SettingTarget target{options(), settings()};
    for (const SettingRow& row : settingRows())
        if ((row.save == SaveRule::EveryTime) == everyTime) saveRow(row, target);
}

// Slots beyond the list are written as empty strings.
void saveList(const char* section, const char* prefix, const std::vector<std::string>& list, int slots) {
    for (int i = 1; i <= slots; ++i) {
        size_t at = static_cast<size_t>(i - 1);
        std::string key = prefix + std::to_string(i);
        writeString(section, key.c_str(), at < list.size() ? list[at] : std::string());
    }
}

}  // namespace

bool saveProfile(bool saveOptions) {
    const Settings& s = settings();
    ProfileReadScope scope;
    ProfileBatch batch(kSettingsFile);
    if (saveOptions) {
        saveRows(false);
        saveList("FindHistory", "Find", s.findHistory, kFindHistoryCount);
        saveList("FindHistory", "Replace", s.replaceHistory, kFindHistoryCount);
        saveList("MultiFindFileFilters", "", s.multiFindFileFilters, kMultiFindListSize);
        saveList("MultiFindFolderHistory", "", s.multiFindFolderHistory, kMultiFindListSize);
    }
    saveProfileOwners(kSettingsFile);
    saveRows(true);
    if (batch.commit()) return true;
    shell().message(filemsg::withFileName(filemsg::kCannotOpenWrite, profilePath(kSettingsFile)));
    return false;
}

}  // namespace zol
