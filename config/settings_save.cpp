#include "config/profile_owners.h"
#include "config/settings.h"
#include "engine/options.h"
#include "platform/profile.h"

#include <string>

namespace zol {

namespace {

void writeInt(const char* section, const char* key, int value) { writeProfileInt(section, key, value, kSettingsFile); }

void writeString(const char* section, const char* key, std::string_view value) {
    writeProfileString(section, key, value, kSettingsFile);
}

void saveSettingsSection(const Settings& s) {
    const char* sec = "Settings";
    writeInt(sec, "SaveSettings", s.saveSettings);
    writeInt(sec, "SaveDesktop", s.saveDesktop);
    writeInt(sec, "AutoLoad", s.autoLoad);
    writeInt(sec, "AllowMultiInst", s.allowMultiInst);
    const WindowPlacement& w = s.window;
    writeString(sec, "Window", std::to_string(w.x) + " " + std::to_string(w.y) + " " + std::to_string(w.width) + " " +
                                   std::to_string(w.height) + " " + std::to_string(w.maximized ? 1 : 0));
    writeInt(sec, "StatusBar", s.statusBar);
    writeInt(sec, "ButtonBar", s.buttonBar);
    writeInt(sec, "DocToolBar", s.docToolBar);
    writeInt(sec, "BtnBarStyle", s.btnBarStyle);
    // Written back from the file, not from memory: kept as it always was.
    writeInt(sec, "GradientCaption", getProfileInt(sec, "GradientCaption", 1, kSettingsFile));
    writeInt(sec, "LanguageID", s.languageId & 0xFFFF);
}

void saveScreenFont(const Settings& s) {
    const char* sec = "Settings";
    writeString(sec, "FontName", s.fontName);
    writeInt(sec, "FontSize", s.fontSize);
    writeInt(sec, "FontWeight", s.fontWeight);
    writeInt(sec, "FontCharSet", s.fontCharSet);
}

void saveEditorSection(const Settings& s) {
    const char* sec = "Editor";
    const EditOptions& o = options();
    writeInt(sec, "AutoSave", o.autoSave);
    writeInt(sec, "AutoSaveEvery", o.autoSaveEvery);
    writeInt(sec, "BackupFiles", o.backupFiles);
    writeInt(sec, "BackupFilesAs", o.backupFilesAs);
    writeInt(sec, "DetectFileFormat", o.detectFileFormat);
    writeInt(sec, "DefaultFileFormat", o.defaultFileFormat);
    writeInt(sec, "AutoIndent", o.autoIndent);
    writeInt(sec, "AutoUnindent", o.autoUnindent);
    writeInt(sec, "AutoIndentUsingTabs", o.autoIndentUsingTabs);
    writeInt(sec, "OverwriteMode", o.overwrite);
    writeInt(sec, "UndoLevels", o.undoLevels);
    writeInt(sec, "UndoAfterSave", o.undoAfterSave);
    writeInt(sec, "TabSize", o.tabSize);
    writeInt(sec, "BlockIndent", o.blockIndent);
    writeInt(sec, "UseTabChar", o.useTabChar);
    writeInt(sec, "SmartTab", o.smartTab);
    writeInt(sec, "WordWrap", o.wordWrap);
    writeInt(sec, "WordWrapColumn", o.wordWrapColumn);
    writeInt(sec, "WordWrapMethod", o.wordWrapMethod);
    writeInt(sec, "WordWrapVisible", o.wordWrapVisible);
    writeInt(sec, "Ruler", o.ruler);
    writeInt(sec, "LineNumbers", o.lineNumbers);
    writeInt(sec, "VisibleSpaces", o.visibleSpaces);
    writeInt(sec, "BlockCaret", o.blockCaret);
    writeInt(sec, "CursorBeyondEOL", o.cursorBeyondEol);
    writeInt(sec, "KeepTrailingBlanks", o.keepTrailingBlanks);
    writeInt(sec, "CursorThroughtTabs", o.cursorThroughTabs);
    writeInt(sec, "Language", s.language);
    writeInt(sec, "RightMouseBtn", s.rightMouseBtn);
    writeString(sec, "NewFileExtension", s.newFileExtension);
    writeString(sec, "IncludeDirs", s.includeDirs);
    writeString(sec, "KeyMappingFile", s.keyMappingFile);
}

void savePrintingSection(const PrintSettings& p) {
    const char* sec = "Printing";
    writeInt(sec, "SplitLongLines", options().splitLongLines);
    writeInt(sec, "PrintInColor", p.printInColor);
    writeInt(sec, "SyntaxPrint", p.syntaxPrint);
    writeInt(sec, "LeftMargin", p.leftMargin);
    writeInt(sec, "RightMargin", p.rightMargin);
    writeInt(sec, "TopMargin", p.topMargin);
    writeInt(sec, "BottomMargin", p.bottomMargin);
    writeString(sec, "Header", p.header);
    writeString(sec, "Footer", p.footer);
    if (!p.fontName.empty()) {
        writeString(sec, "FontName", p.fontName);
        writeInt(sec, "FontSize", p.fontSize);
        writeInt(sec, "FontWeight", p.fontWeight);
        writeInt(sec, "FontCharSet", p.fontCharSet);
    }
    writeString(sec, "FontNameComments", p.fontNameComments);
    writeString(sec, "FontNameKeywords", p.fontNameKeywords);
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
    ProfileBatch batch(kSettingsFile);
    if (saveOptions) {
        saveSettingsSection(s);
        saveEditorSection(s);
        savePrintingSection(s.printing);
        saveList("FindHistory", "Find", s.findHistory, kFindHistoryCount);
        saveList("FindHistory", "Replace", s.replaceHistory, kFindHistoryCount);
        saveList("MultiFindFileFilters", "", s.multiFindFileFilters, kMultiFindListSize);
        saveList("MultiFindFolderHistory", "", s.multiFindFolderHistory, kMultiFindListSize);
    }
    saveProfileOwners(kSettingsFile);
    saveScreenFont(s);
    return batch.commit();
}

}  // namespace zol
