// The shipped key table; that its keys reach their commands the editing cases show.
#include <gtest/gtest.h>

#include <filesystem>

#include "config/default_keys.h"
#include "config/keyfile.h"
#include "script/macro_section.h"
#include "tests/support/files.h"

namespace zol {
namespace {

TEST(DefaultKeys, EveryRowIsUsedAndFits) {
    std::vector<std::string> problems;
    const KeyMap map = defaultKeyMap(&problems);
    EXPECT_TRUE(problems.empty()) << problems.front();
    size_t entries = 0;
    for (const auto& t : map.tables) entries += t.size();
    EXPECT_EQ(entries, defaultKeyRows().size()) << "no two rows bind the same key";
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
