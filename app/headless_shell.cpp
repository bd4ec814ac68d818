#include "app/headless_shell.h"

#include <string>

namespace zol {

void HeadlessShell::message(std::string_view text) {
    // One terminal line per message: a blank line and a line break both become one blank.
    std::string line;
    line.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\n') line += text[i];
        else if (i + 1 < text.size() && text[i + 1] == '\n') continue;
        else line += ' ';
    }
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
