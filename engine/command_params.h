// The two string parameters that the commands "Param1" and "Param2" build one
// character at a time for the command that follows them (the find and replace
// commands, reading a named file).
#pragma once
#include <string>

#include "engine/command_table.h"

namespace zol {

// The text of parameter 1 or 2 (any other number reads as parameter 2).
const std::string& commandParam(int which);
void setCommandParam(int which, std::string text);

// Handlers of "Param1" and "Param2": a character starts a new string unless the
// command before was the same one, in which case it is appended.
int cmdParam1(Document& doc, const CommandCall& call);
int cmdParam2(Document& doc, const CommandCall& call);

}  // namespace zol
