// The character grid of a script's console window: a screen of kConsoleColumns by
// kConsoleRows cells that the script writes on, clears and moves its cursor about in,
// with the lines scrolled off its top kept below a fixed bound for the user to scroll
// back to. Cells hold Windows-1252 bytes.
#pragma once
#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace zol {

// The screen of a classic text console, which is what console scripts are written for
// (gotoxy, wherex and wherey address it).
inline constexpr int kConsoleColumns = 80;
inline constexpr int kConsoleRows = 25;
// Lines kept above the screen. Enough to read back what a run printed last, while a
// script that prints megabytes (with or without line ends, which wrap at the grid's
// width) costs at most this many lines of 80 bytes, about 160 KB.
inline constexpr size_t kConsoleHistory = 2000;
// A tab moves to the next multiple of this column.
inline constexpr int kConsoleTab = 8;

struct ConsoleGrid {
    // History first, the screen's kConsoleRows lines last; each exactly
    // kConsoleColumns bytes.
    std::deque<std::string> lines = std::deque<std::string>(kConsoleRows, blankLine());
    int column = 0;  // the cursor on the screen, 0-based
    int row = 0;

    static std::string blankLine() { return std::string(kConsoleColumns, ' '); }

    // Writes text at the cursor: "\n" starts the next line, "\r" goes to the line's
    // start, "\b" steps back, "\t" to the next tab stop, "\a" is dropped; a full line
    // wraps, and a full screen scrolls.
    void write(std::string_view text);
    // Backspace as line editing does it: steps back over the last character typed and
    // blanks it, into the line above when the input had wrapped.
    void eraseBack();
    // Blank screen, no history, cursor home.
    void clear();
    // 1-based column x and row y of the screen; a position off the screen is ignored.
    void gotoXY(int x, int y);
    int whereX() const { return column + 1; }
    int whereY() const { return row + 1; }
    // The line of the screen at row r (0-based).
    std::string& screenLine(int r) { return lines[lines.size() - kConsoleRows + static_cast<size_t>(r)]; }

private:
    static bool isControl(char c) { return c == '\n' || c == '\r' || c == '\b' || c == '\a' || c == '\t'; }
    // Carries out a control character; false for any other.
    bool control(char c);
    void newLine();
};

}  // namespace zol
