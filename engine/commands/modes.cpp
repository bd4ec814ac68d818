#include "engine/commands/handlers.h"

#include "engine/document.h"
#include "engine/options.h"
#include "engine/shell.h"

namespace zol {
namespace {

// The status bar shows the modes and the window draws ruler, spaces and numbers.
int setFlag(Document& doc, bool& flag, bool value) {
    flag = value;
    if (doc.view) {
        doc.view->redraw();
        doc.view->refreshStatus();
    }
    return 1;
}

int toggle(Document& doc, bool& flag) { return setFlag(doc, flag, !flag); }

}  // namespace

int cmdToggleInsert(Document& doc, const CommandCall&) { return toggle(doc, options().overwrite); }
int cmdToggleAutoIndent(Document& doc, const CommandCall&) { return toggle(doc, options().autoIndent); }
int cmdToggleAutoUnindent(Document& doc, const CommandCall&) { return toggle(doc, options().autoUnindent); }
int cmdToggleWordWrap(Document& doc, const CommandCall&) { return toggle(doc, doc.wordWrap); }
int cmdToggleRuler(Document& doc, const CommandCall&) { return toggle(doc, options().ruler); }
int cmdToggleVisibleSpaces(Document& doc, const CommandCall&) { return toggle(doc, options().visibleSpaces); }
int cmdToggleLineNumbers(Document& doc, const CommandCall&) { return toggle(doc, options().lineNumbers); }

// The "Set"/"Show" forms switch their mode on whatever its state; insert mode is
// overwrite off.
int cmdSetInsert(Document& doc, const CommandCall&) { return setFlag(doc, options().overwrite, false); }
int cmdSetAutoIndent(Document& doc, const CommandCall&) { return setFlag(doc, options().autoIndent, true); }
int cmdSetAutoUnindent(Document& doc, const CommandCall&) { return setFlag(doc, options().autoUnindent, true); }
int cmdSetWordWrap(Document& doc, const CommandCall&) { return setFlag(doc, doc.wordWrap, true); }
int cmdShowRuler(Document& doc, const CommandCall&) { return setFlag(doc, options().ruler, true); }
int cmdShowVisibleSpaces(Document& doc, const CommandCall&) { return setFlag(doc, options().visibleSpaces, true); }
int cmdShowLineNumbers(Document& doc, const CommandCall&) { return setFlag(doc, options().lineNumbers, true); }

}  // namespace zol
