#include "platform/folder_walk.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zol {
namespace {

FsResult fromErrno(int e) {
    switch (e) {
    case ENOENT:
    case ENOTDIR: return FsResult::Missing;
    case EACCES:
    case EPERM: return FsResult::Denied;
    default: return FsResult::Failed;
    }
}

EntryKind kindOfMode(mode_t mode) {
    if (S_ISREG(mode)) return EntryKind::File;
    if (S_ISDIR(mode)) return EntryKind::Folder;
    return EntryKind::Special;
}

// A link, or an entry the folder did not describe: what it leads to.
EntryKind followedKind(int dirFd, const char* name) {
    struct stat st {};
    if (::fstatat(dirFd, name, &st, 0) != 0) return EntryKind::Broken;
    return kindOfMode(st.st_mode);
}

}  // namespace

FsResult listFolder(const std::string& folder, std::vector<FolderEntry>& out) {
    out.clear();
    DIR* dir = ::opendir(folder.c_str());
    if (!dir) return fromErrno(errno);
    const int fd = ::dirfd(dir);
    while (const dirent* e = ::readdir(dir)) {
        const std::string_view name = e->d_name;
        if (name == "." || name == "..") continue;
        FolderEntry entry{std::string(name), EntryKind::File};
        switch (e->d_type) {
        case DT_REG: break;
        case DT_DIR: entry.kind = EntryKind::Folder; break;
        case DT_LNK:
        case DT_UNKNOWN: entry.kind = followedKind(fd, e->d_name); break;
        default: entry.kind = EntryKind::Special; break;
        }
        out.push_back(std::move(entry));
    }
    ::closedir(dir);
    return FsResult::Ok;
}

bool folderIdentity(const std::string& path, FolderId& id) {
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0 || !S_ISDIR(st.st_mode)) return false;
    id = {static_cast<uint64_t>(st.st_dev), static_cast<uint64_t>(st.st_ino)};
    return true;
}

FsResult RegularFileReader::open(const std::string& path) {
    close();
    // Without O_NONBLOCK, opening a pipe would wait for a writer.
    fd_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (fd_ < 0) return errno == ELOOP ? FsResult::Missing : fromErrno(errno);
    struct stat st {};
    if (::fstat(fd_, &st) != 0 || !S_ISREG(st.st_mode)) {
        close();
        return FsResult::NotRegular;
    }
    size_ = static_cast<uint64_t>(st.st_size);
    return FsResult::Ok;
}

long RegularFileReader::read(char* buf, size_t size) {
    for (;;) {
        const ssize_t n = ::read(fd_, buf, size);
        if (n >= 0) return n;
        if (errno == EINTR) continue;
        failure_ = fromErrno(errno) == FsResult::Missing ? FsResult::Missing : FsResult::Failed;
        return -1;
    }
}

void RegularFileReader::close() {
    if (fd_ >= 0) ::close(fd_);
    fd_ = -1;
    size_ = 0;
    failure_ = FsResult::Ok;
}

FsResult readRegularFile(const std::string& path, std::string& out) {
    out.clear();
    RegularFileReader f;
    if (const FsResult res = f.open(path); res != FsResult::Ok) return res;
    // The size is a first guess only: the file may grow while it is read.
    size_t used = 0;
    out.resize(static_cast<size_t>(f.sizeWhenOpened()) + 1);
    for (;;) {
        if (used == out.size()) out.resize(out.size() * 2);
        const long n = f.read(out.data() + used, out.size() - used);
        if (n < 0) {
            out.clear();
            return f.failure();
        }
        if (n == 0) break;
        used += static_cast<size_t>(n);
    }
    out.resize(used);
    return FsResult::Ok;
}

}  // namespace zol
