#include "config/recent_files.h"
#include "config/recent_views.h"
#include "config/settings.h"
#include "platform/profile.h"
#include "tests/support/temp_home.h"

namespace zol {
namespace {

class RecentLists : public test::TempHome {
protected:
    void SetUp() override {
        TempHome::SetUp();
        recentViews().clear();
        recentFiles() = RecentFiles();
    }
};

void addView(const std::string& path, int line = 0) { recentViewAdd(path, 1, line, 2, 3, 4, 5, 1); }

TEST_F(RecentLists, FortyFirstFileDropsTheOldest) {
    for (int i = 1; i <= 41; ++i) addView("/f" + std::to_string(i));
    ASSERT_EQ(recentViews().size(), 40u);
    EXPECT_EQ(recentViews().front().path, "/f2");
    EXPECT_EQ(recentViews().back().path, "/f41");
    // A known file moves to the end, found without regard to case, and nothing drops.
    addView("/F10", 77);
    ASSERT_EQ(recentViews().size(), 40u);
    EXPECT_EQ(recentViews().front().path, "/f2");
    EXPECT_EQ(recentViews().back().path, "/F10");
    EXPECT_EQ(recentViewFind("/f10")->line, 77);
    EXPECT_EQ(recentViewFind("/f1"), nullptr);
}

// A value as it reads back, written out again; "(refused)" when it does not read.
std::string reread(const std::string& value) {
    const std::optional<RecentView> v = parseRecentView(value);
    return v ? formatRecentView(*v) : "(refused)";
}

TEST_F(RecentLists, ValueFormatAndParseRules) {
    const std::string quoted = "\"C:\\My Files\\a b.txt\" -3 123456 10 20 300 400 3";
    EXPECT_EQ(formatRecentView({"C:\\My Files\\a b.txt", -3, 123456, 10, 20, 300, 400, 3}), quoted);
    EXPECT_EQ(reread(quoted), quoted);
    EXPECT_EQ(reread("   /plain/path 1 2 3 4 5 6 7"), "\"/plain/path\" 1 2 3 4 5 6 7");
    EXPECT_EQ(reread("/p 70000 2 3 4 5 6 7"), "\"/p\" " + std::to_string(int16_t(70000)) + " 2 3 4 5 6 7");
    for (const char* bad : {"\"/p\" 1 2 3 4 5 6", "\"/p 1 2 3 4 5 6 7", "\"\" 1 2 3 4 5 6 7", "/p 1 2 x 4 5 6 7", ""})
        EXPECT_EQ(reread(bad), "(refused)") << bad;
    EXPECT_EQ(parseRecentView(std::string(300, 'p') + " 1 2 3 4 5 6 7")->path.size(), kRecentViewPathMax);
}

TEST_F(RecentLists, ViewsSurviveSaveAndLoad) {
    put("zol.ini", "[LastFilesInfo]\n1=\"/old\" 1 2 3 4 5 6 1\n2=broken\n39=/keep 1 1 1 1 1 1 1\n");
    recentViewLoad();
    ASSERT_EQ(recentViews().size(), 2u);
    EXPECT_EQ(recentViews()[1].path, "/keep");
    addView("/new", 9);
    ASSERT_TRUE(recentViewSave());
    EXPECT_EQ(getProfileString(kRecentViewSection, "3", "", kSettingsFile), "\"/new\" 1 9 2 3 4 5 1");
    EXPECT_EQ(getProfileString(kRecentViewSection, "39", "?", kSettingsFile), "");
    EXPECT_EQ(getProfileString(kRecentViewSection, "40", "?", kSettingsFile), "");
    recentViews().clear();
    recentViewLoad();
    ASSERT_EQ(recentViews().size(), 3u);
    EXPECT_EQ(recentViews()[0].path, "/old");
    EXPECT_EQ(recentViews()[2].line, 9);
}

TEST_F(RecentLists, RecentFilesReadFromFourDownToOne) {
    put("zol.ini", "[LastOpened]\n1=/a\n2=/b\n3=/A\n4=/d\nDisplayFileDir=1\n");
    recentFilesLoad(kRecentFilesSection, kSettingsFile);
    EXPECT_EQ(recentFiles().files, (std::vector<std::string>{"/a", "/b", "/d"}));
    EXPECT_TRUE(recentFiles().displayFileDir);
    EXPECT_TRUE(recentFiles().removeCurDir);
    recentFileAdd("/e");
    recentFileAdd("/f");
    recentFileAdd("/B");
    EXPECT_EQ(recentFiles().files, (std::vector<std::string>{"/B", "/f", "/e", "/a"}));
    recentFilesSave(kRecentFilesSection, kSettingsFile);
    recentFiles() = RecentFiles();
    recentFilesLoad(kRecentFilesSection, kSettingsFile);
    EXPECT_EQ(recentFiles().files, (std::vector<std::string>{"/B", "/f", "/e", "/a"}));
}

}  // namespace
}  // namespace zol
