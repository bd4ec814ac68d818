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

Pos shifted(Pos p, LineBlock b, const std::vector<int>& delta) {
    if (p.line < b.first || p.line > b.last || p.col == 0) return p;
    const int col = std::max(0, p.col + delta[static_cast<size_t>(p.line - b.first)]);
    return makePos(std::min(col, kMaxColumns), p.line);
}

}  // namespace

int finishLineEdit(Document& doc, LineBlock b, const std::vector<std::string>& texts) {
    std::vector<int> delta;
    delta.reserve(texts.size());
    const LineList& ll = doc.lines;
    LineRef r = ll.find(b.first);
    for (const std::string& t : texts) {
        delta.push_back(lineWidth(t) - lineWidth(ll.text(r)));
        r = ll.next(r);
    }
    const bool hadSel = doc.selExists, column = isColumnSelection(doc);
    const Pos anchor = doc.selAnchor, end = doc.selEnd, cur = doc.cursor;
    if (!rewriteLines(doc, b.first, texts)) return finishEdit(doc, false);
    doc.desiredCol = -1;
    if (hadSel && !column) {
        setSelection(doc, shifted(anchor, b, delta), shifted(end, b, delta));
        setCursor(doc, doc.selEnd);
    } else {
        setCursor(doc, shifted(cur, b, delta));
    }
    return 1;
}

}  // namespace zol
