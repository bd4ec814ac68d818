#include "platform/dirsearch.h"
#include "tests/platform/temp_home.h"

namespace zol {
namespace {

using test::TempHome;

TEST(Wildcard, StarsAndQuestionMarks) {
    EXPECT_TRUE(wildcardMatch("*.c", "main.c", false));
    EXPECT_FALSE(wildcardMatch("*.c", "main.cpp", false));
    EXPECT_TRUE(wildcardMatch("?.c", "a.c", false));
    EXPECT_FALSE(wildcardMatch("?.c", ".c", false));
    EXPECT_TRUE(wildcardMatch("*a*b", "xaxxab", false));
    EXPECT_FALSE(wildcardMatch("*a*b", "xaxxba", false));
    EXPECT_TRUE(wildcardMatch("~zol????.asd", "~zol00af.asd", false));
    EXPECT_TRUE(wildcardMatch("", "", false));
    EXPECT_FALSE(wildcardMatch("", "a", false));
}

TEST(Wildcard, DotStarAlsoMatchesNamesWithoutExtension) {
    EXPECT_TRUE(wildcardMatch("*.*", "Makefile", false));
    EXPECT_TRUE(wildcardMatch("a.*", "a", false));
    EXPECT_TRUE(wildcardMatch("a.*", "a.b.c", false));
    EXPECT_FALSE(wildcardMatch("a.*", "ab", false));
}

TEST(Wildcard, CaseRule) {
    EXPECT_TRUE(wildcardMatch("*.ZOP", "spell.zop", true));
    EXPECT_FALSE(wildcardMatch("*.ZOP", "spell.zop", false));
}

class DirSearch : public TempHome {};

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
