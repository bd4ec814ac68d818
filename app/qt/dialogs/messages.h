// Every text the desktop dialogs show the user.
#pragma once

#include "syntax/hgl_keys.h"

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
inline constexpr char kInSelection[] = "In &selection";
inline constexpr char kConfirmEach[] = "Confir&m each replacement";

// "ReplacePrompt": asked before each replacement, with the hit selected.
inline constexpr char kReplacePromptText[] = "Replace this occurrence?";
inline constexpr char kYes[] = "&Yes";
inline constexpr char kNo[] = "&No";
inline constexpr char kAll[] = "&All";
inline constexpr char kCancel[] = "Cancel";

// Find in Files and Replace in Files
inline constexpr char kInFiles[] = "In f&iles:";
inline constexpr char kInFolder[] = "In f&older:";
inline constexpr char kBrowse[] = "&Browse...";
inline constexpr char kSubfolders[] = "Look in s&ubfolders";
inline constexpr char kConfirmEachFile[] = "Confir&m each file";
inline constexpr char kFindButton[] = "&Find";
inline constexpr char kChooseFolder[] = "Choose a Folder";
// "ReplaceInFilesPrompt": asked before each file that has hits.
inline constexpr char kFilePromptText[] = "Replace %1 occurrence(s) in %2?";
inline constexpr char kFilePromptOpen[] = "The file is open: its document changes, and is saved when you save it.";
inline constexpr char kSkipFile[] = "&Skip";
inline constexpr char kReplaceFile[] = "&Replace";
inline constexpr char kReplaceAllFiles[] = "Replace in &All";

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

// The macro menu
inline constexpr char kMacroMenuTitle[] = "Customize Macro Menu";
inline constexpr char kMacroMenuAdd[] = "&Add...";
inline constexpr char kMacroMenuChange[] = "&Change...";
inline constexpr char kMacroMenuRemove[] = "&Remove";
inline constexpr char kMacroMenuUp[] = "Move &Up";
inline constexpr char kMacroMenuDown[] = "Move &Down";
inline constexpr char kMacroMenuAddTitle[] = "Add Macro";
inline constexpr char kMacroMenuChangeTitle[] = "Change Macro Menu Item";
inline constexpr char kAddKeyMacro[] = "Add &Macro";
inline constexpr char kAddScript[] = "Add VEK C &Script";
inline constexpr char kMenuText[] = "Menu &text:";
inline constexpr char kMenuDescription[] = "&Description:";
inline constexpr char kMenuMacro[] = "Macro &name:";
inline constexpr char kMenuScript[] = "Script and ar&guments:";
inline constexpr char kChoose[] = "C&hoose...";
inline constexpr char kMacroListTitle[] = "Keystroke Macros";
inline constexpr char kScriptFilter[] = "VEK C scripts (*.c);;All files (*)";

// Running a script
inline constexpr char kScriptTitle[] = "VEK C Script";
inline constexpr char kScriptFile[] = "&Script:";
inline constexpr char kScriptArguments[] = "&Arguments:";
inline constexpr char kScriptsBelow[] = "Scripts in %1";
inline constexpr char kScriptBrowse[] = "&Browse...";
inline constexpr char kScriptRun[] = "&Run";
inline constexpr char kScriptWizardButton[] = "&Wizard...";

// The script wizard
inline constexpr char kWizardTitle[] = "VEK C Script Wizard";
inline constexpr char kWizardTypeTitle[] = "Kind of script";
inline constexpr char kWizardTypeText[] = "What is the new script to be?";
inline constexpr char kWizardConsole[] = "&Console program: reads and writes its console";
inline constexpr char kWizardEditor[] = "&Editor script: works on the active document";
inline constexpr char kWizardConvert[] = "Con&vert keystroke macro to VEK C Script";
inline constexpr char kWizardMacroTitle[] = "Keystroke macro";
inline constexpr char kWizardMacroText[] = "Which macro is the script to replay?";
inline constexpr char kWizardNameTitle[] = "Name";
inline constexpr char kWizardNameText[] = "The script is written to %1 under this name, with \".c\".";
inline constexpr char kWizardName[] = "Script na&me:";
inline constexpr char kWizardDescription[] = "&Description:";
inline constexpr char kWizardSyntax[] = "S&yntax:";
inline constexpr char kWizardOptionsTitle[] = "Options";
inline constexpr char kWizardOptionsText[] = "What main() does before and after the script's own work.";
inline constexpr char kWizardCommandMacros[] = "Use editor &command macros (editor/macros.h)";
inline constexpr char kWizardReadOnly[] = "&Refuse a read-only document";
inline constexpr char kWizardEndModes[] = "&End line drawing and selecting first";
inline constexpr char kWizardSaveOptions[] = "&Save the editor options and restore them afterwards";
inline constexpr char kWizardFixedGroup[] = "While the script runs";
inline constexpr const char* kWizardFixChoices[] = {"As the user set it", "Off", "On"};  // by OptionFix
inline constexpr char kWizardGenerateTitle[] = "Generate";
inline constexpr char kWizardGenerateText[] = "Finish writes %1 and opens it.";

// Key mapping. Group titles are indexed by the command groups 1..13.
inline constexpr char kKeyMappingTitle[] = "Key Mapping";
inline constexpr char kSecondKeyTitle[] = "Second Key";
inline constexpr char kKeyFilter[] = "&Filter:";
inline constexpr char kKeyFilterHint[] = "Command name, description or key";
inline constexpr char kKeyColumns[] = "Command\tKeys\tDescription";
inline constexpr const char* kKeyGroups[] = {
    "",      "Typing and deleting", "Cursor movement", "Selection", "Search and navigation", "Marks", "Block and case",
    "Undo and clipboard", "Tools", "Files", "Modes", "Windows", "Help", "Special"};
inline constexpr char kPrefixGroup[] = "Prefix keys";
inline constexpr char kMacroGroup[] = "Keystroke macros";
inline constexpr char kPrefixDescription[] = "Waits for a second key from prefix table %1";
inline constexpr char kKeySeparator[] = "; ";
inline constexpr char kCommandKeys[] = "&Keys:";
inline constexpr char kNewKey[] = "&Press a new key:";
inline constexpr char kCapturePrompt[] = "Press a key";
inline constexpr char kSecondKeyPrompt[] = "&Press the key that follows %1:";
inline constexpr char kKeyAssign[] = "&Assign";
inline constexpr char kKeyRemove[] = "&Remove";
inline constexpr char kKeyResetOne[] = "Re&set";
inline constexpr char kKeyResetOneTip[] = "Gives the command the keys it has in DEFKEY.ZOL";
inline constexpr char kKeyResetAll[] = "Reset All";
inline constexpr char kKeyNotMappable[] =
    "%1 cannot be mapped: choose a letter, digit, function, cursor or editing key.";
inline constexpr char kKeyTypesText[] = "%1 types a character: hold Ctrl or Alt with it, or choose another key.";
inline constexpr char kKeyIsPrefix[] = "%1 is a prefix key: Assign asks for the key that follows it.";
inline constexpr char kKeyAssignedTo[] = "%1 is assigned to %2.";
inline constexpr char kKeyFree[] = "%1 is not assigned.";
inline constexpr char kTakesParameter[] = "%1 takes a parameter, which a key cannot give: macros and scripts run it.";
inline constexpr char kAskMoveKey[] = "%1 is assigned to %2.\n\nAssign it to %3 instead?";
inline constexpr char kAskResetAll[] =
    "Reset All replaces the key file with a copy of DEFKEY.ZOL: every key goes back to where it was "
    "shipped and all keystroke macros are deleted.\n\nReset all keys and delete all macros?";
inline constexpr char kUnnamedCommand[] = "command %1";

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

// Language definitions
inline constexpr char kSyntaxTitle[] = "Syntax Highlighting";
inline constexpr char kSyntaxColumns[] = "Language\tFile patterns";
inline constexpr char kSyntaxOrder[] = "A file is coloured by the first language whose patterns match its name.";
inline constexpr char kSyntaxAdd[] = "&Add...";
inline constexpr char kSyntaxRemove[] = "&Remove";
inline constexpr char kSyntaxDefine[] = "&Define...";
inline constexpr char kSyntaxUp[] = "Move &Up";
inline constexpr char kSyntaxDown[] = "Move Do&wn";
inline constexpr char kAddLangTitle[] = "Add Language";
inline constexpr char kAddLangName[] = "&Name:";
inline constexpr char kAddLangCopy[] = "&Copy the definition of:";
inline constexpr char kAddLangNoCopy[] = "(nothing: start empty)";
inline constexpr char kDefineLangTitle[] = "Define Language - %1";
inline constexpr char kPreview[] = "Preview (type your own text to try it)";
inline constexpr char kPairIncomplete[] = "\"%1\" needs both the opening and the closing characters.";
inline constexpr char kKeywordAdd[] = "A&dd";
inline constexpr char kKeywordRemove[] = "Remo&ve";
inline constexpr char kKeywordTooLong[] = "A keyword has at most %1 characters: \"%2\" is longer.";
inline constexpr char kKeywordNote[] = "Keywords are made of word characters; type several at once, separated by blanks.";
inline constexpr char kNoLimit[] = "None";

// The pages of the language definition, in tab order, and the control of every key:
// its page, its label, and an example shown while it is empty (a pair's two examples
// are separated by a blank).
enum class DefinePage { General, Comments, Characters, Columns, Keywords, Colours };
inline constexpr const char* kDefinePageTitles[] = {"&General",  "Co&mments", "C&haracters",
                                                    "Col&umns", "&Keywords", "Co&lors"};
struct DefineField {
    HglKey key;
    DefinePage page;
    const char* label;
    const char* example;
};
inline constexpr DefineField kDefineFields[] = {
    {HglKey::FilePattern, DefinePage::General, "File &patterns:", "*.c;*.h"},
    {HglKey::CaseSensitive, DefinePage::General, "&Case sensitive keywords", nullptr},
    {HglKey::Words, DefinePage::General, "&Word characters:", "a-zA-Z0-9_"},
    {HglKey::Numbers, DefinePage::General, "&Number characters:", "0-9."},
    {HglKey::MultiComment, DefinePage::Comments, "&Block comment:", "/* */"},
    {HglKey::LineComment1, DefinePage::Comments, "L&ine comment:", "//"},
    {HglKey::LineComment2, DefinePage::Comments, "&Second line comment:", "REM "},
    {HglKey::FirstComment, DefinePage::Comments, "&Whole-line comment character:", ";"},
    {HglKey::StringDelim, DefinePage::Characters, "&String delimiter:", "\""},
    {HglKey::CharDelim, DefinePage::Characters, "Ch&aracter delimiter:", "'"},
    {HglKey::QuoteChar, DefinePage::Characters, "&Escape character:", "\\"},
    {HglKey::UnixTexKeywords, DefinePage::Characters, "Escape character starts a ke&yword (TeX)", nullptr},
    {HglKey::Preprocess, DefinePage::Characters, "&Preprocessor character:", "#"},
    {HglKey::OpenCloseDelim, DefinePage::Characters, "&Bracket pairs:", "([{ )]}"},
    {HglKey::Delimiters, DefinePage::Characters, "&Delimiters:", ",;"},
    {HglKey::Operators, DefinePage::Characters, "&Operators:", "+-*/=<>"},
    {HglKey::HTML, DefinePage::Characters, "&Tag brackets:", "<>"},
    {HglKey::LineNumbers, DefinePage::Columns, "Lines start with line &numbers", nullptr},
    {HglKey::MaxLineLen, DefinePage::Columns, "Comment after &column:", nullptr},
    {HglKey::FortranComment, DefinePage::Columns, "&Fortran comment lines (a letter or * in column 1)", nullptr},
    {HglKey::Cobol, DefinePage::Columns, "C&OBOL area A names (from column 8)", nullptr},
    {HglKey::CobolCommentPos, DefinePage::Columns, "COBOL comment &position:", nullptr},
    {HglKey::CobolCommentChar, DefinePage::Columns, "COBOL comment cha&racter:", "*"},
    {HglKey::Keyword, DefinePage::Keywords, "New key&word:", "if else while"},
    {HglKey::ColorComment, DefinePage::Colours, "Comment", nullptr},
    {HglKey::ColorPreproc, DefinePage::Colours, "Preprocessor", nullptr},
    {HglKey::ColorString, DefinePage::Colours, "String", nullptr},
    {HglKey::ColorNumber, DefinePage::Colours, "Number", nullptr},
    {HglKey::ColorDelim, DefinePage::Colours, "Delimiter", nullptr},
    {HglKey::ColorOperator, DefinePage::Colours, "Operator", nullptr},
    {HglKey::ColorKeyword, DefinePage::Colours, "Keyword", nullptr},
    {HglKey::ColorText, DefinePage::Colours, "Text", nullptr},
    {HglKey::ColorBackground, DefinePage::Colours, "Background", nullptr},
    {HglKey::ColorLineNumbers, DefinePage::Colours, "Line numbers", nullptr},
};
// The palette's entries by index; 0 is the view's own colour.
inline constexpr const char* kPaletteNames[] = {"Default", "Black",  "Navy", "Green", "Teal",   "Maroon",
                                                "Purple",  "Olive",  "Gray", "Silver", "Blue", "Lime",
                                                "Aqua",    "Red",    "Fuchsia", "Yellow", "White"};
// The preview's sample text is made of these, with the language's own comment forms,
// delimiters and keywords around them.
inline constexpr char kSampleComment[] = "A comment";
inline constexpr char kSampleDirective[] = "define SIZE 80";
inline constexpr char kSampleCode[] = "total = (count + 42) * 3;";
inline constexpr char kSampleStringName[] = "s = ";
inline constexpr char kSampleString[] = "Hello, world";
inline constexpr char kSampleTag[] = "b";

// Code-page conversion
inline constexpr char kConvertTextTitle[] = "Convert Text";
inline constexpr char kConvertGroup[] = "Convert Table";
inline constexpr char kConvertUser[] = "&User defined";
inline constexpr char kConvertOemToAnsi[] = "&Oem to Ansi";
inline constexpr char kConvertAnsiToOem[] = "&Ansi to Oem";
inline constexpr char kConvertSelected[] = "&Selected text only";
inline constexpr char kConvertTableTitle[] = "Convert Table";
inline constexpr char kConvertTableList[] = "&Convert Table:";
inline constexpr char kConvertEditTables[] = "&Edit Tables";

}  // namespace zol::dlgmsg
