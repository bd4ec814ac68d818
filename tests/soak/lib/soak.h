// The command soak: a seeded stream of random editor commands over several documents,
// each checked as it lands, with every change undone and redone at checkpoints. The
// same seed and command count replay the same run.
#pragma once
#include <cstdint>
#include <cstdio>
#include <string>

namespace zol::soak {

struct SoakConfig {
    uint64_t seed = 1;
    long commands = 20000;  // commands the generator sends; checkpoints add their own
    int docs = 3;
    bool trace = false;     // print every command as it runs
    // Undo and redo everything after every command, to find the one that breaks the
    // round trip a checkpoint found broken. Slow: for replaying a failure.
    bool verifyEach = false;
};

struct SoakResult {
    bool ok = true;
    long executed = 0;      // commands run, checkpoints' undos and redos included
    long checkpoints = 0;   // documents undone to their start and redone
    long undoneSteps = 0;   // undo records taken back at checkpoints
    int32_t mostLines = 0;  // the longest any document grew
    std::string failure;    // what went wrong, the last commands and how to replay it
};

// Runs one soak. It takes over the process-wide editor state (options, shell,
// clipboard, named bookmarks) for its duration and leaves the defaults behind.
SoakResult runSoak(const SoakConfig& config, std::FILE* trace = nullptr);

// What the last failing or crashing run would print: for a crash handler.
const char* soakLastWords();

}  // namespace zol::soak
