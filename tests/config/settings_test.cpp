#include "config/profile_owners.h"
#include "config/settings.h"
#include "engine/options.h"
#include "platform/profile.h"
#include "tests/platform/temp_home.h"

#include <random>

namespace zol {
namespace {

class SettingsStore : public test::TempHome {
protected:
    void SetUp() override {
        TempHome::SetUp();
        env.programPath = "/opt/zolder/bin/zolder";
    }
    void load(const std::string& ini) {
        put("zol.ini", ini);
        flushProfileCache();
        loadProfile(env);
    }
    ProfileEnv env;
};

TEST_F(SettingsStore, MissingFileGivesTheDefaultsAndCreatesNothing) {
    loadProfile(env);
    EXPECT_TRUE(settings().saveSettings);
    EXPECT_EQ(settings().keyMappingFile, "ZOL.KEY");
    EXPECT_EQ(options().tabSize, 8);
    EXPECT_TRUE(options().checkFileTime);
    EXPECT_FALSE(exists("zol.ini"));
}

TEST_F(SettingsStore, WindowIsPulledOntoTheScreen) {
    load("[Settings]\nWindow=5000 5000 600 380\n");
    EXPECT_EQ(settings().window.x, 50);
    EXPECT_EQ(settings().window.y, 50);
    env.screenWidth = 1600;
    load("[Settings]\nWindow=1000 739 300 200 1\n");
    EXPECT_EQ(settings().window.x, 1000);
    EXPECT_EQ(settings().window.y, 50);
    EXPECT_TRUE(settings().window.maximized);
    load("[Settings]\nWindow=1570 738 300 200\n");
    EXPECT_EQ(settings().window.x, 1570);
    EXPECT_EQ(settings().window.y, 738);
    load("[Settings]\nWindow=1 2 3\n");
    EXPECT_EQ(settings().window.x, kDefaultWindowPos);
    EXPECT_EQ(settings().window.y, kDefaultWindowPos);
    EXPECT_EQ(settings().window.width, 600);
    EXPECT_EQ(settings().window.height, 380);
    EXPECT_FALSE(settings().window.maximized);
}

TEST_F(SettingsStore, OutOfRangeNumbersAreCorrected) {
    load("[Editor]\nTabSize=1\nUndoLevels=0\nAutoSaveEvery=121\nBlockIndent=17\nWordWrapColumn=2\n"
         "WordWrapMethod=0\nBackupFilesAs=2\nDefaultFileFormat=3\nLanguage=-1\nRightMouseBtn=2\n"
         "[Settings]\nBtnBarStyle=4\nFontCharSet=257\n");
    EXPECT_EQ(options().tabSize, 2);
    EXPECT_EQ(options().undoLevels, 384);
    EXPECT_EQ(options().autoSaveEvery, 10);
    EXPECT_EQ(options().blockIndent, 1);
    EXPECT_EQ(options().wordWrapColumn, 4);
    EXPECT_EQ(options().wordWrapMethod, 3);
    EXPECT_EQ(options().backupFilesAs, 0);
    EXPECT_EQ(options().defaultFileFormat, 0);
    EXPECT_EQ(settings().language, 1);
    EXPECT_EQ(settings().rightMouseBtn, 0);
    EXPECT_EQ(settings().btnBarStyle, -1);
    EXPECT_EQ(settings().fontCharSet, 1);
    load("[Editor]\nTabSize=21\nUndoLevels=500\nAutoSaveEvery=0\nBlockIndent=0\nWordWrapMethod=2\n"
         "Language=3\nRightMouseBtn=1\n[Settings]\nBtnBarStyle=2\n");
    EXPECT_EQ(options().tabSize, 2);
    EXPECT_EQ(options().undoLevels, 384);
    EXPECT_EQ(options().autoSaveEvery, 10);
    EXPECT_EQ(options().blockIndent, 1);
    EXPECT_EQ(options().wordWrapMethod, 2);
    EXPECT_EQ(settings().language, 3);
    EXPECT_EQ(settings().rightMouseBtn, 1);
    EXPECT_EQ(settings().btnBarStyle, 2);
}

TEST_F(SettingsStore, BooleansKeepBitZero) {
    load("[Settings]\nSaveDesktop=2\nAllowMultiInst=3\n[Editor]\nRuler=10\nLineNumbers=7\n");
    EXPECT_FALSE(settings().saveDesktop);
    EXPECT_TRUE(settings().allowMultiInst);
    EXPECT_FALSE(options().ruler);
    EXPECT_TRUE(options().lineNumbers);
}

TEST_F(SettingsStore, StringRules) {
    load("[Editor]\nNewFileExtension=a*b\nKeyMappingFile=C:\\keys\\my.key\n"
         "AlwaysWordWrapFileExt=" + std::string(100, 'w') + "\n[Settings]\nFontName=" + std::string(40, 'f') + "\n");
    EXPECT_EQ(settings().newFileExtension, "txt");
    EXPECT_EQ(settings().keyMappingFile, "my.key");
    EXPECT_EQ(settings().alwaysWordWrapFileExt, std::string(79, 'w'));
    EXPECT_EQ(settings().fontName, std::string(31, 'f'));
    load("[Editor]\nNewFileExtension=\nKeyMappingFile=\n");
    EXPECT_EQ(settings().newFileExtension, "");
    EXPECT_EQ(settings().keyMappingFile, "ZOL.KEY");
    EXPECT_EQ(keyFileNameFromPath("/home/me/keys/" + std::string(40, 'k')), std::string(31, 'k'));
    EXPECT_EQ(keyFileNameFromPath("dir\\"), "ZOL.KEY");
}

TEST_F(SettingsStore, NeverWordWrapExtReplacesNewer) {
    load("[Editor]\nNewerWordWrapFileExt=txt\nNeverWordWrapFileExt=c h\n");
    EXPECT_EQ(settings().neverWordWrapFileExt, "c h");
    load("[Editor]\nNewerWordWrapFileExt=txt\n");
    EXPECT_EQ(settings().neverWordWrapFileExt, "");
}

TEST_F(SettingsStore, FindHistoryTakesOnlyShortEntries) {
    load("[FindHistory]\nFind1=" + std::string(80, 'x') + "\nFind2=\nFind3=" + std::string(79, 'y') +
         "\nFind8=last\nReplace1=r\n");
    EXPECT_EQ(settings().findHistory, (std::vector<std::string>{std::string(79, 'y'), "last"}));
    EXPECT_EQ(settings().replaceHistory, std::vector<std::string>{"r"});
    ASSERT_TRUE(saveProfile(true));
    EXPECT_EQ(getProfileString("FindHistory", "Find1", "?", kSettingsFile), std::string(79, 'y'));
    EXPECT_EQ(getProfileString("FindHistory", "Find2", "?", kSettingsFile), "last");
    EXPECT_EQ(getProfileString("FindHistory", "Find8", "?", kSettingsFile), "");
    EXPECT_EQ(getProfileString("FindHistory", "Replace5", "?", kSettingsFile), "");
}

TEST_F(SettingsStore, MultiFindFiltersHaveABuiltInList) {
    loadProfile(env);
    const auto& f = settings().multiFindFileFilters;
    ASSERT_EQ(f.size(), 8u);
    load("[MultiFindFileFilters]\n1=\x80*.zz\n3=*.q\n[MultiFindFolderHistory]\n2=/src\n");
    EXPECT_EQ(settings().multiFindFileFilters, (std::vector<std::string>{"*.zz", "*.q"}));
    EXPECT_EQ(settings().multiFindFolderHistory, std::vector<std::string>{"/src"});
}

TEST_F(SettingsStore, GarbageFileLoadsWithCorrections) {
    std::mt19937 rng(7);
    for (int round = 0; round < 20; ++round) {
        std::string junk;
        const char* pieces[] = {"[Settings]", "[Editor]", "Window=", "TabSize=", "UndoLevels=", "=", "\n", "\r\n",
                                "-", "99999999999", "\"", "'", "[", "]", "KeyMappingFile=", "\\", " "};
        for (int i = 0; i < 400; ++i) {
            if (rng() % 3 == 0) junk += static_cast<char>(rng() % 256);
            else junk += pieces[rng() % std::size(pieces)];
        }
        load(junk);
        EXPECT_TRUE(options().tabSize >= kMinTabSize && options().tabSize <= kMaxTabSize);
        EXPECT_TRUE(options().undoLevels >= 1 && options().undoLevels <= kMaxUndoRecords);
        EXPECT_TRUE(options().wordWrapMethod >= 1 && options().wordWrapMethod <= 3);
        EXPECT_FALSE(settings().keyMappingFile.empty());
        EXPECT_LT(settings().keyMappingFile.size(), kKeyFileNameSize);
        EXPECT_TRUE(settings().window.x <= env.screenWidth - 30 || settings().window.x == 50);
    }
    // The user's file is read, never rewritten by loading.
    std::string before = get("zol.ini");
    loadProfile(env);
    EXPECT_EQ(get("zol.ini"), before);
}

TEST_F(SettingsStore, RoundTrip) {
    loadProfile(env);
    Settings& s = settings();
    s.window = {20, 30, 800, 500, true};
    s.fontName = "Mono";
    s.btnBarStyle = 2;
    s.includeDirs = "/usr/include;/opt/inc";
    s.keyMappingFile = "mine.key";
    s.newFileExtension = "c";
    s.printing.fontName = "Serif";
    s.printing.fontSize = 12;
    s.printing.leftMargin = 100;
    options().tabSize = 4;
    options().cursorThroughTabs = true;
    options().wordWrapColumn = 100;
    options().splitLongLines = false;
    const Settings saved = s;
    const EditOptions savedOptions = options();
    ASSERT_TRUE(saveProfile(true));
    settings() = Settings();
    options() = EditOptions();
    flushProfileCache();
    loadProfile(env);
    EXPECT_EQ(settings().window.y, saved.window.y);
    EXPECT_TRUE(settings().window.maximized);
    EXPECT_EQ(settings().fontName, "Mono");
    EXPECT_EQ(settings().btnBarStyle, 2);
    EXPECT_EQ(settings().includeDirs, saved.includeDirs);
    EXPECT_EQ(settings().keyMappingFile, "mine.key");
    EXPECT_EQ(settings().newFileExtension, "c");
    EXPECT_EQ(settings().printing.fontName, "Serif");
    EXPECT_EQ(settings().printing.fontSize, 12);
    EXPECT_EQ(settings().printing.leftMargin, 100);
    EXPECT_EQ(settings().multiFindFileFilters, saved.multiFindFileFilters);
    EXPECT_EQ(options().tabSize, 4);
    EXPECT_TRUE(options().cursorThroughTabs);
    EXPECT_EQ(options().wordWrapColumn, 100);
    EXPECT_FALSE(options().splitLongLines);
    EXPECT_EQ(options().autoSaveEvery, savedOptions.autoSaveEvery);
}

TEST_F(SettingsStore, SavingKeepsWhatItDoesNotOwn) {
    load("; my notes\n[UserTools]\nMenuText1=Make\n\n[Settings]\nGradientCaption=3\nCustom=keep\n"
         "[Editor]\nNeverWordWrapFileExt=c\n");
    settings().gradientCaption = 7;
    ASSERT_TRUE(saveProfile(true));
    std::string after = get("zol.ini");
    EXPECT_EQ(after.substr(0, 40), "; my notes\n[UserTools]\nMenuText1=Make\n\n[");
    EXPECT_EQ(getProfileInt("Settings", "GradientCaption", 0, kSettingsFile), 3);
    EXPECT_EQ(getProfileString("Settings", "Custom", "", kSettingsFile), "keep");
    EXPECT_EQ(getProfileString("Editor", "NeverWordWrapFileExt", "", kSettingsFile), "c");
    EXPECT_FALSE(findProfileString("Editor", "CheckFileTime", kSettingsFile).has_value());
    // No printer font chosen: its keys stay out.
    EXPECT_FALSE(findProfileString("Printing", "FontSize", kSettingsFile).has_value());
}

TEST_F(SettingsStore, WithoutSaveOptionsOnlyListsAndScreenFontAreWritten) {
    loadProfile(env);
    settings().fontName = "Fixed";
    options().tabSize = 5;
    ASSERT_TRUE(saveProfile(false));
    EXPECT_EQ(getProfileString("Settings", "FontName", "", kSettingsFile), "Fixed");
    EXPECT_FALSE(profileSectionExists("Editor", kSettingsFile));
    EXPECT_FALSE(findProfileString("Settings", "Window", kSettingsFile).has_value());
    EXPECT_TRUE(profileSectionExists("LastOpened", kSettingsFile));
}

TEST_F(SettingsStore, SingleKeyWriters) {
    loadProfile(env);
    ASSERT_TRUE(clearSaveSettings());
    ASSERT_TRUE(setAllowMultiInst(true));
    ASSERT_TRUE(setKeyMappingFile("D:\\x\\Alt.KEY"));
    EXPECT_EQ(getProfileString("Settings", "SaveSettings", "", kSettingsFile), "0");
    EXPECT_EQ(getProfileString("Settings", "AllowMultiInst", "", kSettingsFile), "1");
    EXPECT_EQ(getProfileString("Editor", "KeyMappingFile", "", kSettingsFile), "Alt.KEY");
    EXPECT_FALSE(settings().saveSettings);
    ASSERT_TRUE(setSetting("AssociateDlgStartUp", "0"));
    EXPECT_EQ(getSetting("associatedlgstartup", "1"), "0");
    char buf[4];
    EXPECT_EQ(getSetting("Missing", "default", buf, sizeof buf), 3u);
    EXPECT_STREQ(buf, "def");
    ASSERT_TRUE(autoLoadSet(0, "/a.c"));
    ASSERT_TRUE(autoLoadSet(19, "/t.c"));
    EXPECT_FALSE(autoLoadSet(20, "/u.c"));
    EXPECT_FALSE(autoLoadSet(-1, "/u.c"));
    EXPECT_EQ(getProfileString("AutoLoad", "1", "", kSettingsFile), "/a.c");
    EXPECT_EQ(autoLoadGet(19), "/t.c");
    EXPECT_EQ(autoLoadGet(20), "");
    EXPECT_FALSE(findProfileString("AutoLoad", "21", kSettingsFile).has_value());
}

TEST_F(SettingsStore, OwnersAreCalledInTheirOrder) {
    std::vector<std::string> calls;
    auto record = [&](const char* tag) {
        return [&calls, tag](std::string_view section, std::string_view file) {
            calls.push_back(std::string(tag) + ":" + std::string(section) + "@" + std::string(file));
        };
    };
    registerProfileOwner("Bookmarks", record("load"), record("save"));
    registerProfileOwner("UserTools", record("load"), record("save"));
    registerProfileOwner("syntax.hgl", record("load"), nullptr);
    registerProfileOwner("Extra", record("load"), record("save"));
    loadProfile(env);
    saveProfile(false);
    for (const char* s : {"Bookmarks", "UserTools", "syntax.hgl", "Extra"}) unregisterProfileOwner(s);
    EXPECT_EQ(calls, (std::vector<std::string>{"load:UserTools@zol.ini", "load:Bookmarks@zol.ini",
                                               "load:syntax.hgl@syntax.hgl", "load:Extra@zol.ini",
                                               "save:UserTools@zol.ini", "save:Bookmarks@zol.ini",
                                               "save:Extra@zol.ini"}));
}

}  // namespace
}  // namespace zol
