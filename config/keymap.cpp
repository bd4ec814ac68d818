#include "config/keymap.h"

#include <algorithm>
#include <cstring>

#include "config/keymap_messages.h"
#include "engine/command_table.h"
#include "engine/document.h"
#include "engine/selection.h"

namespace zol {
namespace {

constexpr uint16_t kInsertChar = idOf(Cmd::InsertChar), kTab = idOf(Cmd::Tab), kBackTab = idOf(Cmd::BackTab),
                   kIndentBlock = idOf(Cmd::IndentBlock), kUnindentBlock = idOf(Cmd::UnindentBlock);

bool changed = false;

const KeyMapEntry* findEntry(const std::vector<KeyMapEntry>& table, uint16_t key) {
    for (const KeyMapEntry& e : table)
        if (e.key == key) return &e;
    return nullptr;
}

}  // namespace

uint16_t normaliseSecondKey(uint16_t key) {
    if (key & kVirtualKey) {
        const uint16_t base = key & ~(kShiftKey | kCtrlKey);
        if (base >= (kVirtualKey | 'A') && base <= (kVirtualKey | 'Z')) return base;
        return key;
    }
    if (key >= 'a' && key <= 'z') return static_cast<uint16_t>(key - 'a' + 'A');
    return key;
}

bool operator==(const KeyMapEntry& a, const KeyMapEntry& b) { return a.key == b.key && a.command == b.command; }

size_t keyTableCapacity(int table) {
    if (table == 0) return keymsg::kPrimaryKeys;
    if (table == kKeyTables - 1) return keymsg::kPrefix6Keys;
    return table > 0 && table < kKeyTables ? keymsg::kPrefixKeys : 0;
}

int prefixTableOf(uint16_t marker) {
    return marker >= kPrefix1 && marker <= kPrefix6 ? marker - kPrefix1 + 1 : 0;
}

std::string prefixName(uint16_t marker) {
    const int table = prefixTableOf(marker);
    return table ? kPrefixWord + std::to_string(table) : std::string();
}

KeyMap& keyMap() {
    static KeyMap map;
    return map;
}

uint16_t translateKey(const KeyMap& map, uint16_t key, uint16_t& pending) {
    const int prefix = prefixTableOf(pending);
    pending = 0;
    if (prefix == 0 && !(key & kVirtualKey) && key >= 32 && key <= 255) return kInsertChar;
    const KeyMapEntry* e = findEntry(map.tables[prefix], prefix ? normaliseSecondKey(key) : key);
    if (!e) return 0;
    if (e->command >= kPrefix1 && e->command <= kPrefix5) {
        pending = e->command;
        return 0;
    }
    return e->command;
}

uint16_t keyCommand(const KeyMap& map, const Document& doc, uint16_t key, uint16_t& pending) {
    const uint16_t command = translateKey(map, key, pending);
    if (command == kPrefix6) {
        pending = kPrefix6;
        return 0;
    }
    if (hasSelection(doc)) {
        if (command == kTab) return kIndentBlock;
        if (command == kBackTab) return kUnindentBlock;
    }
    return command;
}

uint16_t lookupPrefixKey(const KeyMap& map, uint16_t marker, uint16_t key) {
    const int table = prefixTableOf(marker);
    if (table == 0) return 0;
    const KeyMapEntry* e = findEntry(map.tables[table], key);
    return e ? e->command : 0;
}

uint16_t boundCommand(const KeyMap& map, int table, uint16_t key) {
    if (table < 0 || table >= kKeyTables) return 0;
    const KeyMapEntry* e = findEntry(map.tables[table], key);
    return e ? e->command : 0;
}

bool bindKey(KeyMap& map, int table, uint16_t key, uint16_t command) {
    if (table < 0 || table >= kKeyTables) return false;
    std::vector<KeyMapEntry>& t = map.tables[table];
    for (KeyMapEntry& e : t) {
        if (e.key == key) {
            e.command = command;
            return true;
        }
    }
    if (t.size() >= keyTableCapacity(table)) return false;
    t.push_back({key, command});
    return true;
}

bool unbindKey(KeyMap& map, int table, uint16_t key) {
    if (table < 0 || table >= kKeyTables) return false;
    std::vector<KeyMapEntry>& t = map.tables[table];
    const size_t before = t.size();
    t.erase(std::remove_if(t.begin(), t.end(), [key](const KeyMapEntry& e) { return e.key == key; }), t.end());
    return t.size() != before;
}

void unbindCommand(KeyMap& map, uint16_t command) {
    for (std::vector<KeyMapEntry>& t : map.tables)
        t.erase(std::remove_if(t.begin(), t.end(), [command](const KeyMapEntry& e) { return e.command == command; }),
                t.end());
}

uint16_t prefixKeyOf(const KeyMap& map, int table) {
    const uint16_t marker = static_cast<uint16_t>(kPrefix1 + table - 1);
    if (prefixTableOf(marker) == 0) return 0;
    for (const KeyMapEntry& e : map.tables[0])
        if (e.command == marker && !keyName(e.key).empty()) return e.key;
    return 0;
}

std::vector<BoundKey> commandKeys(const KeyMap& map, uint16_t command) {
    std::vector<BoundKey> keys;
    for (const KeyMapEntry& e : map.tables[0])
        if (e.command == command && !keyName(e.key).empty()) keys.push_back({0, 0, e.key});
    for (int table = 1; table < kKeyTables; ++table) {
        const uint16_t prefix = prefixKeyOf(map, table);
        if (prefix == 0) continue;
        for (const KeyMapEntry& e : map.tables[table])
            if (e.command == command && !keyName(e.key).empty()) keys.push_back({table, prefix, e.key});
    }
    return keys;
}

std::string boundKeyName(const BoundKey& bound) {
    return bound.prefixKey ? keyName(bound.prefixKey) + ", " + keyName(bound.key) : keyName(bound.key);
}

std::vector<std::string> commandKeyNames(const KeyMap& map, uint16_t command) {
    std::vector<std::string> names;
    for (const BoundKey& k : commandKeys(map, command)) names.push_back(boundKeyName(k));
    return names;
}

int commandKeyNames(const KeyMap& map, uint16_t command, char* buffer, size_t size) {
    if (!buffer || size == 0) return 0;
    size_t used = 0;
    int count = 0;
    for (const std::string& name : commandKeyNames(map, command)) {
        if (size - used < 3) break;
        // Keep one byte for the empty name that ends the list.
        const size_t n = std::min(name.size(), size - used - 2);
        std::memcpy(buffer + used, name.data(), n);
        buffer[used + n] = '\0';
        used += n + 1;
        ++count;
    }
    buffer[used] = '\0';
    return count;
}

bool keyMapChanged() { return changed; }
void setKeyMapChanged(bool c) { changed = c; }

}  // namespace zol
