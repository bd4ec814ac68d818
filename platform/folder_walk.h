// What a walk through a folder tree needs from the system: a folder's entries with what
// each one is (symbolic links followed), a folder's identity so that a walk can tell a
// folder it has been in already (a link loop), and reading a regular file whole without
// ever waiting on a pipe or a device.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace zol {

enum class EntryKind : uint8_t {
    File,     // a regular file, or a link to one
    Folder,   // a folder, or a link to one
    Special,  // a pipe, socket or device
    Broken,   // a link that leads nowhere (or round in circles)
};

struct FolderEntry {
    std::string name;
    EntryKind kind = EntryKind::File;
};

enum class FsResult : uint8_t {
    Ok,
    Missing,     // gone, or never there
    Denied,      // no permission
    NotRegular,  // a folder, pipe, socket or device where a file was wanted
    Failed,      // any other error of the system
};

// The entries of folder ("." and ".." left out) in the order the system gives them.
FsResult listFolder(const std::string& folder, std::vector<FolderEntry>& out);

struct FolderId {
    uint64_t device = 0;
    uint64_t inode = 0;
    auto operator<=>(const FolderId&) const = default;
};
// The identity of the folder path leads to (links followed); false when unreachable.
bool folderIdentity(const std::string& path, FolderId& id);

// A regular file open for reading in pieces. A pipe or device is refused (NotRegular)
// without being opened for long.
class RegularFileReader {
public:
    RegularFileReader() = default;
    ~RegularFileReader() { close(); }
    RegularFileReader(const RegularFileReader&) = delete;
    RegularFileReader& operator=(const RegularFileReader&) = delete;

    // Opens path, closing what was open before.
    FsResult open(const std::string& path);
    // Up to size bytes into buf; 0 at the end, -1 when reading failed (failure() says how).
    long read(char* buf, size_t size);
    FsResult failure() const { return failure_; }
    // The size when opened: the file may still grow or shrink.
    uint64_t sizeWhenOpened() const { return size_; }
    void close();

private:
    int fd_ = -1;
    uint64_t size_ = 0;
    FsResult failure_ = FsResult::Ok;
};

// Reads a regular file whole into out, reusing out's memory; out is emptied on failure.
FsResult readRegularFile(const std::string& path, std::string& out);

}  // namespace zol
