// The text form of a keystroke macro, shown and edited by the user, and its parser.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "script/macros.h"

namespace zol {

enum class MacroTextStatus { Ok, NoMacro, TooLarge };

// One line per step ("Name", "Name \"c\"", "Name 12") or per run of typed characters
// ("InsertText \"...\"", also "Param1"/"Param2"), each ended by CR LF. Steps whose
// command has no name are left out. TooLarge when the text would reach 32000 bytes.
MacroTextStatus stepsToText(const std::vector<MacroStep>& steps, std::string& out);
MacroTextStatus macroToText(uint16_t id, std::string& out);

struct MacroParseError {
    int line = 0;         // 1-based; 0 when the text was read
    std::string message;  // "Line 3: unknown command"
};

// The steps of an edited text form. Blank lines are skipped; lines may end in CR LF or
// LF. On failure steps is left alone.
MacroParseError textToSteps(std::string_view text, std::vector<MacroStep>& steps);

// Replaces the macro's steps by those of text; on a parse error shows the error and
// leaves the macro unchanged. False then, or when id holds no macro.
bool compileMacroText(uint16_t id, std::string_view text);
// Closing the edit dialog: when edited differs from original, asks whether to compile
// and does so when told. False when nothing was compiled.
bool finishMacroEdit(uint16_t id, std::string_view original, std::string_view edited);

}  // namespace zol
