#include "platform/file_calls.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace zol {
namespace {

// Shared by all threads, as a save may flush its files from several at once; only
// tests set a fault.
std::atomic<int> failAt = 0;
std::atomic<int> failErrno = 0;
std::atomic<int> counted = 0;

// True when this call is the one chosen to fail; errno is then set.
bool faultDue() {
    const int n = ++counted;
    int due = n;
    if (failAt.load() == 0 || !failAt.compare_exchange_strong(due, 0)) return false;
    errno = failErrno;
    return true;
}

}  // namespace

int fileOpen(const char* path, int flags, unsigned mode) {
    if (faultDue()) return -1;
    int fd;
    do fd = ::open(path, flags | O_CLOEXEC, mode);
    while (fd < 0 && errno == EINTR);
    return fd;
}

ssize_t fileWrite(int fd, const void* data, size_t size) {
    if (faultDue()) return -1;
    ssize_t n;
    do n = ::write(fd, data, size);
    while (n < 0 && errno == EINTR);
    return n;
}

int fileSync(int fd) { return faultDue() ? -1 : ::fsync(fd); }
int fileRename(const char* from, const char* to) { return faultDue() ? -1 : ::rename(from, to); }
int fileLink(const char* from, const char* to) { return faultDue() ? -1 : ::link(from, to); }

int fileLinkOpen(int fd, const char* to) {
    if (faultDue()) return -1;
    // The descriptor's entry under /proc names the file; following it links the file
    // itself, which linkat allows without privileges (AT_EMPTY_PATH would need them).
    char self[40];
    std::snprintf(self, sizeof self, "/proc/self/fd/%d", fd);
    return ::linkat(AT_FDCWD, self, AT_FDCWD, to, AT_SYMLINK_FOLLOW);
}

int fileClose(int fd) {
    if (faultDue()) {
        // The descriptor must not leak even when the test says the close failed.
        const int err = errno;
        ::close(fd);
        errno = err;
        return -1;
    }
    return ::close(fd);
}

void failFileCall(int n, int err) {
    failAt = n;
    failErrno = err;
    counted = 0;
}

int fileCallsCounted() { return counted; }

}  // namespace zol
