// Every text the keystroke macros show the user, with the capacities they report.
#pragma once
#include <cstddef>
#include <cstdint>

namespace zol::macromsg {

inline constexpr int kMacroSlots = 150;
inline constexpr char kSlotsFull[] =
    "All 150 macros are in use. Delete a macro before recording a new one.";

// A step count is a 16-bit word in the key file.
inline constexpr size_t kMaxSteps = 65535;
inline constexpr char kMacroFull[] = "A macro holds at most 65535 steps. Recording stopped; the macro was kept.";

// Macros that run macros stop this deep.
inline constexpr int kMaxNesting = 16;
inline constexpr char kTooDeep[] = "Macros call each other more than 16 levels deep. The macro stopped.";

inline constexpr char kRecordPrompt[] = "Record Macro &Name:";
inline constexpr char kNewNamePattern[] = "Macro%d";

// The text form.
inline constexpr size_t kMaxTextSize = 32000;  // the text stays below this many bytes
inline constexpr char kTooLargeToEdit[] = "Macro is too large to edit.";
inline constexpr char kAskCompile[] = "Macro has changed. Compile?";
inline constexpr size_t kMaxRunPerLine = 127;  // characters of one quoted string

// The parser's reports, shown as "Line %d: " and the text; the macro stays unchanged.
inline constexpr char kLinePrefix[] = "Line %d: ";
inline constexpr char kUnknownCommand[] = "unknown command";
inline constexpr char kExpectString[] = "a string in double quotes is expected";
inline constexpr char kOneCharacter[] = "this command takes exactly one character";
inline constexpr char kExpectNumber[] = "a number from 0 to 65535 is expected";
inline constexpr char kNoArgument[] = "this command takes no argument";
inline constexpr char kUnterminated[] = "the string has no closing double quote";
inline constexpr char kBadEscape[] = "unknown escape sequence in the string";
inline constexpr char kTrailingText[] = "unexpected text after the command";
inline constexpr char kTooManySteps[] = "the macro would hold more than 65535 steps";

// The macro menu. Its items are kept under numbered keys that loading reads up to
// this count, so more could not come back.
inline constexpr int kMaxMenuItems = 15;
inline constexpr char kMenuFull[] = "The macro menu holds at most 15 items. Remove one to add another.";
inline constexpr size_t kMenuTextSize = 40;     // 39 characters
inline constexpr size_t kMenuDescSize = 80;     // 79 characters
inline constexpr size_t kMenuCmdLineSize = 1024;  // 1023 characters
inline constexpr char kUnnamedMenuItem[] = "Macro %d";
// The suggested menu text of a new item, numbered by its place.
inline constexpr char kNumberedMenuText[] = "Macro&%d";
// An empty menu text would end the list when it is next loaded.
inline constexpr char kMenuTextNeeded[] = "A menu item needs a menu text.";
inline constexpr char kMenuMacroNeeded[] = "Choose the keystroke macro the item runs.";
inline constexpr char kMenuScriptNeeded[] = "Choose the script the item runs.";
inline constexpr char kNoSuchMacro[] = "There is no keystroke macro named \"%s\".";

}  // namespace zol::macromsg
