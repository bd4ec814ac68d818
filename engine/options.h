// Global editing options: one set for the whole process, shared by every document.
//
// The values below are the engine's own, in force before any settings file is read.
// The settings store's keys carry defaults of their own that a missing key gives, and
// two of them differ on purpose: a new profile indents with tabs ("AutoIndentUsingTabs"
// 1) and keeps the cursor out of tabs ("CursorThroughtTabs" 0), while the engine alone
// indents with blanks and lets the cursor stand inside a tab.
#pragma once
#include <cstdint>

namespace zol {

constexpr int kMinTabSize = 2;
constexpr int kMaxTabSize = 20;
constexpr int kMaxUndoRecords = 384;  // hard capacity of each undo and redo stack

// How a long line breaks into screen rows ("WordWrapMethod" 1, 2, 3).
enum class WrapMethod : int {
    WindowChars = 1,  // rows as wide as the window, broken at any character
    ColumnWords = 2,  // rows as wide as the word-wrap column, broken after blanks
    WindowWords = 3,  // rows as wide as the window, broken after blanks
};

struct EditOptions {
    int tabSize = 8;  // kMinTabSize..kMaxTabSize, used by every column computation
    int blockIndent = 1;
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
    int wordWrapColumn = 76;
    WrapMethod wordWrapMethod = WrapMethod::WindowWords;
    bool wordWrapVisible = true;
    bool backupFiles = true;
    int backupFilesAs = 0;  // 0 "NAME.BAK", 1 "NAME.EXT.BAK"
    bool lineNumbers = false;
    bool ruler = true;
    bool visibleSpaces = false;
    bool blockCaret = false;
    int undoLevels = 20;  // at most kMaxUndoRecords
    bool undoAfterSave = false;
    bool detectFileFormat = true;
    int defaultFileFormat = 0;  // 0 CR LF, 1 LF, 2 CR
    bool checkFileTime = true;
    bool splitLongLines = true;
    bool autoSave = true;
    int autoSaveEvery = 10;  // minutes
};

// The process-wide options. Setters below clamp; direct writes must keep the ranges.
EditOptions& options();

// Out-of-range requests are pulled to the nearest bound.
void setTabSize(int size);
// Takes the method by its number, as settings, scripts and plug-ins give it: only 1, 2
// and 3 are accepted; returns false (and keeps the old method) otherwise.
bool setWordWrapMethod(int method);

}  // namespace zol
