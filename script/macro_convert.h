// "Convert keystroke macro to VEK C Script": the steps of a keystroke macro written as
// the body of the script function that replays them.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "script/macros.h"

namespace zol {

// Stands where a step has no script form, so that the new script stops at once in the
// preprocessor and the line shows where the conversion failed.
inline constexpr char kConvertErrorLine[] = "#error converting macro";

// Steps without a script form: a command with no name in the command table (a stale
// number, a plug-in's command), another macro (no VM_ macro names it, and its slot may
// hold something else by the time the script runs), ExecScript (a script cannot start
// a script while it runs), and a typed character that a C string cannot carry (0, or
// a number above 255).
bool stepHasScriptForm(const MacroStep& step);

// The lines of the body, each ending in "\n": the update lock, one line per step or
// per run of typed characters (Zol_InsertText, at most 127 characters a call as in
// the macro's text form), the unlock.
std::string convertMacroBody(const std::vector<MacroStep>& steps);

// bytes as a C string literal, quotes included. Control characters other than the
// lettered escapes become three-digit octal escapes, which, unlike "\x", cannot run
// on into a following digit.
std::string cStringLiteral(std::string_view bytes);

}  // namespace zol
