#include "engine/doc_access.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <string>

#include "engine/columns.h"
#include "engine/edit.h"
#include "engine/options.h"
#include "engine/selection.h"
#include "engine/shell.h"

namespace zol {
namespace {

bool inRange(const Document* doc, int32_t line) { return doc && line >= 1 && line <= doc->lines.count(); }

}  // namespace

int32_t numberOfLines(const Document* doc) { return doc ? doc->lines.count() : 0; }

int getLine(const Document* doc, int32_t line, char* buf, int size) {
    if (!buf || size < 2) return 0;
    if (!inRange(doc, line)) {
        buf[0] = '\0';
        return 0;
    }
    std::string_view text = lineText(*doc, line - 1);
    const size_t n = std::min(text.size(), static_cast<size_t>(size - 1));
    std::memcpy(buf, text.data(), n);
    buf[n] = '\0';
    return static_cast<int>(n);
}

int getLineLen(const Document* doc, int32_t line, int byteLength) {
    if (!inRange(doc, line)) return -1;
    std::string_view text = lineText(*doc, line - 1);
    return byteLength ? static_cast<int>(text.size()) : lineWidth(text);
}

bool setLine(Document* doc, int32_t line, const char* text) {
    if (!doc || doc->readOnly || !text || !inRange(doc, line)) return false;
    std::string s(text);
    for (char& c : s)
        if (c == '\r' || c == '\n') c = ' ';
    doc->lastCmd = 0;
    const Pos cursor = doc->cursor;
    const bool ok = replaceRange(*doc, makePos(0, line - 1), makePos(kMaxColumns, line - 1), s);
    setCursor(*doc, cursor);
    return ok;
}

bool setTextFileFormat(Document* doc, int32_t number) {
    const std::optional<TextFormat> format = textFormatOf(number);
    if (!doc || !format) return false;
    if (doc->textFormat != *format) {
        doc->textFormat = *format;
        if (doc->view) doc->view->refreshStatus();
    }
    return true;
}

static bool selectionEnds(const Document* doc, bool first, int* col, int32_t* line) {
    if (!doc || !doc->selExists) {
        if (col) *col = 0;
        if (line) *line = 0;
        return false;
    }
    const Pos p = first ? earlier(doc->selAnchor, doc->selEnd) : later(doc->selAnchor, doc->selEnd);
    if (col) *col = p.col + 1;
    if (line) *line = p.line + 1;
    return true;
}

bool selectionBegin(const Document* doc, int* col, int32_t* line) { return selectionEnds(doc, true, col, line); }
bool selectionEnd(const Document* doc, int* col, int32_t* line) { return selectionEnds(doc, false, col, line); }

int selectionType(const Document* doc) {
    if (!doc || !doc->selExists) return 0;
    return doc->selMode == SelMode::Column ? 2 : 1;
}

void placeCursor(Document* doc, int col, int32_t line, bool extend, bool exactly) {
    if (!doc || col < 1 || line < 1) return;
    Pos p = makePos(std::min(col - 1, kMaxColumns), std::min(line - 1, lastLine(*doc)));
    if (!exactly) {
        const ColumnHit hit = locateColumn(lineText(*doc, p.line), p.col);
        if (hit.insideTab || (hit.padding > 0 && !options().cursorBeyondEol))
            p.col = static_cast<int16_t>(hit.charColumn);
    }
    doc->selecting = false;
    if (extend) extendSelection(*doc, p);
    setCursor(*doc, p);
    if (!extend) clearSelection(*doc);
    doc->desiredCol = -1;
    doc->lastCmd = 0;
    doc->stateWord = 0;
    if (doc->view) doc->view->redraw();
}

}  // namespace zol
