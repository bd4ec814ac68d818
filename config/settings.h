// The settings store: the program-wide settings kept in "zol.ini" (sections "Settings",
// "Editor", "Printing", "FindHistory" and the multi-find lists). The "Editor" values
// live in the global editing options (engine/options.h); the rest live here.
#pragma once
#include <climits>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zol {

// Both files are bare names, so they resolve into the home folder.
constexpr const char* kSettingsFile = "zol.ini";
constexpr const char* kFamilyFile = "vek.ini";

// Read buffer sizes of the string keys: a value keeps at most size - 1 characters.
constexpr size_t kFontNameSize = 32;
constexpr size_t kWordWrapExtSize = 80;
constexpr size_t kIncludeDirsSize = 256;
constexpr size_t kNewFileExtSize = 32;
constexpr size_t kPrintHeaderSize = 40;
constexpr size_t kKeyFileNameSize = 32;

constexpr int kFindHistoryCount = 8;
constexpr size_t kFindHistoryMaxLen = 80;  // an entry this long or longer is dropped on load
constexpr int kMultiFindListSize = 20;
constexpr int kAutoLoadFiles = 20;

// The window system picks the position (CW_USEDEFAULT).
constexpr int kDefaultWindowPos = INT_MIN;

// The main window's last normal position and size.
struct WindowPlacement {
    int x = 10;  // kDefaultWindowPos or a position inside the screen (see loadProfile)
    int y = 10;
    int width = 600;
    int height = 380;
    bool maximized = false;
};

struct PrintSettings {
    bool printInColor = true;
    bool syntaxPrint = false;
    int leftMargin = 254, rightMargin = 254, topMargin = 254, bottomMargin = 254;
    std::string header = "&f";  // at most kPrintHeaderSize - 1 characters
    std::string footer = "&p";
    std::string fontName;       // empty: no printer font chosen, font keys not written
    int fontSize = 10;
    int fontWeight = 400;
    int fontCharSet = 1;        // 0..255
    std::string fontNameComments;  // empty: the printer font
    std::string fontNameKeywords;
};

struct Settings {
    // "Settings"
    bool saveSettings = true;   // false: the option sections are not written on exit
    bool saveDesktop = true;
    bool autoLoad = false;
    bool allowMultiInst = false;
    WindowPlacement window;
    bool statusBar = true;
    bool buttonBar = true;
    bool docToolBar = true;
    int btnBarStyle = -1;       // 1, 2, 3 or -1
    int gradientCaption = 1;
    std::string fontName = "Courier";  // at most kFontNameSize - 1 characters
    int fontSize = 10;
    int fontWeight = 400;
    int fontCharSet = 1;        // 0..255
    int languageId = 1033;
    // "Editor" keys that are not editing options
    std::string alwaysWordWrapFileExt;  // at most kWordWrapExtSize - 1 characters
    std::string neverWordWrapFileExt;
    int language = 1;           // 0..3
    int rightMouseBtn = 0;      // 0 or 1
    std::string newFileExtension = "txt";  // empty, or free of / < > | " \ ? * :
    std::string includeDirs;    // at most kIncludeDirsSize - 1 characters
    std::string keyMappingFile = "ZOL.KEY";  // a bare name of 1..kKeyFileNameSize - 1 characters
    PrintSettings printing;
    // "FindHistory": non-empty entries shorter than kFindHistoryMaxLen, at most
    // kFindHistoryCount each, slot 1 first.
    std::vector<std::string> findHistory;
    std::vector<std::string> replaceHistory;
    // Keys "1".."kMultiFindListSize" in order; no empty entries.
    std::vector<std::string> multiFindFileFilters;
    std::vector<std::string> multiFindFolderHistory;
};

Settings& settings();

// Facts about the machine that the loader needs.
struct ProfileEnv {
    int screenWidth = 1024;
    int screenHeight = 768;
    std::string programPath;  // empty: the running executable
};

// Start-up: the install and upgrade steps, then every section with its defaults and
// corrections, then the owner lists. Never fails: what cannot be read takes defaults.
void loadProfile(const ProfileEnv& env = {});
// Reads "Settings", "Editor", "Printing" and "FindHistory" (part of loadProfile).
void loadOptionSections(const ProfileEnv& env);
// Writes the option sections when saveOptions, and always the owner lists and the
// screen font keys. False when "zol.ini" could not be written.
bool saveProfile(bool saveOptions);

// Single-key writers of the dialogs; each changes the setting and writes its key.
bool clearSaveSettings();
bool setAllowMultiInst(bool on);
bool setAutoLoad(bool on);
bool setSaveDesktop(bool on);
bool setKeyMappingFile(std::string_view path);
// The key file name kept from a path: the part after the last "\" or "/", at most
// kKeyFileNameSize - 1 characters; "ZOL.KEY" when that is empty.
std::string keyFileNameFromPath(std::string_view path);

// Free keys of section "Settings".
std::string getSetting(std::string_view key, std::string_view def);
size_t getSetting(const char* key, const char* def, char* buffer, size_t size);
bool setSetting(std::string_view key, std::string_view value);

// Section "AutoLoad", key index + 1; an index outside 0..kAutoLoadFiles - 1 reads as
// empty and is never written.
std::string autoLoadGet(int index);
size_t autoLoadGet(int index, char* buffer, size_t size);
bool autoLoadSet(int index, std::string_view name);

}  // namespace zol
