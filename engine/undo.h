// Undo and redo: two bounded stacks of edit records per document.
#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
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

// Texts of lines that a change rewrote one for one (a replace-all), kept compactly:
// the lines' indexes and their texts back to back, instead of a copy of the stretch.
struct LinePatches {
    std::vector<int32_t> lines;  // ascending, each at most once
    std::vector<size_t> ends;    // text of lines[i] is text[ends[i-1] (0 for i 0), ends[i])
    std::string text;

    std::string_view textOf(size_t i) const {
        const size_t from = i == 0 ? 0 : ends[i - 1];
        return std::string_view(text).substr(from, ends[i] - from);
    }
    // Out of memory leaves the patches as they were.
    void add(int32_t line, std::string_view t) {
        const size_t before = text.size();
        text.append(t);
        try {
            lines.push_back(line);
            ends.push_back(text.size());
        } catch (...) {
            text.resize(before);
            if (lines.size() > ends.size()) lines.pop_back();
            throw;
        }
    }
};

// How to reverse one change: delete `range` (when present), then insert `text`
// (when present) at `at`. Text spans lines with CR LF between them. A record with
// patches instead puts those texts back into their lines and has neither.
struct EditRecord {
    bool hasRange = false;
    Pos rangeStart, rangeEnd;
    Pos at;
    std::optional<std::string> text;
    std::shared_ptr<const LinePatches> patches;  // shared by copies; never changed once made
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
// Puts each patch's text into its line and returns the texts the lines held, as
// patches too; the caller tells the listeners. The line count must be as when the
// patches were taken. Out of memory: the lines are put back as they were, null is
// returned.
std::shared_ptr<LinePatches> swapLineTexts(Document& doc, const LinePatches& patches);
// Takes a freshly made record of the current command (merging or pushing).
void recordEdit(Document& doc, EditRecord rec);
// The command handlers of "Undo" and "Redo".
void undo(Document& doc);
void redo(Document& doc);
void clearUndo(Document& doc);
void clearRedo(Document& doc);

}  // namespace zol
