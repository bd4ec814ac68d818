#include <gtest/gtest.h>

#include "engine/options.h"
#include "engine/wordwrap.h"
#include "tests/engine/command_fixture.h"

namespace zol {
namespace {

using test::fill;
using Breaks = std::vector<size_t>;
constexpr WrapMethod kWords = WrapMethod::WindowWords;

TEST(WrapBreaks, RowsEndAtTheWidthAndBreakAfterBlanks) {
    options() = EditOptions{};
    EXPECT_EQ(wrapBreaks("abcd efgh", 9, kWords), Breaks{});  // exactly the width fits
    EXPECT_EQ(wrapBreaks("abcd efghi", 9, kWords), Breaks{5});
    EXPECT_EQ(wrapBreaks("abcd   efghi", 9, kWords), Breaks{7});  // blanks hang at the row end
    EXPECT_EQ(wrapBreaks("abcdefghij", 4, kWords), (Breaks{4, 8}));  // a long word is cut
    EXPECT_EQ(wrapBreaks("ab cdefghij", 4, kWords), (Breaks{3, 7}));
    EXPECT_EQ(wrapBreaks("abcd efghi", 9, WrapMethod::WindowChars), Breaks{9});  // method 1 ignores words
    EXPECT_EQ(wrapBreaks("a\tbc", 9, kWords), Breaks{2});  // the tab reaches column 8
    EXPECT_EQ(wrapBreaks("abc", 0, kWords), Breaks{});
    EXPECT_EQ(wrapBreaks("", 5, kWords), Breaks{});

    options().wordWrapColumn = 40;
    EXPECT_EQ(wrapWidth(WrapMethod::ColumnWords, 100), 40);
    EXPECT_EQ(wrapWidth(WrapMethod::WindowWords, 100), 100);
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
