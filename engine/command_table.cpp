// The command table. Rows follow the key-mapping dialog's groups:
//  1 typing and deleting, 2 cursor movement, 3 selection, 4 search and navigation,
//  5 marks, 6 block and case, 7 undo and clipboard, 8 tools, 9 files, 10 modes,
//  11 windows, 12 help, 13 special.
// Columns: id, name, parameter kind, group, changes text, description, handler.
// A null handler belongs to a layer above the engine and is installed at start-up.
#include "engine/command_table.h"

#include <array>
#include "engine/text_util.h"

#include "engine/command_params.h"
#include "engine/commands/handlers.h"

namespace zol {
namespace {

constexpr ParamKind N = ParamKind::None;
constexpr ParamKind C = ParamKind::Char;
constexpr ParamKind U = ParamKind::Number;
constexpr bool Ed = true;   // changes text
constexpr bool Vw = false;  // leaves the text alone

const CommandRecord kTable[] = {

    {2, "InsertChar", C, 1, Ed, "Inserts a character at the cursor position", cmdInsertChar},
    {4, "InsertSymbol", N, 1, Ed, "Inserts a character chosen from the symbol table", cmdInsertSymbol},
    {5, "Tab", N, 1, Ed, "Inserts a tab or moves to the next tab stop", cmdTab},
    {6, "Backspace", N, 1, Ed, "Deletes the character left of the cursor", cmdBackspace},
    {7, "Delete", N, 1, Ed, "Deletes the selection or the character at the cursor", cmdDelete},
    {8, "DeleteChar", N, 1, Ed, "Deletes the character at the cursor position", cmdDeleteChar},
    {9, "DeleteBlock", N, 1, Ed, "Deletes the selected block", cmdDeleteBlock},
    {10, "DeleteWord", N, 1, Ed, "Deletes the word right of the cursor", cmdDeleteWord},
    {11, "DeleteToEOL", N, 1, Ed, "Deletes from the cursor to the end of the line", cmdDeleteToEOL},
    {12, "DeleteToBOL", N, 1, Ed, "Deletes from the beginning of the line to the cursor", cmdDeleteToBOL},
    {13, "DeleteLine", N, 1, Ed, "Deletes the current line", cmdDeleteLine},
    {14, "DeleteWordBack", N, 1, Ed, "Deletes the word left of the cursor", cmdDeleteWordBack},
    {15, "NewLine", N, 1, Ed, "Breaks the line at the cursor and indents the new line", cmdNewLine},
    {16, "InsertLine", N, 1, Ed, "Breaks the line at the cursor without moving the cursor", cmdInsertLine},
    {17, "DupLine", N, 1, Ed, "Duplicates the current line", cmdDupLine},
    {18, "JoinLine", N, 1, Ed, "Joins the next line to the end of the current line", cmdJoinLine},
    {19, "CenterLine", N, 1, Ed, "Centers the current line between the margins", cmdCenterLine},
    {20, "InsertComment", N, 1, Ed, "Inserts a block comment", cmdInsertComment},
    {21, "InsertTimeDate", N, 1, Ed, "Inserts the current time and date", cmdInsertTimeDate},
    {22, "InsertTime", N, 1, Ed, "Inserts the current time", cmdInsertTime},
    {23, "InsertDate", N, 1, Ed, "Inserts the current date", cmdInsertDate},
    {24, "InsertCommentLight", N, 1, Ed, "Inserts a light block comment", cmdInsertCommentLight},
    {25, "DeleteBookmarkedLines", N, 1, Ed, "Deletes all bookmarked lines", cmdDeleteBookmarkedLines},

    {30, "CursorLeft", N, 2, Vw, "Moves the cursor one character left", cmdCursorLeft},
    {31, "CursorRight", N, 2, Vw, "Moves the cursor one character right", cmdCursorRight},
    {32, "CursorUp", N, 2, Vw, "Moves the cursor one line up", cmdCursorUp},
    {33, "CursorDown", N, 2, Vw, "Moves the cursor one line down", cmdCursorDown},
    {34, "PageUp", N, 2, Vw, "Moves the cursor up by number of lines in the window", cmdPageUp},
    {35, "PageDown", N, 2, Vw, "Moves the cursor down by number of lines in the window", cmdPageDown},
    {36, "LineStart", N, 2, Vw, "Moves the cursor to the beginning of the line", cmdLineStart},
    {37, "LineEnd", N, 2, Vw, "Moves the cursor to the end of the line", cmdLineEnd},
    {38, "WordLeft", N, 2, Vw, "Moves the cursor to the previous word", cmdWordLeft},
    {39, "WordRight", N, 2, Vw, "Moves the cursor to the next word", cmdWordRight},
    {40, "TextStart", N, 2, Vw, "Moves the cursor to the beginning of the document", cmdTextStart},
    {41, "TextEnd", N, 2, Vw, "Moves the cursor to the end of the document", cmdTextEnd},
    {42, "TopOfWindow", N, 2, Vw, "Moves the cursor to the top line of the window", cmdTopOfWindow},
    {43, "BottomOfWindow", N, 2, Vw, "Moves the cursor to the bottom line of the window", cmdBottomOfWindow},
    {44, "ScrollUp", N, 2, Vw, "Scrolls the text one line up", cmdScrollUp},
    {45, "ScrollDown", N, 2, Vw, "Scrolls the text one line down", cmdScrollDown},
    {46, "FirstNonBlank", N, 2, Vw, "Moves the cursor to the first non-blank character of the line", cmdFirstNonBlank},
    {47, "ParaUp", N, 2, Vw, "Moves the cursor to the previous paragraph", cmdParaUp},
    {48, "ParaDown", N, 2, Vw, "Moves the cursor to the next paragraph", cmdParaDown},
    {49, "NextTabPos", N, 2, Vw, "Moves the cursor to the next tab stop", cmdNextTabPos},
    {3, "PrevTabPos", N, 2, Vw, "Moves the cursor to the previous tab stop", cmdPrevTabPos},
    {3, "BackTab", N, 2, Vw, "Moves the cursor to the previous tab stop", cmdPrevTabPos},
    {370, "WordLeftMS", N, 2, Vw, "Moves the cursor to the start of the previous word, stopping at punctuation", cmdWordLeftMS},
    {371, "WordRightMS", N, 2, Vw, "Moves the cursor to the start of the next word, stopping at punctuation", cmdWordRightMS},
    {372, "WordLeftSmart", N, 2, Vw, "Moves the cursor to the previous word part (case change or underscore)", cmdWordLeftSmart},
    {373, "WordRightSmart", N, 2, Vw, "Moves the cursor to the next word part (case change or underscore)", cmdWordRightSmart},

    {50, "LeftSelect", N, 3, Vw, "Extends the selection one character left", cmdLeftSelect},
    {51, "RightSelect", N, 3, Vw, "Extends the selection one character right", cmdRightSelect},
    {52, "UpSelect", N, 3, Vw, "Extends the selection one line up", cmdUpSelect},
    {53, "DownSelect", N, 3, Vw, "Extends the selection one line down", cmdDownSelect},
    {54, "PageUpSelect", N, 3, Vw, "Extends the selection one page up", cmdPageUpSelect},
    {55, "PageDownSelect", N, 3, Vw, "Extends the selection one page down", cmdPageDownSelect},
    {56, "LineStartSelect", N, 3, Vw, "Extends the selection to the beginning of the line", cmdLineStartSelect},
    {57, "LineEndSelect", N, 3, Vw, "Extends the selection to the end of the line", cmdLineEndSelect},
    {58, "WordLeftSelect", N, 3, Vw, "Extends the selection to the previous word", cmdWordLeftSelect},
    {59, "WordRightSelect", N, 3, Vw, "Extends the selection to the next word", cmdWordRightSelect},
    {60, "TextStartSelect", N, 3, Vw, "Extends the selection to the beginning of the document", cmdTextStartSelect},
    {61, "TextEndSelect", N, 3, Vw, "Extends the selection to the end of the document", cmdTextEndSelect},
    {62, "TopOfWindowSelect", N, 3, Vw, "Extends the selection to the top line of the window", cmdTopOfWindowSelect},
    {63, "BottomOfWindowSelect", N, 3, Vw, "Extends the selection to the bottom line of the window", cmdBottomOfWindowSelect},
    {64, "ParaUpSelect", N, 3, Vw, "Extends the selection to the previous paragraph", cmdParaUpSelect},
    {65, "ParaDownSelect", N, 3, Vw, "Extends the selection to the next paragraph", cmdParaDownSelect},
    {68, "PrevTabPosSelect", N, 3, Vw, "Extends the selection to the previous tab stop", cmdPrevTabPosSelect},
    {69, "NextTabPosSelect", N, 3, Vw, "Extends the selection to the next tab stop", cmdNextTabPosSelect},
    {380, "WordLeftMSSelect", N, 3, Vw, "Extends the selection to the start of the previous word, stopping at punctuation", cmdWordLeftMSSelect},
    {381, "WordRightMSSelect", N, 3, Vw, "Extends the selection to the start of the next word, stopping at punctuation", cmdWordRightMSSelect},
    {382, "WordLeftSmartSelect", N, 3, Vw, "Extends the selection to the previous word part", cmdWordLeftSmartSelect},
    {383, "WordRightSmartSelect", N, 3, Vw, "Extends the selection to the next word part", cmdWordRightSmartSelect},
    {70, "StartSelect", N, 3, Vw, "Starts marking a selection at the cursor", cmdStartSelect},
    {71, "EndSelect", N, 3, Vw, "Ends marking the selection at the cursor", cmdEndSelect},
    {72, "HideSelect", N, 3, Vw, "Removes the selection", cmdHideSelect},
    {73, "SelectWord", N, 3, Vw, "Selects the word at the cursor", cmdSelectWord},
    {74, "SelectLine", N, 3, Vw, "Selects the current line", cmdSelectLine},
    {75, "SelectAll", N, 3, Vw, "Selects the whole document", cmdSelectAll},
    {76, "SelectPara", N, 3, Vw, "Selects the current paragraph", cmdSelectPara},
    {77, "ToggleSelMode", N, 3, Vw, "Switches between character and column selection", cmdToggleSelMode},
    {78, "SetCharSelMode", N, 3, Vw, "Sets character selection mode", cmdSetCharSelMode},
    {79, "SetColumnSelMode", N, 3, Vw, "Sets column selection mode", cmdSetColumnSelMode},

    {90, "Find", N, 4, Vw, "Finds the specified text", nullptr},
    {91, "Replace", N, 4, Ed, "Replaces the specified text with different text", nullptr},
    {92, "FindNext", N, 4, Vw, "Repeats the last find", nullptr},
    {93, "GoToLine", N, 4, Vw, "Moves the cursor to the specified line", nullptr},
    {94, "GoToColumn", N, 4, Vw, "Moves the cursor to the specified column", nullptr},
    {95, "MatchPair", N, 4, Vw, "Moves the cursor to the matching bracket", nullptr},
    {96, "FindNextWord", N, 4, Vw, "Finds the next occurrence of the word at the cursor", nullptr},
    {97, "FindPrevWord", N, 4, Vw, "Finds the previous occurrence of the word at the cursor", nullptr},
    {98, "MatchPreprocNext", N, 4, Vw, "Moves to the next matching preprocessor conditional", nullptr},
    {99, "MatchPreprocPrev", N, 4, Vw, "Moves to the previous matching preprocessor conditional", nullptr},
    {410, "FindParam", N, 4, Vw, "Finds the next occurrence of the text specified with Param1 command", nullptr},
    {411, "FindParamC", N, 4, Vw, "Finds the parameter text, matching case", nullptr},
    {412, "FindParamR", N, 4, Vw, "Finds the parameter regular expression", nullptr},
    {413, "FindInLineParam", N, 4, Vw, "Finds the parameter text in the current line", nullptr},
    {414, "FindInLineParamC", N, 4, Vw, "Finds the parameter text in the current line, matching case", nullptr},
    {430, "FindInLineParamR", N, 4, Vw, "Finds the parameter regular expression in the current line", nullptr},
    {415, "ReplaceParam", N, 4, Ed, "Replaces the first parameter text by the second", nullptr},
    {416, "ReplaceParamC", N, 4, Ed, "Replaces the first parameter text by the second, matching case", nullptr},
    {417, "ReplaceParamR", N, 4, Ed, "Replaces the parameter regular expression by the second parameter", nullptr},
    {418, "ReplaceInLineParam", N, 4, Ed, "Replaces the parameter text in the current line", nullptr},
    {419, "ReplaceInLineParamC", N, 4, Ed, "Replaces the parameter text in the current line, matching case", nullptr},
    {423, "FindInLineParamCW", N, 4, Vw, "Finds the parameter word in the current line, matching case", nullptr},
    {425, "ReplaceInLineParamCW", N, 4, Ed, "Replaces the parameter word in the current line, matching case", nullptr},
    {426, "FindInLineParamRCW", N, 4, Vw, "Finds the parameter regular expression as a word in the current line, matching case", nullptr},
    {427, "ReplaceInLineParamRCW", N, 4, Ed, "Replaces the parameter regular expression as a word in the current line, matching case", nullptr},
    {420, "FindParamCW", N, 4, Vw, "Finds the parameter word, matching case", nullptr},
    {421, "ReplaceParamCW", N, 4, Ed, "Replaces the parameter word, matching case", nullptr},
    {428, "FindParamRCW", N, 4, Vw, "Finds the parameter regular expression as a word, matching case", nullptr},
    {429, "ReplaceParamRCW", N, 4, Ed, "Replaces the parameter regular expression as a word, matching case", nullptr},
    {431, "MatchHtmlTag", N, 4, Vw, "Moves the cursor to the matching HTML tag", nullptr},
    {424, "NextCompilerError", N, 4, Vw, "Goes to the next compiler message", nullptr},
    {435, "PrevCompilerError", N, 4, Vw, "Goes to the previous compiler message", nullptr},
    {436, "GoToLineNum", U, 4, Vw, "Moves the cursor to the line given as parameter", cmdGoToLineNum},
    {437, "GoToColumnNum", U, 4, Vw, "Moves the cursor to the column given as parameter", cmdGoToColumnNum},

    {100, "SetMark0", N, 5, Vw, "Sets mark 0 at the cursor", cmdSetMark},
    {101, "SetMark1", N, 5, Vw, "Sets mark 1 at the cursor", cmdSetMark},
    {102, "SetMark2", N, 5, Vw, "Sets mark 2 at the cursor", cmdSetMark},
    {103, "SetMark3", N, 5, Vw, "Sets mark 3 at the cursor", cmdSetMark},
    {104, "SetMark4", N, 5, Vw, "Sets mark 4 at the cursor", cmdSetMark},
    {105, "SetMark5", N, 5, Vw, "Sets mark 5 at the cursor", cmdSetMark},
    {106, "SetMark6", N, 5, Vw, "Sets mark 6 at the cursor", cmdSetMark},
    {107, "SetMark7", N, 5, Vw, "Sets mark 7 at the cursor", cmdSetMark},
    {108, "SetMark8", N, 5, Vw, "Sets mark 8 at the cursor", cmdSetMark},
    {109, "SetMark9", N, 5, Vw, "Sets mark 9 at the cursor", cmdSetMark},
    {110, "GotoMark0", N, 5, Vw, "Moves the cursor to mark 0", cmdGotoMark},
    {111, "GotoMark1", N, 5, Vw, "Moves the cursor to mark 1", cmdGotoMark},
    {112, "GotoMark2", N, 5, Vw, "Moves the cursor to mark 2", cmdGotoMark},
    {113, "GotoMark3", N, 5, Vw, "Moves the cursor to mark 3", cmdGotoMark},
    {114, "GotoMark4", N, 5, Vw, "Moves the cursor to mark 4", cmdGotoMark},
    {115, "GotoMark5", N, 5, Vw, "Moves the cursor to mark 5", cmdGotoMark},
    {116, "GotoMark6", N, 5, Vw, "Moves the cursor to mark 6", cmdGotoMark},
    {117, "GotoMark7", N, 5, Vw, "Moves the cursor to mark 7", cmdGotoMark},
    {118, "GotoMark8", N, 5, Vw, "Moves the cursor to mark 8", cmdGotoMark},
    {119, "GotoMark9", N, 5, Vw, "Moves the cursor to mark 9", cmdGotoMark},
    {390, "BookmarkToggle", N, 5, Vw, "Sets or clears the bookmark of the current line", cmdBookmarkToggle},
    {391, "BookmarkSet", N, 5, Vw, "Sets a bookmark on the current line", cmdBookmarkSet},
    {392, "BookmarkClearAll", N, 5, Vw, "Clears all bookmarks of the document", cmdBookmarkClearAll},
    {393, "BookmarkPrev", N, 5, Vw, "Moves the cursor to the previous bookmarked line", cmdBookmarkPrev},
    {394, "BookmarkNext", N, 5, Vw, "Moves the cursor to the next bookmarked line", cmdBookmarkNext},
    {395, "Bookmarks", N, 5, Vw, "Shows the named bookmarks", cmdBookmarks},
    {398, "SaveCursorPos", N, 5, Vw, "Saves the cursor position", cmdSaveCursorPos},
    {399, "RestoreCursorPos", N, 5, Vw, "Restores the last saved cursor position", cmdRestoreCursorPos},

    {80, "IndentBlock", N, 6, Ed, "Indents the selected lines", cmdIndentBlock},
    {81, "UnindentBlock", N, 6, Ed, "Unindents the selected lines", cmdUnindentBlock},
    {82, "FillBlock", N, 6, Ed, "Fills the selected block with a character", cmdFillBlock},
    {86, "LeftBlockPara", N, 6, Ed, "Aligns the paragraph to the left margin", cmdLeftBlockPara},
    {87, "CenterBlockPara", N, 6, Ed, "Centers the paragraph between the margins", cmdCenterBlockPara},
    {88, "RightBlockPara", N, 6, Ed, "Aligns the paragraph to the right margin", cmdRightBlockPara},
    {89, "JustifyBlockPara", N, 6, Ed, "Justifies the paragraph between the margins", cmdJustifyBlockPara},
    {130, "UpperCase", N, 6, Ed, "Converts the selection to upper case", cmdUpperCase},
    {131, "LowerCase", N, 6, Ed, "Converts the selection to lower case", cmdLowerCase},
    {132, "FlipCase", N, 6, Ed, "Flips the case of the selection", cmdFlipCase},
    {133, "UpperCaseWord", N, 6, Ed, "Converts the word to upper case", cmdUpperCaseWord},
    {134, "LowerCaseWord", N, 6, Ed, "Converts the word to lower case", cmdLowerCaseWord},
    {135, "FlipCaseWord", N, 6, Ed, "Flips the case of the word", cmdFlipCaseWord},
    {136, "CapitalizeWord", N, 6, Ed, "Capitalizes the word", cmdCapitalizeWord},
    {137, "TitleCase", N, 6, Ed, "Capitalizes every word of the selection", cmdTitleCase},
    {138, "SentenceCase", N, 6, Ed, "Capitalizes the first word of every sentence of the selection", cmdSentenceCase},
    {140, "TransposeChar", N, 6, Ed, "Swaps the characters around the cursor", cmdTransposeChar},
    {141, "TransposeWord", N, 6, Ed, "Swaps the words around the cursor", cmdTransposeWord},
    {142, "TransposeLine", N, 6, Ed, "Swaps the current line with the line above", cmdTransposeLine},

    {120, "Undo", N, 7, Ed, "Undoes the last change", cmdUndo},
    {121, "Redo", N, 7, Ed, "Redoes the last undone change", cmdRedo},
    {123, "Cut", N, 7, Ed, "Cuts the selection and puts it on the Clipboard", cmdCut},
    {124, "Copy", N, 7, Vw, "Copies the selection and puts it on the Clipboard", cmdCopy},
    {125, "Paste", N, 7, Ed, "Inserts Clipboard contents", cmdPaste},
    {126, "CutAndAppend", N, 7, Ed, "Cuts the selection and appends it to the Clipboard", cmdCutAndAppend},
    {127, "CopyAndAppend", N, 7, Vw, "Copies the selection and appends it to the Clipboard", cmdCopyAndAppend},
    {128, "CutLine", N, 7, Ed, "Cuts the current line and puts it on the Clipboard", cmdCutLine},
    {129, "CopyLine", N, 7, Vw, "Copies the current line and puts it on the Clipboard", cmdCopyLine},
    {400, "CutBookmarkedLines", N, 7, Ed, "Cuts all bookmarked lines and puts them on the Clipboard", cmdCutBookmarkedLines},
    {401, "CopyBookmarkedLines", N, 7, Vw, "Copies all bookmarked lines and puts them on the Clipboard", cmdCopyBookmarkedLines},

    {180, "StartLineDraw", N, 8, Vw, "Starts drawing lines with the cursor keys", cmdStartLineDraw},
    {181, "EndLineDraw", N, 8, Vw, "Ends line drawing", cmdEndLineDraw},
    {182, "ToggleLineDraw", N, 8, Vw, "Switches line drawing on or off", cmdToggleLineDraw},
    {183, "LineDrawStyle", N, 8, Vw, "Chooses the style of drawn lines", cmdLineDrawStyle},
    {200, "ExpandTabsToSpaces", N, 8, Ed, "Replaces tabs by spaces", cmdExpandTabsToSpaces},
    {201, "CompressSpacesToTabs", N, 8, Ed, "Replaces runs of spaces by tabs", cmdCompressSpacesToTabs},
    {202, "Tab8TextToTab3Text", N, 8, Ed, "Converts text laid out with tab size 8 to tab size 3", cmdTab8TextToTab3Text},
    {203, "Tab3TextToTab8Text", N, 8, Ed, "Converts text laid out with tab size 3 to tab size 8", cmdTab3TextToTab8Text},
    {204, "Tab8TextToCurTabText", N, 8, Ed, "Converts text laid out with tab size 8 to the current tab size", cmdTab8TextToCurTabText},
    {205, "CurTabTextToTab8Text", N, 8, Ed, "Converts text laid out with the current tab size to tab size 8", cmdCurTabTextToTab8Text},
    {207, "ConvertText", N, 8, Ed, "Converts the text between code pages", nullptr},
    {208, "Sort", N, 8, Ed, "Sorts the selected lines", cmdSort},
    {209, "WordCount", N, 8, Vw, "Counts words, lines and characters", cmdWordCount},
    {212, "Spelling", N, 8, Ed, "Checks the spelling of the document", nullptr},
    {220, "CommentBlock", C, 8, Ed, "Comments out the selected lines with the parameter character", cmdCommentBlock},
    {221, "UncommentBlock", C, 8, Ed, "Removes the parameter comment character from the selected lines", cmdUncommentBlock},
    {222, "CommentBlockCpp", N, 8, Ed, "Comments out the selected lines with //", cmdCommentBlockCpp},
    {223, "UncommentBlockCpp", N, 8, Ed, "Removes // comments from the selected lines", cmdUncommentBlockCpp},
    {224, "CommentBlockAsm", N, 8, Ed, "Comments out the selected lines with ;", cmdCommentBlockAsm},
    {225, "UncommentBlockAsm", N, 8, Ed, "Removes ; comments from the selected lines", cmdUncommentBlockAsm},
    {226, "CommentBlockRem", N, 8, Ed, "Comments out the selected lines with rem", cmdCommentBlockRem},
    {227, "UncommentBlockRem", N, 8, Ed, "Removes rem comments from the selected lines", cmdUncommentBlockRem},
    {228, "CommentBlockTeX", N, 8, Ed, "Comments out the selected lines with %", cmdCommentBlockTeX},
    {229, "UncommentBlockTeX", N, 8, Ed, "Removes % comments from the selected lines", cmdUncommentBlockTeX},
    {230, "RecordMacro", N, 8, Vw, "Starts recording a keystroke macro", nullptr},
    {231, "MacroStopRecorder", N, 8, Vw, "Stops recording the keystroke macro", nullptr},
    {232, "Macro", N, 8, Vw, "Plays a keystroke macro", nullptr},
    {235, "ExecScript", N, 8, Vw, "Runs a script", nullptr},
    {280, "UserTool1", N, 8, Vw, nullptr, nullptr},
    {281, "UserTool2", N, 8, Vw, nullptr, nullptr},
    {282, "UserTool3", N, 8, Vw, nullptr, nullptr},
    {283, "UserTool4", N, 8, Vw, nullptr, nullptr},
    {284, "UserTool5", N, 8, Vw, nullptr, nullptr},
    {285, "UserTool6", N, 8, Vw, nullptr, nullptr},
    {286, "UserTool7", N, 8, Vw, nullptr, nullptr},
    {287, "UserTool8", N, 8, Vw, nullptr, nullptr},
    {288, "UserTool9", N, 8, Vw, nullptr, nullptr},
    {289, "UserTool10", N, 8, Vw, nullptr, nullptr},
    {440, "UserTool11", N, 8, Vw, nullptr, nullptr},
    {441, "UserTool12", N, 8, Vw, nullptr, nullptr},
    {442, "UserTool13", N, 8, Vw, nullptr, nullptr},
    {443, "UserTool14", N, 8, Vw, nullptr, nullptr},
    {444, "UserTool15", N, 8, Vw, nullptr, nullptr},
    {445, "UserTool16", N, 8, Vw, nullptr, nullptr},

    {250, "SaveFile", N, 9, Vw, "Saves the document", nullptr},
    {251, "SaveFileAs", N, 9, Vw, "Saves the document under a new name", nullptr},
    {252, "WriteBlock", N, 9, Vw, "Writes the selection to a file", nullptr},
    {253, "ReadBlock", N, 9, Ed, "Inserts a file at the cursor", nullptr},
    {263, "ReadBlockParam", N, 9, Ed, "Inserts the file named by the parameter commands at the cursor", nullptr},
    {254, "OpenFile", N, 9, Vw, "Opens a file", nullptr},
    {255, "NewFile", N, 9, Vw, "Creates a new document", nullptr},
    {256, "Print", N, 9, Vw, "Prints the document", nullptr},
    {257, "OpenFileAtCursor", N, 9, Vw, "Opens the file named at the cursor", nullptr},
    {258, "OpenHeaderFile", N, 9, Vw, "Opens the header or source file belonging to the document", nullptr},
    {259, "IncludeFiles", N, 9, Vw, "View the C/C++ include files", nullptr},

    {150, "ToggleInsert", N, 10, Vw, "Switches between insert and overwrite mode", cmdToggleInsert},
    {151, "ToggleAutoIndent", N, 10, Vw, "Switches auto indent on or off", cmdToggleAutoIndent},
    {152, "ToggleAutoUnindent", N, 10, Vw, "Switches auto unindent on or off", cmdToggleAutoUnindent},
    {155, "ToggleWordWrap", N, 10, Vw, "Switches word wrap of the document on or off", cmdToggleWordWrap},
    {157, "ToggleRuler", N, 10, Vw, "Shows or hides the ruler", cmdToggleRuler},
    {158, "ToggleVisibleSpaces", N, 10, Vw, "Shows or hides spaces and tabs", cmdToggleVisibleSpaces},
    {159, "ToggleLineNumbers", N, 10, Vw, "Shows or hides line numbers", cmdToggleLineNumbers},
    {160, "SetInsert", N, 10, Vw, "Sets insert mode", cmdSetInsert},
    {161, "SetAutoIndent", N, 10, Vw, "Sets auto indent mode", cmdSetAutoIndent},
    {162, "SetAutoUnindent", N, 10, Vw, "Sets auto unindent mode", cmdSetAutoUnindent},
    {165, "SetWordWrap", N, 10, Vw, "Sets word wrap of the document", cmdSetWordWrap},
    {167, "ShowRuler", N, 10, Vw, "Shows the ruler", cmdShowRuler},
    {168, "ShowVisibleSpaces", N, 10, Vw, "Shows spaces and tabs", cmdShowVisibleSpaces},
    {169, "ShowLineNumbers", N, 10, Vw, "Shows line numbers", cmdShowLineNumbers},

    {290, "WindowMaximize", N, 11, Vw, nullptr, nullptr},
    {291, "WindowMinimize", N, 11, Vw, nullptr, nullptr},
    {292, "WindowRestore", N, 11, Vw, nullptr, nullptr},
    {293, "WindowCascade", N, 11, Vw, nullptr, nullptr},
    {294, "WindowTileHorz", N, 11, Vw, nullptr, nullptr},
    {295, "WindowTileVert", N, 11, Vw, nullptr, nullptr},
    {296, "PrevWindow", N, 11, Vw, nullptr, nullptr},
    {297, "NextWindow", N, 11, Vw, nullptr, nullptr},

    {300, "HelpKeywordSearch", N, 12, Vw, nullptr, nullptr},
    {301, "HelpContents", N, 12, Vw, nullptr, nullptr},
    {305, "ApiAssistanceOn", N, 12, Vw, nullptr, nullptr},

    {236, "Param1", C, 13, Vw, "Adds a character to the first string parameter", cmdParam1},
    {237, "Param2", C, 13, Vw, "Adds a character to the second string parameter", cmdParam2},
    {270, "CodeCompletion", N, 13, Ed, "Completes the word at the cursor", nullptr},
    {310, "PlugInCommand", N, 13, Vw, "Runs a plug-in command", nullptr},
    {311, "PlugInCommandID", U, 13, Vw, "Runs the plug-in command given by number", nullptr},
    {1, "NullCmd", N, 13, Vw, "Does nothing", nullptr},

    {0, nullptr, ParamKind::Unknown, 0, false, nullptr, nullptr},  // end of table
};
static_assert(std::size(kTable) == kCommandCount + 1);

// Handlers by id, filled from the table and by later layers.
std::array<CommandHandler, kMaxDispatchId + 1>& dispatch() {
    static std::array<CommandHandler, kMaxDispatchId + 1> table = [] {
        std::array<CommandHandler, kMaxDispatchId + 1> t{};
        for (const CommandRecord& r : commandTable())
            if (r.handler && !t[r.id]) t[r.id] = r.handler;
        return t;
    }();
    return table;
}

}  // namespace

std::span<const CommandRecord> commandTable() { return {kTable, kCommandCount}; }

const CommandRecord* findCommand(uint16_t id) {
    for (const CommandRecord& r : commandTable())
        if (r.id == id) return &r;
    return nullptr;
}

const CommandRecord* findCommand(std::string_view name) {
    for (const CommandRecord& r : commandTable()) {
        std::string_view n(r.name);
        if (equalsNoCase(n, name)) return &r;
    }
    return nullptr;
}

std::string commandDescriptionString(uint16_t id) {
    const CommandRecord* r = findCommand(id);
    if (!r || !r->description) return {};
    return std::string(r->description) + "\n" + r->name;
}

void setCommandHandler(uint16_t id, CommandHandler handler) {
    if (id <= kMaxDispatchId) dispatch()[id] = handler;
}

CommandHandler commandHandler(uint16_t id) { return id <= kMaxDispatchId ? dispatch()[id] : nullptr; }

}  // namespace zol
