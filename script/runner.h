// Runs one script: preprocess, tokenize, scan the declarations, call main. One run at
// a time in the whole program.
#pragma once
#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "script/console.h"

namespace zol {

// Carries work to the thread that owns the editor and returns when it has run there.
// It may return without running the work only when the run is being stopped.
using EditorGate = std::function<void(const std::function<void()>& work)>;

struct ScriptRunOptions {
    std::string includeDir;       // angle-bracket includes
    uint64_t stepBudget = 0;      // loop iterations and calls before error 98; 0 = none
    FILE* in = stdin;             // the script's standard streams, unless console is given
    FILE* out = stdout;
    FILE* err = stderr;
    ScriptConsole* console = nullptr;  // the standard streams and the conio calls; released at the end
    // Where the run is not on the editor's thread: the gate for the calls that touch
    // the editor.
    EditorGate editorGate;
    // The caller took the running slot (takeScriptSlot) for this run and gives it back.
    bool slotHeld = false;
    bool catchInterrupt = false;  // Ctrl+C stops the script with error 98
    bool sealed = false;          // no files, folders, environment or processes (for fuzzing)
    uint64_t heapLimit = 1ull << 30;  // live bytes malloc may hand out
    std::string title;            // the console window's title, where the front end opens one
    // Called on the run's thread with "NAME Line N: message" when the run ends in an
    // error, after the console has gone and before the running flag clears.
    std::function<void(const std::string&)> reportError;
};

struct ScriptRunResult {
    bool refused = false;  // another script was running; nothing was done
    bool detached = false; // handed to the front end, which runs it and reports its end
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
// Takes the one running slot for a run about to start elsewhere, clearing the stop
// flag; false while another run holds it.
bool takeScriptSlot();
void releaseScriptSlot();
// Sets the stop flag: the running script ends with error 98 at its next step or when
// a console read it waits in returns. Any thread may call it.
void requestScriptStop();
bool scriptStopRequested();

}  // namespace zol
