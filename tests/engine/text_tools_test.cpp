#include <gtest/gtest.h>

#include <algorithm>

#include "engine/columns.h"
#include "engine/commands/text_tools.h"
#include "engine/undo.h"
#include "tests/engine/command_fixture.h"

namespace zol {
namespace {

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

TEST(TimeDate, FollowTheRegionalConventions) {
    const LocalTime evening{.hour = 21, .minute = 5, .day = 3, .month = 11, .year = 2026};
    const LocalTime midnight{.hour = 0, .minute = 5};
    const TimeConventions us{}, twelve{.timeSeparator = '.', .hours24 = false, .leadingZeroHour = false};
    EXPECT_EQ(timeText(evening, us), "21:05");
    EXPECT_EQ(timeText(evening, twelve), "9.05");
    EXPECT_EQ(timeText(midnight, twelve), "12.05");
    EXPECT_EQ(dateText(evening, us), "11/03/2026");
    EXPECT_EQ(dateText(evening, {.dateSeparator = '.', .dateOrder = DateOrder::DayMonthYear}), "03.11.2026");
    EXPECT_EQ(dateText(evening, {.dateSeparator = '-', .dateOrder = DateOrder::YearMonthDay}), "2026-11-03");
}

class TimeDateCommand : public test::CommandTest {};

// The text depends on the clock, so only its undo step is checked here.
TEST_F(TimeDateCommand, InsertedTextUndoesInOneStep) {
    test::fill(doc, "x");
    run("InsertTimeDate");
    EXPECT_NE(text(), "x");
    EXPECT_STREQ(undoLabel(doc.undo), "&Undo Insert Time/Date");
    run("Undo");
    EXPECT_EQ(text(), "x");
}

}  // namespace
}  // namespace zol
