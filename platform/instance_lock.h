// The instance lock: every running Zolder holds a shared lock on "zolder.lock" in its
// home folder, so that one instance can tell whether others run.
#pragma once
#include <string>

namespace zol {

constexpr const char* kInstanceLockFile = "zolder.lock";

struct InstanceLock {
    int fd = -1;  // open lock file while held, -1 otherwise
};

// Opens "zolder.lock" in folder (created when missing) and takes this instance's share.
// False when the file cannot be opened or locked.
bool takeInstanceLock(InstanceLock& lock, const std::string& folder);
// True when some other holder shares the lock of folder.
bool otherInstanceRunning(InstanceLock& lock, const std::string& folder);
void releaseInstanceLock(InstanceLock& lock);

// This process's lock, on the home folder.
InstanceLock& processInstanceLock();
// Takes this process's share of the home folder's lock; true when no other instance
// holds one (also when the lock file cannot be used: then nothing can be told).
bool acquireInstanceLock();
void releaseInstanceLock();

}  // namespace zol
