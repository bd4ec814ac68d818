#include "tests/soak/lib/soak_check.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "engine/columns.h"
#include "engine/line_capacity.h"
#include "engine/options.h"

namespace zol::soak {
namespace {

std::string at(const char* what, int64_t index) { return std::string(what) + " " + std::to_string(index); }

bool inside(const Document& doc, Pos p) {
    return p.line >= 0 && p.line <= doc.lines.lastIndex && p.col >= 0 && p.col <= kMaxColumns;
}

std::string pos(Pos p) { return std::to_string(p.col) + "," + std::to_string(p.line); }

// Lines of a text, split at "\n".
std::vector<std::string_view> rows(std::string_view text) {
    std::vector<std::string_view> out;
    for (size_t start = 0;;) {
        const size_t end = text.find('\n', start);
        out.push_back(text.substr(start, end == std::string_view::npos ? end : end - start));
        if (end == std::string_view::npos) return out;
        start = end + 1;
    }
}

std::string listOf(const std::vector<int32_t>& v) {
    std::string s = "[";
    for (size_t i = 0; i < v.size() && i < 12; ++i) s += (i ? " " : "") + std::to_string(v[i]);
    return s + (v.size() > 12 ? " ...]" : "]");
}

}  // namespace

std::string printable(std::string_view text, size_t max) {
    std::string out = "\"";
    for (size_t i = 0; i < text.size() && i < max; ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (c == '\t') out += "\\t";
        else if (c == '"' || c == '\\') out += std::string("\\") + static_cast<char>(c);
        else if (c >= 32 && c < 127) out += static_cast<char>(c);
        else {
            char hex[8];
            std::snprintf(hex, sizeof hex, "\\x%02X", c);
            out += hex;
        }
    }
    out += text.size() > max ? "\"..." : "\"";
    return out;
}

std::string checkLineList(const LineList& ll) {
    if (ll.first == kNoLine) return "the list has no first line";
    if (ll.lastIndex < 0) return at("last line index is", ll.lastIndex);
    if (ll.prev(ll.first) != kNoLine) return "the first line has a line before it";
    std::vector<LineRef> refs;
    refs.reserve(static_cast<size_t>(ll.lastIndex) + 1);
    for (LineRef r = ll.first, before = kNoLine; r != kNoLine; before = r, r = ll.next(r)) {
        const auto index = static_cast<int64_t>(refs.size());
        if (index > ll.lastIndex) return at("the list runs on past its last line index", ll.lastIndex);
        if (ll.prev(r) != before) return at("the backward link is broken at line", index);
        const LineHeader& h = ll.header(r);
        if (ll.cstr(r)[h.len] != '\0') return at("no terminating zero after the text of line", index);
        if (h.bookmark > 1) return at("a bookmark byte other than 0 or 1 on line", index);
        refs.push_back(r);
    }
    if (static_cast<int64_t>(refs.size()) != ll.lastIndex + 1)
        return "the list holds " + std::to_string(refs.size()) + " lines but says " + std::to_string(ll.lastIndex + 1);
    if (ll.currentIndex < 0 || ll.currentIndex > ll.lastIndex) return at("current index out of the list:", ll.currentIndex);
    if (refs[static_cast<size_t>(ll.currentIndex)] != ll.current)
        return at("the cached current record is not line", ll.currentIndex);
    if (ll.seen != kNoLine) {
        if (ll.seenIndex < 0 || ll.seenIndex > ll.lastIndex) return at("last-found index out of the list:", ll.seenIndex);
        if (refs[static_cast<size_t>(ll.seenIndex)] != ll.seen)
            return at("the cached last-found record is not line", ll.seenIndex);
    }
    return {};
}

std::string checkLineTexts(const LineList& ll, int32_t first, int32_t last) {
    first = std::max(first, 0);
    last = std::min(last, ll.lastIndex);
    if (first > last) return {};
    LineRef r = ll.find(first);
    for (int32_t i = first; i <= last; ++i, r = ll.next(r)) {
        const std::string_view t = ll.text(r);
        if (t.size() > static_cast<size_t>(kMaxLineBytes)) return at("more bytes than a line may hold on line", i);
        if (std::memchr(t.data(), '\0', t.size())) return at("a NUL inside line", i);
        if (t.find_first_of("\r\n") != std::string_view::npos) return at("a line end inside line", i);
        const int width = lineWidth(t);
        if (width > kMaxColumns) return at("line", i) + " is " + std::to_string(width) + " columns wide";
    }
    return {};
}

std::string checkCursorAndSelection(const Document& doc) {
    if (!inside(doc, doc.cursor)) return "cursor outside the text at " + pos(doc.cursor);
    if (doc.cursor.line != doc.lines.currentIndex)
        return "cursor on line " + std::to_string(doc.cursor.line) + " but the current record is line " +
               std::to_string(doc.lines.currentIndex);
    if (!doc.selExists) return {};
    if (!inside(doc, doc.selAnchor) || !inside(doc, doc.selEnd))
        return "selection outside the text: " + pos(doc.selAnchor) + " to " + pos(doc.selEnd);
    if (doc.selAnchor == doc.selEnd) return "a selection whose two ends are both " + pos(doc.selEnd);
    return {};
}

std::string checkNamedBookmarks(const NamedBookmarks& list, const Document& doc) {
    if (list.entries.size() > static_cast<size_t>(kMaxNamedBookmarks)) return "more named bookmarks than the list holds";
    for (size_t i = 0; i < list.entries.size(); ++i) {
        const NamedBookmark& b = list.entries[i];
        for (size_t j = 0; j < i; ++j)
            if (list.entries[j].name == b.name) return "two named bookmarks called " + b.name;
        if (b.doc == &doc && !inside(doc, b.pos)) return "named bookmark " + b.name + " points past the text: " + pos(b.pos);
    }
    return {};
}

Snapshot snapshotOf(const Document& doc) {
    Snapshot s;
    int32_t i = 0;
    for (LineRef r = doc.lines.first; r != kNoLine; r = doc.lines.next(r), ++i) {
        if (i) s.text += '\n';
        s.text += doc.lines.text(r);
        if (doc.lines.header(r).bookmark) s.bookmarks.push_back(i);
    }
    return s;
}

std::string difference(const Snapshot& want, const Snapshot& got, Bookmarks bookmarks) {
    if (want.text != got.text) {
        const std::vector<std::string_view> a = rows(want.text), b = rows(got.text);
        size_t i = 0;
        while (i < a.size() && i < b.size() && a[i] == b[i]) ++i;
        std::string s = "the text differs from line " + std::to_string(i) + " on (" + std::to_string(a.size()) +
                        " lines expected, " + std::to_string(b.size()) + " found)";
        // Both lines from a little before the first byte that differs.
        size_t k = 0;
        if (i < a.size() && i < b.size())
            while (k < a[i].size() && k < b[i].size() && a[i][k] == b[i][k]) ++k;
        const size_t from = k > 20 ? k - 20 : 0;
        if (from > 0) s += ", byte " + std::to_string(k) + " on";
        s += "\n  expected: " + (i < a.size() ? printable(a[i].substr(std::min(from, a[i].size()))) : std::string("(no line)"));
        s += "\n  found:    " + (i < b.size() ? printable(b[i].substr(std::min(from, b[i].size()))) : std::string("(no line)"));
        return s;
    }
    const bool differ = bookmarks == Bookmarks::Equal ? want.bookmarks != got.bookmarks
                        : bookmarks == Bookmarks::NoneNew
                            ? !std::includes(want.bookmarks.begin(), want.bookmarks.end(), got.bookmarks.begin(),
                                             got.bookmarks.end())
                            : false;
    if (differ)
        return "bookmarked lines differ: expected " + listOf(want.bookmarks) + ", found " + listOf(got.bookmarks);
    return {};
}

}  // namespace zol::soak
