// The pattern dialect, one table per family of rules: what compiles to what error,
// what matches where, which groups are set, and what templates expand to.
#include <gtest/gtest.h>

#include <string>

#include "search/regex.h"

namespace zol {
namespace {

struct Match {
    bool found;
    int start = -1, end = -1;
    int g1s = -1, g1e = -1;  // group 1, -1 when unset
};

Match run(const char* pattern, const char* text, bool backward = false, int limit = -1) {
    int err = -1;
    auto prog = regexCompile(pattern, &err);
    EXPECT_TRUE(prog) << pattern << ": " << regexErrorMessage(err);
    if (!prog) return {false};
    const char* lim = limit < 0 ? nullptr : text + limit;
    if (!regexExecute(prog.get(), text, lim, backward, true)) return {false};
    Match m{true, static_cast<int>(prog->groupStart[0] - text), static_cast<int>(prog->groupEnd[0] - text)};
    if (prog->groupStart[1]) {
        m.g1s = static_cast<int>(prog->groupStart[1] - text);
        m.g1e = static_cast<int>(prog->groupEnd[1] - text);
    }
    return m;
}

TEST(RegexDialect, MalformedPatternsGiveTheirErrorCode) {
    const struct {
        const char* pattern;
        int code;
    } cases[] = {
        {"x**", kReNested},          {"a+?", kReNested},         {"{a}*+", kReNested},
        {"*x", kReFollowsNothing},   {"a|*b", kReFollowsNothing}, {"{+a}", kReFollowsNothing},
        {"{}*", kReEmptyOperand},    {"{a*}+", kReEmptyOperand}, {"^*", kReEmptyOperand},
        {"{a|}*", kReEmptyOperand},  {"[z-a]", kReBadRange},     {"[a-c-b]", kReBadRange},
        {"[abc", kReUnmatchedBracket}, {"[]", kReUnmatchedBracket}, {"[^", kReUnmatchedBracket},
        {"{a", kReUnmatchedBraces},  {"a}", kReUnmatchedBraces}, {"{{a}", kReUnmatchedBraces},
        {"\\d", kReBadEscape},       {"\\(", kReBadEscape},      {"a\\", kReBadEscape},
        {"[\\d]", kReBadEscape},     {"{1}{2}{3}{4}{5}{6}{7}{8}{9}{10}", kReTooManyGroups},
    };
    for (const auto& c : cases) {
        int err = 0;
        EXPECT_EQ(regexCompile(c.pattern, &err), nullptr) << c.pattern;
        EXPECT_EQ(err, c.code) << c.pattern;
    }
    int err = 0;
    EXPECT_EQ(regexCompile(nullptr, &err), nullptr);
    EXPECT_EQ(err, kReNullArgument);
}

TEST(RegexDialect, SizeLimitIsMeasuredBeforeEmitting) {
    // Each "a." pair is an EXACTLY node (5 bytes) and an ANY node (3 bytes).
    auto pairs = [](size_t n) {
        std::string p;
        while (n--) p += "a.";
        return p;
    };
    int err = -1;
    EXPECT_NE(regexCompile(pairs(4000).c_str(), &err), nullptr);
    EXPECT_EQ(err, kReOk);
    EXPECT_EQ(regexCompile(pairs(5000).c_str(), &err), nullptr);
    EXPECT_EQ(err, kReTooBig);
    const std::string literal(40000, 'x');
    EXPECT_EQ(regexCompile(literal.c_str(), &err), nullptr);
    EXPECT_EQ(err, kReTooBig);
}

TEST(RegexDialect, LiteralsSetsAndEscapes) {
    const struct {
        const char* pattern;
        const char* text;
        int start, end;
    } cases[] = {
        // Quantifiers, plain sets and alternation are left to the differential test.
        {"(a)", "x(a)", 1, 4},       {"[]a]+", "]a]", 0, 3},      {"[-a]+", "a-", 0, 2},
        {"[a-]+", "-a", 0, 2},       {"[^]x]", "]xy", 2, 3},      {"\\{\\}", "{}", 0, 2},
        {"\\*\\+\\?", "*+?", 0, 3},  {"a\\nb", "a\nb", 0, 3},     {"[\\n]", "a\n", 1, 2},
        {"\\t", "x\ty", 1, 2},       {"[\\]]", "]", 0, 1},         {"", "abc", 0, 0},
        {"\\&\\|\\.\\$\\^\\\\", "&|.$^\\", 0, 6},                  {"[\xe0-\xe9]", "a\xe5", 1, 2},
    };
    for (const auto& c : cases) {
        Match m = run(c.pattern, c.text);
        EXPECT_TRUE(m.found) << c.pattern;
        EXPECT_EQ(m.start, c.start) << c.pattern;
        EXPECT_EQ(m.end, c.end) << c.pattern;
    }
    EXPECT_FALSE(run("ab", "ab ab ab", true, 0).found) << "a limit at the start leaves no candidate";
}

TEST(RegexDialect, SubstitutionTemplates) {
    const struct {
        const char* pattern;
        const char* text;
        const char* tmpl;
        const char* out;
    } cases[] = {
        {"abc", "abc", "\\U&", "ABC"},        {"{ab}{c}", "abc", "\\u\\1-\\2", "Ab-c"},
        {"abc", "abc", "\\ux", "x"},          {"ABC", "ABC", "\\l&\\L&", "aBCabc"},
        {"b", "abc", "[&]", "[b]"},           {"b", "abc", "\\&\\\\\\n", "&\\\n"},
        {"{x}?b", "b", "<\\1\\9>", "<>"},     {"b", "b", "\\q\\t", "q\t"},
        {"b", "b", "\\u\\U&", "B"},
    };
    for (const auto& c : cases) {
        auto prog = regexCompile(c.pattern, nullptr);
        ASSERT_TRUE(prog);
        ASSERT_TRUE(regexExecute(prog.get(), c.text, nullptr, false, true)) << c.pattern;
        char out[64];
        regexSubstitute(prog.get(), c.tmpl, out, sizeof out);
        EXPECT_STREQ(out, c.out) << c.tmpl;
    }
    // Cut to the buffer.
    auto prog = regexCompile("a+", nullptr);
    ASSERT_TRUE(prog);
    ASSERT_TRUE(regexExecute(prog.get(), "aaaaaa", nullptr, false, true));
    char out[5] = "zzzz";
    regexSubstitute(prog.get(), "x&", out, sizeof out);
    EXPECT_STREQ(out, "xaaa");
    regexSubstitute(prog.get(), "&", out, 1);
    EXPECT_STREQ(out, "");
}

TEST(RegexDialect, DamagedProgramsAndNullTextsDoNothing) {
    auto prog = regexCompile("a", nullptr);
    ASSERT_TRUE(prog);
    EXPECT_EQ(regexExecute(prog.get(), nullptr, nullptr, false, true), 0);
    EXPECT_EQ(regexExecute(nullptr, "a", nullptr, false, true), 0);
    prog->code[0] = 0;
    EXPECT_EQ(regexExecute(prog.get(), "a", nullptr, false, true), 0);
    char out[8] = "keep";
    regexSubstitute(prog.get(), "&", out, sizeof out);
    EXPECT_STREQ(out, "keep");
}

// Exponential backtracking gives up: the find tests see its message. A deep but
// linear loop on a long subject must neither give up nor need a call stack.
TEST(RegexDialect, ALongLinearLoopNeedsNoCallStack) {
    std::string long_(200000, 'a');
    auto prog = regexCompile("{a}*$", nullptr);
    ASSERT_TRUE(prog);
    EXPECT_EQ(regexExecute(prog.get(), long_.c_str(), nullptr, false, true), 1);
    EXPECT_EQ(prog->groupEnd[0] - long_.c_str(), 200000);
}

// One program run over many texts, as a search over the lines of a document does:
// the groups of an earlier match must not show through a failed run.
TEST(RegexDialect, ReusedProgramReportsOnlyTheGroupsOfItsLastRun) {
    int err = 0;
    auto prog = regexCompile("{a|b{c}d}", &err);
    ASSERT_TRUE(prog);
    const char* full = "xbcd";
    ASSERT_EQ(regexExecute(prog.get(), full, nullptr, false, true), 1);
    EXPECT_EQ(regexExecute(prog.get(), "zzz", nullptr, false, true), 0);
    for (int i = 0; i < kRegexGroups; ++i) {
        EXPECT_EQ(prog->groupStart[i], nullptr) << i;
        EXPECT_EQ(prog->groupEnd[i], nullptr) << i;
    }

    // A plain literal is found without the matcher; its groups follow the same rule.
    auto lit = regexCompile("cd", &err);
    ASSERT_TRUE(lit);
    ASSERT_EQ(regexExecute(lit.get(), full, nullptr, false, true), 1);
    EXPECT_EQ(lit->groupStart[0] - full, 2);
    EXPECT_EQ(lit->groupEnd[0] - full, 4);
    EXPECT_EQ(regexExecute(lit.get(), "zzz", nullptr, false, true), 0);
    EXPECT_EQ(lit->groupStart[0], nullptr);
}

}  // namespace
}  // namespace zol
