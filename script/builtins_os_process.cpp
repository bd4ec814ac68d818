// Starting programs and opening files: WinExec and ShellExecute start the program
// directly, never through a command shell, and do not wait for it; files, folders and
// URLs open with the desktop's opener. Answers are Windows' numbers: above 31 when the
// start succeeded, else the reason as windows.h names it.
#include "platform/fileinfo.h"
#include "platform/paths.h"
#include "platform/process.h"
#include "script/builtins_os.h"

namespace zol {
namespace {

struct StartCode {
    StartResult result;
    uint32_t code;
};
constexpr StartCode kStartCodes[] = {
    {StartResult::Started, 33},     // any value above 31
    {StartResult::NoProgram, 2},    // ERROR_FILE_NOT_FOUND
    {StartResult::NoFolder, 3},     // ERROR_PATH_NOT_FOUND
    {StartResult::Denied, 5},       // SE_ERR_ACCESSDENIED
    {StartResult::NotProgram, 11},  // ERROR_BAD_FORMAT
    {StartResult::NoResources, 0},  // out of memory or resources
};
constexpr uint32_t kNoAssociation = 31;  // SE_ERR_NOASSOC: no opener, or an unknown operation

// The operations ShellExecute knows; a null one is "open", the one that runs programs.
struct Operation {
    std::string_view name;
    bool runsPrograms;
};
constexpr Operation kOperations[] = {{"open", true}, {"explore", false}, {"edit", false}};

uint32_t codeOf(StartResult r) {
    for (const StartCode& c : kStartCodes)
        if (c.result == r) return c.code;
    return kStartCodes[1].code;
}

// "scheme:..." with a scheme of two letters or more (one letter is a drive).
bool isUrl(std::string_view s) {
    const size_t colon = s.find(':');
    if (colon == std::string_view::npos || colon < 2) return false;
    for (size_t k = 0; k < colon; ++k) {
        const char c = s[k];
        const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        if (!letter && (k == 0 || ((c < '0' || c > '9') && c != '+' && c != '-' && c != '.'))) return false;
    }
    return true;
}

const Operation* operationOf(const std::optional<std::string>& op) {
    if (!op || op->empty()) return &kOperations[0];
    for (const Operation& known : kOperations)
        if (*op == known.name) return &known;
    return nullptr;
}

uint32_t opened(const std::string& target) {
    const StartResult r = openWithDesktop(target);
    return r == StartResult::NoProgram ? kNoAssociation : codeOf(r);
}

uint32_t shellExecute(const std::optional<std::string>& op, const std::string& file, const std::string& params,
                      const std::string& dir) {
    const Operation* operation = operationOf(op);
    if (!operation) return kNoAssociation;
    if (file.empty()) return codeOf(StartResult::NoProgram);
    if (!dir.empty() && !isDirectory(dir)) return codeOf(StartResult::NoFolder);
    if (isUrl(file)) return opened(file);
    const std::string path = dir.empty() || file[0] == '/' ? file : joinPath(dir, file);
    const bool exists = fileExists(path);
    if (exists && (!operation->runsPrograms || !isProgramFile(path))) return opened(fullPath(path));
    if (!exists && (hasFolderPart(file) || !operation->runsPrograms)) {
        const std::string folder(folderPart(path));
        return codeOf(folder.empty() || isDirectory(folder) ? StartResult::NoProgram : StartResult::NoFolder);
    }
    std::vector<std::string> argv = splitCommandLine(params);
    // A program in the working folder runs from there, as Windows runs it; any other
    // name without a folder is looked for on PATH.
    argv.insert(argv.begin(), exists && !hasFolderPart(file) ? "./" + file : file);
    return codeOf(startDetached(argv, dir));
}

}  // namespace

Val bi_WinExec(BArgs& a) { return intVal(codeOf(startDetached(splitCommandLine(a.s(0))))); }

Val bi_ShellExecute(BArgs& a) {
    const std::optional<std::string> op = optionalText(a, 1);
    const std::string file = optionalText(a, 2).value_or(""), params = optionalText(a, 3).value_or("");
    const std::string dir = optionalText(a, 4).value_or("");
    return intVal(shellExecute(op, file, params, dir));
}

}  // namespace zol
