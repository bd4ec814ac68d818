// Cursor, scrolling and selection of the exported interface.
#include <algorithm>

#include "engine/doc_access.h"
#include "engine/line_capacity.h"
#include "engine/executor.h"
#include "engine/shell.h"
#include "plugin/api_guard.h"
#include "plugin/view_records.h"

using namespace zol;

namespace {

void writePair(int* col, int* line, int c, int l) {
    if (col) *col = c;
    if (line) *line = l;
}

}  // namespace

void ZOLAPI Zol_GetCursorPos(HDOC h, int* col, int* line) {
    guardedVoid([&] {
        Document* doc = docOf(h);
        if (!doc) return writePair(col, line, 1, 1);
        writePair(col, line, doc->cursor.col + 1, doc->cursor.line + 1);
    });
}

void ZOLAPI Zol_SetCursorPos(HDOC h, int col, int line, BOOL extend) {
    guardedVoid([&] { placeCursor(docOf(h), col, line, extend != 0, false); });
}

void ZOLAPI Zol_SetCursorPosExactly(HDOC h, int col, int line, BOOL extend) {
    guardedVoid([&] { placeCursor(docOf(h), col, line, extend != 0, true); });
}

void ZOLAPI Zol_GetWndScrollPos(HDOC h, int* col, int* line) {
    guardedVoid([&] {
        Document* doc = docOf(h);
        if (!doc) return writePair(col, line, 0, 0);
        if (const EditorView* v = doc->view) return writePair(col, line, v->firstVisibleColumn() + 1, v->firstVisibleLine() + 1);
        const ViewRecord& r = viewRecord(*doc);
        writePair(col, line, r.column + 1, r.line + 1);
    });
}

// A place past the text is brought back to its last line and widest column, as the
// view's scroll bars would.
void ZOLAPI Zol_SetWndScrollPos(HDOC h, int col, int line) {
    guardedVoid([&] {
        Document* doc = docOf(h);
        if (!doc || col < 1 || line < 1) return;
        const int32_t top = std::min<int32_t>(line - 1, lastLine(*doc));
        const int32_t left = std::min<int32_t>(col - 1, kMaxColumns - 1);
        if (EditorView* v = doc->view) {
            v->setFirstVisibleLine(top);
            v->setFirstVisibleColumn(left);
            v->redraw();
            return;
        }
        viewRecord(*doc) = ViewRecord{left, top};
    });
}

BOOL ZOLAPI Zol_IsSelExist(HDOC h) {
    return guarded<BOOL>(0, [&] { return docFlag(h, &Document::selExists); });
}

BOOL ZOLAPI Zol_IsColumnSelMode(HDOC h) {
    return guarded<BOOL>(0, [&] {
        Document* doc = docOf(h);
        return doc && doc->selMode == SelMode::Column;
    });
}

BOOL ZOLAPI Zol_IsSelecting(HDOC h) {
    return guarded<BOOL>(0, [&] { return docFlag(h, &Document::selecting); });
}

BOOL ZOLAPI Zol_IsLineDrawing(HDOC h) {
    return guarded<BOOL>(0, [&] { return docFlag(h, &Document::lineDrawing); });
}

int ZOLAPI Zol_GetSelType(HDOC h) {
    return guarded<int>(0, [&] { return selectionType(docOf(h)); });
}

int ZOLAPI Zol_GetSelMode(HDOC h) {
    return guarded<int>(0, [&] {
        Document* doc = docOf(h);
        return doc ? static_cast<int>(doc->selMode) : 0;
    });
}

void ZOLAPI Zol_SetSelMode(HDOC h, int mode) {
    guardedVoid([&] {
        Document* doc = docOf(h);
        if (!doc) return;
        if (mode == 1) execute(*doc, Cmd::SetCharSelMode, 0, kInterfaceCall);
        else if (mode == 2 && doc->selMode != SelMode::Column)
            execute(*doc, Cmd::SetColumnSelMode, 0, kInterfaceCall);
    });
}

BOOL ZOLAPI Zol_GetSelBeginPos(HDOC h, int* col, int* line) {
    return guarded<BOOL>(0, [&] {
        int32_t l = 0;
        const bool ok = selectionBegin(docOf(h), col, &l);
        if (line) *line = static_cast<int>(l);
        return ok;
    });
}

BOOL ZOLAPI Zol_GetSelEndPos(HDOC h, int* col, int* line) {
    return guarded<BOOL>(0, [&] {
        int32_t l = 0;
        const bool ok = selectionEnd(docOf(h), col, &l);
        if (line) *line = static_cast<int>(l);
        return ok;
    });
}
