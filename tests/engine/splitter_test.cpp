// Text split into rows: pasted text becomes lines, a column block's text its rows.
#include <gtest/gtest.h>

#include "engine/text_util.h"

namespace zol {
namespace {

using Rows = std::vector<std::string_view>;

TEST(SplitLines, EveryLineEndSplitsAndOnlyTextRowsDropAFinalOne) {
    struct Case {
        std::string_view text;
        Rows lines;  // FinalLineEnd::StartsEmptyRow
        Rows block;  // FinalLineEnd::EndsLastRow
    };
    const Case cases[] = {
        {"", {""}, {""}},
        {"a", {"a"}, {"a"}},
        {"a\r\nb\nc\rd", {"a", "b", "c", "d"}, {"a", "b", "c", "d"}},
        {"a\n", {"a", ""}, {"a"}},
        {"\r\n", {"", ""}, {""}},
        {"a\r\r\n", {"a", "", ""}, {"a", ""}},
        {"\n\rb", {"", "", "b"}, {"", "", "b"}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(splitLines(c.text, FinalLineEnd::StartsEmptyRow), c.lines) << c.text;
        EXPECT_EQ(splitLines(c.text, FinalLineEnd::EndsLastRow), c.block) << c.text;
    }
}

}  // namespace
}  // namespace zol
