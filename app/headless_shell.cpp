#include "app/headless_shell.h"

#include <string>

#include "app/application.h"
#include "platform/paths.h"

namespace zol {

void HeadlessShell::message(std::string_view text) {
    std::string line(text);
    // A message box's blank lines read badly on one terminal line.
    for (size_t p; (p = line.find("\n\n")) != std::string::npos;) line.replace(p, 2, 1, ' ');
    for (char& c : line)
        if (c == '\n') c = ' ';
    std::fprintf(out_, "zolder: %s\n", line.c_str());
}

Answer HeadlessShell::ask(std::string_view text, bool withCancel) {
    message(text);
    return withCancel ? Answer::Cancel : Answer::No;
}

void HeadlessShell::statusMessage(std::string_view) {}

bool HeadlessShell::openFile(const std::string& path) {
    if (!app_) return false;
    const std::string full = fullPath(path);
    for (const auto& doc : app_->documents) {
        if (doc->hasFile && doc->fileName == full) {
            setActiveDocument(*app_, doc.get());
            return true;
        }
    }
    return openDocument(*app_, path) != nullptr;
}

}  // namespace zol
