#include "engine/commands/handlers.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "engine/columns.h"
#include "engine/commands/edit_result.h"
#include "engine/document.h"
#include "engine/edit.h"
#include "engine/selection.h"
#include "engine/shell.h"
#include "engine/text_util.h"
#include "engine/undo.h"

namespace zol {
namespace {

// A column selection gives both formats: the rectangle's rows and its size.
ClipboardData selectionData(const Document& doc) {
    ClipboardData data;
    Pos first, last;
    selectionRange(doc, first, last);
    if (!isColumnSelection(doc)) {
        data.text = rangeText(doc, first, last);
        return data;
    }
    const int left = selLeftCol(doc), right = selRightCol(doc);
    const int32_t bottom = std::min(last.line, lastLine(doc));
    data.text = selectedText(doc);
    data.hasColumnBlock = true;
    data.blockWidth = static_cast<uint32_t>(right - left);
    data.blockHeight = static_cast<uint32_t>(bottom - first.line + 1);
    return data;
}

// Appending keeps a column block only when both blocks have the same width.
ClipboardData appended(const ClipboardData& old, const ClipboardData& add) {
    if (old.text.empty()) return add;
    ClipboardData data;
    if (old.hasColumnBlock && add.hasColumnBlock && old.blockWidth == add.blockWidth) {
        data = old;
        data.text += "\r\n";
        data.text += add.text;
        data.blockHeight += add.blockHeight;
        return data;
    }
    data.text = old.text + add.text;
    return data;
}

// A line with a block row put in at column `col`. A tab cut by the column leaves
// blanks on both sides, so the rest of the line keeps its columns. `rowEnd` gets
// the byte offset after the row.
std::string insertRow(std::string_view line, int col, std::string_view row, size_t* rowEnd) {
    const ColumnHit hit = locateColumn(line, col);
    std::string out(line.substr(0, hit.offset));
    std::string_view rest = line.substr(hit.offset);
    int tail = 0;
    if (hit.insideTab) {
        out.append(static_cast<size_t>(col - hit.charColumn), ' ');
        tail = advanceColumn('\t', hit.charColumn) - col;
        rest.remove_prefix(1);
    } else if (rest.empty() && row.empty()) {
        *rowEnd = line.size();
        return std::string(line);
    }
    out.append(static_cast<size_t>(hit.padding), ' ');
    out += row;
    *rowEnd = out.size();
    out.append(static_cast<size_t>(tail), ' ');
    out += rest;
    return out;
}

// Puts each row of the block into successive lines at the cursor column, adding
// lines at the end of the document as needed, as one replacement of those lines.
int pasteColumnBlock(Document& doc, std::string_view text) {
    const std::vector<std::string_view> rows = splitLines(text, FinalLineEnd::EndsLastRow);
    const Pos at = doc.cursor;
    const int32_t last = lastLine(doc);
    const int32_t bottom = std::min<int32_t>(at.line + static_cast<int32_t>(rows.size()) - 1, last);
    std::string lines;
    Pos after = at;
    LineRef r = doc.lines.find(at.line);
    for (size_t i = 0; i < rows.size(); ++i) {
        if (i > 0) lines += "\r\n";
        if (at.line + static_cast<int32_t>(i) <= last) {
            size_t rowEnd = 0;
            std::string line = insertRow(doc.lines.text(r), at.col, rows[i], &rowEnd);
            if (i == 0) after.col = static_cast<int16_t>(std::min(columnOfOffset(line, rowEnd), kMaxColumns));
            lines += line;
            r = doc.lines.next(r);
        } else {
            lines.append(static_cast<size_t>(at.col), ' ');
            lines += rows[i];
        }
    }
    // The record of a column paste covers whole lines; joining it with a neighbouring
    // paste's record would undo the wrong text, so it stands alone.
    doc.prevCmd = 0;
    const bool ok = replaceRange(doc, makePos(0, at.line), makePos(lineWidthAt(doc, bottom), bottom), lines);
    doc.lastCmd = 0;
    if (ok) setCursor(doc, after);
    return finishEdit(doc, ok);
}

// Plain text goes in as typed text does; a character selection is replaced in the
// same record. A column selection is cut first, on a record of its own.
int pasteText(Document& doc, const CommandCall& call, std::string_view text) {
    if (!hasSelection(doc)) return finishEdit(doc, insertText(doc, text));
    // Pasting over a selection starts a record of its own.
    doc.prevCmd = 0;
    if (isColumnSelection(doc)) {
        if (!cmdDeleteBlock(doc, call)) return 0;
        return finishEdit(doc, insertText(doc, text));
    }
    Pos from, to;
    selectionRange(doc, from, to);
    const int width = lineWidthAt(doc, from.line);
    if (from.col <= width) return finishEdit(doc, replaceRange(doc, from, to, text));
    std::string padded(static_cast<size_t>(from.col - width), ' ');
    padded += text;
    return finishEdit(doc, replaceRange(doc, from, to, padded));
}

std::string lineWithEnd(const Document& doc) {
    std::string s(lineText(doc, doc.cursor.line));
    s += "\r\n";
    return s;
}

}  // namespace

int cmdUndo(Document& doc, const CommandCall&) {
    const bool any = !doc.undo.undo.empty();
    undo(doc);
    return any ? finishEdit(doc, true) : 0;
}

int cmdRedo(Document& doc, const CommandCall&) {
    const bool any = !doc.undo.redo.empty() && doc.undo.lastWasUndoRedo;
    redo(doc);
    return any ? finishEdit(doc, true) : 0;
}

int cmdCopy(Document& doc, const CommandCall&) {
    if (!hasSelection(doc)) return 0;
    shell().setClipboard(selectionData(doc));
    return 1;
}

int cmdCut(Document& doc, const CommandCall& call) {
    if (!hasSelection(doc)) return 0;
    shell().setClipboard(selectionData(doc));
    return cmdDeleteBlock(doc, call);
}

int cmdCopyAndAppend(Document& doc, const CommandCall&) {
    if (!hasSelection(doc)) return 0;
    shell().setClipboard(appended(shell().getClipboard(), selectionData(doc)));
    return 1;
}

int cmdCutAndAppend(Document& doc, const CommandCall& call) {
    if (!hasSelection(doc)) return 0;
    shell().setClipboard(appended(shell().getClipboard(), selectionData(doc)));
    return cmdDeleteBlock(doc, call);
}

int cmdCopyLine(Document& doc, const CommandCall&) {
    shell().setClipboard(ClipboardData{lineWithEnd(doc)});
    return 1;
}

int cmdCutLine(Document& doc, const CommandCall& call) {
    shell().setClipboard(ClipboardData{lineWithEnd(doc)});
    cmdDeleteLine(doc, call);
    return 1;
}

int cmdPaste(Document& doc, const CommandCall& call) {
    const ClipboardData clip = shell().getClipboard();
    if (clip.text.empty()) return 0;
    if (!clip.hasColumnBlock) return pasteText(doc, call, clip.text);
    if (hasSelection(doc) && !cmdDeleteBlock(doc, call)) return 0;
    return pasteColumnBlock(doc, clip.text);
}

}  // namespace zol
