#include "engine/commands/handlers.h"

#include "engine/document.h"

namespace zol {

int cmdInsertChar(Document&, const CommandCall&) { return 0; }
int cmdTab(Document&, const CommandCall&) { return 0; }
int cmdBackspace(Document&, const CommandCall&) { return 0; }
int cmdDelete(Document&, const CommandCall&) { return 0; }
int cmdDeleteChar(Document&, const CommandCall&) { return 0; }
int cmdDeleteBlock(Document&, const CommandCall&) { return 0; }
int cmdDeleteWord(Document&, const CommandCall&) { return 0; }
int cmdDeleteToEOL(Document&, const CommandCall&) { return 0; }
int cmdDeleteToBOL(Document&, const CommandCall&) { return 0; }
int cmdDeleteLine(Document&, const CommandCall&) { return 0; }
int cmdDeleteWordBack(Document&, const CommandCall&) { return 0; }
int cmdNewLine(Document&, const CommandCall&) { return 0; }
int cmdInsertLine(Document&, const CommandCall&) { return 0; }
int cmdInsertComment(Document&, const CommandCall&) { return 0; }
int cmdInsertCommentLight(Document&, const CommandCall&) { return 0; }

}  // namespace zol
