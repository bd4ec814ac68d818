#include "platform/durable_write.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <ctime>
#include <dirent.h>
#include <system_error>
#include <thread>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/file_calls.h"
#include "platform/paths.h"

namespace zol {
namespace {

// Bytes reach the kernel in pieces this big: a 100 MB document is a hundred calls, and
// the buffer stays small beside the document it writes.
constexpr size_t kWriteChunk = size_t{1} << 20;
// Names beside the target are random; this many taken names in a row means something
// else is wrong with the folder.
constexpr int kTempNameTries = 64;

// The folder part of a path, "./" for a bare name, so that a name can be put in front.
std::string folderOf(const std::string& path) {
    const std::string_view folder = folderPart(path);
    return folder.empty() ? std::string("./") : std::string(folder);
}

// Writing through a symbolic link replaces the file it points to, not the link; a
// dangling link names the file to create.
std::string resolveTarget(const std::string& path) {
    struct stat lst {};
    if (::lstat(path.c_str(), &lst) != 0 || !S_ISLNK(lst.st_mode)) return path;
    char resolved[PATH_MAX];
    if (::realpath(path.c_str(), resolved)) return resolved;
    char dest[PATH_MAX];
    const ssize_t n = ::readlink(path.c_str(), dest, sizeof dest - 1);
    if (n <= 0) return path;
    const std::string d(dest, static_cast<size_t>(n));
    return d[0] == '/' ? d : folderOf(path) + d;
}

std::string freshName(const std::string& folder, const char* suffix) {
    static unsigned counter = 0;
    timespec ts {};
    ::clock_gettime(CLOCK_MONOTONIC, &ts);
    const unsigned mix = static_cast<unsigned>(ts.tv_nsec) ^ (static_cast<unsigned>(::getpid()) << 16) ^ (++counter * 2654435761u);
    char name[32];
    std::snprintf(name, sizeof name, ".zol%08X%s", mix, suffix);
    return folder + name;
}

// The new bytes go into a file without a name (O_TMPFILE) where the file system has
// them: a save killed while writing then leaves nothing beside the target, as the
// kernel frees the file with its last descriptor. Only a finished file gets a name.
bool unnamedFilesWork() {
    static const bool work = ::access("/proc/self/fd", X_OK) == 0;
    return work;
}

// An open file to write the new bytes into; name is left empty while it has none.
int createTemp(const std::string& folder, std::string& name) {
    name.clear();
    if (unnamedFilesWork()) {
        const int fd = fileOpen(folder.c_str(), O_WRONLY | O_TMPFILE, 0600);
        if (fd >= 0) return fd;
        // Anything but "this file system cannot" is a real failure of the save.
        if (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL) return -1;
    }
    for (int i = 0; i < kTempNameTries; ++i) {
        name = freshName(folder, ".tmp");
        const int fd = fileOpen(name.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600);
        if (fd >= 0 || errno != EEXIST) return fd;
    }
    return -1;
}

// A name beside the target for a finished temporary file, once it must be renamed.
bool nameTemp(int fd, const std::string& folder, std::string& name) {
    if (!name.empty()) return true;
    for (int i = 0; i < kTempNameTries; ++i) {
        const std::string fresh = freshName(folder, ".tmp");
        if (fileLinkOpen(fd, fresh.c_str()) == 0) {
            name = fresh;
            return true;
        }
        if (errno != EEXIST) break;
    }
    return false;
}

// Puts a finished temporary file under path, which must not exist yet: link() and
// linkat() fail when it does, so a file that appeared meanwhile is never replaced.
bool linkTempAs(int fd, const std::string& temp, const std::string& path) {
    return temp.empty() ? fileLinkOpen(fd, path.c_str()) == 0 : fileLink(temp.c_str(), path.c_str()) == 0;
}

bool writeAll(int fd, std::string_view data) {
    while (!data.empty()) {
        const ssize_t n = fileWrite(fd, data.data(), data.size());
        if (n <= 0) return false;
        data.remove_prefix(static_cast<size_t>(n));
    }
    return true;
}

bool readAll(int fd, std::string& out) {
    out.clear();
    if (::lseek(fd, 0, SEEK_SET) != 0) return false;
    char buf[65536];
    for (;;) {
        const ssize_t n = ::read(fd, buf, sizeof buf);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return false;
        if (n == 0) return true;
        out.append(buf, static_cast<size_t>(n));
    }
}

// A folder's entries reach the disk only when the folder itself is flushed. File
// systems that cannot flush a folder say EINVAL; there is nothing more to do on them.
bool syncFolder(const std::string& folder) {
    const int fd = fileOpen(folder.c_str(), O_RDONLY | O_DIRECTORY);
    if (fd < 0) return false;
    const bool ok = fileSync(fd) == 0 || errno == EINVAL;
    return fileClose(fd) == 0 && ok;
}

void removeQuietly(const std::string& path) {
    if (!path.empty()) ::unlink(path.c_str());
}

bool flushPending(DurableReplace& r) {
    if (!r.failed && !r.pending.empty() && !writeAll(r.fd, r.pending)) r.failed = true;
    r.pending.clear();
    return !r.failed;
}

// The old bytes under a second name beside the target, so that they can be put back:
// a hard link where the file system has them, else (only when they must outlive the
// save as a backup) a copy.
std::string keepOldBytes(const DurableReplace& r, bool needCopy) {
    std::string keep;
    for (int i = 0; i < kTempNameTries; ++i) {
        keep = freshName(folderOf(r.target), ".old");
        if (fileLink(r.target.c_str(), keep.c_str()) == 0) return keep;
        if (errno != EEXIST) break;
    }
    if (!needCopy) return {};
    std::string old;
    const int in = ::open(r.target.c_str(), O_RDONLY | O_CLOEXEC);
    const bool read = in >= 0 && readAll(in, old);
    if (in >= 0) ::close(in);
    if (!read) return {};
    const int fd = createTemp(folderOf(r.target), keep);
    if (fd < 0) return {};
    bool ok = writeAll(fd, old) && ::fchmod(fd, r.mode) == 0 && fileSync(fd) == 0 &&
              nameTemp(fd, folderOf(r.target), keep);
    ok = fileClose(fd) == 0 && ok;
    if (ok) return keep;
    removeQuietly(keep);
    return {};
}

// A second name for an existing file, so that it can be put back; empty when the file
// is missing or the file system has no hard links.
std::string linkAside(const std::string& path) {
    struct stat st {};
    if (::lstat(path.c_str(), &st) != 0) return {};
    for (int i = 0; i < kTempNameTries; ++i) {
        const std::string aside = freshName(folderOf(path), ".old");
        if (fileLink(path.c_str(), aside.c_str()) == 0) return aside;
        if (errno != EEXIST) break;
    }
    return {};
}

// The names that let a failed replace be undone: the old bytes (keep) and, when a
// backup is made, the backup that was there before (oldBackup).
struct Undo {
    std::string keep, oldBackup;
    bool backupTaken = false;  // keep has been renamed to the backup name
};

// After a failed step: the old bytes go back under the target's name and the old
// backup under its own.
void undoReplace(const DurableReplace& r, const Undo& u, const std::string& backupPath) {
    if (u.backupTaken) {
        fileRename(backupPath.c_str(), r.target.c_str());
        if (!u.oldBackup.empty()) fileRename(u.oldBackup.c_str(), backupPath.c_str());
    } else {
        if (!u.keep.empty()) fileRename(u.keep.c_str(), r.target.c_str());
        else if (!r.existed) removeQuietly(r.target);
        removeQuietly(u.oldBackup);
    }
    syncFolder(folderOf(r.target));
}

ReplaceResult finishAtomic(DurableReplace& r, const std::string& backupPath) {
    const bool written = flushPending(r) && ::fchmod(r.fd, r.mode) == 0 && fileSync(r.fd) == 0;
    const bool backup = r.existed && !backupPath.empty() && backupPath != r.target;
    Undo u;
    if (written && r.existed) u.keep = keepOldBytes(r, backup);
    if (written && backup) u.oldBackup = linkAside(backupPath);
    const bool kept = !backup || !u.keep.empty();
    // The new bytes get their name last, just before they take the target's, so that a
    // save killed on the way has next to no moment in which it leaves them behind.
    bool ok = written && kept && nameTemp(r.fd, folderOf(r.target), r.temp);
    ok = fileClose(r.fd) == 0 && ok;
    r.fd = -1;
    if (!ok) {
        removeQuietly(r.temp);
        removeQuietly(u.keep);
        removeQuietly(u.oldBackup);
        return written && !kept ? ReplaceResult::BackupFailed : ReplaceResult::WriteFailed;
    }
    if (fileRename(r.temp.c_str(), r.target.c_str()) != 0) {
        removeQuietly(r.temp);
        removeQuietly(u.keep);
        removeQuietly(u.oldBackup);
        return ReplaceResult::CannotReplace;
    }
    if (backup) {
        if (fileRename(u.keep.c_str(), backupPath.c_str()) != 0) {
            undoReplace(r, u, backupPath);
            return ReplaceResult::BackupFailed;
        }
        u.backupTaken = true;
    }
    if (!syncFolder(folderOf(r.target))) {
        undoReplace(r, u, backupPath);
        return ReplaceResult::WriteFailed;
    }
    if (!backup) removeQuietly(u.keep);
    removeQuietly(u.oldBackup);
    return ReplaceResult::Replaced;
}

// In place the old bytes are held in memory while the new ones are written over them,
// and written back when that fails; the file's blocks are reused, so putting back what
// was there cannot run out of room.
ReplaceResult finishInPlace(DurableReplace& r, const std::string& backupPath) {
    std::string old;
    ReplaceResult result = ReplaceResult::Replaced;
    if (!readAll(r.fd, old)) result = ReplaceResult::WriteFailed;
    else if (!backupPath.empty() && backupPath != r.target && replaceFileWith(backupPath, old) != ReplaceResult::Replaced)
        result = ReplaceResult::BackupFailed;
    else if (::lseek(r.fd, 0, SEEK_SET) != 0 || !writeAll(r.fd, r.pending) ||
             ::ftruncate(r.fd, static_cast<off_t>(r.pending.size())) != 0 || fileSync(r.fd) != 0) {
        if (::lseek(r.fd, 0, SEEK_SET) == 0 && writeAll(r.fd, old) && ::ftruncate(r.fd, static_cast<off_t>(old.size())) == 0)
            fileSync(r.fd);
        result = ReplaceResult::WriteFailed;
    }
    // Once the bytes are flushed a failing close has nothing left to lose.
    fileClose(r.fd);
    r.fd = -1;
    r.pending.clear();
    return result;
}

// A save that was killed between taking a second name for the old bytes and dropping
// it leaves that name behind as a hard link to the file, which would make every later
// save of the file go in place. Such names are ours (".zol<hex>.old") and are removed.
void removeStrayLinks(const std::string& target, const struct stat& st) {
    const std::string folder = folderOf(target);
    DIR* dir = ::opendir(folder.c_str());
    if (!dir) return;
    while (const dirent* e = ::readdir(dir)) {
        const std::string_view name = e->d_name;
        if (name.size() != 16 || name.substr(0, 4) != ".zol" || name.substr(12) != ".old") continue;
        const std::string path = folder + std::string(name);
        struct stat other {};
        if (::lstat(path.c_str(), &other) == 0 && other.st_dev == st.st_dev && other.st_ino == st.st_ino)
            ::unlink(path.c_str());
    }
    ::closedir(dir);
}

}  // namespace

ReplaceResult beginReplace(DurableReplace& r, const std::string& path) {
    r = DurableReplace{};
    r.target = resolveTarget(path);
    struct stat st {};
    int found = ::stat(r.target.c_str(), &st);
    if (found == 0 && st.st_nlink > 1) {
        removeStrayLinks(r.target, st);
        found = ::stat(r.target.c_str(), &st);
    }
    if (found == 0) {
        // A file without any write bit stays as it is even for a user who could write it.
        const bool writable = ::access(r.target.c_str(), W_OK) == 0 && (st.st_mode & 0222) != 0;
        if (!S_ISREG(st.st_mode) || !writable) return ReplaceResult::CannotOpen;
        r.existed = true;
        r.mode = st.st_mode & 07777;
        if (st.st_nlink > 1) r.inPlace = InPlaceReason::HardLinks;
    } else if (errno != ENOENT) {
        return ReplaceResult::CannotOpen;
    } else {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        r.mode = 0666 & ~mask;
    }
    const std::string folder = folderOf(r.target);
    if (r.inPlace == InPlaceReason::None && ::access(folder.c_str(), W_OK | X_OK) != 0) {
        if (!r.existed) return ReplaceResult::CannotOpen;
        r.inPlace = InPlaceReason::Folder;
    }
    if (r.inPlace == InPlaceReason::None) {
        r.fd = createTemp(folder, r.temp);
        if (r.fd < 0) return ReplaceResult::CannotOpen;
        const bool foreign = r.existed && (st.st_uid != ::geteuid() || st.st_gid != ::getegid());
        if (foreign && ::fchown(r.fd, st.st_uid, st.st_gid) != 0) {
            abandonReplace(r);
            r.inPlace = InPlaceReason::Owner;
        }
    }
    if (r.inPlace != InPlaceReason::None) {
        r.fd = fileOpen(r.target.c_str(), O_RDWR);
        if (r.fd < 0) return ReplaceResult::CannotOpen;
    } else {
        r.pending.reserve(kWriteChunk);
    }
    return ReplaceResult::Replaced;
}

void putBytes(DurableReplace& r, std::string_view data) {
    if (r.failed) return;
    if (r.inPlace != InPlaceReason::None) {
        r.pending.append(data);
        return;
    }
    if (r.pending.size() + data.size() > kWriteChunk && !flushPending(r)) return;
    if (data.size() >= kWriteChunk) {
        if (!writeAll(r.fd, data)) r.failed = true;
        return;
    }
    r.pending.append(data);
}

ReplaceResult finishReplace(DurableReplace& r, const std::string& backupPath) {
    if (r.fd < 0) return ReplaceResult::CannotOpen;
    return r.inPlace == InPlaceReason::None ? finishAtomic(r, backupPath) : finishInPlace(r, backupPath);
}

void abandonReplace(DurableReplace& r) {
    if (r.fd >= 0) ::close(r.fd);
    r.fd = -1;
    removeQuietly(r.temp);
    r.temp.clear();
    r.pending.clear();
}

ReplaceResult replaceFileWith(const std::string& path, std::string_view data, const std::string& backupPath) {
    DurableReplace r;
    const ReplaceResult begun = beginReplace(r, path);
    if (begun != ReplaceResult::Replaced) return begun;
    putBytes(r, data);
    return finishReplace(r, backupPath);
}

namespace {

// fileSync of every open descriptor (-1 skipped), the results in the same order. The
// flushes wait on the disk, not on the processor: made at once, they overlap.
std::vector<int> flushTogether(const std::vector<int>& fds) {
    std::vector<int> synced(fds.size(), -1);
    std::vector<std::thread> flushers;
    for (size_t i = 0; i < fds.size(); ++i) {
        if (fds[i] < 0) continue;
        try {
            flushers.emplace_back([&synced, &fds, i] { synced[i] = fileSync(fds[i]); });
        } catch (const std::system_error&) {
            synced[i] = fileSync(fds[i]);  // no thread to spare: flush it here
        }
    }
    for (std::thread& t : flushers) t.join();
    return synced;
}

}  // namespace

void writeFilesTogether(std::vector<FileToWrite>& files) {
    std::vector<std::string> temps(files.size());
    std::vector<int> fds(files.size(), -1);
    for (size_t i = 0; i < files.size(); ++i) {
        FileToWrite& f = files[i];
        f.written = false;
        struct stat st {};
        if (f.createOnly && ::lstat(f.path.c_str(), &st) == 0) continue;
        const unsigned mode = !f.createOnly && ::stat(f.path.c_str(), &st) == 0 ? st.st_mode & 07777 : f.mode;
        fds[i] = createTemp(folderOf(f.path), temps[i]);
        if (fds[i] < 0) continue;
        if (writeAll(fds[i], f.data) && ::fchmod(fds[i], mode) == 0) {
            // Start the disk on this file while the next one is written.
            ::sync_file_range(fds[i], 0, 0, SYNC_FILE_RANGE_WRITE);
            continue;
        }
        fileClose(fds[i]);
        fds[i] = -1;
        removeQuietly(temps[i]);
    }
    const std::vector<int> synced = flushTogether(fds);
    std::vector<std::string> folders;
    for (size_t i = 0; i < files.size(); ++i) {
        if (fds[i] < 0) continue;
        const bool create = files[i].createOnly;
        bool ok = synced[i] == 0;
        const bool linked = ok && create && linkTempAs(fds[i], temps[i], files[i].path);
        if (ok && !create) ok = nameTemp(fds[i], folderOf(files[i].path), temps[i]);
        ok = fileClose(fds[i]) == 0 && ok && (linked || !create);
        if (linked && !ok) removeQuietly(files[i].path);  // made a moment ago by this call
        if (ok && !create) ok = fileRename(temps[i].c_str(), files[i].path.c_str()) == 0;
        if (files[i].createOnly || !ok) removeQuietly(temps[i]);
        files[i].written = ok;
        const std::string folder = folderOf(files[i].path);
        if (ok && std::find(folders.begin(), folders.end(), folder) == folders.end()) folders.push_back(folder);
    }
    for (const std::string& folder : folders) {
        if (syncFolder(folder)) continue;
        for (FileToWrite& f : files)
            if (f.written && folderOf(f.path) == folder) f.written = false;
    }
}

bool createFileDurably(const std::string& path, std::string_view data, unsigned mode) {
    struct stat st {};
    if (::lstat(path.c_str(), &st) == 0) return false;
    std::string temp;
    const int fd = createTemp(folderOf(path), temp);
    if (fd < 0) return false;
    const bool linked = writeAll(fd, data) && ::fchmod(fd, mode) == 0 && fileSync(fd) == 0 && linkTempAs(fd, temp, path);
    bool ok = fileClose(fd) == 0 && linked;
    if (linked && !ok) removeQuietly(path);  // made a moment ago by this call
    removeQuietly(temp);
    if (ok && !syncFolder(folderOf(path))) {
        removeQuietly(path);
        ok = false;
    }
    return ok;
}

}  // namespace zol
