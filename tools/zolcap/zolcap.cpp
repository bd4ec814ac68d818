// zolcap, the capture program of user tools: "zolcap OUTPUT PROGRAM [ARGUMENT...]" runs
// PROGRAM with its standard output and error appended to the file OUTPUT, which the
// editor reads while it grows, and ends as PROGRAM ended (its exit status, or the
// signal that ended it). A PROGRAM that cannot be started gets one line in OUTPUT and
// the status a shell would give: 127 when it is missing, 126 otherwise. PROGRAM runs
// with the C locale's characters, which an 8-bit output document shows as they are.
#include <string>
#include <vector>

#include "platform/process.h"

namespace {

constexpr const char* kUsage = "usage: zolcap OUTPUT PROGRAM [ARGUMENT...]\n";
constexpr const char* kCannotRun = "zolcap: cannot run '%PROGRAM%': %REASON%\n";
constexpr const char* kCannotWrite = "zolcap: cannot write to '%PROGRAM%'\n";
constexpr int kUsageStatus = 2;
constexpr int kMissingStatus = 127;
constexpr int kNotRunStatus = 126;

std::string fill(std::string text, const std::string& program, const std::string& reason = {}) {
    for (const auto& [mark, value] : {std::pair<std::string, std::string>{"%PROGRAM%", program}, {"%REASON%", reason}})
        if (const size_t at = text.find(mark); at != std::string::npos) text.replace(at, mark.size(), value);
    return text;
}

}  // namespace

int main(int argc, char** argv) {
    using namespace zol;
    if (argc < 3) {
        writeStandardError(kUsage);
        return kUsageStatus;
    }
    const std::string output = argv[1];
    const std::vector<std::string> command(argv + 2, argv + argc);
    if (!redirectOutputTo(output)) {
        writeStandardError(fill(kCannotWrite, output));
        return kNotRunStatus;
    }
    ignoreTerminationRequests();
    usePlainCharacters();
    ChildProcess child;
    const StartResult r = spawnChild(command, SpawnOptions{}, child);
    if (r != StartResult::Started) {
        writeStandardError(fill(kCannotRun, command[0], startFailureText(r)));
        return r == StartResult::NoProgram ? kMissingStatus : kNotRunStatus;
    }
    waitChildToEnd(child);
    endAs(child.status);
}
