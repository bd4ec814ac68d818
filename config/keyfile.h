// The key file (magic "ZOLCFG_1"): the key map and the keystroke macros, kept in the
// home folder under the "KeyMappingFile" name. The macros sit above the key file: their
// section's format is theirs (script/macro_section.h), and the key file carries the
// section as bytes that it hands to them.
#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "config/keymap.h"

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

// Reads a macro section, the bytes from its offset to the end of the file, into the
// macros it is meant for, which change only when the result is Ok or NoMemory.
using MacroSectionReader = std::function<KeyFileStatus(std::string_view section)>;

// The bytes of a key file holding map and, behind it, the macro section.
std::string keyFileBytes(const KeyMap& map, std::string_view macroSection);
// Reads a key file's bytes into map and hands its macro section to readMacros. Map and
// macros are only changed when the result is Ok or NoMemory.
KeyFileStatus parseKeyFile(std::string_view bytes, KeyMap& map, const MacroSectionReader& readMacros);

// The program's macros as the key file saves and loads them, installed at start-up
// (initMacros). Until then the file is written without a macro section and read
// without looking at it.
struct KeyFileMacros {
    std::function<std::string()> sectionBytes;
    MacroSectionReader readSection;
};
void setKeyFileMacros(KeyFileMacros macros);
const KeyFileMacros& keyFileMacros();

// The key file's full path.
std::string keyFilePath();

// Loads the key file into the program's key map and macros; a missing file changes
// nothing. Failures are reported to the user. True when the file was taken.
bool loadKeyFile();
// Writes the program's key map and macros; failures are reported. True on success.
bool saveKeyFile();
// Copies DEFKEY.ZOL over the key file and loads it. A DEFKEY.ZOL that is no key file
// is reported and copied over nothing.
bool resetKeyFile();
// The key map of DEFKEY.ZOL, its macros left unread; failures are reported.
bool readDefaultKeyMap(KeyMap& map);

}  // namespace zol
