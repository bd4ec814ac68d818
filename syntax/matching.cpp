#include "syntax/matching.h"

#include <cctype>
#include <string>

#include "engine/columns.h"

namespace zol {
namespace {

constexpr size_t kMaxTagName = 19;

bool isLetter(char c) { return std::isalpha(static_cast<unsigned char>(c)); }
bool isBlank(char c) { return c == ' ' || c == '\t'; }
char lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

Pos posAt(const Document& doc, int32_t line, size_t offset) {
    return makePos(columnOfOffset(lineText(doc, line), offset), line);
}

// Walks the text from (line, offset) one character at a time, forwards or backwards,
// calling visit(text, offset) until it returns true. Returns the position it stopped at.
template <class Visit>
std::optional<Pos> walk(const Document& doc, int32_t line, size_t offset, bool forward, Visit visit) {
    const LineList& ll = doc.lines;
    LineRef r = ll.find(line);
    bool first = true;
    for (; r != kNoLine; r = forward ? ll.next(r) : ll.prev(r), line += forward ? 1 : -1, first = false) {
        const std::string_view s = ll.text(r);
        if (forward) {
            for (size_t k = first ? offset : 0; k < s.size(); ++k)
                if (visit(s, k)) return posAt(doc, line, k);
        } else {
            size_t k = first ? offset : s.size();  // one past the next candidate
            while (k-- > 0)
                if (visit(s, k)) return posAt(doc, line, k);
        }
    }
    return std::nullopt;
}

// The directive word of a line whose first non-blank character is "#"; null otherwise.
std::optional<std::string_view> directive(std::string_view s) {
    size_t i = 0;
    while (i < s.size() && isBlank(s[i])) ++i;
    if (i == s.size() || s[i] != '#') return std::nullopt;
    ++i;
    while (i < s.size() && isBlank(s[i])) ++i;
    return s.substr(i);
}

bool startsWith(std::string_view s, std::string_view p) { return s.substr(0, p.size()) == p; }

// Whether s holds text (compared without regard to case) at k.
bool hasAt(std::string_view s, size_t k, std::string_view text) {
    if (s.size() - k < text.size()) return false;
    for (size_t m = 0; m < text.size(); ++m)
        if (lower(s[k + m]) != lower(text[m])) return false;
    return true;
}

}  // namespace

std::optional<Pos> matchPair(const Document& doc, Pos at) {
    const std::string_view s = lineText(doc, at.line);
    const ColumnHit hit = locateColumn(s, at.col);
    if (hit.offset >= s.size() || hit.insideTab) return std::nullopt;
    const size_t off = hit.offset;
    const char c = s[off];
    const char next = off + 1 < s.size() ? s[off + 1] : 0;

    if (c == '/' && next == '*')
        return walk(doc, at.line, off + 2, true,
                    [](std::string_view t, size_t k) { return t[k] == '*' && k + 1 < t.size() && t[k + 1] == '/'; });
    if (c == '*' && next == '/')
        return walk(doc, at.line, off, false,
                    [](std::string_view t, size_t k) { return t[k] == '/' && k + 1 < t.size() && t[k + 1] == '*'; });

    static constexpr char kPairs[] = "()[]{}<>";
    const char* p = std::char_traits<char>::find(kPairs, 8, c);
    if (!p) return std::nullopt;
    const size_t idx = static_cast<size_t>(p - kPairs);
    const bool forward = idx % 2 == 0;
    const char partner = kPairs[forward ? idx + 1 : idx - 1];
    int depth = 0;
    return walk(doc, at.line, forward ? off + 1 : off, forward, [&](std::string_view t, size_t k) {
        if (t[k] == c) {
            ++depth;
        } else if (t[k] == partner) {
            if (depth == 0) return true;
            --depth;
        }
        return false;
    });
}

std::optional<int32_t> matchPreprocNext(const Document& doc, int32_t line) {
    const LineList& ll = doc.lines;
    LineRef r = ll.find(line);
    const auto here = directive(ll.text(r));
    if (!here || !(startsWith(*here, "if") || startsWith(*here, "else") || startsWith(*here, "elif")))
        return std::nullopt;
    int depth = 0;
    for (r = ll.next(r), ++line; r != kNoLine; r = ll.next(r), ++line) {
        const auto d = directive(ll.text(r));
        if (!d) continue;
        if (startsWith(*d, "if")) {
            ++depth;
        } else if (depth == 0) {
            if (startsWith(*d, "else") || startsWith(*d, "elif") || startsWith(*d, "endif")) return line;
        } else if (startsWith(*d, "endif")) {
            --depth;
        }
    }
    return std::nullopt;
}

std::optional<int32_t> matchPreprocPrev(const Document& doc, int32_t line) {
    const LineList& ll = doc.lines;
    LineRef r = ll.find(line);
    const auto here = directive(ll.text(r));
    if (!here || !(startsWith(*here, "endif") || startsWith(*here, "else") || startsWith(*here, "elif")))
        return std::nullopt;
    int depth = 0;
    for (r = ll.prev(r), --line; r != kNoLine; r = ll.prev(r), --line) {
        const auto d = directive(ll.text(r));
        if (!d) continue;
        if (startsWith(*d, "endif")) {
            ++depth;
        } else if (depth == 0) {
            if (startsWith(*d, "else") || startsWith(*d, "elif") || startsWith(*d, "if")) return line;
        } else if (startsWith(*d, "if")) {
            --depth;
        }
    }
    return std::nullopt;
}

std::optional<Pos> matchHtmlTag(const Document& doc, Pos at) {
    const std::string_view s = lineText(doc, at.line);
    size_t k = locateColumn(s, at.col).offset;
    if (k < s.size() && s[k] == '>') {
        if (k == 0) return std::nullopt;
        --k;
    }
    if (k >= s.size()) k = s.size() == 0 ? 0 : s.size() - 1;
    if (s.empty()) return std::nullopt;
    while (s[k] != '<' && s[k] != '>') {
        if (k == 0) return std::nullopt;
        --k;
    }
    if (s[k] != '<') return std::nullopt;
    const size_t tagStart = k;
    const bool closing = k + 1 < s.size() && s[k + 1] == '/';
    size_t n = k + (closing ? 2 : 1);
    const size_t nameStart = n;
    while (n < s.size() && isLetter(s[n]) && n - nameStart < kMaxTagName) ++n;
    const std::string name(s.substr(nameStart, n - nameStart));
    if (name.empty()) return std::nullopt;

    const std::string open = "<" + name;
    const std::string close = "</" + name;
    // After the name of an opening tag: ">" or white space, the line's end counting as such.
    auto endsTag = [](std::string_view t, size_t e) { return e == t.size() || t[e] == '>' || std::isspace(static_cast<unsigned char>(t[e])); };
    int depth = 0;
    if (!closing) {
        return walk(doc, at.line, n, true, [&](std::string_view t, size_t p) {
            if (t[p] != '<') return false;
            if (hasAt(t, p, close) && p + close.size() < t.size() && t[p + close.size()] == '>') {
                if (depth == 0) return true;
                --depth;
            } else if (hasAt(t, p, open) && endsTag(t, p + open.size())) {
                ++depth;
            }
            return false;
        });
    }
    return walk(doc, at.line, tagStart, false, [&](std::string_view t, size_t p) {
        if (t[p] != '<') return false;
        if (hasAt(t, p, close) && endsTag(t, p + close.size())) {
            ++depth;
        } else if (hasAt(t, p, open) && (p + open.size() == t.size() || !isLetter(t[p + open.size()]))) {
            if (depth == 0) return true;
            --depth;
        }
        return false;
    });
}

}  // namespace zol
