// The argument line of a user tool: every macro, in any letter case, quoting of paths
// by the tool's mode, and lines that grow past their buffer.
#include <gtest/gtest.h>

#include <string>

#include "platform/process.h"
#include "tools/arguments.h"
#include "tools/user_tools.h"

namespace zol {
namespace {

ArgumentFacts facts(std::string path, std::string curDir = "/work/", std::string progDir = "/home/u/.config/zolder/") {
    ArgumentFacts f;
    f.filePath = std::move(path);
    f.line = "12";
    f.column = "7";
    f.word = "strlen";
    f.curDir = std::move(curDir);
    f.progDir = std::move(progDir);
    return f;
}

struct Row {
    const char* why;
    const char* line;
    int mode;
    const char* expected;
};

TEST(ExpandArguments, EveryMacroAnyCase) {
    const ArgumentFacts f = facts("/src/v1.2/main.test.c");
    const Row rows[] = {
        {"file path", "$(FilePath)", kQuoteWithBlanks, "/src/v1.2/main.test.c"},
        {"folder without its separator", "$(FileDir) $(UnixFileDir)", kQuoteWithBlanks, "/src/v1.2 /src/v1.2"},
        {"name, name up to its first dot, extension after its last",
         "$(FileName)|$(FileNameOnly)|$(FileExt)", kQuoteWithBlanks, "main.test.c|main|c"},
        {"current and program folders", "$(CurDir) $(UnixCurDir) $(ProgDir)", kQuoteWithBlanks,
         "/work /work /home/u/.config/zolder/"},
        {"cursor and word", "-l$(CurLine) -c$(CurCol) $(CurText)", kQuoteWithBlanks, "-l12 -c7 strlen"},
        {"letter case of names ignored", "$(filepath) $(CURLINE) $(fILEeXT)", kQuoteWithBlanks,
         "/src/v1.2/main.test.c 12 c"},
        {"back to back", "$(CurLine)$(CurCol)$(CurLine)", kQuoteWithBlanks, "12712"},
        {"unknown $ stays", "$$(CurLine) $(Nope) $", kQuoteWithBlanks, "$12 $(Nope) $"},
        {"unclosed name stays", "$(CurLine", kQuoteWithBlanks, "$(CurLine"},
        {"always quoted", "$(FileName) $(ProgDir)", kQuoteAlways, "'main.test.c' '/home/u/.config/zolder'/"},
        {"current folder without blanks not quoted even always", "$(CurDir)", kQuoteAlways, "/work"},
    };
    for (const Row& r : rows) EXPECT_EQ(expandArguments(r.line, f, r.mode).value_or("<none>"), r.expected) << r.why;
}

TEST(ExpandArguments, QuotingByMode) {
    const ArgumentFacts f = facts("/my src/it's.c", "/cur dir/", "/my home/");
    const Row rows[] = {
        {"mode 0 quotes a path with a blank", "$(FilePath)", kQuoteWithBlanks, "'/my src/it'\\''s.c'"},
        {"mode 0 quotes a quote", "$(FileName)", kQuoteWithBlanks, "'it'\\''s.c'"},
        {"mode 1 never", "$(FilePath)", kQuoteNever, "/my src/it's.c"},
        {"program folder keeps its separator outside", "$(ProgDir)x", kQuoteWithBlanks, "'/my home'/x"},
        {"current folder with blank, mode 0", "$(CurDir)", kQuoteWithBlanks, "'/cur dir'"},
        {"current folder with blank, mode 1", "$(CurDir)", kQuoteNever, "/cur dir"},
        {"current folder with blank, mode 2", "$(UnixCurDir)", kQuoteAlways, "'/cur dir'"},
    };
    for (const Row& r : rows) EXPECT_EQ(expandArguments(r.line, f, r.mode).value_or("<none>"), r.expected) << r.why;
    // Quoted paths come back whole from the splitter that builds the tool's arguments.
    const auto words = splitCommandLine(*expandArguments("-o $(FilePath) $(ProgDir)", f, kQuoteWithBlanks));
    EXPECT_EQ(words, (std::vector<std::string>{"-o", "/my src/it's.c", "/my home/"}));
}

TEST(ExpandArguments, NoDocumentANameWithoutDotAndTheToolsOwnPath) {
    const ArgumentFacts none = argumentFacts(nullptr);
    EXPECT_EQ(expandArguments("[$(FilePath)][$(FileExt)][$(CurLine)][$(CurText)]", none, kQuoteAlways), "[][][][]");
    EXPECT_EQ(none.progDir.back(), '/');
    EXPECT_EQ(expandArguments("[$(FileExt)][$(FileNameOnly)]", facts("/src/v1.2/Makefile"), kQuoteWithBlanks),
              "[][Makefile]");
    // A tool's path takes the program folder only where the path starts.
    EXPECT_EQ(expandProgDir("$(progdir)bin/tool", none), none.progDir + "bin/tool");
    EXPECT_EQ(expandProgDir("/x/$(ProgDir)", none), "/x/$(ProgDir)");
}

TEST(ExpandArguments, BufferLimits) {
    const std::string longPath = "/" + std::string(200, 'p') + ".c";
    const ArgumentFacts f = facts(longPath);
    const std::string max(255, 'a');
    EXPECT_EQ(expandArguments(max, f, kQuoteWithBlanks), max);
    EXPECT_FALSE(expandArguments(max + "a", f, kQuoteWithBlanks)) << "the line itself is too long";
    EXPECT_TRUE(expandArguments("$(FilePath)", f, kQuoteWithBlanks));
    EXPECT_FALSE(expandArguments("$(FilePath) $(FilePath)", f, kQuoteWithBlanks)) << "grows past 255";
    EXPECT_FALSE(expandArguments("$(FileName)", facts("/" + std::string(300, 'q')), kQuoteWithBlanks))
        << "a value past its buffer";
}

}  // namespace
}  // namespace zol
