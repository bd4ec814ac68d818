#include <gtest/gtest.h>

#include <cstring>

#include "config/keymap.h"
#include "engine/document.h"
#include "engine/executor.h"

namespace zol {
namespace {

constexpr uint16_t V = kVirtualKey, S = kShiftKey, C = kCtrlKey, A = kAltKey;
constexpr uint16_t kF5 = V | 0x74;

uint16_t id(const char* name) { return commandId(name, false); }

class Translate : public ::testing::Test {
protected:
    void SetUp() override {
        bindKey(map, 0, C | V | 'K', kPrefix1);
        bindKey(map, 0, C | V | 'Q', kPrefix1 + 1);
        bindKey(map, 0, kF5, kPrefix6);
        bindKey(map, 0, C | V | 'N', id("NewFile"));
        bindKey(map, 0, 'a', id("Undo"));  // never reached: plain characters are typed
        bindKey(map, 0, V | 0x09, id("Tab"));
        bindKey(map, 0, S | V | 0x09, id("BackTab"));
        bindKey(map, 1, V | 'B', id("StartSelect"));
        bindKey(map, 1, C | V | '1', id("SetMark1"));
        bindKey(map, 2, 'K', id("EndSelect"));
        bindKey(map, 6, V | 'X', id("Cut"));
    }
    uint16_t press(uint16_t key) { return translateKey(map, key, pending); }
    // What a sequence of keys runs, by name: "" for nothing, "(waiting)" while a prefix
    // table waits for its second key.
    std::string keys(std::initializer_list<uint16_t> sequence) {
        pending = 0;
        uint16_t command = 0;
        for (uint16_t key : sequence) command = press(key);
        return pending ? "(waiting)" : command ? commandName(command) : "";
    }

    KeyMap map;
    uint16_t pending = 0;
};

TEST_F(Translate, PlainCharactersAreTypedWithoutLookingUp) {
    EXPECT_EQ(keys({'a'}), "InsertChar");
    EXPECT_EQ(keys({0xE9}), "InsertChar");
    EXPECT_EQ(keys({C | V | 'N'}), "NewFile");
    EXPECT_EQ(keys({C | V | 'M'}), "");
}

TEST_F(Translate, SecondKeysIgnoreShiftAndCtrlOnLettersOnly) {
    EXPECT_EQ(keys({C | V | 'K'}), "(waiting)");
    for (uint16_t second : {V | 'B', S | V | 'B', C | V | 'B', C | S | V | 'B'})
        EXPECT_EQ(keys({C | V | 'K', second}), "StartSelect") << std::hex << second;
    EXPECT_EQ(keys({C | V | 'K', A | V | 'B'}), "") << "Alt stays part of the key";
    EXPECT_EQ(keys({C | V | 'K', C | V | '1'}), "SetMark1") << "a digit keeps its Ctrl";
    EXPECT_EQ(keys({C | V | 'K', V | '1'}), "");
    // A typed letter counts as its capital; a key the table lacks ends the sequence.
    EXPECT_EQ(keys({C | V | 'Q', 'k'}), "EndSelect");
    EXPECT_EQ(keys({C | V | 'Q', V | 'Z', 'k'}), "InsertChar");
}

TEST_F(Translate, PrefixSixIsTheCallersToOpen) {
    EXPECT_EQ(press(kF5), kPrefix6);
    EXPECT_EQ(pending, 0);
    Document doc;
    EXPECT_EQ(keyCommand(map, doc, kF5, pending), 0);
    EXPECT_EQ(pending, kPrefix6);
    EXPECT_EQ(keyCommand(map, doc, C | V | 'X', pending), id("Cut"));
    EXPECT_EQ(pending, 0);
    EXPECT_EQ(lookupPrefixKey(map, kPrefix6, V | 'X'), id("Cut"));
    EXPECT_EQ(lookupPrefixKey(map, kPrefix1, V | 'B'), id("StartSelect"));
    EXPECT_EQ(lookupPrefixKey(map, 0xFF00, V | 'B'), 0);
    EXPECT_EQ(lookupPrefixKey(map, 0xFF07, V | 'B'), 0);
}

TEST_F(Translate, TabOnASelectionIndentsTheBlock) {
    Document doc;
    EXPECT_EQ(keyCommand(map, doc, V | 0x09, pending), id("Tab"));
    EXPECT_EQ(keyCommand(map, doc, S | V | 0x09, pending), id("BackTab"));
    doc.selExists = true;
    doc.selEnd = makePos(1, 0);
    EXPECT_EQ(keyCommand(map, doc, V | 0x09, pending), id("IndentBlock"));
    EXPECT_EQ(keyCommand(map, doc, S | V | 0x09, pending), id("UnindentBlock"));
}

TEST(KeyTables, HoldTheirCapacityAndRebindInPlace) {
    KeyMap map;
    for (uint16_t k = 0; k < 128; ++k) ASSERT_TRUE(bindKey(map, 0, V | k, 1));
    EXPECT_FALSE(bindKey(map, 0, V | 200, 1));
    EXPECT_TRUE(bindKey(map, 0, V | 5, 7)) << "a bound key changes even when the table is full";
    uint16_t pending = 0;
    EXPECT_EQ(translateKey(map, V | 5, pending), 7);
    for (int t = 1; t < kKeyTables; ++t) {
        for (uint16_t k = 0; k < 36; ++k) ASSERT_TRUE(bindKey(map, t, V | k, 1));
        EXPECT_FALSE(bindKey(map, t, V | 100, 1)) << t;
    }
    EXPECT_TRUE(unbindKey(map, 0, V | 5));
    EXPECT_TRUE(bindKey(map, 0, V | 200, 1));
}

TEST(KeyNames, ModifiersComeInAFixedOrder) {
    EXPECT_EQ(keyName(A | C | S | V | 0x74), "Alt+Ctrl+Shift+F5");
    EXPECT_EQ(keyName(S | V | 0x69), "Shift+NumPad9");
    EXPECT_EQ(keyName('a'), "") << "plain characters have no key name";
    char buf[8];
    std::memset(buf, 'x', sizeof buf);
    EXPECT_EQ(keyName('a', buf, sizeof buf), 0u);
    EXPECT_STREQ(buf, "");
    EXPECT_EQ(keyName(C | V | 0x74, buf, 4), 3u);
    EXPECT_STREQ(buf, "Ctr");
}

TEST(KeyNames, EveryNameReadsBackAsItsKey) {
    int named = 0;
    for (uint16_t base = 0x100; base <= 0x1FF; ++base) {
        for (uint16_t mods = 0; mods < 8; ++mods) {
            const uint16_t key = static_cast<uint16_t>(base | (mods << 9));
            const std::string name = keyName(key);
            if (name.empty()) continue;
            ++named;
            EXPECT_EQ(parseKeyName(name), key) << name;
        }
    }
    EXPECT_EQ(named, (26 + 10 + 12 + 14 + 10 + 5 + 1) * 8);
    EXPECT_EQ(parseKeyName("shift+ctrl+pagedown"), C | S | V | 0x22);
    for (const char* bad : {"", "Ctrl+", "Ctrl+Ctrl+A", "Hyper+A", "F13", "F0", "F01", "NumPad10", "AB", "Ctrl+K B"})
        EXPECT_EQ(parseKeyName(bad), 0) << bad;
}

TEST(KeyNames, OfACommandListPrimaryKeysFirst) {
    KeyMap map;
    const uint16_t cut = id("Cut");
    bindKey(map, 1, V | 'Y', cut);  // prefix table without a key that opens it: not shown
    bindKey(map, 2, V | 'X', cut);
    bindKey(map, 0, C | V | 'Q', kPrefix1 + 1);
    bindKey(map, 0, C | V | 'X', cut);
    bindKey(map, 0, C | V | 0xDD, cut);  // no name
    bindKey(map, 0, S | V | 0x2E, cut);
    EXPECT_EQ(commandKeyNames(map, cut), (std::vector<std::string>{"Ctrl+X", "Shift+Del", "Ctrl+Q, X"}));

    char buf[32];
    EXPECT_EQ(commandKeyNames(map, cut, buf, sizeof buf), 3);
    EXPECT_EQ(std::string(buf, 28), std::string("Ctrl+X\0Shift+Del\0Ctrl+Q, X\0\0", 28));
    // Names stop when fewer than 3 bytes are left; the last one that starts may be cut.
    EXPECT_EQ(commandKeyNames(map, cut, buf, 9), 1);
    EXPECT_EQ(std::string(buf, 8), std::string("Ctrl+X\0\0", 8));
    EXPECT_EQ(commandKeyNames(map, cut, buf, 10), 2);
    EXPECT_EQ(std::string(buf, 10), std::string("Ctrl+X\0S\0\0", 10));
    EXPECT_EQ(commandKeyNames(map, id("Paste"), buf, sizeof buf), 0);
    EXPECT_EQ(buf[0], '\0');

    // The keys themselves, for whoever removes one; then the command loses them all,
    // the unreachable one too.
    const std::vector<BoundKey> keys = commandKeys(map, cut);
    ASSERT_EQ(keys.size(), 3u);
    EXPECT_EQ(keys[2].table, 2);
    EXPECT_EQ(keys[2].prefixKey, C | V | 'Q');
    EXPECT_EQ(boundCommand(map, 2, keys[2].key), cut);
    unbindCommand(map, cut);
    for (int t = 0; t < kKeyTables; ++t) EXPECT_EQ(boundCommand(map, t, V | 'Y') + boundCommand(map, t, C | V | 'X'), 0);
    EXPECT_EQ(boundCommand(map, 0, C | V | 'Q'), kPrefix1 + 1);
}

}  // namespace
}  // namespace zol
