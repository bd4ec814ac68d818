// The shell without windows: message boxes go to standard error, questions get
// their safe answer, the clipboard lives in memory.
#pragma once
#include <cstdio>

#include "engine/shell.h"

namespace zol {

class HeadlessShell final : public Shell {
public:
    explicit HeadlessShell(std::FILE* out = stderr) : out_(out) {}
    void message(std::string_view text) override;
    Answer ask(std::string_view text, bool withCancel) override;
    void statusMessage(std::string_view text) override;
    ClipboardData getClipboard() override { return clip_; }
    void setClipboard(const ClipboardData& data) override { clip_ = data; }
    bool askMacroName(std::string& name) override;
    // No windows: every dialog is cancelled.
    FindDialogResult findDialog(FindDialogData&, bool) override { return FindDialogResult::Cancel; }
    bool askNumber(std::string_view, int&) override { return false; }

private:
    std::FILE* out_;
    ClipboardData clip_;
};

}  // namespace zol
