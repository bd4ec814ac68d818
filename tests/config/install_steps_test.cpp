#include "config/install_steps.h"
#include "config/settings.h"
#include "platform/profile.h"
#include "platform/registry.h"
#include "tests/support/temp_home.h"

namespace zol {
namespace {

using InstallSteps = test::TempHome;

TEST_F(InstallSteps, FirstRunPreparesTheSettingsOnceAndOnlyWhenMarked) {
    auto setting = [](const char* section, const char* key) { return findProfileString(section, key, kSettingsFile); };
    firstRunStep();
    registrySetString(RegistryRoot::CurrentUser, kInstallKey, "Start", "0");  // a text is no marker
    firstRunStep();
    EXPECT_FALSE(exists("zol.ini") || exists("vek.ini"));

    ASSERT_TRUE(registrySetInt(RegistryRoot::CurrentUser, kInstallKey, "Start", 0));
    put("vek.ini", "[VEK Applications]\nText Editor=/old/place\n");
    firstRunStep();
    EXPECT_EQ(registryGetInt(RegistryRoot::CurrentUser, kInstallKey, "Start"), 1u);
    EXPECT_EQ(getProfileString("VEK Applications", "Text Editor", "?", kFamilyFile), "");
    EXPECT_EQ(setting("Settings", "AssociateDlgStartUp"), "1");
    EXPECT_EQ(setting("Tip", "StartUp"), "0");
    EXPECT_EQ(setting("MacroMenu", "MenuText1"), "&Word Wrap Document");
    EXPECT_FALSE(setting("MacroMenu", "MenuText4"));
    writeProfileString("Tip", "StartUp", "1", kSettingsFile);
    firstRunStep();
    EXPECT_EQ(setting("Tip", "StartUp"), "1");

    // A user's own macro menu stays as it is.
    ASSERT_TRUE(registrySetInt(RegistryRoot::CurrentUser, kInstallKey, "Start", 0));
    put("zol.ini", "[MacroMenu]\nMenuText1=Mine\n");
    flushProfileCache();
    firstRunStep();
    EXPECT_EQ(getProfileKeys("MacroMenu", kSettingsFile), std::vector<std::string>{"MenuText1"});
}

TEST_F(InstallSteps, UninstallCommandGetsItsProgram) {
    const char* key = "Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\zol";
    const char* keyNT = "Software\\Microsoft\\Windows NT\\CurrentVersion\\Uninstall\\zol";
    auto fixed = [](const char* k) {
        uninstallFixup();
        return registryGetString(RegistryRoot::LocalMachine, k, "UninstallString");
    };
    uninstallFixup();
    EXPECT_FALSE(exists(kRegistryFile));
    registrySetString(RegistryRoot::LocalMachine, key, "UninstallString", " -a zol.log");
    EXPECT_EQ(fixed(key), dir + "uninst.exe  -a zol.log");
    EXPECT_EQ(fixed(key), dir + "uninst.exe  -a zol.log");
    put(kRegistryFile, "");
    flushProfileCache();
    registrySetString(RegistryRoot::LocalMachine, keyNT, "UninstallString", " -a zol.log");
    EXPECT_EQ(fixed(keyNT), " -a zol.log");
    registrySetString(RegistryRoot::LocalMachine, keyNT, "UninstallString", "-a");
    EXPECT_EQ(fixed(keyNT), dir + "uninst.exe -a");
}

TEST_F(InstallSteps, OldToolArgumentsAreUpgraded) {
    auto arguments = [] { return getProfileString("UserTools", "Arguments2", "", kSettingsFile); };
    put("zol.ini", "[UserTools]\nArguments1=-inh SearchString *.cpp\nArguments2=-inh SearchString *.cpp\n");
    upgradeUserToolArguments();
    EXPECT_EQ(arguments(), "-in $(CurText) *.cpp *.h");
    EXPECT_EQ(getProfileString("UserTools", "Arguments1", "", kSettingsFile), "-inh SearchString *.cpp");
    put("zol.ini", "[UserTools]\nArguments2=-inh SearchString *.cpp *.h\n");
    flushProfileCache();
    upgradeUserToolArguments();
    EXPECT_EQ(arguments(), "-inh SearchString *.cpp *.h");
}

TEST_F(InstallSteps, FamilyFileFollowsTheProgram) {
    auto family = [](const char* section) { return getProfileString(section, "Text Editor", "", kFamilyFile); };
    updateFamilyFile("/opt/Zolder/zolder");
    EXPECT_EQ(get("vek.ini"),
              "[VEK Applications]\nText Editor=/opt/Zolder/zolder\n[Version]\nText Editor=3.0\n"
              "[Lang]\nText Editor=1033\n[vekctrl.dll]\nText Editor=yes\n");
    writeProfileString("vekctrl.dll", "Text Editor", "mine", kFamilyFile);
    updateFamilyFile("/OPT/zolder/ZOLDER");
    EXPECT_EQ(family("vekctrl.dll"), "mine");
    writeProfileString("Version", "Text Editor", "2.5", kFamilyFile);
    updateFamilyFile("/opt/Zolder/zolder");
    EXPECT_EQ(family("Version"), "3.0");
    EXPECT_EQ(family("vekctrl.dll"), "no");
    updateFamilyFile("/usr/bin/zolder");
    EXPECT_EQ(family("VEK Applications"), "/usr/bin/zolder");
    EXPECT_EQ(family("vekctrl.dll"), "yes");
}

}  // namespace
}  // namespace zol
