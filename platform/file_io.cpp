#include "platform/file_io.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zol {

namespace {

bool writeAll(int fd, std::string_view data) {
    while (!data.empty()) {
        ssize_t n = ::write(fd, data.data(), data.size());
        if (n < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        data.remove_prefix(static_cast<size_t>(n));
    }
    return true;
}

std::string folderOf(const std::string& path) {
    size_t slash = path.rfind('/');
    if (slash == std::string::npos) return "./";
    return path.substr(0, slash + 1);
}

// Writes data to a fresh temporary file beside path; returns its name, empty on failure.
// opened tells whether the temporary file could be made.
std::string writeTemp(const std::string& path, std::string_view data, unsigned mode, bool* opened = nullptr) {
    std::string name = folderOf(path) + ".zoltmp.XXXXXX";
    int fd = ::mkstemp(name.data());
    if (fd < 0) return {};
    if (opened) *opened = true;
    bool ok = writeAll(fd, data) && ::fchmod(fd, mode) == 0 && ::fsync(fd) == 0;
    ok = ::close(fd) == 0 && ok;
    if (!ok) {
        ::unlink(name.c_str());
        return {};
    }
    return name;
}

}  // namespace

bool readWholeFile(const std::string& path, std::string& out) {
    out.clear();
    int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return false;
    struct stat st {};
    if (::fstat(fd, &st) == 0 && S_ISDIR(st.st_mode)) {
        ::close(fd);
        return false;
    }
    char buf[65536];
    bool ok = true;
    for (;;) {
        ssize_t n = ::read(fd, buf, sizeof buf);
        if (n < 0) {
            if (errno == EINTR) continue;
            ok = false;
            break;
        }
        if (n == 0) break;
        out.append(buf, static_cast<size_t>(n));
    }
    ::close(fd);
    if (!ok) out.clear();
    return ok;
}

bool replaceFile(const std::string& path, std::string_view data) {
    bool opened = false;
    return replaceFile(path, data, opened);
}

bool replaceFile(const std::string& path, std::string_view data, bool& opened) {
    opened = false;
    std::string target = path;
    char resolved[PATH_MAX];
    struct stat lst {};
    if (::lstat(path.c_str(), &lst) == 0 && S_ISLNK(lst.st_mode) && ::realpath(path.c_str(), resolved))
        target = resolved;
    unsigned mode = 0;
    struct stat st {};
    if (::stat(target.c_str(), &st) == 0) {
        // A file the user made read-only stays as it is, as the rename would not care.
        if (!S_ISREG(st.st_mode) || ::access(target.c_str(), W_OK) != 0) return false;
        mode = st.st_mode & 07777;
    } else {
        mode_t mask = ::umask(0);
        ::umask(mask);
        mode = 0666 & ~mask;
    }
    std::string temp = writeTemp(target, data, mode, &opened);
    if (temp.empty()) return false;
    if (::rename(temp.c_str(), target.c_str()) != 0) {
        ::unlink(temp.c_str());
        return false;
    }
    return true;
}

bool createFileNoReplace(const std::string& path, std::string_view data, unsigned mode) {
    struct stat st {};
    if (::lstat(path.c_str(), &st) == 0) return false;
    std::string temp = writeTemp(path, data, mode);
    if (temp.empty()) return false;
    // link() fails when path appeared meanwhile, so a user's file is never replaced.
    bool ok = ::link(temp.c_str(), path.c_str()) == 0;
    ::unlink(temp.c_str());
    return ok;
}

}  // namespace zol
