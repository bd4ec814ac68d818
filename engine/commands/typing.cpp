#include "engine/commands/handlers.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "engine/columns.h"
#include "engine/commands/edit_result.h"
#include "engine/document.h"
#include "engine/edit.h"
#include "engine/options.h"
#include "engine/selection.h"
#include "engine/shell.h"
#include "engine/text_util.h"
#include "engine/words.h"

namespace zol {
namespace {

// A selection is edited as a whole: its record never joins the one the same
// command made before (the merge only suits edits that follow each other).
void breakMerge(Document& doc) { doc.prevCmd = 0; }

bool allBlank(std::string_view s) { return std::all_of(s.begin(), s.end(), isBlank); }

// Column of the first non-blank character, or the line's width when it has none.
int leadingWidth(std::string_view line) {
    size_t i = 0;
    while (i < line.size() && isBlank(line[i])) ++i;
    return columnOfOffset(line, i);
}

// Replaces from..to by text; a start beyond the end of its line is reached with blanks.
bool replaceAt(Document& doc, Pos from, Pos to, std::string_view text) {
    const int width = lineWidthAt(doc, from.line);
    if (from.col <= width) return replaceRange(doc, from, to, text);
    std::string padded(static_cast<size_t>(from.col - width), ' ');
    padded += text;
    return replaceRange(doc, from, to, padded);
}

int deleteSelected(Document& doc) {
    breakMerge(doc);
    Pos begin, end;
    selectionRange(doc, begin, end);
    return finishEdit(doc, isColumnSelection(doc) ? deleteSelection(doc) : deleteRange(doc, begin, end));
}

// Types text made for the place where it lands. A character selection is replaced
// together with the text; a column block is cut first, on its own record.
template <class MakeText>
int typeText(Document& doc, MakeText make) {
    if (!hasSelection(doc)) return finishEdit(doc, insertText(doc, make(doc.cursor)));
    breakMerge(doc);
    if (isColumnSelection(doc)) {
        if (!deleteSelection(doc)) return finishEdit(doc, false);
        clearSelection(doc);
        return finishEdit(doc, insertText(doc, make(doc.cursor)));
    }
    Pos from, to;
    selectionRange(doc, from, to);
    return finishEdit(doc, replaceAt(doc, from, to, make(from)));
}

// Overwrite mode: the character under the cursor gives way to c. At or beyond the
// end of the line, and inside a tab's expansion, the character is inserted instead.
bool overwriteChar(Document& doc, char c, int* result) {
    const Pos cur = doc.cursor;
    const std::string_view line = lineText(doc, cur.line);
    const ColumnHit hit = locateColumn(line, cur.col);
    if (hit.padding > 0 || hit.offset >= line.size() || hit.insideTab) return false;
    const Pos to = makePos(advanceColumn(line[hit.offset], hit.charColumn), cur.line);
    *result = finishEdit(doc, replaceRange(doc, cur, to, std::string_view(&c, 1)));
    return true;
}

// Blanks and tabs (when allowed) that lead from column `from` to column `to`.
std::string fillColumns(int from, int to, bool tabs) {
    std::string s;
    int col = from;
    while (tabs && advanceColumn('\t', col) <= to) {
        s += '\t';
        col = advanceColumn('\t', col);
    }
    s.append(static_cast<size_t>(std::max(0, to - col)), ' ');
    return s;
}

// Smart tab: the next word start right of `at` on the nearest non-blank line above;
// -1 when that line has none.
int smartTabStop(const Document& doc, Pos at) {
    const LineList& ll = doc.lines;
    LineRef r = ll.find(at.line);
    for (int32_t l = at.line - 1; l >= 0; --l) {
        r = ll.prev(r);
        const std::string_view text = ll.text(r);
        if (allBlank(text)) continue;
        int col = 0;
        bool afterBlank = true;
        for (char c : text) {
            if (!isBlank(c) && afterBlank && col > at.col) return col;
            afterBlank = isBlank(c);
            col = advanceColumn(c, col);
        }
        return -1;
    }
    return -1;
}

std::string tabText(const Document& doc, Pos at) {
    const EditOptions& o = options();
    int target = advanceColumn('\t', at.col);
    bool smart = false;
    if (o.smartTab) {
        const int stop = smartTabStop(doc, at);
        if (stop > at.col) {
            target = stop;
            smart = true;
        }
    }
    if (o.useTabChar && !smart) return "\t";
    return fillColumns(at.col, target, o.useTabChar);
}

// Backspace's previous indent level: the indent of the nearest line above that has
// text and is indented less than `col`; 0 when there is none.
int previousIndent(const Document& doc, int32_t line, int col) {
    const LineList& ll = doc.lines;
    LineRef r = ll.find(line);
    for (int32_t l = line - 1; l >= 0; --l) {
        r = ll.prev(r);
        const std::string_view text = ll.text(r);
        if (allBlank(text)) continue;
        const int indent = leadingWidth(text);
        if (indent < col) return indent;
    }
    return 0;
}

bool joinWithPrevious(Document& doc, int32_t line) {
    return deleteRange(doc, makePos(lineWidthAt(doc, line - 1), line - 1), makePos(0, line));
}

// Deletes the character at the cursor; at the end of the line the line end, after
// filling the gap with blanks when the cursor stands beyond the end.
int deleteAtCursor(Document& doc) {
    const Pos cur = doc.cursor;
    const std::string_view line = lineText(doc, cur.line);
    const int width = lineWidth(line);
    if (cur.col >= width) {
        if (cur.line >= lastLine(doc)) return 0;
        const Pos eol = makePos(width, cur.line), next = makePos(0, cur.line + 1);
        if (cur.col == width) return finishEdit(doc, deleteRange(doc, eol, next));
        const std::string pad(static_cast<size_t>(cur.col - width), ' ');
        return finishEdit(doc, replaceRange(doc, eol, next, pad));
    }
    const ColumnHit hit = locateColumn(line, cur.col);
    const Pos from = makePos(hit.charColumn, cur.line);
    const Pos to = makePos(advanceColumn(line[hit.offset], hit.charColumn), cur.line);
    return finishEdit(doc, deleteRange(doc, from, to));
}

// Indent text of `width` columns: tabs then blanks with "AutoIndentUsingTabs".
std::string indentText(int width) {
    if (!options().autoIndentUsingTabs) return std::string(static_cast<size_t>(width), ' ');
    return fillColumns(0, width, true);
}

// Indent of the nearest non-empty line at or above `line`.
int indentAbove(const Document& doc, int32_t line) {
    const LineList& ll = doc.lines;
    LineRef r = ll.find(line);
    for (int32_t l = line; l >= 0; --l, r = ll.prev(r)) {
        const std::string_view text = ll.text(r);
        if (!text.empty()) return leadingWidth(text);
    }
    return 0;
}

// Breaks the line at the cursor, with the auto indent when asked. A cursor beyond
// the end breaks at the end, so no trailing blanks are made. A break in column 0 of
// a bookmarked line hands the bookmark to the line that takes the text (insertText
// does that for every insertion in front of a whole line).
int breakLine(Document& doc, bool withIndent) {
    Pos cur = doc.cursor;
    const std::string_view line = lineText(doc, cur.line);
    const int width = lineWidth(line);
    if (cur.col > width) {
        cur.col = static_cast<int16_t>(width);
        setCursor(doc, cur);
    }
    const bool bookmarkMoves = cur.col == 0 && doc.lines.header(doc.lines.find(cur.line)).bookmark != 0;
    std::string text = "\r\n";
    if (withIndent && options().autoIndent) {
        int indent = indentAbove(doc, cur.line);
        const int wsEnd = leadingWidth(line);
        if (indent > 0 && cur.col < wsEnd) {
            if (options().keepTrailingBlanks)
                indent = std::max(0, indent - (wsEnd - cur.col));
            else
                setCursor(doc, makePos(wsEnd, cur.line));
        }
        text += indentText(indent);
    }
    // Past the leading blanks the break is no longer in front of the whole line, so
    // insertText leaves the mark where it was.
    const bool skippedBlanks = doc.cursor.col != 0;
    bool ok = insertText(doc, text);
    if (!ok && text.size() > 2) ok = insertText(doc, "\r\n");
    LineList& ll = doc.lines;
    const LineRef r = ll.find(cur.line);
    if (ok && bookmarkMoves && skippedBlanks) {
        ll.header(ll.next(r)).bookmark = ll.header(r).bookmark;
        ll.header(r).bookmark = 0;
    }
    return finishEdit(doc, ok);
}

// Removes a whole line with its line end. Deleting from the end of the line above
// keeps every other line's record, so bookmarks stay where they belong.
int removeLine(Document& doc, int32_t l) {
    LineList& ll = doc.lines;
    const int width = lineWidthAt(doc, l);
    bool ok;
    if (lastLine(doc) == 0) {
        if (width == 0) return 0;
        ok = deleteRange(doc, makePos(0, 0), makePos(width, 0));
    } else if (l > 0) {
        ok = deleteRange(doc, makePos(lineWidthAt(doc, l - 1), l - 1), makePos(width, l));
    } else {
        const uint8_t nextMark = ll.header(ll.next(ll.first)).bookmark;
        ok = deleteRange(doc, makePos(0, 0), makePos(0, 1));
        if (ok) ll.header(ll.first).bookmark = nextMark;
    }
    return finishEdit(doc, ok);
}

const std::string kCommentText = "/" + std::string(68, '*') + "\r\n\r\n" + std::string(68, '*') + "/\r\n";
const std::string kCommentLightText = "/*" + std::string(67, '-') + "\r\n\r\n" + std::string(67, '-') + "*/\r\n";

}  // namespace

int cmdInsertChar(Document& doc, const CommandCall& call) {
    const char c = static_cast<char>(call.param & 0xFF);
    if (c == '\0') return 0;
    if (c == '\r' || c == '\n') return cmdNewLine(doc, call);
    if (options().overwrite && !hasSelection(doc)) {
        int result = 0;
        if (overwriteChar(doc, c, &result)) return result;
    }
    return typeText(doc, [c](Pos) { return std::string(1, c); });
}

int cmdTab(Document& doc, const CommandCall&) {
    return typeText(doc, [&doc](Pos at) { return tabText(doc, at); });
}

int cmdBackspace(Document& doc, const CommandCall&) {
    if (hasSelection(doc)) return deleteSelected(doc);
    const Pos cur = doc.cursor;
    const std::string_view line = lineText(doc, cur.line);
    if (cur.col > lineWidth(line)) {
        setCursor(doc, makePos(cur.col - 1, cur.line));
        return finishEdit(doc, true);
    }
    if (cur.col == 0) return cur.line == 0 ? 0 : finishEdit(doc, joinWithPrevious(doc, cur.line));
    // A cursor inside a tab's expansion stands after the tab.
    const ColumnHit at = locateColumn(line, cur.col);
    const size_t endOffset = at.insideTab ? at.offset + 1 : at.offset;
    const Pos to = makePos(at.insideTab ? advanceColumn('\t', at.charColumn) : cur.col, cur.line);
    int from;
    if (options().autoUnindent && allBlank(line.substr(0, endOffset))) {
        // A level that falls inside a tab takes the whole tab.
        from = locateColumn(line, previousIndent(doc, cur.line, cur.col)).charColumn;
    } else {
        from = locateColumn(line, cur.col - 1).charColumn;
    }
    return finishEdit(doc, deleteRange(doc, makePos(from, cur.line), to));
}

int cmdDelete(Document& doc, const CommandCall&) {
    if (hasSelection(doc)) return deleteSelected(doc);
    return deleteAtCursor(doc);
}

int cmdDeleteChar(Document& doc, const CommandCall&) {
    return deleteAtCursor(doc);
}

int cmdDeleteBlock(Document& doc, const CommandCall&) {
    return hasSelection(doc) ? deleteSelected(doc) : 0;
}

int cmdDeleteWord(Document& doc, const CommandCall&) {
    const Pos cur = doc.cursor;
    const std::string_view line = lineText(doc, cur.line);
    if (cur.col >= lineWidth(line)) return deleteAtCursor(doc);
    const ColumnHit hit = locateColumn(line, cur.col);
    const CharClass cls = charClass(line[hit.offset]);
    size_t end = hit.offset;
    while (end < line.size() && charClass(line[end]) == cls) ++end;
    if (cls != CharClass::Blank)
        while (end < line.size() && isBlank(line[end])) ++end;
    return finishEdit(doc, deleteRange(doc, makePos(hit.charColumn, cur.line), makePos(columnOfOffset(line, end), cur.line)));
}

int cmdDeleteWordBack(Document& doc, const CommandCall&) {
    const Pos cur = doc.cursor;
    const std::string_view line = lineText(doc, cur.line);
    const int col = std::min<int>(cur.col, lineWidth(line));
    if (col == 0) return cur.line == 0 ? 0 : finishEdit(doc, joinWithPrevious(doc, cur.line));
    const ColumnHit hit = locateColumn(line, col);
    const size_t end = hit.insideTab ? hit.offset + 1 : hit.offset;
    size_t begin = end;
    while (begin > 0 && isBlank(line[begin - 1])) --begin;
    if (begin > 0) {
        const CharClass cls = charClass(line[begin - 1]);
        while (begin > 0 && charClass(line[begin - 1]) == cls) --begin;
    }
    return finishEdit(doc, deleteRange(doc, makePos(columnOfOffset(line, begin), cur.line),
                                   makePos(columnOfOffset(line, end), cur.line)));
}

int cmdDeleteToEOL(Document& doc, const CommandCall&) {
    const Pos cur = doc.cursor;
    const int width = lineWidthAt(doc, cur.line);
    if (cur.col >= width) return 0;
    return finishEdit(doc, deleteRange(doc, cur, makePos(width, cur.line)));
}

int cmdDeleteToBOL(Document& doc, const CommandCall&) {
    const Pos cur = doc.cursor;
    if (cur.col == 0) return 0;
    const int to = std::min<int>(cur.col, lineWidthAt(doc, cur.line));
    return finishEdit(doc, deleteRange(doc, makePos(0, cur.line), makePos(to, cur.line)));
}

int cmdDeleteLine(Document& doc, const CommandCall&) {
    const Pos cur = doc.cursor;
    if (!removeLine(doc, cur.line)) return 0;
    Pos p = makePos(cur.col, std::min(cur.line, lastLine(doc)));
    if (!options().cursorBeyondEol) p.col = static_cast<int16_t>(std::min<int>(p.col, lineWidthAt(doc, p.line)));
    setCursor(doc, p);
    clearSelection(doc);
    return 1;
}

int cmdNewLine(Document& doc, const CommandCall&) { return breakLine(doc, true); }

int cmdInsertLine(Document& doc, const CommandCall&) {
    const Pos keep = doc.cursor;
    const int result = breakLine(doc, false);
    if (result) {
        setCursor(doc, keep);
        clearSelection(doc);
    }
    return result;
}

int cmdInsertComment(Document& doc, const CommandCall&) {
    return finishEdit(doc, insertText(doc, kCommentText));
}

int cmdInsertCommentLight(Document& doc, const CommandCall&) {
    return finishEdit(doc, insertText(doc, kCommentLightText));
}

}  // namespace zol
