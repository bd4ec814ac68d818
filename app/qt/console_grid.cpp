#include "app/qt/console_grid.h"

namespace zol {

void ConsoleGrid::newLine() {
    column = 0;
    if (row + 1 < kConsoleRows) {
        ++row;
        return;
    }
    lines.push_back(blankLine());
    if (lines.size() > kConsoleHistory + kConsoleRows) lines.pop_front();
}

bool ConsoleGrid::control(char c) {
    switch (c) {
    case '\n': newLine(); return true;
    case '\r': column = 0; return true;
    case '\b':
        if (column > 0) --column;
        return true;
    case '\a': return true;
    case '\t': {
        const int stop = (column / kConsoleTab + 1) * kConsoleTab;
        while (column < stop && column < kConsoleColumns) screenLine(row)[static_cast<size_t>(column++)] = ' ';
        if (column == kConsoleColumns) newLine();
        return true;
    }
    default: return false;
    }
}

void ConsoleGrid::write(std::string_view text) {
    size_t i = 0;
    while (i < text.size()) {
        if (control(text[i])) {
            ++i;
            continue;
        }
        // A run of plain characters goes into the line at once: printing many lines
        // is mostly this.
        size_t n = 0;
        const size_t room = static_cast<size_t>(kConsoleColumns - column);
        while (n < room && i + n < text.size() && !isControl(text[i + n])) ++n;
        screenLine(row).replace(static_cast<size_t>(column), n, text.substr(i, n));
        i += n;
        column += static_cast<int>(n);
        if (column == kConsoleColumns) newLine();
    }
}

void ConsoleGrid::eraseBack() {
    if (column > 0) {
        --column;
    } else if (row > 0) {
        --row;
        column = kConsoleColumns - 1;
    } else {
        return;
    }
    screenLine(row)[static_cast<size_t>(column)] = ' ';
}

void ConsoleGrid::clear() {
    lines.assign(kConsoleRows, blankLine());
    column = row = 0;
}

void ConsoleGrid::gotoXY(int x, int y) {
    if (x < 1 || x > kConsoleColumns || y < 1 || y > kConsoleRows) return;
    column = x - 1;
    row = y - 1;
}

}  // namespace zol
