// The scanner step by step, in the notation of the golden records: "{kw}int{} x" is
// "int" coloured by the keyword slot and " x" by the text slot (golden/README.md).
#include <gtest/gtest.h>

#include "tests/syntax/syntax_fixture.h"

namespace zol::test {
namespace {

const std::string kC =
    "CaseSensitive=yes\nMultiComment=/* */\nLineComment1=//\nStringDelim=\"\nCharDelim='\nQuoteChar=\\\n"
    "OpenCloseDelim=([{ )]}\nDelimiters=,;\nOperators=+*/=<>\nPreprocess=#\nWords=a-zA-Z0-9_\nNumbers=0-9.-\n"
    "Keyword2=if\nKeyword3=int\n";

// The styled line and, after " -> ", the comment state it hands to the next line.
std::string carried(const SyntaxHighlight& d, std::string_view text, int inComment) {
    int next = -1;
    const std::string line = styled(d, text, inComment, &next);
    return line + " -> " + std::to_string(next);
}

// What the view paints with: the palette colour the definition gives each slot.
TEST(Scanner, PaintsThePaletteColourOfEachSlot) {
    const SyntaxHighlight c = defOf(kC + "ColorComment=3\nColorDelim=5\nColorKeyword=10\n");
    std::vector<uint8_t> out(11, 0xEE);  // a character left unpainted shows
    scanLine(c, "int x; // y", out.data(), 0);
    EXPECT_EQ(out, (std::vector<uint8_t>{10, 10, 10, 0, 0, 5, 0, 3, 3, 3, 3}));
}

TEST(Scanner, MultiLineComments) {
    const SyntaxHighlight c = defOf(kC);
    EXPECT_EQ(carried(c, "no end", 1), "{cm}no end -> 1");
    EXPECT_EQ(carried(c, "/*/ x", 0), "{cm}/*/ x -> 1");  // the opener's star does not close
    EXPECT_EQ(carried(c, "", 1), " -> 1");
    // A line starting inside a comment skips the start-of-line rules after the closer.
    EXPECT_EQ(styled(c, "*/#x", 1), "{cm}*/{}#x");

    const SyntaxHighlight brace = defOf("MultiComment={ }\nWords=a-z\n");
    EXPECT_EQ(carried(brace, "{ a } b", 0), "{cm}{{ a }{} b -> 0");
    // One-character opener, two-character closer: only the closer's first character ends it.
    const SyntaxHighlight odd = defOf("MultiComment={ }]\nWords=a-z\n");
    EXPECT_EQ(styled(odd, "{a}b"), "{cm}{{a}{}b");
}

TEST(Scanner, LineComments) {
    const SyntaxHighlight rem = defOf("LineComment1=REM\nWords=A-Za-z\nKeyword6=REMARK\n");
    EXPECT_EQ(styled(rem, "REMARK"), "{kw}REMARK");
    EXPECT_EQ(styled(rem, "REM note"), "{cm}REM note");
    EXPECT_EQ(styled(rem, "rem"), "{cm}rem");  // case ignored, end of line counts as blank
    // A word character before a non-letter introducer: the first needs a blank after it,
    // the second does not.
    const SyntaxHighlight w = defOf("LineComment1=_x\nLineComment2=_y\nWords=a-z_\n");
    EXPECT_EQ(styled(w, "_xa"), "_xa");
    EXPECT_EQ(styled(w, "_x a"), "{cm}_x a");
    EXPECT_EQ(styled(w, "_ya"), "{cm}_ya");
}

TEST(Scanner, WordsNumbersAndStrings) {
    const SyntaxHighlight c = defOf(kC);
    EXPECT_EQ(styled(c, "int intx if"), "{kw}int{} intx {kw}if");
    EXPECT_EQ(styled(c, "'x' \"open"), "{str}'x'{} {str}\"open");
    EXPECT_EQ(styled(c, "-5 - 5 x-1"), "{num}-5{} {op}-{} {num}5{} x{num}-1");
    EXPECT_EQ(styled(c, "1.5e3"), "{num}1.5{}e3");  // e is no number character here
    // Keyword lists are compared without regard to case unless the language is case-sensitive.
    const SyntaxHighlight ic = defOf("Words=a-zA-Z\nKeyword2=if\n");
    EXPECT_EQ(styled(ic, "IF If"), "{kw}IF{} {kw}If");
    // A run of 29 word characters is text, whatever the lists hold.
    const std::string a28(28, 'a');
    const SyntaxHighlight lng = defOf("Words=a-z\nKeyword28=" + a28 + "\n");
    EXPECT_EQ(styled(lng, a28), "{kw}" + a28);
    EXPECT_EQ(styled(lng, a28 + "a"), a28 + "a");
}

TEST(Scanner, StartOfLineRules) {
    const SyntaxHighlight c = defOf(kC);
    EXPECT_EQ(styled(c, "  #include \"a\" // x"), "  {pp}#include \"a\" {cm}// x");
    EXPECT_EQ(carried(c, "#if /* a */ b /* c", 0), "{pp}#if {cm}/* a */{pp} b {cm}/* c -> 1");
    EXPECT_EQ(carried(c, "#define Q \"/*\"", 0), "{pp}#define Q \"{cm}/*\" -> 1");  // no strings here

    const SyntaxHighlight fortran = defOf("FortranComment=yes\nWords=A-Z\nKeyword3=END\n");
    EXPECT_EQ(styled(fortran, " END"), " {kw}END");
    EXPECT_EQ(styled(fortran, "10 END"), "10 {kw}END");

    const SyntaxHighlight numbered = defOf("LineNumbers=yes\nFirstComment=!\nWords=a-z\n");
    EXPECT_EQ(styled(numbered, "120  ab"), "{ln}120{}  ab");
    EXPECT_EQ(styled(numbered, "7 ! note"), "{ln}7{} {cm}! note");
    EXPECT_EQ(styled(numbered, "a ! note"), "a ! note");

    // The indicator column: "*" always counts, the definition's character only there.
    const SyntaxHighlight cobolCol = defOf("CobolCommentPos=7\nCobolCommentChar=/\nWords=A-Z\n");
    EXPECT_EQ(styled(cobolCol, "      *X"), "      {cm}*X");
    EXPECT_EQ(styled(cobolCol, "      /X"), "      {cm}/X");
    EXPECT_EQ(styled(cobolCol, "     /XX"), "     /XX");
    const SyntaxHighlight cobol = defOf("Cobol=yes\nWords=A-Z0-9-\nDelimiters=.\nKeyword4=STOP\n");
    EXPECT_EQ(styled(cobol, "000100 MAIN-1. STOP"), "000100 {pp}MAIN-1{dl}.{} {kw}STOP");

    const SyntaxHighlight cut = defOf("MaxLineLen=4\nWords=a-z\nMultiComment=/* */\n");
    EXPECT_EQ(carried(cut, "abcdef/*", 0), "abcd{cm}ef/* -> 0");
}

TEST(Scanner, TagsAndTexControlWords) {
    const SyntaxHighlight html = defOf("HTML=<>\nWords=a-z\n");
    EXPECT_EQ(styled(html, "<a href"), "{kw}<a href");          // open at the end: not carried
    EXPECT_EQ(styled(html, "x=\"1\"> y"), "{kw}x=\"1\">{} y");  // the tail of a tag from above

    const SyntaxHighlight tex = defOf("UnixTexKeywords=yes\nQuoteChar=\\\nLineComment1=%\nWords=a-zA-Z\n");
    EXPECT_EQ(styled(tex, "\\section{a} \\% x"), "{kw}\\section{}{{a} {kw}\\%{} x");
    EXPECT_EQ(styled(tex, "a % c"), "a {cm}% c");
    const SyntaxHighlight plain = defOf("QuoteChar=\\\nWords=a-z\n");
    EXPECT_EQ(styled(plain, "\\ab"), "\\ab");
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
