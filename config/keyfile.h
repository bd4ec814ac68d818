// The key file (magic "ZOLCFG_1"): the key map and the keystroke macros, kept in the
// home folder under the "KeyMappingFile" name.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "config/keymap.h"
#include "script/macros.h"

namespace zol {

constexpr char kKeyFileMagic[] = "ZOLCFG_1";  // 8 bytes in the file, no terminator
constexpr uint32_t kKeyMapSectionOffset = 20;
constexpr char kDefaultKeyFile[] = "DEFKEY.ZOL";

enum class KeyFileStatus {
    Ok,
    NotCompatible,  // the magic is wrong: nothing was taken
    ReadError,      // the file ends early or points past its end: nothing was taken
    NoMemory,       // everything was taken except the steps of some macros
};

// The bytes of a key file holding map and table.
std::string keyFileBytes(const KeyMap& map, const MacroTable& table);
// Reads a key file's bytes into map and table. They are only changed when the result
// is Ok or NoMemory.
KeyFileStatus parseKeyFile(std::string_view bytes, KeyMap& map, MacroTable& table);

// The key file's full path.
std::string keyFilePath();

// Loads the key file into the program's key map and macros; a missing file changes
// nothing. Failures are reported to the user. True when the file was taken.
bool loadKeyFile();
// Writes the program's key map and macros; failures are reported. True on success.
bool saveKeyFile();
// Copies DEFKEY.ZOL over the key file and loads it.
bool resetKeyFile();

}  // namespace zol
