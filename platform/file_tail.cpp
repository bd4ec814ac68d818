#include "platform/file_tail.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace zol {

bool openTail(FileTail& tail, const std::string& path) {
    closeTail(tail);
    tail.fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    tail.offset = 0;
    return tail.fd >= 0;
}

long readTail(FileTail& tail, std::string& out, size_t max) {
    if (tail.fd < 0) return -1;
    const size_t old = out.size();
    out.resize(old + max);
    ssize_t got;
    do got = ::pread(tail.fd, out.data() + old, max, static_cast<off_t>(tail.offset));
    while (got < 0 && errno == EINTR);
    out.resize(old + (got > 0 ? static_cast<size_t>(got) : 0));
    if (got < 0) return -1;
    tail.offset += static_cast<uint64_t>(got);
    return static_cast<long>(got);
}

void closeTail(FileTail& tail) {
    if (tail.fd >= 0) ::close(tail.fd);
    tail.fd = -1;
}

}  // namespace zol
