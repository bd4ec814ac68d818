#include "script/run_script.h"

#include "engine/shell.h"
#include "files/messages.h"
#include "platform/dirsearch.h"
#include "platform/fileinfo.h"
#include "platform/paths.h"
#include "script/errors.h"
#include "script/script_history.h"

namespace zol {
namespace {

constexpr const char* kIncludeFolder = "script/include";
constexpr const char* kStartUpFolder = "script/StartUp/";
constexpr const char* kStartUpPattern = "*.c";

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

ScriptLauncher gLauncher;

// Inside double quotes a backslash escapes only these.
bool escapableInDoubleQuotes(char c) { return c == '"' || c == '\\' || c == '$' || c == '`'; }

}  // namespace

void setScriptLauncher(ScriptLauncher launcher) { gLauncher = std::move(launcher); }

ScriptRunResult runScript(const std::string& path, const std::vector<std::string>& args, std::string_view title,
                          ScriptStarter by) {
    ScriptRunResult result;
    // A launcher queues start-up scripts behind the run that is going.
    const bool queues = gLauncher && by == ScriptStarter::StartUp;
    if (isScriptRunning() && !queues) {
        result.refused = true;
        return result;
    }
    if (by == ScriptStarter::User && fileExists(path) && !isDirectory(path)) scriptHistoryAdd(fullPath(path));
    std::vector<std::string> argv{path};
    argv.insert(argv.end(), args.begin(), args.end());
    ScriptRunOptions opts;
    opts.includeDir = homeDir() + kIncludeFolder;
    opts.title = std::string(title);
    // Ctrl+C in the terminal that started the editor ends the script, not the editor.
    opts.catchInterrupt = true;
    if (gLauncher) {
        result.refused = !gLauncher(ScriptLaunch{path, std::move(argv), std::move(opts), by});
        result.detached = !result.refused;
        return result;
    }
    opts.reportError = [](const std::string& report) { shell().scriptError(report); };
    result = runScriptFile(path, argv, opts);
    // A script that asked for the busy cursor and ended without giving it back, by an
    // error or by forgetting, must not leave the editor looking busy.
    shell().busyCursor(false);
    return result;
}

std::vector<std::string> splitArgumentLine(std::string_view line) {
    std::vector<std::string> words;
    std::string word;
    bool inWord = false;
    char quote = 0;
    for (size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        const bool hasNext = i + 1 < line.size();
        if (quote == '\'') {
            if (c == '\'') quote = 0;
            else word += c;
        } else if (quote == '"') {
            if (c == '"') quote = 0;
            else if (c == '\\' && hasNext && escapableInDoubleQuotes(line[i + 1])) word += line[++i];
            else word += c;
        } else if (isBlank(c)) {
            if (inWord) words.push_back(std::move(word));
            word.clear();
            inWord = false;
        } else {
            inWord = true;
            if (c == '\'' || c == '"') quote = c;
            else if (c == '\\' && hasNext) word += line[++i];
            else word += c;
        }
    }
    if (inWord) words.push_back(std::move(word));
    return words;
}

void runStartUpScripts() {
    const std::string folder = homeDir() + kStartUpFolder;
    for (const FoundFile& f : findFiles(folder + kStartUpPattern, false)) {
        const std::string path = folder + f.name;
        if (f.isDirectory) shell().message(filemsg::withFileName(kStartUpScriptIsFolder, path));
        else runScript(path, {}, f.name, ScriptStarter::StartUp);
    }
}

}  // namespace zol
