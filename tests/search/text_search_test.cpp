// Searching a text as it is read in pieces: whatever the piece size and however the
// reads fall, the lines with hits, their numbers and texts are those of a plain search
// of each line on its own.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "search/find_in_files.h"
#include "tests/support/temp_dir.h"

namespace zol {
namespace {

using Hits = std::vector<std::pair<int64_t, std::string>>;

// The lines of a text as the find commands see a document's: split at LF, CR LF and a
// lone CR, and the bytes after the last line end one more line.
Hits perLineSearch(Searcher& s, const std::string& text) {
    Hits hits;
    int64_t number = 1;
    for (size_t start = 0;; ++number) {
        size_t end = text.find_first_of("\r\n", start);
        const std::string line = text.substr(start, end == std::string::npos ? std::string::npos : end - start);
        LineHit h;
        if (searchLine(s, line, 0, h) == kSearchFound) hits.emplace_back(number, line);
        if (end == std::string::npos) return hits;
        start = end + (text.compare(end, 2, "\r\n") == 0 ? 2 : 1);
    }
}

Hits streamed(Searcher& s, const std::string& text, size_t chunk, size_t readAtMost) {
    Hits hits;
    StreamBuffer buf;
    size_t at = 0;
    const StreamOutcome o = searchStream(s, buf, [&](char* out, size_t size) {
        const size_t n = std::min({size, readAtMost, text.size() - at});
        text.copy(out, n, at);
        at += n;
        return static_cast<long>(n);
    }, [&](int64_t line, std::string_view t) {
        hits.emplace_back(line, std::string(t));
        return true;
    }, chunk);
    EXPECT_EQ(o.result, hits.empty() ? kSearchNotFound : kSearchFound);
    return hits;
}

TEST(TextSearch, PiecesFindWhatALineByLineSearchFinds) {
    const std::string longLine = std::string(40, 'a') + "int x12y" + std::string(30, 'b');
    const std::pair<const char*, std::string> texts[] = {
        {"empty", ""},
        {"no line end at the end", "int a\nb int"},
        {"line end at the end", "int\nx1y\n"},
        {"hits across piece ends", "aa int bb\nprintf x1y\nint\n\nINT x9y\n"},
        {"CR LF split between pieces", "a\r\nint\r\nb\r\n\r\nx2y\r\n"},
        {"lone CRs", "int\rb\r\rx3y\r"},
        {"mixed ends", "int\r\n\rx4y\n\r\nint"},
        {"a line longer than a piece", "x\n" + longLine + "\nint\r\n" + longLine},
        {"only line ends", "\n\r\n\r\r\n\n"},
    };
    const std::pair<const char*, SearchOptions> patterns[] = {
        {"int", {false, true, false, true}},
        {"INT", {false, false, false, true}},
        {"int", {true, true, false, true}},
        {"x[0-9]+y", {false, true, true, true}},
        {"int|x", {false, true, true, true}},
        {"{i}nt", {false, false, true, true}},
        {"^$", {false, true, true, true}},
        {"b*", {false, true, true, true}},
        {"^int", {false, true, true, true}},
        {"t$", {false, true, true, true}},
        {"[0-9]y", {false, true, true, true}},
        {"t\nx", {false, true, false, true}},
    };
    for (const auto& [name, text] : texts) {
        for (const auto& [pattern, options] : patterns) {
            SCOPED_TRACE(std::string(name) + ", pattern " + pattern);
            Searcher s;
            ASSERT_EQ(prepareSearch(s, pattern, options), kSearchFound);
            const Hits want = perLineSearch(s, text);
            for (size_t chunk : {2, 3, 4, 7, 16, 64})
                for (size_t readAtMost : {size_t{1}, size_t{5}, kSearchChunk})
                    ASSERT_EQ(streamed(s, text, chunk, readAtMost), want) << "pieces of " << chunk;
            std::string copy = text;
            Hits whole;
            searchText(s, copy, [&](int64_t line, std::string_view t) {
                whole.emplace_back(line, std::string(t));
                return true;
            });
            EXPECT_EQ(whole, want);
        }
    }
}

TEST(TextSearch, FilesEndAtANulOrAFailureAndOpenAsBefore) {
    Searcher s;
    ASSERT_EQ(prepareSearch(s, "int", {false, true, false, true}), kSearchFound);
    StreamBuffer buf;
    int hits = 0;
    const FoundLineFn count = [&](int64_t, std::string_view) { return ++hits, true; };
    // The NUL comes after a hit, in a later piece: the caller learns that it was binary.
    std::string text = "int\n" + std::string(100, 'a') + std::string(1, '\0') + "int";
    StreamOutcome o = searchStream(s, buf, textReader(text), count, 16);
    EXPECT_TRUE(o.binary);

    bool failed = false;
    o = searchStream(s, buf, [&](char* out, size_t) { return failed ? -1L : (failed = true, out[0] = 'i', 1L); },
                     count, 16);
    EXPECT_TRUE(o.readFailed);

    test::TempDir t;
    FsResult read;
    hits = 0;
    searchFile(s, buf, t.put("a.c", "int\r\nint"), count, read);
    EXPECT_EQ(read, FsResult::Ok);
    EXPECT_EQ(hits, 2);
    searchFile(s, buf, t.path("missing.c"), count, read);
    EXPECT_EQ(read, FsResult::Missing);
    searchFile(s, buf, t.dir(), count, read);
    EXPECT_EQ(read, FsResult::NotRegular);
}

}  // namespace
}  // namespace zol
