#include "platform/fileinfo.h"

#include <sys/stat.h>
#include <unistd.h>

namespace zol {

FileAttributes fileAttributes(const std::string& path) {
    FileAttributes a;
    struct stat st {};
    if (path.empty() || ::stat(path.c_str(), &st) != 0) return a;
    a.exists = true;
    a.isDirectory = S_ISDIR(st.st_mode);
    // A file without any write bit stays read-only even for a user who could write it.
    a.readOnly = ::access(path.c_str(), W_OK) != 0 || (!a.isDirectory && (st.st_mode & 0222) == 0);
    a.size = a.isDirectory ? 0 : static_cast<uint64_t>(st.st_size);
    a.mtimeSec = st.st_mtim.tv_sec;
    a.mtimeNsec = static_cast<int32_t>(st.st_mtim.tv_nsec);
    return a;
}

bool fileExists(const std::string& path) { return fileAttributes(path).exists; }

bool isDirectory(const std::string& path) { return fileAttributes(path).isDirectory; }

uint32_t fileTime32(const std::string& path) {
    FileAttributes a = fileAttributes(path);
    return a.exists ? static_cast<uint32_t>(a.mtimeSec) : 0;
}

}  // namespace zol
