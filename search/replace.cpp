#include "search/replace.h"

#include <algorithm>
#include <vector>

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
    struct Change {
        LineRef ref;
        std::string text;
    };
    std::vector<Change> changes;
    int32_t first = -1, last = -1;
    bool breaksLines = false;  // some new text holds a line end
    const std::string fixed = s.prog ? std::string() : replacementFor(s, replacement);
    LineRef r = ll.first;
    for (int32_t i = 0; i <= ll.lastIndex; ++i, r = ll.next(r)) {
        const std::string_view line = ll.text(r);
        size_t pos = 0;
        int hits = 0;
        std::string current;
        for (LineHit h; pos <= line.size();) {
            const int res = searchLine(s, line, pos, h);
            if (res == kSearchError) {
                result.stoppedAt = i;
                return kSearchError;
            }
            if (res != kSearchFound) break;
            current.append(line.substr(pos, h.offset - pos));
            current += s.prog ? replacementFor(s, replacement) : fixed;
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
        if (first < 0) first = i;
        last = i;
        breaksLines = breaksLines || current.find_first_of("\r\n") != std::string::npos;
        changes.push_back({r, std::move(current)});
        result.replaced += hits;
    }
    if (first < 0) return kSearchNotFound;

    // The old text of lines first..last is what the one undo record puts back.
    std::string removed;
    LineRef firstRef = changes.front().ref;
    for (LineRef g = firstRef;; g = ll.next(g)) {
        removed.append(ll.text(g));
        if (g == changes.back().ref) break;
        removed += "\r\n";
    }
    const Pos cursor = doc.cursor;
    const Pos from = makePos(0, first);
    EditRecord rec;
    rec.hasRange = true;
    rec.rangeStart = from;
    rec.at = from;
    if (!breaksLines) {
        // Same line count: rewrite the changed lines where they are.
        for (Change& c : changes) ll.setText(c.ref, c.text);
        notifyChanged(doc, first, last - first, last - first);
        rec.rangeEnd = makePos(lineWidthAt(doc, last), last);
    } else {
        std::string rebuilt;
        size_t next = 0;
        for (LineRef g = firstRef;; g = ll.next(g)) {
            if (next < changes.size() && changes[next].ref == g) rebuilt += changes[next++].text;
            else rebuilt.append(ll.text(g));
            if (g == changes.back().ref) break;
            rebuilt += "\r\n";
        }
        const Pos to = makePos(lineWidthAt(doc, last), last);
        if (!rawDelete(doc, from, to, nullptr)) return kSearchError;
        if (!rawInsert(doc, from, rebuilt, &rec.rangeEnd)) {
            rawInsert(doc, from, removed, nullptr);
            return kSearchError;
        }
    }
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
