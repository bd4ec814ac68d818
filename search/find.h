// Finding text in a line, a document and a string, plain or by regular expression,
// with or without regard to case, optionally as a whole word, in either direction.
// Results follow one convention everywhere: kSearchFound (0), kSearchNotFound (1),
// kSearchError (-1: bad arguments, a pattern that does not compile, an allocation
// failure, or a regular expression that gave up).
#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "engine/position.h"
#include "search/regex.h"

namespace zol {

struct Document;

constexpr int kSearchFound = 0;
constexpr int kSearchNotFound = 1;
constexpr int kSearchError = -1;

constexpr size_t kMaxSearchText = 127;        // a longer search text is cut
constexpr size_t kMaxStringSearchText = 255;  // the same cut for string searches
constexpr int kSearchLineEndColumn = 3199;    // backward searches start here on earlier lines

struct SearchOptions {
    bool wholeWord = false;
    bool matchCase = false;
    bool regex = false;
    bool forward = true;
};

// Word characters for whole-word matching, by the program-wide mode: 0 C-locale
// letters and digits, 1 the code page's letters and digits, 2 and 3 the code page's
// letters; "_" in every mode.
int wordCharMode();
void setWordCharMode(int mode);  // values outside 0..3 are ignored
bool isSearchWordChar(char c);

// A search ready to run over many lines: the text is cut, lower-cased when case
// does not matter, and compiled once when it is a regular expression.
struct Searcher {
    SearchOptions options;
    std::string pattern;                  // cut, and lower-cased when !matchCase
    std::unique_ptr<RegexProgram> prog;   // set for regular expressions
    int regexError = 0;                   // compile error code, 0 when fine
    bool gaveUp = false;                  // a regular expression hit its backtracking bound
    std::string folded;                   // scratch: the lower-cased line
};

// Prepares a search; kSearchError for a null or empty text or a pattern that does
// not compile (regexError then holds the code).
int prepareSearch(Searcher& s, const char* text, const SearchOptions& opt, size_t cut = kMaxSearchText);

struct LineHit {
    size_t offset = 0;  // byte offset of the hit in the line
    size_t length = 0;  // bytes
};

// Searches one line from byte offset `start`: forwards the first hit at or after it,
// backwards the nearest hit before it (plain text: ending at or before it; regular
// expression: starting before it, where a start at or past the end includes the end).
// `line` must be NUL-terminated just past its view. After a regular-expression hit the
// program's groups point into `line`, ready for a substitution.
int searchLine(Searcher& s, std::string_view line, size_t start, LineHit& hit);

// False only when the line cannot hold a hit: the pattern's literal, or its first two
// bytes, are nowhere in it. It answers in one pass over the line, far sooner than the
// line search; searches without regard to case always get true. `line` must be
// NUL-terminated just past its view.
bool lineCanHold(const Searcher& s, std::string_view line);

struct DocumentHit {
    int32_t line = 0;
    size_t offset = 0, length = 0;  // bytes in that line
    Pos start, end;                 // the hit as columns
};

// Searches a document from a position: the start line from its column, then line by
// line in the search's direction (forwards from column 0, backwards from column
// kSearchLineEndColumn) unless `oneLine`. The first hit ends the search.
int searchDocument(const Document& doc, Searcher& s, Pos from, bool oneLine, DocumentHit& hit);

// The replacement text for the hit just found: the template expanded from the match
// for a regular expression, the text itself otherwise.
std::string replacementFor(const Searcher& s, const char* replacement);

// Entry points behind the plug-in and script interface. Columns and lines are
// 1-based. A hit is selected, the cursor at its end.
int findText(Document* doc, const char* text, int col, int32_t line, bool wholeWord, bool matchCase,
             bool regex, bool forward);
int findTextInLine(Document* doc, const char* text, int col, int32_t line, bool wholeWord, bool matchCase,
                   bool regex, bool forward);
// As the find entries, then the hit is replaced (one undo step) and the new text left
// selected; an empty replacement deletes the hit. -1 also for a read-only document
// or a replacement that would make the line too long.
int replaceText(Document* doc, const char* text, const char* replacement, int col, int32_t line,
                bool wholeWord, bool matchCase, bool regex, bool forward);
int replaceTextInLine(Document* doc, const char* text, const char* replacement, int col, int32_t line,
                      bool wholeWord, bool matchCase, bool regex, bool forward);
// Searches a caller's string. pos and len are set to 0 first; a plain hit writes its
// 0-based position and length. A regular-expression hit writes them only when they
// already held non-zero values, so it is reported by the result alone (kept so on
// purpose: callers rely on it).
int findInString(const char* text, const char* pattern, bool wholeWord, bool matchCase, bool regex, int* pos,
                 int* len);

}  // namespace zol
