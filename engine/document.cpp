#include "engine/document.h"

#include <algorithm>

#include "engine/columns.h"
#include "engine/shell.h"

namespace zol {

uint64_t nextDocumentSerial() {
    static uint64_t last = 0;
    return ++last;
}

std::string_view lineText(const Document& doc, int32_t line) {
    return doc.lines.text(doc.lines.find(line));
}

int lineWidthAt(const Document& doc, int32_t line) { return lineWidth(lineText(doc, line)); }

void setCursor(Document& doc, Pos p) {
    p.line = std::clamp<int32_t>(p.line, 0, doc.lines.lastIndex);
    p.col = static_cast<int16_t>(std::clamp<int>(p.col, 0, kMaxColumns));
    doc.lines.seek(p.line);
    doc.cursor = p;
}

void setModified(Document& doc, bool modified) {
    if (doc.modified == modified) return;
    doc.modified = modified;
    if (doc.view) {
        doc.view->refreshCaption();
        doc.view->refreshStatus();
    }
}

void resetText(Document& doc) {
    doc.lines.reset();
    forgetEditState(doc);
}

void forgetEditState(Document& doc) {
    doc.cursor = Pos{};
    doc.desiredCol = -1;
    doc.selExists = false;
    doc.selecting = false;
    clearUndo(doc);
    clearRedo(doc);
}

}  // namespace zol
