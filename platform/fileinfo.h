// File attributes and times, as the editor asks for them.
#pragma once
#include <cstdint>
#include <string>

namespace zol {

struct FileAttributes {
    bool exists = false;
    bool isDirectory = false;
    bool readOnly = false;  // exists, but this process may not write it, or it has no write bit
    uint64_t size = 0;      // bytes; 0 for directories
    int64_t mtimeSec = 0;   // modification time, seconds since 1970
    int32_t mtimeNsec = 0;  // and its nanoseconds, 0..999999999
};

// Follows symbolic links; a missing or unreachable path has exists == false.
FileAttributes fileAttributes(const std::string& path);
bool fileExists(const std::string& path);
bool isDirectory(const std::string& path);

// The modification time cut to 32 bits, as the editor stores it; 0 when missing.
uint32_t fileTime32(const std::string& path);

}  // namespace zol
