// Block indent, fill and the paragraph alignments.
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "engine/columns.h"
#include "engine/commands/edit_result.h"
#include "engine/commands/handlers.h"
#include "engine/commands/line_block.h"
#include "engine/commands/messages.h"
#include "engine/commands/text_tools.h"
#include "engine/edit.h"
#include "engine/options.h"
#include "engine/selection.h"
#include "engine/shell.h"
#include "engine/text_util.h"

namespace zol {
namespace {

size_t leadingBytes(std::string_view line) {
    size_t i = 0;
    while (i < line.size() && isBlank(line[i])) ++i;
    return i;
}

// Indent of `width` columns made of tabs and blanks, or of blanks only.
std::string indentOf(int width, bool tabs) {
    std::string s;
    int col = 0;
    while (tabs && advanceColumn('\t', col) <= width) {
        s += '\t';
        col = advanceColumn('\t', col);
    }
    s.append(static_cast<size_t>(std::max(0, width - col)), ' ');
    return s;
}

// The line's leading white space moved by `delta` columns; lines without text stay.
std::string reindent(std::string_view line, int delta) {
    const size_t lead = leadingBytes(line);
    if (lead == line.size()) return std::string(line);
    const int width = std::max(0, columnOfOffset(line, lead) + delta);
    return indentOf(width, options().useTabChar) + std::string(line.substr(lead));
}

// Column blocks shift what stands right of the block's left edge. The shifted part
// loses its tabs, which would otherwise snap back to their old stops.
std::string shiftColumns(std::string_view line, int left, int delta) {
    if (lineWidth(line) <= left) return std::string(line);
    const ColumnHit hit = locateColumn(line, left);
    std::string rest = expandTabsFrom(line.substr(hit.offset), hit.charColumn).substr(static_cast<size_t>(left - hit.charColumn));
    if (delta < 0) {
        const size_t blanks = std::min(static_cast<size_t>(-delta), rest.find_first_not_of(' ') == std::string::npos
                                                                        ? rest.size()
                                                                        : rest.find_first_not_of(' '));
        if (blanks == 0) return std::string(line);
        rest.erase(0, blanks);
    } else {
        rest.insert(0, static_cast<size_t>(delta), ' ');
    }
    return spliceColumns(line, left, lineWidth(line), rest);
}

int indentBlock(Document& doc, int delta) {
    const LineBlock b = selectedLines(doc);
    std::vector<std::string> texts = blockTexts(doc, b);
    if (isColumnSelection(doc)) {
        const int left = selLeftCol(doc);
        for (std::string& t : texts) t = shiftColumns(t, left, delta);
        // The block stays where it is, so that unindent takes back what indent added.
        return finishLineEdit(doc, b, texts);
    }
    for (std::string& t : texts) t = reindent(t, delta);
    return finishLineEdit(doc, b, texts);
}

// ---- paragraphs ----

bool blankLine(std::string_view line) { return leadingBytes(line) == line.size(); }

std::vector<std::string_view> wordsOf(const std::vector<std::string>& lines, size_t from, size_t to) {
    std::vector<std::string_view> words;
    for (size_t i = from; i < to; ++i) {
        std::string_view s = lines[i];
        size_t p = 0;
        while (p < s.size()) {
            while (p < s.size() && isBlank(s[p])) ++p;
            size_t e = p;
            while (e < s.size() && !isBlank(s[e])) ++e;
            if (e > p) words.push_back(s.substr(p, e - p));
            p = e;
        }
    }
    return words;
}

enum class Align { Left, Center, Right, Justify };

// One paragraph's words laid out in lines no wider than the word-wrap column. Left
// and justified lines keep the first line's indent; a word wider than the room
// stands on its own line.
void layoutParagraph(const std::vector<std::string_view>& words, std::string_view indent, Align align,
                     std::vector<std::string>& out) {
    const int wrap = options().wordWrapColumn;
    const bool keepIndent = align == Align::Left || align == Align::Justify;
    const int margin = keepIndent ? lineWidth(indent) : 0;
    const int room = std::max(1, wrap - margin);
    size_t i = 0;
    while (i < words.size()) {
        size_t j = i + 1;
        int len = static_cast<int>(words[i].size());
        while (j < words.size() && len + 1 + static_cast<int>(words[j].size()) <= room) {
            len += 1 + static_cast<int>(words[j].size());
            ++j;
        }
        std::string line;
        if (keepIndent) line.assign(indent);
        const bool lastLine = j == words.size();
        const size_t gaps = j - i - 1;
        const int extra = align == Align::Justify && !lastLine && gaps > 0 ? room - len : 0;
        if (align == Align::Center && len < wrap) line.append(static_cast<size_t>((wrap - len) / 2), ' ');
        if (align == Align::Right && len < wrap) line.append(static_cast<size_t>(wrap - len), ' ');
        for (size_t k = i; k < j; ++k) {
            if (k > i) {
                // Leftmost gaps take the odd blanks.
                const size_t g = k - i - 1;
                const int add = gaps ? extra / static_cast<int>(gaps) + (static_cast<int>(g) < extra % static_cast<int>(gaps) ? 1 : 0) : 0;
                line.append(static_cast<size_t>(1 + add), ' ');
            }
            line.append(words[k]);
        }
        out.push_back(std::move(line));
        i = j;
    }
}

// Lays out every paragraph of `lines`; blank lines stay as they are.
std::vector<std::string> alignLines(const std::vector<std::string>& lines, Align align) {
    std::vector<std::string> out;
    size_t i = 0;
    while (i < lines.size()) {
        if (blankLine(lines[i])) {
            out.push_back(lines[i++]);
            continue;
        }
        size_t j = i;
        while (j < lines.size() && !blankLine(lines[j])) ++j;
        const std::string_view first = lines[i];
        layoutParagraph(wordsOf(lines, i, j), first.substr(0, leadingBytes(first)), align, out);
        i = j;
    }
    return out;
}

// Without a selection: the paragraph at (or after) the cursor, together with the
// blank lines up to the next paragraph, so that the records of repeated alignments
// join end to start and undo together. The cursor goes on to the next paragraph.
int alignParagraph(Document& doc, Align align) {
    const int32_t last = lastLine(doc);
    std::vector<std::string> lines;
    int32_t first = -1;
    {
        const LineList& ll = doc.lines;
        LineRef r = ll.find(doc.cursor.line);
        int32_t l = doc.cursor.line;
        while (l <= last && blankLine(ll.text(r))) {
            ++l;
            if (l <= last) r = ll.next(r);
        }
        if (l > last) return 0;
        first = l;
        while (l <= last && !blankLine(ll.text(r))) {
            lines.emplace_back(ll.text(r));
            if (++l <= last) r = ll.next(r);
        }
        while (l <= last && blankLine(ll.text(r))) {
            lines.emplace_back(ll.text(r));
            if (++l <= last) r = ll.next(r);
        }
    }
    const bool toNext = first + static_cast<int32_t>(lines.size()) <= last;
    std::vector<std::string> laid = alignLines(lines, align);
    const Pos from = makePos(0, first);
    const Pos to = toNext ? makePos(0, first + static_cast<int32_t>(lines.size()))
                          : makePos(lineWidth(lines.back()), last);
    std::string text = joinLines(laid);
    if (toNext) text += "\r\n";
    // An unchanged paragraph makes no record, and the next alignment must not
    // join the record before it: the texts would no longer meet end to start.
    if (text == rangeText(doc, from, to)) {
        doc.lastCmd = 0;
        setCursor(doc, toNext ? makePos(0, to.line) : to);
        return finishEdit(doc, true);
    }
    return finishEdit(doc, replaceRange(doc, from, to, text));
}

int align(Document& doc, Align a) {
    if (!doc.selExists) return alignParagraph(doc, a);
    const LineBlock b = selectedLines(doc);
    const std::vector<std::string> lines = blockTexts(doc, b);
    const Pos from = makePos(0, b.first), to = makePos(lineWidth(lines.back()), b.last);
    const std::string text = joinLines(alignLines(lines, a));
    // A selection is one unit: its record never joins the one before.
    doc.prevCmd = 0;
    return finishEdit(doc, replaceRange(doc, from, to, text));
}

// ---- fill ----

int fillBlock(Document& doc, char c) {
    Pos begin, end;
    if (!hasSelection(doc)) return 0;
    selectionRange(doc, begin, end);
    const LineBlock b{begin.line, end.line};
    std::vector<std::string> texts = blockTexts(doc, b);
    const bool column = isColumnSelection(doc);
    for (int32_t l = b.first; l <= b.last; ++l) {
        std::string& t = texts[static_cast<size_t>(l - b.first)];
        int left = column ? selLeftCol(doc) : (l == begin.line ? begin.col : 0);
        int right = column ? selRightCol(doc) : (l == end.line ? end.col : lineWidth(t));
        if (!column) right = std::min(right, lineWidth(t));
        if (right <= left) continue;
        t = spliceColumns(t, left, right, std::string(static_cast<size_t>(right - left), c));
    }
    return finishLineEdit(doc, b, texts);
}

}  // namespace

int cmdIndentBlock(Document& doc, const CommandCall&) { return indentBlock(doc, options().blockIndent); }
int cmdUnindentBlock(Document& doc, const CommandCall&) { return indentBlock(doc, -options().blockIndent); }

int cmdFillBlock(Document& doc, const CommandCall&) {
    if (!hasSelection(doc)) return 0;
    const int c = shell().chooseCharacter(kTitleFillBlock);
    if (c <= 0 || c > 255 || c == '\r' || c == '\n') return 0;
    return fillBlock(doc, static_cast<char>(c));
}

int cmdLeftBlockPara(Document& doc, const CommandCall&) { return align(doc, Align::Left); }
int cmdCenterBlockPara(Document& doc, const CommandCall&) { return align(doc, Align::Center); }
int cmdRightBlockPara(Document& doc, const CommandCall&) { return align(doc, Align::Right); }
int cmdJustifyBlockPara(Document& doc, const CommandCall&) { return align(doc, Align::Justify); }

}  // namespace zol
