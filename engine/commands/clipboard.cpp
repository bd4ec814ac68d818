#include "engine/commands/handlers.h"

#include "engine/document.h"

namespace zol {

int cmdUndo(Document&, const CommandCall&) { return 0; }
int cmdRedo(Document&, const CommandCall&) { return 0; }
int cmdCut(Document&, const CommandCall&) { return 0; }
int cmdCopy(Document&, const CommandCall&) { return 0; }
int cmdPaste(Document&, const CommandCall&) { return 0; }
int cmdCutAndAppend(Document&, const CommandCall&) { return 0; }
int cmdCopyAndAppend(Document&, const CommandCall&) { return 0; }
int cmdCutLine(Document&, const CommandCall&) { return 0; }
int cmdCopyLine(Document&, const CommandCall&) { return 0; }

}  // namespace zol
