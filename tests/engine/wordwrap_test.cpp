#include <gtest/gtest.h>

#include "engine/options.h"
#include "engine/wordwrap.h"
#include "tests/engine/command_fixture.h"

namespace zol {
namespace {

using test::fill;
using Breaks = std::vector<size_t>;

TEST(WrapBreaks, RowsEndAtTheWidthAndBreakAfterBlanks) {
    options() = EditOptions{};
    EXPECT_EQ(wrapBreaks("abcd efgh", 9, 3), Breaks{});  // exactly the width fits
    EXPECT_EQ(wrapBreaks("abcd efghi", 9, 3), Breaks{5});
    EXPECT_EQ(wrapBreaks("abcd   efghi", 9, 3), Breaks{7});  // blanks hang at the row end
    EXPECT_EQ(wrapBreaks("abcdefghij", 4, 3), (Breaks{4, 8}));  // a long word is cut
    EXPECT_EQ(wrapBreaks("ab cdefghij", 4, 3), (Breaks{3, 7}));
    EXPECT_EQ(wrapBreaks("abcd efghi", 9, 1), Breaks{9});  // method 1 ignores words
    EXPECT_EQ(wrapBreaks("a\tbc", 9, 3), Breaks{2});  // the tab reaches column 8
    EXPECT_EQ(wrapBreaks("abc", 0, 3), Breaks{});
    EXPECT_EQ(wrapBreaks("", 5, 3), Breaks{});

    options().wordWrapColumn = 40;
    EXPECT_EQ(wrapWidth(2, 100), 40);
    EXPECT_EQ(wrapWidth(3, 100), 100);
}

TEST(WrapRules, ExtensionListsDecideAndNeverWins) {
    options() = EditOptions{};
    EXPECT_TRUE(extensionListed("txt;*.DOC, .me", "/a/b/notes.doc"));
    EXPECT_TRUE(extensionListed("txt;*.DOC, .me", "c:\\x\\read.ME"));
    EXPECT_FALSE(extensionListed("txt", "/a.txt/plain"));
    EXPECT_FALSE(extensionListed("txt", "file.txt2"));
    EXPECT_FALSE(extensionListed("", "file"));

    Document doc;
    wrapFileRules() = WrapFileRules{"txt md", "md"};
    doc.fileName = "/x/readme.md";
    applyWrapRule(doc);
    EXPECT_FALSE(doc.wordWrap);
    doc.fileName = "/x/a.TXT";
    applyWrapRule(doc);
    EXPECT_TRUE(doc.wordWrap);
    doc.fileName = "/x/a.c";
    options().wordWrap = false;
    applyWrapRule(doc);
    EXPECT_FALSE(doc.wordWrap);
    wrapFileRules() = WrapFileRules{};

    EXPECT_TRUE(canSoftWordWrap(doc));
    doc.selMode = SelMode::Column;
    EXPECT_FALSE(canSoftWordWrap(doc));
}

}  // namespace
}  // namespace zol
