// The scalar settings of sections "Settings", "Editor" and "Printing" of "zol.ini", one
// row per key (config/settings_list.cpp). The loader, the saver, the options dialog and
// the settings reference docs/settings.md all read these rows.
#pragma once
#include <climits>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "engine/options.h"

namespace zol {

struct Settings;

enum class SettingKind : uint8_t {
    Flag,    // written "0" or "1"; read keeping bit 0 only, so "3" is on and "2" off
    Int,
    Int16,   // read as a signed 16-bit number: 40000 reads as -25536
    UInt16,  // read as an unsigned 16-bit number: -1 reads as 65535
    Low8,    // the low 8 bits of the number are kept: 257 reads as 1
    Text,    // read through a buffer of `size` characters
    Window,  // "x y width height maximised": read and written by code of its own
};

// What loading does with a value: numbers against minimum..maximum, texts by content.
enum class LoadRule : uint8_t {
    Keep,           // as read
    ToDefault,      // outside the range becomes the default
    ToMaximum,      // outside the range becomes the maximum
    ToMinimum,      // outside the range becomes the minimum
    Floor,          // below the minimum becomes the minimum; no upper bound
    SafeExtension,  // a text that could not be a file's extension becomes the default;
                    // an empty one stays empty
    FileNamePart,   // the part after the last "\" or "/", at most size - 1 characters;
                    // an empty part becomes the default
};

enum class SaveRule : uint8_t {
    Write,            // with the option sections, when they are saved
    EveryTime,        // also when the option sections are not saved
    Never,            // read only
    AsInFile,         // the file's own value is written back, not the one in memory
    Low16Bits,        // the low 16 bits of the value
    WithPrinterFont,  // only when a printer font was chosen (printing "FontName" not empty)
};

// Where the rows' values live: the engine's editing options and the store's settings.
struct SettingTarget {
    EditOptions& options;
    Settings& settings;
};
using SettingField = std::variant<bool*, int*, WrapMethod*, std::string*>;
using SettingAccess = SettingField (*)(SettingTarget&);

constexpr int kNoMinimum = INT_MIN;
constexpr int kNoMaximum = INT_MAX;

struct SettingRow {
    const char* section;
    const char* key;
    SettingKind kind;
    SettingAccess field;  // nullptr: the value is not held here (see the kind and meaning)
    int def;              // flags and numbers
    const char* defText;  // texts; nullptr when there is none
    // Numbers: the range the load rule corrects by and the options dialog offers.
    int minimum, maximum;
    size_t size;          // texts: the read buffer; a value keeps size - 1 characters
    LoadRule load;
    SaveRule save;
    const char* meaning;  // one line for the settings reference
};

// Every row, in the order of the file's sections and of saving.
std::span<const SettingRow> settingRows();
// The row of a key, compared without regard to case; nullptr when there is none.
const SettingRow* findSetting(std::string_view section, std::string_view key);

// A row's value as a number (flags 0 or 1) or as text.
int settingNumber(const SettingRow& row, SettingTarget& target);
void setSettingNumber(const SettingRow& row, SettingTarget& target, int value);
std::string& settingText(const SettingRow& row, SettingTarget& target);

// A number as the row's kind reads it, then corrected by its load rule.
int correctSettingNumber(const SettingRow& row, int value);
// A text as the row's load rule corrects it (already cut to the read buffer).
std::string correctSettingText(const SettingRow& row, std::string value);
// False when the text holds a character that cannot stand in a file extension.
bool isSafeExtension(std::string_view text);

// Every value of the rows set to the row's default.
void applySettingDefaults(SettingTarget& target);

// The settings reference, docs/settings.md, as the rows give it.
std::string settingsReference();

}  // namespace zol
