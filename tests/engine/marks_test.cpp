// Line bookmarks, numbered marks, the cursor stack and the bookmarked-line commands.
#include <string>
#include <vector>

#include "engine/bookmarks.h"
#include "tests/engine/command_fixture.h"

namespace zol::test {
namespace {

class Marks : public CommandTest {
protected:
    void SetUp() override {
        CommandTest::SetUp();
        options().autoIndent = false;
    }
    void mark(std::initializer_list<int32_t> lines) {
        for (int32_t l : lines) setBookmark(doc, l, true);
    }
    std::vector<int32_t> marked() const { return bookmarkedLines(doc); }
};

TEST_F(Marks, BookmarksTravelWithTheirLines) {
    fill(doc, "zero\none\ntwo\nthree");
    mark({2});
    moveTo(4, 0);
    run("NewLine");
    EXPECT_EQ(marked(), (std::vector<int32_t>{3}));
    moveTo(0, 1);
    run("DeleteLine");
    EXPECT_EQ(marked(), (std::vector<int32_t>{2}));
    EXPECT_EQ(lineText(doc, 2), "two");
    // Joined onto the line above, the text lives on in that line's record and mark.
    moveTo(0, 2);
    run("Backspace");
    EXPECT_EQ(lineText(doc, 1), "onetwo");
    EXPECT_TRUE(marked().empty());
}

TEST_F(Marks, NewLineAtColumnZeroHandsTheBookmarkOnAndUndoBringsItBack) {
    fill(doc, "a\nbody\nc");
    mark({1});
    moveTo(0, 1);
    run("NewLine");
    EXPECT_EQ(text(), "a\n\nbody\nc");
    EXPECT_EQ(marked(), (std::vector<int32_t>{2}));
    run("Undo");
    EXPECT_EQ(text(), "a\nbody\nc");
    EXPECT_EQ(marked(), (std::vector<int32_t>{1}));
    run("Redo");
    EXPECT_EQ(marked(), (std::vector<int32_t>{2}));

    // With auto indent the cursor first skips the leading blanks; the mark still moves.
    options().autoIndent = true;
    fill(doc, "  text");
    mark({0});
    moveTo(0, 0);
    run("NewLine");
    EXPECT_EQ(text(), "  \n  text");
    EXPECT_EQ(marked(), (std::vector<int32_t>{1}));
}

TEST_F(Marks, NextAndPrevWrapAndNeverAnswerTheCursorLine) {
    std::string t;
    for (int i = 0; i < 14; ++i) t += "line" + std::to_string(i) + (i < 13 ? "\n" : "");
    fill(doc, t);
    mark({3, 10});
    moveTo(2, 12);
    run("BookmarkNext");
    EXPECT_EQ(doc.cursor, makePos(2, 3));
    moveTo(2, 12);
    run("BookmarkPrev");
    EXPECT_EQ(doc.cursor, makePos(2, 10));
    run("BookmarkPrev");
    EXPECT_EQ(doc.cursor.line, 3);
    run("BookmarkPrev");
    EXPECT_EQ(doc.cursor.line, 10);

    run("BookmarkClearAll");
    EXPECT_TRUE(marked().empty());
    run("BookmarkSet");
    EXPECT_EQ(run("BookmarkNext"), 0);
    EXPECT_EQ(run("BookmarkPrev"), 0);
    EXPECT_EQ(doc.cursor.line, 10);
    run("BookmarkToggle");
    EXPECT_TRUE(marked().empty());
}

TEST_F(Marks, NumberedMarksAndTheCursorStack) {
    fill(doc, "first line\nsecond line\nthird line");
    moveTo(3, 1);
    EXPECT_EQ(run("GotoMark4"), 0);
    EXPECT_EQ(doc.cursor, makePos(3, 1));
    run("SetMark4");
    moveTo(0, 2);
    run("SetMark9");
    moveTo(5, 0);
    run("GotoMark4");
    EXPECT_EQ(doc.cursor, makePos(3, 1));
    run("GotoMark9");
    EXPECT_EQ(doc.cursor, makePos(0, 2));
    // A mark past the end of a shrunken text lands on the text.
    run("DeleteLine");
    run("DeleteLine");
    run("GotoMark9");
    EXPECT_EQ(doc.cursor.line, 0);

    fill(doc, "0\n1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12\n13\n14\n15\n16\n17\n18\n19");
    for (int32_t l = 0; l < 20; ++l) {
        moveTo(0, l);
        run("SaveCursorPos");
    }
    std::vector<int32_t> back;
    while (run("RestoreCursorPos")) back.push_back(doc.cursor.line);
    ASSERT_EQ(back.size(), kCursorStackDepth);
    EXPECT_EQ(back.front(), 19);
    EXPECT_EQ(back.back(), static_cast<int32_t>(20 - kCursorStackDepth));
}

TEST_F(Marks, BookmarkedLinesAreRemovedInOneUndoStep) {
    struct Case {
        const char* text;
        std::initializer_list<int32_t> lines;
        const char* left;
    } cases[] = {
        {"a\nb\nc\nd\ne", {1, 3}, "a\nc\ne"},
        {"a\nb\nc", {0}, "b\nc"},
        {"a\nb\nc", {2}, "a\nb"},
        {"a\nb\nc", {0, 1, 2}, ""},
        {"a\nb\nc\nd", {0, 2, 3}, "b"},
    };
    for (const Case& c : cases) {
        fill(doc, c.text);
        mark(c.lines);
        run("DeleteBookmarkedLines");
        EXPECT_EQ(text(), c.left) << c.text;
        EXPECT_TRUE(marked().empty()) << c.text;
        run("Undo");
        EXPECT_EQ(text(), c.text);
    }

    fill(doc, "keep\ncut me\nkeep too\nand me");
    mark({1, 3});
    run("CopyBookmarkedLines");
    EXPECT_EQ(shell_.clip.text, "cut me\r\nand me\r\n");
    EXPECT_EQ(text(), "keep\ncut me\nkeep too\nand me");
    run("CutBookmarkedLines");
    EXPECT_EQ(text(), "keep\nkeep too");
    EXPECT_STREQ(undoLabel(doc.undo), "&Undo Cut");

    shell_.clip.text = "untouched";
    EXPECT_EQ(run("CutBookmarkedLines"), 0);
    EXPECT_EQ(shell_.clip.text, "untouched");
    doc.readOnly = true;
    fill(doc, "x\ny");
    mark({0});
    run("DeleteBookmarkedLines");
    EXPECT_EQ(text(), "x\ny");
}

}  // namespace
}  // namespace zol::test
