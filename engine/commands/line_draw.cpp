#include "engine/commands/line_draw.h"

#include <map>
#include <string>
#include <utility>
#include <string_view>
#include <vector>

#include "engine/columns.h"
#include "engine/commands/handlers.h"
#include "engine/commands/line_block.h"
#include "engine/commands/messages.h"
#include "engine/edit.h"
#include "engine/line_list.h"
#include "engine/selection.h"
#include "engine/shell.h"

namespace zol {
namespace {

enum Arm : uint8_t { kUp = 1, kDown = 2, kLeft = 4, kRight = 8 };
constexpr uint8_t kHorizontal = kLeft | kRight, kVertical = kUp | kDown;

struct Box {
    uint8_t arms;
    bool hDouble, vDouble;
    unsigned char code;  // code page 437
};

// Every box character of code page 437 with the strokes it shows.
constexpr Box kBoxes[] = {
    {kHorizontal, false, false, 0xC4}, {kVertical, false, false, 0xB3},
    {kDown | kRight, false, false, 0xDA}, {kDown | kLeft, false, false, 0xBF},
    {kUp | kRight, false, false, 0xC0}, {kUp | kLeft, false, false, 0xD9},
    {kVertical | kRight, false, false, 0xC3}, {kVertical | kLeft, false, false, 0xB4},
    {kHorizontal | kDown, false, false, 0xC2}, {kHorizontal | kUp, false, false, 0xC1},
    {kHorizontal | kVertical, false, false, 0xC5},
    {kHorizontal, true, true, 0xCD}, {kVertical, true, true, 0xBA},
    {kDown | kRight, true, true, 0xC9}, {kDown | kLeft, true, true, 0xBB},
    {kUp | kRight, true, true, 0xC8}, {kUp | kLeft, true, true, 0xBC},
    {kVertical | kRight, true, true, 0xCC}, {kVertical | kLeft, true, true, 0xB9},
    {kHorizontal | kDown, true, true, 0xCB}, {kHorizontal | kUp, true, true, 0xCA},
    {kHorizontal | kVertical, true, true, 0xCE},
    {kDown | kRight, false, true, 0xD6}, {kDown | kLeft, false, true, 0xB7},
    {kUp | kRight, false, true, 0xD3}, {kUp | kLeft, false, true, 0xBD},
    {kVertical | kRight, false, true, 0xC7}, {kVertical | kLeft, false, true, 0xB6},
    {kHorizontal | kDown, false, true, 0xD2}, {kHorizontal | kUp, false, true, 0xD0},
    {kHorizontal | kVertical, false, true, 0xD7},
    {kDown | kRight, true, false, 0xD5}, {kDown | kLeft, true, false, 0xB8},
    {kUp | kRight, true, false, 0xD4}, {kUp | kLeft, true, false, 0xBE},
    {kVertical | kRight, true, false, 0xC6}, {kVertical | kLeft, true, false, 0xB5},
    {kHorizontal | kDown, true, false, 0xD1}, {kHorizontal | kUp, true, false, 0xCF},
    {kHorizontal | kVertical, true, false, 0xD8},
};

struct Strokes {
    uint8_t arms = 0;
    bool hDouble = false, vDouble = false;
};

Strokes decode(char cell, bool oem) {
    const auto c = static_cast<unsigned char>(cell);
    if (oem) {
        for (const Box& b : kBoxes)
            if (b.code == c) return {b.arms, b.hDouble, b.vDouble};
        return {};
    }
    switch (c) {
        case '-': return {kHorizontal, false, false};
        case '=': return {kHorizontal, true, false};
        case '|': return {kVertical, false, false};
        case '+': return {kHorizontal | kVertical, false, false};
        case '#': return {kHorizontal | kVertical, true, true};
        default: return {};
    }
}

char encode(Strokes s, bool oem) {
    // A lone stroke is drawn as a straight line.
    if ((s.arms & kHorizontal) && !(s.arms & kVertical)) s.arms = kHorizontal;
    if ((s.arms & kVertical) && !(s.arms & kHorizontal)) s.arms = kVertical;
    if (!(s.arms & kHorizontal)) s.hDouble = s.vDouble;
    if (!(s.arms & kVertical)) s.vDouble = s.hDouble;
    if (oem) {
        for (const Box& b : kBoxes)
            if (b.arms == s.arms && b.hDouble == s.hDouble && b.vDouble == s.vDouble) return static_cast<char>(b.code);
        return ' ';
    }
    if (s.arms == kHorizontal) return s.hDouble ? '=' : '-';
    if (s.arms == kVertical) return '|';
    return s.hDouble || s.vDouble ? '#' : '+';
}

uint8_t armOf(DrawDir d) {
    switch (d) {
        case DrawDir::Left: return kLeft;
        case DrawDir::Right: return kRight;
        case DrawDir::Up: return kUp;
        case DrawDir::Down: return kDown;
    }
    return 0;
}

DrawDir opposite(DrawDir d) {
    switch (d) {
        case DrawDir::Left: return DrawDir::Right;
        case DrawDir::Right: return DrawDir::Left;
        case DrawDir::Up: return DrawDir::Down;
        case DrawDir::Down: return DrawDir::Up;
    }
    return d;
}

char cellAt(std::string_view line, int col) {
    const ColumnHit hit = locateColumn(line, col);
    if (hit.padding > 0 || hit.offset >= line.size() || hit.insideTab || line[hit.offset] == '\t') return ' ';
    return line[hit.offset];
}

Strokes addStroke(Strokes s, DrawDir dir, LineStyle style) {
    const bool horizontal = dir == DrawDir::Left || dir == DrawDir::Right;
    const bool dbl = horizontal ? style == LineStyle::Double || style == LineStyle::DoubleSingleVertical
                                : style == LineStyle::Double || style == LineStyle::SingleDoubleVertical;
    s.arms |= armOf(dir);
    (horizontal ? s.hDouble : s.vDouble) = dbl;
    return s;
}

// A lone stroke is shown as a whole line, so the character alone cannot tell a
// line's end from its middle. The strokes really drawn are remembered per cell
// while the character there is still the one drawn.
struct DrawnCells {
    const Document* doc = nullptr;
    std::map<std::pair<int32_t, int>, std::pair<Strokes, char>> cells;
};

DrawnCells& drawn() {
    static DrawnCells d;
    return d;
}

void drawInto(const Document& doc, std::string& line, int32_t lineNo, int col, DrawDir dir) {
    const LineDrawState& st = lineDrawState();
    DrawnCells& d = drawn();
    if (d.doc != &doc) {
        d.doc = &doc;
        d.cells.clear();
    }
    const char here = cellAt(line, col);
    Strokes s = decode(here, st.oemCharset);
    const auto it = d.cells.find({lineNo, col});
    if (it != d.cells.end() && it->second.second == here) s = it->second.first;
    s = addStroke(s, dir, st.style);
    const char c = encode(s, st.oemCharset);
    d.cells[{lineNo, col}] = {s, c};
    line = spliceColumns(line, col, col + 1, std::string_view(&c, 1));
}

const char* styleName(LineStyle s) {
    switch (s) {
        case LineStyle::Single: return kMsgLineStyleSingle;
        case LineStyle::Double: return kMsgLineStyleDouble;
        case LineStyle::SingleDoubleVertical: return kMsgLineStyleDoubleVertical;
        case LineStyle::DoubleSingleVertical: return kMsgLineStyleDoubleHorizontal;
    }
    return "";
}

int setDrawing(Document& doc, bool on) {
    doc.lineDrawing = on;
    drawn() = DrawnCells{};
    if (on) clearSelection(doc);
    if (doc.view) doc.view->refreshStatus();
    return 1;
}

}  // namespace

LineDrawState& lineDrawState() {
    static LineDrawState state;
    return state;
}

char joinStroke(char cell, DrawDir dir, LineStyle style, bool oem) {
    return encode(addStroke(decode(cell, oem), dir, style), oem);
}

bool drawLineStep(Document& doc, DrawDir dir) {
    if (doc.readOnly) return false;
    const Pos from = doc.cursor;
    Pos to = from;
    switch (dir) {
        case DrawDir::Left: to.col = static_cast<int16_t>(from.col - 1); break;
        case DrawDir::Right: to.col = static_cast<int16_t>(from.col + 1); break;
        case DrawDir::Up: --to.line; break;
        case DrawDir::Down: ++to.line; break;
    }
    if (to.col < 0 || to.col >= kMaxColumns - 1 || to.line < 0) return false;
    clearSelection(doc);
    const bool newLine = to.line > lastLine(doc);
    const LineBlock b{std::min(from.line, to.line), std::min(std::max(from.line, to.line), lastLine(doc))};
    std::vector<std::string> texts = blockTexts(doc, b);
    if (newLine) texts.emplace_back();
    drawInto(doc, texts[static_cast<size_t>(from.line - b.first)], from.line, from.col, dir);
    drawInto(doc, texts[static_cast<size_t>(to.line - b.first)], to.line, to.col, opposite(dir));
    bool ok;
    if (newLine) {
        // The text grows by a line: one replacement of the last line.
        const Pos end = makePos(lineWidthAt(doc, from.line), from.line);
        ok = replaceRange(doc, makePos(0, from.line), end, texts[0] + "\r\n" + texts[1]);
    } else {
        ok = rewriteLines(doc, b.first, texts);
    }
    if (!ok) return false;
    setCursor(doc, to);
    doc.desiredCol = -1;
    return true;
}

int cmdStartLineDraw(Document& doc, const CommandCall&) { return setDrawing(doc, true); }
int cmdEndLineDraw(Document& doc, const CommandCall&) { return setDrawing(doc, false); }
int cmdToggleLineDraw(Document& doc, const CommandCall&) { return setDrawing(doc, !doc.lineDrawing); }

int cmdLineDrawStyle(Document&, const CommandCall&) {
    LineDrawState& st = lineDrawState();
    st.style = static_cast<LineStyle>((static_cast<int>(st.style) + 1) % kLineStyleCount);
    shell().statusMessage(styleName(st.style));
    return 1;
}

}  // namespace zol
