#include "tests/engine/case_file.h"

#include <algorithm>
#include <cctype>
#include <fstream>

#include "engine/bookmarks.h"
#include "engine/columns.h"
#include "engine/selection.h"
#include "tests/support/documents.h"

namespace zol::test {
namespace {

constexpr std::string_view kCursor = "‸", kOpen = "⟦", kClose = "⟧", kOpenColumn = "⟪", kCloseColumn = "⟫";
constexpr std::string_view kBlank = "·", kTab = "→", kTabFill = "─", kLineEnd = "↵";
constexpr std::string_view kByteOpen = "«", kByteClose = "»";

// Marks at one column are written in this order: ⟧‸⟦.
enum class Mark { Close, Cursor, Open };
struct Placed {
    Mark mark;
    int col;
    bool column;  // a bracket of a column selection
};

constexpr Placed kMarks[] = {{Mark::Cursor, 0, false}, {Mark::Open, 0, false}, {Mark::Close, 0, false},
                              {Mark::Open, 0, true}, {Mark::Close, 0, true}};

// How a mark is written; a cursor is one whatever the selection's kind.
std::string_view markText(const Placed& p) {
    if (p.mark == Mark::Cursor) return kCursor;
    if (p.mark == Mark::Open) return p.column ? kOpenColumn : kOpen;
    return p.column ? kCloseColumn : kClose;
}

bool take(std::string_view& s, std::string_view token) {
    if (!s.starts_with(token)) return false;
    s.remove_prefix(token.size());
    return true;
}

std::optional<Placed> takeMark(std::string_view& s) {
    for (const Placed& m : kMarks)
        if (take(s, markText(m))) return m;
    return std::nullopt;
}

bool printable(char c) { return c >= 0x20 && c < 0x7F; }

// "«E9»" at the front of s, removed.
std::optional<char> takeByte(std::string_view& s, std::string& error) {
    std::string_view t = s.substr(kByteOpen.size());
    if (t.size() < 2 || !std::isxdigit(static_cast<unsigned char>(t[0])) ||
        !std::isxdigit(static_cast<unsigned char>(t[1])) || !t.substr(2).starts_with(kByteClose)) {
        error = "a byte is written «XX» with two hex digits";
        return std::nullopt;
    }
    s = t.substr(2 + kByteClose.size());
    return static_cast<char>(std::stoi(std::string(t.substr(0, 2)), nullptr, 16));
}

std::string visibleByte(char c) {
    if (printable(c)) return std::string(1, c);
    static const char digits[] = "0123456789ABCDEF";
    const auto b = static_cast<unsigned char>(c);
    return std::string(kByteOpen) + digits[b >> 4] + digits[b & 15] + std::string(kByteClose);
}

// One text character of the notation at the front of s, removed: "·", "→", "«XX»" or
// printable ASCII. Raw blanks count as text here.
std::optional<char> takeChar(std::string_view& s, std::string& error) {
    if (take(s, kBlank)) return ' ';
    if (take(s, kTab)) return '\t';
    if (s.starts_with(kByteOpen)) return takeByte(s, error);
    if (printable(s[0])) {
        const char c = s[0];
        s.remove_prefix(1);
        return c;
    }
    error = "\"" + std::string(s.substr(0, 3)) + "\" is no text: write bytes outside printable ASCII as «XX»";
    return std::nullopt;
}

struct LineParse {
    std::string text;
    std::vector<Placed> marks;
    int col = 0;
};

// Raw blanks followed by nothing but blanks and marks are columns beyond the line's end.
bool onlyVirtual(std::string_view rest) {
    while (!rest.empty())
        if (!take(rest, " ") && !takeMark(rest)) return false;
    return true;
}

// After "→" a run of "─" may spell out the tab's other columns, so that a mark can
// stand inside it; without the run, marks stand after the tab.
bool takeTabFill(std::string_view& s, LineParse& out, int tabStart, int width, std::string& error) {
    std::string_view run = s;
    std::vector<Placed> marks;
    int fills = 0;
    for (;;) {
        if (take(run, kTabFill)) {
            ++fills;
        } else if (auto m = takeMark(run)) {
            m->col = tabStart + 1 + fills;
            marks.push_back(*m);
        } else {
            break;
        }
    }
    if (fills == 0) return true;
    if (fills != width - 1) {
        error = "the tab at column " + std::to_string(tabStart) + " spans " + std::to_string(width) +
                " columns: write → and " + std::to_string(width - 1) + " ─";
        return false;
    }
    out.marks.insert(out.marks.end(), marks.begin(), marks.end());
    s = run;
    return true;
}

bool parseLine(std::string_view s, int tabSize, LineParse& out, std::string& error) {
    while (!s.empty()) {
        if (auto m = takeMark(s)) {
            m->col = out.col;
            out.marks.push_back(*m);
            continue;
        }
        if (s[0] == ' ' && onlyVirtual(s)) {
            s.remove_prefix(1);
            ++out.col;
            continue;
        }
        const std::optional<char> c = takeChar(s, error);
        if (!c) return false;
        const int start = out.col;
        out.text += *c;
        out.col = advanceColumn(*c, start, tabSize);
        if (*c == '\t' && !takeTabFill(s, out, start, out.col - start, error)) return false;
    }
    return true;
}

bool takeSelection(MarkedText& m, const std::vector<std::pair<Placed, int32_t>>& brackets, std::string& error) {
    if (brackets.empty()) return true;
    const auto& [open, openLine] = brackets.front();
    const auto& [close, closeLine] = brackets.back();
    if (brackets.size() != 2 || open.mark != Mark::Open || close.mark != Mark::Close || open.column != close.column) {
        error = "a selection is one ⟦…⟧ or ⟪…⟫ pair, opened first";
        return false;
    }
    m.selExists = true;
    m.selMode = open.column ? SelMode::Column : SelMode::Char;
    m.selBegin = makePos(open.col, openLine);
    m.selEnd = makePos(close.col, closeLine);
    return true;
}

std::string renderLine(std::string_view text, std::vector<Placed> marks, int tabSize) {
    std::sort(marks.begin(), marks.end(), [](const Placed& a, const Placed& b) {
        return a.col != b.col ? a.col < b.col : a.mark < b.mark;
    });
    std::string out;
    size_t next = 0;
    auto marksAt = [&](int col) {
        while (next < marks.size() && marks[next].col <= col) out += markText(marks[next++]);
    };
    const size_t trailing = text.find_last_not_of(' ') + 1;  // npos + 1 is 0
    int col = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        marksAt(col);
        const int after = advanceColumn(text[i], col, tabSize);
        if (text[i] == '\t') {
            out += kTab;
            const bool markInside = next < marks.size() && marks[next].col < after;
            for (int c = col + 1; markInside && c < after; ++c) {
                marksAt(c);
                out += kTabFill;
            }
        } else {
            out += text[i] == ' ' ? std::string(i >= trailing ? kBlank : " ") : visibleByte(text[i]);
        }
        col = after;
    }
    for (; next < marks.size(); ++next) {
        if (marks[next].col > col) out.append(static_cast<size_t>(marks[next].col - col), ' ');
        col = std::max(col, marks[next].col);
        out += markText(marks[next]);
    }
    return out;
}

// The blank at i is part of a run that starts or ends a row of a multi-line value.
bool blankAtRowEdge(std::string_view s, size_t i) {
    size_t a = i, b = i;
    while (a > 0 && s[a - 1] == ' ') --a;
    while (b < s.size() && s[b] == ' ') ++b;
    return a == 0 || b == s.size() || s[a - 1] == '\n' || s[b] == '\r';
}

bool knownKeyword(std::string_view k) {
    for (std::string_view known : {"keys", "do", "trail", "set", "check", "clipboard", "column clipboard", "message"})
        if (k == known) return true;
    return false;
}

bool readLine(std::string_view line, int number, std::vector<Case>& cases, std::string& error) {
    if (line.empty() || line[0] == '#') return true;
    if (take(line, "=== ")) {
        cases.push_back(Case{std::string(line), number, {}});
        return true;
    }
    if (cases.empty()) {
        error = "a case begins with \"=== name\"";
        return false;
    }
    std::vector<CaseLine>& lines = cases.back().lines;
    if (line[0] == '|' || line[0] == '*') {
        const bool continues = !lines.empty() && lines.back().keyword == "|" &&
                               lines.back().number + static_cast<int>(lines.back().block.size()) == number;
        if (!continues) lines.push_back(CaseLine{number, "|", "", {}});
        lines.back().block.emplace_back(line);
        return true;
    }
    const size_t colon = line.find(':');
    const std::string_view keyword = line.substr(0, colon);
    if (colon == std::string_view::npos || !knownKeyword(keyword)) {
        error = "unknown directive \"" + std::string(keyword) + "\"";
        return false;
    }
    std::string_view value = line.substr(colon + 1);
    take(value, " ");
    lines.push_back(CaseLine{number, std::string(keyword), std::string(value), {}});
    return true;
}

}  // namespace

std::optional<MarkedText> parseMarked(const std::vector<std::string>& block, int tabSize, int cursors,
                                      std::string& error) {
    MarkedText m;
    std::vector<std::pair<Placed, int32_t>> brackets;
    for (size_t i = 0; i < block.size(); ++i) {
        LineParse lp;
        if (!parseLine(std::string_view(block[i]).substr(1), tabSize, lp, error)) {
            error = "line " + std::to_string(i + 1) + " of the state: " + error;
            return std::nullopt;
        }
        const auto line = static_cast<int32_t>(i);
        m.lines.push_back(lp.text);
        if (block[i][0] == '*') m.bookmarks.push_back(line);
        for (const Placed& p : lp.marks) {
            if (p.mark == Mark::Cursor) m.cursors.push_back(makePos(p.col, line));
            else brackets.emplace_back(p, line);
        }
    }
    if (cursors >= 0 && m.cursors.size() != static_cast<size_t>(cursors)) {
        error = "a state marks the cursor with exactly one ‸";
        return std::nullopt;
    }
    if (!takeSelection(m, brackets, error)) return std::nullopt;
    return m;
}

std::string renderMarked(const MarkedText& m, int tabSize) {
    std::vector<std::vector<Placed>> marks(m.lines.size());
    auto place = [&](Pos p, Mark mark) {
        marks[std::clamp<size_t>(p.line, 0, marks.size() - 1)].push_back({mark, p.col, m.selMode == SelMode::Column});
    };
    for (Pos p : m.cursors) place(p, Mark::Cursor);
    if (m.selExists) {
        place(m.selBegin, Mark::Open);
        place(m.selEnd, Mark::Close);
    }
    std::string out;
    for (size_t i = 0; i < m.lines.size(); ++i) {
        const bool marked = std::binary_search(m.bookmarks.begin(), m.bookmarks.end(), static_cast<int32_t>(i));
        out += (marked ? "*" : "|") + renderLine(m.lines[i], marks[i], tabSize) + "\n";
    }
    return out;
}

MarkedText markedOf(const Document& doc) {
    MarkedText m;
    LineRef r = doc.lines.first;
    for (int32_t i = 0; i <= doc.lines.lastIndex; ++i, r = doc.lines.next(r)) {
        m.lines.emplace_back(doc.lines.text(r));
        if (doc.lines.header(r).bookmark) m.bookmarks.push_back(i);
    }
    m.cursors = {doc.cursor};
    m.selMode = doc.selMode;
    m.selExists = selectionRange(doc, m.selBegin, m.selEnd);
    return m;
}

void loadMarked(Document& doc, const MarkedText& m) {
    std::string text;
    for (size_t i = 0; i < m.lines.size(); ++i) text += (i ? "\n" : "") + m.lines[i];
    fill(doc, text);
    for (int32_t line : m.bookmarks) setBookmark(doc, line, true);
    if (m.selExists) {
        const bool cursorAtBegin = m.cursors.at(0) == m.selBegin;
        doc.selExists = true;
        doc.selMode = m.selMode;
        doc.selAnchor = cursorAtBegin ? m.selEnd : m.selBegin;
        doc.selEnd = cursorAtBegin ? m.selBegin : m.selEnd;
    }
    setCursor(doc, m.cursors.at(0));
    doc.lastCmd = 0;
    doc.modified = false;
}

std::optional<std::string> decodeText(std::string_view s, std::string& error) {
    std::string out;
    while (!s.empty()) {
        if (take(s, kLineEnd)) {
            out += "\r\n";
            continue;
        }
        const std::optional<char> c = takeChar(s, error);
        if (!c) return std::nullopt;
        out += *c;
    }
    return out;
}

std::string encodeText(std::string_view s) {
    std::string out;
    for (size_t i = 0; i < s.size(); ++i) {
        if (s.substr(i).starts_with("\r\n")) {
            out += kLineEnd;
            ++i;
        } else if (s[i] == ' ') {
            out += blankAtRowEdge(s, i) ? kBlank : " ";
        } else {
            out += s[i] == '\t' ? std::string(kTab) : visibleByte(s[i]);
        }
    }
    return out;
}

std::vector<std::string> splitTokens(std::string_view line) {
    std::vector<std::string> out;
    std::string token;
    char quote = 0;
    for (char c : line) {
        if (c == ' ' && !quote) {
            if (!token.empty()) out.push_back(std::move(token));
            token.clear();
            continue;
        }
        if (c == quote) quote = 0;
        else if (!quote && (c == '"' || c == '\'')) quote = c;
        token += c;
    }
    if (!token.empty()) out.push_back(std::move(token));
    return out;
}

std::optional<std::vector<Case>> readCases(const std::string& path, std::string& error) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        error = "cannot read " + path;
        return std::nullopt;
    }
    std::vector<Case> cases;
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        if (!line.empty() && line.back() == ' ') error = "a trailing blank: write it as ·";
        if (!error.empty() || !readLine(line, number, cases, error)) {
            error = path + ":" + std::to_string(number) + ": " + error;
            return std::nullopt;
        }
    }
    return cases;
}

}  // namespace zol::test
