#include "tests/support/process.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <thread>

extern char** environ;

namespace zol::test {

std::string zolderBinary() { return ZOLDER_BINARY; }

std::string driverPath(std::string_view name) { return std::string(ZOLDER_DRIVER_DIR) + "/" + std::string(name); }

Process::Process(const std::vector<std::string>& argv) {
    if (argv.empty() || files_.dir().empty()) return;
    const std::string out = files_.path("out"), err = files_.path("err");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    posix_spawn_file_actions_addopen(&actions, 2, err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    std::vector<char*> args;
    for (const std::string& a : argv) args.push_back(const_cast<char*>(a.c_str()));
    args.push_back(nullptr);
    if (posix_spawn(&pid_, args[0], &actions, nullptr, args.data(), environ) != 0) pid_ = -1;
    posix_spawn_file_actions_destroy(&actions);
}

Process::~Process() {
    if (started()) kill();
}

bool Process::waitForOutput(std::string_view text, std::chrono::milliseconds limit) {
    const auto giveUp = std::chrono::steady_clock::now() + limit;
    while (out().find(text) == std::string::npos) {
        if (std::chrono::steady_clock::now() >= giveUp) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return true;
}

bool Process::kill() {
    if (!started()) return false;
    ::kill(pid_, SIGKILL);
    int status = 0;
    ::waitpid(pid_, &status, 0);
    pid_ = -1;
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

bool Process::waitUntilStopped() {
    if (!started()) return false;
    int status = 0;
    if (::waitpid(pid_, &status, WUNTRACED) != pid_) return false;
    if (WIFSTOPPED(status)) return true;
    pid_ = -1;
    return false;
}

void Process::resume() {
    if (started()) ::kill(pid_, SIGCONT);
}

void Process::terminate() {
    if (started()) ::kill(pid_, SIGTERM);
}

Outcome Process::wait() {
    Outcome o;
    if (started()) {
        int status = 0;
        ::waitpid(pid_, &status, 0);
        pid_ = -1;
        if (WIFEXITED(status)) o.status = WEXITSTATUS(status);
    }
    o.out = out();
    o.err = err();
    return o;
}

Outcome run(const std::vector<std::string>& argv) { return Process(argv).wait(); }

}  // namespace zol::test
