// Every text the key map and the key file show the user, with the capacities that
// the texts report. "%s" stands for a file name.
#pragma once
#include <cstddef>
#include <cstdint>

namespace zol::keymsg {

inline constexpr char kNotCompatible[] = "Keymap file is not compatible with this version of Zolder.";
inline constexpr char kNoMemoryForMacros[] =
    "Not enought memory to load macros.\n\nSave all modified files and quit Zolder.\n\n"
    "If the problem presist, from the Options menu choose Key Mapping command and click on Reset All button.";
// Reported for a failed read and, on purpose, for a failed save as well. A key file
// larger than this is not read: the fullest one possible is below 40 MB.
inline constexpr char kReadError[] = "Read Error !";
inline constexpr uintmax_t kMaxKeyFileBytes = 64u << 20;
inline constexpr char kCannotOpenWrite[] = "Cannot open %s file.\n\nMake sure the disk is not full or write-protected.";
inline constexpr char kCannotOpenDefault[] = "Cannot open DEFKEY.ZOL file.";
inline constexpr char kResetFailed[] =
    "An error occur while reseting key mapping and macros.\nMake sure that disk is not full.";
inline constexpr char kAskSaveChanges[] = "Do you want to save the key mapping and macro changes?";

// Capacities of the key tables: the primary table, prefix tables 1 to 5, prefix table 6.
inline constexpr size_t kPrimaryKeys = 128;
inline constexpr size_t kPrefixKeys = 36;
inline constexpr size_t kPrefix6Keys = 36;
inline constexpr char kTableFull[] = "This key table is full: the primary table holds 128 keys, each prefix table 36.";

}  // namespace zol::keymsg
