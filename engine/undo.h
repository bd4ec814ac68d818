// Undo and redo: two bounded stacks of edit records per document.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "engine/options.h"
#include "engine/position.h"

namespace zol {

// What a record undoes, as the Undo menu item names it. The numbers are the historic
// ones and deliberately not in the order of the labels.
enum class UndoKind : int32_t {
    Plain = 1,
    Typing = 2,
    Deleting = 3,
    Cut = 4,
    Paste = 5,
    Replace = 6,
    Redo = 7,
    Indent = 8,
    Unindent = 9,
    InsertFile = 10,
    CenterLine = 11,
    DuplicateLine = 12,
    ChangeCase = 13,
    InsertTimeDate = 14,
    InsertSymbol = 15,
    ConvertText = 16,
    Formatting = 17,
    Transpose = 18,
    Spelling = 19,
};

// How to reverse one change: delete `range` (when present), then insert `text`
// (when present) at `at`. Text spans lines with CR LF between them.
struct EditRecord {
    bool hasRange = false;
    Pos rangeStart, rangeEnd;
    Pos at;
    std::optional<std::string> text;
    UndoKind kind = UndoKind::Plain;  // chosen from the command that made the record
};

struct UndoStacks {
    std::vector<EditRecord> undo;  // size <= kMaxUndoRecords; back() is the top
    std::vector<EditRecord> redo;  // size <= kMaxUndoRecords
    bool lastWasUndoRedo = false;  // the latest change was an undo or a redo
};

// Action kind of the record a command makes.
UndoKind undoKindOf(uint16_t commandId);
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
