#include "engine/edit.h"

#include <algorithm>
#include <vector>

#include "engine/columns.h"
#include "engine/options.h"
#include "engine/shell.h"
#include "engine/text_util.h"

namespace zol {
namespace {

std::vector<ChangeListener>& listeners() {
    static std::vector<ChangeListener> v;
    return v;
}

void changed(Document& doc, int32_t line, int32_t removed, int32_t added) {
    setModified(doc, true);
    for (ChangeListener fn : listeners()) fn(doc, line, removed, added);
    if (doc.view) doc.view->redraw();
}

void lineChanged(Document& doc, int32_t line) {
    for (ChangeListener fn : listeners()) fn(doc, line, 0, 0);
}

bool fits(std::string_view s) {
    // No character is wider than a tab, so most lines need no counting.
    if (s.size() * static_cast<size_t>(options().tabSize) <= static_cast<size_t>(kMaxColumns)) return true;
    return s.size() <= static_cast<size_t>(kMaxLineBytes) && lineWidth(s) <= kMaxColumns;
}

// Byte offset of a column that is known to be a character boundary or the end.
size_t offsetOf(std::string_view line, int col) {
    ColumnHit hit = locateColumn(line, col);
    return hit.offset;
}

// Would replacing from..to (character boundaries, in order) by text leave lines that
// fit? Asked before anything is deleted, so that a refusal leaves the lines as they
// were, bookmarks and all.
bool replacementFits(const Document& doc, Pos from, Pos to, std::string_view text) {
    const std::string_view l1 = lineText(doc, from.line), l2 = lineText(doc, to.line);
    const std::vector<std::string_view> parts = splitLines(text, FinalLineEnd::StartsEmptyRow);
    std::string head(l1.substr(0, offsetOf(l1, from.col)));
    head += parts.front();
    const std::string_view suffix = l2.substr(offsetOf(l2, to.col));
    if (parts.size() == 1) return fits(head.append(suffix));
    std::string tail(parts.back());
    if (!fits(head) || !fits(tail.append(suffix))) return false;
    for (size_t i = 1; i + 1 < parts.size(); ++i)
        if (!fits(parts[i])) return false;
    return true;
}

}  // namespace

void addChangeListener(ChangeListener fn) { listeners().push_back(fn); }

void notifyChanged(Document& doc, int32_t line, int32_t removed, int32_t added) {
    changed(doc, line, removed, added);
}

Pos normalize(const Document& doc, Pos p) {
    p.line = std::clamp<int32_t>(p.line, 0, doc.lines.lastIndex);
    if (p.col < 0) p.col = 0;
    ColumnHit hit = locateColumn(lineText(doc, p.line), p.col);
    if (hit.insideTab || hit.padding > 0) p.col = static_cast<int16_t>(hit.charColumn);
    return p;
}

bool rawInsert(Document& doc, Pos at, std::string_view text, Pos* end) {
    LineList& ll = doc.lines;
    LineRef r = ll.find(at.line);
    std::string_view line = ll.text(r);
    ColumnHit hit = locateColumn(line, at.col);
    std::string prefix(line.substr(0, hit.offset));
    prefix.append(static_cast<size_t>(hit.padding), ' ');
    std::string suffix(line.substr(hit.offset));
    std::vector<std::string_view> parts = splitLines(text, FinalLineEnd::StartsEmptyRow);

    std::string head = prefix;
    head.append(parts.front());
    std::string tail(parts.back());
    const int endCol = lineWidth(parts.size() == 1 ? std::string_view(head) : std::string_view(tail));
    if (parts.size() == 1) {
        head += suffix;
        if (!fits(head)) return false;
    } else {
        tail += suffix;
        if (!fits(head) || !fits(tail)) return false;
        for (size_t i = 1; i + 1 < parts.size(); ++i)
            if (!fits(parts[i])) return false;
    }

    // Text put in front of a whole line pushes that line down: its bookmark goes
    // with it to the line that now holds its text. An empty line keeps its mark.
    const bool markMoves = parts.size() > 1 && hit.offset == 0 && hit.padding == 0 && !suffix.empty();
    const uint8_t mark = ll.header(r).bookmark;
    r = ll.setText(r, head);
    int32_t index = at.line;
    for (size_t i = 1; i < parts.size(); ++i) {
        r = ll.insertAfter(r, ++index, i + 1 == parts.size() ? std::string_view(tail) : parts[i]);
    }
    if (markMoves) {
        ll.header(r).bookmark = mark;
        ll.header(ll.find(at.line)).bookmark = 0;
    }
    if (end) *end = makePos(endCol, index);
    changed(doc, at.line, 0, static_cast<int32_t>(parts.size() - 1));
    return true;
}

bool rawDelete(Document& doc, Pos from, Pos to, std::string* removed) {
    if (before(to, from)) std::swap(from, to);
    LineList& ll = doc.lines;
    LineRef r1 = ll.find(from.line);
    std::string_view l1 = ll.text(r1);
    const size_t off1 = offsetOf(l1, from.col);
    if (from.line == to.line) {
        const size_t off2 = std::max(off1, offsetOf(l1, to.col));
        if (removed) removed->assign(l1.substr(off1, off2 - off1));
        std::string s(l1.substr(0, off1));
        s.append(l1.substr(off2));
        ll.setText(r1, s);
        changed(doc, from.line, 0, 0);
        return true;
    }
    LineRef r2 = ll.find(to.line);
    std::string_view l2 = ll.text(r2);
    const size_t off2 = offsetOf(l2, to.col);
    std::string joined(l1.substr(0, off1));
    joined.append(l2.substr(off2));
    if (!fits(joined)) return false;
    if (removed) {
        removed->assign(l1.substr(off1));
        for (LineRef r = ll.next(r1); r != r2; r = ll.next(r)) {
            removed->append("\r\n");
            removed->append(ll.text(r));
        }
        removed->append("\r\n");
        removed->append(l2.substr(0, off2));
    }
    const int32_t count = to.line - from.line;
    // When all of the first line goes and text of the last line stays, the joined line
    // is the last line moved up: it keeps that line's bookmark. This is the reverse of
    // the move in rawInsert.
    const bool lastSurvives = off1 == 0 && off2 < l2.size();
    const uint8_t mark = ll.header(lastSurvives ? r2 : r1).bookmark;
    // Removing the lines after r1 first keeps r1 valid; its text changes last.
    for (int32_t i = 0; i < count; ++i) ll.erase(ll.next(r1), from.line + 1);
    r1 = ll.setText(r1, joined);
    ll.header(r1).bookmark = mark;
    changed(doc, from.line, count, 0);
    return true;
}

bool rawReplaceLines(Document& doc, Pos from, Pos to, std::string_view text, std::string* removed, Pos* end) {
    if (before(to, from)) std::swap(from, to);
    const std::vector<std::string_view> parts = splitLines(text, FinalLineEnd::StartsEmptyRow);
    if (static_cast<int32_t>(parts.size()) != to.line - from.line + 1) return false;
    LineList& ll = doc.lines;
    const LineRef r1 = ll.find(from.line);
    const std::string_view l1 = ll.text(r1);
    const ColumnHit start = locateColumn(l1, from.col);
    if (start.insideTab || start.padding > 0) return false;
    const std::string_view l2 = ll.text(ll.find(to.line));
    const size_t off2 = from.line == to.line ? std::max(start.offset, offsetOf(l1, to.col)) : offsetOf(l2, to.col);

    std::vector<std::string> texts(parts.begin(), parts.end());
    texts.front().insert(0, l1.substr(0, start.offset));
    const int endCol = lineWidth(texts.back());
    texts.back().append(l2.substr(off2));
    for (const std::string& t : texts)
        if (!fits(t)) return false;
    if (removed) *removed = rangeText(doc, from, makePos(columnOfOffset(l2, off2), to.line));
    LineRef r = r1;
    for (size_t i = 0; i < texts.size(); ++i, r = ll.next(r)) {
        r = ll.setText(r, texts[i]);
        lineChanged(doc, from.line + static_cast<int32_t>(i));
    }
    setModified(doc, true);
    if (doc.view) doc.view->redraw();
    if (end) *end = makePos(endCol, to.line);
    return true;
}

bool insertText(Document& doc, std::string_view text) {
    if (doc.readOnly) return false;
    Pos at = doc.cursor;
    std::string_view line = lineText(doc, at.line);
    ColumnHit hit = locateColumn(line, at.col);
    if (hit.insideTab) {
        const int ts = options().tabSize;
        Pos tabAt = makePos(hit.charColumn, at.line);
        std::string blanks(static_cast<size_t>(ts), ' ');
        std::string s(line.substr(0, hit.offset));
        s += blanks;
        s.append(line.substr(hit.offset + 1));
        if (!fits(s)) return false;
        doc.lines.setText(doc.lines.find(at.line), s);
        changed(doc, at.line, 0, 0);
        EditRecord rec;
        rec.hasRange = true;
        rec.rangeStart = tabAt;
        rec.rangeEnd = makePos(hit.charColumn + ts, at.line);
        rec.at = tabAt;
        rec.text = std::string("\t");
        recordEdit(doc, std::move(rec));
        line = lineText(doc, at.line);
        hit = locateColumn(line, at.col);
    }
    Pos start = hit.padding > 0 ? makePos(hit.charColumn, at.line) : at;
    Pos end;
    if (!rawInsert(doc, at, text, &end)) return false;
    EditRecord rec;
    rec.hasRange = true;
    rec.rangeStart = start;
    rec.rangeEnd = end;
    rec.at = start;
    recordEdit(doc, std::move(rec));
    setCursor(doc, end);
    return true;
}

bool deleteRange(Document& doc, Pos from, Pos to) {
    if (doc.readOnly) return false;
    from = normalize(doc, from);
    to = normalize(doc, to);
    if (before(to, from)) std::swap(from, to);
    if (from == to) {
        setCursor(doc, from);
        return true;
    }
    std::string removed;
    if (!rawDelete(doc, from, to, &removed)) return false;
    EditRecord rec;
    rec.at = from;
    rec.text = std::move(removed);
    recordEdit(doc, std::move(rec));
    setCursor(doc, from);
    return true;
}

bool replaceRange(Document& doc, Pos from, Pos to, std::string_view text) {
    if (doc.readOnly) return false;
    from = normalize(doc, from);
    to = normalize(doc, to);
    if (before(to, from)) std::swap(from, to);
    if (!replacementFits(doc, from, to, text)) return false;
    std::string removed;
    if (!rawDelete(doc, from, to, &removed)) return false;
    Pos end;
    if (!rawInsert(doc, from, text, &end)) {
        rawInsert(doc, from, removed, nullptr);
        return false;
    }
    EditRecord rec;
    rec.hasRange = true;
    rec.rangeStart = from;
    rec.rangeEnd = end;
    rec.at = from;
    if (!removed.empty()) rec.text = std::move(removed);
    if (rec.rangeStart == rec.rangeEnd) rec.hasRange = false;
    if (rec.hasRange || rec.text) recordEdit(doc, std::move(rec));
    setCursor(doc, end);
    return true;
}

bool rewriteLines(Document& doc, int32_t first, const std::vector<std::string>& texts) {
    if (doc.readOnly || texts.empty() || first < 0) return false;
    const int32_t count = static_cast<int32_t>(texts.size());
    if (first + count - 1 > doc.lines.lastIndex) return false;
    for (const std::string& t : texts)
        if (!fits(t) || t.find_first_of("\r\n") != std::string::npos) return false;
    LineList& ll = doc.lines;
    // Only the span from the first to the last changed line goes into the record.
    int32_t lo = -1, hi = -1;
    LineRef r = ll.find(first);
    for (int32_t i = 0; i < count; ++i, r = ll.next(r)) {
        if (ll.text(r) == texts[static_cast<size_t>(i)]) continue;
        if (lo < 0) lo = i;
        hi = i;
    }
    if (lo < 0) return true;
    std::string original;
    r = ll.find(first + lo);
    for (int32_t i = lo; i <= hi; ++i, r = ll.next(r)) {
        if (i > lo) original.append("\r\n");
        original.append(ll.text(r));
        const std::string& t = texts[static_cast<size_t>(i)];
        if (ll.text(r) != t) {
            r = ll.setText(r, t);
            lineChanged(doc, first + i);
        }
    }
    setModified(doc, true);
    if (doc.view) doc.view->redraw();
    EditRecord rec;
    rec.hasRange = true;
    rec.rangeStart = makePos(0, first + lo);
    rec.rangeEnd = makePos(lineWidth(texts[static_cast<size_t>(hi)]), first + hi);
    rec.at = rec.rangeStart;
    rec.text = std::move(original);
    recordEdit(doc, std::move(rec));
    return true;
}

std::string rangeText(const Document& doc, Pos from, Pos to) {
    from = normalize(doc, from);
    to = normalize(doc, to);
    if (before(to, from)) std::swap(from, to);
    const LineList& ll = doc.lines;
    LineRef r = ll.find(from.line);
    std::string_view l = ll.text(r);
    const size_t off1 = offsetOf(l, from.col);
    if (from.line == to.line) {
        const size_t off2 = std::max(off1, offsetOf(l, to.col));
        return std::string(l.substr(off1, off2 - off1));
    }
    std::string out(l.substr(off1));
    for (int32_t i = from.line + 1; i <= to.line; ++i) {
        r = ll.next(r);
        out.append("\r\n");
        std::string_view li = ll.text(r);
        out.append(i == to.line ? li.substr(0, offsetOf(li, to.col)) : li);
    }
    return out;
}

}  // namespace zol
