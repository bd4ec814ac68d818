#include "config/install_steps.h"

#include "config/settings.h"
#include "engine/text_util.h"
#include "platform/paths.h"
#include "platform/profile.h"
#include "platform/registry.h"

#include <string>

namespace zol {

namespace {

struct StarterMacro {
    const char* menuText;
    const char* description;
    const char* cmdLine;
};

const StarterMacro kStarterMacros[] = {
    {"&Word Wrap Document", "Word wraps active document", "wordwrap"},
    {"Remove &HTML Tags", "Removes HTML tags from the active document", "unhtml"},
    {"Comment C/C++/Java function", "Creates a Autoduck compilant comment for the currently selected C/C++ function",
     "autoduck"},
};

constexpr const char* kFamilySection = "VEK Applications";
constexpr const char* kFamilyKey = "Text Editor";
constexpr const char* kUninstallKey = "Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\zol";
constexpr const char* kUninstallKeyNT = "Software\\Microsoft\\Windows NT\\CurrentVersion\\Uninstall\\zol";
constexpr const char* kOldToolArguments = "-inh SearchString *.cpp";
constexpr const char* kNewToolArguments = "-in $(CurText) *.cpp *.h";

bool startsWith(std::string_view s, std::string_view prefix) { return s.substr(0, prefix.size()) == prefix; }

}  // namespace

void firstRunStep() {
    std::optional<uint32_t> start = registryGetInt(RegistryRoot::CurrentUser, kInstallKey, "Start");
    if (!start || *start != 0) return;
    registrySetInt(RegistryRoot::CurrentUser, kInstallKey, "Start", 1);
    writeProfileString(kFamilySection, kFamilyKey, "", kFamilyFile);
    ProfileBatch batch(kSettingsFile);
    writeProfileString("Settings", "AssociateDlgStartUp", "1", kSettingsFile);
    writeProfileString("Tip", "StartUp", "0", kSettingsFile);
    if (!getProfileString("MacroMenu", "MenuText1", "", kSettingsFile).empty()) return;
    int n = 1;
    for (const StarterMacro& m : kStarterMacros) {
        std::string num = std::to_string(n++);
        writeProfileString("MacroMenu", "MenuText" + num, m.menuText, kSettingsFile);
        writeProfileString("MacroMenu", "Description" + num, m.description, kSettingsFile);
        writeProfileString("MacroMenu", "CmdLine" + num, m.cmdLine, kSettingsFile);
    }
}

void uninstallFixup() {
    const char* key = kUninstallKey;
    bool first = registryKeyExists(RegistryRoot::LocalMachine, key);
    if (!first) {
        key = kUninstallKeyNT;
        if (!registryKeyExists(RegistryRoot::LocalMachine, key)) return;
    }
    std::optional<std::string> cmd = registryGetString(RegistryRoot::LocalMachine, key, "UninstallString");
    if (!cmd || !(startsWith(*cmd, "-") || (first && startsWith(*cmd, " -")))) return;
    registrySetString(RegistryRoot::LocalMachine, key, "UninstallString", joinPath(homeDir(), "uninst.exe ") + *cmd);
}

void upgradeUserToolArguments() {
    if (getProfileString("UserTools", "Arguments2", "", kSettingsFile) == kOldToolArguments)
        writeProfileString("UserTools", "Arguments2", kNewToolArguments, kSettingsFile);
}

void updateFamilyFile(std::string_view programPath) {
    ProfileBatch batch(kFamilyFile);
    const char* control;
    if (!equalsNoCase(getProfileString(kFamilySection, kFamilyKey, "", kFamilyFile), programPath)) {
        control = "yes";
        writeProfileString(kFamilySection, kFamilyKey, programPath, kFamilyFile);
    } else if (getProfileString("Version", kFamilyKey, "", kFamilyFile) != kVersionText) {
        control = "no";
    } else {
        return;
    }
    writeProfileString("Version", kFamilyKey, kVersionText, kFamilyFile);
    writeProfileString("Lang", kFamilyKey, kLanguageText, kFamilyFile);
    writeProfileString("vekctrl.dll", kFamilyKey, control, kFamilyFile);
}

}  // namespace zol
