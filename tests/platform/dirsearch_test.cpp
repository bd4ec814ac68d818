#include <filesystem>

#include "platform/dirsearch.h"
#include "tests/support/temp_home.h"

namespace zol {
namespace {

TEST(Wildcard, StarsQuestionMarksDotStarAndCase) {
    struct Case {
        const char *pattern, *name;
        bool caseless, match;
    };
    const Case cases[] = {
        {"*.c", "main.c", false, true},     {"*.c", "main.cpp", false, false},
        {"?.c", "a.c", false, true},        {"?.c", ".c", false, false},
        {"*a*b", "xaxxab", false, true},    {"*a*b", "xaxxba", false, false},
        {"~zol????.asd", "~zol00af.asd", false, true},
        {"", "", false, true},              {"", "a", false, false},
        // ".*" also matches names without an extension.
        {"*.*", "Makefile", false, true},   {"a.*", "a", false, true},
        {"a.*", "a.b.c", false, true},      {"a.*", "ab", false, false},
        {"*.ZOP", "spell.zop", true, true}, {"*.ZOP", "spell.zop", false, false},
    };
    for (const Case& c : cases) EXPECT_EQ(wildcardMatch(c.pattern, c.name, c.caseless), c.match) << c.pattern << " " << c.name;
}

using DirSearch = test::TempHome;

TEST_F(DirSearch, FindsMatchingEntriesSorted) {
    std::filesystem::create_directories(path("d/Sub.txt"));
    put("d/b.TXT", "");
    put("d/a.txt", "");
    put("d/c.log", "");
    auto found = findFiles(dir + "d\\*.txt");
    ASSERT_EQ(found.size(), 3u);
    EXPECT_EQ(found[0].name, "a.txt");
    EXPECT_EQ(found[1].name, "b.TXT");
    EXPECT_EQ(found[2].name, "Sub.txt");
    EXPECT_FALSE(found[0].isDirectory);
    EXPECT_TRUE(found[2].isDirectory);
    EXPECT_EQ(findFiles(dir + "d/*.txt", false).size(), 2u);
    auto all = findFiles(dir + "d/*");
    EXPECT_EQ(all.size(), 4u);
    for (const FoundFile& f : all) EXPECT_TRUE(f.name != "." && f.name != "..");
    EXPECT_TRUE(findFiles(dir + "missing/*").empty());
}

}  // namespace
}  // namespace zol
