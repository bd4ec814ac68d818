// The shell without windows: message boxes go to standard error, questions get
// their safe answer, the clipboard lives in memory.
#pragma once
#include <cstdio>

#include "engine/shell.h"

namespace zol {

struct Application;

class HeadlessShell final : public Shell {
public:
    explicit HeadlessShell(std::FILE* out = stderr) : out_(out) {}
    void message(std::string_view text) override;
    // The report alone on its line, so that it reads like a compiler's.
    void scriptError(std::string_view report) override;
    Answer ask(std::string_view text, bool withCancel) override;
    void statusMessage(std::string_view text) override;
    ClipboardData getClipboard() override { return clip_; }
    void setClipboard(const ClipboardData& data) override { clip_ = data; }
    bool askMacroName(std::string& name) override;
    // No windows: every dialog is cancelled.
    FindDialogResult findDialog(FindDialogData&, bool) override { return FindDialogResult::Cancel; }
    bool askNumber(std::string_view, int&) override { return false; }
    bool openFile(const std::string& path) override;
    // The application whose document list openFile adds to; none: opening fails.
    void attach(Application* app) { app_ = app; }

private:
    std::FILE* out_;
    ClipboardData clip_;
    Application* app_ = nullptr;
};

}  // namespace zol
