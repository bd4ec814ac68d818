#include <gtest/gtest.h>

#include "engine/columns.h"
#include "engine/edit.h"
#include "engine/options.h"
#include "tests/support/documents.h"

namespace zol {
namespace {

using test::fill;
using test::textOf;

class TabSize : public ::testing::Test {
protected:
    void TearDown() override { setTabSize(8); }
};

TEST_F(TabSize, ColumnFunctionsFollowTabStops) {
    setTabSize(4);
    const char* line = "a\tb";
    EXPECT_EQ(charColumnPos(line, line + 2), 5);
    const char* const before = line;
    EXPECT_EQ(charColumnPos(line + 1, before), 1);
    EXPECT_EQ(charColumnPos(nullptr, line), 1);
    EXPECT_EQ(*charPtr(line, 1), 'a');
    EXPECT_EQ(*charPtr(line, 2), '\t');
    for (int col : {3, 4, 5}) EXPECT_EQ(*charPtr(line, col), 'b') << col;
    EXPECT_EQ(*charPtr(line, 6), '\0');
    EXPECT_EQ(charPtr(line, 0), nullptr);
    EXPECT_EQ(lineWidth("a\tb"), 5);

    ColumnHit hit = locateColumn("a\tb", 2);
    EXPECT_TRUE(hit.insideTab);
    EXPECT_EQ(hit.offset, 1u);
    EXPECT_EQ(locateColumn("ab", 5).padding, 3);
}

TEST(LineList, FindWalksFromTheNearerOfCurrentAndFirst) {
    Document doc;
    std::string text;
    for (int i = 0; i < 1000; ++i) text += "line" + std::to_string(i) + "\n";
    fill(doc, text);
    EXPECT_EQ(doc.lines.count(), 1001);
    doc.lines.seek(900);
    EXPECT_EQ(doc.lines.text(doc.lines.find(850)), "line850");
    EXPECT_EQ(doc.lines.text(doc.lines.find(10)), "line10");
    EXPECT_EQ(doc.lines.text(doc.lines.find(999)), "line999");
    EXPECT_EQ(doc.lines.text(doc.lines.find(5000)), "");  // past the end: the last line
    EXPECT_EQ(doc.lines.currentIndex, 900);
}

TEST(LineList, CacheFollowsInsertionsAndRemovalsAboveIt) {
    Document doc;
    fill(doc, "a\nb\nc\nd");
    setCursor(doc, makePos(0, 3));
    rawInsert(doc, makePos(0, 0), "x\ny\n", nullptr);
    EXPECT_EQ(doc.lines.currentIndex, 5);
    EXPECT_EQ(doc.lines.text(doc.lines.current), "d");
    rawDelete(doc, makePos(0, 0), makePos(0, 4), nullptr);
    EXPECT_EQ(textOf(doc), "c\nd");
    EXPECT_EQ(doc.lines.currentIndex, 1);
    EXPECT_EQ(doc.lines.text(doc.lines.current), "d");
}

// Reading line after line far from the cursor goes on from the line found last, which
// must stay right while lines come and go around it.
TEST(LineList, TheLineFoundLastFollowsChangesAroundIt) {
    Document doc;
    fill(doc, "l0\nl1\nl2\nl3\nl4\nl5\nl6");
    LineList& ll = doc.lines;
    auto at = [&ll](int32_t n) { return std::string(ll.text(ll.find(n))); };
    EXPECT_EQ(at(4), "l4");
    ll.insertAfter(ll.first, 1, "new");  // above the line found last
    EXPECT_EQ(at(5), "l4");
    ll.erase(ll.next(ll.first), 1);
    ll.erase(ll.next(ll.first), 1);
    EXPECT_EQ(at(3), "l4");
    ll.erase(ll.find(3), 3);  // the line found last itself
    EXPECT_EQ(at(3), "l5");
    ll.setText(ll.find(3), std::string(300, 'w'));  // moves to a bigger block
    EXPECT_EQ(at(2), "l3");
    EXPECT_EQ(at(3), std::string(300, 'w'));
    EXPECT_EQ(textOf(doc), "l0\nl2\nl3\n" + std::string(300, 'w') + "\nl6");
    EXPECT_EQ(ll.currentIndex, 0);
}

TEST(LineList, AGrownLineKeepsItsState) {
    Document doc;
    fill(doc, "one\ntwo\nthree");
    LineRef mid = doc.lines.find(1);
    doc.lines.header(mid).bookmark = 1;
    doc.lines.header(mid).comment = 2;
    mid = doc.lines.setText(mid, std::string(500, 'x'));
    EXPECT_EQ(doc.lines.header(mid).bookmark, 1);
    EXPECT_EQ(doc.lines.header(mid).comment, 2);
}

TEST(Edit, DeleteAndRangeTextAgreeAcrossLines) {
    Document doc;
    fill(doc, "alpha\nbeta\ngamma");
    EXPECT_EQ(rangeText(doc, makePos(2, 0), makePos(3, 2)), "pha\r\nbeta\r\ngam");
    ASSERT_TRUE(deleteRange(doc, makePos(3, 2), makePos(2, 0)));
    EXPECT_EQ(textOf(doc), "alma");
    EXPECT_EQ(doc.cursor, makePos(2, 0));
    // An end past the line's end counts as the end.
    fill(doc, "ab\ncd");
    ASSERT_TRUE(deleteRange(doc, makePos(9, 0), makePos(0, 1)));
    EXPECT_EQ(textOf(doc), "abcd");
}

TEST(Edit, ReadOnlyDocumentsDoNotChange) {
    Document doc;
    fill(doc, "keep");
    doc.readOnly = true;
    EXPECT_FALSE(insertText(doc, "x"));
    EXPECT_FALSE(deleteRange(doc, makePos(0, 0), makePos(4, 0)));
    EXPECT_FALSE(replaceRange(doc, makePos(0, 0), makePos(4, 0), "y"));
    EXPECT_EQ(textOf(doc), "keep");
    EXPECT_FALSE(doc.modified);
}

TEST(Edit, ReplaceIsOneUndoRecord) {
    Document doc;
    fill(doc, "one two\nthree");
    ASSERT_TRUE(replaceRange(doc, makePos(4, 0), makePos(2, 1), "2\n3"));
    EXPECT_EQ(textOf(doc), "one 2\n3ree");
    ASSERT_EQ(doc.undo.undo.size(), 1u);
    undo(doc);
    EXPECT_EQ(textOf(doc), "one two\nthree");
    redo(doc);
    EXPECT_EQ(textOf(doc), "one 2\n3ree");
}

TEST(Edit, ListenersHearEveryChange) {
    static int calls, lastLine, lastAdded;
    calls = 0;
    addChangeListener([](Document&, int32_t line, int32_t, int32_t added) {
        ++calls;
        lastLine = line;
        lastAdded = added;
    });
    Document doc;
    fill(doc, "a\nb");
    calls = 0;
    setCursor(doc, makePos(1, 1));
    insertText(doc, "\n\n");
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(lastLine, 1);
    EXPECT_EQ(lastAdded, 2);
}

}  // namespace
}  // namespace zol

#include "engine/doc_access.h"

namespace zol {
namespace {

// Cutting, missing lines and read-only documents are tried through the exported
// functions by the plug-in and script tests; these are the rules only seen here.
TEST(Access, TooSmallBuffersAndLineEnds) {
    Document doc;
    test::fill(doc, "a\nb");
    char buf[8] = "zzzzzzz";
    EXPECT_EQ(getLine(&doc, 1, buf, 1), 0);
    EXPECT_STREQ(buf, "zzzzzzz");
    EXPECT_EQ(getLineLen(&doc, 0, 1), -1);
    doc.lastCmd = 30;
    ASSERT_TRUE(setLine(&doc, 2, "x\ry\nz"));  // never splits the line
    EXPECT_EQ(test::textOf(doc), "a\nx y z");
    EXPECT_EQ(doc.lastCmd, 0);
}

TEST(Access, TextFormatAcceptsOnlyKnownValues) {
    Document doc;
    EXPECT_TRUE(setTextFileFormat(&doc, 1));
    EXPECT_FALSE(setTextFileFormat(&doc, 3));
    EXPECT_EQ(doc.textFormat, TextFormat::Unix);
}

}  // namespace
}  // namespace zol
