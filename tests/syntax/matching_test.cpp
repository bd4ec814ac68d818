// The matching commands and the commands that open the files a C source names, run
// through the executor on documents.
#include <gtest/gtest.h>

#include "engine/executor.h"
#include "syntax/commands.h"
#include "syntax/include_files.h"
#include "tests/syntax/syntax_fixture.h"

namespace zol::test {
namespace {

std::string includeDirs;

class SyntaxCommands : public ::testing::Test {
protected:
    void SetUp() override {
        initSyntax([] { return includeDirs; });
        setShell(&shell_);
    }
    void TearDown() override {
        setShell(nullptr);
        includeDirs.clear();
    }
    void text(std::string_view t) { fill(doc, t); }
    // Runs a command with the caret at (col, line) and tells where it ended.
    Pos run(std::string_view cmd, int col, int32_t line) {
        setCursor(doc, makePos(col, line));
        execute(doc, commandId(cmd, false));
        return doc.cursor;
    }
    Document doc;
    FakeShell shell_;
};

TEST_F(SyntaxCommands, MatchPairFollowsDepth) {
    text("f(a(b)c)\n{ \"}\" }\n/* x\n*/ y [\n]");
    EXPECT_EQ(run("MatchPair", 1, 0), makePos(7, 0));
    EXPECT_EQ(run("MatchPair", 7, 0), makePos(1, 0));
    EXPECT_EQ(run("MatchPair", 0, 1), makePos(3, 1));  // a brace inside a string still counts
    EXPECT_EQ(run("MatchPair", 0, 2), makePos(0, 3));
    EXPECT_EQ(run("MatchPair", 0, 3), makePos(0, 2));
    EXPECT_EQ(run("MatchPair", 5, 3), makePos(0, 4));
    EXPECT_EQ(run("MatchPair", 2, 0), makePos(2, 0));  // not a bracket: stays
    text("(()");
    EXPECT_EQ(run("MatchPair", 0, 0), makePos(0, 0));  // no partner: stays
    text("\t(x)");
    EXPECT_EQ(run("MatchPair", 8, 0), makePos(10, 0));
}

TEST_F(SyntaxCommands, PreprocessorBlocks) {
    text("#  ifdef X\n#if Y\n# endif\nint a;\n#else\n#endif\n  #elif Z");
    EXPECT_EQ(run("MatchPreprocNext", 3, 0), makePos(3, 4));
    EXPECT_EQ(run("MatchPreprocNext", 0, 4), makePos(0, 5));
    EXPECT_EQ(run("MatchPreprocPrev", 0, 5), makePos(0, 4));
    EXPECT_EQ(run("MatchPreprocPrev", 2, 4), makePos(2, 0));
    EXPECT_EQ(run("MatchPreprocPrev", 1, 2), makePos(1, 1));
    EXPECT_EQ(run("MatchPreprocNext", 0, 3), makePos(0, 3));  // not a directive
    EXPECT_EQ(run("MatchPreprocNext", 0, 6), makePos(0, 6));  // nothing below
    text("#IF X\n#endif");
    EXPECT_EQ(run("MatchPreprocNext", 0, 0), makePos(0, 0));  // case counts
}

TEST_F(SyntaxCommands, HtmlTags) {
    text("<TABLE><table></table></Table>");
    EXPECT_EQ(run("MatchHtmlTag", 2, 0), makePos(22, 0));
    EXPECT_EQ(run("MatchHtmlTag", 29, 0), makePos(0, 0));  // from the closing ">"
    EXPECT_EQ(run("MatchHtmlTag", 8, 0), makePos(14, 0));
    text("<p>\n<b>x</b>\n<pre\n>y</pre></p>");
    EXPECT_EQ(run("MatchHtmlTag", 1, 0), makePos(8, 3));
    EXPECT_EQ(run("MatchHtmlTag", 11, 3), makePos(0, 0));
    EXPECT_EQ(run("MatchHtmlTag", 3, 3), makePos(0, 2));
    text("a > b <> c");
    EXPECT_EQ(run("MatchHtmlTag", 2, 0), makePos(2, 0));
    EXPECT_EQ(run("MatchHtmlTag", 6, 0), makePos(6, 0));  // empty name
}

TEST_F(SyntaxCommands, OpeningNamedFiles) {
    const std::string root = scratchDir() + "inc/";
    for (const char* f : {"src/main.c", "src/main.h", "src/util.h", "sys/util.h", "sys/stdio.h"})
        writeBytes(root + f, "");
    includeDirs = " " + root + "sys ; ;";
    doc.fileName = root + "src/main.c";
    doc.hasFile = true;
    text("#include \"util.h\"\n# include <util.h>\nsee main.h here\n#include <gone.h>\na   b");

    run("OpenFileAtCursor", 0, 0);
    run("OpenFileAtCursor", 0, 1);
    run("OpenFileAtCursor", 8, 2);
    run("OpenFileAtCursor", 3, 3);
    run("OpenFileAtCursor", 2, 4);
    run("OpenHeaderFile", 0, 0);
    // Quoted names are looked for beside the document first, angled ones in the include
    // folders first.
    const std::string util = root + "src/util.h", sysUtil = root + "sys/util.h", header = root + "src/main.h";
    EXPECT_EQ(shell_.opened, (Lines{util, sysUtil, header, header}));
    EXPECT_EQ(shell_.messages, (Lines{"Cannot find file gone.h.", "There is no file name at the cursor."}));

    shell_.opened.clear();
    shell_.messages.clear();
    execute(doc, commandId("IncludeFiles", false));
    EXPECT_EQ(shell_.opened, (Lines{util, sysUtil}));
    EXPECT_EQ(shell_.messages, Lines{"Cannot find these include files: gone.h."});
}

TEST(IncludeNames, DirectivesAndNamesAtTheCursor) {
    IncludeDirective inc;
    EXPECT_TRUE(parseInclude("  #  include<a/b.h> x", inc));
    EXPECT_EQ(inc.name, "a/b.h");
    EXPECT_TRUE(inc.angled);
    EXPECT_FALSE(parseInclude("#include <a", inc));
    EXPECT_FALSE(parseInclude("#include \"\"", inc));
    EXPECT_FALSE(parseInclude("#includes \"x\"", inc) && inc.name != "x");
    EXPECT_EQ(fileNameAt("open ../x/y.txt, now", 9), "../x/y.txt");
    EXPECT_EQ(fileNameAt("end.c", 5), "end.c");
    EXPECT_EQ(partnerFileNames("/p/X.CPP").front(), "X.h");
    EXPECT_EQ(partnerFileNames("y.hpp").front(), "y.c");
    EXPECT_TRUE(partnerFileNames("notes.txt").empty());
    EXPECT_TRUE(partnerFileNames(".h").empty());
}

}  // namespace
}  // namespace zol::test
