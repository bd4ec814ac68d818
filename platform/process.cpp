#include "platform/process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "platform/fileinfo.h"
#include "platform/paths.h"
#include "platform/termination.h"

namespace zol {
namespace {

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

// How far a start came before it failed, as the child tells the editor.
enum Stage : int { kStageFolder, kStageExec, kStageFork, kStageOutput };
struct ChildReport {
    int stage = 0;
    int error = 0;
};

// What the child sets up between fork and exec.
struct ChildSetup {
    const char* dir = nullptr;
    const char* output = nullptr;
    bool newSession = true;
};

// Between fork and exec only async-signal-safe calls: the editor may run threads.
[[noreturn]] void report(int fd, int stage, int error) {
    const ChildReport r{stage, error};
    [[maybe_unused]] const ssize_t n = ::write(fd, &r, sizeof r);
    ::_exit(127);
}

void sendOutputTo(const char* path, int fd) {
    // Not close-on-exec: the descriptor is what the program writes to.
    const int out = ::open(path, O_WRONLY | O_APPEND | O_CREAT, 0600);
    if (out < 0) report(fd, kStageOutput, errno);
    ::dup2(out, 1);
    ::dup2(out, 2);
    if (out > 2) ::close(out);
}

[[noreturn]] void execProgram(char* const* argv, const ChildSetup& setup, int fd) {
    if (setup.newSession) ::setsid();
    const int null = ::open("/dev/null", O_RDONLY);
    if (null > 0) {
        ::dup2(null, 0);
        ::close(null);
    }
    if (setup.output) sendOutputTo(setup.output, fd);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    // Ignored signals stay ignored across exec: zolcap ignores the termination ones.
    for (int s : {SIGPIPE, SIGINT, SIGQUIT, SIGCHLD, SIGTERM, SIGHUP}) ::signal(s, SIG_DFL);
    if (setup.dir && ::chdir(setup.dir) != 0) report(fd, kStageFolder, errno);
    ::execvp(argv[0], argv);
    report(fd, kStageExec, errno);
}

// The child's report of a failed start; false when exec succeeded (the pipe closed).
bool readReport(int fd, ChildReport& r) {
    ssize_t got;
    do got = ::read(fd, &r, sizeof r);
    while (got < 0 && errno == EINTR);
    return got == static_cast<ssize_t>(sizeof r);
}

void reap(pid_t pid, int* status = nullptr) {
    int local = 0;
    while (::waitpid(pid, status ? status : &local, 0) < 0 && errno == EINTR) {
    }
}

std::vector<char*> argvOf(const std::vector<std::string>& argv) {
    std::vector<char*> args;
    for (const std::string& a : argv) args.push_back(const_cast<char*>(a.c_str()));
    args.push_back(nullptr);
    return args;
}

StartResult missingProgram(const std::string& program, const std::string& dir) {
    std::string folder(folderPart(program));
    if (folder.empty()) return StartResult::NoProgram;
    if (folder[0] != '/' && !dir.empty()) folder = joinPath(dir, folder);
    return isDirectory(folder) ? StartResult::NoProgram : StartResult::NoFolder;
}

StartResult resultOf(const ChildReport& r, const std::string& program, const std::string& dir) {
    if (r.stage == kStageFork) return StartResult::NoResources;
    if (r.stage == kStageOutput) return r.error == EACCES ? StartResult::Denied : StartResult::NoResources;
    if (r.stage == kStageFolder) return r.error == EACCES ? StartResult::Denied : StartResult::NoFolder;
    switch (r.error) {
    case ENOENT: return missingProgram(program, dir);
    case ENOTDIR: return StartResult::NoFolder;
    case EACCES: case EPERM: case EISDIR: case ETXTBSY: return StartResult::Denied;
    case ENOEXEC: case ELIBBAD: return StartResult::NotProgram;
    case ENOMEM: case EAGAIN: case E2BIG: case EMFILE: case ENFILE: return StartResult::NoResources;
    default: return StartResult::NoProgram;
    }
}

}  // namespace

std::vector<std::string> splitCommandLine(std::string_view line) {
    std::vector<std::string> words;
    std::string word;
    bool inWord = false;
    const size_t n = line.size();
    size_t i = 0;
    while (i < n) {
        const char c = line[i++];
        if (isBlank(c)) {
            if (inWord) words.push_back(std::move(word));
            word.clear();
            inWord = false;
            continue;
        }
        inWord = true;
        if (c == '\'') {
            while (i < n && line[i] != '\'') word += line[i++];
            ++i;
        } else if (c == '"') {
            for (; i < n && line[i] != '"'; ++i) {
                if (line[i] == '\\' && i + 1 < n && (line[i + 1] == '"' || line[i + 1] == '\\')) ++i;
                word += line[i];
            }
            ++i;
        } else if (c == '\\' && i < n) {
            word += line[i++];
        } else {
            word += c;
        }
    }
    if (inWord) words.push_back(std::move(word));
    return words;
}

StartResult startDetached(const std::vector<std::string>& argv, const std::string& dir) {
    if (argv.empty() || argv[0].empty()) return StartResult::NoProgram;
    std::vector<char*> args = argvOf(argv);
    ChildSetup setup;
    setup.dir = dir.empty() ? nullptr : dir.c_str();
    int fds[2];
    if (::pipe2(fds, O_CLOEXEC) != 0) return StartResult::NoResources;
    // A child that starts the program and ends at once: the program is then nobody's
    // child to wait for. The pipe closes unread when exec succeeds.
    const pid_t middle = ::fork();
    if (middle == 0) {
        ::close(fds[0]);
        const pid_t pid = ::fork();
        if (pid == 0) execProgram(args.data(), setup, fds[1]);
        if (pid < 0) report(fds[1], kStageFork, errno);
        ::_exit(0);
    }
    ::close(fds[1]);
    if (middle < 0) {
        ::close(fds[0]);
        return StartResult::NoResources;
    }
    ChildReport r;
    const bool failed = readReport(fds[0], r);
    ::close(fds[0]);
    reap(middle);
    return failed ? resultOf(r, argv[0], dir) : StartResult::Started;
}

StartResult openWithDesktop(const std::string& target) { return startDetached({kDesktopOpener, target}); }

bool isProgramFile(const std::string& path) {
    struct stat st {};
    return !path.empty() && ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode) && ::access(path.c_str(), X_OK) == 0;
}

std::string findProgram(const std::string& name, const std::string& dir) {
    if (name.empty()) return {};
    if (name.find('/') != std::string::npos) {
        const std::string path = name[0] == '/' ? name : joinPath(dir.empty() ? currentDir() : dir, name);
        return isProgramFile(path) ? path : std::string();
    }
    const char* env = std::getenv("PATH");
    const std::string list = env ? env : "/usr/local/bin:/usr/bin:/bin";
    size_t from = 0;
    for (;;) {
        const size_t colon = list.find(':', from);
        const std::string folder = list.substr(from, colon == std::string::npos ? std::string::npos : colon - from);
        // An empty entry is the current folder, as exec takes it.
        const std::string path = joinPath(folder.empty() ? currentDir() : folder, name);
        if (isProgramFile(path)) return path;
        if (colon == std::string::npos) return {};
        from = colon + 1;
    }
}

bool canEnterFolder(const std::string& path) {
    return !path.empty() && isDirectory(path) && ::access(path.c_str(), X_OK) == 0;
}

std::string helperProgram(std::string_view name) {
    const std::string exe = executablePath();
    std::string path = joinPath(folderPart(exe), name);
    if (!exe.empty() && isProgramFile(path)) return path;
#ifdef ZOLDER_HELPER_DIR
    path = joinPath(ZOLDER_HELPER_DIR, name);
    if (isProgramFile(path)) return path;
#endif
    return {};
}

StartResult spawnChild(const std::vector<std::string>& argv, const SpawnOptions& opts, ChildProcess& child) {
    child = ChildProcess{};
    if (argv.empty() || argv[0].empty()) return StartResult::NoProgram;
    std::vector<char*> args = argvOf(argv);
    ChildSetup setup;
    setup.dir = opts.dir.empty() ? nullptr : opts.dir.c_str();
    setup.output = opts.outputFile.empty() ? nullptr : opts.outputFile.c_str();
    setup.newSession = opts.ownGroup;
    int fds[2];
    if (::pipe2(fds, O_CLOEXEC) != 0) return StartResult::NoResources;
    const pid_t pid = ::fork();
    if (pid == 0) {
        ::close(fds[0]);
        execProgram(args.data(), setup, fds[1]);
    }
    ::close(fds[1]);
    if (pid < 0) {
        ::close(fds[0]);
        return StartResult::NoResources;
    }
    ChildReport r;
    const bool failed = readReport(fds[0], r);
    ::close(fds[0]);
    if (failed) {
        reap(pid);
        return resultOf(r, argv[0], opts.dir);
    }
    child.pid = pid;
    child.ownGroup = opts.ownGroup;
    return StartResult::Started;
}

namespace {

bool takeStatus(ChildProcess& child, int flags) {
    int status = 0;
    pid_t got;
    do got = ::waitpid(child.pid, &status, flags);
    while (got < 0 && errno == EINTR);
    if (got == 0) return false;
    if (got < 0) {
        // Someone else reaped it; how it ended is unknown.
        child.status = ExitStatus{};
    } else if (WIFSIGNALED(status)) {
        child.status = ExitStatus{true, WTERMSIG(status)};
    } else {
        child.status = ExitStatus{false, WEXITSTATUS(status)};
    }
    child.pid = -1;
    return true;
}

}  // namespace

bool waitChild(ChildProcess& child, int waitMs) {
    if (child.ended()) return true;
    // Short naps: a child has no descriptor to wait on, and the callers want to hear
    // of its end within a few milliseconds.
    constexpr long kNapNs = 2'000'000;
    long leftNs = static_cast<long>(waitMs) * 1'000'000;
    for (;;) {
        if (takeStatus(child, WNOHANG)) return true;
        if (leftNs <= 0) return false;
        const timespec nap{0, leftNs < kNapNs ? leftNs : kNapNs};
        ::nanosleep(&nap, nullptr);
        leftNs -= kNapNs;
    }
}

void waitChildToEnd(ChildProcess& child) {
    if (!child.ended()) takeStatus(child, 0);
}

void stopChild(const ChildProcess& child, bool kill) {
    if (child.ended()) return;
    const int sig = kill ? SIGKILL : SIGTERM;
    if (child.ownGroup) ::kill(-child.pid, sig);
    else ::kill(child.pid, sig);
}

bool redirectOutputTo(const std::string& path) {
    const int out = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT, 0600);
    if (out < 0) return false;
    const bool ok = ::dup2(out, 1) >= 0 && ::dup2(out, 2) >= 0;
    if (out > 2) ::close(out);
    return ok;
}

void usePlainCharacters() {
    if (const char* all = std::getenv("LC_ALL"); all && *all) {
        ::setenv("LANG", all, 1);
        ::unsetenv("LC_ALL");
    }
    ::setenv("LC_CTYPE", "C", 1);
}

void ignoreTerminationRequests() {
    for (int s : {SIGTERM, SIGINT, SIGHUP, SIGQUIT}) ::signal(s, SIG_IGN);
}

void endAs(const ExitStatus& status) {
    if (status.signalled) {
        ::signal(status.code, SIG_DFL);
        ::raise(status.code);
        // A signal whose default is not to end (SIGCHLD, a stop) ends up here.
        ::_exit(kSignalExitBase + status.code);
    }
    ::_exit(status.code);
}

void writeStandardError(std::string_view text) {
    while (!text.empty()) {
        const ssize_t n = ::write(2, text.data(), text.size());
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return;
        text.remove_prefix(static_cast<size_t>(n));
    }
}

const char* startFailureText(StartResult r) {
    switch (r) {
    case StartResult::Started: return "started";
    case StartResult::NoProgram: return std::strerror(ENOENT);
    case StartResult::NoFolder: return std::strerror(ENOTDIR);
    case StartResult::Denied: return std::strerror(EACCES);
    case StartResult::NotProgram: return std::strerror(ENOEXEC);
    case StartResult::NoResources: return std::strerror(ENOMEM);
    }
    return "";
}

}  // namespace zol
