// Runs one script: preprocess, tokenize, scan the declarations, call main. One run at
// a time in the whole program.
#pragma once
#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace zol {

struct ScriptRunOptions {
    std::string includeDir;       // angle-bracket includes
    uint64_t stepBudget = 0;      // loop iterations and calls before error 98; 0 = none
    FILE* in = stdin;             // the script's standard streams
    FILE* out = stdout;
    FILE* err = stderr;
    bool catchInterrupt = false;  // Ctrl+C stops the script with error 98
    bool sealed = false;          // no files, folders, environment or processes (for fuzzing)
    uint64_t heapLimit = 1ull << 30;  // live bytes malloc may hand out
    std::string title;            // the console window's title, where the front end opens one
    // Called with "NAME Line N: message" when the run ends in an error, before the
    // running flag clears.
    std::function<void(const std::string&)> reportError;
};

struct ScriptRunResult {
    bool refused = false;  // another script was running; nothing was done
    int value = 0;         // main's value; -1 after an error
    int error = 0;         // the error number, 0 when none
    std::string message;   // "NAME Line N: message" after an error
};

// Runs the script whose text is given; path names it (quoted includes are looked up
// in its folder); args become argv[0..] (args[0] is the script path by convention).
ScriptRunResult runScriptText(const std::string& path, const std::string& text, const std::vector<std::string>& args,
                              const ScriptRunOptions& opts);
// Reads the file first, inside the run; an unreadable script is reported as error 10
// (cannot open).
ScriptRunResult runScriptFile(const std::string& path, const std::vector<std::string>& args, const ScriptRunOptions& opts);

bool isScriptRunning();

}  // namespace zol
