#include <algorithm>
#include <string>
#include <vector>

#include "engine/bookmarks.h"
#include "engine/commands/edit_result.h"
#include "engine/commands/handlers.h"
#include "engine/commands/motion.h"
#include "engine/edit.h"
#include "engine/shell.h"

namespace zol {
namespace {

int goTo(Document& doc, Pos p) {
    p.line = std::clamp<int32_t>(p.line, 0, lastLine(doc));
    p.col = static_cast<int16_t>(allowedColumn(doc, p.line, std::max<int>(p.col, 0)));
    return placeCursor(doc, p, false);
}

void redrawView(Document& doc) {
    if (doc.view) doc.view->redraw();
}

// The bookmarked lines, each with a line end, as copying lines puts them.
std::string bookmarkedText(const Document& doc, const std::vector<int32_t>& lines) {
    std::string out;
    for (int32_t l : lines) {
        out += lineText(doc, l);
        out += "\r\n";
    }
    return out;
}

// Removes the given lines (ascending) with one replacement from the first of them to
// the last, so that one Undo brings them all back.
bool removeLines(Document& doc, const std::vector<int32_t>& lines) {
    const int32_t first = lines.front(), last = lines.back();
    std::vector<std::string_view> kept;
    size_t next = 0;
    for (int32_t l = first; l <= last; ++l) {
        if (next < lines.size() && lines[next] == l) {
            ++next;
            continue;
        }
        kept.push_back(lineText(doc, l));
    }
    std::string text;
    Pos from, to;
    if (first > 0) {
        // Take the line end before the first removed line rather than after the last,
        // so that removing the last line of the document leaves no empty line behind.
        from = makePos(lineWidthAt(doc, first - 1), first - 1);
        to = makePos(lineWidthAt(doc, last), last);
        for (std::string_view k : kept) (text += "\r\n") += k;
    } else if (last < lastLine(doc)) {
        from = makePos(0, 0);
        to = makePos(0, last + 1);
        for (std::string_view k : kept) (text += k) += "\r\n";
    } else {
        from = makePos(0, 0);
        to = makePos(lineWidthAt(doc, last), last);
        for (size_t i = 0; i < kept.size(); ++i) {
            if (i) text += "\r\n";
            text += kept[i];
        }
    }
    // The marks go with their lines, whichever line record the replacement keeps.
    for (int32_t l : lines) setBookmark(doc, l, false);
    if (!replaceRange(doc, from, to, text)) {
        for (int32_t l : lines) setBookmark(doc, l, true);
        return false;
    }
    setCursor(doc, makePos(0, std::min(first, lastLine(doc))));
    return true;
}

int deleteBookmarked(Document& doc) {
    const std::vector<int32_t> lines = bookmarkedLines(doc);
    if (lines.empty()) return 0;
    return finishEdit(doc, removeLines(doc, lines));
}

}  // namespace

int cmdSetMark(Document& doc, const CommandCall& call) {
    NumberedMark& m = doc.marks.numbered[static_cast<size_t>(call.id - idOf(Cmd::SetMark0))];
    m.pos = doc.cursor;
    m.set = true;
    return 1;
}

int cmdGotoMark(Document& doc, const CommandCall& call) {
    const NumberedMark& m = doc.marks.numbered[static_cast<size_t>(call.id - idOf(Cmd::GotoMark0))];
    if (!m.set) return 0;
    goTo(doc, m.pos);
    return 1;
}

int cmdBookmarkToggle(Document& doc, const CommandCall&) {
    setBookmark(doc, doc.cursor.line, !isBookmarked(doc, doc.cursor.line));
    redrawView(doc);
    return 1;
}

int cmdBookmarkSet(Document& doc, const CommandCall&) {
    if (isBookmarked(doc, doc.cursor.line)) return 0;
    setBookmark(doc, doc.cursor.line, true);
    redrawView(doc);
    return 1;
}

int cmdBookmarkClearAll(Document& doc, const CommandCall&) {
    clearAllBookmarks(doc);
    redrawView(doc);
    return 1;
}

int cmdBookmarkNext(Document& doc, const CommandCall&) {
    const int32_t line = nextBookmark(doc, doc.cursor.line);
    return line < 0 ? 0 : goTo(doc, makePos(doc.cursor.col, line));
}

int cmdBookmarkPrev(Document& doc, const CommandCall&) {
    const int32_t line = prevBookmark(doc, doc.cursor.line);
    return line < 0 ? 0 : goTo(doc, makePos(doc.cursor.col, line));
}

int cmdBookmarks(Document& doc, const CommandCall&) {
    if (!doc.view) return 0;
    doc.view->namedBookmarksDialog();
    return 1;
}

int cmdSaveCursorPos(Document& doc, const CommandCall&) {
    std::vector<Pos>& stack = doc.marks.cursorStack;
    if (stack.size() >= kCursorStackDepth) stack.erase(stack.begin());
    stack.push_back(doc.cursor);
    return 1;
}

int cmdRestoreCursorPos(Document& doc, const CommandCall&) {
    std::vector<Pos>& stack = doc.marks.cursorStack;
    if (stack.empty()) return 0;
    const Pos p = stack.back();
    stack.pop_back();
    goTo(doc, p);
    return 1;
}

int cmdDeleteBookmarkedLines(Document& doc, const CommandCall&) { return deleteBookmarked(doc); }

int cmdCopyBookmarkedLines(Document& doc, const CommandCall&) {
    const std::vector<int32_t> lines = bookmarkedLines(doc);
    if (lines.empty()) return 0;
    shell().setClipboard(ClipboardData{bookmarkedText(doc, lines)});
    return 1;
}

int cmdCutBookmarkedLines(Document& doc, const CommandCall&) {
    const std::vector<int32_t> lines = bookmarkedLines(doc);
    if (lines.empty()) return 0;
    shell().setClipboard(ClipboardData{bookmarkedText(doc, lines)});
    return finishEdit(doc, removeLines(doc, lines));
}

}  // namespace zol
