// Starting the real zolder binary and the test drivers as a user's shell would, with
// their output kept in files for the test to read.
#pragma once
#include <sys/types.h>

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/temp_dir.h"

namespace zol::test {

std::string zolderBinary();
// A program of tests/*/drivers/, built beside the tests.
std::string driverPath(std::string_view name);

struct Outcome {
    int status = -1;  // the exit status; -1 when a signal ended the program
    std::string out, err;
};

class Process {
public:
    // Starts argv[0] with the rest as its arguments, without a command shell between,
    // reading nothing.
    explicit Process(const std::vector<std::string>& argv);
    // Kills a program still running.
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    bool started() const { return pid_ > 0; }
    std::string out() const { return files_.get("out"); }
    std::string err() const { return files_.get("err"); }
    // Waits until text shows in the output; false when it does not within the limit.
    bool waitForOutput(std::string_view text, std::chrono::milliseconds limit);
    // Waits until the program stopped itself (raise(SIGSTOP)); false if it ended instead.
    bool waitUntilStopped();
    // Lets a stopped program go on.
    void resume();
    // Ends it with SIGKILL; true when that signal is what ended it.
    bool kill();
    // Asks it to end, as a logout or a closed terminal does (SIGTERM).
    void terminate();
    Outcome wait();

private:
    TempDir files_{"zolrun"};
    pid_t pid_ = -1;
};

// Runs argv to its end.
Outcome run(const std::vector<std::string>& argv);

}  // namespace zol::test
