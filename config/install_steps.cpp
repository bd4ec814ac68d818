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

// The user tools a new home starts with: the build of the document's folder and a
// compile of the document alone, both captured so that F4 steps through the messages.
// Carets under the source line would read as messages of their own, so the compiler
// is told to leave them out.
struct StarterTool {
    const char* menuText;
    const char* pathName;
    const char* arguments;
};

const StarterTool kStarterTools[] = {
    {"&Make", "make", ""},
    {"&Compile C file", "cc", "-Wall -fno-diagnostics-show-caret -c $(FileName)"},
};

void writeStarterTools() {
    if (!getProfileString("UserTools", "MenuText1", "", kSettingsFile).empty()) return;
    int n = 1;
    for (const StarterTool& t : kStarterTools) {
        const std::string num = std::to_string(n++);
        writeProfileString("UserTools", "MenuText" + num, t.menuText, kSettingsFile);
        writeProfileString("UserTools", "PathName" + num, t.pathName, kSettingsFile);
        writeProfileString("UserTools", "Arguments" + num, t.arguments, kSettingsFile);
        writeProfileString("UserTools", "InitialDir" + num, "$(FileDir)", kSettingsFile);
        writeProfileString("UserTools", "CaptureOutput" + num, "1", kSettingsFile);
    }
}

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
    writeStarterTools();
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
