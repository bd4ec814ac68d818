// Starting other programs with no command shell in between: a command line is split
// into words the way a shell splits it, but nothing in it is expanded, and the program
// is started directly. Detached programs run on their own; a child is watched by the
// editor until it ends (a user tool whose output is captured), and can be stopped.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace zol {

// The desktop's opener for files, folders and URLs, looked up on PATH.
constexpr const char* kDesktopOpener = "xdg-open";

// The words of a command line. Blanks and tabs separate words; single quotes keep
// everything up to the next single quote; double quotes keep everything up to the next
// double quote, a backslash there escaping only '"' and '\'; outside quotes a backslash
// takes the next character as it stands. Quotes next to other text join it into one
// word ("a"'b'c is abc). Nothing is expanded. An unclosed quote runs to the end.
std::vector<std::string> splitCommandLine(std::string_view line);

enum class StartResult {
    Started,
    NoProgram,    // no such program (a name without "/" is looked for on PATH)
    NoFolder,     // a folder of the program's path, or the working folder, is missing
    Denied,       // the file may not be run, or is a folder
    NotProgram,   // the file is no program this machine runs
    NoResources,  // out of memory or processes
};

// Starts argv[0] with argv as its arguments, in dir unless dir is empty. The program
// runs in a session of its own with standard input from /dev/null; standard output
// and error are the editor's. No zombie is left behind.
StartResult startDetached(const std::vector<std::string>& argv, const std::string& dir = {});

// Opens a file, folder or URL with the desktop's opener; NoProgram when there is none.
StartResult openWithDesktop(const std::string& target);

// A regular file that this process may run.
bool isProgramFile(const std::string& path);

// The program exec would run for name: a name with a "/" as it stands (a relative one
// taken from dir, or from the current folder when dir is empty), else the first
// match on PATH. Empty when there is no such program that may be run.
std::string findProgram(const std::string& name, const std::string& dir);
// A folder that a program may be started in.
bool canEnterFolder(const std::string& path);
// A program that ships beside the editor's executable (zolcap); in a build tree the
// build folder stands in for it. Empty when it is missing.
std::string helperProgram(std::string_view name);

struct SpawnOptions {
    std::string dir;         // working folder; empty: the editor's own
    std::string outputFile;  // standard output and error appended to it; empty: inherited
    bool ownGroup = false;   // leads a session and process group of its own
};

struct ExitStatus {
    bool signalled = false;  // a signal ended it: code is the signal's number
    int code = 0;
};

// A started program that is watched until it ends.
struct ChildProcess {
    int pid = -1;             // -1 once it has ended and been reaped
    bool ownGroup = false;
    ExitStatus status;        // how it ended, once it has
    bool ended() const { return pid < 0; }
};

// Starts argv[0] (looked for on PATH when it has no "/") with standard input from
// /dev/null; the result tells at once whether the program could be started.
StartResult spawnChild(const std::vector<std::string>& argv, const SpawnOptions& opts, ChildProcess& child);
// Whether the child has ended, waiting up to waitMs milliseconds for it; an ended
// child is reaped and its status kept.
bool waitChild(ChildProcess& child, int waitMs);
// Waits as long as the child runs.
void waitChildToEnd(ChildProcess& child);
// Asks the child (and its group, when it leads one) to end with SIGTERM, or ends it
// with SIGKILL. Nothing once it has been reaped.
void stopChild(const ChildProcess& child, bool kill);

// What zolcap, the capture program, needs: its own standard output and error sent to
// a file (which the programs it starts inherit), termination requests left to the
// program it runs (which gets them through the process group, while zolcap stays to
// see it end), an ending that reports the program's, and one line on standard error.
bool redirectOutputTo(const std::string& path);
// Output documents hold 8-bit text: the programs zolcap starts are asked for plain
// characters (LC_CTYPE=C) rather than UTF-8 quotes, in the language they would use.
void usePlainCharacters();
void ignoreTerminationRequests();
[[noreturn]] void endAs(const ExitStatus& status);
void writeStandardError(std::string_view text);
// The system's description of a start failure, for such a line.
const char* startFailureText(StartResult r);

}  // namespace zol
