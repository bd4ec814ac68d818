#include "config/settings_list.h"

#include "config/settings.h"
#include "engine/line_list.h"
#include "engine/text_util.h"
#include "platform/paths.h"

#include <algorithm>
#include <cstdint>
#include <type_traits>

namespace zol {

namespace {

#define FIELD(path) [](SettingTarget& t) -> SettingField { return &t.path; }

constexpr SettingRow flagRow(const char* section, const char* key, SettingAccess field, bool def, SaveRule save,
                             const char* meaning) {
    return {section, key, SettingKind::Flag, field, def ? 1 : 0, nullptr, 0, 1, 0, LoadRule::Keep, save, meaning};
}

constexpr SettingRow numberRow(const char* section, const char* key, SettingKind kind, SettingAccess field, int def,
                               int minimum, int maximum, LoadRule load, SaveRule save, const char* meaning) {
    return {section, key, kind, field, def, nullptr, minimum, maximum, 0, load, save, meaning};
}

constexpr SettingRow textRow(const char* section, const char* key, SettingAccess field, const char* def, size_t size,
                             LoadRule load, SaveRule save, const char* meaning) {
    return {section, key, SettingKind::Text, field, 0, def, 0, 0, size, load, save, meaning};
}

using enum SettingKind;
using enum LoadRule;
using enum SaveRule;

// Kept outside these rows, with code of their own: the window placement's parsing
// (a row of kind Window here), section "FindHistory", the multi-find lists and every
// list that its owner loads and saves (config/profile_owners.h).
constexpr SettingRow kRows[] = {
    // ---- "Settings" ----
    flagRow("Settings", "SaveSettings", FIELD(settings.saveSettings), true, Write,
            "Saves the options when Zolder closes; the lists are saved anyway"),
    flagRow("Settings", "SaveDesktop", FIELD(settings.saveDesktop), true, Write,
            "Reopens the documents of the last session at start"),
    flagRow("Settings", "AutoLoad", FIELD(settings.autoLoad), false, Write,
            "Opens the files listed in section AutoLoad at start"),
    flagRow("Settings", "AllowMultiInst", FIELD(settings.allowMultiInst), false, Write,
            "Allows more than one running Zolder"),
    {"Settings", "Window", Window, nullptr, 0, "10 10 600 380", 0, 0, 0, Keep, Write,
     "The main window's last normal position and size, and whether it was maximised"},
    flagRow("Settings", "StatusBar", FIELD(settings.statusBar), true, Write, "Shows the status bar"),
    flagRow("Settings", "ButtonBar", FIELD(settings.buttonBar), true, Write, "Shows the tool bar"),
    flagRow("Settings", "DocToolBar", FIELD(settings.docToolBar), true, Write, "Shows the document bar"),
    numberRow("Settings", "BtnBarStyle", Int, FIELD(settings.btnBarStyle), -1, 1, 3, ToDefault, Write,
              "Style of the tool bar's buttons; -1 the standard one"),
    numberRow("Settings", "GradientCaption", Int, FIELD(settings.gradientCaption), 1, kNoMinimum, kNoMaximum, Keep,
              AsInFile, "Draws window captions with a colour gradient"),
    textRow("Settings", "FontName", FIELD(settings.fontName), "Courier", kFontNameSize, Keep, EveryTime,
            "Face of the editor's screen font"),
    numberRow("Settings", "FontSize", Int, FIELD(settings.fontSize), 10, 4, 72, Keep, EveryTime,
              "Size of the screen font in points"),
    numberRow("Settings", "FontWeight", Int, FIELD(settings.fontWeight), 400, kNoMinimum, kNoMaximum, Keep,
              EveryTime, "Weight of the screen font: 400 normal, 700 bold"),
    numberRow("Settings", "FontCharSet", Low8, FIELD(settings.fontCharSet), 1, 0, 255, Keep, EveryTime,
              "Character set of the screen font"),
    numberRow("Settings", "LanguageID", Int, FIELD(settings.languageId), 1033, kNoMinimum, kNoMaximum, Keep,
              Low16Bits, "Language of the user interface, as a Windows language number"),
    {"Settings", "AssociateDlgStartUp", Text, nullptr, 0, nullptr, 0, 0, 0, Keep, Never,
     "Shows the file-association dialog at start; written 1 on the first run"},

    // ---- "Editor" ----
    flagRow("Editor", "AutoSave", FIELD(options.autoSave), true, Write,
            "Saves changed documents to side files for recovery after a crash"),
    numberRow("Editor", "AutoSaveEvery", Int, FIELD(options.autoSaveEvery), 10, 1, 120, ToDefault, Write,
              "Minutes between two auto-saves"),
    flagRow("Editor", "BackupFiles", FIELD(options.backupFiles), true, Write,
            "Keeps the previous version of a saved file as a backup"),
    numberRow("Editor", "BackupFilesAs", Int, FIELD(options.backupFilesAs), 0, 0, 1, ToDefault, Write,
              "Name of a backup: 0 NAME.BAK, 1 NAME.EXT.BAK"),
    flagRow("Editor", "DetectFileFormat", FIELD(options.detectFileFormat), true, Write,
            "Takes a document's line ends from its file"),
    numberRow("Editor", "DefaultFileFormat", Int, FIELD(options.defaultFileFormat), 0, 0, 2, ToDefault, Write,
              "Line ends of new documents: 0 CR LF, 1 LF, 2 CR"),
    flagRow("Editor", "AutoIndent", FIELD(options.autoIndent), true, Write,
            "Indents a new line as far as the line above"),
    flagRow("Editor", "AutoUnindent", FIELD(options.autoUnindent), true, Write,
            "Backspace in a line's indent goes back to the indent of a line above"),
    flagRow("Editor", "AutoIndentUsingTabs", FIELD(options.autoIndentUsingTabs), true, Write,
            "Auto indent is made of tabs and blanks, not of blanks only"),
    flagRow("Editor", "OverwriteMode", FIELD(options.overwrite), false, Write,
            "Typing replaces the character at the cursor"),
    numberRow("Editor", "UndoLevels", Int, FIELD(options.undoLevels), 20, 1, kMaxUndoRecords, ToMaximum, Write,
              "Edits that Undo can take back"),
    flagRow("Editor", "UndoAfterSave", FIELD(options.undoAfterSave), false, Write,
            "Keeps the undo records when a document is saved"),
    numberRow("Editor", "TabSize", Int, FIELD(options.tabSize), 8, kMinTabSize, kMaxTabSize, ToMinimum, Write,
              "Columns from one tab stop to the next"),
    numberRow("Editor", "BlockIndent", Int, FIELD(options.blockIndent), 1, 1, 16, ToDefault, Write,
              "Columns by which indenting a block moves it"),
    flagRow("Editor", "UseTabChar", FIELD(options.useTabChar), true, Write,
            "The Tab key inserts a tab character, not blanks"),
    flagRow("Editor", "SmartTab", FIELD(options.smartTab), false, Write,
            "The Tab key moves below the next word of the line above"),
    flagRow("Editor", "WordWrap", FIELD(options.wordWrap), false, Write, "New documents are shown word-wrapped"),
    numberRow("Editor", "WordWrapColumn", Int16, FIELD(options.wordWrapColumn), 76, 4, kMaxColumns, Floor, Write,
              "Row width of word-wrap method 2"),
    numberRow("Editor", "WordWrapMethod", Int, FIELD(options.wordWrapMethod), 3, 1, 3, ToDefault, Write,
              "Where rows break: 1 at the window edge, 2 at the word-wrap column between words, "
              "3 at the window edge between words"),
    flagRow("Editor", "WordWrapVisible", FIELD(options.wordWrapVisible), true, Write,
            "Shows the word-wrap column"),
    flagRow("Editor", "Ruler", FIELD(options.ruler), true, Write, "Shows the column ruler"),
    flagRow("Editor", "LineNumbers", FIELD(options.lineNumbers), false, Write, "Shows line numbers"),
    flagRow("Editor", "VisibleSpaces", FIELD(options.visibleSpaces), false, Write, "Shows blanks and tabs"),
    flagRow("Editor", "BlockCaret", FIELD(options.blockCaret), false, Write, "Shows the cursor as a block"),
    flagRow("Editor", "CursorBeyondEOL", FIELD(options.cursorBeyondEol), true, Write,
            "The cursor may stand beyond the end of a line"),
    flagRow("Editor", "KeepTrailingBlanks", FIELD(options.keepTrailingBlanks), false, Write,
            "Keeps blanks at the ends of lines"),
    flagRow("Editor", "CursorThroughtTabs", FIELD(options.cursorThroughTabs), false, Write,
            "The cursor may stand inside a tab"),
    textRow("Editor", "AlwaysWordWrapFileExt", FIELD(settings.alwaysWordWrapFileExt), "", kWordWrapExtSize, Keep,
            Never, "Extensions of files that are always shown word-wrapped"),
    // Both keys fill the same value, so "NeverWordWrapFileExt" always replaces this
    // one: kept as it always was.
    textRow("Editor", "NewerWordWrapFileExt", FIELD(settings.neverWordWrapFileExt), "", kWordWrapExtSize, Keep,
            Never, "Read into the value of NeverWordWrapFileExt, which is read next and replaces it"),
    textRow("Editor", "NeverWordWrapFileExt", FIELD(settings.neverWordWrapFileExt), "", kWordWrapExtSize, Keep,
            Never, "Extensions of files that are never shown word-wrapped"),
    numberRow("Editor", "Language", UInt16, FIELD(settings.language), 1, 0, 3, ToDefault, Write,
              "Characters of a word: 0 C letters and digits, 1 letters and digits, 2 and 3 letter tables"),
    numberRow("Editor", "RightMouseBtn", UInt16, FIELD(settings.rightMouseBtn), 0, 0, 1, ToDefault, Write,
              "The right mouse button: 0 opens the context menu, 1 pastes"),
    textRow("Editor", "NewFileExtension", FIELD(settings.newFileExtension), "txt", kNewFileExtSize, SafeExtension,
            Write, "Extension of the names of new documents"),
    textRow("Editor", "IncludeDirs", FIELD(settings.includeDirs), "", kIncludeDirsSize, Keep, Write,
            "Extra folders searched for the file named at the cursor and for compiler messages"),
    flagRow("Editor", "CheckFileTime", FIELD(options.checkFileTime), true, Never,
            "Offers to reload a document whose file changed on disk"),
    textRow("Editor", "KeyMappingFile", FIELD(settings.keyMappingFile), "ZOL.KEY", kKeyFileNameSize, FileNamePart,
            Write, "The key file in the Zolder home: key map and keystroke macros"),

    // ---- "Printing" ----
    flagRow("Printing", "SplitLongLines", FIELD(options.splitLongLines), true, Write,
            "Splits a line too long for the editor when a file is read, rather than refusing the file; printing wraps long lines when on and cuts them when off"),
    flagRow("Printing", "PrintInColor", FIELD(settings.printing.printInColor), true, Write, "Prints in colour"),
    flagRow("Printing", "SyntaxPrint", FIELD(settings.printing.syntaxPrint), false, Write,
            "Prints with syntax highlighting"),
    numberRow("Printing", "LeftMargin", Int, FIELD(settings.printing.leftMargin), 254, kNoMinimum, kNoMaximum, Keep,
              Write, "Left page margin in tenths of a millimetre from the paper's edge (254: one inch)"),
    numberRow("Printing", "RightMargin", Int, FIELD(settings.printing.rightMargin), 254, kNoMinimum, kNoMaximum,
              Keep, Write, "Right page margin"),
    numberRow("Printing", "TopMargin", Int, FIELD(settings.printing.topMargin), 254, kNoMinimum, kNoMaximum, Keep,
              Write, "Top page margin"),
    numberRow("Printing", "BottomMargin", Int, FIELD(settings.printing.bottomMargin), 254, kNoMinimum, kNoMaximum,
              Keep, Write, "Bottom page margin"),
    textRow("Printing", "Header", FIELD(settings.printing.header), "&f", kPrintHeaderSize, Keep, Write,
            "Text printed at the top of each page"),
    textRow("Printing", "Footer", FIELD(settings.printing.footer), "&p", kPrintHeaderSize, Keep, Write,
            "Text printed at the bottom of each page"),
    textRow("Printing", "FontName", FIELD(settings.printing.fontName), "", kFontNameSize, Keep, WithPrinterFont,
            "Face of the printer font; empty when none was chosen"),
    numberRow("Printing", "FontSize", Int, FIELD(settings.printing.fontSize), 10, kNoMinimum, kNoMaximum, Keep,
              WithPrinterFont, "Size of the printer font in points"),
    numberRow("Printing", "FontWeight", Int, FIELD(settings.printing.fontWeight), 400, kNoMinimum, kNoMaximum, Keep,
              WithPrinterFont, "Weight of the printer font"),
    numberRow("Printing", "FontCharSet", Low8, FIELD(settings.printing.fontCharSet), 1, 0, 255, Keep,
              WithPrinterFont, "Character set of the printer font"),
    textRow("Printing", "FontNameComments", FIELD(settings.printing.fontNameComments), "", kFontNameSize, Keep, Write,
            "Face for comments; empty: the printer font"),
    textRow("Printing", "FontNameKeywords", FIELD(settings.printing.fontNameKeywords), "", kFontNameSize, Keep, Write,
            "Face for keywords; empty: the printer font"),

    // ---- "Spelling": a list section, so written even when the options are not ----
    textRow("Spelling", "MainLexicon", FIELD(settings.spelling.mainLexicon), "spellus.lex", kLexiconNameSize, Keep,
            EveryTime,
            "The spelling dictionary: a hunspell language such as en_US or de_DE, or the path of its .dic file; "
            "spellus.lex (the default) is American English"),
    textRow("Spelling", "UserDictionary", FIELD(settings.spelling.userDictionary), "zol.dic", kLexiconNameSize, Keep,
            EveryTime, "The user's own words, one a line: a file in the Zolder home, or a path"),
    flagRow("Spelling", "UnderlineText", FIELD(settings.spelling.underlineText), true, EveryTime,
            "Underlines misspelt words in documents without a language definition"),
    flagRow("Spelling", "UnderlineSource", FIELD(settings.spelling.underlineSource), false, EveryTime,
            "Underlines misspelt words in the comments and strings of source files"),
    flagRow("Spelling", "IgnoreUppercase", FIELD(settings.spelling.ignoreUppercase), true, EveryTime,
            "Spelling passes over words in capitals only"),
};

#undef FIELD

// Characters that cannot stand in a file extension.
constexpr std::string_view kBadExtensionChars = "/<>|\"\\?*:";

int readAs(SettingKind kind, int value) {
    switch (kind) {
    case Flag: return value & 1;
    case Int16: return static_cast<int16_t>(value);
    case UInt16: return static_cast<uint16_t>(value);
    case Low8: return value & 0xFF;
    default: return value;
    }
}

}  // namespace

std::span<const SettingRow> settingRows() { return kRows; }

const SettingRow* findSetting(std::string_view section, std::string_view key) {
    for (const SettingRow& row : kRows)
        if (equalsNoCase(row.section, section) && equalsNoCase(row.key, key)) return &row;
    return nullptr;
}

int settingNumber(const SettingRow& row, SettingTarget& target) {
    return std::visit(
        [](auto* p) -> int {
            if constexpr (std::is_same_v<decltype(p), std::string*>) return 0;
            else return static_cast<int>(*p);
        },
        row.field(target));
}

void setSettingNumber(const SettingRow& row, SettingTarget& target, int value) {
    std::visit(
        [value](auto* p) {
            using T = std::remove_pointer_t<decltype(p)>;
            if constexpr (!std::is_same_v<T, std::string>) *p = static_cast<T>(value);
        },
        row.field(target));
}

std::string& settingText(const SettingRow& row, SettingTarget& target) {
    return *std::get<std::string*>(row.field(target));
}

int correctSettingNumber(const SettingRow& row, int value) {
    const int v = readAs(row.kind, value);
    const bool outside = v < row.minimum || v > row.maximum;
    switch (row.load) {
    case ToDefault: return outside ? row.def : v;
    case ToMaximum: return outside ? row.maximum : v;
    case ToMinimum: return outside ? row.minimum : v;
    case Floor: return std::max(v, row.minimum);
    default: return v;
    }
}

std::string correctSettingText(const SettingRow& row, std::string value) {
    switch (row.load) {
    case SafeExtension: return isSafeExtension(value) ? value : row.defText;
    case FileNamePart: {
        std::string name(fileNamePart(value).substr(0, row.size - 1));
        return name.empty() ? std::string(row.defText) : name;
    }
    default: return value;
    }
}

bool isSafeExtension(std::string_view text) { return text.find_first_of(kBadExtensionChars) == std::string_view::npos; }

void applySettingDefaults(SettingTarget& target) {
    for (const SettingRow& row : kRows) {
        if (row.kind == Window) target.settings.window = windowFromText(row.defText, ProfileEnv{});
        if (!row.field) continue;
        if (row.kind == Text) settingText(row, target) = row.defText;
        else setSettingNumber(row, target, row.def);
    }
}

}  // namespace zol
