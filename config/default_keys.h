// The shipped key map, built from one readable table (config/default_keys.inc).
#pragma once
#include <span>
#include <string>
#include <vector>

#include "config/keymap.h"

namespace zol {

struct DefaultKey {
    const char* keys;     // "Ctrl+N", or a prefix key, a blank and a second key
    const char* command;  // a command name, or "Prefix1".."Prefix6"
};

std::span<const DefaultKey> defaultKeyRows();

// The map of the table. A row that names an unknown key, command or prefix, or does
// not fit its table, is left out and described in problems (when given).
KeyMap defaultKeyMap(std::vector<std::string>* problems = nullptr);

}  // namespace zol
