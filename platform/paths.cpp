#include "platform/paths.h"

#include "platform/file_io.h"
#include "platform/folder_walk.h"

#include <cctype>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace zol {

namespace fs = std::filesystem;

namespace {

std::string& homeSlot() {
    static std::string home;
    return home;
}

std::string withSlash(std::string dir) {
    if (dir.empty() || dir.back() != '/') dir += '/';
    return dir;
}

std::string envValue(const char* name) {
    const char* v = std::getenv(name);
    return v ? std::string(v) : std::string();
}

std::string userHome() {
    std::string home = envValue("HOME");
    if (!home.empty()) return home;
    if (const passwd* pw = ::getpwuid(::getuid()); pw && pw->pw_dir) return pw->pw_dir;
    return "/tmp";
}

bool equalNoCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i])))
            return false;
    return true;
}

bool makeDirs(const std::string& dir) {
    struct stat st {};
    if (::stat(dir.c_str(), &st) == 0 && S_ISDIR(st.st_mode)) return true;
    std::error_code ec;
    fs::create_directories(dir, ec);
    return fs::is_directory(dir, ec);
}

}  // namespace

std::string resolveHomeDir(std::string_view homeArg) {
    if (!homeArg.empty()) return withSlash(fullPath(homeArg));
    if (std::string v = envValue("ZOLDER_HOME"); !v.empty()) return withSlash(fullPath(v));
    // The XDG rules ignore a relative XDG_CONFIG_HOME.
    if (std::string v = envValue("XDG_CONFIG_HOME"); !v.empty() && v[0] == '/')
        return withSlash(fullPath(v)) + "zolder/";
    return withSlash(fullPath(userHome())) + ".config/zolder/";
}

bool setHomeDir(std::string_view dir) {
    homeSlot() = withSlash(fullPath(dir));
    return makeDirs(homeSlot());
}

bool initHomeDir(std::string_view homeArg) { return setHomeDir(resolveHomeDir(homeArg)); }

const std::string& homeDir() {
    if (homeSlot().empty()) initHomeDir({});
    return homeSlot();
}

std::string resolveBareName(std::string_view name) {
    if (hasFolderPart(name)) return std::string(name);
    std::string path = homeDir() + std::string(name);
    struct stat st {};
    if (name.empty() || ::lstat(path.c_str(), &st) == 0) return path;
    std::vector<FolderEntry> entries;
    listFolder(homeDir(), entries);
    for (const FolderEntry& e : entries)
        if (equalNoCase(e.name, name)) return homeDir() + e.name;
    return path;
}

namespace {

struct SeedWalk {
    const std::string home;
    const std::set<std::string>& offeredBefore;
    SeedResult result;
    std::set<FolderId> entered;  // a link back up the tree is walked once
};

void offerFile(SeedWalk& walk, const std::string& path, const std::string& relative) {
    if (walk.offeredBefore.count(relative)) return;
    walk.result.offered.push_back(relative);
    const std::string target = walk.home + relative;
    std::error_code st;
    if (fs::exists(fs::symlink_status(target, st))) return;
    std::string data;
    if (!makeDirs(target.substr(0, target.rfind('/'))) || !readWholeFile(path, data)) {
        walk.result.ok = false;
        return;
    }
    const auto perms = static_cast<unsigned>(fs::status(path, st).permissions()) & 0777;
    if (createFileNoReplace(target, data, perms | 0600)) ++walk.result.copied;
    else if (!fs::exists(fs::symlink_status(target, st))) walk.result.ok = false;
}

// relative is folder's path below the shipped folder, empty or ending in "/". False
// when the walk has to stop.
bool seedFolder(SeedWalk& walk, const std::string& folder, const std::string& relative) {
    FolderId id;
    if (folderIdentity(folder, id) && !walk.entered.insert(id).second) return true;
    std::vector<FolderEntry> entries;
    switch (listFolder(folder, entries)) {
    case FsResult::Ok: break;
    case FsResult::Denied: return !relative.empty();
    default: return false;
    }
    for (const FolderEntry& e : entries) {
        const std::string path = folder + "/" + e.name;
        if (e.kind == EntryKind::File) {
            offerFile(walk, path, relative + e.name);
        } else if (e.kind == EntryKind::Folder) {
            const std::string sub = relative + e.name + "/";
            // The manual is read where it ships; a home needs no copy of it.
            if (sub != kUnseededFolder && !seedFolder(walk, path, sub)) return false;
        }
    }
    return true;
}

}  // namespace

SeedResult seedHome(std::string_view dataDir, const std::set<std::string>& offeredBefore) {
    SeedWalk walk{homeDir(), offeredBefore, {}, {}};
    std::string source(dataDir);
    while (source.size() > 1 && source.back() == '/') source.pop_back();
    if (!seedFolder(walk, source, "")) walk.result.ok = false;
    return walk.result;
}

std::string executablePath() {
    char buf[PATH_MAX];
    ssize_t n = ::readlink("/proc/self/exe", buf, sizeof buf - 1);
    if (n <= 0) return {};
    return std::string(buf, static_cast<size_t>(n));
}

std::string currentDir() {
    std::error_code ec;
    fs::path cwd = fs::current_path(ec);
    if (ec) return "/";
    return withSlash(cwd.string());
}

bool isPathSeparator(char c) { return c == '/' || c == '\\'; }

bool hasFolderPart(std::string_view path) { return path.find_first_of("/\\") != std::string_view::npos; }

std::string_view fileNamePart(std::string_view path) {
    size_t sep = path.find_last_of("/\\");
    return sep == std::string_view::npos ? path : path.substr(sep + 1);
}

std::string_view folderPart(std::string_view path) {
    size_t sep = path.find_last_of("/\\");
    return sep == std::string_view::npos ? std::string_view() : path.substr(0, sep + 1);
}

std::string_view extensionPart(std::string_view path) {
    std::string_view name = fileNamePart(path);
    size_t dot = name.rfind('.');
    return dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
}

std::string joinPath(std::string_view folder, std::string_view name) {
    std::string out(folder);
    if (!out.empty() && !isPathSeparator(out.back())) out += '/';
    out += name;
    return out;
}

std::string fullPath(std::string_view path) {
    std::string whole = path.empty() || !isPathSeparator(path[0]) ? currentDir() + std::string(path) : std::string(path);
    std::vector<std::string_view> parts;
    std::string_view rest = whole;
    while (!rest.empty()) {
        size_t sep = rest.find_first_of("/\\");
        std::string_view part = rest.substr(0, sep);
        rest = sep == std::string_view::npos ? std::string_view() : rest.substr(sep + 1);
        if (part.empty() || part == ".") continue;
        if (part == "..") {
            if (!parts.empty()) parts.pop_back();
            continue;
        }
        parts.push_back(part);
    }
    std::string out;
    for (std::string_view part : parts) {
        out += '/';
        out += part;
    }
    if (out.empty()) out = "/";
    if (!whole.empty() && isPathSeparator(whole.back()) && out.size() > 1) out += '/';
    return out;
}

}  // namespace zol
