// Whole-file reads and crash-safe whole-file writes for the platform layer's own files.
#pragma once
#include <cstdio>
#include <string>
#include <string_view>

namespace zol {

// Reads the whole file into out; false (out emptied) when it cannot be opened or read.
bool readWholeFile(const std::string& path, std::string& out);

// Removes a file (not a folder); false when it could not be removed or was not there.
bool removeFile(const std::string& path);

// The C library's own calls for the script language's <stdio.h>: a stream opened with
// fopen's modes, and rename and remove with their answers (0, or -1 with errno set).
std::FILE* openStream(const std::string& path, const char* mode);
int renamePath(const std::string& from, const std::string& to);
int removePath(const std::string& path);

// A regular file open for reading in pieces; folders, devices and pipes do not open
// (a pipe would never end).
class InputFile {
public:
    explicit InputFile(const std::string& path);
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    bool isOpen() const { return fd_ >= 0; }
    // Up to size bytes into buf; 0 at the end, -1 on a read error.
    long read(char* buf, size_t size);
    void close();

private:
    int fd_ = -1;
};

// Replaces path's contents with data durably (platform/durable_write.h): a crash leaves
// either the old or the new file, never half of one. An existing file keeps its
// permission bits; a symbolic link keeps pointing where it did and its target is
// replaced. A missing file is created (its folder must exist).
bool replaceFile(const std::string& path, std::string_view data);
// The same; opened tells whether writing could begin (the target could be replaced and
// its folder took the temporary file), so that a caller can tell a file it cannot open
// from a write that failed, for example on a full disk.
bool replaceFile(const std::string& path, std::string_view data, bool& opened);

// Creates path with data and the given permission bits, only when nothing is there
// yet; the file appears complete and on disk, or not at all. False when path exists or on failure.
bool createFileNoReplace(const std::string& path, std::string_view data, unsigned mode);

}  // namespace zol
