#include "config/profile_owners.h"
#include "config/settings.h"
#include "config/settings_list.h"
#include "engine/options.h"
#include "platform/profile.h"
#include "tests/support/temp_home.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <random>
#include <tuple>

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
    // Loads a file that gives each of the rows the value value(row), then hands every
    // row back with the value it was given.
    using RowValue = std::function<std::string(const SettingRow&)>;
    void loadRows(const std::vector<const SettingRow*>& rows, const RowValue& value) {
        std::map<std::string, std::string> sections;
        for (const SettingRow* row : rows) sections[row->section] += std::string(row->key) + "=" + value(*row) + "\n";
        std::string ini;
        for (const auto& [name, keys] : sections) ini += "[" + name + "]\n" + keys;
        load(ini);
    }
    int number(const SettingRow& row) { return settingNumber(row, target); }
    std::string& text(const SettingRow& row) { return settingText(row, target); }

    ProfileEnv env;
    SettingTarget target{options(), settings()};
};

std::vector<const SettingRow*> rowsWhere(const std::function<bool(const SettingRow&)>& keep) {
    std::vector<const SettingRow*> out;
    for (const SettingRow& row : settingRows())
        if (row.field && keep(row)) out.push_back(&row);
    return out;
}

bool isText(const SettingRow& row) { return row.kind == SettingKind::Text; }

TEST_F(SettingsStore, MissingFileGivesTheDefaultsOfTheListAndCreatesNothing) {
    EXPECT_EQ(Settings().keyMappingFile, "ZOL.KEY");  // before any file is read too
    loadProfile(env);
    for (const SettingRow* row : rowsWhere([](const SettingRow&) { return true; })) {
        if (isText(*row)) EXPECT_EQ(text(*row), row->defText) << row->key;
        else EXPECT_EQ(number(*row), row->def) << row->key;
    }
    // The profile's defaults differ from the engine's own on purpose.
    EXPECT_NE(EditOptions{}.autoIndentUsingTabs, options().autoIndentUsingTabs);
    EXPECT_NE(EditOptions{}.cursorThroughTabs, options().cursorThroughTabs);
    EXPECT_FALSE(exists("zol.ini"));
}

auto placement(const WindowPlacement& w) { return std::tuple(w.x, w.y, w.width, w.height, w.maximized); }

TEST_F(SettingsStore, WindowIsPulledOntoTheScreen) {
    load("[Settings]\nWindow=5000 5000 600 380\n");
    EXPECT_EQ(placement(settings().window), std::tuple(50, 50, 600, 380, false));
    env.screenWidth = 1600;
    EXPECT_EQ(placement(windowFromText("1000 739 300 200 1", env)), std::tuple(1000, 50, 300, 200, true));
    EXPECT_EQ(placement(windowFromText("1570 738 300 200", env)), std::tuple(1570, 738, 300, 200, false));
    EXPECT_EQ(placement(windowFromText("1 2 3", env)),
              std::tuple(kDefaultWindowPos, kDefaultWindowPos, 600, 380, false));
}

// Every range the loader corrects by: both bounds are kept, one step beyond gives the
// row's correction.
TEST_F(SettingsStore, BoundsAreKeptAndOneBeyondIsCorrected) {
    const auto ranged = rowsWhere([](const SettingRow& r) { return !isText(r) && r.load != LoadRule::Keep; });
    ASSERT_GE(ranged.size(), 9u);
    auto corrected = [](const SettingRow& r, int beyond) {
        if (r.load == LoadRule::Floor) return std::max(beyond, r.minimum);  // no upper bound
        return r.load == LoadRule::ToMaximum ? r.maximum : r.load == LoadRule::ToMinimum ? r.minimum : r.def;
    };
    for (int bound : {0, 1}) {
        auto value = [bound](const SettingRow& r) { return bound ? r.maximum : r.minimum; };
        loadRows(ranged, [&](const SettingRow& r) { return std::to_string(value(r)); });
        for (const SettingRow* r : ranged) EXPECT_EQ(number(*r), value(*r)) << r->key << " kept";
        auto beyond = [bound](const SettingRow& r) { return bound ? r.maximum + 1 : r.minimum - 1; };
        loadRows(ranged, [&](const SettingRow& r) { return std::to_string(beyond(r)); });
        for (const SettingRow* r : ranged)
            EXPECT_EQ(number(*r), corrected(*r, beyond(*r))) << r->key << " " << beyond(*r);
    }
}

TEST_F(SettingsStore, DeliberateCorrectionsAndNarrowNumbers) {
    load("[Editor]\nTabSize=21\nUndoLevels=0\nAutoSaveEvery=121\nWordWrapColumn=40000\nLanguage=-1\n"
         "[Settings]\nBtnBarStyle=0\nFontCharSet=257\n");
    const EditOptions& o = options();
    // 40000 is negative in 16 bits.
    EXPECT_EQ(std::tuple(o.tabSize, o.undoLevels, o.autoSaveEvery, o.wordWrapColumn), std::tuple(2, 384, 10, 4));
    EXPECT_EQ(std::tuple(settings().language, settings().btnBarStyle, settings().fontCharSet), std::tuple(1, -1, 1));
}

// Flags keep bit 0 only; texts are cut to their buffers.
TEST_F(SettingsStore, ValuesAreReadAsTheirKindSays) {
    const auto read = rowsWhere([](const SettingRow& r) {
        return r.kind == SettingKind::Flag || (isText(r) && r.load == LoadRule::Keep);
    });
    for (int bit : {0, 1}) {
        loadRows(read, [bit](const SettingRow& r) { return isText(r) ? std::string(300, 'w') : std::to_string(bit + 2); });
        for (const SettingRow* r : read) {
            if (isText(*r)) EXPECT_EQ(text(*r), std::string(r->size - 1, 'w')) << r->key;
            else EXPECT_EQ(number(*r), bit) << r->key;
        }
    }
    // An empty quoted value is empty: neither the default nor two quotes.
    load("[Settings]\nFontName=\"\"\n[Editor]\nNewFileExtension=\"\"\nIncludeDirs=''\n");
    EXPECT_EQ(settings().fontName + settings().newFileExtension + settings().includeDirs, "");
}

TEST_F(SettingsStore, TextRules) {
    load("[Editor]\nNewFileExtension=a*b\nKeyMappingFile=C:\\keys\\my.key\n");
    EXPECT_EQ(settings().newFileExtension, "txt");
    EXPECT_EQ(settings().keyMappingFile, "my.key");
    load("[Editor]\nNewFileExtension=\nKeyMappingFile=\n");
    EXPECT_EQ(settings().newFileExtension, "");
    EXPECT_EQ(settings().keyMappingFile, "ZOL.KEY");
    load("[Editor]\nKeyMappingFile=/" + std::string(300, 'd') + "/k.key\n");
    EXPECT_EQ(settings().keyMappingFile, "k.key");
    EXPECT_EQ(keyFileNameFromPath("/home/me/keys/" + std::string(40, 'k')), std::string(31, 'k'));
    // "Never" and "Newer" fill one value: "Never" wins, and when missing empties it.
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

TEST_F(SettingsStore, MultiFindListsTakeWhatTheFileGives) {
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
        EXPECT_TRUE(setWordWrapMethod(static_cast<int>(options().wordWrapMethod)));
        EXPECT_FALSE(settings().keyMappingFile.empty());
        EXPECT_LT(settings().keyMappingFile.size(), kKeyFileNameSize);
        EXPECT_TRUE(settings().window.x <= env.screenWidth - 30 || settings().window.x == 50);
    }
    // The user's file is read, never rewritten by loading.
    std::string before = get("zol.ini");
    loadProfile(env);
    EXPECT_EQ(get("zol.ini"), before);
}

// A legal value unlike the default, for every row that saving writes from memory.
std::string otherValue(const SettingRow& r) {
    if (r.kind == SettingKind::Text) return r.load == LoadRule::FileNamePart ? "mine.key" : "c";
    if (r.kind == SettingKind::Flag) return r.def ? "0" : "1";
    if (r.minimum != kNoMinimum && r.minimum != r.def) return std::to_string(r.minimum);
    return std::to_string(r.maximum != kNoMaximum ? r.maximum : r.def + 1);
}

TEST_F(SettingsStore, RoundTrip) {
    const auto saved = rowsWhere([](const SettingRow& r) {
        return r.save != SaveRule::Never && r.save != SaveRule::AsInFile;
    });
    loadProfile(env);
    for (const SettingRow* r : saved) {
        if (isText(*r)) text(*r) = otherValue(*r);
        else setSettingNumber(*r, target, std::stoi(otherValue(*r)));
    }
    settings().window = {20, 30, 800, 500, true};
    const std::vector<std::string> filters = settings().multiFindFileFilters;
    ASSERT_TRUE(saveProfile(true));
    settings() = Settings();
    options() = EditOptions();
    flushProfileCache();
    loadProfile(env);
    for (const SettingRow* r : saved) {
        if (isText(*r)) EXPECT_EQ(text(*r), otherValue(*r)) << r->key;
        else EXPECT_EQ(std::to_string(number(*r)), otherValue(*r)) << r->key;
    }
    EXPECT_EQ(placement(settings().window), std::tuple(20, 30, 800, 500, true));
    EXPECT_EQ(settings().multiFindFileFilters, filters);
}

TEST_F(SettingsStore, SavingKeepsWhatItDoesNotOwn) {
    load("; my notes\n[UserTools]\nMenuText1=Make\n\n[Settings]\nGradientCaption=3\nCustom=keep\nLanguageID=70000\n"
         "[Editor]\nNeverWordWrapFileExt=c\n");
    settings().gradientCaption = 7;
    ASSERT_TRUE(saveProfile(true));
    std::string after = get("zol.ini");
    EXPECT_EQ(after.substr(0, 40), "; my notes\n[UserTools]\nMenuText1=Make\n\n[");
    EXPECT_EQ(getProfileInt("Settings", "GradientCaption", 0, kSettingsFile), 3);
    EXPECT_EQ(getProfileInt("Settings", "LanguageID", 0, kSettingsFile), 70000 & 0xFFFF);
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

TEST(SettingsReference, CommittedCopyIsWhatTheListGives) {
    std::ifstream in(std::filesystem::path(ZOLDER_SOURCE_DIR) / "docs" / "settings.md", std::ios::binary);
    const std::string committed{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    EXPECT_TRUE(committed == settingsReference())
        << "docs/settings.md differs from the settings list; regenerate it with "
           "cmake --build build --target settings_doc";
}

}  // namespace
}  // namespace zol
