// Editor commands, redraw and text access of the exported interface.
#include <algorithm>
#include <cstdlib>

#include "engine/columns.h"
#include "engine/line_capacity.h"
#include "engine/doc_access.h"
#include "engine/edit.h"
#include "engine/executor.h"
#include "engine/selection.h"
#include "engine/shell.h"
#include "plugin/api_guard.h"

using namespace zol;

static_assert(ZOL_MAX_LINE_LEN == kMaxColumns, "zolder_api.h tells plug-ins the capacity of a line");

namespace {

// A number that names no command, macro slot or plug-in command does nothing at all:
// the executor would still take it for the last command and record it.
int runCommand(HDOC h, int command, int param) {
    Document* doc = docOf(h);
    if (!doc || command < 0 || command > 0xFFFF) return 0;
    const auto id = static_cast<uint16_t>(command);
    const bool macroSlot = id >= kFirstMacroId && id <= kLastMacroId;
    if (!findCommand(id) && !macroSlot && id < kFirstExternalCommand) return 0;
    return execute(*doc, id, static_cast<uint32_t>(param), kInterfaceCall);
}

}  // namespace

void ZOLAPI Zol_EditorCommand(HDOC h, int command, int param) {
    guardedVoid([&] { runCommand(h, command, param); });
}

int ZOLAPI Zol_EdCmd(HDOC h, int command, int param) {
    return guarded<int>(0, [&] { return runCommand(h, command, param); });
}

// Repainting is the view's business; a document without a view has nothing to hold back.
void ZOLAPI Zol_LockUpdate(HDOC h) {
    guardedVoid([&] {
        if (Document* doc = docOf(h); doc && doc->view) doc->view->lockUpdate();
    });
}

void ZOLAPI Zol_UnlockUpdate(HDOC h) {
    guardedVoid([&] {
        if (Document* doc = docOf(h); doc && doc->view) doc->view->unlockUpdate();
    });
}

void ZOLAPI Zol_RedrawWindow(HDOC h) {
    guardedVoid([&] {
        if (Document* doc = docOf(h); doc && doc->view) doc->view->redraw();
    });
}

void ZOLAPI Zol_FixWindowPos(HDOC h) {
    guardedVoid([&] {
        Document* doc = docOf(h);
        if (!doc || !doc->view) return;
        // Brings the cursor's line into the window.
        EditorView& v = *doc->view;
        const int32_t top = v.firstVisibleLine();
        const int32_t line = doc->cursor.line;
        if (line < top) v.setFirstVisibleLine(line);
        else if (line >= top + v.pageLines()) v.setFirstVisibleLine(line - v.pageLines() + 1);
        v.redraw();
    });
}

BOOL ZOLAPI Zol_InsertText(HDOC h, const char* text) {
    return guarded<BOOL>(0, [&]() -> BOOL {
        Document* doc = docOf(h);
        if (!doc || doc->readOnly || !text) return 0;
        doc->lastCmd = 0;
        return insertText(*doc, text);
    });
}

int ZOLAPI Zol_GetNumberOfLines(HDOC h) {
    return guarded<int>(0, [&] { return static_cast<int>(numberOfLines(docOf(h))); });
}

int ZOLAPI Zol_GetLine(HDOC h, int line, char* buffer, int size) {
    return guarded<int>(0, [&] { return getLine(docOf(h), line, buffer, size); });
}

BOOL ZOLAPI Zol_SetLine(HDOC h, int line, const char* text) {
    return guarded<BOOL>(0, [&] { return setLine(docOf(h), line, text); });
}

int ZOLAPI Zol_GetLineLen(HDOC h, int line, BOOL raw) {
    return guarded<int>(-1, [&] { return getLineLen(docOf(h), line, raw); });
}

int ZOLAPI Zol_GetMaxLineLen(void) { return kMaxColumns; }

char* ZOLAPI Zol_GetText(HDOC h, int col1, int line1, int col2, int line2) {
    return guarded<char*>(nullptr, [&]() -> char* {
        Document* doc = docOf(h);
        if (!doc || col1 < 1 || line1 < 1 || col2 < 1 || line2 < 1) return nullptr;
        const Pos from = normalize(*doc, makePos(std::min(col1 - 1, kMaxColumns), line1 - 1));
        const Pos to = normalize(*doc, makePos(std::min(col2 - 1, kMaxColumns), line2 - 1));
        return allocCopy(rangeText(*doc, from, to));
    });
}

char* ZOLAPI Zol_GetSelection(HDOC h) {
    return guarded<char*>(nullptr, [&]() -> char* {
        Document* doc = docOf(h);
        if (!doc || !hasSelection(*doc)) return nullptr;
        return allocCopy(selectedText(*doc));
    });
}

int ZOLAPI Zol_GetCurrentChar(HDOC h) {
    return guarded<int>(0, [&]() -> int {
        Document* doc = docOf(h);
        if (!doc) return 0;
        const std::string_view text = lineText(*doc, doc->cursor.line);
        const ColumnHit hit = locateColumn(text, doc->cursor.col);
        return hit.offset < text.size() ? static_cast<unsigned char>(text[hit.offset]) : 0;
    });
}
