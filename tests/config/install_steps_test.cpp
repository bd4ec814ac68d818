#include "config/install_steps.h"
#include "config/settings.h"
#include "platform/profile.h"
#include "platform/registry.h"
#include "tests/support/temp_home.h"

namespace zol {
namespace {

class InstallSteps : public test::TempHome {};

TEST_F(InstallSteps, FirstRunPreparesTheSettings) {
    ASSERT_TRUE(registrySetInt(RegistryRoot::CurrentUser, kInstallKey, "Start", 0));
    put("vek.ini", "[VEK Applications]\nText Editor=/old/place\n");
    firstRunStep();
    EXPECT_EQ(registryGetInt(RegistryRoot::CurrentUser, kInstallKey, "Start"), 1u);
    EXPECT_EQ(getProfileString("VEK Applications", "Text Editor", "?", kFamilyFile), "");
    EXPECT_EQ(getProfileString("Settings", "AssociateDlgStartUp", "", kSettingsFile), "1");
    EXPECT_EQ(getProfileString("Tip", "StartUp", "", kSettingsFile), "0");
    EXPECT_EQ(getProfileString("MacroMenu", "MenuText1", "", kSettingsFile), "&Word Wrap Document");
    EXPECT_FALSE(findProfileString("MacroMenu", "MenuText4", kSettingsFile).has_value());
    // Only once.
    writeProfileString("Tip", "StartUp", "1", kSettingsFile);
    firstRunStep();
    EXPECT_EQ(getProfileString("Tip", "StartUp", "", kSettingsFile), "1");
}

TEST_F(InstallSteps, FirstRunKeepsAUsersMacroMenu) {
    ASSERT_TRUE(registrySetInt(RegistryRoot::CurrentUser, kInstallKey, "Start", 0));
    put("zol.ini", "[MacroMenu]\nMenuText1=Mine\n");
    firstRunStep();
    EXPECT_EQ(getProfileKeys("MacroMenu", kSettingsFile), std::vector<std::string>{"MenuText1"});
}

TEST_F(InstallSteps, NoMarkerNoFirstRun) {
    firstRunStep();
    registrySetString(RegistryRoot::CurrentUser, kInstallKey, "Start", "0");
    firstRunStep();
    EXPECT_FALSE(exists("zol.ini"));
    EXPECT_FALSE(exists("vek.ini"));
}

TEST_F(InstallSteps, UninstallCommandGetsItsProgram) {
    const char* key = "Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\zol";
    const char* keyNT = "Software\\Microsoft\\Windows NT\\CurrentVersion\\Uninstall\\zol";
    uninstallFixup();
    EXPECT_FALSE(exists(kRegistryFile));
    registrySetString(RegistryRoot::LocalMachine, key, "UninstallString", " -a zol.log");
    uninstallFixup();
    EXPECT_EQ(registryGetString(RegistryRoot::LocalMachine, key, "UninstallString"), dir + "uninst.exe  -a zol.log");
    uninstallFixup();
    EXPECT_EQ(registryGetString(RegistryRoot::LocalMachine, key, "UninstallString"), dir + "uninst.exe  -a zol.log");
    put(kRegistryFile, "");
    flushProfileCache();
    registrySetString(RegistryRoot::LocalMachine, keyNT, "UninstallString", " -a zol.log");
    uninstallFixup();
    EXPECT_EQ(registryGetString(RegistryRoot::LocalMachine, keyNT, "UninstallString"), " -a zol.log");
    registrySetString(RegistryRoot::LocalMachine, keyNT, "UninstallString", "-a");
    uninstallFixup();
    EXPECT_EQ(registryGetString(RegistryRoot::LocalMachine, keyNT, "UninstallString"), dir + "uninst.exe -a");
}

TEST_F(InstallSteps, OldToolArgumentsAreUpgraded) {
    put("zol.ini", "[UserTools]\nArguments1=-inh SearchString *.cpp\nArguments2=-inh SearchString *.cpp\n");
    upgradeUserToolArguments();
    EXPECT_EQ(getProfileString("UserTools", "Arguments2", "", kSettingsFile), "-in $(CurText) *.cpp *.h");
    EXPECT_EQ(getProfileString("UserTools", "Arguments1", "", kSettingsFile), "-inh SearchString *.cpp");
    put("zol.ini", "[UserTools]\nArguments2=-inh SearchString *.cpp *.h\n");
    flushProfileCache();
    upgradeUserToolArguments();
    EXPECT_EQ(getProfileString("UserTools", "Arguments2", "", kSettingsFile), "-inh SearchString *.cpp *.h");
}

TEST_F(InstallSteps, FamilyFileFollowsTheProgram) {
    updateFamilyFile("/opt/Zolder/zolder");
    EXPECT_EQ(get("vek.ini"),
              "[VEK Applications]\nText Editor=/opt/Zolder/zolder\n[Version]\nText Editor=3.0\n"
              "[Lang]\nText Editor=1033\n[vekctrl.dll]\nText Editor=yes\n");
    writeProfileString("vekctrl.dll", "Text Editor", "mine", kFamilyFile);
    updateFamilyFile("/OPT/zolder/ZOLDER");
    EXPECT_EQ(getProfileString("vekctrl.dll", "Text Editor", "", kFamilyFile), "mine");
    writeProfileString("Version", "Text Editor", "2.5", kFamilyFile);
    updateFamilyFile("/opt/Zolder/zolder");
    EXPECT_EQ(getProfileString("Version", "Text Editor", "", kFamilyFile), "3.0");
    EXPECT_EQ(getProfileString("vekctrl.dll", "Text Editor", "", kFamilyFile), "no");
    updateFamilyFile("/usr/bin/zolder");
    EXPECT_EQ(getProfileString("VEK Applications", "Text Editor", "", kFamilyFile), "/usr/bin/zolder");
    EXPECT_EQ(getProfileString("vekctrl.dll", "Text Editor", "", kFamilyFile), "yes");
}

}  // namespace
}  // namespace zol
