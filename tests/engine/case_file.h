// The case files of tests/engine/cases/: a document with its cursor and selection
// marked inside the text, the keys or commands run on it, and the state expected
// afterwards. tests/engine/cases/README.md describes the notation.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/document.h"

namespace zol::test {

// A document as a state block shows it.
struct MarkedText {
    std::vector<std::string> lines;  // bytes, without line ends
    std::vector<int32_t> bookmarks;  // bookmarked lines, ascending
    std::vector<Pos> cursors;        // one, except where a trail shows every stop
    bool selExists = false;
    SelMode selMode = SelMode::Char;
    Pos selBegin, selEnd;  // in document order
};

// The lines of a state block ("|text" or "*text" for a bookmarked line), with columns
// counted at tabSize. nullopt, and the reason in error, when the block is malformed
// or has not `cursors` cursor marks (-1: any number).
std::optional<MarkedText> parseMarked(const std::vector<std::string>& block, int tabSize, int cursors,
                                      std::string& error);
// The canonical state block of a document: what a mismatch prints.
std::string renderMarked(const MarkedText& m, int tabSize);

// The document's state, and a document set up from a state (clean, no undo). The
// anchor of a selection is the end the cursor does not stand on.
MarkedText markedOf(const Document& doc);
void loadMarked(Document& doc, const MarkedText& m);

// Clipboard values, typed strings and characters: "·" a blank, "→" a tab, "↵" CR LF,
// "«E9»" any byte.
std::optional<std::string> decodeText(std::string_view notation, std::string& error);
std::string encodeText(std::string_view bytes);

// Words of a keys:, do: or check: line; a quoted part ("a b", 'x') does not split a
// word, and its quotes stay.
std::vector<std::string> splitTokens(std::string_view line);

// One line of a case: a directive ("keys", "do", "trail", "set", "check", "clipboard",
// "column clipboard", "message") with its value, or a state block ("|") with its lines.
struct CaseLine {
    int number = 0;  // in the file, from 1
    std::string keyword;
    std::string value;
    std::vector<std::string> block;
};

struct Case {
    std::string name;
    int number = 0;
    std::vector<CaseLine> lines;
};

// Every case of a file; nullopt and the reason (with its line) when the file is malformed.
std::optional<std::vector<Case>> readCases(const std::string& path, std::string& error);

}  // namespace zol::test
