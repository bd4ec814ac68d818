// Swapping characters, words and lines.
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/columns.h"
#include "engine/commands/handlers.h"
#include "engine/commands/line_block.h"
#include "engine/selection.h"
#include "engine/words.h"

namespace zol {
namespace {

// Rewrites the cursor's line and puts the cursor after byte `cursorOffset`.
int rewriteCursorLine(Document& doc, std::string text, size_t cursorOffset) {
    const LineBlock b{doc.cursor.line, doc.cursor.line};
    clearSelection(doc);
    if (!finishLineEdit(doc, b, {text})) return 0;
    setCursor(doc, makePos(columnOfOffset(text, cursorOffset), b.first));
    clearSelection(doc);
    return 1;
}

}  // namespace

// The characters left of and at the cursor change places; at the end of the line
// the last two do. The cursor steps past the pair.
int cmdTransposeChar(Document& doc, const CommandCall&) {
    std::string line(lineText(doc, doc.cursor.line));
    size_t o = locateColumn(line, doc.cursor.col).offset;
    if (o >= line.size()) o = line.size() - (line.size() >= 2 ? 1 : line.size());
    if (o == 0 || line.size() < 2) return 0;
    std::swap(line[o - 1], line[o]);
    return rewriteCursorLine(doc, std::move(line), o + 1);
}

// The word at (or left of) the cursor changes places with the word after it.
int cmdTransposeWord(Document& doc, const CommandCall&) {
    std::string line(lineText(doc, doc.cursor.line));
    const size_t o = locateColumn(line, doc.cursor.col).offset;
    size_t aBegin = 0, aEnd = 0;
    if (!wordAt(line, o, aBegin, aEnd)) {
        size_t p = o;
        while (p > 0 && !isWordChar(line[p - 1])) --p;
        if (p == 0 || !wordAt(line, p, aBegin, aEnd)) return 0;
    }
    size_t bBegin = aEnd;
    while (bBegin < line.size() && !isWordChar(line[bBegin])) ++bBegin;
    if (bBegin >= line.size()) {
        // The last word of the line swaps with the one before it.
        size_t p = aBegin;
        while (p > 0 && !isWordChar(line[p - 1])) --p;
        if (p == 0) return 0;
        bBegin = aBegin;
        wordAt(line, p, aBegin, aEnd);
    }
    size_t bEnd = bBegin;
    while (bEnd < line.size() && isWordChar(line[bEnd])) ++bEnd;
    std::string swapped = line.substr(0, aBegin);
    swapped += line.substr(bBegin, bEnd - bBegin);
    swapped += line.substr(aEnd, bBegin - aEnd);
    swapped += line.substr(aBegin, aEnd - aBegin);
    swapped += line.substr(bEnd);
    return rewriteCursorLine(doc, std::move(swapped), bEnd);
}

// The cursor's line changes places with the line above; the cursor and the
// bookmarks go with their lines.
int cmdTransposeLine(Document& doc, const CommandCall&) {
    const int32_t l = doc.cursor.line;
    if (l == 0) return 0;
    const LineBlock b{l - 1, l};
    std::vector<std::string> texts = blockTexts(doc, b);
    std::swap(texts[0], texts[1]);
    const Pos keep = doc.cursor;
    clearSelection(doc);
    if (!finishLineEdit(doc, b, texts)) return 0;
    LineList& ll = doc.lines;
    const LineRef upper = ll.find(l - 1), lower = ll.next(upper);
    std::swap(ll.header(upper).bookmark, ll.header(lower).bookmark);
    setCursor(doc, makePos(keep.col, l - 1));
    clearSelection(doc);
    return 1;
}

}  // namespace zol
