// Options of the exported interface: the same variables the settings store reads and
// writes. Setting one repaints every open document.
#include <algorithm>

#include "engine/document_list.h"
#include "engine/options.h"
#include "engine/shell.h"
#include "engine/wordwrap.h"
#include "plugin/api_guard.h"
#include "proofing/autocorrect.h"

using namespace zol;

namespace {

constexpr int kMaxWrapColumn = 3199;
constexpr int kMaxBlockIndent = 20;  // wider than the settings file accepts, as plug-ins always had it

void redrawAll() {
    DocumentList* list = documentList();
    if (!list) return;
    for (size_t i = 0, n = list->count(); i < n; ++i)
        if (Document* d = list->at(i); d && d->view) d->view->redraw();
}

void setFlag(bool& option, BOOL on, bool onlyOnChange = false) {
    const bool value = on != 0;
    if (onlyOnChange && option == value) return;
    option = value;
    redrawAll();
}

}  // namespace

#define ZOL_BOOL_OPTION(Get, Set, expr, onlyOnChange)                                     \
    BOOL ZOLAPI Get(void) { return guarded<BOOL>(0, [] { return (expr) ? 1 : 0; }); }     \
    void ZOLAPI Set(BOOL on) { guardedVoid([&] { setFlag(expr, on, onlyOnChange); }); }

ZOL_BOOL_OPTION(Zol_IsWordWrap, Zol_SetWordWrap, options().wordWrap, false)
ZOL_BOOL_OPTION(Zol_IsAutoIndentMode, Zol_SetAutoIndentMode, options().autoIndent, false)
ZOL_BOOL_OPTION(Zol_IsAutoUnindentMode, Zol_SetAutoUnindentMode, options().autoUnindent, false)
ZOL_BOOL_OPTION(Zol_IsOverwriteMode, Zol_SetOverwriteMode, options().overwrite, true)
ZOL_BOOL_OPTION(Zol_IsUseTabChar, Zol_SetUseTabChar, options().useTabChar, false)
ZOL_BOOL_OPTION(Zol_IsSmartTab, Zol_SetSmartTab, options().smartTab, false)
ZOL_BOOL_OPTION(Zol_IsCursorBeyondEOL, Zol_SetCursorBeyondEOL, options().cursorBeyondEol, false)
ZOL_BOOL_OPTION(Zol_IsKeepTrailingBlanks, Zol_SetKeepTrailingBlanks, options().keepTrailingBlanks, false)
ZOL_BOOL_OPTION(Zol_IsCursorThroughtTabs, Zol_SetCursorThroughtTabs, options().cursorThroughTabs, false)
ZOL_BOOL_OPTION(Zol_IsBackupFiles, Zol_SetBackupFiles, options().backupFiles, false)
ZOL_BOOL_OPTION(Zol_IsLineNumbers, Zol_SetLineNumbers, options().lineNumbers, true)
ZOL_BOOL_OPTION(Zol_IsACorrectTwoCapitals, Zol_SetACorrectTwoCapitals, autoCorrect().options.twoCapitals, false)
ZOL_BOOL_OPTION(Zol_IsACorrectCapitalize, Zol_SetACorrectCapitalize, autoCorrect().options.capitalize, false)
ZOL_BOOL_OPTION(Zol_IsACorrectCapsLock, Zol_SetACorrectCapsLock, autoCorrect().options.capsLock, false)
ZOL_BOOL_OPTION(Zol_IsACorrectReplaceText, Zol_SetACorrectReplaceText, autoCorrect().options.replaceText, false)

#undef ZOL_BOOL_OPTION

int ZOLAPI Zol_GetWordWrapMethod(void) { return static_cast<int>(options().wordWrapMethod); }

void ZOLAPI Zol_SetWordWrapMethod(int method) {
    guardedVoid([&] {
        if (setWordWrapMethod(method)) redrawAll();
    });
}

int ZOLAPI Zol_GetWordWrapCol(void) { return options().wordWrapColumn; }

void ZOLAPI Zol_SetWordWrapCol(int col) {
    guardedVoid([&] {
        if (col < 1 || col > kMaxWrapColumn) return;
        options().wordWrapColumn = col;
        redrawAll();
    });
}

int ZOLAPI Zol_GetTabSize(void) { return options().tabSize; }

void ZOLAPI Zol_SetTabSize(int size) {
    guardedVoid([&] {
        setTabSize(size);
        redrawAll();
    });
}

int ZOLAPI Zol_GetBlockIndent(void) { return options().blockIndent; }

void ZOLAPI Zol_SetBlockIndent(int indent) {
    guardedVoid([&] {
        options().blockIndent = std::clamp(indent, 1, kMaxBlockIndent);
        redrawAll();
    });
}

BOOL ZOLAPI Zol_CanSoftWordWrap(HDOC h) {
    return guarded<BOOL>(0, [&] {
        Document* doc = docOf(h);
        return doc && canSoftWordWrap(*doc);
    });
}

BOOL ZOLAPI Zol_IsDocWordWrap(HDOC h) {
    return guarded<BOOL>(0, [&] { return docFlag(h, &Document::wordWrap); });
}

void ZOLAPI Zol_SetDocWordWrap(HDOC h, BOOL on) {
    guardedVoid([&] {
        Document* doc = docOf(h);
        if (!doc) return;
        doc->wordWrap = on != 0;
        if (doc->view) doc->view->redraw();
    });
}
