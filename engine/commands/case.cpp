// The case commands: selection, word, title and sentence case.
#include <string>
#include <string_view>
#include <vector>

#include "engine/case_map.h"
#include "engine/columns.h"
#include "engine/commands/edit_result.h"
#include "engine/commands/handlers.h"
#include "engine/commands/line_block.h"
#include "engine/selection.h"
#include "engine/text_util.h"
#include "engine/words.h"

namespace zol {
namespace {

char toUpperChar(char c) { return cpUpper(c); }
char toLowerChar(char c) { return cpLower(c); }
bool isLetter(char c) { return cpUpper(c) != cpLower(c); }

enum class Change { Upper, Lower, Flip, Capitalize, Title, Sentence };

// Walks the changed text in document order; words and sentences run on over the
// pieces (lines) of one command.
struct CaseWalker {
    Change change;
    bool inWord = false;
    bool sentenceStart = true;

    char operator()(char c) {
        const bool word = isWordChar(c);
        const bool wordStart = word && !inWord;
        inWord = word;
        switch (change) {
            case Change::Upper: return toUpperChar(c);
            case Change::Lower: return toLowerChar(c);
            case Change::Flip: {
                const char u = toUpperChar(c);
                return u != c ? u : toLowerChar(c);
            }
            case Change::Capitalize:
            case Change::Title: return wordStart ? toUpperChar(c) : toLowerChar(c);
            case Change::Sentence: {
                if (c == '.' || c == '!' || c == '?') {
                    sentenceStart = true;
                    return c;
                }
                if (!isLetter(c)) {
                    if (word) sentenceStart = false;  // digits start a sentence too
                    return c;
                }
                const char out = sentenceStart ? toUpperChar(c) : toLowerChar(c);
                sentenceStart = false;
                return out;
            }
        }
        return c;
    }
};

// Changes columns [left, right) of a line in place.
void changeColumns(std::string& line, int left, int right, CaseWalker& walk) {
    const ColumnHit a = locateColumn(line, left), b = locateColumn(line, right);
    for (size_t i = a.offset; i < b.offset; ++i) line[i] = walk(line[i]);
}

int changeSelection(Document& doc, Change change) {
    Pos begin, end;
    selectionRange(doc, begin, end);
    const LineBlock b{begin.line, end.line};
    std::vector<std::string> texts = blockTexts(doc, b);
    CaseWalker walk{change};
    for (int32_t l = b.first; l <= b.last; ++l) {
        std::string& t = texts[static_cast<size_t>(l - b.first)];
        if (isColumnSelection(doc)) {
            walk.inWord = false;
            changeColumns(t, selLeftCol(doc), selRightCol(doc), walk);
        } else {
            changeColumns(t, l == begin.line ? begin.col : 0, l == end.line ? end.col : lineWidth(t), walk);
            walk.inWord = false;  // a line end ends a word
        }
    }
    doc.prevCmd = 0;
    return finishLineEdit(doc, b, texts);
}

// Changes bytes [from, to) of the cursor's line and puts the cursor at `to`.
int changeOnLine(Document& doc, size_t from, size_t to, Change change) {
    const LineBlock b{doc.cursor.line, doc.cursor.line};
    std::vector<std::string> texts = blockTexts(doc, b);
    std::string& t = texts[0];
    CaseWalker walk{change};
    for (size_t i = from; i < to; ++i) t[i] = walk(t[i]);
    if (!finishLineEdit(doc, b, texts)) return 0;
    setCursor(doc, makePos(columnOfOffset(t, to), doc.cursor.line));
    return 1;
}

// Selection commands without a selection change the character at the cursor and
// step over it.
int changeSelectionOrChar(Document& doc, Change change) {
    if (hasSelection(doc)) return changeSelection(doc, change);
    const std::string_view line = lineText(doc, doc.cursor.line);
    const ColumnHit hit = locateColumn(line, doc.cursor.col);
    if (hit.padding > 0 || hit.offset >= line.size()) return 0;
    return changeOnLine(doc, hit.offset, hit.offset + 1, change);
}

// The word under the cursor, or the next one right of it on the line, so that
// repeating the command walks through the words.
int changeWord(Document& doc, Change change) {
    const std::string_view line = lineText(doc, doc.cursor.line);
    size_t p = locateColumn(line, doc.cursor.col).offset;
    while (p < line.size() && !isWordChar(line[p])) ++p;
    size_t begin = p, end = p;
    if (p >= line.size() || !wordAt(line, p, begin, end)) return 0;
    return changeOnLine(doc, begin, end, change);
}

// Title and sentence case without a selection work on the cursor's line.
int changeSelectionOrLine(Document& doc, Change change) {
    if (hasSelection(doc)) return changeSelection(doc, change);
    const std::string_view line = lineText(doc, doc.cursor.line);
    const Pos keep = doc.cursor;
    if (!changeOnLine(doc, 0, line.size(), change)) return 0;
    setCursor(doc, keep);
    return 1;
}

}  // namespace

int cmdUpperCase(Document& doc, const CommandCall&) { return changeSelectionOrChar(doc, Change::Upper); }
int cmdLowerCase(Document& doc, const CommandCall&) { return changeSelectionOrChar(doc, Change::Lower); }
int cmdFlipCase(Document& doc, const CommandCall&) { return changeSelectionOrChar(doc, Change::Flip); }
int cmdUpperCaseWord(Document& doc, const CommandCall&) { return changeWord(doc, Change::Upper); }
int cmdLowerCaseWord(Document& doc, const CommandCall&) { return changeWord(doc, Change::Lower); }
int cmdFlipCaseWord(Document& doc, const CommandCall&) { return changeWord(doc, Change::Flip); }
int cmdCapitalizeWord(Document& doc, const CommandCall&) { return changeWord(doc, Change::Capitalize); }
int cmdTitleCase(Document& doc, const CommandCall&) { return changeSelectionOrLine(doc, Change::Title); }
int cmdSentenceCase(Document& doc, const CommandCall&) { return changeSelectionOrLine(doc, Change::Sentence); }

}  // namespace zol
