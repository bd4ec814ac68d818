// Reading files into documents and writing them back: line ends, capacities, bad
// files, backups and the state a document takes from its file.
#include <filesystem>

#include "engine/undo.h"
#include "files/autosave.h"
#include "files/messages.h"
#include "files/textfile.h"
#include "platform/fileinfo.h"
#include "tests/support/documents.h"
#include "tests/support/files.h"
#include "tests/support/temp_home.h"

namespace zol::test {
namespace {

namespace fs = std::filesystem;
using TextFile = TempHome;

// What a file reads as, what the user is told, and what writing it back in the
// detected format gives: the same bytes, except that one format replaces a mix of line
// ends, a NUL byte comes back as a blank and a line over the capacity as two.
TEST_F(TextFile, LinesAndFormatComeFromTheFileAndWriteBackTheSameBytes) {
    const std::string w(3200, 'w'), t(400, '\t');
    struct Case {
        std::string bytes;
        Lines lines;
        TextFormat format;         // the document starts as Unix
        std::string written = {};  // when it differs from bytes
        const char* message = nullptr;
    };
    const Case cases[] = {
        {"a\r\nb\r\n", {"a", "b", ""}, TextFormat::Dos},
        {"a\rb", {"a", "b"}, TextFormat::Mac},
        {"a\nb\r\nc\r", {"a", "b", "c", ""}, TextFormat::Unix, "a\nb\nc\n"},
        {"\r\r\n\n", {"", "", "", ""}, TextFormat::Mac, "\r\r\r"},
        {"x \t y\r\nlast", {"x \t y", "last"}, TextFormat::Dos},
        {"", {""}, TextFormat::Unix},
        {"\n", {"", ""}, TextFormat::Unix},
        {std::string("hi\xff\x80\x01", 5), {std::string("hi\xff\x80\x01", 5)}, TextFormat::Unix},
        {std::string("a\0b\n\0\0", 6), {"a b", "  "}, TextFormat::Unix, "a b\n  ", filemsg::kBinaryFile},
        {w + "\n", {w, ""}, TextFormat::Unix},
        {w + "w\r\n" + w + "w", {w, "w", w, "w"}, TextFormat::Dos, w + "\r\nw\r\n" + w + "\r\nw",
         filemsg::kLongLinesSplit},
        {t + t + "\t", {t, t, "\t"}, TextFormat::Unix, t + "\n" + t + "\n\t", filemsg::kLongLinesSplit},
    };
    for (const Case& c : cases) {
        Document doc;
        doc.textFormat = TextFormat::Unix;
        ReadReport rep;
        shell_.messages.clear();
        ASSERT_TRUE(readFile(doc, put("in", c.bytes), true, &rep)) << c.bytes;
        EXPECT_EQ(linesOf(doc), c.lines) << c.bytes;
        EXPECT_EQ(doc.textFormat, c.format) << c.bytes;
        EXPECT_EQ(shell_.messages, c.message ? Lines{c.message} : Lines{}) << c.bytes;
        EXPECT_EQ(rep.split, c.message == filemsg::kLongLinesSplit) << c.bytes;
        EXPECT_EQ(rep.binary, c.message == filemsg::kBinaryFile) << c.bytes;
        EXPECT_EQ(doc.readOnly, rep.binary) << c.bytes;
        ASSERT_TRUE(writeFile(doc, path("out"), doc.textFormat, -1, false, false));
        EXPECT_EQ(get("out"), c.written.empty() ? c.bytes : c.written) << c.bytes;
    }
    Document doc;
    doc.textFormat = TextFormat::Mac;
    ASSERT_TRUE(readFile(doc, put("g", "a\r\n"), false));
    EXPECT_EQ(doc.textFormat, TextFormat::Mac) << "without detection the format stays";

    options().tabSize = 3;  // a tab can straddle the limit: 1066 tabs reach column 3198
    ASSERT_TRUE(readFile(doc, put("t", "ab" + t + t + t), true));
    EXPECT_EQ(doc.lines.text(doc.lines.first).size(), 2u + 1066u);
}

TEST_F(TextFile, ReadingResetsTheDocumentAndTakesTheFilesState) {
    Document doc;
    fill(doc, "old\ntext");
    setCursor(doc, makePos(2, 1));
    doc.selExists = doc.modified = true;
    doc.undo.undo.push_back(EditRecord{});
    const std::string p = put("a.txt", "x\ny\n");
    ASSERT_TRUE(readFile(doc, dir + "./a.txt", true));
    EXPECT_EQ(textOf(doc), "x\ny\n");
    EXPECT_EQ(doc.cursor, Pos{});
    EXPECT_EQ(doc.lines.currentIndex, 0);
    EXPECT_FALSE(doc.selExists || doc.modified || doc.readOnly);
    EXPECT_TRUE(doc.undo.undo.empty());
    EXPECT_EQ(doc.fileName, p);
    EXPECT_TRUE(doc.hasFile);
    EXPECT_NE(doc.fileTime, 0u);
    EXPECT_EQ(doc.fileTime, fileTime32(p));

    fs::permissions(p, fs::perms::owner_read);
    ASSERT_TRUE(readFile(doc, p, true));
    EXPECT_TRUE(doc.readOnly);
}

TEST_F(TextFile, FailureToReadLeavesTheDocumentAsItWas) {
    fs::create_directory(path("folder.txt"));
    options().splitLongLines = false;
    const std::pair<std::string, std::string> cases[] = {
        {path("missing.txt"), filemsg::withFileName(filemsg::kCannotOpenRead, path("missing.txt"))},
        {path("folder.txt"), filemsg::withFileName(filemsg::kCannotOpenRead, path("folder.txt"))},
        {put("wide", "short\n" + std::string(3300, 'x')), filemsg::kLineTooLong},  // splitting is off
    };
    for (const auto& [p, message] : cases) {
        Document doc;
        fill(doc, "unsaved\nwork");
        doc.fileName = "mine.txt";
        doc.modified = true;
        shell_.messages.clear();
        EXPECT_FALSE(readFile(doc, p, true));
        EXPECT_EQ(textOf(doc), "unsaved\nwork");
        EXPECT_TRUE(doc.modified);
        EXPECT_EQ(doc.fileName, "mine.txt");
        EXPECT_EQ(shell_.messages, Lines{message});
    }
}

// Lines and CR LF pairs crossing the reader's chunk boundaries.
TEST_F(TextFile, ChunkBoundariesDoNotChangeTheLines) {
    const size_t pairs = kReadChunk + 100;
    std::string crlf;
    for (size_t i = 0; i < pairs; ++i) crlf += "\r\n";
    for (const std::string& head : {std::string(), std::string("a")}) {
        Document doc;
        ASSERT_TRUE(readFile(doc, put("f", head + crlf), true));
        EXPECT_EQ(doc.lines.count(), static_cast<int32_t>(pairs + 1));
        EXPECT_EQ(doc.textFormat, TextFormat::Dos);
        EXPECT_EQ(doc.lines.text(doc.lines.first), head);
    }

    // One line of 2.5 chunks: every piece but the last holds exactly 3200 bytes.
    const std::string longLine(kReadChunk * 5 / 2, 'z');
    Lines pieces;
    for (size_t at = 0; at < longLine.size(); at += 3200) pieces.push_back(longLine.substr(at, 3200));
    pieces.push_back("end");
    Document doc;
    ASSERT_TRUE(readFile(doc, put("long", longLine + "\nend"), true));
    EXPECT_TRUE(linesOf(doc) == pieces);
    EXPECT_EQ(shell_.messages.size(), 1u);
}

TEST_F(TextFile, TheOldFileBecomesTheBackup) {
    EXPECT_EQ(backupName("c:\\dir.x\\readme", 0), "c:\\dir.x\\readme.bak");
    EXPECT_EQ(backupName("a.b.c", 0), "a.b.bak");
    EXPECT_EQ(backupName("/d/.profile", 0), "/d/.profile.bak");
    EXPECT_EQ(backupName("readme", 1), "readme.bak");

    fs::create_directory(path("dir.x"));
    const std::tuple<const char*, int, const char*> cases[] = {
        {"a.txt", 0, "a.bak"}, {"a.txt", 1, "a.txt.bak"}, {"dir.x/readme", 0, "dir.x/readme.bak"}};
    Document doc;
    fill(doc, "new");
    for (const auto& [name, style, backup] : cases) {
        put(backup, "stale backup");
        put(name, "old\r\n");
        ASSERT_TRUE(writeFile(doc, path(name), TextFormat::Dos, style, false, false)) << name;
        EXPECT_EQ(get(name), "new") << name;
        EXPECT_EQ(get(backup), "old\r\n") << name;
        fs::remove(path(backup));
    }

    // No backup asked for, and a file that would be its own backup.
    put("b.txt", "old");
    put("x.bak", "old");
    ASSERT_TRUE(writeFile(doc, path("b.txt"), TextFormat::Dos, -1, false, false));
    ASSERT_TRUE(writeFile(doc, path("x.bak"), TextFormat::Dos, 0, false, false));
    EXPECT_FALSE(exists("b.bak"));
    EXPECT_EQ(get("x.bak"), "new");
    EXPECT_EQ(shell_.messages, Lines{});
}

TEST_F(TextFile, RefusedWritesLeaveFileAndDocumentAlone) {
    const std::string locked = put("locked.txt", "mine");
    fs::permissions(locked, fs::perms::owner_read | fs::perms::group_read);
    Document doc;
    fill(doc, "changed");
    doc.modified = true;
    const std::pair<std::string, const char*> cases[] = {
        {locked, filemsg::kReadOnlyTarget},
        {path("no/such/folder.txt"), filemsg::kCannotOpenWrite},
        {dir, filemsg::kCannotOpenWrite},
    };
    for (const auto& [p, message] : cases) {
        shell_.messages.clear();
        EXPECT_FALSE(writeFile(doc, p, TextFormat::Dos, 0, false, false));
        EXPECT_TRUE(doc.modified);
        EXPECT_EQ(shell_.messages, Lines{filemsg::withFileName(message, p)});
    }
    EXPECT_EQ(get("locked.txt"), "mine");
    EXPECT_FALSE(exists("locked.bak"));
}

TEST_F(TextFile, OnlyASaveThatClearsModifiedTakesTheFileTimeAndDropsTheSideFile) {
    const std::string own = put("own.txt", "x");
    Document doc;
    ASSERT_TRUE(readFile(doc, own, true));
    fill(doc, "y");
    doc.modified = true;
    doc.fileTime = 1;
    ASSERT_TRUE(autoSaveDocument(doc, dir));
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

TEST_F(TextFile, PermissionsAndLinksSurviveTheReplacement) {
    const std::string script = put("run.sh", "old");
    const auto mode = fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec;
    fs::permissions(script, mode);
    fs::create_symlink(script, path("link.sh"));
    Document doc;
    fill(doc, "new");
    ASSERT_TRUE(writeFile(doc, path("link.sh"), TextFormat::Unix, 0, false, false));
    EXPECT_TRUE(fs::is_symlink(path("link.sh")));
    EXPECT_EQ(get("run.sh"), "new");
    EXPECT_EQ(get("run.bak"), "old");
    EXPECT_EQ(fs::status(script).permissions(), mode);
}

TEST_F(TextFile, BlockWritesTheSelectionOnly) {
    options().tabSize = 4;
    Document doc;
    fill(doc, "hello\nworld\n\tagain");
    doc.modified = doc.selExists = true;
    doc.selAnchor = makePos(3, 2);  // ends in either order; column 3 lies inside the tab
    doc.selEnd = makePos(2, 0);
    ASSERT_TRUE(writeFile(doc, path("char"), TextFormat::Unix, -1, true, false));
    EXPECT_EQ(get("char"), "llo\nworld\n");

    doc.selMode = SelMode::Column;
    doc.selAnchor = makePos(1, 0);
    doc.selEnd = makePos(6, 2);
    ASSERT_TRUE(writeFile(doc, path("col"), TextFormat::Dos, -1, true, false));
    EXPECT_EQ(get("col"), "ello\r\norld\r\n\tag");
    EXPECT_TRUE(doc.modified);

    doc.selExists = false;
    EXPECT_FALSE(writeFile(doc, path("none"), TextFormat::Dos, -1, true, false));
    EXPECT_FALSE(exists("none"));
}

}  // namespace
}  // namespace zol::test
