#include <gtest/gtest.h>

#include "engine/undo.h"
#include "tests/engine/command_fixture.h"

namespace zol {
namespace {

using test::fill;

class Block : public test::CommandTest {
protected:
    std::string label() const { return undoLabel(doc.undo); }
};

TEST_F(Block, IndentRebuildsLeadingWhiteSpaceAndUndoesInOneStep) {
    options().blockIndent = 4;
    fill(doc, "\tx\n  y\n\nz");
    // Ending in column 0 of line 3 leaves that line alone; the empty line stays empty.
    select(makePos(1, 0), makePos(0, 3));
    run("IndentBlock");
    EXPECT_EQ(text(), "\t    x\n      y\n\nz");
    EXPECT_EQ(undoDepth(), 1u);
    EXPECT_EQ(label(), "&Undo Indent");
    EXPECT_TRUE(doc.selExists);  // repeated indents keep working on the block

    options().useTabChar = false;
    run("UnindentBlock");
    EXPECT_EQ(text(), "        x\n  y\n\nz");
    EXPECT_EQ(label(), "&Undo Unindent");
    run("Undo");
    run("Undo");
    EXPECT_EQ(text(), "\tx\n  y\n\nz");
}

TEST_F(Block, WithoutSelectionTheCursorLineMovesAndUnindentStopsAtZero) {
    options().blockIndent = 3;
    fill(doc, "a\n b");
    moveTo(1, 1);
    run("UnindentBlock");
    EXPECT_EQ(text(), "a\nb");
    run("IndentBlock");
    EXPECT_EQ(text(), "a\n   b");
}

TEST_F(Block, ColumnIndentShiftsTextRightOfTheBlockEdgeThroughTabs) {
    options().blockIndent = 2;
    // The tab spans columns 1..7; the block's edge at column 2 cuts it.
    fill(doc, "a\tb\nshort\nabcdefgh");
    select(makePos(2, 0), makePos(4, 2), SelMode::Column);
    run("IndentBlock");
    EXPECT_EQ(lineWidthAt(doc, 0), 11);  // b moved exactly two columns
    EXPECT_EQ(text(), "a         b\nsh  ort\nab  cdefgh");
    EXPECT_EQ(undoDepth(), 1u);

    run("UnindentBlock");
    EXPECT_EQ(text(), "a       b\nshort\nabcdefgh");
    run("UnindentBlock");  // only lines with blanks at the edge move
    EXPECT_EQ(text(), "a     b\nshort\nabcdefgh");
}

TEST_F(Block, FillAsksForTheCharacterAndCoversTheRectangle) {
    fill(doc, "abcdef\na\tb");
    select(makePos(1, 0), makePos(4, 1), SelMode::Column);
    EXPECT_EQ(run("FillBlock"), 0);  // the question was cancelled
    EXPECT_EQ(text(), "abcdef\na\tb");

    struct Picker final : Shell {
        void message(std::string_view) override {}
        Answer ask(std::string_view, bool) override { return Answer::Cancel; }
        void statusMessage(std::string_view) override {}
        ClipboardData getClipboard() override { return {}; }
        void setClipboard(const ClipboardData&) override {}
        int chooseCharacter(std::string_view) override { return '*'; }
    } picker;
    setShell(&picker);
    run("FillBlock");
    EXPECT_EQ(text(), "a***ef\na***    b");  // the cut tab keeps b in its column
    run("Undo");
    EXPECT_EQ(text(), "abcdef\na\tb");
}

TEST_F(Block, ParagraphAlignmentsWorkAtTheWrapColumn) {
    options().wordWrapColumn = 12;
    fill(doc, "  one two three four five");
    run("LeftBlockPara");
    EXPECT_EQ(text(), "  one two\n  three four\n  five");
    EXPECT_EQ(label(), "&Undo Formating");

    fill(doc, "ab cd\nefgh");
    run("RightBlockPara");
    EXPECT_EQ(text(), "  ab cd efgh");
    fill(doc, "ab cd");
    run("CenterBlockPara");
    EXPECT_EQ(text(), "   ab cd");
}

TEST_F(Block, RepeatedJustifyWalksParagraphsAndUndoesTogether) {
    options().wordWrapColumn = 9;
    const std::string original = "aa b cc dd e\n\nff g hh ii\njj";
    fill(doc, original);
    run("JustifyBlockPara");
    EXPECT_EQ(doc.cursor, makePos(0, 3));  // at the next paragraph
    run("JustifyBlockPara");
    EXPECT_EQ(text(), "aa  b  cc\ndd e\n\nff  g  hh\nii jj");
    EXPECT_EQ(undoDepth(), 1u);
    run("Undo");
    EXPECT_EQ(text(), original);

    // A paragraph already in shape between two that change: undo still restores all.
    const std::string mixed = "aa b cc dd e\n\nff\n\ngg h ii jj";
    fill(doc, mixed);
    for (int i = 0; i < 3; ++i) run("JustifyBlockPara");
    run("Undo");
    run("Undo");
    EXPECT_EQ(text(), mixed);
}

}  // namespace
}  // namespace zol
