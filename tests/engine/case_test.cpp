#include <gtest/gtest.h>

#include "engine/undo.h"
#include "tests/engine/command_fixture.h"

namespace zol {
namespace {

using test::fill;

class Case : public test::CommandTest {
protected:
    std::string label() const { return undoLabel(doc.undo); }
    uint8_t mark(int32_t line) const { return doc.lines.header(doc.lines.find(line)).bookmark; }
};

TEST_F(Case, SelectionCommandsChangeOnlyTheSelectedColumns) {
    fill(doc, "abc\tdef\nghi jkl");
    // Column 2 up to column 9: "c", the tab, "d" on line 0; "i jkl" stops at 9.
    select(makePos(2, 0), makePos(9, 1), SelMode::Column);
    run("UpperCase");
    EXPECT_EQ(text(), "abC\tDef\nghI JKL");
    EXPECT_EQ(undoDepth(), 1u);
    EXPECT_EQ(label(), "&Undo Change Case");

    fill(doc, "one\nTwo \xe9\xc9");  // Windows-1252 e acute, both cases
    select(makePos(1, 0), makePos(6, 1));
    run("FlipCase");
    EXPECT_EQ(text(), "oNE\ntWO \xc9\xe9");
    run("Undo");
    EXPECT_EQ(text(), "one\nTwo \xe9\xc9");
}

TEST_F(Case, WithoutSelectionACharacterOrWordChangesAndTheCursorStepsOn) {
    fill(doc, "ab hELLO-x");
    run("UpperCase");
    EXPECT_EQ(text(), "Ab hELLO-x");
    EXPECT_EQ(doc.cursor, makePos(1, 0));
    moveTo(5, 0);
    run("CapitalizeWord");
    EXPECT_EQ(text(), "Ab Hello-x");
    EXPECT_EQ(doc.cursor, makePos(8, 0));
    run("UpperCaseWord");  // from the dash: the next word on the line
    EXPECT_EQ(text(), "Ab Hello-X");
}

TEST_F(Case, TitleAndSentenceCaseRunAcrossLines) {
    fill(doc, "the QUICK fox\njumps. over it");
    select(makePos(0, 0), makePos(14, 1));
    run("TitleCase");
    EXPECT_EQ(text(), "The Quick Fox\nJumps. Over It");
    run("SentenceCase");
    EXPECT_EQ(text(), "The quick fox\njumps. Over it");
    EXPECT_EQ(undoDepth(), 2u);  // a selection never merges with the step before
}

TEST_F(Case, TransposeCharactersAndWords) {
    fill(doc, "abcd");
    moveTo(2, 0);
    run("TransposeChar");
    EXPECT_EQ(text(), "acbd");
    EXPECT_EQ(doc.cursor, makePos(3, 0));
    moveTo(4, 0);  // at the end: the last two
    run("TransposeChar");
    EXPECT_EQ(text(), "acdb");
    EXPECT_EQ(label(), "&Undo Transpose");
    moveTo(0, 0);
    EXPECT_EQ(run("TransposeChar"), 0);

    fill(doc, "one, two three");
    moveTo(1, 0);
    run("TransposeWord");
    EXPECT_EQ(text(), "two, one three");
    moveTo(14, 0);  // in the last word: it swaps with the one before
    run("TransposeWord");
    EXPECT_EQ(text(), "two, three one");
}

TEST_F(Case, TransposeLineCarriesCursorAndBookmark) {
    fill(doc, "a\nb\nc");
    doc.lines.header(doc.lines.find(2)).bookmark = 3;
    moveTo(1, 2);
    run("TransposeLine");
    EXPECT_EQ(text(), "a\nc\nb");
    EXPECT_EQ(doc.cursor, makePos(1, 1));
    EXPECT_EQ(mark(1), 3);
    EXPECT_EQ(mark(2), 0);
    run("TransposeLine");
    EXPECT_EQ(text(), "c\na\nb");
    EXPECT_EQ(run("TransposeLine"), 0);  // line 0 has nothing above
    run("Undo");
    run("Undo");
    EXPECT_EQ(text(), "a\nb\nc");
}

}  // namespace
}  // namespace zol
