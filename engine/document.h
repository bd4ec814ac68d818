// One open text document: its lines, cursor, selection and flags.
#pragma once
#include <cstdint>
#include <string>

#include "engine/line_list.h"
#include "engine/marks.h"
#include "engine/position.h"
#include "engine/text_format.h"
#include "engine/undo.h"

namespace zol {

class EditorView;

enum class SelMode : int32_t { Char = 1, Column = 2 };
// The keystroke-macro recorder of a document.
enum class Recorder : uint8_t { Idle = 0, Recording = 1 };

// A number no other document of the process has had, never 0.
uint64_t nextDocumentSerial();

struct Document {
    LineList lines;
    std::string fileName;           // full path, or a "noname01.txt" style name
    bool hasFile = false;           // fileName names a file on disk
    TextFormat textFormat = TextFormat::Dos;
    Pos cursor;                     // cursor.line == lines.currentIndex after every command
    int desiredCol = -1;            // column kept over up/down moves, -1 when none

    bool selExists = false;
    SelMode selMode = SelMode::Char;
    Pos selAnchor, selEnd;          // anchor and moving end; either order
    bool selecting = false;         // StartSelect .. EndSelect marking is on

    bool wordWrap = false;
    bool modified = false;
    bool readOnly = false;
    bool outputWindow = false;
    bool lineDrawing = false;
    uint32_t fileTime = 0;          // modification time when last read or written, 0 unknown
    int syntaxSlot = 0;             // language definition 1..20, 0 none
    // Lines [0, commentsKnown) carry current comment bits; the later ones are worked out
    // when something first asks for them (syntax/doc_syntax.h), so opening a big file
    // does not scan it. Mutable: working a bit out does not change the document.
    mutable int32_t commentsKnown = 0;

    UndoStacks undo;
    uint16_t lastCmd = 0, prevCmd = 0;
    bool macroRunning = false;
    Recorder recorder = Recorder::Idle;
    uint16_t stateWord = 0;         // reset by cursor placement from outside
    DocMarks marks;
    std::string autoSaveFile;       // side file in the home, empty until the first auto-save

    EditorView* view = nullptr;     // window showing the document, if any
    // Tells the document apart from one that later takes its place in memory.
    uint64_t serial = nextDocumentSerial();
};

// Line accessors by index (0-based). Out-of-range indexes are the caller's fault.
std::string_view lineText(const Document& doc, int32_t line);
int lineWidthAt(const Document& doc, int32_t line);
inline int32_t lastLine(const Document& doc) { return doc.lines.lastIndex; }

// Moves the cursor and keeps the line cache on the cursor's line. Clamps to the text.
void setCursor(Document& doc, Pos p);
// Marks the document changed and tells its view.
void setModified(Document& doc, bool modified);
// Replaces the whole text by one empty line and forgets undo, selection and cursor.
void resetText(Document& doc);
// After the text was replaced wholesale: cursor to the start, no selection, no undo.
void forgetEditState(Document& doc);

}  // namespace zol
