// The settings store: the program-wide settings kept in "zol.ini" (sections "Settings",
// "Editor", "Printing", "FindHistory" and the multi-find lists). The keys of the first
// three are the rows of the settings list (config/settings_list.h); most "Editor"
// values live in the global editing options (engine/options.h), the rest live here.
#pragma once
#include <climits>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zol {

// Both files are bare names, so they resolve into the home folder.
constexpr const char* kSettingsFile = "zol.ini";
// The shipped files already offered to the home, one key each (see seeding at start-up).
constexpr const char* kSeededSection = "SeededFiles";
constexpr const char* kFamilyFile = "vek.ini";

// Read buffer sizes of the string keys: a value keeps at most size - 1 characters.
constexpr size_t kFontNameSize = 32;
constexpr size_t kWordWrapExtSize = 80;
constexpr size_t kIncludeDirsSize = 256;
constexpr size_t kNewFileExtSize = 32;
constexpr size_t kPrintHeaderSize = 40;
constexpr size_t kKeyFileNameSize = 32;
constexpr size_t kLexiconNameSize = 260;

constexpr int kFindHistoryCount = 8;
constexpr size_t kFindHistoryMaxLen = 80;  // an entry this long or longer is dropped on load
constexpr int kMultiFindListSize = 20;
constexpr int kAutoLoadFiles = 20;

// The window system picks the position (CW_USEDEFAULT).
constexpr int kDefaultWindowPos = INT_MIN;

// The main window's last normal position and size.
struct WindowPlacement {
    int x = 0;  // kDefaultWindowPos or a position inside the screen (see windowFromText)
    int y = 0;
    int width = 0;
    int height = 0;
    bool maximized = false;
};

// The values of the settings list (config/settings_list.h) that the editing options do
// not hold; the list gives their keys, defaults and ranges.
struct PrintSettings {
    bool printInColor{};
    bool syntaxPrint{};
    int leftMargin{}, rightMargin{}, topMargin{}, bottomMargin{};
    std::string header;
    std::string footer;
    std::string fontName;  // empty: no printer font chosen, font keys not written
    int fontSize{};
    int fontWeight{};
    int fontCharSet{};
    std::string fontNameComments;  // empty: the printer font
    std::string fontNameKeywords;
};

// Section "Spelling".
struct SpellingSettings {
    std::string mainLexicon;       // a language ("en_US"), a .dic path, or the historic "spellus.lex"
    std::string userDictionary;    // a file in the home, or a path
    bool underlineText{};          // underline misspelt words in documents without a language
    bool underlineSource{};        // and in comments and strings of source files
    bool ignoreUppercase{};
};

struct Settings {
    // Every value at the default of its key.
    Settings();

    // "Settings"
    bool saveSettings{};  // false: the option sections are not written on exit
    bool saveDesktop{};
    bool autoLoad{};
    bool allowMultiInst{};
    WindowPlacement window;
    bool statusBar{};
    bool buttonBar{};
    bool docToolBar{};
    int btnBarStyle{};
    int gradientCaption{};
    std::string fontName;
    int fontSize{};
    int fontWeight{};
    int fontCharSet{};
    int languageId{};
    // "Editor" keys that are not editing options
    std::string alwaysWordWrapFileExt;
    std::string neverWordWrapFileExt;
    int language{};
    int rightMouseBtn{};
    std::string newFileExtension;
    std::string includeDirs;
    std::string keyMappingFile;  // a bare name
    PrintSettings printing;
    SpellingSettings spelling;
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
// The "Window" value as loading reads it: fewer than four numbers give the system's
// position at 600 by 380; a corner beyond the screen less 30 moves to 50.
WindowPlacement windowFromText(std::string_view text, const ProfileEnv& env);
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
// kKeyFileNameSize - 1 characters; the default of "KeyMappingFile" when that is empty.
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
