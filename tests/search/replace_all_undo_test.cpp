// Replace-all keeps for undo only the old texts of the lines it rewrote: one Undo puts
// the document back byte for byte, Redo rewrites it again, and the lines keep their
// bookmarks either way, whatever the line lengths and however far the rewritten
// lines end up from their neighbours in storage.
#include <gtest/gtest.h>

#include <string>

#include "engine/bookmarks.h"
#include "engine/undo.h"
#include "files/textfile.h"
#include "search/replace.h"
#include "tests/engine/command_fixture.h"
#include "tests/support/files.h"
#include "tests/support/temp_dir.h"

namespace zol {
namespace {

class ReplaceAllUndo : public test::CommandTest {
protected:
    // Every line in both directions, so that a broken link in either shows.
    std::string bothWays() const {
        std::string fwd, back;
        for (LineRef r = doc.lines.first; r != kNoLine; r = doc.lines.next(r)) fwd += std::string(doc.lines.text(r)) + "\n";
        LineRef r = doc.lines.find(doc.lines.lastIndex);
        for (int32_t i = doc.lines.lastIndex; i >= 0; --i, r = doc.lines.prev(r))
            back.insert(0, std::string(doc.lines.text(r)) + "\n");
        EXPECT_EQ(r, kNoLine);
        EXPECT_EQ(fwd, back);
        return fwd;
    }
    void replaceAllOf(const char* pattern, const char* with, bool regex) {
        Searcher s;
        ASSERT_EQ(prepareSearch(s, pattern, {false, true, regex, true}), kSearchFound);
        ReplaceAllResult r;
        doc.lastCmd = 91;
        ASSERT_EQ(replaceAll(doc, s, with, r), kSearchFound);
    }
    void roundTrip(const char* pattern, const char* with, bool regex) {
        const std::string before = bothWays();
        replaceAllOf(pattern, with, regex);
        const std::string after = bothWays();
        ASSERT_NE(after, before);
        undo(doc);
        EXPECT_EQ(bothWays(), before);
        run("Redo");
        EXPECT_EQ(bothWays(), after);
        undo(doc);
        EXPECT_EQ(bothWays(), before);
    }
};

TEST_F(ReplaceAllUndo, SplitLongLineRoundTripsAndKeepsBookmarks) {
    // A physical line of 5002 bytes reads as a full line of 3200 columns and one of
    // 1802; the full one cannot grow, so it is left alone and counted.
    test::TempDir dir;
    const std::string path = dir.put("split.c", "int a;\nint" + std::string(4996, 'x') + "int\nint b;\nint");
    ASSERT_TRUE(readFile(doc, path, true));
    ASSERT_EQ(doc.lines.count(), 5);
    ASSERT_TRUE(writeFile(doc, path, doc.textFormat, -1, false, false));
    const std::string saved = test::readBytes(path);
    setBookmark(doc, 2, true);
    doc.lastCmd = 91;
    Searcher s;
    ASSERT_EQ(prepareSearch(s, "x*int", {false, true, true, true}), kSearchFound);
    ReplaceAllResult r;
    const std::string before = bothWays();
    ASSERT_EQ(replaceAll(doc, s, "long", r), kSearchFound);
    EXPECT_EQ(r.skippedLines, 1);
    EXPECT_EQ(lineText(doc, 1), "int" + std::string(3197, 'x'));
    EXPECT_EQ(lineText(doc, 2), "long");
    undo(doc);
    EXPECT_EQ(bothWays(), before);
    EXPECT_TRUE(isBookmarked(doc, 2));
    EXPECT_EQ(doc.cursor, makePos(3, 4));  // end of the last line rewritten
    run("Redo");
    EXPECT_EQ(lineText(doc, 2), "long");
    EXPECT_TRUE(isBookmarked(doc, 2));
    undo(doc);
    ASSERT_TRUE(writeFile(doc, path, doc.textFormat, -1, false, false));
    EXPECT_EQ(test::readBytes(path), saved);
}

TEST_F(ReplaceAllUndo, ManyLinesGrowingAndShrinking) {
    std::string text;
    for (int i = 0; i < 20000; ++i) text += (i % 3 ? "int x" : "a line without") + std::to_string(i) + "\n";
    test::fill(doc, text);
    roundTrip("int", "unsigned long", false);  // moves the lines' texts to new blocks
    roundTrip("{[0-9]}{[0-9]}", "\\2", true);  // shrinks them in place
}

}  // namespace
}  // namespace zol
