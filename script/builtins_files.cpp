// Files and folders by name: POSIX meaning; drives do not exist, so the drive calls
// answer as if everything lived on drive C.
#include <cstring>
#include <ctime>

#include "platform/dirsearch.h"
#include "platform/fileinfo.h"
#include "platform/paths.h"
#include "platform/script_os.h"
#include "script/builtins.h"

namespace zol {
namespace {

constexpr uint32_t kStatSize = 44;
constexpr uint32_t kFfblkSize = 272;
constexpr uint32_t kFfblkName = 16;
constexpr int kDriveC = 3;

void putStat(Engine& en, uint32_t p, const ScriptStat& st) {
    const int32_t v[11] = {static_cast<int32_t>(st.mode), static_cast<int32_t>(st.size), static_cast<int32_t>(st.atime),
                           static_cast<int32_t>(st.mtime), static_cast<int32_t>(st.ctime), st.nlink, st.uid, st.gid,
                           st.dev, st.ino, st.rdev};
    putBytes(en, p, v, kStatSize);
}

// Fills a ffblk with the next name of search id; -1 when there is none.
int nextFound(Engine& en, uint32_t blk, int32_t id) {
    if (id < 1 || static_cast<size_t>(id) > en.finds.size()) return -1;
    auto& [paths, next] = en.finds[static_cast<size_t>(id - 1)];
    if (next >= paths.size()) return -1;
    const std::string& path = paths[next++];
    const FileAttributes fa = fileAttributes(path);
    std::string name(fileNamePart(path));
    if (name.size() > 255) name.resize(255);
    const int32_t size = static_cast<int32_t>(fa.size);
    const uint32_t attrib = fa.isDirectory ? 0x10 : 0x20;
    std::time_t t = static_cast<std::time_t>(fa.mtimeSec);
    const std::tm* lt = std::localtime(&t);
    uint16_t ftime = 0, fdate = 0;
    if (lt) {
        ftime = static_cast<uint16_t>((lt->tm_hour << 11) | (lt->tm_min << 5) | (lt->tm_sec / 2));
        fdate = static_cast<uint16_t>(((lt->tm_year - 80) << 9) | ((lt->tm_mon + 1) << 5) | lt->tm_mday);
    }
    putBytes(en, blk, &id, 4);
    putBytes(en, blk + 4, &size, 4);
    putBytes(en, blk + 8, &attrib, 4);
    putBytes(en, blk + 12, &ftime, 2);
    putBytes(en, blk + 14, &fdate, 2);
    putString(en, blk + kFfblkName, name);
    return 0;
}

}  // namespace

bool builtinFiles(BArgs& a, int num, Val& out) {
    Engine& en = a.en;
    auto result = [&](int r) {
        out.i = r;
        if (r < 0) en.lastErrno = scriptErrno();
    };
    switch (num) {
        case 53: result(scriptAccess(a.s(0), static_cast<int>(a.i(1)))); return true;
        case 54: result(scriptChmod(a.s(0), static_cast<int>(a.i(1)))); return true;
        case 55: result(scriptChsize(static_cast<int>(a.i(0)), static_cast<int32_t>(a.i(1)))); return true;
        case 56: out.i = static_cast<int32_t>(scriptFileLength(static_cast<int>(a.i(0)))); return true;
        case 57: out.i = scriptIsatty(static_cast<int>(a.i(0))); return true;
        case 58: result(scriptUnlink(a.s(0))); return true;
        case 59:
        case 60: {
            ScriptStat st;
            const int r = num == 59 ? scriptStat(a.s(0), st) : scriptFstat(static_cast<int>(a.i(0)), st);
            en.host(a.p(1), kStatSize);
            if (r == 0) putStat(en, a.p(1), st);
            result(r);
            return true;
        }
        case 61: {  // findfirst
            const std::string pattern = a.s(0);
            en.host(a.p(1), kFfblkSize);
            const bool dirs = (a.i(2) & 0x10) != 0;
            std::vector<std::string> paths;
            const std::string folder(folderPart(pattern));
            for (const FoundFile& f : findFiles(pattern, false))
                if (dirs || !f.isDirectory) paths.push_back(folder + f.name);
            en.finds.emplace_back(std::move(paths), 0);
            out.i = nextFound(en, a.p(1), static_cast<int32_t>(en.finds.size()));
            return true;
        }
        case 62: {  // findnext
            int32_t id = 0;
            std::memcpy(&id, en.host(a.p(0), kFfblkSize), 4);
            out.i = nextFound(en, a.p(0), id);
            return true;
        }
        case 63: result(scriptChdir(a.s(0))); return true;
        case 64: out.i = a.i(0) == kDriveC ? 0 : -1; return true;
        case 65:
        case 67: {  // getcwd, _getdcwd
            const uint32_t bufArg = num == 65 ? a.p(0) : a.p(1);
            const int64_t n = static_cast<int32_t>(num == 65 ? a.i(1) : a.i(2));
            if (n <= 0) en.fail(kErrArgMismatch);
            const std::string cwd = scriptGetcwd();
            if (cwd.empty() || static_cast<int64_t>(cwd.size()) >= n) {
                out.i = 0;
                return true;
            }
            uint32_t buf = bufArg;
            if (!buf) buf = en.heapAlloc(static_cast<uint64_t>(n), true);
            if (!buf) en.fail(kErrOutOfMemory);
            en.host(buf, static_cast<uint32_t>(n));
            putString(en, buf, cwd);
            out.i = buf;
            return true;
        }
        case 66: {  // getcurdir: the folder without its leading separator
            std::string cwd = scriptGetcwd();
            if (!cwd.empty() && cwd[0] == '/') cwd.erase(0, 1);
            putString(en, a.p(1), cwd);
            out.i = 0;
            return true;
        }
        case 68: out.i = kDriveC - 1; return true;
        case 69: out.i = kDriveC; return true;
        case 70: out.i = 26; return true;
        case 71: result(scriptMkdir(a.s(0))); return true;
        case 72: {  // mktemp
            const std::string name = scriptMktemp(a.s(0));
            if (name.empty()) {
                out.i = 0;
                return true;
            }
            putString(en, a.p(0), name);
            out.i = a.p(0);
            return true;
        }
        case 73: result(scriptRmdir(a.s(0))); return true;
        default:
            return false;
    }
}

}  // namespace zol
