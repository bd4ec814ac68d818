#include "config/settings.h"
#include "platform/profile.h"

#include <string>

namespace zol {

namespace {

bool writeFlag(const char* key, bool on) { return writeProfileString("Settings", key, on ? "1" : "0", kSettingsFile); }

bool validAutoLoadIndex(int index) { return index >= 0 && index < kAutoLoadFiles; }

}  // namespace

bool clearSaveSettings() {
    settings().saveSettings = false;
    return writeFlag("SaveSettings", false);
}

bool setAllowMultiInst(bool on) {
    settings().allowMultiInst = on;
    return writeFlag("AllowMultiInst", on);
}

bool setAutoLoad(bool on) {
    settings().autoLoad = on;
    return writeFlag("AutoLoad", on);
}

bool setSaveDesktop(bool on) {
    settings().saveDesktop = on;
    return writeFlag("SaveDesktop", on);
}

bool setKeyMappingFile(std::string_view path) {
    settings().keyMappingFile = keyFileNameFromPath(path);
    return writeProfileString("Editor", "KeyMappingFile", settings().keyMappingFile, kSettingsFile);
}

std::string getSetting(std::string_view key, std::string_view def) {
    return getProfileString("Settings", key, def, kSettingsFile);
}

size_t getSetting(const char* key, const char* def, char* buffer, size_t size) {
    return getProfileString("Settings", key, def, buffer, size, kSettingsFile);
}

bool setSetting(std::string_view key, std::string_view value) {
    return writeProfileString("Settings", key, value, kSettingsFile);
}

std::string autoLoadGet(int index) {
    if (!validAutoLoadIndex(index)) return {};
    return getProfileString("AutoLoad", std::to_string(index + 1), "", kSettingsFile);
}

size_t autoLoadGet(int index, char* buffer, size_t size) {
    if (!validAutoLoadIndex(index)) {
        if (buffer && size) buffer[0] = '\0';
        return 0;
    }
    return getProfileString("AutoLoad", std::to_string(index + 1), "", buffer, size, kSettingsFile);
}

bool autoLoadSet(int index, std::string_view name) {
    if (!validAutoLoadIndex(index)) return false;
    return writeProfileString("AutoLoad", std::to_string(index + 1), name, kSettingsFile);
}

}  // namespace zol
