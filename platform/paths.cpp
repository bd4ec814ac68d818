#include "platform/paths.h"

#include "platform/file_io.h"

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
    std::error_code ec;
    for (fs::directory_iterator it(homeDir(), ec), end; !ec && it != end; it.increment(ec)) {
        std::string entry = it->path().filename().string();
        if (equalNoCase(entry, name)) return homeDir() + entry;
    }
    return path;
}

SeedResult seedHome(std::string_view dataDir, const std::set<std::string>& offeredBefore) {
    SeedResult result;
    std::error_code ec;
    const fs::path source(dataDir);
    auto opts = fs::directory_options::follow_directory_symlink | fs::directory_options::skip_permission_denied;
    fs::recursive_directory_iterator it(source, opts, ec), end;
    if (ec || !fs::is_directory(source, ec)) return {false, 0, {}};
    const std::string home = homeDir();
    for (; it != end; it.increment(ec)) {
        if (ec) return {false, result.copied, result.offered};
        std::error_code st;
        // The walk's own paths start with source, so no symbolic link needs resolving.
        const std::string relative = it->path().lexically_relative(source).generic_string();
        if (it->is_directory(st)) {
            // The manual is read where it ships; a home needs no copy of it.
            if (kUnseededFolder == relative + "/") it.disable_recursion_pending();
            continue;
        }
        if (!it->is_regular_file(st)) continue;
        if (relative.empty() || offeredBefore.count(relative)) continue;
        result.offered.push_back(relative);
        const std::string target = home + relative;
        if (fs::exists(fs::symlink_status(target, st))) continue;
        std::string data;
        const size_t slash = target.rfind('/');
        if (!makeDirs(target.substr(0, slash)) || !readWholeFile(it->path().string(), data)) {
            result.ok = false;
            continue;
        }
        const auto perms = static_cast<unsigned>(fs::status(it->path(), st).permissions()) & 0777;
        if (createFileNoReplace(target, data, perms | 0600)) ++result.copied;
        else if (!fs::exists(fs::symlink_status(target, st))) result.ok = false;
    }
    return result;
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
