#include "platform/process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "platform/fileinfo.h"
#include "platform/paths.h"

namespace zol {
namespace {

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

// How far a start came before it failed, as the child tells the editor.
enum Stage : int { kStageFolder, kStageExec, kStageFork };
struct ChildReport {
    int stage = 0;
    int error = 0;
};

// Between fork and exec only async-signal-safe calls: the editor may run threads.
[[noreturn]] void report(int fd, int stage, int error) {
    const ChildReport r{stage, error};
    [[maybe_unused]] const ssize_t n = ::write(fd, &r, sizeof r);
    ::_exit(127);
}

[[noreturn]] void execProgram(char* const* argv, const char* dir, int fd) {
    ::setsid();
    const int null = ::open("/dev/null", O_RDONLY);
    if (null > 0) {
        ::dup2(null, 0);
        ::close(null);
    }
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    for (int s : {SIGPIPE, SIGINT, SIGQUIT, SIGCHLD}) ::signal(s, SIG_DFL);
    if (dir && ::chdir(dir) != 0) report(fd, kStageFolder, errno);
    ::execvp(argv[0], argv);
    report(fd, kStageExec, errno);
}

StartResult missingProgram(const std::string& program, const std::string& dir) {
    std::string folder(folderPart(program));
    if (folder.empty()) return StartResult::NoProgram;
    if (folder[0] != '/' && !dir.empty()) folder = joinPath(dir, folder);
    return isDirectory(folder) ? StartResult::NoProgram : StartResult::NoFolder;
}

StartResult resultOf(const ChildReport& r, const std::string& program, const std::string& dir) {
    if (r.stage == kStageFork) return StartResult::NoResources;
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
    std::vector<char*> args;
    for (const std::string& a : argv) args.push_back(const_cast<char*>(a.c_str()));
    args.push_back(nullptr);
    int fds[2];
    if (::pipe2(fds, O_CLOEXEC) != 0) return StartResult::NoResources;
    // A child that starts the program and ends at once: the program is then nobody's
    // child to wait for. The pipe closes unread when exec succeeds.
    const pid_t middle = ::fork();
    if (middle == 0) {
        ::close(fds[0]);
        const pid_t pid = ::fork();
        if (pid == 0) execProgram(args.data(), dir.empty() ? nullptr : dir.c_str(), fds[1]);
        if (pid < 0) report(fds[1], kStageFork, errno);
        ::_exit(0);
    }
    ::close(fds[1]);
    if (middle < 0) {
        ::close(fds[0]);
        return StartResult::NoResources;
    }
    ChildReport r;
    ssize_t got;
    do got = ::read(fds[0], &r, sizeof r);
    while (got < 0 && errno == EINTR);
    ::close(fds[0]);
    int status = 0;
    while (::waitpid(middle, &status, 0) < 0 && errno == EINTR) {
    }
    if (got != static_cast<ssize_t>(sizeof r)) return StartResult::Started;
    return resultOf(r, argv[0], dir);
}

StartResult openWithDesktop(const std::string& target) { return startDetached({kDesktopOpener, target}); }

bool isProgramFile(const std::string& path) {
    struct stat st {};
    return !path.empty() && ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode) && ::access(path.c_str(), X_OK) == 0;
}

}  // namespace zol
