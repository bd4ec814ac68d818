#include "config/default_keys.h"

#include "engine/executor.h"
#include "engine/text_util.h"

namespace zol {
namespace {

const DefaultKey kRows[] = {
#include "config/default_keys.inc"
};

// "Prefix1".."Prefix6" as their markers, else the command's id; 0 when unknown.
uint16_t commandOf(std::string_view name) {
    for (uint16_t marker = kPrefix1; marker <= kPrefix6; ++marker)
        if (equalsNoCase(name, prefixName(marker))) return marker;
    return commandId(name, false);
}

// Adds one row; an empty text when it went in, else what is wrong with it.
std::string addRow(KeyMap& map, const DefaultKey& row) {
    const std::string_view keys(row.keys);
    const size_t blank = keys.find(' ');
    const uint16_t command = commandOf(row.command);
    if (command == 0) return "unknown command";
    const uint16_t first = parseKeyName(keys.substr(0, blank));
    if (first == 0) return "unknown key";
    int table = 0;
    uint16_t key = first;
    if (blank != std::string_view::npos) {
        for (const KeyMapEntry& e : map.tables[0])
            if (e.key == first) {
                table = prefixTableOf(e.command);
                break;
            }
        if (table == 0) return "the first key is no prefix key";
        key = parseKeyName(keys.substr(blank + 1));
        if (key == 0) return "unknown second key";
    }
    return bindKey(map, table, key, command) ? std::string() : "table full";
}

}  // namespace

std::span<const DefaultKey> defaultKeyRows() { return kRows; }

KeyMap defaultKeyMap(std::vector<std::string>* problems) {
    KeyMap map;
    for (const DefaultKey& row : kRows) {
        const std::string problem = addRow(map, row);
        if (!problem.empty() && problems)
            problems->push_back(std::string(row.keys) + " " + row.command + ": " + problem);
    }
    return map;
}

}  // namespace zol
