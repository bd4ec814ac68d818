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

void ConsoleGrid::write(std::string_view text) {
    for (const char c : text) {
        switch (c) {
        case '\n': newLine(); break;
        case '\r': column = 0; break;
        case '\b':
            if (column > 0) --column;
            break;
        case '\a': break;
        case '\t': {
            const int stop = (column / kConsoleTab + 1) * kConsoleTab;
            while (column < stop && column < kConsoleColumns) screenLine(row)[static_cast<size_t>(column++)] = ' ';
            if (column == kConsoleColumns) newLine();
            break;
        }
        default:
            screenLine(row)[static_cast<size_t>(column)] = c;
            if (++column == kConsoleColumns) newLine();
        }
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
