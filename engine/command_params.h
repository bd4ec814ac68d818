// The two string parameters that the commands "Param1" and "Param2" build one
// character at a time for the command that follows them (the find and replace
// commands, reading a named file). Their handlers, cmdParam1 and cmdParam2, start a
// new string unless the command before was the same one, in which case they append.
#pragma once
#include <string>

namespace zol {

// The text of parameter 1 or 2 (any other number reads as parameter 2).
const std::string& commandParam(int which);
void setCommandParam(int which, std::string text);

}  // namespace zol
