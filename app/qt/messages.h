// Every text the desktop shell shows on its own account (the engine's messages come
// through the Shell with their texts already made), the menus among them.
#pragma once
#include <cstdint>

namespace zol::qtmsg {

inline constexpr char kAppTitle[] = "Zolder";
inline constexpr char kReadOnlyDocument[] = "Document is read only!";
inline constexpr char kNotInCodePage[] = "The character U+%1 is not in the Windows-1252 code page.";
inline constexpr char kPendingPrefix[] = "%1 ...";
inline constexpr char kRecording[] = "REC";
inline constexpr char kInsert[] = "INS";
inline constexpr char kOverwrite[] = "OVR";
inline constexpr char kModified[] = "Modified";
inline constexpr char kReadOnly[] = "Read-only";
// While a script runs.
inline constexpr char kScriptRunning[] = "SCRIPT";
inline constexpr char kScriptRunningTip[] = "A script is running: Macros > Stop Script ends it";
inline constexpr char kLineColumn[] = "Ln %1, Col %2";
inline constexpr char kNotAvailable[] = "This command is not available in this build.";
// Beside a menu or palette entry whose command has no implementation in this build.
inline constexpr char kNotAvailableTip[] = "Not available in this build";
inline constexpr char kOpenTitle[] = "Open";
inline constexpr char kSaveAsTitle[] = "Save As";
inline constexpr char kAllFilesFilter[] = "All files (*)";
inline constexpr char kSaveFormatDos[] = "DOS/Windows text (CR LF) (*)";
inline constexpr char kSaveFormatUnix[] = "UNIX text (LF) (*)";
inline constexpr char kSaveFormatMac[] = "Macintosh text (CR) (*)";
inline constexpr char kNoRecentFiles[] = "(none)";
// An entry of the recent files and of the window list: its number and its name.
inline constexpr char kNumberedItem[] = "&%1 %2";
inline constexpr char kDesktopUsage[] = "cannot start the desktop: %1";
// The main window's title: the document's name, the modified mark, the program.
inline constexpr char kWindowTitle[] = "%1%2 - Zolder";
inline constexpr char kModifiedMark[] = "*";
inline constexpr char kAboutTitle[] = "About Zolder";
inline constexpr char kAboutText[] = "Zolder %1\n\nA programmer's text editor.";

// The command palette.
inline constexpr char kPaletteTitle[] = "Command Palette";
inline constexpr char kPaletteFilter[] = "Type to find a command";
inline constexpr char kParamNumberPrompt[] = "Number for %1:";
inline constexpr char kParamCharTitle[] = "Character for %1";

// Text formats as the status bar names them, indexed by Document::textFormat.
inline constexpr const char* kFormatNames[] = {"DOS", "UNIX", "MAC"};

// The menus as data. A Menu row opens a menu of the menu bar, a Submenu row a menu
// inside the current one until its End row; Command rows name an editor command
// (engine/commands.def), Action rows one of the frame's own actions
// (TMainFrame::frameActions). The names of menus are what the frame fills in itself:
// "RecentFiles", the plug-ins' items atop "PlugIns" and the window list of "Window".
enum class MenuItem : uint8_t { Menu, Submenu, End, Command, Action, Separator };
struct MenuRow {
    MenuItem item;
    const char* name;
    const char* label;  // with its mnemonic; "..." where a dialog follows
};
inline constexpr MenuRow kSeparator{MenuItem::Separator, nullptr, nullptr};

inline constexpr MenuRow kMenuBar[] = {
    {MenuItem::Menu, "File", "&File"},
    {MenuItem::Command, "NewFile", "&New"},
    {MenuItem::Command, "OpenFile", "&Open..."},
    {MenuItem::Command, "OpenFileAtCursor", "Open File at C&ursor"},
    {MenuItem::Command, "OpenHeaderFile", "Open &Header or Source"},
    {MenuItem::Command, "IncludeFiles", "&Include Files..."},
    kSeparator,
    {MenuItem::Command, "SaveFile", "&Save"},
    {MenuItem::Command, "SaveFileAs", "Save &As..."},
    kSeparator,
    {MenuItem::Command, "ReadBlock", "Insert Fil&e..."},
    {MenuItem::Command, "WriteBlock", "&Write Selection..."},
    kSeparator,
    {MenuItem::Action, "PageSetup", "Pa&ge Setup..."},
    {MenuItem::Action, "PrintPreview", "Print Pre&view"},
    {MenuItem::Command, "Print", "&Print..."},
    kSeparator,
    {MenuItem::Submenu, "RecentFiles", "Recent &Files"},
    {MenuItem::End, nullptr, nullptr},
    kSeparator,
    {MenuItem::Action, "Close", "&Close"},
    {MenuItem::Action, "Exit", "E&xit"},

    {MenuItem::Menu, "Edit", "&Edit"},
    {MenuItem::Command, "Undo", "&Undo"},
    {MenuItem::Command, "Redo", "&Redo"},
    kSeparator,
    {MenuItem::Command, "Cut", "Cu&t"},
    {MenuItem::Command, "Copy", "&Copy"},
    {MenuItem::Command, "Paste", "&Paste"},
    {MenuItem::Command, "Delete", "&Delete"},
    {MenuItem::Command, "CodeCompletion", "C&omplete Word"},
    kSeparator,
    {MenuItem::Command, "SelectAll", "Select &All"},
    {MenuItem::Command, "SelectWord", "Select &Word"},
    {MenuItem::Command, "SelectLine", "Select &Line"},
    {MenuItem::Command, "SelectPara", "Select Paragrap&h"},
    {MenuItem::Command, "ToggleSelMode", "Colu&mn Selection"},
    kSeparator,
    {MenuItem::Submenu, "Insert", "&Insert"},
    {MenuItem::Command, "InsertTimeDate", "&Date and Time"},
    {MenuItem::Command, "InsertTime", "&Time"},
    {MenuItem::Command, "InsertDate", "D&ate"},
    {MenuItem::Command, "InsertSymbol", "&Symbol..."},
    {MenuItem::Command, "InsertComment", "&Comment"},
    {MenuItem::Command, "InsertCommentLight", "&Light Comment"},
    {MenuItem::End, nullptr, nullptr},
    {MenuItem::Submenu, "Lines", "Li&nes"},
    {MenuItem::Command, "DupLine", "&Duplicate"},
    {MenuItem::Command, "JoinLine", "&Join with Next"},
    {MenuItem::Command, "CenterLine", "&Center"},
    {MenuItem::Command, "DeleteLine", "D&elete"},
    {MenuItem::Command, "CutLine", "Cu&t"},
    {MenuItem::Command, "CopyLine", "C&opy"},
    {MenuItem::Command, "TransposeLine", "&Swap with Previous"},
    kSeparator,
    {MenuItem::Command, "CutBookmarkedLines", "Cut &Bookmarked Lines"},
    {MenuItem::Command, "CopyBookmarkedLines", "Cop&y Bookmarked Lines"},
    {MenuItem::Command, "DeleteBookmarkedLines", "Delete Bookmar&ked Lines"},
    {MenuItem::End, nullptr, nullptr},

    {MenuItem::Menu, "Search", "&Search"},
    {MenuItem::Command, "Find", "&Find..."},
    {MenuItem::Command, "FindNext", "Find &Next"},
    {MenuItem::Command, "Replace", "&Replace..."},
    {MenuItem::Action, "FindInFiles", "Find &in Files..."},
    {MenuItem::Action, "ReplaceInFiles", "Replace in Fil&es..."},
    kSeparator,
    {MenuItem::Command, "FindNextWord", "Next &Word at Cursor"},
    {MenuItem::Command, "FindPrevWord", "Pre&vious Word at Cursor"},
    kSeparator,
    {MenuItem::Command, "GoToLine", "Go to &Line..."},
    {MenuItem::Command, "GoToColumn", "Go to &Column..."},
    {MenuItem::Command, "MatchPair", "&Matching Bracket"},
    {MenuItem::Command, "MatchHtmlTag", "Matching HTML &Tag"},
    {MenuItem::Command, "MatchPreprocNext", "Next Preprocessor Con&ditional"},
    {MenuItem::Command, "MatchPreprocPrev", "Previo&us Preprocessor Conditional"},
    kSeparator,
    {MenuItem::Command, "BookmarkToggle", "Toggle &Bookmark"},
    {MenuItem::Command, "BookmarkNext", "Ne&xt Bookmark"},
    {MenuItem::Command, "BookmarkPrev", "&Previous Bookmark"},
    {MenuItem::Command, "BookmarkClearAll", "Clear All Bookmar&ks"},
    {MenuItem::Command, "Bookmarks", "N&amed Bookmarks..."},
    {MenuItem::Submenu, "SetMark", "&Set Mark"},
    {MenuItem::Command, "SetMark0", "Mark &0"},
    {MenuItem::Command, "SetMark1", "Mark &1"},
    {MenuItem::Command, "SetMark2", "Mark &2"},
    {MenuItem::Command, "SetMark3", "Mark &3"},
    {MenuItem::Command, "SetMark4", "Mark &4"},
    {MenuItem::Command, "SetMark5", "Mark &5"},
    {MenuItem::Command, "SetMark6", "Mark &6"},
    {MenuItem::Command, "SetMark7", "Mark &7"},
    {MenuItem::Command, "SetMark8", "Mark &8"},
    {MenuItem::Command, "SetMark9", "Mark &9"},
    {MenuItem::End, nullptr, nullptr},
    {MenuItem::Submenu, "GotoMark", "&Go to Mark"},
    {MenuItem::Command, "GotoMark0", "Mark &0"},
    {MenuItem::Command, "GotoMark1", "Mark &1"},
    {MenuItem::Command, "GotoMark2", "Mark &2"},
    {MenuItem::Command, "GotoMark3", "Mark &3"},
    {MenuItem::Command, "GotoMark4", "Mark &4"},
    {MenuItem::Command, "GotoMark5", "Mark &5"},
    {MenuItem::Command, "GotoMark6", "Mark &6"},
    {MenuItem::Command, "GotoMark7", "Mark &7"},
    {MenuItem::Command, "GotoMark8", "Mark &8"},
    {MenuItem::Command, "GotoMark9", "Mark &9"},
    {MenuItem::End, nullptr, nullptr},

    {MenuItem::Menu, "View", "&View"},
    {MenuItem::Action, "Palette", "Command &Palette..."},
    kSeparator,
    {MenuItem::Command, "ToggleLineNumbers", "&Line Numbers"},
    {MenuItem::Command, "ToggleRuler", "&Ruler"},
    {MenuItem::Command, "ToggleVisibleSpaces", "&Visible Spaces"},
    {MenuItem::Command, "ToggleWordWrap", "&Word Wrap"},
    kSeparator,
    {MenuItem::Command, "ToggleInsert", "&Overwrite Mode"},
    {MenuItem::Command, "ToggleAutoIndent", "&Auto Indent"},
    {MenuItem::Command, "ToggleAutoUnindent", "Auto &Unindent"},

    {MenuItem::Menu, "Format", "F&ormat"},
    {MenuItem::Command, "IndentBlock", "&Indent"},
    {MenuItem::Command, "UnindentBlock", "&Unindent"},
    kSeparator,
    {MenuItem::Command, "CommentBlockCpp", "Co&mment Lines"},
    {MenuItem::Command, "UncommentBlockCpp", "U&ncomment Lines"},
    kSeparator,
    {MenuItem::Submenu, "Case", "&Case"},
    {MenuItem::Command, "UpperCase", "&Upper Case"},
    {MenuItem::Command, "LowerCase", "&Lower Case"},
    {MenuItem::Command, "FlipCase", "&Flip Case"},
    {MenuItem::Command, "CapitalizeWord", "&Capitalize Word"},
    {MenuItem::Command, "TitleCase", "&Title Case"},
    {MenuItem::Command, "SentenceCase", "&Sentence Case"},
    {MenuItem::End, nullptr, nullptr},
    {MenuItem::Submenu, "Paragraph", "P&aragraph"},
    {MenuItem::Command, "LeftBlockPara", "Align &Left"},
    {MenuItem::Command, "CenterBlockPara", "&Center"},
    {MenuItem::Command, "RightBlockPara", "Align &Right"},
    {MenuItem::Command, "JustifyBlockPara", "&Justify"},
    {MenuItem::End, nullptr, nullptr},
    kSeparator,
    {MenuItem::Command, "FillBlock", "&Fill Block..."},
    {MenuItem::Command, "Sort", "&Sort Lines"},
    {MenuItem::Command, "ExpandTabsToSpaces", "Tabs to Spac&es"},
    {MenuItem::Command, "CompressSpacesToTabs", "Spaces to Ta&bs"},

    {MenuItem::Menu, "Macros", "&Macros"},
    {MenuItem::Command, "RecordMacro", "&Record"},
    {MenuItem::Command, "MacroStopRecorder", "&Stop Recording"},
    {MenuItem::Command, "Macro", "&Play..."},
    {MenuItem::Action, "CustomizeMacroMenu", "Customize &Macro Menu..."},
    kSeparator,
    {MenuItem::Command, "ExecScript", "Run S&cript..."},
    {MenuItem::Action, "ScriptWizard", "Script Wi&zard..."},
    {MenuItem::Action, "StopScript", "S&top Script"},

    {MenuItem::Menu, "Tools", "&Tools"},
    {MenuItem::Command, "WordCount", "&Word Count"},
    {MenuItem::Command, "ConvertText", "Convert &Text..."},
    {MenuItem::Command, "Spelling", "&Spelling..."},
    {MenuItem::Action, "AutoCorrect", "AutoCo&rrect..."},
    kSeparator,
    {MenuItem::Command, "ToggleLineDraw", "&Line Drawing"},
    {MenuItem::Command, "LineDrawStyle", "Line Drawing St&yle..."},
    kSeparator,
    {MenuItem::Action, "KeyMapping", "&Key Mapping..."},
    {MenuItem::Action, "SyntaxHighlighting", "Syntax &Highlighting..."},
    {MenuItem::Action, "Options", "&Options..."},
    kSeparator,
    {MenuItem::Command, "NextCompilerError", "&Next Message"},
    {MenuItem::Command, "PrevCompilerError", "&Previous Message"},
    {MenuItem::Action, "UserTools", "&User Tools..."},
    // The user's tools, each under its menu text; the frame hides the rows without one.
    kSeparator,
    {MenuItem::Command, "UserTool1", "Tool &1"},
    {MenuItem::Command, "UserTool2", "Tool &2"},
    {MenuItem::Command, "UserTool3", "Tool &3"},
    {MenuItem::Command, "UserTool4", "Tool &4"},
    {MenuItem::Command, "UserTool5", "Tool &5"},
    {MenuItem::Command, "UserTool6", "Tool &6"},
    {MenuItem::Command, "UserTool7", "Tool &7"},
    {MenuItem::Command, "UserTool8", "Tool &8"},
    {MenuItem::Command, "UserTool9", "Tool &9"},
    {MenuItem::Command, "UserTool10", "Tool 1&0"},
    {MenuItem::Command, "UserTool11", "Tool 11 &A"},
    {MenuItem::Command, "UserTool12", "Tool 12 &B"},
    {MenuItem::Command, "UserTool13", "Tool 13 &D"},
    {MenuItem::Command, "UserTool14", "Tool 14 &E"},
    {MenuItem::Command, "UserTool15", "Tool 15 &G"},
    {MenuItem::Command, "UserTool16", "Tool 16 &I"},

    {MenuItem::Menu, "Window", "&Window"},
    {MenuItem::Action, "Tabs", "&Tabbed Documents"},
    {MenuItem::Command, "WindowCascade", "&Cascade"},
    {MenuItem::Command, "WindowTileHorz", "Tile &Horizontally"},
    {MenuItem::Command, "WindowTileVert", "Tile &Vertically"},
    kSeparator,
    {MenuItem::Command, "NextWindow", "&Next Window"},
    {MenuItem::Command, "PrevWindow", "&Previous Window"},

    {MenuItem::Menu, "Help", "&Help"},
    {MenuItem::Command, "HelpContents", "&Contents"},
    {MenuItem::Command, "HelpKeywordSearch", "&Keyword Search"},
    {MenuItem::Command, "ApiAssistanceOn", "API A&ssistance"},
    kSeparator,
    // The "Extern Help" entries of "UserHelp" follow here, put in by the frame.
    {MenuItem::Action, "HelpOptions", "&External Help..."},
    {MenuItem::Action, "About", "&About Zolder"},

    {MenuItem::Menu, "PlugIns", "Plu&g-Ins"},
    // The plug-ins' own items and their windows come first (TMainFrame::rebuildPlugInMenu).
    {MenuItem::Action, "AddRemovePlugIns", "Add/&Remove Plug-Ins..."},
    {MenuItem::Action, "AboutPlugIns", "A&bout Plug-Ins..."},
};

// The view's context menu ("RightMouseBtn" 0).
inline constexpr MenuRow kContextMenu[] = {
    {MenuItem::Command, "Cut", "Cu&t"},
    {MenuItem::Command, "Copy", "&Copy"},
    {MenuItem::Command, "Paste", "&Paste"},
    kSeparator,
    {MenuItem::Command, "SelectAll", "Select &All"},
    kSeparator,
    {MenuItem::Command, "OpenFileAtCursor", "&Open File at Cursor"},
    {MenuItem::Command, "BookmarkToggle", "Toggle &Bookmark"},
    {MenuItem::Command, "FindNextWord", "&Find Word at Cursor"},
};

}  // namespace zol::qtmsg
