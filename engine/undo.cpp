#include "engine/undo.h"

#include <algorithm>

#include "engine/document.h"
#include "engine/edit.h"
#include "engine/shell.h"

namespace zol {
namespace {

constexpr uint16_t kUndoCmd = 120;
constexpr uint16_t kRedoCmd = 121;

// Labels by action kind; index 0 is the label without a kind.
const char* const kUndoLabels[] = {
    "&Undo",          "&Undo",           "&Undo Typing",       "&Undo Deleting",
    "&Undo Cut",      "&Undo Paste",     "&Undo Replace",      "&Undo Redo",
    "&Undo Indent",   "&Undo Unindent",  "&Undo Insert File",  "&Undo Center Line",
    "&Undo Duplicate Line", "&Undo Change Case", "&Undo Insert Time/Date",
    "&Undo Insert Symbol",  "&Undo Convert Text", "&Undo Formating", "&Undo Transpose",
    "&Undo Spelling",
};
const char* const kCantUndo = "Can't &Undo";

bool merges(uint16_t cmd) { return cmd == 2 || cmd == 6 || cmd == 8 || cmd == 125 || cmd == 89; }

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
            top.at = rec.at;
        } else if (cmd == 6) {
            top.text = *rec.text + *top.text;
            top.at = rec.at;
        } else {
            top.text->append(*rec.text);
        }
    }
}

// The reverse of an undo waits on the redo stack. Undo puts it there itself: the
// last-command id cannot tell, as an edit made after an Undo by a script or plug-in
// (not through the executor) leaves it at 120.
void pushRedo(UndoStacks& s, EditRecord rec) {
    rec.kind = undoKindOf(kUndoCmd);
    if (static_cast<int>(s.redo.size()) >= undoLimit()) s.redo.erase(s.redo.begin());
    s.redo.push_back(std::move(rec));
}

// Applies a record and returns the record that reverses what it did.
EditRecord apply(Document& doc, const EditRecord& rec) {
    EditRecord back;
    std::string removed;
    Pos start = rec.rangeStart;
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

int32_t undoKindOf(uint16_t id) {
    switch (id) {
        case 2: case 15: case 16: return 2;
        case 123: case 126: case 128: case 400: return 4;
        case 125: return 5;
        case 91: case 92: return 6;
        case 121: return 7;
        case 80: return 8;
        case 81: return 9;
        case 253: return 10;
        case 19: return 11;
        case 17: return 12;
        case 21: return 14;
        case 4: return 15;
        case 207: return 16;
        case 212: return 19;
        default: break;
    }
    if (id >= 6 && id <= 13) return 3;
    if (id >= 130 && id <= 138) return 13;
    if (id >= 86 && id <= 89) return 17;
    if (id >= 140 && id <= 142) return 18;
    return 1;
}

const char* undoLabel(const UndoStacks& s) {
    if (s.undo.empty()) return kCantUndo;
    const int32_t k = s.undo.back().kind;
    return k >= 0 && k < static_cast<int32_t>(std::size(kUndoLabels)) ? kUndoLabels[k] : kUndoLabels[0];
}

void recordEdit(Document& doc, EditRecord rec) {
    UndoStacks& s = doc.undo;
    const uint16_t cmd = doc.lastCmd;
    if (cmd != kRedoCmd) s.redo.clear();
    // Redo sets the flag again once its own record is in.
    s.lastWasUndoRedo = false;
    if (!s.undo.empty() && cmd == doc.prevCmd && merges(cmd)) {
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
    doc.lastCmd = kUndoCmd;
    UndoStacks& s = doc.undo;
    if (s.undo.empty() || doc.readOnly) return;
    EditRecord rec = std::move(s.undo.back());
    s.undo.pop_back();
    EditRecord back = apply(doc, rec);
    if (back.hasRange || back.text) pushRedo(s, std::move(back));
    if (doc.view) doc.view->redraw();
    s.lastWasUndoRedo = true;
}

void redo(Document& doc) {
    doc.lastCmd = kRedoCmd;
    UndoStacks& s = doc.undo;
    if (s.redo.empty() || doc.readOnly) return;
    if (!s.lastWasUndoRedo) {
        s.redo.clear();
        return;
    }
    EditRecord rec = std::move(s.redo.back());
    s.redo.pop_back();
    EditRecord back = apply(doc, rec);
    if (back.hasRange || back.text) recordEdit(doc, std::move(back));
    if (doc.view) doc.view->redraw();
    s.lastWasUndoRedo = true;
}

void clearUndo(Document& doc) { doc.undo.undo.clear(); }
void clearRedo(Document& doc) { doc.undo.redo.clear(); }

}  // namespace zol
