// Keystroke macros: the 150-slot table, recording through the executor, playback.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "script/macro_messages.h"

namespace zol {

struct Document;

struct MacroStep {
    uint16_t command;
    uint16_t param;  // the character, the number, or 0 for commands without one
};
bool operator==(const MacroStep& a, const MacroStep& b);

constexpr size_t kMacroNameSize = 32;         // 31 characters
constexpr size_t kMacroDescriptionSize = 80;  // 79 characters

struct Macro {
    bool used = false;        // the slot holds a macro; the other fields mean nothing otherwise
    std::string name;         // at most kMacroNameSize - 1 characters
    std::string description;  // at most kMacroDescriptionSize - 1 characters
    std::vector<MacroStep> steps;  // at most macromsg::kMaxSteps
};

struct MacroTable {
    // Slot n holds the macro with command number 1000 + n.
    std::array<Macro, macromsg::kMacroSlots> slots;
};

// The program's macros.
MacroTable& macros();

// The slot's macro for a command number in 1000..1149, else null (also for an empty slot).
Macro* macroById(MacroTable& table, uint16_t id);
const Macro* macroById(const MacroTable& table, uint16_t id);
// The command number of the macro named exactly name; 0 when none.
uint16_t findMacro(const MacroTable& table, std::string_view name);
uint16_t findMacro(std::string_view name);
// Stores a macro in the first empty slot; its command number, or 0 when every slot
// is taken.
uint16_t addMacro(MacroTable& table, Macro macro);
bool deleteMacro(MacroTable& table, uint16_t id);

// Runs the named macro in doc as a macro step (executor flag 512). 0 for a null
// document, a null or unknown name; else 1.
int executeMacro(Document* doc, const char* name);

// Installs the macros into the executor and the key file, and the macro menu into the
// settings store.
// Called once at start-up before the settings are loaded.
void initMacros();

}  // namespace zol
