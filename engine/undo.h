// Undo and redo: two bounded stacks of edit records per document.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "engine/options.h"
#include "engine/position.h"

namespace zol {

// How to reverse one change: delete `range` (when present), then insert `text`
// (when present) at `at`. Text spans lines with CR LF between them.
struct EditRecord {
    bool hasRange = false;
    Pos rangeStart, rangeEnd;
    Pos at;
    std::optional<std::string> text;
    int32_t kind = 1;  // action kind, chosen from the command that made the record
};

struct UndoStacks {
    std::vector<EditRecord> undo;  // size <= kMaxUndoRecords; back() is the top
    std::vector<EditRecord> redo;  // size <= kMaxUndoRecords
    bool lastWasUndoRedo = false;  // the latest change was an undo or a redo
};

// Action kind of the record a command makes.
int32_t undoKindOf(uint16_t commandId);
// Menu label for the top of the undo stack ("Can't &Undo" when empty).
const char* undoLabel(const UndoStacks& s);

struct Document;
// Takes a freshly made record of the current command (merging or pushing).
void recordEdit(Document& doc, EditRecord rec);
// The command handlers of "Undo" and "Redo".
void undo(Document& doc);
void redo(Document& doc);
void clearUndo(Document& doc);
void clearRedo(Document& doc);

}  // namespace zol
