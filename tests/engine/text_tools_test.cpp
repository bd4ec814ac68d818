#include <gtest/gtest.h>

#include <algorithm>

#include "engine/columns.h"
#include "engine/selection.h"
#include "engine/commands/text_tools.h"
#include "engine/undo.h"
#include "tests/engine/command_fixture.h"

namespace zol {
namespace {

using test::fill;

class TextTools : public test::CommandTest {
protected:
    std::string label() const { return undoLabel(doc.undo); }
    uint8_t mark(int32_t line) const { return doc.lines.header(doc.lines.find(line)).bookmark; }
};

// Columns of the non-blank characters of a line laid out with a tab size.
std::vector<int> visibleColumns(std::string_view line, int tab) {
    std::vector<int> cols;
    int col = 0;
    for (char c : line) {
        if (c != ' ' && c != '\t') cols.push_back(col);
        col = advanceColumn(c, col, tab);
    }
    return cols;
}

TEST(Relayout, KeepsEveryCharacterInItsColumn) {
    const char* lines[] = {"\tint x;\t\t// c", "a \t b\t", "  \t  x", "no tabs  here", "x\t", ""};
    for (const char* line : lines) {
        for (auto [from, to] : {std::pair{8, 3}, std::pair{3, 8}, std::pair{4, 0}, std::pair{8, 8}}) {
            const std::string out = relayoutLine(line, from, to, false);
            EXPECT_EQ(visibleColumns(out, to ? to : 8), visibleColumns(line, from)) << line << " " << from << "->" << to;
            if (to == 0) {
                EXPECT_EQ(out.find('\t'), std::string::npos);
            }
        }
    }
    EXPECT_EQ(relayoutLine("a       b", 8, 8, true), "a\tb");
    EXPECT_EQ(relayoutLine("abcdefg b", 8, 8, true), "abcdefg b");  // a single blank stays
    EXPECT_EQ(relayoutLine("ab      c  d", 4, 4, true), "ab\t\tc  d");
}

TEST(SortOrder, MatchesAStableSortOverLongSharedPrefixes) {
    // Lines sharing 8 and 16 byte prefixes, case variants and exact duplicates.
    const char* stems[] = {"", "a", "A", "abcdefgh", "ABCDEFGH", "abcdefghIJKLMNOP", "abcdefghijklmnop", "abcdefgh\xe9", "zz"};
    std::vector<std::string> lines;
    unsigned seed = 7;
    for (int i = 0; i < 400; ++i) {
        seed = seed * 1103515245u + 12345u;
        std::string line = stems[(seed >> 8) % std::size(stems)];
        if ((seed >> 4) % 3) line += static_cast<char>('a' + (seed >> 12) % 3);
        lines.push_back(line);
    }
    std::vector<uint32_t> expected(lines.size());
    for (uint32_t i = 0; i < expected.size(); ++i) expected[i] = i;
    std::stable_sort(expected.begin(), expected.end(),
                     [&lines](uint32_t x, uint32_t y) { return sortBefore(lines[x], lines[y]); });
    EXPECT_EQ(sortOrder(lines), expected);
}

TEST_F(TextTools, TabCommandsWorkOnTheSelectionOrTheWholeDocument) {
    options().tabSize = 4;
    fill(doc, "\ta\n\tb\n\tc");
    select(makePos(0, 1), makePos(0, 2));
    run("ExpandTabsToSpaces");
    EXPECT_EQ(text(), "\ta\n    b\n\tc");
    clearSelection(doc);
    run("CompressSpacesToTabs");
    EXPECT_EQ(text(), "\ta\n\tb\n\tc");
    run("Tab8TextToCurTabText");
    EXPECT_EQ(text(), "\t\ta\n\t\tb\n\t\tc");
    run("Undo");
    EXPECT_EQ(text(), "\ta\n\tb\n\tc");
}

TEST_F(TextTools, SortIsStableFoldsCaseAndCarriesBookmarks) {
    fill(doc, "b2\nB1\na\nA\n\nb");
    doc.lines.header(doc.lines.find(0)).bookmark = 1;
    run("Sort");
    // Folded, "B1" < "b2"; "a" and "A" are equal and keep their order.
    EXPECT_EQ(text(), "\na\nA\nb\nB1\nb2");
    EXPECT_EQ(mark(5), 1);
    EXPECT_EQ(undoDepth(), 1u);
    run("Undo");
    EXPECT_EQ(text(), "b2\nB1\na\nA\n\nb");

    // Only the selected lines; a selection ending in column 0 leaves its last line.
    select(makePos(0, 1), makePos(0, 3));
    run("Sort");
    EXPECT_EQ(text(), "b2\na\nB1\nA\n\nb");

    fill(doc, "");
    EXPECT_EQ(run("Sort"), 0);
    EXPECT_EQ(undoDepth(), 0u);
}

TEST_F(TextTools, WordCountReportsSelectionOrDocument) {
    fill(doc, "one two\n\tthree\n");
    run("WordCount");
    ASSERT_EQ(shell_.messages.size(), 1u);
    EXPECT_EQ(shell_.messages[0], "Words: 3\nLines: 3\nCharacters: 13");
    select(makePos(4, 0), makePos(10, 1));  // "two", line end, tab, "th"
    run("WordCount");
    EXPECT_EQ(shell_.messages[1], "Words: 2\nLines: 2\nCharacters: 6");
    EXPECT_FALSE(doc.modified);
}

TEST_F(TextTools, CommentsGoInAndComeOutWithTheirPrefixes) {
    fill(doc, "int a;\n\n  int b;");
    select(makePos(0, 0), makePos(3, 2));
    run("CommentBlockCpp");
    EXPECT_EQ(text(), "//int a;\n\n//  int b;");
    EXPECT_EQ(undoDepth(), 1u);
    run("UncommentBlockCpp");
    EXPECT_EQ(text(), "int a;\n\n  int b;");

    fill(doc, "REM x\n  rem y\n%z");
    select(makePos(0, 0), makePos(2, 2));
    run("UncommentBlockRem");
    run("UncommentBlockTeX");
    EXPECT_EQ(text(), "x\n  y\nz");
    run("CommentBlock", '#');
    EXPECT_EQ(text(), "#x\n#  y\n#z");
    EXPECT_EQ(run("CommentBlock", 0), 0);
}

TEST(TimeDate, FollowTheRegionalConventions) {
    LocalTime t;
    t.hour = 21;
    t.minute = 5;
    t.day = 3;
    t.month = 11;
    t.year = 2026;
    TimeConventions c;
    EXPECT_EQ(timeText(t, c), "21:05");
    c.hours24 = false;
    c.leadingZeroHour = false;
    c.timeSeparator = '.';
    EXPECT_EQ(timeText(t, c), "9.05");
    t.hour = 0;
    EXPECT_EQ(timeText(t, c), "12.05");
    EXPECT_EQ(dateText(t, c), "11/03/2026");
    c.dateOrder = DateOrder::DayMonthYear;
    c.dateSeparator = '.';
    EXPECT_EQ(dateText(t, c), "03.11.2026");
    c.dateOrder = DateOrder::YearMonthDay;
    c.dateSeparator = '-';
    EXPECT_EQ(dateText(t, c), "2026-11-03");
}

TEST_F(TextTools, LineCommandsOfTheTypingGroup) {
    fill(doc, "ab  \n   cd\nx");
    run("JoinLine");
    EXPECT_EQ(text(), "ab cd\nx");
    EXPECT_EQ(doc.cursor, makePos(2, 0));
    run("DupLine");
    EXPECT_EQ(text(), "ab cd\nab cd\nx");
    EXPECT_EQ(label(), "&Undo Duplicate Line");
    EXPECT_EQ(doc.cursor.line, 0);

    options().wordWrapColumn = 11;
    run("CenterLine");
    EXPECT_EQ(text(), "   ab cd\nab cd\nx");
    EXPECT_EQ(label(), "&Undo Center Line");

    run("InsertTimeDate");
    EXPECT_EQ(label(), "&Undo Insert Time/Date");
    EXPECT_EQ(run("InsertSymbol"), 0);  // the question was cancelled
}

}  // namespace
}  // namespace zol
