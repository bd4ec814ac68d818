// The key map: the primary table and six prefix tables that turn key words into
// editor commands, and the names shown for keys.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zol {

struct Document;

// Key word bits. Bits 0-7 hold a virtual-key code when kVirtualKey is set, else a
// character code 32..255.
constexpr uint16_t kVirtualKey = 0x100;
constexpr uint16_t kShiftKey = 0x200;
constexpr uint16_t kCtrlKey = 0x400;
constexpr uint16_t kAltKey = 0x800;

// Command ids that stand for prefix tables 1..6.
constexpr uint16_t kPrefix1 = 0xFF01;
constexpr uint16_t kPrefix5 = 0xFF05;
constexpr uint16_t kPrefix6 = 0xFF06;
constexpr int kKeyTables = 7;  // the primary table, then prefix tables 1..6
constexpr char kPrefixWord[] = "Prefix";

struct KeyMapEntry {
    uint16_t key;
    uint16_t command;  // an editor command id or a prefix marker
};

struct KeyMap {
    // tables[0] is the primary table, tables[n] prefix table n. Each holds at most
    // keyTableCapacity(n) entries; lookups take the first entry of a key.
    std::array<std::vector<KeyMapEntry>, kKeyTables> tables;
};

bool operator==(const KeyMapEntry& a, const KeyMapEntry& b);

size_t keyTableCapacity(int table);
// Table index of a prefix marker (1..6), or 0 when the id is no marker.
int prefixTableOf(uint16_t marker);
// "Prefix1".."Prefix6", the names that stand for the markers where commands are named;
// empty when the id is no marker.
std::string prefixName(uint16_t marker);

// The program's key map.
KeyMap& keyMap();

// Turns one keystroke into a command. pending is the prefix waiting for its second
// key (0 for none) and is updated. A key bound to prefixes 1..5 yields 0 and becomes
// pending. kPrefix6 comes back as a command: whoever reads keys decides (see
// keyCommand). A plain character without a prefix is always InsertChar (2).
uint16_t translateKey(const KeyMap& map, uint16_t key, uint16_t& pending);

// What a window does with a keystroke: translateKey, where kPrefix6 makes prefix
// table 6 pending, and Tab or BackTab on a selection become IndentBlock or
// UnindentBlock. While a prefix is pending the shell passes letters as virtual keys.
uint16_t keyCommand(const KeyMap& map, const Document& doc, uint16_t key, uint16_t& pending);

// The command bound to key in the prefix table of marker; 0 when none or when the
// marker is not one of kPrefix1..kPrefix6.
uint16_t lookupPrefixKey(const KeyMap& map, uint16_t marker, uint16_t key);
// The command bound to key in table (0 the primary table); 0 when none.
uint16_t boundCommand(const KeyMap& map, int table, uint16_t key);

// A second key as a prefix table holds it: Shift and Ctrl do not matter on letters,
// and a typed letter counts as its capital.
uint16_t normaliseSecondKey(uint16_t key);

// Binds key in table (replacing its binding there); false when the table is full.
bool bindKey(KeyMap& map, int table, uint16_t key, uint16_t command);
// Removes every binding of key from table; false when there was none.
bool unbindKey(KeyMap& map, int table, uint16_t key);
// Removes every binding of command from every table.
void unbindCommand(KeyMap& map, uint16_t command);

// "Alt+Ctrl+Shift+F5" style name; empty when the key's base has no name.
std::string keyName(uint16_t key);
// The name cut to the buffer; returns its length, 0 (and an empty buffer) when the
// base has no name.
size_t keyName(uint16_t key, char* buffer, size_t size);
// The key word of a name as keyName writes it (modifiers in any order, any letter
// case); 0 when the text names no key.
uint16_t parseKeyName(std::string_view name);

// One key that runs a command: a primary-table key (prefixKey 0), or the second key of
// a sequence whose first key, prefixKey, opens the table.
struct BoundKey {
    int table;
    uint16_t prefixKey;
    uint16_t key;
};
// The first named primary key that opens prefix table (1..6); 0 when none does.
uint16_t prefixKeyOf(const KeyMap& map, int table);
// The named keys that reach command, primary-table keys first, in the order of
// commandKeyNames. A prefix table that no named primary key opens is left out.
std::vector<BoundKey> commandKeys(const KeyMap& map, uint16_t command);
// "Ctrl+D", or "Ctrl+K, B" for a sequence.
std::string boundKeyName(const BoundKey& bound);

// The names of the keys bound to command, primary-table keys first, each ended by a
// NUL; a prefix table's key reads "Ctrl+K, B". Names stop when fewer than 3 bytes
// of room remain; the list ends with an empty name. Returns the number of names.
int commandKeyNames(const KeyMap& map, uint16_t command, char* buffer, size_t size);
std::vector<std::string> commandKeyNames(const KeyMap& map, uint16_t command);

// The key map and macros changed since they were loaded or saved.
bool keyMapChanged();
void setKeyMapChanged(bool changed);

}  // namespace zol
