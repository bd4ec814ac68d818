// Global editing options: one set for the whole process, shared by every document.
#pragma once
#include <cstdint>

namespace zol {

constexpr int kMinTabSize = 2;
constexpr int kMaxTabSize = 20;
constexpr int kMaxUndoRecords = 384;  // hard capacity of each undo and redo stack

struct EditOptions {
    int tabSize = 8;              // 2..20, used by every column computation
    int blockIndent = 1;          // 1..16
    bool useTabChar = true;
    bool smartTab = false;
    bool autoIndent = true;
    bool autoUnindent = true;
    bool autoIndentUsingTabs = false;
    bool overwrite = false;
    bool cursorBeyondEol = true;
    bool keepTrailingBlanks = false;
    bool cursorThroughTabs = true;
    bool wordWrap = false;
    int wordWrapColumn = 76;      // at least 4
    int wordWrapMethod = 3;       // 1, 2 or 3
    bool wordWrapVisible = true;
    bool backupFiles = true;
    int backupFilesAs = 0;        // 0 "NAME.BAK", 1 "NAME.EXT.BAK"
    bool lineNumbers = false;
    bool ruler = true;
    bool visibleSpaces = false;
    bool blockCaret = false;
    int undoLevels = 20;          // 1..384
    bool undoAfterSave = false;
    bool detectFileFormat = true;
    int defaultFileFormat = 0;    // 0 CR LF, 1 LF, 2 CR
    bool checkFileTime = true;
    bool splitLongLines = true;
    bool autoSave = true;
    int autoSaveEvery = 10;       // minutes, 1..120
};

// The process-wide options. Setters below clamp; direct writes must keep the ranges.
EditOptions& options();

// Out-of-range requests are pulled to the nearest bound.
void setTabSize(int size);
// Only 1, 2 and 3 are accepted; returns false (and keeps the old method) otherwise.
bool setWordWrapMethod(int method);

}  // namespace zol
