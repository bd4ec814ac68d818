// RunScript: how the editor runs a script file, whoever asks for it (the script
// dialog, the command line, a plug-in, start-up), and the start-up scripts.
#pragma once
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "script/runner.h"

namespace zol {

// Only runs the user asked for join "ScriptHistory".
enum class ScriptStarter { User, PlugIn, StartUp };

// A run made ready by runScript: the script, its argv and its options (includes,
// title, the interrupt; no error report, which falls to whoever runs it).
struct ScriptLaunch {
    std::string path;
    std::vector<std::string> argv;
    ScriptRunOptions options;
    ScriptStarter by;
};
// A front end that runs scripts away from its window thread takes each run over: it
// starts it (or, for a start-up script while another runs, queues it) and answers at
// once; false when it refuses. Its runs report their errors through the shell and
// give the busy cursor back, as runScript does.
using ScriptLauncher = std::function<bool(ScriptLaunch&& launch)>;
// Installed for the life of the front end's main window; an empty one removes it.
void setScriptLauncher(ScriptLauncher launcher);

// Runs the script with argv[0] = path and args after it, angle-bracket includes from
// "script/include" of the Zolder home, the console titled title. An error is reported
// through the shell. Refused (result.refused, nothing done) while another script runs
// anywhere in the editor. With a launcher installed the run is handed to it
// (result.detached) and goes on after this returns.
ScriptRunResult runScript(const std::string& path, const std::vector<std::string>& args, std::string_view title,
                          ScriptStarter by);

// An argument line cut into words as a POSIX shell cuts them, without expanding
// anything: blanks separate words; single quotes keep what they enclose as it is;
// double quotes too, except that a backslash before " \ $ or ` stands for that
// character; outside quotes a backslash keeps the next character. "" is an empty
// word. A quote left open runs to the end of the line.
std::vector<std::string> splitArgumentLine(std::string_view line);

// Runs every file matching "script/StartUp/*.c" in the Zolder home once, one after
// the other, in the order the directory search returns them, without arguments. A
// folder of such a name is reported and skipped; a script that fails is reported by
// its run and the next one still runs.
void runStartUpScripts();

}  // namespace zol
