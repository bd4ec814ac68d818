#include <filesystem>

#include "files/autosave.h"
#include "files/messages.h"
#include "files/textfile.h"
#include "files_fixture.h"
#include "platform/fileinfo.h"

namespace zol::test {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;
using WriteTest = FilesTest;

TEST_F(WriteTest, BackupNames) {
    EXPECT_EQ(backupName("c:\\dir.x\\readme", 0), "c:\\dir.x\\readme.bak");
    EXPECT_EQ(backupName("a.b.c", 0), "a.b.bak");
    EXPECT_EQ(backupName("/d/.profile", 0), "/d/.profile.bak");
    EXPECT_EQ(backupName("readme", 1), "readme.bak");
}

TEST_F(WriteTest, TheOldFileBecomesTheBackup) {
    fs::create_directory(path("dir.x"));
    struct Case {
        const char* name;
        int style;
        const char* backup;
    };
    const Case cases[] = {{"a.txt", 0, "a.bak"}, {"a.txt", 1, "a.txt.bak"}, {"dir.x/readme", 0, "dir.x/readme.bak"}};
    for (const Case& c : cases) {
        put(c.backup, "stale backup");
        put(c.name, "old\r\n");
        Document doc;
        setLines(doc, {"new"});
        ASSERT_TRUE(writeFile(doc, path(c.name), TextFormat::Dos, c.style, false, false)) << c.name;
        EXPECT_EQ(bytesOf(path(c.name)), "new") << c.name;
        EXPECT_EQ(bytesOf(path(c.backup)), "old\r\n") << c.name;
        fs::remove(path(c.backup));
    }

    // No backup asked for, and a file that would be its own backup.
    put("b.txt", "old");
    put("x.bak", "old");
    Document doc;
    setLines(doc, {"new"});
    ASSERT_TRUE(writeFile(doc, path("b.txt"), TextFormat::Dos, -1, false, false));
    ASSERT_TRUE(writeFile(doc, path("x.bak"), TextFormat::Dos, 0, false, false));
    EXPECT_FALSE(fs::exists(path("b.bak")));
    EXPECT_EQ(bytesOf(path("x.bak")), "new");
    EXPECT_EQ(shell_.messages, Lines{});
    // Nothing but the files themselves is left in the folder.
    size_t entries = 0;
    for (const auto& e : fs::directory_iterator(dir_)) entries += e.is_regular_file() ? 1 : 0;
    EXPECT_EQ(entries, 3u);  // a.txt, b.txt, x.bak
}

TEST_F(WriteTest, RefusedWritesLeaveFileAndDocumentAlone) {
    const std::string locked = put("locked.txt", "mine");
    fs::permissions(locked, fs::perms::owner_read | fs::perms::group_read);
    Document doc;
    setLines(doc, {"changed"});
    doc.modified = true;
    EXPECT_FALSE(writeFile(doc, locked, TextFormat::Dos, 0, false, false));
    EXPECT_EQ(bytesOf(locked), "mine");
    EXPECT_FALSE(fs::exists(path("locked.bak")));
    EXPECT_TRUE(doc.modified);
    EXPECT_EQ(shell_.messages, Lines{filemsg::withFileName(filemsg::kReadOnlyTarget, locked)});

    for (const std::string& p : {path("no/such/folder.txt"), dir_}) {
        shell_.messages.clear();
        EXPECT_FALSE(writeFile(doc, p, TextFormat::Dos, 0, false, false));
        EXPECT_TRUE(doc.modified);
        EXPECT_EQ(shell_.messages, Lines{filemsg::withFileName(filemsg::kCannotOpenWrite, p)});
    }
}

TEST_F(WriteTest, OnlyASaveThatClearsModifiedTakesTheFileTimeAndDropsTheSideFile) {
    const std::string own = put("own.txt", "x");
    Document doc;
    ASSERT_TRUE(readFile(doc, own, true));
    setLines(doc, {"y"});
    doc.modified = true;
    doc.fileTime = 1;
    ASSERT_TRUE(autoSaveDocument(doc, dir_));
    const std::string side = doc.autoSaveFile;

    ASSERT_TRUE(writeFile(doc, path("copy.txt"), TextFormat::Dos, -1, false, true));
    EXPECT_TRUE(doc.modified);
    EXPECT_EQ(doc.fileTime, 1u);  // another file's time is not this document's
    EXPECT_TRUE(fs::exists(side));

    ASSERT_TRUE(writeFile(doc, own, TextFormat::Dos, -1, false, false));
    EXPECT_FALSE(doc.modified);
    EXPECT_EQ(doc.fileTime, fileTime32(own));
    EXPECT_FALSE(fs::exists(side));
}

TEST_F(WriteTest, PermissionsAndLinksSurviveTheReplacement) {
    const std::string script = put("run.sh", "old");
    const auto mode = fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec;
    fs::permissions(script, mode);
    fs::create_symlink(script, path("link.sh"));
    Document doc;
    setLines(doc, {"new"});
    ASSERT_TRUE(writeFile(doc, path("link.sh"), TextFormat::Unix, 0, false, false));
    EXPECT_TRUE(fs::is_symlink(path("link.sh")));
    EXPECT_EQ(bytesOf(script), "new");
    EXPECT_EQ(bytesOf(path("run.bak")), "old");
    EXPECT_EQ(fs::status(script).permissions(), mode);
}

TEST_F(WriteTest, BlockWritesTheSelectionOnly) {
    options().tabSize = 4;
    Document doc;
    setLines(doc, {"hello", "world", "\tagain"});
    doc.modified = true;
    doc.selExists = true;
    doc.selAnchor = makePos(3, 2);  // ends in either order; column 3 lies inside the tab
    doc.selEnd = makePos(2, 0);
    ASSERT_TRUE(writeFile(doc, path("char"), TextFormat::Unix, -1, true, false));
    EXPECT_EQ(bytesOf(path("char")), "llo\nworld\n");

    doc.selMode = SelMode::Column;
    doc.selAnchor = makePos(1, 0);
    doc.selEnd = makePos(6, 2);
    ASSERT_TRUE(writeFile(doc, path("col"), TextFormat::Dos, -1, true, false));
    EXPECT_EQ(bytesOf(path("col")), "ello\r\norld\r\n\tag");
    EXPECT_TRUE(doc.modified);

    doc.selExists = false;
    EXPECT_FALSE(writeFile(doc, path("none"), TextFormat::Dos, -1, true, false));
    EXPECT_FALSE(fs::exists(path("none")));
}

}  // namespace
}  // namespace zol::test
