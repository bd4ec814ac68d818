#include <chrono>
#include <cstring>
#include <filesystem>

#include "platform/profile.h"
#include "tests/support/temp_home.h"

namespace zol {
namespace {

using ProfileRead = test::TempHome;

TEST_F(ProfileRead, NamesMatchWithoutCaseAndFirstDuplicateWins) {
    put("a.ini",
        "[Main]\nName=first\nname=second\n"
        "[MAIN]\nOnlyLater=x\nName=third\n");
    EXPECT_EQ(getProfileString("main", "NAME", "d", "a.ini"), "first");
    // Only the first section of a name is searched.
    EXPECT_EQ(getProfileString("Main", "OnlyLater", "d", "a.ini"), "d");
}

TEST_F(ProfileRead, BlanksQuotesAndLineEndsAreRemovedAndMissingGivesTheDefault) {
    put("a.ini",
        "[S]\n"
        "  spaced  =   value with blanks \t \n"
        "dq=\"  keep inner  \"\n"
        "sq='single'\n"
        "mixed=\"open'\n"
        "twice=\"\"x\"\"\n"
        "lone=\"\n"
        "empty=\n"
        "bare\n"
        "; commented=1\n"
        "crlf = two \r\n"
        "last=final");
    const struct {
        const char *section, *key, *value;
    } cases[] = {
        {"S", "spaced", "value with blanks"}, {"S", "dq", "  keep inner  "}, {"S", "sq", "single"},
        {"S", "mixed", "\"open'"},            {"S", "twice", "\"x\""},          {"S", "lone", "\""},
        {"S", "empty", ""},                   {"S", "bare", ""},  // present but empty is not missing
        {"S", "; commented", "def"},          {"T", "spaced", "def"},           {"S", "x", "def"},
        {"S", "crlf", "two"},                 {"S", "last", "final"},  // line ends of every kind
    };
    for (const auto& c : cases) EXPECT_EQ(getProfileString(c.section, c.key, "def", "a.ini"), c.value) << c.key;
    EXPECT_EQ(findProfileString("S", "nothing", "a.ini"), std::nullopt);
    EXPECT_EQ(getProfileString("S", "k", "dflt  ", "none.ini"), "dflt");
    EXPECT_FALSE(exists("none.ini"));
}

TEST_F(ProfileRead, IntegerReadingTakesLeadingNumber) {
    put("a.ini",
        "[N]\nplain=42\nsuffix=17abc\nneg=-7\nplus=+3\nword=abc\nempty=\nblank=  12  \nquoted=\"5\"\n"
        "big=4294967295\nsignonly=-\n");
    const struct {
        const char* key;
        int value;
    } cases[] = {
        {"plain", 42}, {"suffix", 17}, {"neg", -7},  {"plus", 3}, {"word", 9},     {"empty", 9},
        {"blank", 12}, {"quoted", 5},  {"big", -1},  {"signonly", 9}, {"missing", 9},
    };
    for (const auto& c : cases) EXPECT_EQ(getProfileInt("N", c.key, 9, "a.ini"), c.value) << c.key;
}

TEST_F(ProfileRead, BuffersAreCutLikeWindows) {
    put("a.ini", "[S]\nk=abcdef\n");
    char buf[8];
    std::memset(buf, 'X', sizeof buf);
    EXPECT_EQ(getProfileString("S", "k", "", buf, 4, "a.ini"), 3u);
    EXPECT_STREQ(buf, "abc");
    EXPECT_EQ(getProfileString("S", "k", "", buf, 1, "a.ini"), 0u);
    EXPECT_STREQ(buf, "");
    buf[0] = 'X';
    EXPECT_EQ(getProfileString("S", "k", "", buf, 0, "a.ini"), 0u);
    EXPECT_EQ(buf[0], 'X');
    EXPECT_EQ(getProfileString("S", "k", "", buf, 7, "a.ini"), 6u);
    EXPECT_STREQ(buf, "abcdef");
    EXPECT_EQ(getProfileString("S", "missing", nullptr, buf, 8, "a.ini"), 0u);
    EXPECT_EQ(getProfileString("S", "k", "", "a.ini", 4), "abc");
    EXPECT_EQ(getProfileString("S", "missing", "defaults", "a.ini", 4), "def");
}

TEST_F(ProfileRead, EnumerationListsNamesOnceInFileOrder) {
    put("a.ini",
        "top=ignored\n[one]\nb=1\na=2\nB=3\n;c=4\n\n[Two]\n[ONE]\nz=9\n[three]\n");
    EXPECT_EQ(getProfileSectionNames("a.ini"), (std::vector<std::string>{"one", "Two", "three"}));
    EXPECT_EQ(getProfileKeys("One", "a.ini"), (std::vector<std::string>{"b", "a"}));
    EXPECT_TRUE(getProfileKeys("two", "a.ini").empty());
    EXPECT_TRUE(getProfileKeys("four", "a.ini").empty());
    EXPECT_TRUE(profileSectionExists("TWO", "a.ini"));
    EXPECT_FALSE(profileSectionExists("four", "a.ini"));
}

TEST_F(ProfileRead, NameListsInBuffersEndWithTwoZeros) {
    put("a.ini", "[one]\nk1=1\nk2=2\n[two]\n");
    char buf[32];
    EXPECT_EQ(getProfileSectionNames(buf, sizeof buf, "a.ini"), 8u);
    EXPECT_EQ(std::string(buf, 9), std::string("one\0two\0\0", 9));
    EXPECT_EQ(getProfileString("one", nullptr, "", buf, sizeof buf, "a.ini"), 6u);
    EXPECT_EQ(std::string(buf, 7), std::string("k1\0k2\0\0", 7));
    // Too small: the last name is cut and two zeros end the buffer.
    EXPECT_EQ(getProfileString(nullptr, nullptr, "", buf, 8, "a.ini"), 6u);
    EXPECT_EQ(std::string(buf, 8), std::string("one\0tw\0\0", 8));
    EXPECT_EQ(getProfileSectionNames(buf, 5, "a.ini"), 3u);
    EXPECT_EQ(std::string(buf, 5), std::string("one\0\0", 5));
}

TEST_F(ProfileRead, BareNamesLiveInTheHomeWhateverTheirCase) {
    put("ZOL.INI", "[S]\nk=v\n");
    EXPECT_EQ(profilePath("zol.ini"), path("ZOL.INI"));
    EXPECT_EQ(getProfileString("S", "k", "", "zol.ini"), "v");
    EXPECT_EQ(profilePath("sub/x.ini"), "sub/x.ini");
    EXPECT_EQ(getProfileString("S", "k", "", path("ZOL.INI")), "v");
}

TEST_F(ProfileRead, ChangesMadeByOthersAreSeen) {
    namespace fs = std::filesystem;
    put("a.ini", "[S]\nk=old\n");
    auto past = fs::file_time_type::clock::now() - std::chrono::hours(2);
    fs::last_write_time(path("a.ini"), past);
    EXPECT_EQ(getProfileString("S", "k", "", "a.ini"), "old");
    EXPECT_EQ(getProfileString("S", "k", "", "a.ini"), "old");
    // Same size, older time stamp than before: still a different file.
    put("a.ini", "[S]\nk=new\n");
    fs::last_write_time(path("a.ini"), past - std::chrono::hours(1));
    EXPECT_EQ(getProfileString("S", "k", "", "a.ini"), "new");
    fs::remove(path("a.ini"));
    EXPECT_EQ(getProfileString("S", "k", "gone", "a.ini"), "gone");
}

TEST_F(ProfileRead, AReadScopeChecksTheFileOnceAndWritesThrough) {
    namespace fs = std::filesystem;
    put("a.ini", "[S]\nk=old\n");
    fs::last_write_time(path("a.ini"), fs::file_time_type::clock::now() - std::chrono::hours(2));
    {
        ProfileReadScope scope;
        EXPECT_EQ(getProfileString("S", "k", "", "a.ini"), "old");
        put("a.ini", "[S]\nk=changed by another program\n");
        EXPECT_EQ(getProfileString("S", "k", "", "a.ini"), "old") << "checked once per scope";
        ASSERT_TRUE(writeProfileString("S", "w", "1", "a.ini"));
        EXPECT_EQ(get("a.ini"), "[S]\nk=old\nw=1\n") << "a write reaches the disk at once";
        put("a.ini", "[S]\nk=new\n");
    }
    EXPECT_EQ(getProfileString("S", "k", "", "a.ini"), "new") << "after the scope, every lookup checks again";
    // A bare name is resolved once per scope: a file of another letter case that
    // appears meanwhile is found by the next scope.
    {
        ProfileReadScope scope;
        EXPECT_EQ(getProfileString("S", "k", "none", "b.ini"), "none");
        put("B.INI", "[S]\nk=upper\n");
        EXPECT_EQ(getProfileString("S", "k", "none", "b.ini"), "none");
    }
    EXPECT_EQ(getProfileString("S", "k", "none", "b.ini"), "upper");
}

TEST_F(ProfileRead, GarbageNeverBreaksReading) {
    using namespace std::string_literals;
    put("j.ini", "[\0]=\n[[x]]]\n=\n=v\n[ a ]\r\r\n \t[b\n]]\n\xff\xfe=\x80\n"s);
    EXPECT_EQ(getProfileString("[x]]", "=", "d", "j.ini"), "d");
    EXPECT_EQ(getProfileString("a", "[b", "d", "j.ini"), "");
    EXPECT_EQ(getProfileString("a", "\xff\xfe", "", "j.ini"), "\x80");
    EXPECT_FALSE(getProfileSectionNames("j.ini").empty());
}

}  // namespace
}  // namespace zol
