// The pieces of the script engine that annotated scripts cannot reach: the expanded
// text and token stream, and the run's own rules.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "script/errors.h"
#include "script/interp.h"
#include "script/lexer.h"
#include "script/preprocess.h"
#include "script/runner.h"
#include "script/tokens.h"
#include "script/vm.h"

namespace zol {
namespace {

namespace fs = std::filesystem;

TEST(ScriptPreprocessor, NamesFilesForReports) {
    PreprocessOutput pp;
    pp.fileNames = {"scripts/tool.c", "inc.h"};
    EXPECT_EQ(scriptFileNameOf(pp, 0), "tool.c");
    EXPECT_EQ(scriptFileNameOf(pp, 1), "inc.h");
    EXPECT_EQ(scriptFileNameOf(pp, 2), "xxx.xxx");
    pp.fileNames[0] = "dir\\win.c";
    EXPECT_EQ(scriptFileNameOf(pp, 0), "win.c");
    pp.fileNames[0] = "bare.c";
    EXPECT_EQ(scriptFileNameOf(pp, 0), "mainfile");
}

TEST(ScriptPreprocessor, MarksWhereSkippedAndIncludedLinesCameFrom) {
    const fs::path dir = fs::temp_directory_path() / ("zolder_pp_" + std::to_string(::getpid()));
    fs::create_directories(dir);
    std::ofstream(dir / "part.h") << "int fromHeader;\n";
    PreprocessOutput pp;
    preprocess((dir / "main.c").string(),
               "#define TWICE(x) ((x) * 2)\n#if 0\nskipped\n#endif\nint a = TWICE(3);\n#include \"part.h\"\nint b;\n",
               dir.string(), pp);
    fs::remove_all(dir);
    EXPECT_NE(pp.text.find("\n/*0:5*/int a = ((3) * 2);\n"), std::string::npos) << pp.text;
    EXPECT_NE(pp.text.find("\n/*1:1*/int fromHeader;\n"), std::string::npos) << pp.text;
    EXPECT_NE(pp.text.find("\n/*0:7*/int b;\n"), std::string::npos) << pp.text;
    EXPECT_EQ(pp.text.find("skipped"), std::string::npos);
    ASSERT_EQ(pp.fileNames.size(), 2u);
    EXPECT_EQ(pp.fileNames[1], "part.h");
}

TEST(ScriptPreprocessor, RescansReplacementsButNeverRecursesIntoTheSameMacro) {
    PreprocessOutput pp;
    preprocess("/x/main.c", "#define A B + A\n#define B 1\n#define F(x) F(x) + A\nF(A)\n", "/x", pp);
    // A -> B + A -> 1 + A, and inside F the argument expands before substitution.
    EXPECT_NE(pp.text.find("F(1 + A) + 1 + A"), std::string::npos) << pp.text;
}

TEST(ScriptLexer, WritesOneCodePerTokenAndNumbersSymbolsInOrder) {
    TokenStream ts;
    tokenize("beta += alpha <<= 2; if (beta != alpha) return beta->x;", ts);
    const uint8_t want[] = {kTokIdent, '+' | kTokAssignBit, kTokIdent, kTokShl | kTokAssignBit, kTokNumber, ';', kTokIf, '(',
                            kTokIdent, kTokNe, kTokIdent, ')', kTokReturn, kTokIdent, kTokArrow, kTokIdent, ';', kTokEnd};
    ASSERT_EQ(ts.toks.size(), sizeof want);
    for (size_t i = 0; i < sizeof want; ++i) EXPECT_EQ(ts.toks[i].code, want[i]) << i;
    EXPECT_EQ(ts.toks[0].i, 1);  // beta came first
    EXPECT_EQ(ts.toks[2].i, 2);
    EXPECT_EQ(ts.symbols.find("alpha"), 2);
    EXPECT_EQ(ts.symbols.sorted.front().first, "alpha");  // the table itself is sorted by name
}

TEST(ScriptLexer, TakesFileAndLineFromMarkers) {
    TokenStream ts;
    tokenize("a\n/*3:40*/b\nc", ts);
    ASSERT_EQ(ts.toks.size(), 4u);
    EXPECT_EQ(ts.toks[0].line, 1);
    EXPECT_EQ(ts.toks[1].file, 3);
    EXPECT_EQ(ts.toks[1].line, 40);
    EXPECT_EQ(ts.toks[2].line, 41);
}

// The body of name in text, parsed and compiled as a first call would.
const Function* compiled(Engine& en, const std::string& text, const std::string& name) {
    PreprocessOutput pp;
    preprocess("/x/t.c", text, "/x", pp);
    tokenize(pp.text, en.ts);
    en.scanGlobals();
    for (Function& f : en.functions)
        if (f.name == name) {
            en.compileFunction(&f);
            return &f;
        }
    return nullptr;
}

TEST(ScriptCompile, LoopsCallsAndJumpsBecomeInstructionsWithNothingLeftToTheTree) {
    Engine en;
    const Function* f = compiled(en,
                                 "int twice(int x) { return x + x; }\n"
                                 "int sum(char *p, int n) {\n"
                                 "  int i, s = 0;\n"
                                 "  for (i = 0; i < n; i++) { if (p[i] == 0) goto done; s += twice(p[i]); }\n"
                                 "  switch (s & 1) { case 0: s++; break; default: s--; }\n"
                                 "done:\n"
                                 "  return s;\n"
                                 "}\n",
                                 "sum");
    ASSERT_TRUE(f && f->code);
    const std::string listing = listCode(*f->code);
    EXPECT_NE(listing.find("JumpIfLtI32"), std::string::npos) << listing;  // tested at the bottom, in one step
    EXPECT_NE(listing.find("LoadLocalIndexI8"), std::string::npos) << listing;
    EXPECT_NE(listing.find("CaseJump"), std::string::npos) << listing;
    EXPECT_EQ(listing.find("Eval"), std::string::npos) << listing;
    EXPECT_EQ(listing.find("Exec"), std::string::npos) << listing;
    EXPECT_FALSE(f->code->framed);  // no address of its frame is ever formed
}

// Struct copies and bodies whose operands stack high (a printf of sixty values) run as
// instructions too.
TEST(ScriptCompile, StructCopiesAndTallOperandStacksBecomeInstructions) {
    std::string wide = "int wide(int a) { printf(\"\"";
    for (int i = 0; i < 60; ++i) wide += ", a + " + std::to_string(i);
    wide += "); return a; }\n";
    const std::string copies =
        "struct pt { int x, y; } g;\n"
        "int copies(struct pt *p) { struct pt a, b[2]; a = *p; b[1] = a; g = b[1]; p[1] = g; return a.x; }\n";
    for (const auto& [text, name] : {std::pair{wide, "wide"}, std::pair{copies, "copies"}}) {
        Engine en;
        const Function* f = compiled(en, text, name);
        ASSERT_TRUE(f && f->code) << name;
        const std::string listing = listCode(*f->code);
        EXPECT_EQ(listing.find("Eval"), std::string::npos) << listing;
    }
}

TEST(ScriptCompile, SetjmpKeepsAFunctionWithTheTreeEvaluator) {
    Engine en;
    const Function* f = compiled(en, "int f(void) { char b[110]; return setjmp(b); }\n", "f");
    ASSERT_TRUE(f);
    EXPECT_TRUE(f->compiled);
    EXPECT_EQ(f->code, nullptr);
}

struct Captured {
    ScriptRunResult result;
    std::string out;
};

Captured run(const std::string& text, ScriptRunOptions opts = {}, std::vector<std::string> args = {"t.c"}) {
    FILE* out = std::tmpfile();
    opts.out = out;
    Captured c;
    c.result = runScriptText("/nowhere/t.c", text, args, opts);
    std::rewind(out);
    char buf[4096];
    size_t n;
    while ((n = std::fread(buf, 1, sizeof buf, out)) > 0) c.out.append(buf, n);
    std::fclose(out);
    return c;
}

TEST(ScriptRun, ResultIsMainsValueExitStatusOrMinusOneWithTheReport) {
    Captured c = run(
        "int main(int argc, char **argv) { printf(\"%d %s %s %d\", argc, argv[0], argv[2], argv[3] == 0); return 300; }",
        {}, {"t.c", "x", "y"});
    EXPECT_EQ(c.result.error, 0);
    EXPECT_EQ(c.result.value, 300);
    EXPECT_EQ(c.out, "3 t.c y 1");

    c = run("void quit(void) { exit(4); } int main(void) { quit(); printf(\"no\"); return 0; }");
    EXPECT_EQ(c.result.error, 0);
    EXPECT_EQ(c.result.value, 4);
    EXPECT_EQ(c.out, "");

    c = run("int main(void) {\n  int z = 0;\n  return 1 / z;\n}\n");
    EXPECT_EQ(c.result.value, -1);
    EXPECT_EQ(c.result.error, kErrDivZero);
    EXPECT_EQ(c.result.message, "t.c Line 3: Divide by 0");
}

// Every call and every loop test is one step, main's call included; a budget of
// exactly the steps a run takes lets it finish, one step less stops it as Stop does.
TEST(ScriptRun, StepBudgetCountsEveryCallAndLoopTest) {
    struct Row {
        const char* name;
        const char* text;
        uint64_t steps;
    };
    const Row rows[] = {
        {"three calls", "int f(void) { return 1; }\nint main(void) { return 97 + f() + f() + f(); }\n", 4},
        {"a long loop", "int main(void) { int i, s = 0; for (i = 0; i < 3000; i++) s += i & 1; return s - 1400; }\n",
         3002},
        {"recursion", "int fib(int n) { return n < 2 ? n : fib(n - 1) + fib(n - 2); }\n"
                      "int main(void) { return fib(15) - 510; }\n",
         1974},
        {"through a pointer", "int (*p)(int);\nint d(int n) { return n ? p(n - 1) + 1 : 0; }\n"
                              "int main(void) { p = d; return d(400) - 300; }\n",
         402},
    };
    for (const Row& r : rows) {
        ScriptRunOptions opts;
        opts.stepBudget = r.steps;
        EXPECT_EQ(run(r.text, opts).result.value, 100) << r.name;
        opts.stepBudget = r.steps - 1;
        EXPECT_EQ(run(r.text, opts).result.error, kErrTerminated) << r.name;
        EXPECT_FALSE(isScriptRunning()) << r.name;
    }
}

// Stop ends a run that would never end, wherever it spins: the report names the line
// it was at.
TEST(ScriptRun, StopReachesRunawayCompiledCode) {
    struct Row {
        const char* name;
        const char* text;
        const char* message;
    };
    const Row rows[] = {
        {"loop", "int spin(int n)\n{\n    for (;;) { if (++n == 1000) printf(\"in\\n\"); }\n}\n"
                 "int main(void) { return spin(0); }\n",
         "spin.c Line 3: Program terminated by user"},
        {"recursion", "int walk(int n)\n{\n    if (n == 40) return 0;\n    return walk(n + 1) + walk(n + 1);\n}\n"
                      "int main(void) { printf(\"in\\n\"); return walk(0); }\n",
         "spin.c Line 4: Program terminated by user"},
        {"recursion through a pointer",
         "int (*p)(int);\nint walk(int n)\n{\n    if (n == 40) return 0;\n    return p(n + 1) + p(n + 1);\n}\n"
         "int main(void) { p = walk; printf(\"in\\n\"); return walk(0); }\n",
         "spin.c Line 5: Program terminated by user"},
    };
    for (const Row& row : rows) {
        int fds[2];
        ASSERT_EQ(::pipe(fds), 0);
        FILE* out = ::fdopen(fds[1], "w");
        std::setvbuf(out, nullptr, _IONBF, 0);
        ScriptRunOptions opts;
        opts.out = out;
        ScriptRunResult r;
        std::thread t([&] {
            r = runScriptText("/x/spin.c", row.text, {"spin.c"}, opts);
            std::fputs("end", out);  // the read below returns whatever became of the run
        });
        char seen[4] = {};
        EXPECT_GT(::read(fds[0], seen, 3), 0) << row.name;  // the run is spinning
        requestScriptStop();
        t.join();
        std::fclose(out);
        ::close(fds[0]);
        EXPECT_EQ(r.error, kErrTerminated) << row.name;
        EXPECT_EQ(r.message, row.message) << row.name;
    }
}

TEST(ScriptRun, OnlyOneRunAtATime) {
    int fds[2];
    ASSERT_EQ(::pipe(fds), 0);
    FILE* in = ::fdopen(fds[0], "r");
    ScriptRunOptions opts;
    opts.in = in;
    ScriptRunResult first;
    std::thread t([&] { first = runScriptText("/x/a.c", "int main(void) { return getchar(); }", {"a.c"}, opts); });
    while (!isScriptRunning()) std::this_thread::yield();
    const ScriptRunResult second = runScriptText("/x/b.c", "int main(void) { return 5; }", {"b.c"}, {});
    EXPECT_TRUE(second.refused);
    EXPECT_EQ(second.value, 0);
    ASSERT_EQ(::write(fds[1], "A", 1), 1);
    t.join();
    EXPECT_EQ(first.value, 'A');
    std::fclose(in);
    ::close(fds[1]);
    EXPECT_FALSE(isScriptRunning());
    EXPECT_EQ(runScriptText("/x/c.c", "int main(void) { return 6; }", {"c.c"}, {}).value, 6);
}

TEST(ScriptRun, InterruptFromTheTerminalEndsTheRunWithError98) {
    const fs::path dir = fs::temp_directory_path() / ("zolder_int_" + std::to_string(::getpid()));
    fs::create_directories(dir / "home");
    std::ofstream(dir / "loop.c") << "#include <stdio.h>\nint main(void) { printf(\"started\\n\"); fflush(stdout); for (;;) ; }\n";
    const std::string cmd = "timeout --preserve-status -s INT 1 " + std::string(ZOLDER_BINARY) + " --headless --home " + (dir / "home").string() +
                            " --run " + (dir / "loop.c").string() + " >" + (dir / "out").string() + " 2>" +
                            (dir / "err").string();
    const int raw = std::system(cmd.c_str());
    std::ifstream err(dir / "err");
    std::string line;
    std::getline(err, line);
    fs::remove_all(dir);
    EXPECT_EQ(WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, 255);
    EXPECT_EQ(line, "loop.c Line 2: Program terminated by user");
}

}  // namespace
}  // namespace zol
