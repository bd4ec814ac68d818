#include <gtest/gtest.h>

#include "tests/engine/command_fixture.h"

namespace zol {
namespace {

using test::fill;

class Clipboard : public test::CommandTest {
protected:
    void putColumnBlock(std::string text, uint32_t width, uint32_t height) {
        shell_.clip = ClipboardData{std::move(text), true, width, height};
    }
    std::string label() const { return undoLabel(doc.undo); }
};

TEST_F(Clipboard, CopyTakesTheSelectedTextAndLeavesTheDocument) {
    fill(doc, "one\ntwo\nthree");
    shell_.clip.text = "old";
    EXPECT_EQ(run("Copy"), 0);  // nothing selected
    EXPECT_EQ(shell_.clip.text, "old");

    select(makePos(1, 0), makePos(2, 1));
    run("Copy");
    EXPECT_EQ(shell_.clip.text, "ne\r\ntw");
    EXPECT_FALSE(shell_.clip.hasColumnBlock);
    EXPECT_TRUE(doc.selExists);
    EXPECT_FALSE(doc.modified);
}

TEST_F(Clipboard, ColumnCopyIsARectangleWithItsSize) {
    fill(doc, "abcdef\nab\na\tbcd");
    select(makePos(5, 2), makePos(1, 0), SelMode::Column);
    run("Copy");
    EXPECT_EQ(shell_.clip.text, "bcde\r\nb   \r\n    ");
    EXPECT_TRUE(shell_.clip.hasColumnBlock);
    EXPECT_EQ(shell_.clip.blockWidth, 4u);
    EXPECT_EQ(shell_.clip.blockHeight, 3u);
}

TEST_F(Clipboard, ColumnBlockRoundTripIsOneRecord) {
    fill(doc, "abcdef\nab\nabcdef");
    select(makePos(1, 0), makePos(3, 2), SelMode::Column);
    run("Copy");
    fill(doc, "xxxxxx\nyy\nzzzzzz");
    moveTo(2, 0);
    run("Paste");
    EXPECT_EQ(text(), "xxbcxxxx\nyyb \nzzbczzzz");
    EXPECT_EQ(doc.cursor, makePos(4, 0));
    EXPECT_EQ(undoDepth(), 1u);
    EXPECT_EQ(label(), "&Undo Paste");
    run("Undo");
    EXPECT_EQ(text(), "xxxxxx\nyy\nzzzzzz");
    run("Redo");
    EXPECT_EQ(text(), "xxbcxxxx\nyyb \nzzbczzzz");
}

TEST_F(Clipboard, ColumnPasteAddsLinesAtTheEndAndKeepsTabbedTextAligned) {
    fill(doc, "ab");
    putColumnBlock("12\r\n34\r\n56", 2, 3);
    moveTo(3, 0);
    run("Paste");
    EXPECT_EQ(text(), "ab 12\n   34\n   56");
    run("Undo");
    EXPECT_EQ(text(), "ab");

    fill(doc, "a\tb\nc");
    putColumnBlock("XY\r\nZW", 2, 2);
    moveTo(4, 0);
    run("Paste");
    EXPECT_EQ(text(), "a   XY    b\nc   ZW");
}

TEST_F(Clipboard, ConsecutivePastesUndoTogetherButColumnPastesStandAlone) {
    shell_.clip.text = "a\r\nb";
    run("Paste");
    run("Paste");
    EXPECT_EQ(text(), "a\nba\nb");
    EXPECT_EQ(undoDepth(), 1u);
    EXPECT_EQ(label(), "&Undo Paste");
    run("Undo");
    EXPECT_EQ(text(), "");

    fill(doc, "....\n....");
    putColumnBlock("ab\r\ncd", 2, 2);
    run("Paste");
    run("Paste");
    EXPECT_EQ(text(), "abab....\ncdcd....");
    EXPECT_EQ(undoDepth(), 2u);
    run("Undo");
    EXPECT_EQ(text(), "ab....\ncd....");
    run("Undo");
    EXPECT_EQ(text(), "....\n....");
}

TEST_F(Clipboard, PasteReplacesASelectionInOneRecord) {
    fill(doc, "hello world");
    shell_.clip.text = "bye";
    select(makePos(0, 0), makePos(5, 0));
    run("Paste");
    EXPECT_EQ(text(), "bye world");
    EXPECT_EQ(undoDepth(), 1u);
    run("Undo");
    EXPECT_EQ(text(), "hello world");

    shell_.clip.text.clear();
    EXPECT_EQ(run("Paste"), 0);
}

TEST_F(Clipboard, CutCopiesThenDeletes) {
    fill(doc, "one\ntwo");
    select(makePos(1, 0), makePos(1, 1));
    run("Cut");
    EXPECT_EQ(shell_.clip.text, "ne\r\nt");
    EXPECT_EQ(text(), "owo");
    EXPECT_EQ(label(), "&Undo Cut");

    fill(doc, "abcd\nefgh");
    select(makePos(1, 0), makePos(3, 1), SelMode::Column);
    run("Cut");
    EXPECT_EQ(shell_.clip.text, "bc\r\nfg");
    EXPECT_TRUE(shell_.clip.hasColumnBlock);
    EXPECT_EQ(text(), "ad\neh");
}

TEST_F(Clipboard, AppendingAddsToTheClipboard) {
    fill(doc, "abcdef");
    shell_.clip.text = "X";
    select(makePos(1, 0), makePos(3, 0));
    run("CopyAndAppend");
    EXPECT_EQ(shell_.clip.text, "Xbc");
    run("CutAndAppend");
    EXPECT_EQ(shell_.clip.text, "Xbcbc");
    EXPECT_EQ(text(), "adef");

    // Two column blocks of one width stay a column block.
    fill(doc, "ab\ncd");
    putColumnBlock("12", 1, 1);
    select(makePos(0, 0), makePos(1, 1), SelMode::Column);
    run("CopyAndAppend");
    EXPECT_EQ(shell_.clip.text, "12\r\na\r\nc");
    EXPECT_TRUE(shell_.clip.hasColumnBlock);
    EXPECT_EQ(shell_.clip.blockHeight, 3u);
}

TEST_F(Clipboard, LineCommandsTakeTheWholeLine) {
    fill(doc, "one\ntwo\nthree");
    moveTo(1, 1);
    run("CopyLine");
    EXPECT_EQ(shell_.clip.text, "two\r\n");
    EXPECT_FALSE(doc.modified);
    run("CutLine");
    EXPECT_EQ(text(), "one\nthree");
    EXPECT_EQ(label(), "&Undo Cut");
    moveTo(0, 0);
    run("Paste");
    EXPECT_EQ(text(), "two\none\nthree");
}

TEST_F(Clipboard, HugePasteUndoesAndRedoes) {
    constexpr int kLines = 1000000;
    std::string big;
    for (int i = 0; i < kLines; ++i) big += "line " + std::to_string(i) + "\r\n";
    fill(doc, "end");
    shell_.clip.text = big;
    run("Paste");
    ASSERT_EQ(doc.lines.count(), kLines + 1);
    EXPECT_EQ(lineText(doc, 123456), "line 123456");
    EXPECT_EQ(lineText(doc, kLines), "end");
    run("Undo");
    EXPECT_EQ(text(), "end");
    run("Redo");
    ASSERT_EQ(doc.lines.count(), kLines + 1);
    EXPECT_EQ(lineText(doc, kLines - 1), "line " + std::to_string(kLines - 1));
    EXPECT_EQ(doc.cursor, makePos(0, kLines));
}

}  // namespace
}  // namespace zol
