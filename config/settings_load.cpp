#include "config/install_steps.h"
#include "config/profile_owners.h"
#include "config/profile_values.h"
#include "config/settings.h"
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

// Characters that cannot stand in a file extension.
constexpr std::string_view kBadExtensionChars = "/<>|\"\\?*:";

int readInt(const char* section, const char* key, int def) { return getProfileInt(section, key, def, kSettingsFile); }

// Booleans keep bit 0 only: "3" reads as true, "2" as false.
bool readBool(const char* section, const char* key, bool def) { return readInt(section, key, def ? 1 : 0) & 1; }

std::string readString(const char* section, const char* key, const char* def, size_t size = kProfileNoLimit) {
    return getProfileString(section, key, def, kSettingsFile, size);
}

// Values stored in 16 bits: signed for the wrap column, unsigned for the small codes,
// so that a negative code counts as "above" its range.
int readInt16(const char* section, const char* key, int def) { return static_cast<int16_t>(readInt(section, key, def)); }
int readUInt16(const char* section, const char* key, int def) { return static_cast<uint16_t>(readInt(section, key, def)); }

void loadWindow(const ProfileEnv& env, WindowPlacement& w) {
    int64_t n[5];
    int count = scanNumbers(readString("Settings", "Window", "10 10 600 380"), n, 5);
    if (count < 4) {
        w = {kDefaultWindowPos, kDefaultWindowPos, 600, 380, false};
        return;
    }
    w.x = static_cast<int>(n[0]);
    w.y = static_cast<int>(n[1]);
    w.width = static_cast<int>(n[2]);
    w.height = static_cast<int>(n[3]);
    w.maximized = count == 5 && n[4] != 0;
    if (w.x > env.screenWidth - 30) w.x = 50;
    if (w.y > env.screenHeight - 30) w.y = 50;
}

void loadSettingsSection(const ProfileEnv& env, Settings& s) {
    const char* sec = "Settings";
    s.saveSettings = readBool(sec, "SaveSettings", true);
    s.saveDesktop = readBool(sec, "SaveDesktop", true);
    s.autoLoad = readBool(sec, "AutoLoad", false);
    s.allowMultiInst = readBool(sec, "AllowMultiInst", false);
    loadWindow(env, s.window);
    s.statusBar = readBool(sec, "StatusBar", true);
    s.buttonBar = readBool(sec, "ButtonBar", true);
    s.docToolBar = readBool(sec, "DocToolBar", true);
    s.btnBarStyle = readInt(sec, "BtnBarStyle", -1);
    if (s.btnBarStyle < 1 || s.btnBarStyle > 3) s.btnBarStyle = -1;
    s.gradientCaption = readInt(sec, "GradientCaption", 1);
    s.fontName = readString(sec, "FontName", "Courier", kFontNameSize);
    s.fontSize = readInt(sec, "FontSize", 10);
    s.fontWeight = readInt(sec, "FontWeight", 400);
    s.fontCharSet = readInt(sec, "FontCharSet", 1) & 0xFF;
    s.languageId = readInt(sec, "LanguageID", 1033);
}

void loadEditorSection(Settings& s) {
    const char* sec = "Editor";
    EditOptions& o = options();
    o.autoSave = readBool(sec, "AutoSave", true);
    o.autoSaveEvery = readInt(sec, "AutoSaveEvery", 10);
    if (o.autoSaveEvery < 1 || o.autoSaveEvery > 120) o.autoSaveEvery = 10;
    o.backupFiles = readBool(sec, "BackupFiles", true);
    o.backupFilesAs = readInt(sec, "BackupFilesAs", 0);
    if (o.backupFilesAs != 0 && o.backupFilesAs != 1) o.backupFilesAs = 0;
    o.detectFileFormat = readBool(sec, "DetectFileFormat", true);
    o.defaultFileFormat = readInt(sec, "DefaultFileFormat", 0);
    if (o.defaultFileFormat < 0 || o.defaultFileFormat > 2) o.defaultFileFormat = 0;
    o.autoIndent = readBool(sec, "AutoIndent", true);
    o.autoUnindent = readBool(sec, "AutoUnindent", true);
    o.autoIndentUsingTabs = readBool(sec, "AutoIndentUsingTabs", true);
    o.overwrite = readBool(sec, "OverwriteMode", false);
    // Out of range becomes the maximum, not the default: kept as it always was.
    o.undoLevels = readInt(sec, "UndoLevels", 20);
    if (o.undoLevels < 1 || o.undoLevels > kMaxUndoRecords) o.undoLevels = kMaxUndoRecords;
    o.undoAfterSave = readBool(sec, "UndoAfterSave", false);
    // Likewise the smallest size, not the default.
    int tab = readInt(sec, "TabSize", 8);
    setTabSize(tab < kMinTabSize || tab > kMaxTabSize ? kMinTabSize : tab);
    o.blockIndent = readInt(sec, "BlockIndent", 1);
    if (o.blockIndent < 1 || o.blockIndent > 16) o.blockIndent = 1;
    o.useTabChar = readBool(sec, "UseTabChar", true);
    o.smartTab = readBool(sec, "SmartTab", false);
    o.wordWrap = readBool(sec, "WordWrap", false);
    o.wordWrapColumn = readInt16(sec, "WordWrapColumn", 76);
    if (o.wordWrapColumn < 4) o.wordWrapColumn = 4;
    if (!setWordWrapMethod(readInt(sec, "WordWrapMethod", 3))) setWordWrapMethod(3);
    o.wordWrapVisible = readBool(sec, "WordWrapVisible", true);
    o.ruler = readBool(sec, "Ruler", true);
    o.lineNumbers = readBool(sec, "LineNumbers", false);
    o.visibleSpaces = readBool(sec, "VisibleSpaces", false);
    o.blockCaret = readBool(sec, "BlockCaret", false);
    o.cursorBeyondEol = readBool(sec, "CursorBeyondEOL", true);
    o.keepTrailingBlanks = readBool(sec, "KeepTrailingBlanks", false);
    o.cursorThroughTabs = readBool(sec, "CursorThroughtTabs", false);
    s.alwaysWordWrapFileExt = readString(sec, "AlwaysWordWrapFileExt", "", kWordWrapExtSize);
    // Both keys were read into one buffer, so "Never" always replaces "Newer"; kept so.
    std::string wrapExt = readString(sec, "NewerWordWrapFileExt", "", kWordWrapExtSize);
    wrapExt = readString(sec, "NeverWordWrapFileExt", "", kWordWrapExtSize);
    s.neverWordWrapFileExt = wrapExt;
    wrapFileRules() = WrapFileRules{s.alwaysWordWrapFileExt, s.neverWordWrapFileExt};
    s.language = readUInt16(sec, "Language", 1);
    if (s.language > 3) s.language = 1;
    s.rightMouseBtn = readUInt16(sec, "RightMouseBtn", 0);
    if (s.rightMouseBtn > 1) s.rightMouseBtn = 0;
    s.newFileExtension = readString(sec, "NewFileExtension", "txt", kNewFileExtSize);
    if (s.newFileExtension.find_first_of(kBadExtensionChars) != std::string::npos) s.newFileExtension = "txt";
    s.includeDirs = readString(sec, "IncludeDirs", "", kIncludeDirsSize);
    o.checkFileTime = readBool(sec, "CheckFileTime", true);
}

void loadPrintingSection(Settings& s) {
    const char* sec = "Printing";
    PrintSettings& p = s.printing;
    options().splitLongLines = readBool(sec, "SplitLongLines", true);
    p.printInColor = readBool(sec, "PrintInColor", true);
    p.syntaxPrint = readBool(sec, "SyntaxPrint", false);
    p.leftMargin = readInt(sec, "LeftMargin", 254);
    p.rightMargin = readInt(sec, "RightMargin", 254);
    p.topMargin = readInt(sec, "TopMargin", 254);
    p.bottomMargin = readInt(sec, "BottomMargin", 254);
    p.header = readString(sec, "Header", "&f", kPrintHeaderSize);
    p.footer = readString(sec, "Footer", "&p", kPrintHeaderSize);
    p.fontName = readString(sec, "FontName", "", kFontNameSize);
    p.fontSize = readInt(sec, "FontSize", 10);
    p.fontWeight = readInt(sec, "FontWeight", 400);
    p.fontCharSet = readInt(sec, "FontCharSet", 1) & 0xFF;
    p.fontNameComments = readString(sec, "FontNameComments", "", kFontNameSize);
    p.fontNameKeywords = readString(sec, "FontNameKeywords", "", kFontNameSize);
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

Settings& settings() {
    static Settings s;
    return s;
}

std::string keyFileNameFromPath(std::string_view path) {
    std::string name(fileNamePart(path).substr(0, kKeyFileNameSize - 1));
    return name.empty() ? std::string("ZOL.KEY") : name;
}

void loadOptionSections(const ProfileEnv& env) {
    Settings& s = settings();
    loadSettingsSection(env, s);
    loadEditorSection(s);
    loadPrintingSection(s);
    loadHistory("Find", s.findHistory);
    loadHistory("Replace", s.replaceHistory);
}

void loadProfile(const ProfileEnv& env) {
    settings() = Settings();
    firstRunStep();
    uninstallFixup();
    upgradeUserToolArguments();
    updateFamilyFile(env.programPath.empty() ? executablePath() : env.programPath);
    loadOptionSections(env);
    loadMultiFindLists(settings());
    settings().keyMappingFile = keyFileNameFromPath(readString("Editor", "KeyMappingFile", "ZOL.KEY"));
    loadProfileOwners(kSettingsFile);
}

}  // namespace zol
