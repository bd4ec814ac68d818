// A pattern and a text searched the way find in files reads a file, in pieces of a
// random size with reads cut short at random, must give the lines, numbers and texts
// that a search of each line on its own gives; and the prefilter that lets a line
// through to the line search may never turn away a line that holds a hit.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "search/text_search.h"

namespace {

void check(bool ok) {
    if (!ok) std::abort();
}

using Hits = std::vector<std::pair<int64_t, std::string>>;

// The lines as a document holds them: split at LF, CR LF and a lone CR. False when a
// regular expression gave up on a line, where the two searches need not agree.
bool perLine(zol::Searcher& s, const std::string& text, Hits& hits) {
    int64_t number = 1;
    for (size_t start = 0;; ++number) {
        const size_t end = text.find_first_of("\r\n", start);
        const std::string line = text.substr(start, end == std::string::npos ? std::string::npos : end - start);
        zol::LineHit h;
        const int r = zol::searchLine(s, line, 0, h);
        if (r == zol::kSearchError) return false;
        if (r == zol::kSearchFound) {
            check(zol::lineCanHold(s, line));
            hits.emplace_back(number, line);
        }
        if (end == std::string::npos) return true;
        start = end + (text.compare(end, 2, "\r\n") == 0 ? 2 : 1);
    }
}

}  // namespace

// Input: an options byte (whole word, match case, regular expression; the piece size
// and the longest read in its other bits), the pattern, NUL, the text. NULs in the
// text become 'n': a NUL ends a file's search, which the unit tests cover.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2) return 0;
    const uint8_t opt = data[0];
    const std::string input(reinterpret_cast<const char*>(data + 1), size - 1);
    const size_t cut = input.find('\0');
    if (cut == std::string::npos || cut == 0) return 0;
    const std::string pattern = input.substr(0, cut);
    std::string text = input.substr(cut + 1);
    for (char& c : text)
        if (c == '\0') c = 'n';

    zol::SearchOptions o;
    o.wholeWord = opt & 1;
    o.matchCase = opt & 2;
    o.regex = opt & 4;
    zol::Searcher s;
    if (zol::prepareSearch(s, pattern.c_str(), o) != zol::kSearchFound) return 0;
    Hits want;
    if (!perLine(s, text, want)) return 0;

    const size_t chunk = 2 + ((opt >> 3) & 7) * 9;
    const size_t readAtMost = opt & 0x80 ? 1 + (size % 7) : zol::kSearchChunk;
    Hits got;
    zol::StreamBuffer buf;
    size_t at = 0;
    const zol::StreamOutcome out = zol::searchStream(
        s, buf,
        [&](char* to, size_t room) {
            const size_t n = std::min({room, readAtMost, text.size() - at});
            text.copy(to, n, at);
            at += n;
            return static_cast<long>(n);
        },
        [&](int64_t line, std::string_view t) {
            got.emplace_back(line, std::string(t));
            return true;
        },
        chunk);
    if (out.result == zol::kSearchError) return 0;
    check(!out.binary && !out.readFailed);
    check(got == want);
    check(out.result == (want.empty() ? zol::kSearchNotFound : zol::kSearchFound));
    return 0;
}
