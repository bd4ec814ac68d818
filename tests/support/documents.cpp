#include "tests/support/documents.h"

#include "engine/edit.h"
#include "syntax/doc_syntax.h"

namespace zol::test {

void fill(Document& doc, std::string_view text) {
    resetText(doc);
    rawInsert(doc, Pos{}, text, nullptr);
    setCursor(doc, Pos{});
    doc.modified = false;
}

Lines linesOf(const Document& doc) {
    Lines out;
    for (LineRef r = doc.lines.first; r != kNoLine; r = doc.lines.next(r)) out.emplace_back(doc.lines.text(r));
    return out;
}

std::string textOf(const Document& doc) {
    std::string out;
    for (LineRef r = doc.lines.first; r != kNoLine; r = doc.lines.next(r))
        out += (r == doc.lines.first ? "" : "\n") + std::string(doc.lines.text(r));
    return out;
}

std::string commentBits(const Document& doc) {
    ensureCommentStates(doc, doc.lines.lastIndex);
    std::string out;
    for (LineRef r = doc.lines.first; r != kNoLine; r = doc.lines.next(r))
        out += static_cast<char>('0' + doc.lines.header(r).comment);
    return out;
}

std::string numberedLines(int count) {
    std::string text;
    for (int i = 1; i <= count; ++i) text += "line " + std::to_string(i) + "\n";
    return text;
}

std::string str(Pos p) { return std::to_string(p.col) + "," + std::to_string(p.line); }

}  // namespace zol::test
