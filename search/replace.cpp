#include "search/replace.h"

#include <algorithm>
#include <memory>
#include <new>
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

// Where a scope ends, counted from the end of the text: edits inside the scope leave
// these distances as they are.
struct ScopeEnd {
    int32_t linesBelow = 0;  // lines after the scope's last line
    size_t bytesAfter = 0;   // bytes of that line after the scope's end (character scope)
};

ScopeEnd scopeEnd(const Document& doc, const ReplaceScope& sc) {
    const int32_t last = std::clamp(sc.to.line, 0, lastLine(doc));
    const std::string_view text = lineText(doc, last);
    return {lastLine(doc) - last, text.size() - locateColumn(text, sc.to.col).offset};
}

Pos endOf(const Document& doc, const ReplaceScope& sc, const ScopeEnd& end) {
    const int32_t line = std::max(lastLine(doc) - end.linesBelow, 0);
    if (sc.column) return makePos(sc.right, line);
    const std::string_view text = lineText(doc, line);
    return makePos(columnOfOffset(text, text.size() - std::min(end.bytesAfter, text.size())), line);
}

// The bytes [lo, hi) of line i that the scope covers.
void spanOf(const ReplaceScope& sc, int32_t i, std::string_view line, size_t& lo, size_t& hi) {
    lo = sc.column ? locateColumn(line, sc.left).offset : 0;
    hi = sc.column ? locateColumn(line, sc.right).offset : line.size();
    if (i == sc.from.line) lo = std::max(lo, locateColumn(line, sc.from.col).offset);
    if (!sc.column && i == sc.to.line) hi = locateColumn(line, sc.to.col).offset;
    hi = std::max(lo, hi);
}

// After a replacement in the selection: the same stretch of text selected again.
void reselect(Document& doc, const ReplaceScope& sc, const ScopeEnd& end) {
    const Pos to = endOf(doc, sc, end);
    doc.selMode = sc.column ? SelMode::Column : SelMode::Char;
    setSelection(doc, sc.from, to);
    setCursor(doc, to);
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

ReplaceScope wholeDocumentScope(const Document& doc) {
    ReplaceScope scope;
    scope.to = makePos(lineWidthAt(doc, lastLine(doc)), lastLine(doc));
    return scope;
}

bool selectionScope(const Document& doc, ReplaceScope& scope) {
    if (!hasSelection(doc)) return false;
    scope = {};
    scope.selection = true;
    selectionRange(doc, scope.from, scope.to);
    if (isColumnSelection(doc)) {
        scope.column = true;
        scope.left = selLeftCol(doc);
        scope.right = selRightCol(doc);
        scope.from.col = scope.left;
        scope.to.col = scope.right;
    }
    return true;
}

int replaceInSpan(Searcher& s, std::string_view line, size_t lo, size_t hi, const char* replacement,
                  std::string& out) {
    hi = std::min(hi, line.size());
    lo = std::min(lo, hi);
    // The search must not see past hi: it gets a copy that ends there.
    std::string cut;
    std::string_view view = line;
    if (hi < line.size()) {
        cut.assign(line.substr(0, hi));
        view = cut;
    }
    out.assign(line.substr(0, lo));
    const std::string fixed = s.prog ? std::string() : replacementFor(s, replacement);
    char expanded[kMaxColumns + 1];  // a longer replacement could not fit the line anyway
    size_t pos = lo;
    int hits = 0;
    for (LineHit h; pos <= view.size();) {
        const int res = searchLine(s, view, pos, h);
        if (res == kSearchError) return kSearchError;
        if (res != kSearchFound) break;
        out.append(view.substr(pos, h.offset - pos));
        if (s.prog) {
            regexSubstitute(s.prog.get(), replacement ? replacement : "", expanded, sizeof expanded);
            out.append(expanded);
        } else {
            out += fixed;
        }
        ++hits;
        pos = h.offset + h.length;
        if (h.length == 0) {
            if (pos >= view.size()) break;
            out += view[pos++];
        }
    }
    out.append(view.substr(std::min(pos, view.size())));
    out.append(line.substr(hi));
    return hits;
}

namespace {

// Runs the replacement over every line of the scope and hands each line whose text
// changes, and fits, to `take` (index, record, old text, new text), which returns the
// line's record afterwards. Returns kSearchError when a regular expression gave up.
template <class Take>
int eachReplacedLine(Document& doc, Searcher& s, const char* replacement, const ReplaceScope& sc,
                     ReplaceAllResult& result, Take&& take) {
    LineList& ll = doc.lines;
    std::string current;
    LineRef r = ll.find(std::max(sc.from.line, 0));
    for (int32_t i = std::max(sc.from.line, 0); i <= std::min(sc.to.line, ll.lastIndex); ++i, r = ll.next(r)) {
        const std::string_view line = ll.text(r);
        if (!lineCanHold(s, line)) continue;
        size_t lo, hi;
        spanOf(sc, i, line, lo, hi);
        const int hits = replaceInSpan(s, line, lo, hi, replacement, current);
        if (hits == kSearchError) {
            result.stoppedAt = i;
            return kSearchError;
        }
        if (hits == 0) continue;
        if (!fitsLines(current)) {
            ++result.skippedLines;
            continue;
        }
        result.replaced += hits;
        r = take(i, r, line, current);
        if (r == kNoLine) return kSearchNotFound;
    }
    return kSearchFound;
}

// The replace-all for replacements that hold line ends: the stretch from the first to
// the last changed line is deleted and inserted anew, and its old text is what the
// one undo record puts back.
int replaceAllBreakingLines(Document& doc, Searcher& s, const char* replacement, const ReplaceScope& sc,
                            ReplaceAllResult& result) {
    LineList& ll = doc.lines;
    struct Change {
        LineRef ref;
        std::string text;
    };
    std::vector<Change> changes;
    int32_t first = -1, last = -1;
    const int res = eachReplacedLine(doc, s, replacement, sc, result,
                                     [&](int32_t i, LineRef r, std::string_view, std::string& now) {
                                         if (first < 0) first = i;
                                         last = i;
                                         changes.push_back({r, now});
                                         return r;
                                     });
    if (res == kSearchError) return kSearchError;
    if (first < 0) return kSearchNotFound;
    std::string removed, rebuilt;
    size_t next = 0;
    for (LineRef g = changes.front().ref;; g = ll.next(g)) {
        removed.append(ll.text(g));
        if (next < changes.size() && changes[next].ref == g) rebuilt += changes[next++].text;
        else rebuilt.append(ll.text(g));
        if (g == changes.back().ref) break;
        removed += "\r\n";
        rebuilt += "\r\n";
    }
    EditRecord rec;
    rec.hasRange = true;
    rec.rangeStart = rec.at = makePos(0, first);
    const Pos to = makePos(lineWidthAt(doc, last), last);
    if (!rawDelete(doc, rec.at, to, nullptr)) return kSearchError;
    if (!rawInsert(doc, rec.at, rebuilt, &rec.rangeEnd)) {
        rawInsert(doc, rec.at, removed, nullptr);
        return kSearchError;
    }
    rec.text = std::move(removed);
    recordEdit(doc, std::move(rec));
    return kSearchFound;
}

// Puts the old texts back after a replace-all that cannot finish in place. The
// listeners were not told of the change, so they need not hear of its undoing.
void undoInPlace(Document& doc, const LinePatches& old) {
    if (!old.lines.empty()) swapLineTexts(doc, old);
}

}  // namespace

int replaceAll(Document& doc, Searcher& s, const char* replacement, ReplaceAllResult& result,
               const ReplaceScope* scope) {
    result = {};
    if (doc.readOnly || (!s.prog && s.pattern.empty())) return kSearchError;
    const ReplaceScope whole = wholeDocumentScope(doc);
    const ReplaceScope& sc = scope ? *scope : whole;
    const ScopeEnd end = scopeEnd(doc, sc);
    const Pos cursor = doc.cursor;
    // Lines are rewritten where they are as the scan goes; only their old texts are
    // kept, for the one undo record. A new text with a line end changes the line
    // count, and the rewriting starts over on the path that handles that.
    auto old = std::make_shared<LinePatches>();
    bool breaks = false;
    int res;
    try {
        res = eachReplacedLine(doc, s, replacement, sc, result,
                               [&](int32_t i, LineRef r, std::string_view was, std::string& now) {
                                   if (now.find_first_of("\r\n") != std::string::npos) {
                                       breaks = true;
                                       return kNoLine;
                                   }
                                   old->add(i, was);
                                   return doc.lines.setText(r, now);
                               });
    } catch (const std::bad_alloc&) {
        res = kSearchError;
    }
    if (res == kSearchError || breaks) undoInPlace(doc, *old);
    if (res == kSearchError) return kSearchError;
    if (breaks) {
        result = {};
        res = replaceAllBreakingLines(doc, s, replacement, sc, result);
        if (res != kSearchFound) return res;
    } else {
        if (old->lines.empty()) return kSearchNotFound;
        const int32_t first = old->lines.front(), last = old->lines.back();
        notifyChanged(doc, first, last - first, last - first);
        EditRecord rec;
        rec.patches = std::move(old);
        recordEdit(doc, std::move(rec));
    }
    clearSelection(doc);
    setCursor(doc, normalize(doc, cursor));
    if (sc.selection) reselect(doc, sc, end);
    return kSearchFound;
}

int replacePrompted(Document& doc, Searcher& s, const char* replacement, const ReplaceScope& scope,
                    const ReplaceAskFn& ask, ReplaceAllResult& result) {
    result = {};
    if (doc.readOnly || (!s.prog && s.pattern.empty())) return kSearchError;
    const ScopeEnd end = scopeEnd(doc, scope);
    ReplaceScope sc = scope;
    int32_t line = sc.from.line;
    size_t offset = 0;
    while (line <= lastLine(doc) - end.linesBelow) {
        sc.to = endOf(doc, sc, end);
        const std::string_view text = lineText(doc, line);
        size_t lo, hi;
        spanOf(sc, line, text, lo, hi);
        const std::string cut(text.substr(0, hi));
        LineHit h;
        const int res = offset > hi ? kSearchNotFound : searchLine(s, cut, std::max(lo, offset), h);
        if (res == kSearchError) {
            result.stoppedAt = line;
            return kSearchError;
        }
        if (res != kSearchFound) {
            ++line;
            offset = 0;
            continue;
        }
        DocumentHit hit{line, h.offset, h.length, makePos(columnOfOffset(text, h.offset), line),
                        makePos(columnOfOffset(text, h.offset + h.length), line)};
        selectHit(doc, hit);
        const ReplacePromptAnswer answer = ask(doc);
        if (answer == ReplacePromptAnswer::Cancel) break;
        if (answer == ReplacePromptAnswer::All) {
            ReplaceScope rest = sc;
            rest.from = hit.start;
            ReplaceAllResult more;
            const int done = replaceAll(doc, s, replacement, more, &rest);
            result.replaced += more.replaced;
            result.skippedLines += more.skippedLines;
            if (done == kSearchError) {
                result.stoppedAt = more.stoppedAt;
                return kSearchError;
            }
            break;
        }
        offset = h.offset + std::max<size_t>(h.length, 1);
        if (answer == ReplacePromptAnswer::No) continue;
        // The groups of the hit point into `cut`, which still holds the line.
        if (replaceHit(doc, s, hit, replacement) != kSearchFound) {
            ++result.skippedLines;
            continue;
        }
        ++result.replaced;
        line = doc.cursor.line;
        offset = locateColumn(lineText(doc, line), doc.cursor.col).offset + (h.length == 0 ? 1 : 0);
    }
    if (scope.selection) reselect(doc, scope, end);
    return result.replaced > 0 ? kSearchFound : kSearchNotFound;
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
