// The named-bookmark list: its limits, its settings section and following edits.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "engine/bookmarks.h"
#include "engine/edit.h"
#include "platform/profile.h"
#include "platform/tempfile.h"
#include "tests/engine/doc_helpers.h"

namespace zol::test {
namespace {

class NamedBookmarksTest : public ::testing::Test {
protected:
    void SetUp() override {
        dir_ = createTempDir("zolbm");
        ASSERT_FALSE(dir_.empty());
        ini_ = dir_ + "zol.ini";
        flushProfileCache();
    }
    void TearDown() override {
        flushProfileCache();
        std::error_code ec;
        std::filesystem::remove_all(dir_, ec);
    }
    void writeIni(const std::string& text) {
        std::ofstream(ini_, std::ios::binary) << text;
        flushProfileCache();
    }
    std::string value(int key) { return getProfileString("Bookmarks", std::to_string(key), "<none>", ini_); }

    std::string dir_, ini_;
    NamedBookmarks list;
};

TEST_F(NamedBookmarksTest, LoadSkipsBrokenEntriesAndStopsAtTheFirstGap) {
    writeIni("[Bookmarks]\n"
             "1=\"main\" \"/src/main.c\" 4 120\n"
             "2=\"one number\" \"/src/a.c\" 7\n"
             "3=bare /src/b.c 0 5\n"
             "4=\"junk\" \"/src/c.c\" x 5\n"
             "5=\"main\" \"/src/dup.c\" 1 1\n"
             "6=  \"spaced\"   \"/src/d.c\"   -3   9\n"
             "8=\"after gap\" \"/src/e.c\" 1 1\n");
    loadNamedBookmarks(list, "Bookmarks", ini_);
    ASSERT_EQ(list.entries.size(), 3u);
    EXPECT_EQ(list.entries[0].name, "main");
    EXPECT_EQ(list.entries[0].file, "/src/main.c");
    EXPECT_EQ(list.entries[0].pos, makePos(4, 120));
    EXPECT_EQ(list.entries[1].name, "bare");
    EXPECT_EQ(list.entries[1].file, "/src/b.c");
    EXPECT_EQ(list.entries[2].name, "spaced");
    EXPECT_EQ(list.entries[2].pos, makePos(0, 9));
}

TEST_F(NamedBookmarksTest, SaveWritesConsecutiveKeysAndDropsTheRest) {
    writeIni("[Bookmarks]\n1=\"old\" \"/x\" 0 0\n4=\"old4\" \"/x\" 0 0\n9=\"old9\" \"/x\" 0 0\n");
    addNamedBookmark(list, "a", makePos(1, 2), "/p/a.c");
    addNamedBookmark(list, "b", makePos(3, 4), "/p/b.c");
    addNamedBookmark(list, "c", makePos(5, 6), "/p/c.c");
    ASSERT_TRUE(saveNamedBookmarks(list, "Bookmarks", ini_));
    flushProfileCache();
    EXPECT_EQ(value(1), "\"a\" \"/p/a.c\" 1 2");
    EXPECT_EQ(value(3), "\"c\" \"/p/c.c\" 5 6");
    EXPECT_EQ(value(4), "<none>");
    EXPECT_EQ(value(9), "<none>");

    NamedBookmarks back;
    loadNamedBookmarks(back, "Bookmarks", ini_);
    ASSERT_EQ(back.entries.size(), 3u);
    EXPECT_EQ(back.entries[1].pos, makePos(3, 4));

    // An entry without a file is skipped; the keys from the list's size on go, the
    // key between the written ones and the size keeps its old value.
    writeIni("[Bookmarks]\n3=\"stale\" \"/x\" 0 0\n4=\"gone\" \"/x\" 0 0\n");
    list.entries[1].file.clear();
    ASSERT_TRUE(saveNamedBookmarks(list, "Bookmarks", ini_));
    flushProfileCache();
    EXPECT_EQ(value(2), "\"c\" \"/p/c.c\" 5 6");
    EXPECT_EQ(value(3), "\"stale\" \"/x\" 0 0");
    EXPECT_EQ(value(4), "<none>");
}

TEST_F(NamedBookmarksTest, ListRefusesDuplicatesAndAThirtyThirdEntry) {
    for (int i = 0; i < kMaxNamedBookmarks; ++i)
        ASSERT_EQ(addNamedBookmark(list, "b" + std::to_string(i), Pos{}, "/f"), AddBookmark::Added);
    EXPECT_EQ(addNamedBookmark(list, "b3", Pos{}, "/f"), AddBookmark::NameTaken);
    EXPECT_EQ(addNamedBookmark(list, "new", Pos{}, "/f"), AddBookmark::ListFull);
    EXPECT_EQ(list.entries.size(), static_cast<size_t>(kMaxNamedBookmarks));
    EXPECT_STREQ(addBookmarkMessage(AddBookmark::ListFull), kMsgTooManyBookmarks);
    EXPECT_TRUE(removeNamedBookmark(list, "b0"));
    EXPECT_EQ(addNamedBookmark(list, "new", Pos{}, "/f"), AddBookmark::Added);
}

TEST_F(NamedBookmarksTest, EntriesFollowEditsOfTheirOpenDocument) {
    Document doc;
    fill(doc, "0\n1\n2\n3\n4\n5");
    doc.fileName = "/p/doc.c";
    doc.hasFile = true;
    NamedBookmarks& app = namedBookmarks();
    app.entries.clear();
    addNamedBookmark(app, "four", makePos(0, 4), "", &doc);
    addNamedBookmark(app, "one", makePos(0, 1), "", &doc);

    setCursor(doc, makePos(1, 2));
    insertText(doc, "\r\nnew\r\n");
    EXPECT_EQ(app.entries[0].pos.line, 6);
    EXPECT_EQ(app.entries[1].pos.line, 1);
    deleteRange(doc, makePos(1, 0), makePos(1, 5));  // lines 1 to 5 joined into line 0
    EXPECT_EQ(app.entries[0].pos.line, 1);
    EXPECT_EQ(app.entries[1].pos.line, 0);

    detachDocument(app, doc);
    EXPECT_EQ(app.entries[0].doc, nullptr);
    EXPECT_EQ(app.entries[0].file, "/p/doc.c");
    app.entries.clear();
}

}  // namespace
}  // namespace zol::test
