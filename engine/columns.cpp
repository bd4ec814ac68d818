#include "engine/columns.h"

#include "engine/options.h"

namespace zol {

int advanceColumn(char c, int col) {
    const int ts = options().tabSize;
    return c == '\t' ? col + ts - col % ts : col + 1;
}

int advanceColumn(char c, int col, int tabSize) {
    return c == '\t' ? col + tabSize - col % tabSize : col + 1;
}

int lineWidth(std::string_view text) {
    int col = 0;
    for (char c : text) col = advanceColumn(c, col);
    return col;
}

int columnOfOffset(std::string_view text, size_t offset) {
    int col = 0;
    for (size_t i = 0; i < offset && i < text.size(); ++i) col = advanceColumn(text[i], col);
    return col;
}

ColumnHit locateColumn(std::string_view text, int col) {
    int c = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        const int next = advanceColumn(text[i], c);
        if (col < next) return ColumnHit{i, c, col > c, 0};
        c = next;
    }
    return ColumnHit{text.size(), c, false, col > c ? col - c : 0};
}

int charColumnPos(const char* line, const char* p) {
    if (!line || !p || p < line) return 1;
    int col = 0;
    for (const char* q = line; q < p && *q; ++q) col = advanceColumn(*q, col);
    return col + 1;
}

const char* charPtr(const char* line, int col) {
    if (!line || col <= 0) return nullptr;
    int c = 0;
    const char* p = line;
    while (*p && c < col - 1) c = advanceColumn(*p++, c);
    return p;
}

}  // namespace zol
