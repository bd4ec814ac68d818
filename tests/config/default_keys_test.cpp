#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "config/default_keys.h"
#include "config/keyfile.h"
#include "engine/document.h"
#include "engine/executor.h"

namespace zol {
namespace {

std::string readFile(const std::filesystem::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

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

TEST(DefaultKeys, TheKeysEveryDesktopEditorHas) {
    const KeyMap map = defaultKeyMap();
    const std::pair<const char*, const char*> expected[] = {
        {"Ctrl+N", "NewFile"},          {"Ctrl+O", "OpenFile"},         {"Ctrl+S", "SaveFile"},
        {"Ctrl+Z", "Undo"},             {"Ctrl+Y", "Redo"},             {"Ctrl+X", "Cut"},
        {"Ctrl+C", "Copy"},             {"Ctrl+V", "Paste"},            {"Ctrl+A", "SelectAll"},
        {"Ctrl+F", "Find"},             {"F3", "FindNext"},             {"Ctrl+H", "Replace"},
        {"Ctrl+G", "GoToLine"},         {"Home", "LineStart"},          {"End", "LineEnd"},
        {"Ctrl+Home", "TextStart"},     {"Ctrl+End", "TextEnd"},        {"PageUp", "PageUp"},
        {"PageDown", "PageDown"},       {"Shift+Left", "LeftSelect"},   {"Ctrl+Right", "WordRight"},
        {"Ctrl+Shift+Left", "WordLeftSelect"},                          {"Shift+Down", "DownSelect"},
        {"Ctrl+Backspace", "DeleteWordBack"},                           {"Ctrl+Del", "DeleteWord"},
        {"Ins", "ToggleInsert"},        {"Enter", "NewLine"},           {"Tab", "Tab"},
        {"Shift+Tab", "PrevTabPos"},
        {"F2", "BookmarkNext"},         {"Shift+F2", "BookmarkPrev"},   {"Ctrl+F2", "BookmarkToggle"},
        {"Ctrl+M", "MatchPair"},        {"Ctrl+Shift+R", "RecordMacro"},
        {"Ctrl+Shift+E", "MacroStopRecorder"},                          {"Ctrl+Shift+P", "Macro"},
        {"Ctrl+K", "(waits for a second key)"},                         {"Ctrl+K B", "StartSelect"},
        {"Ctrl+K K", "EndSelect"},      {"Ctrl+K N", "UpperCase"},      {"Ctrl+K 3", "SetMark3"},
        {"Ctrl+Q 3", "GotoMark3"},      {"Ctrl+Q F", "Find"},
    };
    for (const auto& [keys, command] : expected) {
        EXPECT_EQ(commandOfKeys(map, keys), command) << keys;
    }
}

TEST(DefaultKeys, ShippedFileAndDocumentationFollowTheTable) {
    const std::filesystem::path shipped = std::filesystem::path(ZOLDER_BINARY).parent_path() / "data" / "DEFKEY.ZOL";
    EXPECT_EQ(readFile(shipped), keyFileBytes(defaultKeyMap(), MacroTable{}));

    const std::string doc = readFile(std::filesystem::path(ZOLDER_SOURCE_DIR) / "docs" / "keys.md");
    for (const DefaultKey& row : defaultKeyRows()) {
        if (std::string_view(row.command).starts_with("Prefix")) continue;
        const std::string line = "| " + std::string(row.keys) + " | `" + row.command + "` |";
        EXPECT_NE(doc.find(line), std::string::npos) << line;
    }
}

}  // namespace
}  // namespace zol
