#include "platform/file_io.h"

#include "platform/durable_write.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zol {

bool removeFile(const std::string& path) {
    struct stat st {};
    return ::lstat(path.c_str(), &st) == 0 && !S_ISDIR(st.st_mode) && ::unlink(path.c_str()) == 0;
}

std::FILE* openStream(const std::string& path, const char* mode) { return std::fopen(path.c_str(), mode); }
int renamePath(const std::string& from, const std::string& to) { return std::rename(from.c_str(), to.c_str()); }
int removePath(const std::string& path) { return std::remove(path.c_str()); }

InputFile::InputFile(const std::string& path) {
    fd_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat st {};
    if (fd_ >= 0 && (::fstat(fd_, &st) != 0 || !S_ISREG(st.st_mode))) {
        ::close(fd_);
        fd_ = -1;
    }
}

InputFile::~InputFile() { close(); }

void InputFile::close() {
    if (fd_ >= 0) ::close(fd_);
    fd_ = -1;
}

long InputFile::read(char* buf, size_t size) {
    for (;;) {
        const ssize_t n = ::read(fd_, buf, size);
        if (n >= 0 || errno != EINTR) return n;
    }
}

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
    const ReplaceResult r = replaceFileWith(path, data);
    opened = r != ReplaceResult::CannotOpen;
    return r == ReplaceResult::Replaced;
}

bool createFileNoReplace(const std::string& path, std::string_view data, unsigned mode) {
    return createFileDurably(path, data, mode);
}

}  // namespace zol
