#include <filesystem>

#include "engine/undo.h"
#include "files/messages.h"
#include "files/textfile.h"
#include "files_fixture.h"
#include "platform/fileinfo.h"

namespace zol::test {
namespace {

using Lines = std::vector<std::string>;
using ReadTest = FilesTest;

// What a file reads as, and what writing it back in the detected format gives: the
// same bytes, except that one format replaces the mix of line ends in a file.
TEST_F(ReadTest, LinesAndFormatComeFromTheFileAndWriteBackTheSameBytes) {
    struct Case {
        std::string bytes;
        Lines lines;
        TextFormat format;    // the document starts as Unix
        std::string written;  // when it differs from bytes
    };
    const Case cases[] = {
        {"a\r\nb\r\n", {"a", "b", ""}, TextFormat::Dos, {}},
        {"a\rb", {"a", "b"}, TextFormat::Mac, {}},
        {"a\nb\r\nc\r", {"a", "b", "c", ""}, TextFormat::Unix, "a\nb\nc\n"},
        {"\r\r\n\n", {"", "", "", ""}, TextFormat::Mac, "\r\r\r"},
        {"x \t y\r\nlast", {"x \t y", "last"}, TextFormat::Dos, {}},
        {"", {""}, TextFormat::Unix, {}},
        {"\n", {"", ""}, TextFormat::Unix, {}},
        {std::string("hi\xff\x80\x01", 5), {std::string("hi\xff\x80\x01", 5)}, TextFormat::Unix, {}},
    };
    for (const Case& c : cases) {
        Document doc;
        doc.textFormat = TextFormat::Unix;
        ASSERT_TRUE(readFile(doc, put("in", c.bytes), true)) << c.bytes;
        EXPECT_EQ(linesOf(doc), c.lines) << c.bytes;
        EXPECT_EQ(doc.textFormat, c.format) << c.bytes;
        ASSERT_TRUE(writeFile(doc, path("out"), doc.textFormat, -1, false, false));
        EXPECT_EQ(bytesOf(path("out")), c.written.empty() ? c.bytes : c.written) << c.bytes;
    }
    Document doc;
    doc.textFormat = TextFormat::Mac;
    ASSERT_TRUE(readFile(doc, put("g", "a\r\n"), false));
    EXPECT_EQ(doc.textFormat, TextFormat::Mac) << "without detection the format stays";
    EXPECT_TRUE(shell_.messages.empty());
}

TEST_F(ReadTest, ReadingResetsTheDocumentAndTakesTheFilesState) {
    Document doc;
    setLines(doc, {"old", "text"});
    setCursor(doc, makePos(2, 1));
    doc.selExists = true;
    doc.modified = true;
    doc.undo.undo.push_back(EditRecord{});
    const std::string p = put("a.txt", "x\ny\n");
    ASSERT_TRUE(readFile(doc, dir_ + "./a.txt", true));
    EXPECT_EQ(linesOf(doc), (Lines{"x", "y", ""}));
    EXPECT_EQ(doc.cursor, Pos{});
    EXPECT_EQ(doc.lines.currentIndex, 0);
    EXPECT_FALSE(doc.selExists);
    EXPECT_FALSE(doc.modified);
    EXPECT_TRUE(doc.undo.undo.empty());
    EXPECT_EQ(doc.fileName, p);
    EXPECT_TRUE(doc.hasFile);
    EXPECT_NE(doc.fileTime, 0u);
    EXPECT_EQ(doc.fileTime, fileTime32(p));
    EXPECT_FALSE(doc.readOnly);

    std::filesystem::permissions(p, std::filesystem::perms::owner_read);
    ASSERT_TRUE(readFile(doc, p, true));
    EXPECT_TRUE(doc.readOnly);
}

TEST_F(ReadTest, FailureToReadLeavesTheDocumentAsItWas) {
    std::filesystem::create_directory(path("folder.txt"));
    for (const std::string& p : {path("missing.txt"), path("folder.txt")}) {
        Document doc;
        setLines(doc, {"unsaved", "work"});
        doc.fileName = "mine.txt";
        doc.modified = true;
        shell_.messages.clear();
        EXPECT_FALSE(readFile(doc, p, true));
        EXPECT_EQ(linesOf(doc), (Lines{"unsaved", "work"}));
        EXPECT_TRUE(doc.modified);
        EXPECT_EQ(doc.fileName, "mine.txt");
        EXPECT_EQ(shell_.messages, Lines{filemsg::withFileName(filemsg::kCannotOpenRead, p)});
    }
}

TEST_F(ReadTest, LongLinesAreSplitAtTheCapacityAndReportedOnce) {
    const std::string wide(3201, 'w');
    Document doc;
    ReadReport rep;
    ASSERT_TRUE(readFile(doc, put("f", wide + "\r\n" + wide), true, &rep));
    EXPECT_EQ(linesOf(doc), (Lines{std::string(3200, 'w'), "w", std::string(3200, 'w'), "w"}));
    EXPECT_TRUE(rep.split);
    EXPECT_EQ(shell_.messages, Lines{filemsg::kLongLinesSplit});

    shell_.messages.clear();
    ASSERT_TRUE(readFile(doc, put("f", std::string(3200, 'v') + "\n"), true, &rep));
    EXPECT_FALSE(rep.split);
    EXPECT_EQ(doc.lines.count(), 2);
    EXPECT_TRUE(shell_.messages.empty());

    const std::string tabs(801, '\t');
    ASSERT_TRUE(readFile(doc, put("t", tabs), true));
    EXPECT_EQ(linesOf(doc), (Lines{std::string(400, '\t'), std::string(400, '\t'), "\t"}));
    options().tabSize = 3;  // a tab can straddle the limit: 1066 tabs reach column 3198
    ASSERT_TRUE(readFile(doc, put("t", "ab" + tabs + tabs), true));
    EXPECT_EQ(doc.lines.text(doc.lines.first).size(), 2u + 1066u);
}

TEST_F(ReadTest, WithSplittingOffALongLineRefusesTheFile) {
    options().splitLongLines = false;
    Document doc;
    setLines(doc, {"keep"});
    EXPECT_FALSE(readFile(doc, put("f", "short\n" + std::string(3300, 'x')), true));
    EXPECT_EQ(linesOf(doc), Lines{"keep"});
    EXPECT_EQ(shell_.messages, Lines{filemsg::kLineTooLong});
}

TEST_F(ReadTest, NulBytesBecomeBlanksAndMakeTheDocumentReadOnly) {
    Document doc;
    ReadReport rep;
    ASSERT_TRUE(readFile(doc, put("bin", std::string("a\0b\n\0\0", 6)), true, &rep));
    EXPECT_EQ(linesOf(doc), (Lines{"a b", "  "}));
    EXPECT_TRUE(rep.binary);
    EXPECT_TRUE(doc.readOnly);
    EXPECT_EQ(shell_.messages, Lines{filemsg::kBinaryFile});
}

// Lines and CR LF pairs crossing the reader's chunk boundaries.
TEST_F(ReadTest, ChunkBoundariesDoNotChangeTheLines) {
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
    Document doc;
    ASSERT_TRUE(readFile(doc, put("long", longLine + "\nend"), true));
    const Lines lines = linesOf(doc);
    std::string joined;
    for (size_t i = 0; i + 1 < lines.size(); ++i) {
        if (i + 2 < lines.size()) {
            EXPECT_EQ(lines[i].size(), 3200u) << i;
        }
        joined += lines[i];
    }
    EXPECT_EQ(joined, longLine);
    EXPECT_EQ(lines.back(), "end");
    EXPECT_EQ(shell_.messages.size(), 1u);
}

}  // namespace
}  // namespace zol::test
