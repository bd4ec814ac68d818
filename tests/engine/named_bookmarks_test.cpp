// The named-bookmark list: its settings section, its limits, and entries that follow
// the edits of their open document.
#include <filesystem>
#include <fstream>

#include "engine/bookmarks.h"
#include "engine/edit.h"
#include "platform/profile.h"
#include "platform/tempfile.h"
#include "tests/engine/command_fixture.h"

namespace zol::test {
namespace {

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
    // Lines given back one for one (a replace-all, a conversion) keep their entries;
    // when fewer come back, an entry past them lands on the last.
    addNamedBookmark(app, "three", makePos(0, 3), "", &doc);
    notifyChanged(doc, 0, 4, 4);
    EXPECT_EQ(app.entries[0].pos.line, 1);
    EXPECT_EQ(app.entries[1].pos.line, 3);
    notifyChanged(doc, 0, 4, 2);
    EXPECT_EQ(app.entries[0].pos.line, 1);
    EXPECT_EQ(app.entries[1].pos.line, 2);
    detachDocument(app, doc);
    EXPECT_EQ(app.entries[0].file, "/p/doc.c");
    app.entries.clear();
    std::filesystem::remove_all(dir);
}

}  // namespace
}  // namespace zol::test
