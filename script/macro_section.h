// The macros' section of the key file: a version word, the number of macros, then per
// macro its name and description fields, command number, step count and steps, all
// little-endian 16-bit words.
#pragma once
#include <string>
#include <string_view>

#include "config/keyfile.h"
#include "script/macros.h"

namespace zol {

std::string macroSectionBytes(const MacroTable& table);
// Empties every slot, then takes the macros of the section; a macro whose command
// number is no macro slot is skipped with its steps, and so are the steps of a macro
// there is no memory for (NoMemory). The table changes only when the result is Ok or
// NoMemory: ReadError when the section ends early.
KeyFileStatus readMacroSection(std::string_view section, MacroTable& table);

// A whole key file holding map and table, and the reverse: map and table change only
// when the result is Ok or NoMemory.
std::string keyFileBytes(const KeyMap& map, const MacroTable& table);
KeyFileStatus parseKeyFile(std::string_view bytes, KeyMap& map, MacroTable& table);

}  // namespace zol
