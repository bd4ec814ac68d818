// Running a user tool: saving first, expanding its arguments, its working folder, and
// starting it - detached, or with its output captured into an output document that
// fills while the tool runs.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>

#include "tools/user_tools.h"

namespace zol {

struct ToolRequest {
    std::string title;       // the menu text; names the output document and the status
    std::string program;     // may start with "$(ProgDir)"
    std::string arguments;   // with $(...) macros
    std::string initialDir;  // with $(...) macros; empty: the editor's own folder
    bool askArguments = false;
    bool captureOutput = false;
    int saveFile = kSaveNothing;
    bool promptBeforeSave = false;
    int quoteMode = kQuoteWithBlanks;
};

ToolRequest requestOf(const UserTool& tool);

// Runs the tool for the active document. A captured tool runs on while the editor
// goes on, unless wait says to come back only once it has ended (and its output
// document is complete). False when it did not start: the user cancelled, or was told
// why.
bool runTool(const ToolRequest& request, bool wait);

// Tool number index (0-based) of the "UserTools" list; a number without a tool is told
// in the status bar.
bool runUserTool(size_t index);

// The place in the "UserTools" list of a UserTool command; -1 for any other command.
int userToolIndex(uint16_t command);

// The handlers of UserTool1 to UserTool16, NextCompilerError and PrevCompilerError,
// and the owners of the "UserTools" and "UserHelp" sections.
void installTools();

}  // namespace zol
