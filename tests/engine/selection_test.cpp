#include <gtest/gtest.h>

#include "engine/selection.h"
#include "engine/undo.h"
#include "tests/engine/command_fixture.h"

namespace zol::test {
namespace {

class Selecting : public CommandTest {
protected:
    // "begin-end" of the selection in document order, or "none".
    std::string selection() const {
        Pos b, e;
        return selectionRange(doc, b, e) ? str(b) + "-" + str(e) : "none";
    }
};

TEST_F(Selecting, ExtendsFromTheAnchorAndCollapses) {
    fill(doc, "abcdef\nghijkl");
    moveTo(2, 0);
    run("RightSelect");
    run("RightSelect");
    EXPECT_EQ(selection(), "2,0-4,0");
    EXPECT_EQ(str(doc.selAnchor), "2,0");
    EXPECT_EQ(doc.selEnd, doc.cursor);
    run("LeftSelect");
    run("LeftSelect");
    EXPECT_EQ(selection(), "none");  // back at the anchor
    run("LeftSelect");
    run("DownSelect");
    EXPECT_EQ(selection(), "2,0-1,1");  // ordered although the anchor is the earlier end
    run("WordRightSelect");
    run("LineEndSelect");
    run("TextStartSelect");
    EXPECT_EQ(selection(), "0,0-2,0");
    EXPECT_EQ(str(doc.selAnchor), "2,0");
}

TEST_F(Selecting, ColumnSelectionIsARectangle) {
    fill(doc, "abcdefg\nhi\nopqrstu");
    run("SetColumnSelMode");
    moveTo(2, 0);
    run("DownSelect");
    run("DownSelect");
    run("RightSelect");
    run("RightSelect");
    EXPECT_TRUE(isColumnSelection(doc));
    EXPECT_EQ(selLeftCol(doc), 2);
    EXPECT_EQ(selRightCol(doc), 4);
    EXPECT_EQ(selectedText(doc), "cd\r\n  \r\nqr");  // short lines are padded
}

TEST_F(Selecting, ColumnBlockSplitsATabItCuts) {
    setTabSize(4);
    fill(doc, "a\tbc\nxyzwv");
    doc.selMode = SelMode::Column;
    setSelection(doc, makePos(2, 0), makePos(5, 1));  // starts inside the tab
    EXPECT_EQ(selectedText(doc), "  b\r\nzwv");
    deleteSelection(doc);
    EXPECT_EQ(textOf(doc), "a c\nxy");  // the tab's column left of the block stays
}

TEST_F(Selecting, CharacterSelectionDeletesAndCopies) {
    fill(doc, "one two\nthree");
    setSelection(doc, makePos(2, 1), makePos(4, 0));
    EXPECT_EQ(selectedText(doc), "two\r\nth");
    ASSERT_TRUE(deleteSelection(doc));
    EXPECT_EQ(textOf(doc), "one ree");
    EXPECT_EQ(here(), "4,0");
    EXPECT_FALSE(deleteSelection(doc));

    doc.readOnly = true;
    setSelection(doc, makePos(0, 0), makePos(3, 0));
    EXPECT_FALSE(deleteSelection(doc));
    EXPECT_TRUE(doc.selExists);
}

TEST_F(Selecting, SelectWordTakesWordsAndPunctuationRuns) {
    fill(doc, "foo_bar  x->y");
    moveTo(2, 0);
    run("SelectWord");
    EXPECT_EQ(selection(), "0,0-7,0");
    EXPECT_EQ(here(), "7,0");
    moveTo(7, 0);  // just after the word
    run("SelectWord");
    EXPECT_EQ(selection(), "0,0-7,0");
    moveTo(10, 0);
    run("SelectWord");
    EXPECT_EQ(selection(), "10,0-12,0");
    run("HideSelect");
    moveTo(8, 0);  // between two blanks
    EXPECT_EQ(run("SelectWord"), 0);
    EXPECT_EQ(selection(), "none");
}

TEST_F(Selecting, SelectLineGrowsLineByLine) {
    fill(doc, "one\ntwo\nthree");
    moveTo(1, 1);
    run("SelectLine");
    EXPECT_EQ(selection(), "0,1-0,2");
    run("SelectLine");
    EXPECT_EQ(selection(), "0,1-5,2");  // the last line has no line end to take
    EXPECT_EQ(run("SelectLine"), 0);
    moveTo(2, 0);
    run("SelectLine");
    EXPECT_EQ(selection(), "0,0-0,1");
}

TEST_F(Selecting, SelectAllAndParaUseCharacterMode) {
    fill(doc, "a b\nc\n\nd e\nf");
    run("SetColumnSelMode");
    moveTo(1, 1);
    run("SelectAll");
    EXPECT_EQ(selection(), "0,0-1,4");
    EXPECT_EQ(doc.selMode, SelMode::Char);
    EXPECT_EQ(here(), "1,4");
    moveTo(1, 0);
    run("SelectPara");
    EXPECT_EQ(selection(), "0,0-0,2");
    moveTo(0, 4);
    run("SelectPara");
    EXPECT_EQ(selection(), "0,3-1,4");
    run("HideSelect");
    moveTo(0, 2);
    EXPECT_EQ(run("SelectPara"), 0);
    EXPECT_EQ(selection(), "none");
}

TEST_F(Selecting, SelectAllOfAnEmptyDocumentSelectsNothing) {
    moveTo(5, 0);  // beyond the end of the only, empty line
    run("SelectAll");
    EXPECT_EQ(selection(), "none");
    EXPECT_EQ(here(), "0,0");
}

TEST_F(Selecting, MarkingModeExtendsWithPlainMoves) {
    fill(doc, "abcdef\nghijkl");
    moveTo(1, 0);
    run("StartSelect");
    run("CursorRight");
    run("CursorRight");
    EXPECT_EQ(selection(), "1,0-3,0");
    run("CursorLeft");
    run("CursorLeft");
    run("CursorDown");
    EXPECT_EQ(selection(), "1,0-1,1");
    run("EndSelect");
    EXPECT_FALSE(doc.selecting);
    EXPECT_EQ(selection(), "1,0-1,1");
    run("CursorRight");
    EXPECT_EQ(selection(), "none");

    // A cursor placed from outside still ends the marked range.
    moveTo(2, 0);
    run("StartSelect");
    moveTo(4, 1);
    run("EndSelect");
    EXPECT_EQ(selection(), "2,0-4,1");

    run("StartSelect");
    run("CursorRight");
    run("HideSelect");
    EXPECT_FALSE(doc.selecting);
    run("CursorRight");
    EXPECT_EQ(selection(), "none");
    EXPECT_EQ(run("EndSelect"), 0);
}

TEST_F(Selecting, ModeCommandsKeepTheEnds) {
    fill(doc, "abcdef\nghijkl");
    FakeEditorView view;
    doc.view = &view;
    setSelection(doc, makePos(4, 0), makePos(1, 1));
    run("ToggleSelMode");
    EXPECT_EQ(doc.selMode, SelMode::Column);
    EXPECT_EQ(selLeftCol(doc), 1);
    EXPECT_EQ(selRightCol(doc), 4);
    EXPECT_EQ(selectedText(doc), "bcd\r\nhij");
    run("ToggleSelMode");
    EXPECT_EQ(doc.selMode, SelMode::Char);
    run("SetColumnSelMode");
    run("SetColumnSelMode");
    EXPECT_EQ(doc.selMode, SelMode::Column);
    run("SetCharSelMode");
    EXPECT_EQ(doc.selMode, SelMode::Char);
    EXPECT_EQ(selection(), "4,0-1,1");
    EXPECT_GE(view.redraws, 4);
}

TEST_F(Selecting, EndsAreClampedToTheText) {
    fill(doc, "ab\ncd");
    setSelection(doc, makePos(-3, -1), makePos(9000, 7));
    EXPECT_EQ(selection(), "0,0-3200,1");
    clearSelection(doc);
    EXPECT_EQ(selection(), "none");
    Pos b, e;
    moveTo(1, 1);
    EXPECT_FALSE(selectionRange(doc, b, e));
    EXPECT_EQ(str(b), "1,1");
}

}  // namespace
}  // namespace zol::test
