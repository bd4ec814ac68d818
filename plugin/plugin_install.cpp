#include "plugin/plugin_install.h"

#include <cstdio>

#include "engine/text_util.h"
#include "platform/clock.h"
#include "platform/dirsearch.h"
#include "platform/file_io.h"
#include "platform/fileinfo.h"
#include "platform/paths.h"
#include "platform/script_os.h"
#include "plugin/plugin_manager.h"
#include "plugin/plugin_messages.h"
#include "tools/messages.h"

namespace zol {
namespace {

using toolmsg::fill;

constexpr const char* kLogFile = "install.log";
// A module is read whole to be copied; anything this large is no plug-in of ours.
constexpr size_t kMaxModuleBytes = size_t{256} << 20;
// ELF: the magic, then the object type at offset 16 in the file's byte order.
constexpr size_t kElfTypeOffset = 16;
constexpr size_t kElfDataOffset = 5;
constexpr unsigned kElfSharedObject = 3;
constexpr char kElfBigEndian = 2;

void logLine(const std::string& line) {
    const std::string path = joinPath(plugInFolder(), kLogFile);
    std::string log;
    if (fileExists(path)) readWholeFile(path, log);
    const LocalTime t = localTimeNow();
    char stamp[32];
    std::snprintf(stamp, sizeof stamp, "%04d-%02d-%02d %02d:%02d:%02d ", t.year, t.month, t.day, t.hour, t.minute,
                  t.second);
    // The log is a record for the user; a log that cannot be written stops nothing.
    replaceFile(path, log + stamp + line + "\n");
}

const InstalledPlugIn* findInstalled(const std::vector<InstalledPlugIn>& all, const std::string& file) {
    for (const InstalledPlugIn& p : all)
        if (equalsNoCase(p.file, file)) return &p;
    return nullptr;
}

}  // namespace

std::string plugInFolder() { return joinPath(homeDir(), kPlugInsFolder); }

std::vector<InstalledPlugIn> installedPlugIns() {
    std::vector<InstalledPlugIn> all;
    const std::string folder = plugInFolder();
    for (const FoundFile& f : findFiles(joinPath(folder, "*.zop"))) {
        if (f.isDirectory) continue;
        InstalledPlugIn p{f.name, fullPath(joinPath(folder, f.name)), nullptr};
        for (const PlugInRecord& r : plugInManager().modules)
            if (r.path == p.path) p.module = r.module;
        all.push_back(p);
    }
    return all;
}

bool looksLikeSharedLibrary(std::string_view bytes) {
    if (bytes.size() < kElfTypeOffset + 2 || bytes.substr(0, 4) != "\x7f" "ELF") return false;
    const auto lo = static_cast<unsigned char>(bytes[kElfTypeOffset]);
    const auto hi = static_cast<unsigned char>(bytes[kElfTypeOffset + 1]);
    const unsigned type = bytes[kElfDataOffset] == kElfBigEndian ? (lo << 8 | hi) : (hi << 8 | lo);
    return type == kElfSharedObject;
}

std::string installPlugIn(const std::string& source) {
    const std::string file(fileNamePart(source));
    std::string bytes;
    if (isDirectory(source) || fileAttributes(source).size > kMaxModuleBytes || !readWholeFile(source, bytes))
        return fill(plgmsg::kSourceUnreadable, source);
    if (!looksLikeSharedLibrary(bytes)) return fill(plgmsg::kNotALibrary, source);
    if (findInstalled(installedPlugIns(), file)) return fill(plgmsg::kNameClash, file);
    if (plugInManager().modules.size() > kMaxPlugIns) return plgmsg::kTooManyPlugIns;
    const std::string folder = plugInFolder();
    const std::string target = joinPath(folder, file);
    if (!isDirectory(folder)) scriptMkdir(folder);
    if (!createFileNoReplace(target, bytes, 0755)) return fill(plgmsg::kCannotCopy, source, folder);
    if (!loadPlugIn(target, true)) {
        removeFile(target);
        return fill(plgmsg::kCannotLoad, file) + "\n" + plgmsg::kNotInstalled;
    }
    logLine(fill(plgmsg::kLogInstalled, file, source));
    return {};
}

std::string loadInstalledPlugIn(const std::string& file) {
    const std::vector<InstalledPlugIn> all = installedPlugIns();
    const InstalledPlugIn* p = findInstalled(all, file);
    if (!p) return fill(plgmsg::kNoSuchModule, file);
    if (p->module) return {};
    if (plugInManager().modules.size() > kMaxPlugIns) return plgmsg::kTooManyPlugIns;
    return loadPlugIn(p->path, true) ? std::string() : fill(plgmsg::kCannotLoad, file);
}

std::string unloadInstalledPlugIn(const std::string& file) {
    const std::vector<InstalledPlugIn> all = installedPlugIns();
    const InstalledPlugIn* p = findInstalled(all, file);
    if (!p) return fill(plgmsg::kNoSuchModule, file);
    if (!p->module || unloadPlugIn(p->module)) return {};
    return fill(plgmsg::kRefusesUnload, file);
}

std::string removeInstalledPlugIn(const std::string& file) {
    if (std::string refused = unloadInstalledPlugIn(file); !refused.empty()) return refused;
    const std::vector<InstalledPlugIn> all = installedPlugIns();
    const InstalledPlugIn* p = findInstalled(all, file);
    if (!p) return {};
    if (!removeFile(p->path)) return fill(plgmsg::kCannotRemove, file, plugInFolder());
    logLine(fill(plgmsg::kLogRemoved, p->file));
    return {};
}

}  // namespace zol
