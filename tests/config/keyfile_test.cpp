// The key file: its bytes, reading them back, damaged files, and the file in the home.
#include <gtest/gtest.h>

#include <filesystem>

#include "config/default_keys.h"
#include "config/keyfile.h"
#include "config/keymap_messages.h"
#include "config/settings.h"
#include "script/macro_section.h"
#include "tests/support/files.h"
#include "tests/support/temp_home.h"

namespace zol {
namespace {

std::string bytes(std::initializer_list<int> list) { return std::string(list.begin(), list.end()); }
std::string zeros(size_t n) { return std::string(n, '\0'); }

Macro macro(const char* name, std::vector<MacroStep> steps, const char* description = "") {
    return Macro{true, name, description, std::move(steps)};
}

// A key map that differs from what the tests load.
KeyMap sentinelMap() {
    KeyMap map;
    bindKey(map, 0, kVirtualKey | 'Z', 42);
    return map;
}

TEST(KeyFileBytes, SmallFileHasTheDocumentedLayout) {
    KeyMap map;
    bindKey(map, 0, kCtrlKey | kVirtualKey | 'N', 255);
    bindKey(map, 1, kVirtualKey | 'B', 70);
    MacroTable table;
    table.slots[0] = macro("M", {{2, 'a'}, {30, 0}}, "d");
    const std::string expected = "ZOLCFG_1" + bytes({0, 0, 0, 0, 20, 0, 0, 0, 46, 0, 0, 0}) +
                                 bytes({1, 0, 6, 0, 1, 0, 0x4E, 0x05, 0xFF, 0}) +  // primary: Ctrl+N
                                 bytes({1, 0, 0x42, 0x01, 70, 0}) +                // prefix 1: B
                                 zeros(10) +                                       // prefixes 2..6 empty
                                 bytes({1, 0, 1, 0}) + "M" + zeros(31) + "d" + zeros(79) +
                                 bytes({0xE8, 0x03, 2, 0, 2, 0, 'a', 0, 30, 0, 0, 0});
    EXPECT_EQ(keyFileBytes(map, table), expected);

    // Nothing at all: an 18-byte key-map section and the macros at 38.
    const std::string empty = keyFileBytes(KeyMap{}, MacroTable{});
    EXPECT_EQ(empty, "ZOLCFG_1" + bytes({0, 0, 0, 0, 20, 0, 0, 0, 38, 0, 0, 0, 1, 0, 6, 0}) + zeros(14) +
                         bytes({1, 0, 0, 0}));
}

TEST(KeyFileBytes, ReadBackGivesTheSameTablesAndMacros) {
    KeyMap map = defaultKeyMap();
    bindKey(map, 6, kVirtualKey | 'Q', 1);
    MacroTable table;
    table.slots[0] = macro("Macro1", {{2, 'x'}, {436, 12}, {220, '#'}}, "types an x");
    table.slots[7] = macro("Empty", {});
    table.slots[149] = macro("0123456789012345678901234567890", {{1003, 0}, {0xFFFF, 0xFFFF}},
                             "a description of seventy-nine characters ..................................");
    const std::string file = keyFileBytes(map, table);

    KeyMap readMap = sentinelMap();
    MacroTable readTable;
    readTable.slots[3] = macro("stale", {});
    ASSERT_EQ(parseKeyFile(file, readMap, readTable), KeyFileStatus::Ok);
    EXPECT_EQ(readMap.tables, map.tables);
    EXPECT_EQ(keyFileBytes(readMap, readTable), file) << "the same macros, and no stale one";

    // Names too long for their fields are cut, never spill into the next field.
    table.slots[7].name = std::string(40, 'n');
    table.slots[7].description = std::string(90, 'd');
    ASSERT_EQ(parseKeyFile(keyFileBytes(map, table), readMap, readTable), KeyFileStatus::Ok);
    EXPECT_EQ(readTable.slots[7].name, std::string(31, 'n'));
    EXPECT_EQ(readTable.slots[7].description, std::string(79, 'd'));
}

class BadKeyFile : public ::testing::Test {
protected:
    void SetUp() override {
        bindKey(good, 0, kCtrlKey | kVirtualKey | 'K', kPrefix1);
        bindKey(good, 1, kVirtualKey | 'B', 70);
        goodTable.slots[0] = macro("one", {{2, 'a'}});
        goodTable.slots[1] = macro("two", {{30, 0}, {31, 0}});
        file = keyFileBytes(good, goodTable);
    }
    KeyFileStatus parse(const std::string& bytes) {
        map = sentinelMap();
        table = MacroTable{};
        table.slots[5] = macro("kept", {{1, 0}});
        return parseKeyFile(bytes, map, table);
    }
    void expectUntouched() {
        EXPECT_EQ(map.tables, sentinelMap().tables);
        EXPECT_TRUE(table.slots[5].used);
    }
    static void put16(std::string& s, size_t at, uint16_t v) {
        s[at] = static_cast<char>(v & 0xFF);
        s[at + 1] = static_cast<char>(v >> 8);
    }

    KeyMap good, map;
    MacroTable goodTable, table;
    std::string file;
};

TEST_F(BadKeyFile, ForeignOrTruncatedFilesChangeNothing) {
    EXPECT_EQ(parse(""), KeyFileStatus::NotCompatible);
    EXPECT_EQ(parse("ZOLCFG_"), KeyFileStatus::NotCompatible);
    std::string other = file;
    other[7] = '2';
    EXPECT_EQ(parse(other), KeyFileStatus::NotCompatible);
    expectUntouched();
    for (size_t len = 8; len < file.size(); ++len) {
        ASSERT_EQ(parse(file.substr(0, len)), KeyFileStatus::ReadError) << len;
        expectUntouched();
    }
}

// Which macros a file's section brings back the macro tests show.
TEST_F(BadKeyFile, CountsAndOffsetsPastTheEndAreReadErrors) {
    const size_t macrosAt = 20 + 18 + 2 * 4;
    const std::pair<size_t, uint16_t> corruptions[] = {
        {24, 5000},                // primary count
        {18, 0x7FFF},              // macro offset
        {14, 0xFFFF},              // key-map offset
        {macrosAt + 2, 3},         // three macros, two present
        {macrosAt + 4 + 114, 60000},  // steps of the first macro
    };
    for (const auto& [at, value] : corruptions) {
        std::string s = file;
        put16(s, at, value);
        EXPECT_EQ(parse(s), KeyFileStatus::ReadError) << at;
        expectUntouched();
    }
}

TEST_F(BadKeyFile, EntriesPastATablesCapacityAreReadOver) {
    KeyMap big;
    for (uint16_t k = 0; k < 40; ++k) big.tables[3].push_back({static_cast<uint16_t>(kVirtualKey | k), 1});
    ASSERT_EQ(parse(keyFileBytes(big, goodTable)), KeyFileStatus::Ok);
    EXPECT_EQ(map.tables[3].size(), 36u);
    EXPECT_EQ(macroSectionBytes(table), macroSectionBytes(goodTable));
}

class KeyFileOnDisk : public test::TempHome {
protected:
    void SetUp() override {
        TempHome::SetUp();
        settings().keyMappingFile = "ZOL.KEY";
        keyMap() = sentinelMap();
        macros() = MacroTable{};
        setKeyFileMacros({[] { return macroSectionBytes(macros()); },
                          [](std::string_view section) { return readMacroSection(section, macros()); }});
    }
    void TearDown() override {
        setKeyFileMacros({});
        keyMap() = KeyMap{};
        macros() = MacroTable{};
        setKeyMapChanged(false);
        TempHome::TearDown();
    }
};

TEST_F(KeyFileOnDisk, SaveAndLoadUnderTheConfiguredName) {
    ASSERT_TRUE(setKeyMappingFile("C:\\keys\\my.key"));
    macros().slots[2] = macro("two", {{2, 'q'}});
    setKeyMapChanged(true);
    ASSERT_TRUE(saveKeyFile());
    EXPECT_FALSE(keyMapChanged());
    EXPECT_EQ(get("my.key"), keyFileBytes(sentinelMap(), macros()));
    EXPECT_FALSE(exists("my.key.new"));

    keyMap() = KeyMap{};
    macros() = MacroTable{};
    EXPECT_TRUE(loadKeyFile());
    EXPECT_EQ(keyMap().tables, sentinelMap().tables);
    EXPECT_EQ(macroById(macros(), 1002)->name, "two");
    EXPECT_TRUE(shell_.messages.empty());
}

TEST_F(KeyFileOnDisk, LoadFailuresAreReportedAndKeepTheMap) {
    EXPECT_FALSE(loadKeyFile());
    EXPECT_TRUE(shell_.messages.empty()) << "a missing key file is not an error";

    put("ZOL.KEY", "ZOLCFG_0 and more");
    EXPECT_FALSE(loadKeyFile());
    put("ZOL.KEY", keyFileBytes(KeyMap{}, MacroTable{}).substr(0, 30));
    EXPECT_FALSE(loadKeyFile());
    put("ZOL.KEY", keyFileBytes(KeyMap{}, MacroTable{}));
    std::filesystem::resize_file(path("ZOL.KEY"), keymsg::kMaxKeyFileBytes + 1);
    EXPECT_FALSE(loadKeyFile());
    EXPECT_EQ(shell_.messages, (std::vector<std::string>{keymsg::kNotCompatible, keymsg::kReadError, keymsg::kReadError}));
    EXPECT_EQ(keyMap().tables, sentinelMap().tables);
}

// That every failing call of a save keeps the old file, save_faults_test.cpp walks.
TEST_F(KeyFileOnDisk, SaveFailuresAreReportedAndKeepTheOldFile) {
    // A folder where the key file should be: it cannot be opened as a file.
    std::filesystem::create_directories(path("ZOL.KEY/inside"));
    EXPECT_FALSE(saveKeyFile());
    EXPECT_TRUE(std::filesystem::is_directory(path("ZOL.KEY/inside")));
    // A home that cannot hold files.
    put("file", "x");
    setHomeDir(dir + "file/sub");
    EXPECT_FALSE(saveKeyFile());
    ASSERT_EQ(shell_.messages.size(), 2u);
    EXPECT_EQ(shell_.messages[0].rfind("Cannot open " + dir + "ZOL.KEY file.", 0), 0u) << shell_.messages[0];
    EXPECT_EQ(shell_.messages[1].rfind("Cannot open " + dir + "file/sub/ZOL.KEY file.", 0), 0u) << shell_.messages[1];
    // A write that fails halfway is told as a read error.
    setHomeDir(dir);
    std::filesystem::remove_all(path("ZOL.KEY"));
    put("ZOL.KEY", "old");
    {
        const test::FileSizeLimit full(10);
        EXPECT_FALSE(saveKeyFile());
    }
    EXPECT_EQ(get("ZOL.KEY"), "old");
    EXPECT_EQ(shell_.messages.back(), keymsg::kReadError);
}

TEST_F(KeyFileOnDisk, ResetCopiesTheDefaultFileAndLoadsIt) {
    EXPECT_FALSE(resetKeyFile());
    EXPECT_EQ(shell_.messages, std::vector<std::string>{keymsg::kCannotOpenDefault});

    KeyMap defaults;
    bindKey(defaults, 0, kVirtualKey | 0x70, 300);
    put("DEFKEY.ZOL", keyFileBytes(defaults, MacroTable{}));
    macros().slots[0] = macro("mine", {});
    ASSERT_TRUE(resetKeyFile());
    EXPECT_EQ(get("ZOL.KEY"), get("DEFKEY.ZOL"));
    EXPECT_EQ(keyMap().tables, defaults.tables);
    EXPECT_FALSE(macros().slots[0].used);

    std::filesystem::remove(path("ZOL.KEY"));
    std::filesystem::create_directories(path("ZOL.KEY/inside"));
    EXPECT_FALSE(resetKeyFile());
    EXPECT_EQ(shell_.messages.back(), keymsg::kResetFailed);

    // A DEFKEY.ZOL of another version is not copied.
    std::filesystem::remove_all(path("ZOL.KEY"));
    put("ZOL.KEY", "mine");
    put("DEFKEY.ZOL", "ZOLCFG_0");
    EXPECT_FALSE(resetKeyFile());
    EXPECT_EQ(shell_.messages.back(), keymsg::kNotCompatible);
    EXPECT_EQ(get("ZOL.KEY"), "mine");
    KeyMap read = sentinelMap();
    EXPECT_FALSE(readDefaultKeyMap(read));
    EXPECT_EQ(read.tables, sentinelMap().tables);
}

}  // namespace
}  // namespace zol
