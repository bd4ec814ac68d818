#include "engine/selection.h"

#include <algorithm>

#include "engine/columns.h"
#include "engine/edit.h"
#include "engine/undo.h"

namespace zol {
namespace {

Pos clampPos(const Document& doc, Pos p) {
    p.line = std::clamp<int32_t>(p.line, 0, doc.lines.lastIndex);
    p.col = static_cast<int16_t>(std::clamp<int>(p.col, 0, kMaxColumns));
    return p;
}

// Byte span of the columns [left, right) of one line; a column inside a tab counts
// as the tab's start, a column past the end as the end.
void columnSpan(std::string_view text, int left, int right, size_t& from, size_t& to) {
    from = locateColumn(text, left).offset;
    to = std::max(from, locateColumn(text, right).offset);
}

bool deleteColumnBlock(Document& doc) {
    Pos begin, end;
    selectionRange(doc, begin, end);
    const int left = selLeftCol(doc), right = selRightCol(doc);
    std::string original;
    LineList& ll = doc.lines;
    LineRef r = ll.find(begin.line);
    for (int32_t l = begin.line; l <= end.line; ++l, r = ll.next(r)) {
        if (l > begin.line) original.append("\r\n");
        original.append(ll.text(r));
    }
    // Line by line, so that every line keeps its record (bookmarks, comment state);
    // undo sees one replacement of the whole lines.
    bool removedAny = false;
    for (int32_t l = begin.line; l <= end.line; ++l) {
        std::string_view text = lineText(doc, l);
        size_t from, to;
        columnSpan(text, left, right, from, to);
        if (from == to) continue;
        const int fromCol = columnOfOffset(text, from), toCol = columnOfOffset(text, to);
        rawDelete(doc, makePos(fromCol, l), makePos(toCol, l), nullptr);
        removedAny = true;
    }
    setCursor(doc, makePos(left, begin.line));
    if (!removedAny) return true;
    EditRecord rec;
    rec.hasRange = true;
    rec.rangeStart = makePos(0, begin.line);
    rec.rangeEnd = makePos(lineWidthAt(doc, end.line), end.line);
    rec.at = rec.rangeStart;
    rec.text = std::move(original);
    recordEdit(doc, std::move(rec));
    return true;
}

}  // namespace

bool selectionRange(const Document& doc, Pos& begin, Pos& end) {
    if (!doc.selExists) {
        begin = end = doc.cursor;
        return false;
    }
    begin = earlier(doc.selAnchor, doc.selEnd);
    end = later(doc.selAnchor, doc.selEnd);
    return true;
}

bool isColumnSelection(const Document& doc) { return doc.selExists && doc.selMode == SelMode::Column; }

int selLeftCol(const Document& doc) { return std::min(doc.selAnchor.col, doc.selEnd.col); }
int selRightCol(const Document& doc) { return std::max(doc.selAnchor.col, doc.selEnd.col); }

void clearSelection(Document& doc) {
    doc.selExists = false;
    doc.selAnchor = doc.selEnd = doc.cursor;
}

void setSelection(Document& doc, Pos anchor, Pos end) {
    doc.selAnchor = clampPos(doc, anchor);
    doc.selEnd = clampPos(doc, end);
    doc.selExists = doc.selAnchor != doc.selEnd;
}

void extendSelection(Document& doc, Pos to) {
    const Pos anchor = doc.selExists || doc.selecting ? doc.selAnchor : doc.cursor;
    setSelection(doc, anchor, to);
}

std::string selectedText(const Document& doc) {
    Pos begin, end;
    if (!selectionRange(doc, begin, end)) return {};
    if (doc.selMode != SelMode::Column) return rangeText(doc, begin, end);
    const int left = selLeftCol(doc), right = selRightCol(doc);
    std::string out;
    const LineList& ll = doc.lines;
    LineRef r = ll.find(begin.line);
    for (int32_t l = begin.line; l <= end.line; ++l, r = ll.next(r)) {
        if (l > begin.line) out.append("\r\n");
        std::string_view text = ll.text(r);
        size_t from, to;
        columnSpan(text, left, right, from, to);
        out.append(text.substr(from, to - from));
    }
    return out;
}

bool deleteSelection(Document& doc) {
    Pos begin, end;
    if (doc.readOnly || !selectionRange(doc, begin, end)) return false;
    const bool done = doc.selMode == SelMode::Column ? deleteColumnBlock(doc) : deleteRange(doc, begin, end);
    if (!done) return false;
    clearSelection(doc);
    return true;
}

}  // namespace zol
