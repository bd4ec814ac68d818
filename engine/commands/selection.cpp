#include "engine/commands/handlers.h"

#include "engine/document.h"

namespace zol {

int cmdLeftSelect(Document&, const CommandCall&) { return 0; }
int cmdRightSelect(Document&, const CommandCall&) { return 0; }
int cmdUpSelect(Document&, const CommandCall&) { return 0; }
int cmdDownSelect(Document&, const CommandCall&) { return 0; }
int cmdPageUpSelect(Document&, const CommandCall&) { return 0; }
int cmdPageDownSelect(Document&, const CommandCall&) { return 0; }
int cmdLineStartSelect(Document&, const CommandCall&) { return 0; }
int cmdLineEndSelect(Document&, const CommandCall&) { return 0; }
int cmdWordLeftSelect(Document&, const CommandCall&) { return 0; }
int cmdWordRightSelect(Document&, const CommandCall&) { return 0; }
int cmdTextStartSelect(Document&, const CommandCall&) { return 0; }
int cmdTextEndSelect(Document&, const CommandCall&) { return 0; }
int cmdTopOfWindowSelect(Document&, const CommandCall&) { return 0; }
int cmdBottomOfWindowSelect(Document&, const CommandCall&) { return 0; }
int cmdParaUpSelect(Document&, const CommandCall&) { return 0; }
int cmdParaDownSelect(Document&, const CommandCall&) { return 0; }
int cmdPrevTabPosSelect(Document&, const CommandCall&) { return 0; }
int cmdNextTabPosSelect(Document&, const CommandCall&) { return 0; }
int cmdWordLeftMSSelect(Document&, const CommandCall&) { return 0; }
int cmdWordRightMSSelect(Document&, const CommandCall&) { return 0; }
int cmdWordLeftSmartSelect(Document&, const CommandCall&) { return 0; }
int cmdWordRightSmartSelect(Document&, const CommandCall&) { return 0; }
int cmdStartSelect(Document&, const CommandCall&) { return 0; }
int cmdEndSelect(Document&, const CommandCall&) { return 0; }
int cmdHideSelect(Document&, const CommandCall&) { return 0; }
int cmdSelectWord(Document&, const CommandCall&) { return 0; }
int cmdSelectLine(Document&, const CommandCall&) { return 0; }
int cmdSelectAll(Document&, const CommandCall&) { return 0; }
int cmdSelectPara(Document&, const CommandCall&) { return 0; }
int cmdToggleSelMode(Document&, const CommandCall&) { return 0; }
int cmdSetCharSelMode(Document&, const CommandCall&) { return 0; }
int cmdSetColumnSelMode(Document&, const CommandCall&) { return 0; }

}  // namespace zol
