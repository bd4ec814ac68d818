// Line bookmarks, numbered marks, the cursor stack, bookmarked-line commands and the
// named-bookmark list.
#include <filesystem>
#include <fstream>

#include "engine/bookmarks.h"
#include "platform/profile.h"
#include "platform/tempfile.h"
#include "tests/engine/command_fixture.h"

namespace zol::test {
namespace {

class Marks : public CommandTest {
protected:
    void mark(std::initializer_list<int32_t> lines) {
        for (int32_t l : lines) setBookmark(doc, l, true);
    }
    std::vector<int32_t> marked() const { return bookmarkedLines(doc); }
};

TEST_F(Marks, BookmarksTravelWithTheirLinesThroughEditAndUndo) {
    options().autoIndent = false;
    fill(doc, "zero\none\ntwo");
    mark({2});
    moveTo(4, 0);
    run("NewLine");
    moveTo(0, 1);
    run("DeleteLine");
    EXPECT_EQ(marked(), (std::vector<int32_t>{2}));
    // NewLine in column 0 hands the mark to the line that keeps the text, both ways.
    moveTo(0, 2);
    run("NewLine");
    EXPECT_EQ(marked(), (std::vector<int32_t>{3}));
    run("Undo");
    EXPECT_EQ(text(), "zero\none\ntwo");
    EXPECT_EQ(marked(), (std::vector<int32_t>{2}));
    run("Redo");
    EXPECT_EQ(marked(), (std::vector<int32_t>{3}));
    // An empty line keeps its mark; deleting the empty line below it leaves it there.
    fill(doc, "\n\n");
    mark({0});
    run("NewLine");
    EXPECT_EQ(marked(), (std::vector<int32_t>{0}));
    run("DeleteLine");
    EXPECT_EQ(marked(), (std::vector<int32_t>{0}));
    run("Undo");
    EXPECT_EQ(marked(), (std::vector<int32_t>{0}));
    // With auto indent the cursor first skips the leading blanks; the mark still moves.
    options().autoIndent = true;
    fill(doc, "  text");
    mark({0});
    run("NewLine");
    EXPECT_EQ(marked(), (std::vector<int32_t>{1}));
}

TEST_F(Marks, NextAndPrevWrapAndNeverAnswerTheCursorLine) {
    fill(doc, "0\n1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12\n13");
    mark({3, 10});
    moveTo(1, 12);
    run("BookmarkNext");
    EXPECT_EQ(doc.cursor, makePos(1, 3));
    moveTo(1, 12);
    run("BookmarkPrev");
    EXPECT_EQ(doc.cursor, makePos(1, 10));
    run("BookmarkPrev");
    EXPECT_EQ(doc.cursor.line, 3);
    run("BookmarkClearAll");
    run("BookmarkSet");
    EXPECT_EQ(run("BookmarkNext") + run("BookmarkPrev"), 0);
    run("BookmarkToggle");
    EXPECT_TRUE(marked().empty());
}

TEST_F(Marks, NumberedMarksAndTheCursorStack) {
    fill(doc, "0\n1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12\n13\n14\n15\n16\n17\n18\n19");
    moveTo(0, 5);
    EXPECT_EQ(run("GotoMark4"), 0);
    run("SetMark4");
    moveTo(0, 19);
    run("SetMark9");
    run("GotoMark4");
    EXPECT_EQ(doc.cursor.line, 5);
    run("DeleteLine");
    run("GotoMark9");  // past the end of the shorter text
    EXPECT_EQ(doc.cursor.line, 18);

    for (int32_t l = 0; l < 19; ++l) {
        moveTo(0, l);
        run("SaveCursorPos");
    }
    std::vector<int32_t> back;
    while (run("RestoreCursorPos")) back.push_back(doc.cursor.line);
    ASSERT_EQ(back.size(), kCursorStackDepth);
    EXPECT_EQ(back.front(), 18);
    EXPECT_EQ(back.back(), static_cast<int32_t>(19 - kCursorStackDepth));
}

TEST_F(Marks, BookmarkedLinesGoInOneUndoStep) {
    const std::pair<const char*, std::vector<int32_t>> cases[] = {
        {"a\nb\nc\nd\ne", {1, 3}}, {"a\nb\nc", {0}}, {"a\nb\nc", {2}}, {"a\nb\nc", {0, 1, 2}}, {"a\nb\nc\nd", {0, 2, 3}},
    };
    const char* left[] = {"a\nc\ne", "b\nc", "a\nb", "", "b"};
    for (size_t i = 0; i < std::size(cases); ++i) {
        fill(doc, cases[i].first);
        for (int32_t l : cases[i].second) setBookmark(doc, l, true);
        run("DeleteBookmarkedLines");
        EXPECT_EQ(text(), left[i]) << i;
        EXPECT_TRUE(marked().empty()) << i;
        run("Undo");
        EXPECT_EQ(text(), cases[i].first);
    }
    fill(doc, "keep\ncut me\nkeep too\nand me");
    mark({1, 3});
    run("CopyBookmarkedLines");
    EXPECT_EQ(shell_.clip.text, "cut me\r\nand me\r\n");
    shell_.clip.text.clear();
    run("CutBookmarkedLines");
    EXPECT_EQ(shell_.clip.text, "cut me\r\nand me\r\n");
    EXPECT_EQ(text(), "keep\nkeep too");
    EXPECT_STREQ(undoLabel(doc.undo), "&Undo Cut");
    EXPECT_EQ(run("CutBookmarkedLines"), 0);
}

TEST(NamedBookmarkList, SettingsSectionLimitsAndEdits) {
    const std::string dir = createTempDir("zolbm"), ini = dir + "zol.ini";
    std::ofstream(ini) << "[Bookmarks]\n1=\"main\" \"/src/main.c\" 4 120\n2=\"one number\" \"/a.c\" 7\n"
                          "3=bare /b.c 0 5\n4=\"main\" \"/dup.c\" 1 1\n5=\"x\" \"/c.c\" x 5\n7=\"after gap\" \"/e.c\" 1 1\n"
                          "9=\"stale\" \"/f.c\" 0 0\n";
    flushProfileCache();
    NamedBookmarks list;
    loadNamedBookmarks(list, "Bookmarks", ini);
    ASSERT_EQ(list.entries.size(), 2u);
    EXPECT_EQ(list.entries[0].pos, makePos(4, 120));
    EXPECT_EQ(list.entries[1].file, "/b.c");

    EXPECT_EQ(addNamedBookmark(list, "main", Pos{}, "/x"), AddBookmark::NameTaken);
    EXPECT_EQ(addNamedBookmark(list, "noFile", Pos{}, ""), AddBookmark::Added);
    ASSERT_TRUE(saveNamedBookmarks(list, "Bookmarks", ini));
    flushProfileCache();
    // The entry without a file is skipped; keys after the list's size are deleted, so
    // key 3 keeps its old value.
    EXPECT_EQ(getProfileString("Bookmarks", "2", "", ini), "\"bare\" \"/b.c\" 0 5");
    EXPECT_EQ(getProfileString("Bookmarks", "3", "", ini), "bare /b.c 0 5");
    EXPECT_EQ(getProfileString("Bookmarks", "4", "", ini), "");
    EXPECT_EQ(getProfileString("Bookmarks", "9", "", ini), "");
    for (int i = 3; i < kMaxNamedBookmarks; ++i) addNamedBookmark(list, std::to_string(i), Pos{}, "/f");
    EXPECT_EQ(addNamedBookmark(list, "one more", Pos{}, "/f"), AddBookmark::ListFull);

    Document doc;
    fill(doc, "0\n1\n2\n3\n4\n5");
    doc.fileName = "/p/doc.c";
    doc.hasFile = true;
    NamedBookmarks& app = namedBookmarks();
    addNamedBookmark(app, "four", makePos(0, 4), "", &doc);
    setCursor(doc, makePos(1, 2));
    insertText(doc, "\r\nnew\r\n");
    EXPECT_EQ(app.entries[0].pos.line, 6);
    deleteRange(doc, makePos(1, 0), makePos(1, 5));
    EXPECT_EQ(app.entries[0].pos.line, 1);
    detachDocument(app, doc);
    EXPECT_EQ(app.entries[0].file, "/p/doc.c");
    app.entries.clear();
    std::filesystem::remove_all(dir);
}

}  // namespace
}  // namespace zol::test
