#include <filesystem>
#include <fstream>

#include "platform/profile.h"
#include "tests/support/temp_home.h"

namespace zol {
namespace {

using ProfileWrite = test::TempHome;

const char* const kSample =
    "; settings of a careful user\r\n"
    "\r\n"
    "[Editor]\r\n"
    "  TabSize = 4   \r\n"
    "Ruler=1\r\n"
    "; about printing\r\n"
    "\r\n"
    "[Printing]\r\n"
    "Header=&f\r\n"
    "\r\n"
    "\r\n"
    "[Last]\r\n"
    "x=1";

// A changed key keeps its place; a new one follows the last key of its section, before
// the comments and blank lines that lead to the next.
TEST_F(ProfileWrite, ChangedKeysKeepTheirLineAndNewKeysFollowTheirSection) {
    put("a.ini", kSample);
    ASSERT_TRUE(writeProfileString("editor", "tabsize", "8", "a.ini"));
    ASSERT_TRUE(writeProfileString("Editor", "Wrap", "0", "a.ini"));
    ASSERT_TRUE(writeProfileString("Printing", "Footer", "&p", "a.ini"));
    std::string expected = kSample;
    expected.replace(expected.find("TabSize = 4   "), 14, "TabSize = 8");
    expected.insert(expected.find("; about printing"), "Wrap=0\r\n");
    expected.insert(expected.find("\r\n\r\n\r\n[Last]") + 2, "Footer=&p\r\n");
    EXPECT_EQ(get("a.ini"), expected);
    EXPECT_EQ(getProfileInt("Editor", "TabSize", 0, "a.ini"), 8);
    // No temporary files remain.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir), std::filesystem::directory_iterator()), 1);
}

TEST_F(ProfileWrite, KeysAndSectionsGoWhereTheFileAlreadyHasThem) {
    struct Case {
        std::string before;
        const char *section, *key, *value;
        std::string after;
    };
    const Case cases[] = {
        {kSample, "Last", "y", "2", std::string(kSample) + "\r\ny=2\r\n"},  // last line without a line end
        {"[A]\nk=1\n\n", "B", "k", "2", "[A]\nk=1\n\n[B]\nk=2\n"},      // a new section goes to the end
        {"[A]\r\nk=1", "B", "k", "2", "[A]\r\nk=1\r\n[B]\r\nk=2\r\n"},
        {"[A]\n; nothing yet\n\n[B]\n", "A", "k", "v", "[A]\nk=v\n; nothing yet\n\n[B]\n"},
        {"[S]\nk=1\nK=2\n[s]\nk=3\n", "s", "K", "9", "[S]\nk=9\nK=2\n[s]\nk=3\n"},  // only the first duplicate
        {"[S]\n  flag  \n", "S", "flag", "1", "[S]\n  flag=1\n"},                    // a bare key gains a value
    };
    int n = 0;
    for (const Case& c : cases) {
        const std::string name = "c" + std::to_string(n++) + ".ini";
        put(name, c.before);
        ASSERT_TRUE(writeProfileString(c.section, c.key, c.value, name)) << name;
        EXPECT_EQ(get(name), c.after) << name;
    }
}

TEST_F(ProfileWrite, MissingFileIsCreatedInTheHome) {
    ASSERT_TRUE(writeProfileString("S", "k", "v", "new.ini"));
    EXPECT_EQ(get("new.ini"), "[S]\nk=v\n");
    EXPECT_FALSE(writeProfileString("S", "k", "v", path("no/such/folder.ini")));
    EXPECT_FALSE(exists("no"));
    // Deleting from a missing file creates nothing.
    ASSERT_TRUE(writeProfileString("S", "k", nullptr, "none.ini"));
    ASSERT_TRUE(writeProfileString("S", nullptr, nullptr, "none.ini"));
    EXPECT_FALSE(exists("none.ini"));
}

TEST_F(ProfileWrite, ValuesStayOnOneLine) {
    ASSERT_TRUE(writeProfileString("S", "k", "one\n[Evil]\r\nx=1", "a.ini"));
    EXPECT_EQ(getProfileSectionNames("a.ini"), std::vector<std::string>{"S"});
    EXPECT_EQ(getProfileString("S", "k", "", "a.ini"), "one [Evil]  x=1");
    // Names with blanks around them read without; written twice, they are found again.
    for (const char* v : {"1", "2"}) ASSERT_TRUE(writeProfileString(" T\t", "k ", v, "b.ini"));
    EXPECT_EQ(getProfileSectionNames("b.ini"), std::vector<std::string>{"T"});
    EXPECT_EQ(getProfileKeys("T", "b.ini"), std::vector<std::string>{"k"});
    EXPECT_EQ(getProfileString("T", "k", "", "b.ini"), "2");
}

// Links and second names are the durable replace's to keep (durable_write_test.cpp).
TEST_F(ProfileWrite, ReadOnlyFileIsNotWrittenAndAnUnchangedValueIsNoWrite) {
    put("a.ini", "[S]\nk=1\n");
    std::filesystem::permissions(path("a.ini"), std::filesystem::perms::owner_read);
    EXPECT_TRUE(writeProfileString("S", "k", "1", "a.ini"));
    EXPECT_FALSE(writeProfileString("S", "k", "2", "a.ini"));
    EXPECT_EQ(get("a.ini"), "[S]\nk=1\n");
    EXPECT_EQ(getProfileString("S", "k", "", "a.ini"), "1");
}

TEST_F(ProfileWrite, NullValueDeletesKeysAndNullKeySections) {
    put("a.ini", "[S]\nk=1\n; note\nK=2\nj=3\n[T]\nk=4\n");
    ASSERT_TRUE(writeProfileString("s", "k", nullptr, "a.ini"));
    EXPECT_EQ(get("a.ini"), "[S]\n; note\nj=3\n[T]\nk=4\n");
    ASSERT_TRUE(writeProfileString("T", "k", std::nullopt, "a.ini"));
    EXPECT_EQ(get("a.ini"), "[S]\n; note\nj=3\n[T]\n");
    // Deleting what is not there changes nothing.
    ASSERT_TRUE(writeProfileString("T", "none", nullptr, "a.ini"));
    ASSERT_TRUE(writeProfileString("U", "none", nullptr, "a.ini"));
    EXPECT_EQ(get("a.ini"), "[S]\n; note\nj=3\n[T]\n");

    // A null key deletes the whole section, with its duplicates.
    put("b.ini", "[A]\na=1\n\n[B]\nb=1\n; b's note\n\n[a]\nc=2\n[C]\nc=3");
    const char* noKey = nullptr;
    ASSERT_TRUE(writeProfileString("A", noKey, "ignored", "b.ini"));
    EXPECT_EQ(get("b.ini"), "[B]\nb=1\n; b's note\n\n[C]\nc=3");
    ASSERT_TRUE(writeProfileString("c", std::nullopt, std::nullopt, "b.ini"));
    EXPECT_EQ(get("b.ini"), "[B]\nb=1\n; b's note\n\n");
}

TEST_F(ProfileWrite, BatchWritesOnceAndReadsSeeItsChanges) {
    put("a.ini", "[S]\nk=1\n");
    {
        ProfileBatch batch("a.ini");
        for (int i = 0; i < 50; ++i) writeProfileInt("S", "n" + std::to_string(i), i, "a.ini");
        writeProfileString("S", "k", "2", "a.ini");
        EXPECT_EQ(getProfileString("S", "k", "", "a.ini"), "2");
        EXPECT_EQ(getProfileInt("S", "n49", 0, "a.ini"), 49);
        EXPECT_EQ(get("a.ini"), "[S]\nk=1\n");
        EXPECT_TRUE(batch.commit());
    }
    flushProfileCache();
    EXPECT_EQ(getProfileString("S", "k", "", "a.ini"), "2");
    EXPECT_EQ(getProfileKeys("S", "a.ini").size(), 51u);
}

TEST_F(ProfileWrite, FailedBatchReportsAndForgetsItsImage) {
    beginProfileBatch(path("gone/a.ini"));
    writeProfileString("S", "k", "v", path("gone/a.ini"));
    EXPECT_FALSE(endProfileBatch(path("gone/a.ini")));
    EXPECT_EQ(getProfileString("S", "k", "none", path("gone/a.ini")), "none");
}

}  // namespace
}  // namespace zol
