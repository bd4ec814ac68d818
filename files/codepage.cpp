#include "files/codepage.h"

#include <cstdlib>

#include "engine/columns.h"
#include "engine/edit.h"
#include "engine/selection.h"
#include "engine/undo.h"
#include "platform/file_io.h"
#include "platform/profile.h"

namespace zol {
namespace {

constexpr uint8_t kProtected[] = {0, '\t', '\n', '\r'};

bool isProtected(uint8_t c) {
    for (uint8_t p : kProtected)
        if (c == p) return true;
    return false;
}

// The part of a line a conversion touches: all of it, or the columns of a rectangle.
struct Span {
    size_t from, to;
};

Span spanOf(std::string_view line, int32_t index, Pos first, Pos last, bool column, int left, int right) {
    auto offsetAt = [&](int col) { return locateColumn(line, col).offset; };
    if (column) return Span{offsetAt(left), offsetAt(right)};
    const size_t from = index == first.line ? offsetAt(first.col) : 0;
    const size_t to = index == last.line ? offsetAt(last.col) : line.size();
    return Span{from, std::max(from, to)};
}

}  // namespace

bool userTableNames(const std::string& path, std::vector<std::string>& names) {
    names.clear();
    std::string bytes;
    if (!readWholeFile(path, bytes)) return false;
    std::vector<char> buffer(kConvertNamesBytes);
    const size_t n = getProfileSectionNames(buffer.data(), buffer.size(), path);
    for (size_t i = 0; i < n;) {
        const std::string name(&buffer[i]);
        i += name.size() + 1;
        if (!name.empty() && name.size() <= kMaxConvertTableName) names.push_back(name);
    }
    return true;
}

ConvertTable userTable(const std::string& path, std::string_view section) {
    ConvertTable t = identityTable();
    for (int c = 0; c < 256; ++c) {
        const int v = getProfileInt(section, std::to_string(c), c, path);
        if (v > 0 && v <= 255) t[static_cast<size_t>(c)] = static_cast<uint8_t>(v);
    }
    return t;
}

void protectControlBytes(ConvertTable& table) {
    for (size_t c = 0; c < table.size(); ++c)
        if (isProtected(static_cast<uint8_t>(c)) || isProtected(table[c])) table[c] = static_cast<uint8_t>(c);
}

bool convertDocument(Document& doc, ConvertTable table, bool selectedOnly) {
    protectControlBytes(table);
    Pos first = makePos(0, 0), last = makePos(lineWidthAt(doc, lastLine(doc)), lastLine(doc));
    bool column = false;
    int left = 0, right = 0;
    if (selectedOnly) {
        if (!selectionRange(doc, first, last)) return false;
        last.line = std::min(last.line, lastLine(doc));
        column = isColumnSelection(doc);
        left = selLeftCol(doc);
        right = selRightCol(doc);
    }
    // A rectangle is undone by giving back its whole lines. The range is the text's own:
    // a selection may end past its line or inside a tab, and undo deletes the range
    // before it puts the old text back at its start.
    const Pos undoFrom = normalize(doc, column ? makePos(0, first.line) : first);
    const Pos undoTo = normalize(doc, column ? makePos(lineWidthAt(doc, last.line), last.line) : last);
    EditRecord rec;
    rec.hasRange = true;
    rec.rangeStart = undoFrom;
    rec.rangeEnd = undoTo;
    rec.at = undoFrom;
    rec.text = rangeText(doc, undoFrom, undoTo);

    LineList& ll = doc.lines;
    LineRef r = ll.find(first.line);
    std::string line;
    for (int32_t i = first.line; i <= last.line; ++i, r = ll.next(r)) {
        line.assign(ll.text(r));
        const Span span = spanOf(line, i, first, last, column, left, right);
        for (size_t k = span.from; k < span.to; ++k)
            line[k] = static_cast<char>(table[static_cast<uint8_t>(line[k])]);
        r = ll.setText(r, line);
    }
    recordEdit(doc, std::move(rec));
    notifyChanged(doc, first.line, last.line - first.line, last.line - first.line);
    return true;
}

}  // namespace zol
