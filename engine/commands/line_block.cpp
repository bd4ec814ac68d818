#include "engine/commands/line_block.h"

#include <algorithm>

#include "engine/columns.h"
#include "engine/commands/edit_result.h"
#include "engine/edit.h"
#include "engine/selection.h"

namespace zol {

LineBlock selectedLines(const Document& doc) {
    Pos begin, end;
    if (!selectionRange(doc, begin, end)) return {doc.cursor.line, doc.cursor.line};
    int32_t last = end.line;
    if (!isColumnSelection(doc) && end.col == 0 && end.line > begin.line) --last;
    return {begin.line, last};
}

LineBlock selectedLinesOrAll(const Document& doc) {
    if (!doc.selExists) return {0, lastLine(doc)};
    return selectedLines(doc);
}

std::vector<std::string> blockTexts(const Document& doc, LineBlock b) {
    std::vector<std::string> out;
    out.reserve(static_cast<size_t>(b.last - b.first + 1));
    const LineList& ll = doc.lines;
    LineRef r = ll.find(b.first);
    for (int32_t l = b.first; l <= b.last; ++l, r = ll.next(r)) out.emplace_back(ll.text(r));
    return out;
}

namespace {

// Where a position lands once its line took a text of another width: column 0
// stays, other columns move by the change of width.
Pos shifted(const Document& doc, Pos p, LineBlock b, const std::vector<std::string>& texts) {
    if (p.line < b.first || p.line > b.last || p.col == 0) return p;
    const std::string& now = texts[static_cast<size_t>(p.line - b.first)];
    const int delta = lineWidth(now) - lineWidthAt(doc, p.line);
    return makePos(std::clamp(p.col + delta, 0, kMaxColumns), p.line);
}

}  // namespace

int finishLineEdit(Document& doc, LineBlock b, const std::vector<std::string>& texts) {
    const bool hadSel = doc.selExists, column = isColumnSelection(doc);
    // Worked out before the lines change, from their old widths.
    const Pos anchor = shifted(doc, doc.selAnchor, b, texts), end = shifted(doc, doc.selEnd, b, texts);
    const Pos cur = shifted(doc, doc.cursor, b, texts);
    if (!rewriteLines(doc, b.first, texts)) return finishEdit(doc, false);
    doc.desiredCol = -1;
    if (hadSel && !column) {
        setSelection(doc, anchor, end);
        setCursor(doc, doc.selEnd);
    } else if (!column) {
        setCursor(doc, cur);  // a column block and its cursor stay where they are
    }
    return 1;
}

}  // namespace zol
