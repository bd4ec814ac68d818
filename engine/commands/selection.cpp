#include "engine/selection.h"

#include "engine/columns.h"
#include "engine/commands/handlers.h"
#include "engine/commands/motion.h"
#include "engine/shell.h"
#include "engine/words.h"

namespace zol {
namespace {

int changedSelection(Document& doc) {
    if (doc.view) doc.view->redraw();
    return 1;
}

// Selects from anchor to end in character mode with the cursor at the end.
int selectSpan(Document& doc, Pos anchor, Pos end) {
    placeCursor(doc, end, false);
    doc.selMode = SelMode::Char;
    setSelection(doc, anchor, end);
    return changedSelection(doc);
}

// Where a selection of whole lines ending after line `last` ends: the start of the
// next line, or the end of the text on the last line.
Pos afterLine(const Document& doc, int32_t last) {
    return last < doc.lines.lastIndex ? makePos(0, last + 1) : makePos(lineWidthAt(doc, last), last);
}

// A character selection of whole lines whose moving end is the cursor.
bool selectsWholeLinesDown(const Document& doc) {
    return doc.selExists && doc.selMode == SelMode::Char && doc.selAnchor.col == 0 &&
           before(doc.selAnchor, doc.selEnd) && doc.selEnd == doc.cursor &&
           (doc.cursor.col == 0 || doc.cursor == afterLine(doc, doc.lines.lastIndex));
}

int setMode(Document& doc, SelMode mode) {
    doc.selMode = mode;
    return changedSelection(doc);
}

}  // namespace

int cmdLeftSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::Left, true); }
int cmdRightSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::Right, true); }
int cmdUpSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::Up, true); }
int cmdDownSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::Down, true); }
int cmdPageUpSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::PageUp, true); }
int cmdPageDownSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::PageDown, true); }
int cmdLineStartSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::LineStart, true); }
int cmdLineEndSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::LineEnd, true); }
int cmdWordLeftSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::WordLeft, true); }
int cmdWordRightSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::WordRight, true); }
int cmdTextStartSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::TextStart, true); }
int cmdTextEndSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::TextEnd, true); }
int cmdTopOfWindowSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::TopOfWindow, true); }
int cmdBottomOfWindowSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::BottomOfWindow, true); }
int cmdParaUpSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::ParaUp, true); }
int cmdParaDownSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::ParaDown, true); }
int cmdPrevTabPosSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::PrevTabPos, true); }
int cmdNextTabPosSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::NextTabPos, true); }
int cmdWordLeftMSSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::WordLeftMS, true); }
int cmdWordRightMSSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::WordRightMS, true); }
int cmdWordLeftSmartSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::WordLeftSmart, true); }
int cmdWordRightSmartSelect(Document& doc, const CommandCall&) { return moveCursor(doc, Move::WordRightSmart, true); }

// Marking: the cursor becomes the anchor and every movement extends from it until
// EndSelect (or HideSelect).
int cmdStartSelect(Document& doc, const CommandCall&) {
    const bool had = doc.selExists;
    clearSelection(doc);
    doc.selecting = true;
    if (had && doc.view) doc.view->redraw();
    return 1;
}

int cmdEndSelect(Document& doc, const CommandCall&) {
    if (!doc.selecting) return 0;
    setSelection(doc, doc.selAnchor, doc.cursor);
    doc.selecting = false;
    return changedSelection(doc);
}

int cmdHideSelect(Document& doc, const CommandCall&) {
    if (!doc.selExists && !doc.selecting) return 0;
    clearSelection(doc);
    doc.selecting = false;
    return changedSelection(doc);
}

// The word or run of punctuation at the cursor; on a blank, the word just before it.
int cmdSelectWord(Document& doc, const CommandCall&) {
    const int32_t line = doc.cursor.line;
    const std::string_view text = lineText(doc, line);
    const size_t at = locateColumn(text, doc.cursor.col).offset;
    size_t begin = at, end = at;
    if (at < text.size() && charClass(text[at]) == CharClass::Punct) {
        while (begin > 0 && charClass(text[begin - 1]) == CharClass::Punct) --begin;
        while (end < text.size() && charClass(text[end]) == CharClass::Punct) ++end;
    } else if (!wordAt(text, at, begin, end)) {
        return 0;
    }
    return selectSpan(doc, makePos(columnOfOffset(text, begin), line), makePos(columnOfOffset(text, end), line));
}

// Repeated on a selection of whole lines, each call adds the next line.
int cmdSelectLine(Document& doc, const CommandCall&) {
    const int32_t line = doc.cursor.line;
    if (selectsWholeLinesDown(doc)) {
        if (doc.cursor == afterLine(doc, doc.lines.lastIndex)) return 0;
        return selectSpan(doc, doc.selAnchor, afterLine(doc, line));
    }
    return selectSpan(doc, makePos(0, line), afterLine(doc, line));
}

int cmdSelectAll(Document& doc, const CommandCall&) {
    return selectSpan(doc, makePos(0, 0), afterLine(doc, doc.lines.lastIndex));
}

// The paragraph holding the cursor, with its last line end; nothing on a blank line.
int cmdSelectPara(Document& doc, const CommandCall&) {
    int32_t first, last;
    if (!paragraphAt(doc, doc.cursor.line, first, last)) return 0;
    return selectSpan(doc, makePos(0, first), afterLine(doc, last));
}

// Switching the mode keeps the two ends; the same selection is read the other way.
int cmdToggleSelMode(Document& doc, const CommandCall&) {
    return setMode(doc, doc.selMode == SelMode::Char ? SelMode::Column : SelMode::Char);
}
int cmdSetCharSelMode(Document& doc, const CommandCall&) { return setMode(doc, SelMode::Char); }
int cmdSetColumnSelMode(Document& doc, const CommandCall&) { return setMode(doc, SelMode::Column); }

}  // namespace zol
