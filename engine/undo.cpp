#include "engine/undo.h"

#include <algorithm>
#include <new>

#include "engine/columns.h"
#include "engine/command_table.h"
#include "engine/document.h"
#include "engine/edit.h"
#include "engine/shell.h"
#include "engine/text_util.h"

namespace zol {
namespace {

const struct {
    UndoKind kind;
    const char* label;
} kUndoLabels[] = {
    {UndoKind::Plain, "&Undo"},
    {UndoKind::Typing, "&Undo Typing"},
    {UndoKind::Deleting, "&Undo Deleting"},
    {UndoKind::Cut, "&Undo Cut"},
    {UndoKind::Paste, "&Undo Paste"},
    {UndoKind::Replace, "&Undo Replace"},
    {UndoKind::Redo, "&Undo Redo"},
    {UndoKind::Indent, "&Undo Indent"},
    {UndoKind::Unindent, "&Undo Unindent"},
    {UndoKind::InsertFile, "&Undo Insert File"},
    {UndoKind::CenterLine, "&Undo Center Line"},
    {UndoKind::DuplicateLine, "&Undo Duplicate Line"},
    {UndoKind::ChangeCase, "&Undo Change Case"},
    {UndoKind::InsertTimeDate, "&Undo Insert Time/Date"},
    {UndoKind::InsertSymbol, "&Undo Insert Symbol"},
    {UndoKind::ConvertText, "&Undo Convert Text"},
    {UndoKind::Formatting, "&Undo Formating"},
    {UndoKind::Transpose, "&Undo Transpose"},
    {UndoKind::Spelling, "&Undo Spelling"},
};
const char* const kCantUndo = "Can't &Undo";

// Typing-like commands repeated one after the other make one record.
bool merges(uint16_t id) {
    switch (static_cast<Cmd>(id)) {
        case Cmd::InsertChar:
        case Cmd::Backspace:
        case Cmd::DeleteChar:
        case Cmd::Paste:
        case Cmd::JustifyBlockPara: return true;
        default: return false;
    }
}

// Where a deleted text ended before it was deleted from `at`.
Pos endOfText(Pos at, std::string_view text) {
    const std::vector<std::string_view> rows = splitLines(text, FinalLineEnd::StartsEmptyRow);
    int col = rows.size() == 1 ? at.col : 0;
    for (char c : rows.back()) col = advanceColumn(c, col);
    return makePos(col, at.line + static_cast<int32_t>(rows.size()) - 1);
}

// Folding a record into the top one gives a record that undoes both only when the
// new change goes on from the old: a deletion just before the top's (Backspace) or
// at the same place (DeleteChar), or a range that starts where the top's range ends
// (typing, overwriting, pasting on). The same command twice in a row is not enough:
// the first may have changed nothing, leaving on top the record of a command before
// it. Anything else would undo the wrong text, so it is pushed on its own. The side
// is the command's, as merge() puts Backspace's text in front and any other after:
// a Backspace deleting at the very place where the top's text goes back took text
// that came after that text, not before it.
bool continues(const EditRecord& top, const EditRecord& rec, uint16_t cmd) {
    if (!rec.hasRange) {
        if (top.hasRange || !top.text || !rec.text) return false;
        if (cmd == idOf(Cmd::Backspace)) return endOfText(rec.at, *rec.text) == top.at;
        return rec.at == top.at;
    }
    return top.hasRange && rec.rangeStart == top.rangeEnd;
}

int undoLimit() { return std::clamp(options().undoLevels, 1, kMaxUndoRecords); }

void merge(EditRecord& top, EditRecord&& rec, uint16_t cmd) {
    if (rec.hasRange) {
        if (!top.hasRange) {
            top.hasRange = true;
            top.rangeStart = rec.rangeStart;
            top.rangeEnd = rec.rangeEnd;
        } else {
            top.rangeStart = earlier(top.rangeStart, rec.rangeStart);
            top.rangeEnd = later(top.rangeEnd, rec.rangeEnd);
        }
    }
    if (rec.text) {
        if (!top.text) {
            top.text = std::move(rec.text);
            // Undo deletes the joined range first, which pulls everything in it to its
            // start: the text the new record replaced goes back there. Its own
            // position would point into text already gone (a line end typed before
            // an overwritten character would send the character to the next line).
            top.at = top.hasRange ? top.rangeStart : rec.at;
        } else if (cmd == idOf(Cmd::Backspace)) {
            top.text = *rec.text + *top.text;
            top.at = rec.at;
        } else {
            top.text->append(*rec.text);
        }
    }
}

// The reverse of an undo waits on the redo stack. Undo puts it there itself: the
// last-command id cannot tell, as an edit made after an Undo by a script or plug-in
// (not through the executor) leaves it at Undo.
void pushRedo(UndoStacks& s, EditRecord rec) {
    rec.kind = undoKindOf(idOf(Cmd::Undo));
    if (static_cast<int>(s.redo.size()) >= undoLimit()) s.redo.erase(s.redo.begin());
    s.redo.push_back(std::move(rec));
}

// Writes patches into their lines, collecting what they replace into `old`.
void putTexts(LineList& ll, const LinePatches& patches, LinePatches* old) {
    int32_t at = patches.lines.front();
    LineRef r = ll.find(at);
    for (size_t i = 0; i < patches.lines.size(); ++i) {
        for (; at < patches.lines[i]; ++at) r = ll.next(r);
        if (old) old->add(at, ll.text(r));
        r = ll.setText(r, patches.textOf(i));
    }
}

// Applies a record and returns the record that reverses what it did.
EditRecord apply(Document& doc, const EditRecord& rec) {
    EditRecord back;
    if (rec.patches) {
        back.patches = swapLineTexts(doc, *rec.patches);
        const int32_t first = rec.patches->lines.front(), last = rec.patches->lines.back();
        if (back.patches) notifyChanged(doc, first, last - first, last - first);
        setCursor(doc, makePos(lineWidthAt(doc, last), last));
        return back;
    }
    std::string removed;
    Pos start = rec.rangeStart;
    // Text that replaced lines one for one (a block indent, a change of case, a
    // conversion) goes back line for line, so that the lines keep their bookmarks.
    if (rec.hasRange && rec.text && rec.at == earlier(rec.rangeStart, rec.rangeEnd)) {
        Pos end;
        if (rawReplaceLines(doc, rec.rangeStart, rec.rangeEnd, *rec.text, &removed, &end)) {
            back.hasRange = true;
            back.rangeStart = back.at = rec.at;
            back.rangeEnd = end;
            back.text = std::move(removed);
            setCursor(doc, end);
            return back;
        }
    }
    if (rec.hasRange) {
        setCursor(doc, rec.rangeStart);
        if (rawDelete(doc, rec.rangeStart, rec.rangeEnd, &removed)) {
            start = earlier(rec.rangeStart, rec.rangeEnd);
            back.text = std::move(removed);
            back.at = start;
        }
    }
    if (rec.text) {
        setCursor(doc, rec.at);
        Pos end;
        if (rawInsert(doc, rec.at, *rec.text, &end)) {
            back.hasRange = true;
            back.rangeStart = rec.at;
            back.rangeEnd = end;
            setCursor(doc, end);
        }
    }
    if (rec.hasRange && !rec.text) setCursor(doc, start);
    return back;
}

}  // namespace

std::shared_ptr<LinePatches> swapLineTexts(Document& doc, const LinePatches& patches) {
    if (patches.lines.empty()) return nullptr;
    auto old = std::make_shared<LinePatches>();
    try {
        old->text.reserve(patches.text.size());
        old->lines.reserve(patches.lines.size());
        old->ends.reserve(patches.lines.size());
        putTexts(doc.lines, patches, old.get());
    } catch (const std::bad_alloc&) {
        // The lines changed so far get their texts back.
        if (!old->lines.empty()) putTexts(doc.lines, *old, nullptr);
        return nullptr;
    }
    return old;
}

UndoKind undoKindOf(uint16_t id) {
    switch (static_cast<Cmd>(id)) {
        case Cmd::InsertChar:
        case Cmd::NewLine:
        case Cmd::InsertLine: return UndoKind::Typing;
        case Cmd::Backspace:
        case Cmd::Delete:
        case Cmd::DeleteChar:
        case Cmd::DeleteBlock:
        case Cmd::DeleteWord:
        case Cmd::DeleteToEOL:
        case Cmd::DeleteToBOL:
        case Cmd::DeleteLine: return UndoKind::Deleting;
        case Cmd::Cut:
        case Cmd::CutAndAppend:
        case Cmd::CutLine:
        case Cmd::CutBookmarkedLines: return UndoKind::Cut;
        case Cmd::Paste: return UndoKind::Paste;
        case Cmd::Replace:
        case Cmd::FindNext: return UndoKind::Replace;
        case Cmd::Redo: return UndoKind::Redo;
        case Cmd::IndentBlock: return UndoKind::Indent;
        case Cmd::UnindentBlock: return UndoKind::Unindent;
        case Cmd::ReadBlock: return UndoKind::InsertFile;
        case Cmd::CenterLine: return UndoKind::CenterLine;
        case Cmd::DupLine: return UndoKind::DuplicateLine;
        case Cmd::UpperCase:
        case Cmd::LowerCase:
        case Cmd::FlipCase:
        case Cmd::UpperCaseWord:
        case Cmd::LowerCaseWord:
        case Cmd::FlipCaseWord:
        case Cmd::CapitalizeWord:
        case Cmd::TitleCase:
        case Cmd::SentenceCase: return UndoKind::ChangeCase;
        case Cmd::InsertTimeDate: return UndoKind::InsertTimeDate;
        case Cmd::InsertSymbol: return UndoKind::InsertSymbol;
        case Cmd::ConvertText: return UndoKind::ConvertText;
        case Cmd::LeftBlockPara:
        case Cmd::CenterBlockPara:
        case Cmd::RightBlockPara:
        case Cmd::JustifyBlockPara: return UndoKind::Formatting;
        case Cmd::TransposeChar:
        case Cmd::TransposeWord:
        case Cmd::TransposeLine: return UndoKind::Transpose;
        case Cmd::Spelling: return UndoKind::Spelling;
        default: return UndoKind::Plain;
    }
}

const char* undoLabel(const UndoStacks& s) {
    if (s.undo.empty()) return kCantUndo;
    for (const auto& l : kUndoLabels)
        if (l.kind == s.undo.back().kind) return l.label;
    return kUndoLabels[0].label;
}
void recordEdit(Document& doc, EditRecord rec) {
    UndoStacks& s = doc.undo;
    const uint16_t cmd = doc.lastCmd;
    if (cmd != idOf(Cmd::Redo)) s.redo.clear();
    // Redo sets the flag again once its own record is in.
    s.lastWasUndoRedo = false;
    if (!s.undo.empty() && cmd == doc.prevCmd && merges(cmd) && continues(s.undo.back(), rec, cmd)) {
        merge(s.undo.back(), std::move(rec), cmd);
        return;
    }
    const int limit = undoLimit();
    if (static_cast<int>(s.undo.size()) > limit) s.undo.clear();
    if (static_cast<int>(s.undo.size()) == limit) s.undo.erase(s.undo.begin());
    rec.kind = undoKindOf(cmd);
    s.undo.push_back(std::move(rec));
}

void undo(Document& doc) {
    doc.lastCmd = idOf(Cmd::Undo);
    UndoStacks& s = doc.undo;
    if (s.undo.empty() || doc.readOnly) return;
    EditRecord rec = std::move(s.undo.back());
    s.undo.pop_back();
    EditRecord back = apply(doc, rec);
    if (back.hasRange || back.text || back.patches) pushRedo(s, std::move(back));
    if (doc.view) doc.view->redraw();
    s.lastWasUndoRedo = true;
}

void redo(Document& doc) {
    doc.lastCmd = idOf(Cmd::Redo);
    UndoStacks& s = doc.undo;
    if (s.redo.empty() || doc.readOnly) return;
    if (!s.lastWasUndoRedo) {
        s.redo.clear();
        return;
    }
    EditRecord rec = std::move(s.redo.back());
    s.redo.pop_back();
    EditRecord back = apply(doc, rec);
    if (back.hasRange || back.text || back.patches) recordEdit(doc, std::move(back));
    if (doc.view) doc.view->redraw();
    s.lastWasUndoRedo = true;
}

void clearUndo(Document& doc) { doc.undo.undo.clear(); }
void clearRedo(Document& doc) { doc.undo.redo.clear(); }

}  // namespace zol
