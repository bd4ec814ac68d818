// Handlers of the engine's own command families, one file per family under
// engine/commands/.
#pragma once

#include "engine/command_table.h"

namespace zol {

// typing.cpp
int cmdInsertChar(Document& doc, const CommandCall& call);
int cmdTab(Document& doc, const CommandCall& call);
int cmdBackspace(Document& doc, const CommandCall& call);
int cmdDelete(Document& doc, const CommandCall& call);
int cmdDeleteChar(Document& doc, const CommandCall& call);
int cmdDeleteBlock(Document& doc, const CommandCall& call);
int cmdDeleteWord(Document& doc, const CommandCall& call);
int cmdDeleteToEOL(Document& doc, const CommandCall& call);
int cmdDeleteToBOL(Document& doc, const CommandCall& call);
int cmdDeleteLine(Document& doc, const CommandCall& call);
int cmdDeleteWordBack(Document& doc, const CommandCall& call);
int cmdNewLine(Document& doc, const CommandCall& call);
int cmdInsertLine(Document& doc, const CommandCall& call);
int cmdInsertComment(Document& doc, const CommandCall& call);
int cmdInsertCommentLight(Document& doc, const CommandCall& call);

// motion.cpp
int cmdCursorLeft(Document& doc, const CommandCall& call);
int cmdCursorRight(Document& doc, const CommandCall& call);
int cmdCursorUp(Document& doc, const CommandCall& call);
int cmdCursorDown(Document& doc, const CommandCall& call);
int cmdPageUp(Document& doc, const CommandCall& call);
int cmdPageDown(Document& doc, const CommandCall& call);
int cmdLineStart(Document& doc, const CommandCall& call);
int cmdLineEnd(Document& doc, const CommandCall& call);
int cmdWordLeft(Document& doc, const CommandCall& call);
int cmdWordRight(Document& doc, const CommandCall& call);
int cmdTextStart(Document& doc, const CommandCall& call);
int cmdTextEnd(Document& doc, const CommandCall& call);
int cmdTopOfWindow(Document& doc, const CommandCall& call);
int cmdBottomOfWindow(Document& doc, const CommandCall& call);
int cmdScrollUp(Document& doc, const CommandCall& call);
int cmdScrollDown(Document& doc, const CommandCall& call);
int cmdFirstNonBlank(Document& doc, const CommandCall& call);
int cmdParaUp(Document& doc, const CommandCall& call);
int cmdParaDown(Document& doc, const CommandCall& call);
int cmdNextTabPos(Document& doc, const CommandCall& call);
int cmdPrevTabPos(Document& doc, const CommandCall& call);
int cmdWordLeftMS(Document& doc, const CommandCall& call);
int cmdWordRightMS(Document& doc, const CommandCall& call);
int cmdWordLeftSmart(Document& doc, const CommandCall& call);
int cmdWordRightSmart(Document& doc, const CommandCall& call);
int cmdGoToLineNum(Document& doc, const CommandCall& call);
int cmdGoToColumnNum(Document& doc, const CommandCall& call);

// selection.cpp
int cmdLeftSelect(Document& doc, const CommandCall& call);
int cmdRightSelect(Document& doc, const CommandCall& call);
int cmdUpSelect(Document& doc, const CommandCall& call);
int cmdDownSelect(Document& doc, const CommandCall& call);
int cmdPageUpSelect(Document& doc, const CommandCall& call);
int cmdPageDownSelect(Document& doc, const CommandCall& call);
int cmdLineStartSelect(Document& doc, const CommandCall& call);
int cmdLineEndSelect(Document& doc, const CommandCall& call);
int cmdWordLeftSelect(Document& doc, const CommandCall& call);
int cmdWordRightSelect(Document& doc, const CommandCall& call);
int cmdTextStartSelect(Document& doc, const CommandCall& call);
int cmdTextEndSelect(Document& doc, const CommandCall& call);
int cmdTopOfWindowSelect(Document& doc, const CommandCall& call);
int cmdBottomOfWindowSelect(Document& doc, const CommandCall& call);
int cmdParaUpSelect(Document& doc, const CommandCall& call);
int cmdParaDownSelect(Document& doc, const CommandCall& call);
int cmdPrevTabPosSelect(Document& doc, const CommandCall& call);
int cmdNextTabPosSelect(Document& doc, const CommandCall& call);
int cmdWordLeftMSSelect(Document& doc, const CommandCall& call);
int cmdWordRightMSSelect(Document& doc, const CommandCall& call);
int cmdWordLeftSmartSelect(Document& doc, const CommandCall& call);
int cmdWordRightSmartSelect(Document& doc, const CommandCall& call);
int cmdStartSelect(Document& doc, const CommandCall& call);
int cmdEndSelect(Document& doc, const CommandCall& call);
int cmdHideSelect(Document& doc, const CommandCall& call);
int cmdSelectWord(Document& doc, const CommandCall& call);
int cmdSelectLine(Document& doc, const CommandCall& call);
int cmdSelectAll(Document& doc, const CommandCall& call);
int cmdSelectPara(Document& doc, const CommandCall& call);
int cmdToggleSelMode(Document& doc, const CommandCall& call);
int cmdSetCharSelMode(Document& doc, const CommandCall& call);
int cmdSetColumnSelMode(Document& doc, const CommandCall& call);

// clipboard.cpp
int cmdUndo(Document& doc, const CommandCall& call);
int cmdRedo(Document& doc, const CommandCall& call);
int cmdCut(Document& doc, const CommandCall& call);
int cmdCopy(Document& doc, const CommandCall& call);
int cmdPaste(Document& doc, const CommandCall& call);
int cmdCutAndAppend(Document& doc, const CommandCall& call);
int cmdCopyAndAppend(Document& doc, const CommandCall& call);
int cmdCutLine(Document& doc, const CommandCall& call);
int cmdCopyLine(Document& doc, const CommandCall& call);

// modes.cpp
int cmdToggleInsert(Document& doc, const CommandCall& call);
int cmdToggleAutoIndent(Document& doc, const CommandCall& call);
int cmdToggleAutoUnindent(Document& doc, const CommandCall& call);
int cmdToggleWordWrap(Document& doc, const CommandCall& call);
int cmdToggleRuler(Document& doc, const CommandCall& call);
int cmdToggleVisibleSpaces(Document& doc, const CommandCall& call);
int cmdToggleLineNumbers(Document& doc, const CommandCall& call);
int cmdSetInsert(Document& doc, const CommandCall& call);
int cmdSetAutoIndent(Document& doc, const CommandCall& call);
int cmdSetAutoUnindent(Document& doc, const CommandCall& call);
int cmdSetWordWrap(Document& doc, const CommandCall& call);
int cmdShowRuler(Document& doc, const CommandCall& call);
int cmdShowVisibleSpaces(Document& doc, const CommandCall& call);
int cmdShowLineNumbers(Document& doc, const CommandCall& call);

// block.cpp
int cmdIndentBlock(Document& doc, const CommandCall& call);
int cmdUnindentBlock(Document& doc, const CommandCall& call);
int cmdFillBlock(Document& doc, const CommandCall& call);
int cmdLeftBlockPara(Document& doc, const CommandCall& call);
int cmdCenterBlockPara(Document& doc, const CommandCall& call);
int cmdRightBlockPara(Document& doc, const CommandCall& call);
int cmdJustifyBlockPara(Document& doc, const CommandCall& call);

// case.cpp
int cmdUpperCase(Document& doc, const CommandCall& call);
int cmdLowerCase(Document& doc, const CommandCall& call);
int cmdFlipCase(Document& doc, const CommandCall& call);
int cmdUpperCaseWord(Document& doc, const CommandCall& call);
int cmdLowerCaseWord(Document& doc, const CommandCall& call);
int cmdFlipCaseWord(Document& doc, const CommandCall& call);
int cmdCapitalizeWord(Document& doc, const CommandCall& call);
int cmdTitleCase(Document& doc, const CommandCall& call);
int cmdSentenceCase(Document& doc, const CommandCall& call);

// transpose.cpp
int cmdTransposeChar(Document& doc, const CommandCall& call);
int cmdTransposeWord(Document& doc, const CommandCall& call);
int cmdTransposeLine(Document& doc, const CommandCall& call);

// text_tools.cpp
int cmdExpandTabsToSpaces(Document& doc, const CommandCall& call);
int cmdCompressSpacesToTabs(Document& doc, const CommandCall& call);
int cmdTab8TextToTab3Text(Document& doc, const CommandCall& call);
int cmdTab3TextToTab8Text(Document& doc, const CommandCall& call);
int cmdTab8TextToCurTabText(Document& doc, const CommandCall& call);
int cmdCurTabTextToTab8Text(Document& doc, const CommandCall& call);
int cmdSort(Document& doc, const CommandCall& call);
int cmdWordCount(Document& doc, const CommandCall& call);
int cmdCommentBlock(Document& doc, const CommandCall& call);
int cmdUncommentBlock(Document& doc, const CommandCall& call);
int cmdCommentBlockCpp(Document& doc, const CommandCall& call);
int cmdUncommentBlockCpp(Document& doc, const CommandCall& call);
int cmdCommentBlockAsm(Document& doc, const CommandCall& call);
int cmdUncommentBlockAsm(Document& doc, const CommandCall& call);
int cmdCommentBlockRem(Document& doc, const CommandCall& call);
int cmdUncommentBlockRem(Document& doc, const CommandCall& call);
int cmdCommentBlockTeX(Document& doc, const CommandCall& call);
int cmdUncommentBlockTeX(Document& doc, const CommandCall& call);

// line_draw.cpp
int cmdStartLineDraw(Document& doc, const CommandCall& call);
int cmdEndLineDraw(Document& doc, const CommandCall& call);
int cmdToggleLineDraw(Document& doc, const CommandCall& call);
int cmdLineDrawStyle(Document& doc, const CommandCall& call);

// line_commands.cpp
int cmdDupLine(Document& doc, const CommandCall& call);
int cmdJoinLine(Document& doc, const CommandCall& call);
int cmdCenterLine(Document& doc, const CommandCall& call);
int cmdInsertSymbol(Document& doc, const CommandCall& call);
int cmdInsertTimeDate(Document& doc, const CommandCall& call);
int cmdInsertTime(Document& doc, const CommandCall& call);
int cmdInsertDate(Document& doc, const CommandCall& call);
// marks.cpp
int cmdSetMark(Document& doc, const CommandCall& call);   // SetMark0..9 by id
int cmdGotoMark(Document& doc, const CommandCall& call);  // GotoMark0..9 by id
int cmdBookmarkToggle(Document& doc, const CommandCall& call);
int cmdBookmarkSet(Document& doc, const CommandCall& call);
int cmdBookmarkClearAll(Document& doc, const CommandCall& call);
int cmdBookmarkNext(Document& doc, const CommandCall& call);
int cmdBookmarkPrev(Document& doc, const CommandCall& call);
int cmdBookmarks(Document& doc, const CommandCall& call);
int cmdSaveCursorPos(Document& doc, const CommandCall& call);
int cmdRestoreCursorPos(Document& doc, const CommandCall& call);
int cmdDeleteBookmarkedLines(Document& doc, const CommandCall& call);
int cmdCutBookmarkedLines(Document& doc, const CommandCall& call);
int cmdCopyBookmarkedLines(Document& doc, const CommandCall& call);

}  // namespace zol
