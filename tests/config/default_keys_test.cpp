#include <gtest/gtest.h>

#include <filesystem>

#include "config/default_keys.h"
#include "config/keyfile.h"
#include "script/macro_section.h"
#include "engine/document.h"
#include "engine/executor.h"
#include "tests/support/files.h"

namespace zol {
namespace {

// The command a key sequence ("Ctrl+K B") runs in map.
std::string commandOfKeys(const KeyMap& map, std::string_view keys) {
    uint16_t pending = 0, command = 0;
    Document doc;
    for (size_t at = 0; at <= keys.size();) {
        const size_t blank = std::min(keys.find(' ', at), keys.size());
        command = keyCommand(map, doc, parseKeyName(keys.substr(at, blank - at)), pending);
        at = blank + 1;
    }
    return pending ? "(waits for a second key)" : commandName(command);
}

TEST(DefaultKeys, EveryRowIsUsedAndFits) {
    std::vector<std::string> problems;
    const KeyMap map = defaultKeyMap(&problems);
    EXPECT_TRUE(problems.empty()) << problems.front();
    size_t entries = 0;
    for (const auto& t : map.tables) entries += t.size();
    EXPECT_EQ(entries, defaultKeyRows().size()) << "no two rows bind the same key";
}

// One key of each kind the translation must get right: plain, modified, function keys,
// and two-key sequences through both prefix tables.
TEST(DefaultKeys, EachKindOfKeyReachesItsCommand) {
    const KeyMap map = defaultKeyMap();
    const std::pair<const char*, const char*> expected[] = {
        {"Ctrl+S", "SaveFile"},         {"F3", "FindNext"},           {"Home", "LineStart"},
        {"Shift+Tab", "PrevTabPos"},    {"Ctrl+Shift+Left", "WordLeftSelect"},
        {"Ctrl+Shift+R", "RecordMacro"}, {"Ctrl+K", "(waits for a second key)"},
        {"Ctrl+K B", "StartSelect"},    {"Ctrl+K 3", "SetMark3"},     {"Ctrl+Q F", "Find"},
    };
    for (const auto& [keys, command] : expected) {
        EXPECT_EQ(commandOfKeys(map, keys), command) << keys;
    }
}

TEST(DefaultKeys, ShippedFileAndDocumentationFollowTheTable) {
    const std::filesystem::path shipped = std::filesystem::path(ZOLDER_BINARY).parent_path() / "data" / "DEFKEY.ZOL";
    EXPECT_EQ(test::readBytes(shipped), keyFileBytes(defaultKeyMap(), MacroTable{}));

    const std::string doc = test::readBytes(std::filesystem::path(ZOLDER_SOURCE_DIR) / "docs" / "keys.md");
    for (const DefaultKey& row : defaultKeyRows()) {
        if (std::string_view(row.command).starts_with("Prefix")) continue;
        const std::string line = "| " + std::string(row.keys) + " | `" + row.command + "` |";
        EXPECT_NE(doc.find(line), std::string::npos) << line;
    }
}

}  // namespace
}  // namespace zol
