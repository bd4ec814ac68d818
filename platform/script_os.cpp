#include "platform/script_os.h"

#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "platform/tempfile.h"

namespace zol {
namespace {

int gErrno = 0;
std::atomic<int>* gStopFlag = nullptr;
struct sigaction gOldAction;
bool gInstalled = false;

int fail() {
    gErrno = errno;
    return -1;
}

void onInterrupt(int) {
    if (gStopFlag) *gStopFlag = 1;
}

void fill(const struct stat& s, ScriptStat& st) {
    st.mode = (S_ISDIR(s.st_mode) ? 0x4000u : S_ISREG(s.st_mode) ? 0x8000u : 0u) | (s.st_mode & 0777u);
    st.size = static_cast<int64_t>(s.st_size);
    st.atime = static_cast<int64_t>(s.st_atime);
    st.mtime = static_cast<int64_t>(s.st_mtime);
    st.ctime = static_cast<int64_t>(s.st_ctime);
    st.nlink = static_cast<int32_t>(s.st_nlink);
    st.uid = static_cast<int32_t>(s.st_uid);
    st.gid = static_cast<int32_t>(s.st_gid);
    st.dev = static_cast<int32_t>(s.st_dev);
    st.ino = static_cast<int32_t>(s.st_ino);
    st.rdev = static_cast<int32_t>(s.st_rdev);
}

}  // namespace

int scriptErrno() { return gErrno; }

std::optional<std::string> scriptGetenv(const std::string& name) {
    const char* v = std::getenv(name.c_str());
    if (!v) return std::nullopt;
    return std::string(v);
}

int scriptPutenv(const std::string& assignment) {
    const size_t eq = assignment.find('=');
    if (eq == std::string::npos || eq == 0) {
        gErrno = EINVAL;
        return -1;
    }
    const std::string name = assignment.substr(0, eq), value = assignment.substr(eq + 1);
    const int r = value.empty() ? ::unsetenv(name.c_str()) : ::setenv(name.c_str(), value.c_str(), 1);
    return r ? fail() : 0;
}

int scriptSystem(const std::string& command) {
    std::fflush(nullptr);
    const int r = std::system(command.c_str());
    if (r == -1) return fail();
    return WIFEXITED(r) ? WEXITSTATUS(r) : -1;
}

int scriptFileno(FILE* f) { return ::fileno(f); }

int scriptAccess(const std::string& path, int mode) {
    int m = F_OK;
    if (mode & 2) m |= W_OK;
    if (mode & 4) m |= R_OK;
    return ::access(path.c_str(), m) ? fail() : 0;
}

int scriptChmod(const std::string& path, int mode) {
    return ::chmod(path.c_str(), static_cast<mode_t>(mode & 07777)) ? fail() : 0;
}

int scriptChsize(int fd, int64_t size) {
    if (size < 0) {
        gErrno = EINVAL;
        return -1;
    }
    return ::ftruncate(fd, static_cast<off_t>(size)) ? fail() : 0;
}

int64_t scriptFileLength(int fd) {
    struct stat s;
    if (::fstat(fd, &s)) return fail();
    return static_cast<int64_t>(s.st_size);
}

int scriptIsatty(int fd) { return ::isatty(fd) ? 1 : 0; }

int scriptUnlink(const std::string& path) { return ::unlink(path.c_str()) ? fail() : 0; }

int scriptStat(const std::string& path, ScriptStat& st) {
    struct stat s;
    if (::stat(path.c_str(), &s)) return fail();
    fill(s, st);
    return 0;
}

int scriptFstat(int fd, ScriptStat& st) {
    struct stat s;
    if (::fstat(fd, &s)) return fail();
    fill(s, st);
    return 0;
}

int scriptChdir(const std::string& path) { return ::chdir(path.c_str()) ? fail() : 0; }

std::string scriptGetcwd() {
    char buf[4096];
    if (!::getcwd(buf, sizeof buf)) {
        fail();
        return std::string();
    }
    return buf;
}

int scriptMkdir(const std::string& path) { return ::mkdir(path.c_str(), 0777) ? fail() : 0; }

int scriptRmdir(const std::string& path) { return ::rmdir(path.c_str()) ? fail() : 0; }

std::string scriptMktemp(const std::string& templ) {
    if (templ.size() < 6 || templ.compare(templ.size() - 6, 6, "XXXXXX") != 0) return std::string();
    static unsigned counter = 0;
    for (int attempt = 0; attempt < 1000; ++attempt) {
        char tail[16];
        std::snprintf(tail, sizeof tail, "%06u", (static_cast<unsigned>(::getpid()) * 31u + ++counter) % 1000000u);
        std::string name = templ.substr(0, templ.size() - 6) + tail;
        struct stat s;
        if (::lstat(name.c_str(), &s) != 0) return name;
    }
    return std::string();
}

std::string scriptTempName() { return scriptMktemp(tempDir() + "vekcXXXXXX"); }

void scriptInstallInterrupt(std::atomic<int>* flag) {
    gStopFlag = flag;
    if (gInstalled) return;
    struct sigaction sa;
    std::memset(&sa, 0, sizeof sa);
    sa.sa_handler = onInterrupt;
    sigemptyset(&sa.sa_mask);
    gInstalled = ::sigaction(SIGINT, &sa, &gOldAction) == 0;
}

void scriptRemoveInterrupt() {
    if (gInstalled) ::sigaction(SIGINT, &gOldAction, nullptr);
    gInstalled = false;
    gStopFlag = nullptr;
}

}  // namespace zol
