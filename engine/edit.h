// The primitive edits. Every change of a document's text goes through these, so
// that undo, the modified flag and the listeners of changes see all of them.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "engine/document.h"

namespace zol {

// Inserts text (line ends CR LF, LF or CR) at the cursor as typing does: a cursor
// inside a tab's expansion first turns that tab into tab-size blanks (its own undo
// record); a cursor past the end of the line pads with blanks. The cursor ends after
// the text. Refused (false, nothing changed) when a line would exceed the capacity.
bool insertText(Document& doc, std::string_view text);
// Deletes from `from` to `to` (either order); the cursor goes to the earlier end.
// Ends past a line's end count as its end; an end inside a tab counts as the tab's start.
bool deleteRange(Document& doc, Pos from, Pos to);
// Replaces a range by text as one undo record; the cursor ends after the text.
bool replaceRange(Document& doc, Pos from, Pos to, std::string_view text);
// Gives lines first.. first + texts.size() - 1 new texts (without line ends) as one
// undo record. Every line keeps its record, so bookmarks and comment states stay with
// it. Refused (false, nothing changed) on a read-only document, lines past the end or
// a text that would outgrow the capacity.
bool rewriteLines(Document& doc, int32_t first, const std::vector<std::string>& texts);
// The text between two positions, lines joined with CR LF.
std::string rangeText(const Document& doc, Pos from, Pos to);

// Unrecorded forms for undo itself and for loading. `end` receives where the
// inserted text ends; `removed` the deleted text.
bool rawInsert(Document& doc, Pos at, std::string_view text, Pos* end);
bool rawDelete(Document& doc, Pos from, Pos to, std::string* removed);
// Replaces the text between two positions by a text of as many lines, line for line,
// so that every line keeps its record and with it its bookmark and comment state. The
// same as rawDelete followed by rawInsert at the earlier end, but refused (false,
// nothing changed) unless that end is a character boundary inside its line, the line
// counts match and every new line fits; the caller then falls back to those two.
bool rawReplaceLines(Document& doc, Pos from, Pos to, std::string_view text, std::string* removed, Pos* end);
// Pulls a position onto a character boundary inside the text.
Pos normalize(const Document& doc, Pos p);

// For a change made directly on the line list (a replace-all rewriting many lines in
// place): sets the modified flag and tells the listeners and the view, as the edits
// above do. Arguments as for ChangeListener.
void notifyChanged(Document& doc, int32_t line, int32_t removed, int32_t added);

// Called after every change: `line` is the first line touched, `removed` lines
// gone after it and `added` lines new after it.
using ChangeListener = void (*)(Document& doc, int32_t line, int32_t removed, int32_t added);
void addChangeListener(ChangeListener fn);

}  // namespace zol
