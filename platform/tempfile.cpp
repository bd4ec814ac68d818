#include "platform/tempfile.h"

#include "platform/paths.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zol {

namespace {

// Four hexadecimal digits give this many names per prefix.
constexpr unsigned kTempNames = 0x10000;

}  // namespace

std::string tempDir() {
    const char* env = std::getenv("TMPDIR");
    struct stat st {};
    if (env && *env && ::stat(env, &st) == 0 && S_ISDIR(st.st_mode)) {
        std::string dir = env;
        if (dir.back() != '/') dir += '/';
        return dir;
    }
    return "/tmp/";
}

std::string createTempFile(std::string_view dir, std::string_view prefix) {
    std::string folder = dir.empty() ? tempDir() : joinPath(dir, "");
    std::string head = folder + std::string(prefix.substr(0, 3));
    timespec ts {};
    ::clock_gettime(CLOCK_REALTIME, &ts);
    unsigned start = static_cast<unsigned>(ts.tv_nsec / 1000) ^ static_cast<unsigned>(::getpid());
    for (unsigned i = 0; i < kTempNames; ++i) {
        unsigned n = (start + i) % kTempNames;
        if (n == 0) continue;  // GetTempFileName never hands out 0
        char tail[16];
        std::snprintf(tail, sizeof tail, "%04X.tmp", n);
        std::string path = head + tail;
        int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        if (fd >= 0) {
            ::close(fd);
            return path;
        }
        if (errno != EEXIST) return {};
    }
    return {};
}

std::string createTempDir(std::string_view prefix) {
    std::string templ = tempDir() + std::string(prefix) + "XXXXXX";
    if (!::mkdtemp(templ.data())) return {};
    return templ + "/";
}

}  // namespace zol
