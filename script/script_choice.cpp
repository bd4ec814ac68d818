#include "script/script_choice.h"

#include "engine/text_util.h"
#include "files/messages.h"
#include "platform/dirsearch.h"
#include "platform/fileinfo.h"
#include "platform/paths.h"
#include "script/run_script.h"
#include "script/script_messages.h"

namespace zol {
namespace {

constexpr char kScriptFolder[] = "script/";
constexpr std::string_view kScriptExtension = "c";

void collect(const std::string& folder, const std::string& prefix, int depth, std::vector<std::string>& out) {
    std::vector<std::string> subfolders;
    for (const FoundFile& f : findFiles(folder + "*", false)) {
        if (f.isDirectory) subfolders.push_back(f.name);
        else if (equalsNoCase(extensionPart(f.name), kScriptExtension)) out.push_back(prefix + f.name);
    }
    if (depth >= kMaxScriptFolderDepth) return;
    for (const std::string& sub : subfolders) collect(folder + sub + "/", prefix + sub + "/", depth + 1, out);
}

}  // namespace

std::string scriptFolder() { return homeDir() + kScriptFolder; }

std::vector<std::string> scriptsBelow(const std::string& folder) {
    std::vector<std::string> out;
    collect(joinPath(folder, ""), "", 1, out);
    return out;
}

std::string resolveScriptName(std::string_view name) {
    if (name.empty()) return {};
    std::string path = isPathSeparator(name[0]) ? std::string(name) : scriptFolder() + std::string(name);
    if (!fileExists(path) && extensionPart(path).empty()) path += "." + std::string(kScriptExtension);
    return path;
}

ScriptCommand scriptCommandOf(std::string_view cmdLine) {
    std::vector<std::string> words = splitArgumentLine(cmdLine);
    if (words.empty()) return {};
    ScriptCommand c{resolveScriptName(words[0]), {}};
    c.args.assign(words.begin() + 1, words.end());
    return c;
}

std::string quotedWord(std::string_view word) {
    if (!word.empty() && word.find_first_of(" \t\n\r'\"\\") == std::string_view::npos) return std::string(word);
    std::string out = "'";
    for (char c : word) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
}

std::string scriptPathProblem(const std::string& path) {
    if (path.empty()) return scriptmsg::kNoScriptChosen;
    if (isDirectory(path)) return filemsg::withFileName(scriptmsg::kScriptIsFolder, path);
    if (!fileExists(path)) return filemsg::withFileName(scriptmsg::kScriptMissing, path);
    return {};
}

std::string scriptDisplayName(const std::string& path) {
    const std::string folder = scriptFolder();
    const std::string full = fullPath(path);
    return full.compare(0, folder.size(), folder) == 0 ? full.substr(folder.size()) : path;
}

}  // namespace zol
