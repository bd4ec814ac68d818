// Building documents and reading them back in tests.
#pragma once
#include <string>
#include <string_view>

#include "engine/document.h"
#include "engine/edit.h"

namespace zol::test {

// A document holding `text` (lines separated by "\n"), cursor at the start, clean.
inline void fill(Document& doc, std::string_view text) {
    resetText(doc);
    rawInsert(doc, Pos{}, text, nullptr);
    setCursor(doc, Pos{});
    doc.modified = false;
}

// The whole text with "\n" between lines.
inline std::string textOf(const Document& doc) {
    std::string out;
    LineRef r = doc.lines.first;
    for (int32_t i = 0; i <= doc.lines.lastIndex; ++i, r = doc.lines.next(r)) {
        if (i) out += '\n';
        out += doc.lines.text(r);
    }
    return out;
}

// "line 1" up to "line <count>", each with its line end: the text ends in an empty line.
inline std::string numberedLines(int count) {
    std::string text;
    for (int i = 1; i <= count; ++i) text += "line " + std::to_string(i) + "\n";
    return text;
}

}  // namespace zol::test
