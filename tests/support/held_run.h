// A script run kept going on a thread of its own until the test ends it, so that the
// test can try what the editor does while a script runs.
#pragma once
#include <cstdio>
#include <thread>

#include "script/runner.h"

namespace zol::test {

class HeldScriptRun {
public:
    // Returns once the run holds the running flag: its script waits for one character.
    HeldScriptRun();
    // Ends the run if the test did not.
    ~HeldScriptRun();
    HeldScriptRun(const HeldScriptRun&) = delete;
    HeldScriptRun& operator=(const HeldScriptRun&) = delete;

    // Gives the script c to read and waits for the run's end; main returns c.
    ScriptRunResult finish(char c = 'A');

private:
    int pipe_[2] = {-1, -1};
    std::FILE* in_ = nullptr;
    std::thread thread_;
    ScriptRunResult result_;
};

}  // namespace zol::test
