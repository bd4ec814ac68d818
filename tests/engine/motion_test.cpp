#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/commands/motion.h"
#include "tests/engine/command_fixture.h"

namespace zol::test {
namespace {

class CursorMoves : public CommandTest {
protected:
    // Columns where repeated runs of a word move stop on line 0, until the move
    // leaves the line or stops moving.
    std::vector<int> stops(std::string_view command, int fromCol) {
        moveTo(fromCol, 0);
        std::vector<int> out;
        while (run(command) && doc.cursor.line == 0) out.push_back(doc.cursor.col);
        return out;
    }
};

TEST_F(CursorMoves, LeftAndRightThroughTabsOrOverThem) {
    setTabSize(4);
    fill(doc, "ab\tc\nxy");  // the tab spans columns 2 and 3, c is at 4
    moveTo(2, 0);
    run("CursorRight");
    EXPECT_EQ(here(), "3,0");  // inside the tab
    run("CursorRight");
    EXPECT_EQ(here(), "4,0");
    run("CursorLeft");
    EXPECT_EQ(here(), "3,0");

    options().cursorThroughTabs = false;
    moveTo(2, 0);
    run("CursorRight");
    EXPECT_EQ(here(), "4,0");
    run("CursorLeft");
    EXPECT_EQ(here(), "2,0");
    moveTo(3, 0);  // left inside the tab while it was allowed
    run("CursorRight");
    EXPECT_EQ(here(), "4,0");
    moveTo(3, 0);
    run("CursorLeft");
    EXPECT_EQ(here(), "2,0");
}

TEST_F(CursorMoves, LeftAndRightAcrossLineEnds) {
    fill(doc, "abc\nxy");
    moveTo(0, 1);
    run("CursorLeft");
    EXPECT_EQ(here(), "3,0");
    moveTo(0, 0);
    EXPECT_EQ(run("CursorLeft"), 0);
    EXPECT_EQ(here(), "0,0");

    moveTo(3, 0);  // beyond the end is allowed by default
    run("CursorRight");
    EXPECT_EQ(here(), "4,0");
    run("CursorLeft");
    run("CursorLeft");
    EXPECT_EQ(here(), "2,0");
    moveTo(kMaxColumns, 0);
    EXPECT_EQ(run("CursorRight"), 0);
    EXPECT_EQ(doc.cursor.col, kMaxColumns);

    options().cursorBeyondEol = false;
    moveTo(3, 0);
    run("CursorRight");
    EXPECT_EQ(here(), "0,1");
    moveTo(2, 1);
    EXPECT_EQ(run("CursorRight"), 0);
    EXPECT_EQ(here(), "2,1");
    moveTo(9, 0);  // left beyond the end before the option was switched off
    run("CursorLeft");
    EXPECT_EQ(here(), "2,0");
}

TEST_F(CursorMoves, UpAndDownKeepTheDesiredColumn) {
    fill(doc, "abcdefgh\nab\nabcdefgh\n\tx");
    options().cursorBeyondEol = false;
    moveTo(6, 0);
    run("CursorDown");
    EXPECT_EQ(here(), "2,1");
    run("CursorDown");
    EXPECT_EQ(here(), "6,2");
    run("CursorUp");
    run("CursorUp");
    EXPECT_EQ(here(), "6,0");

    // Another command in between makes the current column the desired one.
    run("CursorDown");
    run("CursorLeft");
    run("CursorDown");
    EXPECT_EQ(here(), "1,2");

    options().cursorThroughTabs = false;
    moveTo(5, 2);
    run("CursorDown");
    EXPECT_EQ(here(), "0,3");  // pulled to the tab's start
    run("CursorUp");
    EXPECT_EQ(here(), "5,2");

    options().cursorBeyondEol = true;
    moveTo(6, 0);
    run("CursorDown");
    EXPECT_EQ(here(), "6,1");
    moveTo(3, 0);
    EXPECT_EQ(run("CursorUp"), 0);
}

TEST_F(CursorMoves, LineStartEndAndFirstNonBlank) {
    fill(doc, "   foo  \n \t ");
    moveTo(5, 0);
    run("LineEnd");
    EXPECT_EQ(here(), "8,0");
    run("FirstNonBlank");
    EXPECT_EQ(here(), "3,0");
    run("LineStart");
    EXPECT_EQ(here(), "0,0");
    EXPECT_EQ(run("LineStart"), 0);  // no toggling to the first non-blank
    moveTo(0, 1);
    run("FirstNonBlank");
    EXPECT_EQ(here(), "9,1");  // a blank line: past its blanks
    run("TextStart");
    EXPECT_EQ(here(), "0,0");
    run("TextEnd");
    EXPECT_EQ(here(), "9,1");
}

TEST_F(CursorMoves, ThreeWordStylesOnOneLine) {
    //             0   4         14 17 20   24 27
    fill(doc, "int fooBar_baz = x->y;  // end\n  (next");
    EXPECT_EQ(stops("WordRight", 0), (std::vector<int>{4, 17, 20, 27, 30}));
    EXPECT_EQ(stops("WordRightMS", 0), (std::vector<int>{4, 15, 17, 18, 20, 21, 24, 27, 30}));
    EXPECT_EQ(stops("WordRightSmart", 0), (std::vector<int>{4, 7, 11, 15, 17, 18, 20, 21, 24, 27, 30}));
    EXPECT_EQ(stops("WordLeft", 30), (std::vector<int>{27, 20, 17, 4, 0}));
    EXPECT_EQ(stops("WordLeftMS", 30), (std::vector<int>{27, 24, 21, 20, 18, 17, 15, 4, 0}));
    EXPECT_EQ(stops("WordLeftSmart", 30), (std::vector<int>{27, 24, 21, 20, 18, 17, 15, 11, 7, 4, 0}));
}

TEST_F(CursorMoves, WordMovesCrossLines) {
    fill(doc, "one two\n  (next");
    moveTo(7, 0);
    run("WordRight");
    EXPECT_EQ(here(), "3,1");  // plain: the next line's first word
    moveTo(7, 0);
    run("WordRightMS");
    EXPECT_EQ(here(), "0,1");  // MS and smart: the next line's start
    run("WordRightSmart");
    EXPECT_EQ(here(), "2,1");
    moveTo(0, 1);
    run("WordLeft");
    EXPECT_EQ(here(), "4,0");
    moveTo(0, 1);
    run("WordLeftSmart");
    EXPECT_EQ(here(), "7,0");
    moveTo(12, 0);  // beyond the end of the line
    run("WordLeft");
    EXPECT_EQ(here(), "4,0");
    moveTo(5, 1);
    EXPECT_EQ(run("WordRight"), 1);
    EXPECT_EQ(here(), "7,1");
    EXPECT_EQ(run("WordRight"), 0);  // end of the text
}

TEST_F(CursorMoves, SmartWordsSplitAcronymsAndUnderscores) {
    fill(doc, "HTMLParser __init x2Go");
    EXPECT_EQ(stops("WordRightSmart", 0), (std::vector<int>{4, 11, 13, 18, 20, 22}));
    EXPECT_EQ(stops("WordLeftSmart", 22), (std::vector<int>{20, 18, 13, 11, 4, 0}));
}

TEST_F(CursorMoves, WordMovesOverTabsUseColumns) {
    fill(doc, "a\tbb\tc");  // tab size 8: bb at 8, c at 16
    EXPECT_EQ(stops("WordRight", 0), (std::vector<int>{8, 16, 17}));
    moveTo(5, 0);  // inside the first tab
    run("WordLeft");
    EXPECT_EQ(here(), "0,0");
}

TEST_F(CursorMoves, ParagraphsAreRunsOfNonBlankLines) {
    fill(doc, "para one\nstill one\n\n   \npara two\ntwo b\n\nlast");
    moveTo(3, 0);
    run("ParaDown");
    EXPECT_EQ(here(), "0,4");
    run("ParaDown");
    EXPECT_EQ(here(), "0,7");
    run("ParaDown");
    EXPECT_EQ(here(), "4,7");
    EXPECT_EQ(run("ParaDown"), 0);

    moveTo(2, 5);
    run("ParaUp");
    EXPECT_EQ(here(), "0,4");  // start of its own paragraph first
    run("ParaUp");
    EXPECT_EQ(here(), "0,0");
    EXPECT_EQ(run("ParaUp"), 0);
    moveTo(0, 3);
    run("ParaUp");
    EXPECT_EQ(here(), "0,0");
    moveTo(2, 7);
    run("ParaUp");
    EXPECT_EQ(here(), "0,7");
    run("ParaUp");
    EXPECT_EQ(here(), "0,4");
}

TEST_F(CursorMoves, TabStops) {
    setTabSize(4);
    fill(doc, "abcdefghij");
    moveTo(1, 0);
    run("NextTabPos");
    EXPECT_EQ(here(), "4,0");
    run("NextTabPos");
    run("NextTabPos");
    EXPECT_EQ(here(), "12,0");
    run("PrevTabPos");
    EXPECT_EQ(here(), "8,0");
    run("BackTab");
    run("BackTab");
    EXPECT_EQ(here(), "0,0");
    EXPECT_EQ(run("PrevTabPos"), 0);

    options().cursorBeyondEol = false;
    moveTo(9, 0);
    run("NextTabPos");
    EXPECT_EQ(here(), "10,0");
    EXPECT_EQ(run("NextTabPos"), 0);
}

std::string numberedLines(int count) {
    std::string text;
    for (int i = 1; i <= count; ++i) text += "line " + std::to_string(i) + "\n";
    return text;
}

TEST_F(CursorMoves, PagesAndWindowFollowTheView) {
    fill(doc, numberedLines(99));  // 100 lines, the last empty
    FakeEditorView view;
    doc.view = &view;
    moveTo(3, 0);
    run("PageDown");
    EXPECT_EQ(here(), "3,10");
    EXPECT_EQ(view.first, 10);
    for (int i = 0; i < 9; ++i) run("PageDown");
    EXPECT_EQ(here(), "3,99");  // the last line is empty, but the column is kept
    EXPECT_EQ(view.first, 90);  // the last page stays full
    run("PageUp");
    EXPECT_EQ(here(), "3,89");
    EXPECT_EQ(view.first, 80);

    run("TopOfWindow");
    EXPECT_EQ(here(), "3,80");
    run("BottomOfWindow");
    EXPECT_EQ(here(), "3,89");

    run("ScrollDown");
    EXPECT_EQ(view.first, 81);
    EXPECT_EQ(here(), "3,89");  // still visible, so it stays
    run("ScrollUp");
    run("ScrollUp");
    EXPECT_EQ(view.first, 79);
    EXPECT_EQ(here(), "3,88");  // dragged along with the bottom line

    run("GoToLineNum", 10);
    EXPECT_EQ(view.first, 9);  // moves that leave the window scroll it
    view.first = 0;
    EXPECT_EQ(run("ScrollUp"), 0);
    EXPECT_GT(view.statusRefreshes, 0);
}

TEST_F(CursorMoves, PagesWithoutAViewAre25Lines) {
    fill(doc, numberedLines(60));
    run("PageDown");
    EXPECT_EQ(here(), "0,25");
    run("BottomOfWindow");
    EXPECT_EQ(here(), "0,24");
    EXPECT_EQ(run("ScrollDown"), 0);
}

TEST_F(CursorMoves, GoToLineAndColumnClamp) {
    fill(doc, "a\nb\tc\nc\nd\ne\nf\ng\nh\ni\nj\nk");
    moveTo(1, 0);
    run("GoToLineNum", 10);
    EXPECT_EQ(here(), "0,9");
    run("GoToLineNum", 0);
    EXPECT_EQ(here(), "0,0");
    run("GoToLineNum", 60000);
    EXPECT_EQ(here(), "0,10");

    run("GoToLineNum", 2);
    run("GoToColumnNum", 5);
    EXPECT_EQ(here(), "4,1");
    options().cursorThroughTabs = false;
    run("GoToColumnNum", 5);
    EXPECT_EQ(here(), "1,1");
    options().cursorBeyondEol = false;
    run("GoToColumnNum", 4000);
    EXPECT_EQ(here(), "9,1");
}

TEST_F(CursorMoves, JumpsAMillionLines) {
    constexpr int kLines = 1000000;
    fill(doc, numberedLines(kLines));
    run("GoToLineNum", kLines);
    EXPECT_EQ(doc.cursor.line, kLines - 1);
    EXPECT_EQ(doc.lines.currentIndex, doc.cursor.line);
    EXPECT_EQ(doc.lines.text(doc.lines.current), "line 1000000");
    run("TextStart");
    run("ParaDown");  // one paragraph up to the empty last line
    EXPECT_EQ(here(), "0,1000000");
    run("CursorUp");
    EXPECT_EQ(doc.lines.text(doc.lines.current), "line 1000000");
    run("GoToLineNum", 2);
    EXPECT_EQ(doc.lines.text(doc.lines.current), "line 2");
}

}  // namespace
}  // namespace zol::test
