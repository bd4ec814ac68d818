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

// A line with its screen columns [left, right) taken out; a tab cut by either edge
// leaves blanks for its part outside the block.
std::string cutColumns(std::string_view line, int left, int right) {
    const ColumnHit a = locateColumn(line, left);
    std::string out(line.substr(0, a.offset));
    if (a.padding > 0) return out;
    if (a.insideTab) out.append(static_cast<size_t>(left - a.charColumn), ' ');
    const ColumnHit b = locateColumn(line, right);
    if (b.padding > 0) return out;
    size_t rest = b.offset;
    if (b.insideTab) {
        out.append(static_cast<size_t>(advanceColumn('\t', b.charColumn) - right), ' ');
        ++rest;
    }
    out.append(line.substr(rest));
    return out;
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
        const std::string_view text = lineText(doc, l);
        const std::string kept = cutColumns(text, left, right);
        if (kept == text) continue;
        rawDelete(doc, makePos(0, l), makePos(lineWidth(text), l), nullptr);
        rawInsert(doc, makePos(0, l), kept, nullptr);
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

// Columns [left, right) of a line as a rectangle: tabs become blanks and a short
// line is padded, so the block keeps its shape wherever it is pasted.
std::string columnSlice(std::string_view line, int left, int right) {
    std::string out;
    int col = 0;
    for (char c : line) {
        if (col >= right) break;
        const int next = advanceColumn(c, col);
        if (next > left) {
            if (c == '\t')
                out.append(static_cast<size_t>(std::min(next, right) - std::max(col, left)), ' ');
            else
                out += c;
        }
        col = next;
    }
    const int width = lineWidth(out);
    if (width < right - left) out.append(static_cast<size_t>(right - left - width), ' ');
    return out;
}

std::string spliceColumns(std::string_view line, int left, int right, std::string_view text) {
    const ColumnHit a = locateColumn(line, left);
    std::string out(line.substr(0, a.offset));
    out.append(static_cast<size_t>(a.padding), ' ');
    if (a.insideTab) out.append(static_cast<size_t>(left - a.charColumn), ' ');
    out.append(text);
    const ColumnHit b = locateColumn(line, std::max(left, right));
    if (b.padding > 0) return out;
    size_t rest = b.offset;
    if (b.insideTab) {
        out.append(static_cast<size_t>(advanceColumn('\t', b.charColumn) - right), ' ');
        ++rest;
    }
    out.append(line.substr(rest));
    return out;
}

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

bool hasSelection(const Document& doc) {
    Pos begin, end;
    if (!selectionRange(doc, begin, end)) return false;
    return isColumnSelection(doc) ? selLeftCol(doc) != selRightCol(doc) : begin != end;
}

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
        out.append(columnSlice(ll.text(r), left, right));
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
