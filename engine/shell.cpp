#include "engine/shell.h"

namespace zol {
namespace {

class SilentShell final : public Shell {
public:
    void message(std::string_view) override {}
    Answer ask(std::string_view, bool withCancel) override { return withCancel ? Answer::Cancel : Answer::No; }
    void statusMessage(std::string_view) override {}
    ClipboardData getClipboard() override { return clip_; }
    void setClipboard(const ClipboardData& data) override { clip_ = data; }

private:
    ClipboardData clip_;
};

SilentShell silentShell;
Shell* current = &silentShell;

}  // namespace

Shell& shell() { return *current; }
void setShell(Shell* s) { current = s ? s : &silentShell; }

}  // namespace zol
