#include "config/install_steps.h"
#include "config/profile_owners.h"
#include "config/profile_values.h"
#include "config/settings.h"
#include "config/settings_list.h"
#include "engine/options.h"
#include "engine/wordwrap.h"
#include "platform/paths.h"
#include "platform/profile.h"

#include <cstdint>
#include <string>

namespace zol {

namespace {

// Added one by one at the front of an empty list, so the last is shown first.
const char* const kDefaultFileFilters[] = {
    "*.ini;*.inf;*.log",
    "*.js;*.java",
    "*.sql;*.tsq;*.ssq",
    "*.htm;*.html;*.htx;*.asp;*.alx;*.stm;*.shtml",
    "*.h;*.hpp;*.hxx",
    "*.c;*.cpp;*.cxx",
    "*.c;*.cpp;*.cxx;*.h;*.hpp;*.hxx",
    "*.txt;*.ini;*.inf;*.log;*.c;*.cpp;*.h;*.odl;*.idl;*.mak;*.rc;*.asm;*.java;*.js;*.htm;*.html;*.asp;*.rc;*.pl;*.prg;*.ch;*.pas;*.for;*.vbs;*.frm;*.bas",
};

std::string readString(const char* section, const char* key, const char* def, size_t size = kProfileNoLimit) {
    return getProfileString(section, key, def, kSettingsFile, size);
}

void loadRow(const SettingRow& row, SettingTarget& target, const ProfileEnv& env) {
    if (row.kind == SettingKind::Window) {
        target.settings.window = windowFromText(readString(row.section, row.key, row.defText), env);
    } else if (!row.field) {
        return;
    } else if (row.kind == SettingKind::Text) {
        // A path is read whole, so that its name part survives a long folder.
        const size_t size = row.load == LoadRule::FileNamePart ? kProfileNoLimit : row.size;
        settingText(row, target) = correctSettingText(row, readString(row.section, row.key, row.defText, size));
    } else {
        const int value = getProfileInt(row.section, row.key, row.def, kSettingsFile);
        setSettingNumber(row, target, correctSettingNumber(row, value));
    }
}

void loadHistory(const char* prefix, std::vector<std::string>& list) {
    list.clear();
    for (int i = 1; i <= kFindHistoryCount; ++i) {
        std::string key = prefix + std::to_string(i);
        std::string v = readString("FindHistory", key.c_str(), "");
        if (!v.empty() && v.size() < kFindHistoryMaxLen) list.push_back(std::move(v));
    }
}

void loadMultiFindList(const char* section, std::vector<std::string>& list) {
    list.clear();
    for (int i = 1; i <= kMultiFindListSize; ++i) {
        std::string v = readString(section, std::to_string(i).c_str(), "");
        if (!v.empty() && static_cast<unsigned char>(v[0]) == 0x80) v.erase(0, 1);
        if (!v.empty()) list.push_back(std::move(v));
    }
}

void loadMultiFindLists(Settings& s) {
    if (readString("MultiFindFileFilters", "1", "").empty()) {
        s.multiFindFileFilters.clear();
        for (const char* f : kDefaultFileFilters) s.multiFindFileFilters.insert(s.multiFindFileFilters.begin(), f);
    } else {
        loadMultiFindList("MultiFindFileFilters", s.multiFindFileFilters);
    }
    loadMultiFindList("MultiFindFolderHistory", s.multiFindFolderHistory);
}

}  // namespace

Settings::Settings() {
    // The rows of the editing options take their defaults here, not in the engine's own.
    EditOptions unused;
    SettingTarget target{unused, *this};
    applySettingDefaults(target);
}

Settings& settings() {
    static Settings s;
    return s;
}

WindowPlacement windowFromText(std::string_view text, const ProfileEnv& env) {
    int64_t n[5];
    const int count = scanNumbers(text, n, 5);
    if (count < 4) return {kDefaultWindowPos, kDefaultWindowPos, 600, 380, false};
    WindowPlacement w{static_cast<int>(n[0]), static_cast<int>(n[1]), static_cast<int>(n[2]), static_cast<int>(n[3]),
                      count == 5 && n[4] != 0};
    if (w.x > env.screenWidth - 30) w.x = 50;
    if (w.y > env.screenHeight - 30) w.y = 50;
    return w;
}

std::string keyFileNameFromPath(std::string_view path) {
    return correctSettingText(*findSetting("Editor", "KeyMappingFile"), std::string(path));
}

void loadOptionSections(const ProfileEnv& env) {
    Settings& s = settings();
    SettingTarget target{options(), s};
    for (const SettingRow& row : settingRows()) loadRow(row, target, env);
    wrapFileRules() = WrapFileRules{s.alwaysWordWrapFileExt, s.neverWordWrapFileExt};
    loadHistory("Find", s.findHistory);
    loadHistory("Replace", s.replaceHistory);
}

void loadProfile(const ProfileEnv& env) {
    ProfileReadScope scope;
    settings() = Settings();
    firstRunStep();
    uninstallFixup();
    upgradeUserToolArguments();
    updateFamilyFile(env.programPath.empty() ? executablePath() : env.programPath);
    loadOptionSections(env);
    loadMultiFindLists(settings());
    loadProfileOwners(kSettingsFile);
}

}  // namespace zol
