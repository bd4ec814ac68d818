// The settings reference, docs/settings.md, written from the settings list.
#include "config/settings_list.h"

#include <string>

namespace zol {

namespace {

constexpr const char* kIntro =
    "<!-- Generated from the settings list, config/settings_list.cpp: do not edit.\n"
    "     Regenerate with: cmake --build build --target settings_doc -->\n"
    "# Settings\n"
    "\n"
    "Zolder keeps its settings in `zol.ini` in the Zolder home. These are the keys of its\n"
    "sections `[Settings]`, `[Editor]` and `[Printing]`. A missing key takes its default.\n"
    "Flags are written `0` or `1` and read keeping bit 0 only, so `3` reads as on and `2`\n"
    "as off. A value outside its range is corrected silently when it is read, as its rule\n"
    "says; a range without a rule is what the options dialog offers. A string keeps at\n"
    "most the characters given, the rest is cut. Zolder writes these sections back when it\n"
    "closes, unless `SaveSettings` is 0.\n";

constexpr const char* kTableHead =
    "| key | type | default | range | on load and save | meaning |\n"
    "|---|---|---|---|---|---|\n";

const char* loadRuleText(const SettingRow& row) {
    if (row.kind == SettingKind::Window)
        return "fewer than 4 numbers: the system's position at 600 by 380; an x or y beyond the screen's "
               "width or height less 30 becomes 50";
    switch (row.load) {
    case LoadRule::ToDefault: return "outside the range becomes the default";
    case LoadRule::ToMaximum: return "outside the range becomes the maximum";
    case LoadRule::ToMinimum: return "outside the range becomes the minimum";
    case LoadRule::Floor: return "below the minimum becomes the minimum";
    case LoadRule::SafeExtension:
        return "holding any of `/ < > \\| \" \\ ? * :` becomes the default; empty stays empty";
    case LoadRule::FileNamePart: return "only the part after the last `\\` or `/` is kept; empty becomes the default";
    case LoadRule::Keep: break;
    }
    return "";
}

const char* saveRuleText(SaveRule rule) {
    switch (rule) {
    case SaveRule::EveryTime: return "written even when `SaveSettings` is 0";
    case SaveRule::Never: return "read only, never written";
    case SaveRule::AsInFile: return "written back as the file holds it";
    case SaveRule::Low16Bits: return "written as its low 16 bits";
    case SaveRule::WithPrinterFont: return "written only when a printer font is chosen";
    case SaveRule::Write: break;
    }
    return "";
}

std::string typeText(const SettingRow& row) {
    switch (row.kind) {
    case SettingKind::Flag: return "bool";
    case SettingKind::Int: return "int";
    case SettingKind::Int16: return "16-bit int";
    case SettingKind::UInt16: return "16-bit unsigned";
    case SettingKind::Low8: return "int, low 8 bits kept";
    case SettingKind::Window: return "x y width height maximised";
    case SettingKind::Text: break;
    }
    return row.size ? "string, " + std::to_string(row.size - 1) + " chars" : "string";
}

std::string defaultText(const SettingRow& row) {
    if (row.kind != SettingKind::Text && row.kind != SettingKind::Window) return std::to_string(row.def);
    if (!row.defText) return "none";
    return *row.defText ? "`" + std::string(row.defText) + "`" : "empty";
}

std::string rangeText(const SettingRow& row) {
    const bool numeric = row.kind != SettingKind::Flag && row.kind != SettingKind::Text &&
                         row.kind != SettingKind::Window;
    if (!numeric || (row.minimum == kNoMinimum && row.maximum == kNoMaximum)) return "";
    return std::to_string(row.minimum) + ".." + std::to_string(row.maximum);
}

std::string ruleText(const SettingRow& row) {
    if (!row.field && row.kind != SettingKind::Window) return "not held by the store: kept where it is used";
    std::string load = loadRuleText(row), save = saveRuleText(row.save);
    return load.empty() || save.empty() ? load + save : load + "; " + save;
}

}  // namespace

std::string settingsReference() {
    std::string out = kIntro;
    std::string section;
    for (const SettingRow& row : settingRows()) {
        if (row.section != section) {
            section = row.section;
            out += "\n## [" + section + "]\n\n" + kTableHead;
        }
        out += "| `" + std::string(row.key) + "` | " + typeText(row) + " | " + defaultText(row) + " | " +
               rangeText(row) + " | " + ruleText(row) + " | " + row.meaning + " |\n";
    }
    return out;
}

}  // namespace zol
