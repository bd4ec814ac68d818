// What the soak checks after every command: the line list is whole, every line keeps
// to the capacity, the cursor and the selection are inside the text, and the named
// bookmarks into a document point at its lines. Each check returns an empty string
// when all is well, else what is wrong.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "engine/bookmarks.h"
#include "engine/document.h"

namespace zol::soak {

// The links, the line count, the cached current and last-found records and each
// line's terminating zero and bookmark byte. Cheap: no line's text is read.
std::string checkLineList(const LineList& lines);
// The texts of lines first..last (clamped to the list): within the byte and column
// capacity, and free of line ends and NULs.
std::string checkLineTexts(const LineList& lines, int32_t first, int32_t last);
std::string checkCursorAndSelection(const Document& doc);
std::string checkNamedBookmarks(const NamedBookmarks& list, const Document& doc);

// The text and the line bookmarks of a document, to compare one moment with another.
struct Snapshot {
    std::string text;                // lines joined with "\n"
    std::vector<int32_t> bookmarks;  // bookmarked lines in order
};
Snapshot snapshotOf(const Document& doc);
// How bookmarks count when two snapshots are compared.
enum class Bookmarks {
    Ignore,
    Equal,
    // None that `want` lacks. Undo cannot give a deleted line its bookmark back, nor
    // tell which of two joined lines had one, so a round trip may lose a bookmark
    // but must never put one where there was none.
    NoneNew,
};
// Where two snapshots part, or empty when they are alike.
std::string difference(const Snapshot& want, const Snapshot& got, Bookmarks bookmarks);

// A text with its control and non-ASCII bytes escaped, cut to `max` bytes.
std::string printable(std::string_view text, size_t max = 60);

}  // namespace zol::soak
