#include "engine/commands/handlers.h"

#include "engine/document.h"

namespace zol {

int cmdToggleInsert(Document&, const CommandCall&) { return 0; }
int cmdToggleAutoIndent(Document&, const CommandCall&) { return 0; }
int cmdToggleAutoUnindent(Document&, const CommandCall&) { return 0; }
int cmdToggleWordWrap(Document&, const CommandCall&) { return 0; }
int cmdToggleRuler(Document&, const CommandCall&) { return 0; }
int cmdToggleVisibleSpaces(Document&, const CommandCall&) { return 0; }
int cmdToggleLineNumbers(Document&, const CommandCall&) { return 0; }
int cmdSetInsert(Document&, const CommandCall&) { return 0; }
int cmdSetAutoIndent(Document&, const CommandCall&) { return 0; }
int cmdSetAutoUnindent(Document&, const CommandCall&) { return 0; }
int cmdSetWordWrap(Document&, const CommandCall&) { return 0; }
int cmdShowRuler(Document&, const CommandCall&) { return 0; }
int cmdShowVisibleSpaces(Document&, const CommandCall&) { return 0; }
int cmdShowLineNumbers(Document&, const CommandCall&) { return 0; }

}  // namespace zol
