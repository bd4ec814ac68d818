#include "platform/instance_lock.h"

#include "platform/paths.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace zol {

namespace {

int openLockFile(const std::string& folder) {
    std::string path = joinPath(folder, kInstanceLockFile);
    return ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
}

int lockRetrying(int fd, int op) {
    int rc;
    do rc = ::flock(fd, op);
    while (rc != 0 && errno == EINTR);
    return rc;
}

}  // namespace

bool takeInstanceLock(InstanceLock& lock, const std::string& folder) {
    if (lock.fd >= 0) return true;
    int fd = openLockFile(folder);
    if (fd < 0) return false;
    if (lockRetrying(fd, LOCK_SH) != 0) {
        ::close(fd);
        return false;
    }
    lock.fd = fd;
    return true;
}

bool otherInstanceRunning(InstanceLock& lock, const std::string& folder) {
    if (lock.fd < 0) {
        int fd = openLockFile(folder);
        if (fd < 0) return false;
        bool others = lockRetrying(fd, LOCK_EX | LOCK_NB) != 0;
        ::close(fd);
        return others;
    }
    // Upgrading our own share succeeds only when nobody else holds one. A failed
    // upgrade may drop our share, so it is taken again either way.
    bool others = lockRetrying(lock.fd, LOCK_EX | LOCK_NB) != 0;
    lockRetrying(lock.fd, LOCK_SH);
    return others;
}

void releaseInstanceLock(InstanceLock& lock) {
    if (lock.fd < 0) return;
    ::flock(lock.fd, LOCK_UN);
    ::close(lock.fd);
    lock.fd = -1;
}

InstanceLock& processInstanceLock() {
    static InstanceLock lock;
    return lock;
}

bool acquireInstanceLock() {
    InstanceLock& lock = processInstanceLock();
    if (!takeInstanceLock(lock, homeDir())) return true;
    return !otherInstanceRunning(lock, homeDir());
}

void releaseInstanceLock() { releaseInstanceLock(processInstanceLock()); }

}  // namespace zol
