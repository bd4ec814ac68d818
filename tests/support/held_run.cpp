#include "tests/support/held_run.h"

#include <unistd.h>

namespace zol::test {

HeldScriptRun::HeldScriptRun() {
    if (::pipe(pipe_) != 0 || !(in_ = ::fdopen(pipe_[0], "r"))) return;
    ScriptRunOptions opts;
    opts.in = in_;
    thread_ = std::thread([this, opts] {
        result_ = runScriptText("/held/wait.c", "int main(void) { return getchar(); }", {"wait.c"}, opts);
    });
    while (!isScriptRunning()) std::this_thread::yield();
}

HeldScriptRun::~HeldScriptRun() { finish(); }

ScriptRunResult HeldScriptRun::finish(char c) {
    if (!thread_.joinable()) return result_;
    // Should the character not go through, the end of the input ends the script as well.
    [[maybe_unused]] const ssize_t written = ::write(pipe_[1], &c, 1);
    ::close(pipe_[1]);
    thread_.join();
    std::fclose(in_);
    return result_;
}

}  // namespace zol::test
