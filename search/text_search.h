// Searching the lines of a text as it is read, piece by piece: the search of one file
// in find in files. Only the lines that can hold a hit reach the line search: the
// places where the pattern's literal, or its first two bytes, stand are found across a
// whole piece at once. Everything here may run on a worker thread.
#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "search/find.h"

namespace zol {

// Called for each line that holds a hit: the line's number (1-based) and its text
// without its line end, valid during the call; false ends the search.
using FoundLineFn = std::function<bool(int64_t line, std::string_view text)>;
// Reads the next bytes of a text: up to size bytes into buf; 0 at its end, -1 when
// reading failed.
using ReadFn = std::function<long(char* buf, size_t size)>;

// A text is read this much at a time: big enough that the calls to read cost nothing
// beside the search, small enough to stay in the processor's cache. A line longer
// than this is read whole, in a buffer that grows to hold it.
constexpr size_t kSearchChunk = 256 * 1024;

// The memory a search reads into, kept from text to text.
struct StreamBuffer {
    std::unique_ptr<char[]> bytes;
    std::unique_ptr<char[]> folded;  // the lower-cased bytes, for a search without regard to case
    size_t size = 0;
};

struct StreamOutcome {
    int result = kSearchNotFound;  // kSearchFound once a line held a hit; kSearchError below
    bool binary = false;           // a NUL was read: the search ended there
    bool readFailed = false;       // reading failed: the search ended there
    int64_t lineGaveUp = 0;        // kSearchError: the line where a regular expression gave up
};

// Searches the lines of a text (ending at LF, CR LF or a lone CR; the bytes after the
// last line end are one more line, empty when the text ends with a line end) as read
// pieces it, chunk bytes at a time.
StreamOutcome searchStream(Searcher& s, StreamBuffer& buf, const ReadFn& read, const FoundLineFn& found,
                           size_t chunk = kSearchChunk);

// Reads a text in memory, for searchStream; the text must outlive the reader.
ReadFn textReader(std::string_view text);

// The same over a text in memory. The text is left as it was. kSearchError when a
// regular expression gave up (s.gaveUp is set and *lineGaveUp names the line), else
// kSearchFound or kSearchNotFound.
int searchText(Searcher& s, std::string& text, const FoundLineFn& found, int64_t* lineGaveUp = nullptr);

// True when the bytes hold a NUL: a binary file, which find in files skips.
bool isBinaryText(std::string_view text);

}  // namespace zol
