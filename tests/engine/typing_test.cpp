#include <gtest/gtest.h>

#include "engine/commands/messages.h"
#include "engine/edit.h"
#include "tests/engine/command_fixture.h"

namespace zol {
namespace {

using test::fill;

class Typing : public test::CommandTest {};

TEST_F(Typing, CharactersGoInAtTheCursorAndReplaceASelection) {
    fill(doc, "hello world");
    moveTo(5, 0);
    type(",");
    EXPECT_EQ(text(), "hello, world");
    EXPECT_EQ(doc.cursor, makePos(6, 0));

    select(makePos(0, 0), makePos(5, 0));
    type("J");
    EXPECT_EQ(text(), "J, world");
    EXPECT_FALSE(doc.selExists);

    // Beyond the end of the line the gap is filled with blanks.
    moveTo(10, 0);
    type("!");
    EXPECT_EQ(text(), "J, world  !");
    EXPECT_TRUE(doc.modified);
}

TEST_F(Typing, OverwriteReplacesUntilTheEndOfTheLine) {
    options().overwrite = true;
    fill(doc, "abc\n\tz");
    moveTo(1, 0);
    type("XYZ");
    EXPECT_EQ(text(), "aXYZ\n\tz");
    run("Undo");
    EXPECT_EQ(text(), "abc\n\tz");

    moveTo(0, 1);  // on a tab's first column the tab itself gives way
    type("q");
    EXPECT_EQ(text(), "abc\nqz");
}

TEST_F(Typing, AFullLineRefusesMoreCharacters) {
    fill(doc, std::string(3199, 'x'));
    moveTo(3199, 0);
    type("y");
    EXPECT_EQ(lineWidthAt(doc, 0), 3200);
    EXPECT_TRUE(shell_.status.empty());

    doc.modified = false;
    const size_t depth = undoDepth();
    EXPECT_EQ(run("InsertChar", 'z'), 0);
    EXPECT_EQ(run("Tab"), 0);
    EXPECT_EQ(lineText(doc, 0), std::string(3199, 'x') + "y");
    EXPECT_FALSE(doc.modified);
    EXPECT_EQ(undoDepth(), depth);
    ASSERT_EQ(shell_.status.size(), 2u);
    EXPECT_EQ(shell_.status[0], kMsgLineTooLong);

    // Overwriting keeps the width, so it is still allowed.
    options().overwrite = true;
    moveTo(0, 0);
    type("A");
    EXPECT_EQ(lineText(doc, 0)[0], 'A');
}

TEST_F(Typing, InsideATabTheTabBecomesTabSizeBlanks) {
    fill(doc, "a\tb");
    moveTo(3, 0);
    type("X");
    EXPECT_EQ(text(), "a  X      b");
    EXPECT_EQ(undoDepth(), 2u);
    run("Undo");
    EXPECT_EQ(text(), "a        b");
    run("Undo");
    EXPECT_EQ(text(), "a\tb");
}

TEST_F(Typing, TabInsertsATabOrBlanksToTheNextStop) {
    fill(doc, "abc");
    moveTo(3, 0);
    run("Tab");
    EXPECT_EQ(text(), "abc\t");

    options().useTabChar = false;
    fill(doc, "abc");
    moveTo(3, 0);
    run("Tab");
    EXPECT_EQ(text(), "abc     ");
    EXPECT_EQ(doc.cursor, makePos(8, 0));

    // With a selection over several lines Tab is just a typed character.
    options().useTabChar = true;
    fill(doc, "one\ntwo");
    select(makePos(1, 0), makePos(1, 1));
    run("Tab");
    EXPECT_EQ(text(), "o\two");
}

TEST_F(Typing, SmartTabAlignsWithWordsOfTheLineAbove) {
    options().smartTab = true;
    options().useTabChar = false;
    fill(doc, "int  main(void)\n\n");
    moveTo(0, 2);
    run("Tab");
    EXPECT_EQ(doc.cursor, makePos(5, 2));
    run("Tab");  // no word starts further right: an ordinary tab stop
    EXPECT_EQ(doc.cursor, makePos(8, 2));

    options().useTabChar = true;
    fill(doc, "\t\t  x\n");
    moveTo(0, 1);
    run("Tab");
    EXPECT_EQ(lineText(doc, 1), "\t\t  ");
}

TEST_F(Typing, BackspaceDeletesJoinsAndMovesBeyondTheEnd) {
    options().autoUnindent = false;
    fill(doc, "ab\ncd");
    moveTo(0, 1);
    run("Backspace");
    EXPECT_EQ(text(), "abcd");
    EXPECT_EQ(doc.cursor, makePos(2, 0));

    moveTo(6, 0);
    run("Backspace");
    EXPECT_EQ(doc.cursor, makePos(5, 0));
    EXPECT_EQ(text(), "abcd");

    fill(doc, "\tx");
    moveTo(3, 0);  // inside the tab: the tab goes
    run("Backspace");
    EXPECT_EQ(text(), "x");
    EXPECT_EQ(run("Backspace"), 0);  // column 0 of the first line
}

TEST_F(Typing, BackspaceUnindentsToThePreviousLevel) {
    fill(doc, "if (a) {\n    if (b) {\n\n        x");
    moveTo(8, 3);
    run("Backspace");
    EXPECT_EQ(lineText(doc, 3), "    x");
    run("Backspace");
    EXPECT_EQ(lineText(doc, 3), "x");

    options().autoUnindent = false;
    fill(doc, "    if (b) {\n        x");
    moveTo(8, 1);
    run("Backspace");
    EXPECT_EQ(lineText(doc, 1), "       x");
}

TEST_F(Typing, DeleteTakesCharacterLineEndOrSelection) {
    fill(doc, "a\tbc\nde");
    moveTo(3, 0);
    run("Delete");
    EXPECT_EQ(lineText(doc, 0), "abc");
    moveTo(3, 0);
    run("Delete");
    EXPECT_EQ(text(), "abcde");
    moveTo(7, 0);
    EXPECT_EQ(run("Delete"), 0);  // end of the last line

    fill(doc, "ab\ncd");
    moveTo(4, 0);
    run("Delete");
    EXPECT_EQ(text(), "ab  cd");
    EXPECT_EQ(doc.cursor, makePos(4, 0));
    run("Undo");
    EXPECT_EQ(text(), "ab\ncd");

    fill(doc, "one\ntwo\nthree");
    select(makePos(1, 0), makePos(2, 2));
    run("Delete");
    EXPECT_EQ(text(), "oree");
    EXPECT_EQ(run("DeleteBlock"), 0);
    EXPECT_EQ(text(), "oree");
}

TEST_F(Typing, ColumnBlocksAreCutFromEveryLineAsOneRecord) {
    fill(doc, "abcdef\nab\na\tb\nabcdefgh");
    select(makePos(4, 3), makePos(1, 0), SelMode::Column);
    run("DeleteBlock");
    EXPECT_EQ(text(), "aef\na\na    b\naefgh");  // the cut tab leaves its outer part
    EXPECT_EQ(doc.cursor, makePos(1, 0));
    EXPECT_EQ(undoDepth(), 1u);
    run("Undo");
    EXPECT_EQ(text(), "abcdef\nab\na\tb\nabcdefgh");

    // Typing over the block: the cut, then the character at its top left corner.
    select(makePos(1, 0), makePos(4, 1), SelMode::Column);
    type("X");
    EXPECT_EQ(text(), "aXef\na\na\tb\nabcdefgh");
    run("Undo");
    run("Undo");
    EXPECT_EQ(text(), "abcdef\nab\na\tb\nabcdefgh");
}

TEST_F(Typing, WordDeletion) {
    fill(doc, "foo  bar+=baz");
    run("DeleteWord");
    EXPECT_EQ(text(), "bar+=baz");
    moveTo(3, 0);
    run("DeleteWord");
    EXPECT_EQ(text(), "barbaz");

    fill(doc, "foo bar  \nx");
    moveTo(12, 0);
    run("DeleteWordBack");
    EXPECT_EQ(lineText(doc, 0), "foo ");
    run("DeleteWordBack");
    EXPECT_EQ(lineText(doc, 0), "");
    moveTo(0, 1);
    run("DeleteWordBack");
    EXPECT_EQ(text(), "x");
}

TEST_F(Typing, DeleteLineKeepsBookmarksOnTheirLines) {
    fill(doc, "a\nb\nc\nd");
    doc.lines.header(doc.lines.find(1)).bookmark = 1;
    doc.lines.header(doc.lines.find(3)).bookmark = 1;
    moveTo(0, 0);
    run("DeleteLine");
    EXPECT_EQ(text(), "b\nc\nd");
    EXPECT_EQ(doc.lines.header(doc.lines.find(0)).bookmark, 1);
    moveTo(1, 1);
    run("DeleteLine");
    EXPECT_EQ(text(), "b\nd");
    EXPECT_EQ(doc.lines.header(doc.lines.find(1)).bookmark, 1);
    EXPECT_EQ(doc.cursor, makePos(1, 1));
    run("DeleteLine");  // the last line
    EXPECT_EQ(text(), "b");
    EXPECT_EQ(doc.cursor.line, 0);
    run("DeleteLine");
    EXPECT_EQ(text(), "");
    EXPECT_EQ(run("DeleteLine"), 0);
    EXPECT_EQ(std::string(undoLabel(doc.undo)), "&Undo Deleting");
}

TEST_F(Typing, NewLineIndentsLikeTheLineAbove) {
    fill(doc, "\tx");
    moveTo(9, 0);
    run("NewLine");
    EXPECT_EQ(text(), "\tx\n        ");
    EXPECT_EQ(doc.cursor, makePos(8, 1));
    EXPECT_EQ(std::string(undoLabel(doc.undo)), "&Undo Typing");

    options().autoIndentUsingTabs = true;
    fill(doc, "\tx");
    moveTo(9, 0);
    run("NewLine");
    EXPECT_EQ(text(), "\tx\n\t");

    // Indent of 11 columns: one tab, three blanks.
    fill(doc, "           x");
    moveTo(12, 0);
    run("NewLine");
    EXPECT_EQ(lineText(doc, 1), "\t   ");

    options().autoIndent = false;
    fill(doc, "\tx");
    moveTo(9, 0);
    run("NewLine");
    EXPECT_EQ(text(), "\tx\n");

    // The indent of the nearest non-empty line above.
    options().autoIndent = true;
    fill(doc, "  a\n\n");
    moveTo(0, 2);
    run("NewLine");
    EXPECT_EQ(lineText(doc, 3), "  ");

    // Beyond the end the break comes at the end: no trailing blanks.
    fill(doc, "  a");
    moveTo(10, 0);
    run("NewLine");
    EXPECT_EQ(text(), "  a\n  ");
}

TEST_F(Typing, NewLineInLeadingWhiteSpace) {
    fill(doc, "    foo");
    moveTo(2, 0);
    run("NewLine");
    EXPECT_EQ(text(), "    \n    foo");
    EXPECT_EQ(doc.cursor, makePos(4, 1));

    options().keepTrailingBlanks = true;
    fill(doc, "    foo");
    moveTo(2, 0);
    run("NewLine");
    EXPECT_EQ(text(), "  \n    foo");
    EXPECT_EQ(doc.cursor, makePos(2, 1));

    fill(doc, "    foo");
    moveTo(2, 0);
    run("InsertLine");  // no indent, the cursor stays
    EXPECT_EQ(text(), "  \n  foo");
    EXPECT_EQ(doc.cursor, makePos(2, 0));
}

}  // namespace
}  // namespace zol
