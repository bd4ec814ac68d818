// Find in files: the walk over a folder tree (masks, subfolders, links, files that
// cannot be read), the search of a file's lines, the output and its summary, and
// stopping.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

#include "search/find_in_files.h"
#include "tests/support/temp_dir.h"

namespace zol {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

struct Outcome {
    Lines output;
    FileSearchTotals totals;
};

Outcome runQuery(const FileSearchQuery& q, const OpenTexts& open = {}, std::function<void()> afterFirst = nullptr) {
    Outcome r;
    std::atomic<bool> stop{false};
    r.totals = findInFiles(q, open, stop, [&](std::vector<std::string>& lines) {
        r.output.insert(r.output.end(), lines.begin(), lines.end());
        if (afterFirst) std::exchange(afterFirst, nullptr)();
    });
    return r;
}

TEST(FindInFiles, WalksTheTreeAndReportsWhatItCouldNotRead) {
    test::TempDir t;
    t.put("a.c", "int x;\r\nfoo\r\nbar Foo\r\n");
    t.put("mac.c", "a\rb\rfoo");
    t.put("bin.c", std::string("foo\0", 4));
    t.put("notes.txt", "foo");
    t.put(".git/x.c", "foo");
    t.put("sub/b.h", "\nfoo\n");
    ASSERT_EQ(::mkfifo(t.path("fifo.c").c_str(), 0644), 0);
    fs::create_directory_symlink(t.dir(), t.path("sub/back"));  // a loop back to the top
    fs::create_symlink(t.path("nowhere"), t.path("gone.c"));
    FileSearchQuery q{"foo", {}, t.dir(), "*.c *.H", true};
    const Outcome r = runQuery(q);
    EXPECT_EQ(r.output, (Lines{"a.c(2): foo", "a.c(3): bar Foo", "fifo.c: cannot be read (not a regular file)",
                               "gone.c: cannot be read (a link that leads nowhere)", "mac.c(3): foo",
                               "sub/b.h(2): foo"}));
    EXPECT_EQ(r.totals.searched, 3u);
    EXPECT_EQ(r.totals.withHits, 3u);
    EXPECT_EQ(r.totals.lines, 4u);
    EXPECT_EQ(r.totals.binary, 1u);
    EXPECT_EQ(r.totals.unreadable, 2u);
    EXPECT_EQ(summaryLines(r.totals), (Lines{"4 matching lines", "3 files with hits", "3 files searched",
                                             "1 binary file skipped", "2 files or folders could not be read"}));

    q.subfolders = false;
    q.masks = "";
    q.options.matchCase = true;
    EXPECT_EQ(runQuery(q).output, (Lines{"a.c(2): foo", "fifo.c: cannot be read (not a regular file)",
                                         "gone.c: cannot be read (a link that leads nowhere)", "mac.c(3): foo",
                                         "notes.txt(1): foo"}));
}

TEST(FindInFiles, SearchesLinesAsTheFindCommandsDo) {
    struct Row {
        const char* name;
        const char* pattern;
        SearchOptions options;
        const char* text;
        std::vector<int64_t> lines;
    };
    const Row rows[] = {
        {"plain, without regard to case", "ab", {}, "xAB\nab ab\r\nno\rcab", {1, 2, 4}},
        {"whole word skips a part and finds a later word", "ab", {true, false, false, true}, "abc ab\nxab", {1}},
        {"regular expression", "x[0-9]+y", {false, true, true, true}, "x1y\nxy\r\nax22y", {1, 3}},
        {"anchored expression, lines of every ending", "^b", {false, true, true, true}, "b\r\nb\rab\nb", {1, 2, 4}},
        {"an expression never crosses a line end", "a.b", {false, true, true, true}, "a\nb\ra\rb", {}},
        {"empty last line", "$", {false, true, true, true}, "a\n", {1, 2}},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        Searcher s;
        ASSERT_EQ(prepareSearch(s, r.pattern, r.options), kSearchFound);
        std::string text = r.text;
        std::vector<int64_t> found;
        searchText(s, text, [&](int64_t line, std::string_view) {
            found.push_back(line);
            return true;
        });
        EXPECT_EQ(found, r.lines);
        EXPECT_EQ(text, r.text);  // put back as it was
    }
}

TEST(FindInFiles, OpenDocumentsAreSearchedInsteadOfTheirFiles) {
    test::TempDir t;
    const std::string path = t.put("a.txt", "old foo");
    const OpenTexts open{{path, "new\nfoo here"}};
    EXPECT_EQ(runQuery({"foo", {}, t.dir(), "", true}, open).output, Lines{"a.txt(2): foo here"});
}

TEST(FindInFiles, BadQueriesAreRefusedWithTheirMessage) {
    test::TempDir t;
    struct Row {
        FileSearchQuery q;
        std::string message;
    };
    const Row rows[] = {
        {{"", {}, t.dir(), "", true}, "Type the text to find."},
        {{"{a", {false, false, true, true}, t.dir(), "", true}, "Regular expression error:  umatched {}"},
        {{"a", {}, t.path("missing"), "", true}, "The folder " + t.path("missing") + " does not exist."},
        {{"a", {}, t.put("file", "a"), "", true}, "The folder " + t.path("file") + " does not exist."},
        {{"a", {}, t.dir(), "", true}, ""},
    };
    for (const Row& r : rows) EXPECT_EQ(fileSearchProblem(r.q), r.message);
}

TEST(FindInFiles, StopsWhenAskedAndSkipsFilesThatVanish) {
    test::TempDir t;
    for (const char* name : {"a", "b", "c", "d"}) t.put(name, "hit\nhit\n");
    // The first hit goes out at once; b disappears before its turn.
    const Outcome vanished = runQuery({"hit", {}, t.dir(), "", true}, {}, [&] { fs::remove(t.path("b")); });
    EXPECT_EQ(vanished.totals.searched, 3u);
    EXPECT_EQ(vanished.totals.unreadable, 0u);
    EXPECT_EQ(vanished.output.size(), 6u);

    std::atomic<bool> stop{false};
    size_t seen = 0;
    const FileSearchTotals totals = findInFiles({"hit", {}, t.dir(), "", true}, {}, stop, [&](Lines& lines) {
        seen += lines.size();
        stop = true;
    });
    EXPECT_TRUE(totals.cancelled);
    EXPECT_EQ(seen, 1u);
    EXPECT_EQ(summaryLines(totals).front(), "Stopped: the search did not finish.");
}

TEST(FindInFiles, MasksAndOutputLines) {
    const std::vector<std::string> masks = splitMasks(" *.c;*.H,,a?c.txt ");
    EXPECT_EQ(masks, (std::vector<std::string>{"*.c", "*.H", "a?c.txt"}));
    EXPECT_TRUE(masksTake(masks, "X.C"));
    EXPECT_TRUE(masksTake(masks, "abc.txt"));
    EXPECT_FALSE(masksTake(masks, "ac.txt"));
    EXPECT_FALSE(masksTake(masks, "x.cpp"));
    EXPECT_TRUE(masksTake(splitMasks("*.*"), "Makefile"));
    EXPECT_TRUE(masksTake({}, "anything"));
    // A hit line stays one line of the output, and a huge one is cut.
    EXPECT_EQ(hitLine("d/f.c", 7, "a\rb"), "d/f.c(7): a b");
    EXPECT_EQ(hitLine("f", 1, std::string(5000, 'x')).size(), 6 + kMaxHitText);
}

}  // namespace
}  // namespace zol
