#include "engine/commands/motion.h"

#include <algorithm>

#include "engine/columns.h"
#include "engine/commands/handlers.h"
#include "engine/commands/line_draw.h"
#include "engine/options.h"
#include "engine/selection.h"
#include "engine/shell.h"
#include "engine/text_util.h"
#include "engine/words.h"

namespace zol {
namespace {

constexpr int kPageLinesWithoutView = 25;

// Commands after which up and down keep aiming at the remembered column.
constexpr Cmd kVerticalCommands[] = {
    Cmd::CursorUp,    Cmd::CursorDown,     Cmd::PageUp,   Cmd::PageDown,
    Cmd::TopOfWindow, Cmd::BottomOfWindow, Cmd::ScrollUp, Cmd::ScrollDown,
    Cmd::UpSelect,    Cmd::DownSelect,     Cmd::PageUpSelect, Cmd::PageDownSelect,
    Cmd::TopOfWindowSelect, Cmd::BottomOfWindowSelect,
};

bool isVerticalCommand(uint16_t id) {
    return std::any_of(std::begin(kVerticalCommands), std::end(kVerticalCommands),
                       [id](Cmd c) { return idOf(c) == id; });
}

int pageLines(const Document& doc) {
    return doc.view ? std::max(1, doc.view->pageLines()) : kPageLinesWithoutView;
}
int32_t firstVisible(const Document& doc) { return doc.view ? doc.view->firstVisibleLine() : 0; }
// The last page stays full: the view never starts below this line.
int32_t lastFirstVisible(const Document& doc) {
    return std::max<int32_t>(0, doc.lines.lastIndex - pageLines(doc) + 1);
}

void scrollTo(Document& doc, int32_t first) {
    if (doc.view) doc.view->setFirstVisibleLine(std::clamp<int32_t>(first, 0, lastFirstVisible(doc)));
}

void keepCursorVisible(Document& doc) {
    if (!doc.view) return;
    const int32_t first = firstVisible(doc);
    const int page = pageLines(doc);
    if (doc.cursor.line < first)
        doc.view->setFirstVisibleLine(doc.cursor.line);
    else if (doc.cursor.line >= first + page)
        doc.view->setFirstVisibleLine(doc.cursor.line - page + 1);
}

int wantedColumn(const Document& doc) {
    return doc.desiredCol >= 0 && isVerticalCommand(doc.prevCmd) ? doc.desiredCol : doc.cursor.col;
}

int moveVertically(Document& doc, int32_t line, bool extend) {
    const int wanted = wantedColumn(doc);
    line = std::clamp<int32_t>(line, 0, doc.lines.lastIndex);
    return placeCursor(doc, makePos(allowedColumn(doc, line, wanted), line), extend, true, wanted);
}

Pos leftOf(const Document& doc) {
    const Pos c = doc.cursor;
    const std::string_view text = lineText(doc, c.line);
    const int width = lineWidth(text);
    int col = c.col;
    if (col > width && !options().cursorBeyondEol) col = width;
    if (col == 0) return c.line > 0 ? makePos(lineWidthAt(doc, c.line - 1), c.line - 1) : c;
    if (col > width) return makePos(col - 1, c.line);
    const ColumnHit hit = locateColumn(text, col - 1);
    const bool throughTab = text[hit.offset] == '\t' && options().cursorThroughTabs;
    return makePos(throughTab ? col - 1 : hit.charColumn, c.line);
}

Pos rightOf(const Document& doc) {
    const Pos c = doc.cursor;
    const std::string_view text = lineText(doc, c.line);
    const int width = lineWidth(text);
    if (c.col >= width) {
        if (options().cursorBeyondEol) return makePos(std::min(c.col + 1, kMaxColumns), c.line);
        if (c.line < doc.lines.lastIndex) return makePos(0, c.line + 1);
        return makePos(width, c.line);
    }
    const ColumnHit hit = locateColumn(text, c.col);
    const bool throughTab = text[hit.offset] == '\t' && options().cursorThroughTabs;
    return makePos(throughTab ? c.col + 1 : advanceColumn(text[hit.offset], hit.charColumn), c.line);
}

size_t firstWordOffset(std::string_view text) {
    size_t i = 0;
    while (i < text.size() && !isWordChar(text[i])) ++i;
    return i;
}

// Past the end of a line a word move continues on the next line: the plain style at
// that line's first word, the others at its start (the line end counts as a stop).
Pos wordRightOf(const Document& doc, WordStyle style) {
    const Pos c = doc.cursor;
    const std::string_view text = lineText(doc, c.line);
    const ColumnHit hit = locateColumn(text, c.col);
    if (hit.offset < text.size()) {
        const size_t off = wordRightOffset(text, hit.offset, style);
        return makePos(columnOfOffset(text, off), c.line);
    }
    if (c.line == doc.lines.lastIndex) return c;
    const std::string_view next = lineText(doc, c.line + 1);
    const size_t off = style == WordStyle::Plain ? firstWordOffset(next) : 0;
    return makePos(columnOfOffset(next, off), c.line + 1);
}

Pos wordLeftOf(const Document& doc, WordStyle style) {
    const Pos c = doc.cursor;
    if (c.col == 0) {
        if (c.line == 0) return c;
        const std::string_view prev = lineText(doc, c.line - 1);
        const size_t off = style == WordStyle::Plain ? wordLeftOffset(prev, prev.size(), style) : prev.size();
        return makePos(columnOfOffset(prev, off), c.line - 1);
    }
    const std::string_view text = lineText(doc, c.line);
    const size_t off = wordLeftOffset(text, locateColumn(text, c.col).offset, style);
    return makePos(columnOfOffset(text, off), c.line);
}

Pos firstNonBlankOf(const Document& doc) {
    const std::string_view text = lineText(doc, doc.cursor.line);
    size_t i = 0;
    while (i < text.size() && isBlank(text[i])) ++i;
    return makePos(columnOfOffset(text, i), doc.cursor.line);
}

Pos textEnd(const Document& doc) {
    const int32_t last = doc.lines.lastIndex;
    return makePos(lineWidthAt(doc, last), last);
}

// Start of the next paragraph, or the end of the text when none follows.
Pos paraDownOf(const Document& doc) {
    const LineList& ll = doc.lines;
    LineRef r = ll.find(doc.cursor.line);
    bool prevBlank = isBlankLine(ll.text(r));
    int32_t line = doc.cursor.line;
    for (r = ll.next(r); r != kNoLine; r = ll.next(r)) {
        ++line;
        const bool blank = isBlankLine(ll.text(r));
        if (prevBlank && !blank) return makePos(0, line);
        prevBlank = blank;
    }
    return textEnd(doc);
}

// Start of the paragraph the cursor is in, or of the one before when the cursor
// already stands at a paragraph's start or between paragraphs.
Pos paraUpOf(const Document& doc) {
    const LineList& ll = doc.lines;
    int32_t line = doc.cursor.col > 0 ? doc.cursor.line : doc.cursor.line - 1;
    if (line < 0) return makePos(0, 0);
    for (LineRef r = ll.find(line); r != kNoLine; r = ll.prev(r), --line) {
        if (isBlankLine(ll.text(r))) continue;
        const LineRef above = ll.prev(r);
        if (above == kNoLine || isBlankLine(ll.text(above))) return makePos(0, line);
    }
    return makePos(0, 0);
}

Pos nextTabStopOf(const Document& doc) {
    const int ts = options().tabSize;
    const int stop = std::min(kMaxColumns, (doc.cursor.col / ts + 1) * ts);
    return makePos(allowedColumn(doc, doc.cursor.line, stop), doc.cursor.line);
}

Pos prevTabStopOf(const Document& doc) {
    const int ts = options().tabSize;
    int col = doc.cursor.col;
    if (!options().cursorBeyondEol) col = std::min(col, lineWidthAt(doc, doc.cursor.line));
    const int stop = col == 0 ? 0 : (col - 1) / ts * ts;
    return makePos(allowedColumn(doc, doc.cursor.line, stop), doc.cursor.line);
}

int pageMove(Document& doc, int direction, bool extend) {
    const int page = pageLines(doc);
    scrollTo(doc, firstVisible(doc) + direction * page);
    return moveVertically(doc, doc.cursor.line + direction * page, extend);
}

// Scrolling moves the view; the cursor moves only when it would leave the window.
int scrollBy(Document& doc, int direction, bool extend) {
    if (!doc.view) return 0;
    const int32_t first = firstVisible(doc) + direction;
    if (first < 0 || first > lastFirstVisible(doc)) return 0;
    doc.view->setFirstVisibleLine(first);
    const int32_t bottom = first + pageLines(doc) - 1;
    if (doc.cursor.line < first) moveVertically(doc, first, extend);
    else if (doc.cursor.line > bottom) moveVertically(doc, bottom, extend);
    return 1;
}

}  // namespace

bool isBlankLine(std::string_view text) {
    return std::all_of(text.begin(), text.end(), isBlank);
}

bool paragraphAt(const Document& doc, int32_t line, int32_t& first, int32_t& last) {
    const LineList& ll = doc.lines;
    const LineRef at = ll.find(line);
    if (isBlankLine(ll.text(at))) return false;
    first = last = line;
    for (LineRef r = ll.prev(at); r != kNoLine && !isBlankLine(ll.text(r)); r = ll.prev(r)) --first;
    for (LineRef r = ll.next(at); r != kNoLine && !isBlankLine(ll.text(r)); r = ll.next(r)) ++last;
    return true;
}

int allowedColumn(const Document& doc, int32_t line, int col) {
    col = std::clamp(col, 0, kMaxColumns);
    const ColumnHit hit = locateColumn(lineText(doc, line), col);
    if (hit.padding > 0) return options().cursorBeyondEol ? col : hit.charColumn;
    if (hit.insideTab && !options().cursorThroughTabs) return hit.charColumn;
    return col;
}

int placeCursor(Document& doc, Pos to, bool extend, bool vertical, int wantedCol) {
    const Pos from = doc.cursor;
    const bool hadSelection = doc.selExists;
    const Pos oldAnchor = doc.selAnchor, oldEnd = doc.selEnd;
    if (extend || doc.selecting) {
        extendSelection(doc, to);
        setCursor(doc, to);
    } else {
        setCursor(doc, to);
        clearSelection(doc);
    }
    doc.desiredCol = vertical ? wantedCol : -1;
    keepCursorVisible(doc);
    const bool selectionChanged =
        hadSelection != doc.selExists ||
        (doc.selExists && (oldAnchor != doc.selAnchor || oldEnd != doc.selEnd));
    const bool moved = from != doc.cursor;
    if (doc.view) {
        if (selectionChanged) doc.view->redraw();
        if (moved) doc.view->refreshStatus();
    }
    return moved || selectionChanged ? 1 : 0;
}

int moveCursor(Document& doc, Move move, bool extend) {
    const Pos c = doc.cursor;
    switch (move) {
        case Move::Left: return placeCursor(doc, leftOf(doc), extend);
        case Move::Right: return placeCursor(doc, rightOf(doc), extend);
        case Move::Up: return moveVertically(doc, c.line - 1, extend);
        case Move::Down: return moveVertically(doc, c.line + 1, extend);
        case Move::PageUp: return pageMove(doc, -1, extend);
        case Move::PageDown: return pageMove(doc, 1, extend);
        case Move::LineStart: return placeCursor(doc, makePos(0, c.line), extend);
        case Move::LineEnd: return placeCursor(doc, makePos(lineWidthAt(doc, c.line), c.line), extend);
        case Move::WordLeft: return placeCursor(doc, wordLeftOf(doc, WordStyle::Plain), extend);
        case Move::WordRight: return placeCursor(doc, wordRightOf(doc, WordStyle::Plain), extend);
        case Move::WordLeftMS: return placeCursor(doc, wordLeftOf(doc, WordStyle::MS), extend);
        case Move::WordRightMS: return placeCursor(doc, wordRightOf(doc, WordStyle::MS), extend);
        case Move::WordLeftSmart: return placeCursor(doc, wordLeftOf(doc, WordStyle::Smart), extend);
        case Move::WordRightSmart: return placeCursor(doc, wordRightOf(doc, WordStyle::Smart), extend);
        case Move::TextStart: return placeCursor(doc, makePos(0, 0), extend);
        case Move::TextEnd: return placeCursor(doc, textEnd(doc), extend);
        case Move::TopOfWindow: return moveVertically(doc, firstVisible(doc), extend);
        case Move::BottomOfWindow: return moveVertically(doc, firstVisible(doc) + pageLines(doc) - 1, extend);
        case Move::ScrollUp: return scrollBy(doc, -1, extend);
        case Move::ScrollDown: return scrollBy(doc, 1, extend);
        case Move::FirstNonBlank: return placeCursor(doc, firstNonBlankOf(doc), extend);
        case Move::ParaUp: return placeCursor(doc, paraUpOf(doc), extend);
        case Move::ParaDown: return placeCursor(doc, paraDownOf(doc), extend);
        case Move::NextTabPos: return placeCursor(doc, nextTabStopOf(doc), extend);
        case Move::PrevTabPos: return placeCursor(doc, prevTabStopOf(doc), extend);
    }
    return 0;
}

// While line drawing is on, the cursor keys draw.
int cmdCursorLeft(Document& doc, const CommandCall&) {
    if (doc.lineDrawing && drawLineStep(doc, DrawDir::Left)) return 1;
    return moveCursor(doc, Move::Left, false);
}
int cmdCursorRight(Document& doc, const CommandCall&) {
    if (doc.lineDrawing && drawLineStep(doc, DrawDir::Right)) return 1;
    return moveCursor(doc, Move::Right, false);
}
int cmdCursorUp(Document& doc, const CommandCall&) {
    if (doc.lineDrawing && drawLineStep(doc, DrawDir::Up)) return 1;
    return moveCursor(doc, Move::Up, false);
}
int cmdCursorDown(Document& doc, const CommandCall&) {
    if (doc.lineDrawing && drawLineStep(doc, DrawDir::Down)) return 1;
    return moveCursor(doc, Move::Down, false);
}
int cmdPageUp(Document& doc, const CommandCall&) { return moveCursor(doc, Move::PageUp, false); }
int cmdPageDown(Document& doc, const CommandCall&) { return moveCursor(doc, Move::PageDown, false); }
int cmdLineStart(Document& doc, const CommandCall&) { return moveCursor(doc, Move::LineStart, false); }
int cmdLineEnd(Document& doc, const CommandCall&) { return moveCursor(doc, Move::LineEnd, false); }
int cmdWordLeft(Document& doc, const CommandCall&) { return moveCursor(doc, Move::WordLeft, false); }
int cmdWordRight(Document& doc, const CommandCall&) { return moveCursor(doc, Move::WordRight, false); }
int cmdTextStart(Document& doc, const CommandCall&) { return moveCursor(doc, Move::TextStart, false); }
int cmdTextEnd(Document& doc, const CommandCall&) { return moveCursor(doc, Move::TextEnd, false); }
int cmdTopOfWindow(Document& doc, const CommandCall&) { return moveCursor(doc, Move::TopOfWindow, false); }
int cmdBottomOfWindow(Document& doc, const CommandCall&) { return moveCursor(doc, Move::BottomOfWindow, false); }
int cmdScrollUp(Document& doc, const CommandCall&) { return moveCursor(doc, Move::ScrollUp, false); }
int cmdScrollDown(Document& doc, const CommandCall&) { return moveCursor(doc, Move::ScrollDown, false); }
int cmdFirstNonBlank(Document& doc, const CommandCall&) { return moveCursor(doc, Move::FirstNonBlank, false); }
int cmdParaUp(Document& doc, const CommandCall&) { return moveCursor(doc, Move::ParaUp, false); }
int cmdParaDown(Document& doc, const CommandCall&) { return moveCursor(doc, Move::ParaDown, false); }
int cmdNextTabPos(Document& doc, const CommandCall&) { return moveCursor(doc, Move::NextTabPos, false); }
int cmdPrevTabPos(Document& doc, const CommandCall&) { return moveCursor(doc, Move::PrevTabPos, false); }
int cmdWordLeftMS(Document& doc, const CommandCall&) { return moveCursor(doc, Move::WordLeftMS, false); }
int cmdWordRightMS(Document& doc, const CommandCall&) { return moveCursor(doc, Move::WordRightMS, false); }
int cmdWordLeftSmart(Document& doc, const CommandCall&) { return moveCursor(doc, Move::WordLeftSmart, false); }
int cmdWordRightSmart(Document& doc, const CommandCall&) { return moveCursor(doc, Move::WordRightSmart, false); }

// The parameter is 1-based; 0 and numbers past the end are pulled to the nearest line.
int cmdGoToLineNum(Document& doc, const CommandCall& call) {
    const int64_t wanted = static_cast<int64_t>(call.param) - 1;
    const auto line = static_cast<int32_t>(std::clamp<int64_t>(wanted, 0, doc.lines.lastIndex));
    return placeCursor(doc, makePos(0, line), false);
}

int cmdGoToColumnNum(Document& doc, const CommandCall& call) {
    const int64_t wanted = std::clamp<int64_t>(static_cast<int64_t>(call.param) - 1, 0, kMaxColumns);
    const int32_t line = doc.cursor.line;
    return placeCursor(doc, makePos(allowedColumn(doc, line, static_cast<int>(wanted)), line), false);
}

}  // namespace zol
