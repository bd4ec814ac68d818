// Operating-system services of the script library: environment, processes, files and
// folders by name or descriptor, and the interrupt that stops a running script.
// Each returns what the C library call of the same meaning returns (0 or -1, ...);
// scriptErrno() gives the reason of the last failure.
#pragma once
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>

namespace zol {

int scriptErrno();
std::optional<std::string> scriptGetenv(const std::string& name);
int scriptPutenv(const std::string& assignment);  // "NAME=VALUE"; "NAME=" removes NAME
int scriptSystem(const std::string& command);     // exit status, or -1 when no shell ran

int scriptFileno(FILE* f);
int scriptAccess(const std::string& path, int mode);  // mode: 0 exists, 2 write, 4 read, 6 both
int scriptChmod(const std::string& path, int mode);
int scriptChsize(int fd, int64_t size);
int64_t scriptFileLength(int fd);
int scriptIsatty(int fd);
int scriptUnlink(const std::string& path);

struct ScriptStat {
    uint32_t mode = 0;  // 0x4000 folder, 0x8000 regular file, plus the permission bits
    int64_t size = 0, atime = 0, mtime = 0, ctime = 0;
    int32_t nlink = 0, uid = 0, gid = 0, dev = 0, ino = 0, rdev = 0;
};
int scriptStat(const std::string& path, ScriptStat& st);
int scriptFstat(int fd, ScriptStat& st);

int scriptChdir(const std::string& path);
std::string scriptGetcwd();  // empty on failure
int scriptMkdir(const std::string& path);
int scriptRmdir(const std::string& path);
// templ ends in "XXXXXX"; those are replaced so that no file of that name exists.
// Empty when templ is malformed.
std::string scriptMktemp(const std::string& templ);
// A file name in the temporary folder that nothing uses yet.
std::string scriptTempName();

// While installed, an interrupt from the terminal (Ctrl+C) sets *flag instead of
// ending the process.
void scriptInstallInterrupt(std::atomic<int>* flag);
void scriptRemoveInterrupt();

}  // namespace zol
