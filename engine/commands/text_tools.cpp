// The tools group's text work: tab layout, sorting, counting and block comments.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "engine/columns.h"
#include "engine/commands/edit_result.h"
#include "engine/commands/handlers.h"
#include "engine/commands/line_block.h"
#include "engine/commands/messages.h"
#include "engine/commands/text_tools.h"
#include "engine/options.h"
#include "engine/selection.h"
#include "engine/shell.h"
#include "engine/text_util.h"

namespace zol {

std::string expandTabsFrom(std::string_view text, int startCol) {
    std::string out;
    int col = startCol;
    for (char c : text) {
        const int next = advanceColumn(c, col);
        if (c == '\t')
            out.append(static_cast<size_t>(next - col), ' ');
        else
            out += c;
        col = next;
    }
    return out;
}

std::string relayoutLine(std::string_view line, int fromTab, int toTab, bool everyRun) {
    if (!everyRun && line.find('\t') == std::string_view::npos) return std::string(line);
    std::string out;
    out.reserve(line.size() + 16);
    int oldCol = 0, newCol = 0;
    size_t i = 0;
    while (i < line.size()) {
        if (!isBlank(line[i])) {
            out += line[i++];
            ++oldCol;
            ++newCol;
            continue;
        }
        size_t j = i;
        bool hasTab = false;
        int endCol = oldCol;
        for (; j < line.size() && isBlank(line[j]); ++j) {
            hasTab = hasTab || line[j] == '\t';
            endCol = advanceColumn(line[j], endCol, fromTab);
        }
        if (hasTab || (everyRun && j - i >= 2)) {
            while (toTab > 0 && advanceColumn('\t', newCol, toTab) <= endCol) {
                out += '\t';
                newCol = advanceColumn('\t', newCol, toTab);
            }
            out.append(static_cast<size_t>(endCol - newCol), ' ');
        } else {
            out.append(line.substr(i, j - i));
        }
        newCol = oldCol = endCol;
        i = j;
    }
    return out;
}

bool sortBefore(std::string_view a, std::string_view b) {
    const size_t n = std::min(a.size(), b.size());
    for (size_t i = 0; i < n; ++i) {
        const auto x = static_cast<unsigned char>(asciiLower(a[i]));
        const auto y = static_cast<unsigned char>(asciiLower(b[i]));
        if (x != y) return x < y;
    }
    return a.size() < b.size();
}

namespace {

// Eight folded bytes of a line from `depth` on as one number, zeros past its end.
uint64_t foldedKey(std::string_view line, size_t depth) {
    uint64_t key = 0;
    for (size_t k = depth; k < depth + 8; ++k)
        key = key << 8 | (k < line.size() ? static_cast<unsigned char>(asciiLower(line[k])) : 0u);
    return key;
}

}  // namespace

// Lines are ordered eight bytes at a time: the keys of one round sort in a compact
// array, and only the lines that tie go on to the next eight bytes, so each line is
// read about once per eight bytes that tell it from its neighbours.
std::vector<uint32_t> sortOrder(const std::vector<std::string>& lines) {
    struct Entry {
        uint64_t key;
        uint32_t index;
    };
    struct Run {
        size_t lo, hi, depth;
    };
    std::vector<Entry> entries(lines.size());
    for (size_t i = 0; i < lines.size(); ++i) entries[i].index = static_cast<uint32_t>(i);
    std::vector<Run> work{{0, lines.size(), 0}};
    while (!work.empty()) {
        const Run run = work.back();
        work.pop_back();
        for (size_t i = run.lo; i < run.hi; ++i) entries[i].key = foldedKey(lines[entries[i].index], run.depth);
        std::stable_sort(entries.begin() + static_cast<std::ptrdiff_t>(run.lo),
                         entries.begin() + static_cast<std::ptrdiff_t>(run.hi),
                         [](const Entry& x, const Entry& y) { return x.key < y.key; });
        for (size_t i = run.lo; i < run.hi;) {
            size_t j = i + 1;
            while (j < run.hi && entries[j].key == entries[i].key) ++j;
            // Lines hold no NUL: a key ending in zero means the tied lines ended, equal.
            if (j - i > 1 && (entries[i].key & 0xFF) != 0) work.push_back({i, j, run.depth + 8});
            i = j;
        }
    }
    std::vector<uint32_t> order(lines.size());
    for (size_t i = 0; i < lines.size(); ++i) order[i] = entries[i].index;
    return order;
}

TextCounts countText(std::string_view text) {
    TextCounts c;
    bool inWord = false;
    for (char ch : text) {
        if (ch == '\r' || ch == '\n') {
            inWord = false;
            continue;
        }
        ++c.characters;
        const bool blank = isBlank(ch);
        if (!blank && !inWord) ++c.words;
        inWord = !blank;
    }
    return c;
}

namespace {

int relayoutBlock(Document& doc, int fromTab, int toTab, bool everyRun) {
    const LineBlock b = selectedLinesOrAll(doc);
    std::vector<std::string> texts = blockTexts(doc, b);
    for (std::string& t : texts) t = relayoutLine(t, fromTab, toTab, everyRun);
    return finishLineEdit(doc, b, texts);
}

int currentTab() { return options().tabSize; }

// ---- block comments ----

constexpr std::string_view kPrefixCpp = "//", kPrefixAsm = ";", kPrefixRem = "rem ", kPrefixTeX = "%";

bool startsWithNoCase(std::string_view s, std::string_view prefix) {
    return s.size() >= prefix.size() && equalsNoCase(s.substr(0, prefix.size()), prefix);
}

// Every line with text gets the prefix in column 0; empty lines stay empty.
int commentBlock(Document& doc, std::string_view prefix) {
    if (prefix.empty()) return 0;
    const LineBlock b = selectedLines(doc);
    std::vector<std::string> texts = blockTexts(doc, b);
    for (std::string& t : texts)
        if (!t.empty()) t.insert(0, prefix);
    return finishLineEdit(doc, b, texts);
}

// The prefix goes where it stands: in column 0, or after the line's indent.
// "rem" is matched without regard to case, as batch files write it either way.
int uncommentBlock(Document& doc, std::string_view prefix) {
    if (prefix.empty()) return 0;
    const LineBlock b = selectedLines(doc);
    std::vector<std::string> texts = blockTexts(doc, b);
    for (std::string& t : texts) {
        size_t at = 0;
        while (at < t.size() && isBlank(t[at]) && !startsWithNoCase(std::string_view(t).substr(at), prefix)) ++at;
        if (startsWithNoCase(std::string_view(t).substr(at), prefix)) t.erase(at, prefix.size());
    }
    return finishLineEdit(doc, b, texts);
}

std::string charPrefix(const CommandCall& call) {
    const char c = static_cast<char>(call.param & 0xFF);
    return c == '\0' || c == '\r' || c == '\n' ? std::string() : std::string(1, c);
}

}  // namespace

int cmdExpandTabsToSpaces(Document& doc, const CommandCall&) {
    return relayoutBlock(doc, currentTab(), 0, false);
}
int cmdCompressSpacesToTabs(Document& doc, const CommandCall&) {
    return relayoutBlock(doc, currentTab(), currentTab(), true);
}
int cmdTab8TextToTab3Text(Document& doc, const CommandCall&) { return relayoutBlock(doc, 8, 3, false); }
int cmdTab3TextToTab8Text(Document& doc, const CommandCall&) { return relayoutBlock(doc, 3, 8, false); }
int cmdTab8TextToCurTabText(Document& doc, const CommandCall&) { return relayoutBlock(doc, 8, currentTab(), false); }
int cmdCurTabTextToTab8Text(Document& doc, const CommandCall&) { return relayoutBlock(doc, currentTab(), 8, false); }

int cmdSort(Document& doc, const CommandCall&) {
    const LineBlock b = selectedLinesOrAll(doc);
    if (b.first == b.last) return 0;
    std::vector<std::string> texts = blockTexts(doc, b);
    const std::vector<uint32_t> order = sortOrder(texts);
    std::vector<std::string> sorted;
    sorted.reserve(texts.size());
    for (uint32_t i : order) sorted.push_back(std::move(texts[i]));
    // Bookmarks travel with their lines.
    std::vector<uint8_t> marks;
    marks.reserve(order.size());
    LineList& ll = doc.lines;
    LineRef r = ll.find(b.first);
    for (size_t i = 0; i < order.size(); ++i, r = ll.next(r)) marks.push_back(ll.header(r).bookmark);
    if (!finishLineEdit(doc, b, sorted)) return 0;
    r = ll.find(b.first);
    for (size_t i = 0; i < order.size(); ++i, r = ll.next(r)) ll.header(r).bookmark = marks[order[i]];
    return 1;
}

int cmdWordCount(Document& doc, const CommandCall&) {
    TextCounts c;
    long lines = 0;
    if (hasSelection(doc)) {
        c = countText(selectedText(doc));
        const LineBlock b = selectedLines(doc);
        lines = b.last - b.first + 1;
    } else {
        const LineList& ll = doc.lines;
        LineRef r = ll.first;
        for (int32_t l = 0; l <= ll.lastIndex; ++l, r = ll.next(r)) {
            const TextCounts one = countText(ll.text(r));
            c.words += one.words;
            c.characters += one.characters;
        }
        lines = ll.count();
    }
    char buf[128];
    std::snprintf(buf, sizeof buf, kMsgWordCount, c.words, lines, c.characters);
    shell().message(buf);
    return 1;
}

int cmdCommentBlock(Document& doc, const CommandCall& call) { return commentBlock(doc, charPrefix(call)); }
int cmdUncommentBlock(Document& doc, const CommandCall& call) { return uncommentBlock(doc, charPrefix(call)); }
int cmdCommentBlockCpp(Document& doc, const CommandCall&) { return commentBlock(doc, kPrefixCpp); }
int cmdUncommentBlockCpp(Document& doc, const CommandCall&) { return uncommentBlock(doc, kPrefixCpp); }
int cmdCommentBlockAsm(Document& doc, const CommandCall&) { return commentBlock(doc, kPrefixAsm); }
int cmdUncommentBlockAsm(Document& doc, const CommandCall&) { return uncommentBlock(doc, kPrefixAsm); }
int cmdCommentBlockRem(Document& doc, const CommandCall&) { return commentBlock(doc, kPrefixRem); }
int cmdUncommentBlockRem(Document& doc, const CommandCall&) { return uncommentBlock(doc, kPrefixRem); }
int cmdCommentBlockTeX(Document& doc, const CommandCall&) { return commentBlock(doc, kPrefixTeX); }
int cmdUncommentBlockTeX(Document& doc, const CommandCall&) { return uncommentBlock(doc, kPrefixTeX); }

}  // namespace zol
