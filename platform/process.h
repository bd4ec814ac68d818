// Starting other programs with no command shell in between: a command line is split
// into words the way a shell splits it, but nothing in it is expanded, and the program
// is started directly. Started programs run on their own; nobody waits for them.
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

}  // namespace zol
