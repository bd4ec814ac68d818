// The soak's own checks must see the faults they are there for, and a seed must name
// one run exactly, or a failure could not be replayed.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>

#include "engine/bookmarks.h"
#include "engine/edit.h"
#include "engine/line_capacity.h"
#include "tests/soak/lib/soak.h"
#include "tests/soak/lib/soak_check.h"

namespace zol::soak {
namespace {

std::string allChecks(const Document& doc) {
    for (const std::string& why : {checkLineList(doc.lines), checkLineTexts(doc.lines, 0, doc.lines.lastIndex),
                                   checkCursorAndSelection(doc), checkNamedBookmarks(namedBookmarks(), doc)})
        if (!why.empty()) return why;
    return {};
}

struct Fault {
    const char* name;
    std::function<void(Document&)> inflict;
    const char* reported;  // part of the checker's message
};

TEST(SoakChecks, SeeEveryKindOfDamage) {
    const Fault faults[] = {
        {"backward link", [](Document& d) { d.lines.arena.setPrev(d.lines.find(2), d.lines.first); },
         "backward link is broken at line 2"},
        {"line count", [](Document& d) { ++d.lines.lastIndex; }, "holds 4 lines but says 5"},
        {"list longer than its count", [](Document& d) { --d.lines.lastIndex; }, "runs on past"},
        {"current record", [](Document& d) { d.lines.current = d.lines.find(3); }, "cached current record"},
        {"last-found record", [](Document& d) { d.lines.seen = d.lines.first, d.lines.seenIndex = 1; },
         "last-found record"},
        {"bookmark byte", [](Document& d) { d.lines.header(d.lines.first).bookmark = 7; }, "bookmark byte"},
        {"too wide", [](Document& d) { d.lines.setText(d.lines.find(1), std::string(kMaxColumns / 4 + 1, '\t')); },
         "columns wide"},
        {"line end inside a line", [](Document& d) { d.lines.setText(d.lines.find(3), "a\rb"); }, "line end inside"},
        {"cursor past the end", [](Document& d) { d.cursor.line = 9; }, "cursor outside the text"},
        {"cursor off its record", [](Document& d) { d.cursor.line = 1; }, "but the current record is line 0"},
        {"selection past the end",
         [](Document& d) { d.selExists = true, d.selAnchor = Pos{0, 0}, d.selEnd = Pos{2, 8}; },
         "selection outside"},
        {"empty selection", [](Document& d) { d.selExists = true, d.selAnchor = d.selEnd = Pos{1, 1}; },
         "two ends are both 1,1"},
        {"named bookmark past the end",
         [](Document& d) { addNamedBookmark(namedBookmarks(), "far", Pos{0, 12}, "", &d); }, "points past the text"},
    };
    for (const Fault& f : faults) {
        Document doc;
        rawInsert(doc, Pos{}, "one\r\ntwo\r\nthree\r\nfour", nullptr);
        setCursor(doc, Pos{});
        ASSERT_EQ(allChecks(doc), "") << f.name;
        f.inflict(doc);
        EXPECT_NE(allChecks(doc).find(f.reported), std::string::npos) << f.name << ": " << allChecks(doc);
        detachDocument(namedBookmarks(), doc);
        namedBookmarks().entries.clear();
        // Put the list back together so that the document can be freed.
        doc.lines.reset();
    }
}

TEST(SoakChecks, SnapshotsTellWhereTextsPart) {
    const Snapshot a{"one\ntwo\nthree", {1}};
    EXPECT_EQ(difference(a, a, Bookmarks::Equal), "");
    const std::string text = difference(a, {"one\ntwo\nthree\n", {1}}, Bookmarks::Equal);
    EXPECT_NE(text.find("from line 3 on (3 lines expected, 4 found)"), std::string::npos) << text;
    const Snapshot moved{"one\ntwo\nthree", {2}}, lost{"one\ntwo\nthree", {}};
    EXPECT_EQ(difference(a, moved, Bookmarks::Ignore), "");
    EXPECT_EQ(difference(a, moved, Bookmarks::Equal), "bookmarked lines differ: expected [1], found [2]");
    EXPECT_EQ(difference(a, moved, Bookmarks::NoneNew), "bookmarked lines differ: expected [1], found [2]");
    EXPECT_EQ(difference(a, lost, Bookmarks::NoneNew), "");
    EXPECT_EQ(printable("a\tb\x01\xE9\"", 10), "\"a\\tb\\x01\\xE9\\\"\"");
}

// Everything a run prints with --trace.
std::string traceOf(uint64_t seed, long commands) {
    char* buffer = nullptr;
    size_t size = 0;
    std::FILE* out = open_memstream(&buffer, &size);
    SoakConfig config;
    config.seed = seed;
    config.commands = commands;
    const SoakResult r = runSoak(config, out);
    std::fclose(out);
    std::string text(buffer, size);
    std::free(buffer);
    EXPECT_TRUE(r.ok) << r.failure;
    return text;
}

TEST(SoakRuns, ASeedNamesOneRun) {
    const std::string first = traceOf(42, 600);
    EXPECT_EQ(first, traceOf(42, 600));
    EXPECT_NE(first, traceOf(43, 600));
    // A shorter run of the same seed is the start of the longer one: the replay line
    // of a failure stops where it happened.
    const std::string shorter = traceOf(42, 300);
    const size_t cut = shorter.find("checkpoint");
    EXPECT_EQ(first.substr(0, cut), shorter.substr(0, cut));
}

TEST(SoakRuns, ManySeedsHoldEveryCheck) {
    for (uint64_t seed = 100; seed < 108; ++seed) {
        SoakConfig config;
        config.seed = seed;
        config.commands = 1500;
        config.docs = 1 + static_cast<int>(seed % 4);
        const SoakResult r = runSoak(config);
        EXPECT_TRUE(r.ok) << r.failure;
        EXPECT_GE(r.executed, config.commands);
        EXPECT_GE(r.checkpoints, config.docs);
    }
}

}  // namespace
}  // namespace zol::soak
