// The scanner step by step. Colours are written one character per byte; the
// definitions give each slot its own number (comment 1, preprocessor 2, string 3,
// number 4, delimiter 5, operator 6, keyword 7, text 8, line numbers 10 = "a").
#include <gtest/gtest.h>

#include "tests/syntax/syntax_fixture.h"

namespace zol::test {
namespace {

const char* const kSlots =
    "ColorComment=1\nColorPreproc=2\nColorString=3\nColorNumber=4\nColorDelim=5\nColorOperator=6\n"
    "ColorKeyword=7\nColorText=8\nColorLineNumbers=10\n";

SyntaxHighlight lang(std::string body) { return defOf(body + kSlots); }

const std::string kC =
    "CaseSensitive=yes\nMultiComment=/* */\nLineComment1=//\nStringDelim=\"\nCharDelim='\nQuoteChar=\\\n"
    "OpenCloseDelim=([{ )]}\nDelimiters=,;\nOperators=+*/=<>\nPreprocess=#\nWords=a-zA-Z0-9_\nNumbers=0-9.-\n"
    "Keyword2=if\nKeyword3=int\n";

TEST(Scanner, MultiLineComments) {
    const SyntaxHighlight c = lang(kC);
    int r = -1;
    EXPECT_EQ(colours(c, "no end", 1, &r), "111111");
    EXPECT_EQ(r, 1);
    EXPECT_EQ(colours(c, "/*/ x", 0, &r), "11111");  // the opener's star does not close
    EXPECT_EQ(r, 1);
    EXPECT_EQ(colours(c, "", 1, &r), "");
    EXPECT_EQ(r, 1);
    // A line starting inside a comment skips the start-of-line rules after the closer.
    EXPECT_EQ(colours(c, "*/#x", 1, &r), "1188");

    const SyntaxHighlight brace = lang("MultiComment={ }\nWords=a-z\n");
    EXPECT_EQ(colours(brace, "{ a } b", 0, &r), "11111" "88");
    EXPECT_EQ(r, 0);
    // One-character opener, two-character closer: only the closer's first character ends it.
    const SyntaxHighlight odd = lang("MultiComment={ }]\nWords=a-z\n");
    EXPECT_EQ(colours(odd, "{a}b", 0), "1118");
}

TEST(Scanner, LineComments) {
    const SyntaxHighlight rem = lang("LineComment1=REM\nWords=A-Za-z\nKeyword6=REMARK\n");
    EXPECT_EQ(colours(rem, "REMARK"), "777777");
    EXPECT_EQ(colours(rem, "REM note"), "11111111");
    EXPECT_EQ(colours(rem, "rem"), "111");  // case ignored, end of line counts as blank
    // A word character before a non-letter introducer: the first needs a blank after it,
    // the second does not.
    const SyntaxHighlight w = lang("LineComment1=_x\nLineComment2=_y\nWords=a-z_\n");
    EXPECT_EQ(colours(w, "_xa"), "888");
    EXPECT_EQ(colours(w, "_x a"), "1111");
    EXPECT_EQ(colours(w, "_ya"), "111");
}

TEST(Scanner, WordsNumbersAndStrings) {
    const SyntaxHighlight c = lang(kC);
    EXPECT_EQ(colours(c, "int intx if"), "777" "8" "8888" "8" "77");
    EXPECT_EQ(colours(c, "'x' \"open"), "333" "8" "33333");
    EXPECT_EQ(colours(c, "-5 - 5 x-1"), "44" "8" "6" "8" "4" "8" "8" "44");
    EXPECT_EQ(colours(c, "1.5e3"), "44488");  // e is no number character here
    // Keyword lists are compared without regard to case unless the language is case-sensitive.
    const SyntaxHighlight ic = lang("Words=a-zA-Z\nKeyword2=if\n");
    EXPECT_EQ(colours(ic, "IF If"), "77877");
    // A run of 29 word characters is text, whatever the lists hold.
    const SyntaxHighlight lng = lang("Words=a-z\nKeyword28=" + std::string(28, 'a') + "\n");
    EXPECT_EQ(colours(lng, std::string(28, 'a')), std::string(28, '7'));
    EXPECT_EQ(colours(lng, std::string(29, 'a')), std::string(29, '8'));
}

TEST(Scanner, StartOfLineRules) {
    const SyntaxHighlight c = lang(kC);
    int r = -1;
    EXPECT_EQ(colours(c, "  #include \"a\" // x"), "88" + std::string(13, '2') + "1111");
    EXPECT_EQ(colours(c, "#if /* a */ b /* c", 0, &r), "222211111112221111");
    EXPECT_EQ(r, 1);
    EXPECT_EQ(colours(c, "#define Q \"/*\"", 0, &r), "22222222222" "111");  // no strings here
    EXPECT_EQ(r, 1);

    const SyntaxHighlight fortran = lang("FortranComment=yes\nWords=A-Z\nKeyword3=END\n");
    EXPECT_EQ(colours(fortran, " END"), "8777");
    EXPECT_EQ(colours(fortran, "10 END"), "888777");

    const SyntaxHighlight numbered = lang("LineNumbers=yes\nFirstComment=!\nWords=a-z\n");
    EXPECT_EQ(colours(numbered, "120  ab"), "aaa8888");
    EXPECT_EQ(colours(numbered, "7 ! note"), "a8111111");
    EXPECT_EQ(colours(numbered, "a ! note"), "88888888");

    // The indicator column: "*" always counts, the definition's character only there.
    const SyntaxHighlight cobolCol = lang("CobolCommentPos=7\nCobolCommentChar=/\nWords=A-Z\n");
    EXPECT_EQ(colours(cobolCol, "      *X"), "88888811");
    EXPECT_EQ(colours(cobolCol, "      /X"), "88888811");
    EXPECT_EQ(colours(cobolCol, "     /XX"), "88888888");
    const SyntaxHighlight cobol = lang("Cobol=yes\nWords=A-Z0-9-\nDelimiters=.\nKeyword4=STOP\n");
    EXPECT_EQ(colours(cobol, "000100 MAIN-1. STOP"), "8888888" "222222" "5" "8" "7777");

    const SyntaxHighlight cut = lang("MaxLineLen=4\nWords=a-z\nMultiComment=/* */\n");
    EXPECT_EQ(colours(cut, "abcdef/*", 0, &r), "88881111");
    EXPECT_EQ(r, 0);
}

TEST(Scanner, TagsAndTexControlWords) {
    const SyntaxHighlight html = lang("HTML=<>\nWords=a-z\n");
    EXPECT_EQ(colours(html, "<a href"), "7777777");  // open at the end: not carried
    EXPECT_EQ(colours(html, "x=\"1\"> y"), "777777" "88");  // the tail of a tag from above

    const SyntaxHighlight tex = lang("UnixTexKeywords=yes\nQuoteChar=\\\nLineComment1=%\nWords=a-zA-Z\n");
    EXPECT_EQ(colours(tex, "\\section{a} \\% x"), "77777777" "8888" "77" "88");
    EXPECT_EQ(colours(tex, "a % c"), "88111");
    const SyntaxHighlight plain = lang("QuoteChar=\\\nWords=a-z\n");
    EXPECT_EQ(colours(plain, "\\ab"), "888");
}

TEST(Scanner, EmptySlotsPaintNothing) {
    SyntaxHighlightTable t;
    uint8_t out[3] = {9, 9, 9};
    EXPECT_EQ(scanLine(t, 0, "a/*", out, 1), 0);
    EXPECT_EQ(out[0] + out[1] + out[2], 0);
    EXPECT_EQ(commentState(t, 3, "/*", 0), 0);
}

}  // namespace
}  // namespace zol::test
