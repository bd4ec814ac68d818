#include "app/headless_shell.h"

#include <string>

namespace zol {

void HeadlessShell::message(std::string_view text) {
    std::string line(text);
    // A message box's blank lines read badly on one terminal line.
    for (size_t p; (p = line.find("\n\n")) != std::string::npos;) line.replace(p, 2, " ");
    for (char& c : line)
        if (c == '\n') c = ' ';
    std::fprintf(out_, "zolder: %s\n", line.c_str());
}

Answer HeadlessShell::ask(std::string_view text, bool withCancel) {
    message(text);
    return withCancel ? Answer::Cancel : Answer::No;
}

void HeadlessShell::statusMessage(std::string_view) {}

// New macros keep the names they are offered: "Macro1", "Macro2", ...
bool HeadlessShell::askMacroName(std::string&) { return true; }

}  // namespace zol
