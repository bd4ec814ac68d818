#include "app/headless_shell.h"

#include <string>

#include "app/application.h"
#include "platform/paths.h"

namespace zol {

void HeadlessShell::message(std::string_view text) {
    // A message box's blank lines read badly on one terminal line: a run of line
    // ends becomes one blank.
    std::string line;
    line.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\n') {
            line += text[i];
            continue;
        }
        line += ' ';
        if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
    }
    std::fprintf(out_, "zolder: %s\n", line.c_str());
}

void HeadlessShell::scriptError(std::string_view report) {
    std::fprintf(out_, "%.*s\n", static_cast<int>(report.size()), report.data());
}

Answer HeadlessShell::ask(std::string_view text, bool withCancel) {
    message(text);
    return withCancel ? Answer::Cancel : Answer::No;
}

void HeadlessShell::statusMessage(std::string_view) {}

bool HeadlessShell::askMacroName(std::string&) { return true; }
// openDocument activates a file that is already open.
bool HeadlessShell::openFile(const std::string& path) { return app_ && openDocument(*app_, path) != nullptr; }

}  // namespace zol
