#include "engine/commands/handlers.h"

#include "engine/document.h"

namespace zol {

int cmdCursorLeft(Document&, const CommandCall&) { return 0; }
int cmdCursorRight(Document&, const CommandCall&) { return 0; }
int cmdCursorUp(Document&, const CommandCall&) { return 0; }
int cmdCursorDown(Document&, const CommandCall&) { return 0; }
int cmdPageUp(Document&, const CommandCall&) { return 0; }
int cmdPageDown(Document&, const CommandCall&) { return 0; }
int cmdLineStart(Document&, const CommandCall&) { return 0; }
int cmdLineEnd(Document&, const CommandCall&) { return 0; }
int cmdWordLeft(Document&, const CommandCall&) { return 0; }
int cmdWordRight(Document&, const CommandCall&) { return 0; }
int cmdTextStart(Document&, const CommandCall&) { return 0; }
int cmdTextEnd(Document&, const CommandCall&) { return 0; }
int cmdTopOfWindow(Document&, const CommandCall&) { return 0; }
int cmdBottomOfWindow(Document&, const CommandCall&) { return 0; }
int cmdScrollUp(Document&, const CommandCall&) { return 0; }
int cmdScrollDown(Document&, const CommandCall&) { return 0; }
int cmdFirstNonBlank(Document&, const CommandCall&) { return 0; }
int cmdParaUp(Document&, const CommandCall&) { return 0; }
int cmdParaDown(Document&, const CommandCall&) { return 0; }
int cmdNextTabPos(Document&, const CommandCall&) { return 0; }
int cmdPrevTabPos(Document&, const CommandCall&) { return 0; }
int cmdWordLeftMS(Document&, const CommandCall&) { return 0; }
int cmdWordRightMS(Document&, const CommandCall&) { return 0; }
int cmdWordLeftSmart(Document&, const CommandCall&) { return 0; }
int cmdWordRightSmart(Document&, const CommandCall&) { return 0; }
int cmdGoToLineNum(Document&, const CommandCall&) { return 0; }
int cmdGoToColumnNum(Document&, const CommandCall&) { return 0; }

}  // namespace zol
