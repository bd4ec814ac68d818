// Every text the desktop dialogs show the user.
#pragma once

namespace zol::dlgmsg {

// Find and Replace
inline constexpr char kFindTitle[] = "Find";
inline constexpr char kReplaceTitle[] = "Replace";
inline constexpr char kFindWhat[] = "Fi&nd what:";
inline constexpr char kReplaceWith[] = "Re&place with:";
inline constexpr char kWholeWord[] = "Match &whole word only";
inline constexpr char kMatchCase[] = "Match &case";
inline constexpr char kRegex[] = "Regular e&xpression";
inline constexpr char kDirection[] = "Direction";
inline constexpr char kUp[] = "&Up";
inline constexpr char kDown[] = "&Down";
inline constexpr char kPatternButton[] = "&>";
inline constexpr char kPatternTip[] = "Insert a piece of regular expression";
inline constexpr char kFindNext[] = "&Find Next";
inline constexpr char kReplaceOne[] = "&Replace";
inline constexpr char kReplaceAll[] = "Replace &All";
inline constexpr char kNotInCodePage[] =
    "The text holds characters that the Windows-1252 code page cannot show. Remove them and try again.";

// The pattern builder: the pieces in button order, with where the caret lands inside
// the inserted text.
inline constexpr char kPatternTitle[] = "Regular Expression";
struct PatternPiece {
    const char* text;
    int caret;  // 0..strlen(text)
    const char* label;
};
inline constexpr PatternPiece kPatternPieces[] = {
    {".", 1, "Any character"},
    {"[]", 1, "Character in set"},
    {"[^]", 2, "Character not in set"},
    {"\\t", 2, "Tab"},
    {"^", 1, "Beginning of line"},
    {"$", 1, "End of line"},
    {"|", 1, "Or"},
    {"*", 1, "Zero or more"},
    {"+", 1, "One or more"},
    {"{}", 1, "Group"},
    {"[a-zA-Z0-9]", 11, "Letter or digit"},
    {"[a-zA-Z]", 8, "Letter"},
    {"[0-9]", 5, "Digit"},
    {"[0-9a-fA-F]+", 12, "Hexadecimal number"},
    {"[0-9]+", 6, "Number"},
    {"[a-zA-Z]+", 9, "Word"},
    {"\"[^\"]*\"|'[^']*'", 15, "Quoted string"},
    {"^$", 2, "Empty line"},
};

// Go to
inline constexpr char kGoToTitle[] = "Go To";

// Macros
inline constexpr char kRecordMacroTitle[] = "Record Macro";
inline constexpr char kMacroTitle[] = "Macros";
inline constexpr char kMacroNewTitle[] = "New Macro";
inline constexpr char kMacroRenameTitle[] = "Rename Macro";
inline constexpr char kMacroEditTitle[] = "Edit Macro";
inline constexpr char kMacroName[] = "&Name:";
inline constexpr char kMacroDescription[] = "&Description:";
inline constexpr char kMacroRun[] = "&Run";
inline constexpr char kMacroNew[] = "&New...";
inline constexpr char kMacroDelete[] = "&Delete";
inline constexpr char kMacroRename[] = "Re&name...";
inline constexpr char kMacroEdit[] = "&Edit...";
inline constexpr char kClose[] = "Close";
inline constexpr char kAskDeleteMacro[] = "Delete the macro \"%1\"?";
inline constexpr char kEmptyMacroName[] = "A macro needs a name.";
inline constexpr char kMacroNameTaken[] = "There is already a macro named \"%1\".";

// Options
inline constexpr char kOptionsTitle[] = "Options";
inline constexpr char kTabEditing[] = "Editing";
inline constexpr char kTabFiles[] = "Files";
inline constexpr char kTabDisplay[] = "Display";
inline constexpr char kTabApplication[] = "Application";
inline constexpr char kBadExtension[] =
    "A new file's extension may not hold any of the characters / < > | \" \\ ? * :";
inline constexpr char kBadOptionText[] =
    "The text of \"%1\" holds characters that the Windows-1252 code page cannot show.";
// Labels of the options, in the order of the dialog.
inline constexpr char kOptTabSize[] = "&Tab size:";
inline constexpr char kOptBlockIndent[] = "&Block indent:";
inline constexpr char kOptUseTabChar[] = "Use ta&b character";
inline constexpr char kOptSmartTab[] = "S&mart tab";
inline constexpr char kOptAutoIndent[] = "&Auto indent";
inline constexpr char kOptAutoUnindent[] = "Auto &unindent";
inline constexpr char kOptAutoIndentTabs[] = "Auto indent using tab&s";
inline constexpr char kOptOverwrite[] = "&Overwrite mode";
inline constexpr char kOptCursorBeyondEol[] = "Cursor beyond &end of line";
inline constexpr char kOptKeepTrailing[] = "&Keep trailing blanks";
inline constexpr char kOptCursorThroughTabs[] = "Cursor &through tabs";
inline constexpr char kOptUndoLevels[] = "U&ndo levels:";
inline constexpr char kOptUndoAfterSave[] = "Leave undo after sa&ve";
inline constexpr char kOptWordWrap[] = "&Word wrap new documents";
inline constexpr char kOptWordWrapColumn[] = "Word wrap &column:";
inline constexpr char kOptWordWrapMethod[] = "Word wrap &method:";
inline constexpr char kOptWrapMethods[] = "At the window edge\tAt the word wrap column\tAt the window edge, between words";
inline constexpr char kOptAlwaysWrapExt[] = "Always wrap e&xtensions:";
inline constexpr char kOptNeverWrapExt[] = "Ne&ver wrap extensions:";
inline constexpr char kOptWordChars[] = "Word c&haracters:";
inline constexpr char kOptWordCharModes[] =
    "C letters and digits\tLetters and digits\tLetters (table)\tLetters (table, alternative)";
inline constexpr char kOptRightMouse[] = "&Right mouse button:";
inline constexpr char kOptRightMouseModes[] = "Context menu\tPaste";
inline constexpr char kOptAutoSave[] = "&Auto-save";
inline constexpr char kOptAutoSaveEvery[] = "Auto-save &every (minutes):";
inline constexpr char kOptBackupFiles[] = "Keep &backup files";
inline constexpr char kOptBackupAs[] = "Backup &name:";
inline constexpr char kOptBackupNames[] = "NAME.BAK\tNAME.EXT.BAK";
inline constexpr char kOptDetectFormat[] = "&Detect the text format";
inline constexpr char kOptDefaultFormat[] = "De&fault text format:";
inline constexpr char kOptFormats[] = "CR LF (Windows)\tLF (Unix)\tCR (Macintosh)";
inline constexpr char kOptCheckFileTime[] = "&Reload prompt when a file changes on disk";
inline constexpr char kOptNewFileExt[] = "New file e&xtension:";
inline constexpr char kOptIncludeDirs[] = "&Include folders:";
inline constexpr char kOptKeyFile[] = "&Key mapping file:";
inline constexpr char kOptRuler[] = "&Ruler";
inline constexpr char kOptLineNumbers[] = "&Line numbers";
inline constexpr char kOptVisibleSpaces[] = "&Visible spaces";
inline constexpr char kOptBlockCaret[] = "&Block caret";
inline constexpr char kOptWrapVisible[] = "Show the &word wrap column";
inline constexpr char kOptFont[] = "&Font:";
inline constexpr char kOptFontSize[] = "Font &size:";
inline constexpr char kOptFontBold[] = "B&old";
inline constexpr char kOptStatusBar[] = "&Status bar";
inline constexpr char kOptButtonBar[] = "&Tool bar";
inline constexpr char kOptDocToolBar[] = "&Document bar";
inline constexpr char kOptSaveSettings[] = "Save settings on &exit";
inline constexpr char kOptSaveDesktop[] = "Reopen the last session's &documents";
inline constexpr char kOptAutoLoad[] = "Open the &auto-load files at start";
inline constexpr char kOptAllowMultiInst[] = "Allow several &instances";

// Symbols
inline constexpr char kCharacterTitle[] = "Symbols";
inline constexpr char kCharacterCode[] = "Character %1 (0x%2)";

// Named bookmarks
inline constexpr char kBookmarksTitle[] = "Bookmarks";
inline constexpr char kDropBookmarkTitle[] = "Drop Bookmark";
inline constexpr char kBookmarkName[] = "Bookmark &name:";
inline constexpr char kBookmarkAdd[] = "&Add...";
inline constexpr char kBookmarkGoTo[] = "&Go To";
inline constexpr char kBookmarkDelete[] = "&Delete";
inline constexpr char kBookmarkColumns[] = "Name\tFile\tLine\tColumn";

}  // namespace zol::dlgmsg
