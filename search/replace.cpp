#include "search/replace.h"

#include <algorithm>

#include "engine/columns.h"
#include "engine/document.h"
#include "engine/edit.h"
#include "engine/selection.h"
#include "engine/undo.h"

namespace zol {
namespace {

bool fitsLine(std::string_view s) {
    if (s.size() > static_cast<size_t>(kMaxLineBytes)) return false;
    // Without tabs every byte is one column.
    if (s.find('\t') == std::string_view::npos) return s.size() <= static_cast<size_t>(kMaxColumns);
    return lineWidth(s) <= kMaxColumns;
}

// Every piece between line ends fits a line.
bool fitsLines(std::string_view s) {
    for (size_t start = 0;;) {
        const size_t nl = s.find_first_of("\r\n", start);
        if (!fitsLine(s.substr(start, nl == std::string_view::npos ? nl : nl - start))) return false;
        if (nl == std::string_view::npos) return true;
        start = nl + 1;
    }
}

bool validPosition(const Document* doc, int col, int32_t line) {
    return doc && col >= 1 && line >= 1 && line <= doc->lines.lastIndex + 1;
}

int findAt(Document* doc, const char* text, int col, int32_t line, SearchOptions opt, bool oneLine,
           Searcher& s, DocumentHit& hit) {
    if (!validPosition(doc, col, line) || !text || !*text) return kSearchError;
    if (prepareSearch(s, text, opt) != kSearchFound) return kSearchError;
    const int c = std::min(col - 1, static_cast<int>(kMaxColumns));
    return searchDocument(*doc, s, makePos(c, line - 1), oneLine, hit);
}

int findEntry(Document* doc, const char* text, int col, int32_t line, SearchOptions opt, bool oneLine) {
    Searcher s;
    DocumentHit hit;
    const int res = findAt(doc, text, col, line, opt, oneLine, s, hit);
    if (res == kSearchFound) selectHit(*doc, hit);
    return res;
}

int replaceEntry(Document* doc, const char* text, const char* replacement, int col, int32_t line,
                 SearchOptions opt, bool oneLine) {
    if (!doc || doc->readOnly) return kSearchError;
    Searcher s;
    DocumentHit hit;
    const int res = findAt(doc, text, col, line, opt, oneLine, s, hit);
    if (res != kSearchFound) return res;
    return replaceHit(*doc, s, hit, replacement);
}

}  // namespace

void selectHit(Document& doc, const DocumentHit& hit) {
    setCursor(doc, hit.end);
    if (hit.start == hit.end) clearSelection(doc);
    else setSelection(doc, hit.start, hit.end);
}

int replaceHit(Document& doc, const Searcher& s, const DocumentHit& hit, const char* replacement) {
    if (doc.readOnly) return kSearchError;
    const std::string text = replacementFor(s, replacement);
    std::string_view line = lineText(doc, hit.line);
    std::string after(line.substr(0, hit.offset));
    after += text;
    after.append(line.substr(hit.offset + hit.length));
    if (!fitsLines(after)) return kSearchError;
    if (text.empty()) {
        if (hit.start != hit.end && !deleteRange(doc, hit.start, hit.end)) return kSearchError;
        clearSelection(doc);
        setCursor(doc, hit.start);
        return kSearchFound;
    }
    if (!replaceRange(doc, hit.start, hit.end, text)) return kSearchError;
    setSelection(doc, hit.start, doc.cursor);
    return kSearchFound;
}

int replaceAll(Document& doc, Searcher& s, const char* replacement, ReplaceAllResult& result) {
    result = {};
    if (doc.readOnly || (!s.prog && s.pattern.empty())) return kSearchError;
    LineList& ll = doc.lines;
    int32_t first = -1, last = -1;
    LineRef lastRef = kNoLine;  // record of line `last`
    std::string rebuilt;  // the new text of lines first..last, CR LF between lines
    std::string current;
    LineRef r = ll.first;
    for (int32_t i = 0; i <= ll.lastIndex; ++i, r = ll.next(r)) {
        const std::string_view line = ll.text(r);
        size_t pos = 0;
        int hits = 0;
        current.clear();
        for (LineHit h; pos <= line.size();) {
            const int res = searchLine(s, line, pos, h);
            if (res == kSearchError) {
                result.stoppedAt = i;
                return kSearchError;
            }
            if (res != kSearchFound) break;
            current.append(line.substr(pos, h.offset - pos));
            current += replacementFor(s, replacement);
            ++hits;
            pos = h.offset + h.length;
            if (h.length == 0) {
                if (pos >= line.size()) break;
                current += line[pos++];
            }
        }
        if (hits == 0) continue;
        current.append(line.substr(std::min(pos, line.size())));
        if (!fitsLines(current)) {
            ++result.skippedLines;
            continue;
        }
        if (first < 0) {
            first = i;
        } else {
            // Unchanged lines between two changed ones join the span as they are.
            for (LineRef g = ll.next(lastRef); g != r; g = ll.next(g)) {
                rebuilt += "\r\n";
                rebuilt.append(ll.text(g));
            }
            rebuilt += "\r\n";
        }
        rebuilt += current;
        last = i;
        lastRef = r;
        result.replaced += hits;
    }
    if (first < 0) return kSearchNotFound;

    const Pos cursor = doc.cursor;
    const Pos from = makePos(0, first);
    const Pos to = makePos(lineWidthAt(doc, last), last);
    std::string removed;
    Pos end;
    if (!rawDelete(doc, from, to, &removed)) return kSearchError;
    if (!rawInsert(doc, from, rebuilt, &end)) {
        rawInsert(doc, from, removed, nullptr);
        return kSearchError;
    }
    EditRecord rec;
    rec.hasRange = true;
    rec.rangeStart = from;
    rec.rangeEnd = end;
    rec.at = from;
    rec.text = std::move(removed);
    recordEdit(doc, std::move(rec));
    clearSelection(doc);
    setCursor(doc, normalize(doc, cursor));
    return kSearchFound;
}

int findText(Document* doc, const char* text, int col, int32_t line, bool wholeWord, bool matchCase, bool regex,
             bool forward) {
    return findEntry(doc, text, col, line, {wholeWord, matchCase, regex, forward}, false);
}

int findTextInLine(Document* doc, const char* text, int col, int32_t line, bool wholeWord, bool matchCase,
                   bool regex, bool forward) {
    return findEntry(doc, text, col, line, {wholeWord, matchCase, regex, forward}, true);
}

int replaceText(Document* doc, const char* text, const char* replacement, int col, int32_t line, bool wholeWord,
                bool matchCase, bool regex, bool forward) {
    return replaceEntry(doc, text, replacement, col, line, {wholeWord, matchCase, regex, forward}, false);
}

int replaceTextInLine(Document* doc, const char* text, const char* replacement, int col, int32_t line,
                      bool wholeWord, bool matchCase, bool regex, bool forward) {
    return replaceEntry(doc, text, replacement, col, line, {wholeWord, matchCase, regex, forward}, true);
}

}  // namespace zol
