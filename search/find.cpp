#include "search/find.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <new>

#include "engine/columns.h"
#include "engine/document.h"
#include "engine/case_map.h"
#include "search/literal_scan.h"

namespace zol {
namespace {

// Read by the find-in-files workers while the window thread may change it.
std::atomic<int> wordMode = 0;

bool asciiAlnum(char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

void lowerInto(std::string& out, std::string_view in) {
    out.resize(in.size());
    for (size_t i = 0; i < in.size(); ++i) out[i] = cpLower(in[i]);
}

bool wholeWordAt(std::string_view line, size_t offset, size_t length) {
    if (offset > 0 && isSearchWordChar(line[offset - 1])) return false;
    return offset + length >= line.size() || !isSearchWordChar(line[offset + length]);
}

// Plain text: the first occurrence at or after start, or the nearest one ending at
// or before it.
int plainSearch(const Searcher& s, std::string_view hay, std::string_view line, size_t start, LineHit& hit) {
    const std::string& pat = s.pattern;
    if (s.options.forward) {
        for (size_t from = start; from <= hay.size();) {
            const size_t at = hay.find(pat, from);
            if (at == std::string_view::npos) return kSearchNotFound;
            if (!s.options.wholeWord || wholeWordAt(line, at, pat.size())) {
                hit = {at, pat.size()};
                return kSearchFound;
            }
            from = at + 1;
        }
        return kSearchNotFound;
    }
    start = std::min(start, hay.size());
    if (start < pat.size()) return kSearchNotFound;
    for (size_t last = start - pat.size();;) {
        const size_t at = hay.rfind(pat, last);
        if (at == std::string_view::npos) return kSearchNotFound;
        if (!s.options.wholeWord || wholeWordAt(line, at, pat.size())) {
            hit = {at, pat.size()};
            return kSearchFound;
        }
        if (at == 0) return kSearchNotFound;
        last = at - 1;
    }
}

// Moves the program's groups from the folded copy onto the line itself, so that a
// substitution inserts the text as it stands.
void rebaseGroups(RegexProgram& prog, const char* from, const char* to) {
    for (int i = 0; i < kRegexGroups; ++i) {
        if (prog.groupStart[i]) prog.groupStart[i] = to + (prog.groupStart[i] - from);
        if (prog.groupEnd[i]) prog.groupEnd[i] = to + (prog.groupEnd[i] - from);
    }
}

int regexSearch(Searcher& s, const char* hay, std::string_view line, size_t start, LineHit& hit) {
    RegexProgram& prog = *s.prog;
    const size_t len = line.size();
    // After a run that matched: keeps the match when the whole-word rule allows it.
    auto accept = [&](size_t& at) {
        at = static_cast<size_t>(prog.groupStart[0] - hay);
        const size_t n = static_cast<size_t>(prog.groupEnd[0] - prog.groupStart[0]);
        if (s.options.wholeWord && !wholeWordAt(line, at, n)) return false;
        rebaseGroups(prog, hay, line.data());
        hit = {at, n};
        return true;
    };
    auto noMatch = [&] {
        s.gaveUp = prog.gaveUp;
        return prog.gaveUp ? kSearchError : kSearchNotFound;
    };
    size_t at = 0;
    if (s.options.forward) {
        for (size_t from = std::min(start, len);;) {
            if (!regexExecute(&prog, hay + from, len - from, nullptr, false, from == 0)) return noMatch();
            if (accept(at)) return kSearchFound;
            if (at >= len) return kSearchNotFound;
            from = at + 1;
        }
    }
    const char* limit = start >= len ? nullptr : hay + start;
    for (;;) {
        if (limit == hay || !regexExecute(&prog, hay, len, limit, true, true)) return noMatch();
        if (accept(at)) return kSearchFound;
        limit = hay + at;
    }
}

}  // namespace

int wordCharMode() { return wordMode; }
void setWordCharMode(int mode) {
    if (mode >= 0 && mode <= 3) wordMode = mode;
}

bool isSearchWordChar(char c) {
    if (c == '_') return true;
    switch (wordMode) {
        case 0: return asciiAlnum(c);
        case 1: return (c >= '0' && c <= '9') || cpIsLetter(c);
        default: return cpIsLetter(c);
    }
}

int prepareSearch(Searcher& s, const char* text, const SearchOptions& opt, size_t cut) {
    s.options = opt;
    s.prog.reset();
    s.regexError = 0;
    s.gaveUp = false;
    if (!text || !*text) return kSearchError;
    std::string_view t(text, strnlen(text, cut));
    if (opt.matchCase) s.pattern.assign(t);
    else lowerInto(s.pattern, t);
    if (opt.regex) {
        s.prog = regexCompile(s.pattern.c_str(), &s.regexError);
        if (!s.prog) return kSearchError;
    }
    return kSearchFound;
}

int searchLine(Searcher& s, std::string_view line, size_t start, LineHit& hit) {
    const char* hay = line.data();
    if (!s.options.matchCase) {
        lowerInto(s.folded, line);
        hay = s.folded.c_str();
    }
    if (s.prog) return regexSearch(s, hay, line, start, hit);
    return plainSearch(s, std::string_view(hay, line.size()), line, start, hit);
}

bool lineCanHold(const Searcher& s, std::string_view line) {
    if (!s.options.matchCase) return true;
    if (!s.prog) return findLiteral(line.data(), line.size(), s.pattern.data(), s.pattern.size());
    const RegexProgram& p = *s.prog;
    if (p.required && !findLiteral(line.data(), line.size(), p.required, p.requiredLength)) return false;
    return !p.lead.first || findLead(line.data(), line.size(), p.lead);
}

int searchDocument(const Document& doc, Searcher& s, Pos from, bool oneLine, DocumentHit& hit) {
    const LineList& ll = doc.lines;
    if (from.line < 0 || from.line > ll.lastIndex) return kSearchError;
    const bool forward = s.options.forward;
    LineRef r = ll.find(from.line);
    int col = std::max<int>(from.col, 0);
    for (int32_t line = from.line;;) {
        const std::string_view text = ll.text(r);
        LineHit h;
        const int res = lineCanHold(s, text) ? searchLine(s, text, locateColumn(text, col).offset, h) : kSearchNotFound;
        if (res == kSearchFound) {
            hit.line = line;
            hit.offset = h.offset;
            hit.length = h.length;
            hit.start = makePos(columnOfOffset(text, h.offset), line);
            hit.end = makePos(columnOfOffset(text, h.offset + h.length), line);
            return res;
        }
        if (res < kSearchNotFound || oneLine) {
            hit.line = line;
            return res;
        }
        if (forward ? line >= ll.lastIndex : line <= 0) return res;
        line += forward ? 1 : -1;
        r = forward ? ll.next(r) : ll.prev(r);
        col = forward ? 0 : kSearchLineEndColumn;
    }
}

std::string replacementFor(const Searcher& s, const char* replacement) {
    if (!replacement) return {};
    if (!s.prog) return replacement;
    std::string out(static_cast<size_t>(kMaxColumns) + 1, '\0');
    regexSubstitute(s.prog.get(), replacement, out.data(), out.size());
    out.resize(std::strlen(out.c_str()));
    return out;
}

int findInString(const char* text, const char* pattern, bool wholeWord, bool matchCase, bool regex, int* pos,
                 int* len) {
    if (!text || !pattern || !pos || !len) return kSearchError;
    *pos = 0;
    *len = 0;
    Searcher s;
    SearchOptions opt{wholeWord, matchCase, regex, true};
    if (!*pattern) return kSearchNotFound;
    if (prepareSearch(s, pattern, opt, kMaxStringSearchText) != kSearchFound) return kSearchError;
    std::string copy;
    const char* hay = text;
    if (!matchCase) {
        lowerInto(copy, text);
        hay = copy.c_str();
    }
    if (regex) {
        if (!regexExecute(s.prog.get(), hay, nullptr, false, true)) return s.prog->gaveUp ? kSearchError : kSearchNotFound;
        // Only outputs that already hold a value are written; they were just cleared.
        if (*pos) *pos = static_cast<int>(s.prog->groupStart[0] - hay);
        if (*len) *len = static_cast<int>(s.prog->groupEnd[0] - s.prog->groupStart[0]);
        return kSearchFound;
    }
    const std::string_view line(text);
    LineHit h;
    if (plainSearch(s, std::string_view(hay, line.size()), line, 0, h) != kSearchFound) return kSearchNotFound;
    *pos = static_cast<int>(h.offset);
    *len = static_cast<int>(h.length);
    return kSearchFound;
}

}  // namespace zol
