// Where a script's standard input, output and error and the conio calls go. Headless
// that is the process's own streams; the desktop gives each run a console window. A
// console is used only from the thread that runs the script.
#pragma once
#include <cstdio>
#include <memory>
#include <string_view>

namespace zol {

enum class ConsoleStream { In = 0, Out = 1, Err = 2 };

class ScriptConsole {
public:
    virtual ~ScriptConsole() = default;
    // Text to standard output or standard error; false when it could not all go out.
    virtual bool write(ConsoleStream stream, std::string_view text) = 0;
    virtual void flush() {}
    // The next character of standard input, after the line editing the console does
    // for it; EOF at the end of the input or when the run is being stopped.
    virtual int readChar() = 0;
    // Gives c back to be read next (scanf's look-ahead, ungetc); false when it cannot.
    virtual bool unreadChar(int c) = 0;
    // One key as it is pressed, without waiting for Enter; echo shows it (getche).
    // Keys without a character come as two reads: 0 or 0xE0, then the key's code.
    virtual int readKey(bool echo) = 0;
    // Whether a key is waiting to be read by readKey (kbhit).
    virtual bool keyWaiting() = 0;
    // The character grid: clear it, place the cursor (1-based, column then row), and
    // where the cursor is.
    virtual void clear() = 0;
    virtual void gotoXY(int x, int y) = 0;
    virtual int whereX() = 0;
    virtual int whereY() = 0;
    // system("pause"): shows prompt and waits for any key.
    virtual void pause(std::string_view prompt) = 0;
    // The C stream behind a standard handle, where there is one (positioning, fileno);
    // null for a console of the editor's own.
    virtual FILE* hostFile(ConsoleStream /*stream*/) { return nullptr; }
    // The run has ended: the console goes.
    virtual void release() {}
};

// The process's streams, or the files given instead of them. Nothing of a screen:
// clear and gotoXY do nothing, the cursor is always at 1,1, no key is ever waiting.
std::unique_ptr<ScriptConsole> makeStreamConsole(FILE* in, FILE* out, FILE* err);

}  // namespace zol
