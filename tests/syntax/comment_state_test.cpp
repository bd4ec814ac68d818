// The carried comment bit: the light routine against the scanner, and the bits kept in
// a document's line records while it is edited.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "engine/undo.h"
#include "syntax/commands.h"
#include "syntax/doc_syntax.h"
#include "tests/syntax/syntax_fixture.h"

namespace zol::test {
namespace {

const char* const kC =
    "[C]\nFilePattern=*.c\nCaseSensitive=yes\nMultiComment=/* */\nLineComment1=//\nStringDelim=\"\nCharDelim='\n"
    "QuoteChar=\\\nPreprocess=#\nWords=a-z\nOperators=*/\n"
    "[Pascal]\nFilePattern=*.pas\nMultiComment={ }\nLineComment1=REM\nStringDelim='\n"
    "[Plain]\nFilePattern=*.txt\n";

// Random lines over the characters that matter, long enough to cross the eight-byte
// steps of the search, must give the bit the scanner gives.
TEST(CommentState, AgreesWithTheScanner) {
    SyntaxHighlightTable t;
    loadDefinitions(t, writeScratch("cs.hgl", kC));
    std::mt19937 rng(7);
    const std::string alphabet = "ab /*\"'\\{}REMrem\t";
    std::vector<uint8_t> out(64);
    for (int slot = 1; slot <= 2; ++slot) {
        const SyntaxHighlight& d = *definitionAt(t, slot);
        for (int n = 0; n < 20000; ++n) {
            std::string line(rng() % 40, ' ');
            for (char& c : line) c = alphabet[rng() % alphabet.size()];
            const int in = static_cast<int>(rng() % 2);
            const int expect = scanLine(d, line, out.data(), in);
            ASSERT_EQ(commentState(d, line, in), expect) << d.name << " [" << line << "] in " << in;
        }
    }
}

TEST(CommentState, RulesOfTheLightRoutine) {
    SyntaxHighlightTable t;
    loadDefinitions(t, writeScratch("cs.hgl", kC));
    const SyntaxHighlight& c = *definitionAt(t, 1);
    // Strings, quotes and closers are left to the comparison above.
    EXPECT_EQ(commentState(c, std::string(100, 'x') + "/*", 0), 1);
    EXPECT_EQ(commentState(*definitionAt(t, 3), "/*", 1), 0);  // no comments defined
    const SyntaxHighlight first = defOf("MultiComment=/* */\nFirstComment=;\n");
    EXPECT_EQ(commentState(first, "  ; /* x", 0), 0);
    EXPECT_EQ(commentState(first, "  ; /* x", 1), 1);
}

class DocumentBits : public ::testing::Test {
protected:
    void SetUp() override {
        initSyntax(nullptr);
        loadDefinitions(syntaxTable(), writeScratch("cs.hgl", kC));
    }
    void TearDown() override { loadDefinitions(syntaxTable(), ""); }

    Document doc;
};

TEST_F(DocumentBits, EditsKeepEveryBitCurrent) {
    doc.fileName = "/x/a.c";
    followFileName(doc, true);
    ASSERT_EQ(doc.syntaxSlot, 1);
    fill(doc, "a\nb\nc\nd\ne");
    EXPECT_EQ(commentBits(doc), "00000");
    setCursor(doc, makePos(1, 1));
    insertText(doc, "/*");
    EXPECT_EQ(commentBits(doc), "01111");
    setCursor(doc, makePos(1, 3));
    insertText(doc, "*/");
    EXPECT_EQ(commentBits(doc), "01100");
    deleteRange(doc, makePos(0, 1), makePos(0, 3));  // the opener's line and the next go
    EXPECT_EQ(commentBits(doc), "000");
    setCursor(doc, makePos(1, 0));
    insertText(doc, "/*\n\n");
    EXPECT_EQ(commentBits(doc), "11100");
    undo(doc);
    EXPECT_EQ(commentBits(doc), "000");
}

TEST_F(DocumentBits, PropagationStopsAtTheFirstUnchangedLine) {
    doc.fileName = "a.c";
    followFileName(doc, true);
    std::string text;
    for (int i = 0; i < 1000; ++i) text += "line\n";
    fill(doc, text);
    ensureCommentStates(doc, doc.lines.lastIndex);
    // Typing inside a line recomputes that line and finds the next one unchanged.
    EXPECT_EQ(updateCommentStates(doc, 500, 1), 2);
    LineRef r = doc.lines.find(10);
    doc.lines.setText(r, "/*");
    EXPECT_EQ(updateCommentStates(doc, 10, 1), 991);
    doc.lines.setText(doc.lines.find(20), "*/");
    EXPECT_EQ(updateCommentStates(doc, 20, 1), 981);
    EXPECT_EQ(commentBits(doc).substr(9, 13), "0111111111100");
}

// The bits of the lines the document claims to know, against a scan from the top.
void expectKnownBitsTrue(const Document& doc) {
    const SyntaxHighlight& d = *definitionAt(syntaxTable(), doc.syntaxSlot);
    int prev = 0;
    int32_t i = 0;
    for (LineRef r = doc.lines.first; r != kNoLine && i < doc.commentsKnown; r = doc.lines.next(r), ++i) {
        prev = commentState(d, doc.lines.text(r), prev);
        ASSERT_EQ(doc.lines.header(r).comment, prev) << "line " << i << " of " << doc.commentsKnown << " known";
    }
}

// Opening leaves the bits to be worked out as they are asked for. Edits above, inside
// and below the known lines, and asking for more, must keep every known bit true.
TEST_F(DocumentBits, BitsWorkedOutLaterMatchAScanFromTheTop) {
    doc.fileName = "a.c";
    followFileName(doc, true);
    std::string text;
    for (int i = 0; i < 60; ++i) text += i % 13 == 0 ? "x /* y\n" : i % 13 == 9 ? "*/ z\n" : "w\n";
    fill(doc, text);
    EXPECT_EQ(doc.commentsKnown, 0);
    std::mt19937 rng(11);
    const char* const pieces[] = {"/*", "*/", "\n", "a\n/*\n", "\"/*\"", "// /*", "*/\n\n\n"};
    for (int step = 0; step < 1000; ++step) {
        SCOPED_TRACE(step);
        if (step % 40 == 0) followFileName(doc, true);  // all unknown again
        if (rng() % 4 == 0) ensureCommentStates(doc, static_cast<int32_t>(rng() % (doc.lines.count() + 5)));
        const int32_t line = static_cast<int32_t>(rng() % doc.lines.count());
        if (rng() % 3 == 0 && line < doc.lines.lastIndex) {
            const int32_t to = std::min(doc.lines.lastIndex, line + 1 + static_cast<int32_t>(rng() % 8));
            deleteRange(doc, makePos(static_cast<int>(rng() % 3), line), makePos(0, to));
        } else {
            setCursor(doc, makePos(static_cast<int>(rng() % 3), line));
            insertText(doc, pieces[rng() % std::size(pieces)]);
        }
        expectKnownBitsTrue(doc);
        if (HasFatalFailure()) return;
    }
}

// A deletion that reaches past the known lines pulls unknown ones up into their places:
// here line 6 happens to hold the right bit and line 7, an opener, does not.
TEST_F(DocumentBits, ADeletionPastTheKnownLinesLeavesNoneClaimedWrongly) {
    doc.fileName = "a.c";
    followFileName(doc, true);
    std::string text;
    for (int i = 0; i < 20; ++i) text += i == 14 ? "/*\n" : "w\n";
    fill(doc, text);
    ensureCommentStates(doc, 9);
    deleteRange(doc, makePos(0, 5), makePos(0, 12));
    expectKnownBitsTrue(doc);
    EXPECT_EQ(commentBits(doc), "00000001111111");
}

}  // namespace
}  // namespace zol::test
