// Files and folders by name: POSIX meaning; drives do not exist, so the drive calls
// answer as if everything lived on drive C.
#include <cstring>
#include <ctime>

#include "platform/clock.h"
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
    std::tm lt {};
    uint16_t ftime = 0, fdate = 0;
    if (breakDownTime(fa.mtimeSec, true, lt)) {
        ftime = static_cast<uint16_t>((lt.tm_hour << 11) | (lt.tm_min << 5) | (lt.tm_sec / 2));
        fdate = static_cast<uint16_t>(((lt.tm_year - 80) << 9) | ((lt.tm_mon + 1) << 5) | lt.tm_mday);
    }
    putBytes(en, blk, &id, 4);
    putBytes(en, blk + 4, &size, 4);
    putBytes(en, blk + 8, &attrib, 4);
    putBytes(en, blk + 12, &ftime, 2);
    putBytes(en, blk + 14, &fdate, 2);
    putString(en, blk + kFfblkName, name);
    return 0;
}

// The result of a POSIX call: -1 sets the script's errno.
Val osResult(Engine& en, int r) {
    if (r < 0) en.lastErrno = scriptErrno();
    return intVal(r);
}

// stat and fstat: the buffer must hold a struct stat whatever the outcome.
Val statInto(BArgs& a, int r, const ScriptStat& st) {
    a.en.host(a.p(1), kStatSize);
    if (r == 0) putStat(a.en, a.p(1), st);
    return osResult(a.en, r);
}

// getcwd and _getdcwd: the folder into buf, or into a new block of n bytes when buf is NULL.
Val cwdInto(BArgs& a, uint32_t buf, int64_t n) {
    Engine& en = a.en;
    if (n <= 0) en.fail(kErrArgMismatch);
    const std::string cwd = scriptGetcwd();
    if (cwd.empty() || static_cast<int64_t>(cwd.size()) >= n) return intVal(0);
    if (!buf) buf = en.heapAlloc(static_cast<uint64_t>(n), true);
    if (!buf) en.fail(kErrOutOfMemory);
    en.host(buf, static_cast<uint32_t>(n));
    putString(en, buf, cwd);
    return intVal(buf);
}

}  // namespace

Val bi_access(BArgs& a) { return osResult(a.en, scriptAccess(a.s(0), static_cast<int>(a.i(1)))); }

Val bi_chmod(BArgs& a) { return osResult(a.en, scriptChmod(a.s(0), static_cast<int>(a.i(1)))); }

Val bi_chsize(BArgs& a) {
    return osResult(a.en, scriptChsize(static_cast<int>(a.i(0)), static_cast<int32_t>(a.i(1))));
}

Val bi_filelength(BArgs& a) { return intVal(static_cast<int32_t>(scriptFileLength(static_cast<int>(a.i(0))))); }

Val bi_isatty(BArgs& a) { return intVal(scriptIsatty(static_cast<int>(a.i(0)))); }

Val bi_unlink(BArgs& a) { return osResult(a.en, scriptUnlink(a.s(0))); }

Val bi_stat(BArgs& a) {
    ScriptStat st;
    const int r = scriptStat(a.s(0), st);
    return statInto(a, r, st);
}

Val bi_fstat(BArgs& a) {
    ScriptStat st;
    const int r = scriptFstat(static_cast<int>(a.i(0)), st);
    return statInto(a, r, st);
}

Val bi_findfirst(BArgs& a) {
    Engine& en = a.en;
    const std::string pattern = a.s(0);
    en.host(a.p(1), kFfblkSize);
    const bool dirs = (a.i(2) & 0x10) != 0;
    std::vector<std::string> paths;
    const std::string folder(folderPart(pattern));
    for (const FoundFile& f : findFiles(pattern, false))
        if (dirs || !f.isDirectory) paths.push_back(folder + f.name);
    en.finds.emplace_back(std::move(paths), 0);
    return intVal(nextFound(en, a.p(1), static_cast<int32_t>(en.finds.size())));
}

Val bi_findnext(BArgs& a) {
    int32_t id = 0;
    std::memcpy(&id, a.en.host(a.p(0), kFfblkSize), 4);
    return intVal(nextFound(a.en, a.p(0), id));
}

Val bi_chdir(BArgs& a) { return osResult(a.en, scriptChdir(a.s(0))); }

Val bi_chdrive(BArgs& a) { return intVal(a.i(0) == kDriveC ? 0 : -1); }

Val bi_getcwd(BArgs& a) { return cwdInto(a, a.p(0), static_cast<int32_t>(a.i(1))); }

// The folder without its leading separator.
Val bi_getcurdir(BArgs& a) {
    std::string cwd = scriptGetcwd();
    if (!cwd.empty() && cwd[0] == '/') cwd.erase(0, 1);
    putString(a.en, a.p(1), cwd);
    return intVal(0);
}

Val bi_getdcwd(BArgs& a) { return cwdInto(a, a.p(1), static_cast<int32_t>(a.i(2))); }

Val bi_getdisk(BArgs&) { return intVal(kDriveC - 1); }

Val bi_getdrive(BArgs&) { return intVal(kDriveC); }

Val bi_setdisk(BArgs&) { return intVal(26); }

Val bi_mkdir(BArgs& a) { return osResult(a.en, scriptMkdir(a.s(0))); }

Val bi_mktemp(BArgs& a) {
    const std::string name = scriptMktemp(a.s(0));
    if (name.empty()) return intVal(0);
    putString(a.en, a.p(0), name);
    return intVal(a.p(0));
}

Val bi_rmdir(BArgs& a) { return osResult(a.en, scriptRmdir(a.s(0))); }

}  // namespace zol
