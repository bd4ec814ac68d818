// The "UserTools" and "UserHelp" sections: loading stops at the first gap, broken
// values are corrected, and saving a shorter list leaves no stale record behind.
#include <gtest/gtest.h>

#include "config/profile_owners.h"
#include "platform/profile.h"
#include "tests/support/temp_home.h"
#include "tools/run_tool.h"
#include "tools/user_tools.h"

namespace zol {
namespace {

class UserToolsTest : public test::TempHome {
protected:
    void SetUp() override {
        TempHome::SetUp();
        installTools();
    }
    void TearDown() override {
        userTools() = UserTools{};
        userHelp() = UserHelp{};
        TempHome::TearDown();
    }
};

TEST_F(UserToolsTest, LoadingStopsAtTheFirstGapAndCorrectsValues) {
    put("zol.ini",
        "[UserTools]\n"
        "MenuText1=&Make\nPathName1=make\nArguments1=-k\nInitialDir1=$(FileDir)\nCaptureOutput1=3\n"
        "SaveFile1=7\nSendArgAsShortFileName1=5\nAskArguments1=2\n"
        "MenuText2=Lint\nPathName2=lint\nSendArgAsShortFileName2=2\nPromptBeforeSave2=x\n"
        "MenuText3=No program\n"
        "MenuText4=Never\nPathName4=never\n"
        "[UserHelp]\nContextHelpFile=/h/c.html\nMenuString1=C\nHelpFile1=/h/c.html\nHelpFile2=/h/gap\n"
        "MenuString3=Lost\nHelpFile3=/h/lost\n");
    loadProfileOwners("zol.ini");
    const UserTools& list = userTools();
    ASSERT_EQ(list.tools.size(), 2u);
    const UserTool& make = list.tools[0];
    EXPECT_EQ(make.menuText, "&Make");
    EXPECT_EQ(make.initialDir, "$(FileDir)");
    EXPECT_TRUE(make.captureOutput) << "bit 0 of 3";
    EXPECT_FALSE(make.askArguments) << "bit 0 of 2";
    EXPECT_EQ(make.saveFile, 7) << "kept as read";
    EXPECT_EQ(make.quoteMode, kQuoteWithBlanks) << "5 is no mode";
    EXPECT_EQ(list.tools[1].quoteMode, kQuoteAlways);
    EXPECT_EQ(list.tools[1].saveFile, kSaveActive) << "the default";
    EXPECT_FALSE(list.tools[1].promptBeforeSave);
    ASSERT_EQ(userHelp().entries.size(), 1u);
    EXPECT_EQ(userHelp().contextHelpFile, "/h/c.html");
}

TEST_F(UserToolsTest, LongValuesAreCutToTheirBuffers) {
    put("zol.ini", "[UserTools]\nMenuText1=" + std::string(60, 'm') + "\nPathName1=p\nArguments1=" +
                       std::string(300, 'a') + "\n");
    loadProfileOwners("zol.ini");
    ASSERT_EQ(userTools().tools.size(), 1u);
    EXPECT_EQ(userTools().tools[0].menuText.size(), 39u);
    EXPECT_EQ(userTools().tools[0].arguments.size(), 255u);
}

TEST_F(UserToolsTest, SavingAShorterListRemovesTheRecordsAfterIt) {
    put("zol.ini", "[UserTools]\nMenuText1=A\nPathName1=a\nMenuText2=B\nPathName2=b\nArguments2=x\n"
                   "MenuText3=C\nPathName3=c\n[Other]\nKeep=1\n");
    loadProfileOwners("zol.ini");
    ASSERT_EQ(userTools().tools.size(), 3u);
    userTools().tools.erase(userTools().tools.begin());  // A goes; B and C move up
    userTools().tools[0].promptBeforeSave = true;
    saveProfileOwners("zol.ini");
    flushProfileCache();
    EXPECT_EQ(getProfileString("UserTools", "MenuText1", "", "zol.ini"), "B");
    EXPECT_EQ(getProfileString("UserTools", "Arguments1", "", "zol.ini"), "x");
    EXPECT_EQ(getProfileInt("UserTools", "PromptBeforeSave1", 0, "zol.ini"), 1);
    EXPECT_EQ(getProfileString("UserTools", "MenuText2", "", "zol.ini"), "C");
    EXPECT_FALSE(findProfileString("UserTools", "MenuText3", "zol.ini"));
    EXPECT_FALSE(findProfileString("UserTools", "PathName3", "zol.ini"));
    EXPECT_EQ(getProfileString("Other", "Keep", "", "zol.ini"), "1");
    loadProfileOwners("zol.ini");
    EXPECT_EQ(userTools().tools.size(), 2u);
}

}  // namespace
}  // namespace zol
