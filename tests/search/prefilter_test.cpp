// The literal every match must contain, which lets a search skip lines without it,
// and the two forms (SSE2 and scalar) of the scans that find it and that find line
// ends while a file is read.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "files/line_scan.h"
#include "search/find.h"
#include "search/literal_scan.h"
#include "search/regex.h"

namespace zol {
namespace {

TEST(Prefilter, RequiredLiteralAndExactResults) {
    struct Row {
        const char* name;
        const char* pattern;
        bool matchCase;
        const char* required;  // "" when none
        const char* line;
        int hit;               // offset of the first hit, -1 when none
    };
    const Row rows[] = {
        {"plain literal", "int", true, "int", "print x", 2},
        {"longest piece", "x[0-9]+yz", true, "yz", "ax12yz", 1},
        {"a plus of a literal", "[0-9]a+", true, "a", "1b", -1},
        {"empty match", "x*", true, "", "abc", 0},
        {"empty match by an option", "{ab}?", true, "", "", 0},
        {"group first", "{abc}d", true, "abc", "xabcd", 1},
        {"repeated group", "{ab}+c", true, "ab", "ababc", 0},
        {"alternation at the top", "ab|cd", true, "", "xcd", 1},
        {"alternation in a group", "{ab|cd}e", true, "e", "cde", 0},
        {"line start", "^ab", true, "ab", "cab", -1},
        {"line start, hit", "^ab", true, "ab", "abab", 0},
        {"case folded", "INT", false, "int", "PrInT", 2},
        {"case folded, absent", "Q{X}", false, "x", "xx", -1},
    };
    for (const Row& r : rows) {
        Searcher s;
        ASSERT_EQ(prepareSearch(s, r.pattern, {false, r.matchCase, true, true}), kSearchFound) << r.name;
        const std::string required = s.prog->required ? std::string(s.prog->required, s.prog->requiredLength) : "";
        EXPECT_EQ(required, r.required) << r.name;
        LineHit h;
        const int res = searchLine(s, r.line, 0, h);
        EXPECT_EQ(res == kSearchFound ? static_cast<int>(h.offset) : -1, r.hit) << r.name;
        EXPECT_TRUE(res != kSearchFound || lineCanHold(s, r.line)) << r.name;
    }
}

// The bytes after a lead byte that the lead lets through, "*" when every one does.
std::string leadNextOf(const RegexProgram& p) {
    std::string next;
    for (int c = 0; c < 256; ++c)
        if (p.lead.takes(static_cast<char>(c))) next += static_cast<char>(c);
    return next.size() == 256 ? "*" : next;
}

TEST(Prefilter, LeadBytesOfAMatch) {
    struct Row {
        const char* name;
        const char* pattern;
        bool matchCase;
        char lead;         // 0 when a match can be empty or begin with several bytes
        const char* next;
    };
    const Row rows[] = {
        {"literal, then a set", "x[0-9]+y", true, 'x', "0123456789"},
        {"group first", "{x}[0-9]", true, 'x', "0123456789"},
        {"repeated first byte", "a+b", true, 'a', "ab"},
        {"repeated group", "{ab}+c", true, 'a', "b"},
        {"alternatives sharing a first byte", "ab|ac", true, 'a', "bc"},
        {"line start", "^ab", true, 'a', "b"},
        {"case folded", "INT", false, 'i', "n"},
        {"escaped line end second", "a\\nb", true, 'a', "\n"},
        {"one byte long", "a", true, 'a', "*"},
        {"one byte before the line end", "a$", true, 'a', "*"},
        {"optional second byte", "ab?", true, 'a', "*"},
        {"alternatives with other first bytes", "ab|cd", true, 0, ""},
        {"a set first", "[ab]c", true, 0, ""},
        {"a repetition that can be skipped", "x*y", true, 0, ""},
        {"empty match", "x?", true, 0, ""},
        {"a loop of alternatives", "{a|b}+c", true, 0, ""},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        Searcher s;
        ASSERT_EQ(prepareSearch(s, r.pattern, {false, r.matchCase, true, true}), kSearchFound);
        EXPECT_EQ(s.prog->lead.first, r.lead);
        EXPECT_EQ(s.prog->lead.first ? leadNextOf(*s.prog) : "", r.next);
    }
}

TEST(Prefilter, RunawayPatternStillGivesUp) {
    // The required "b" is in the line, so the matcher runs and hits its bound.
    Searcher s;
    ASSERT_EQ(prepareSearch(s, "{a*}*b", {false, true, true, true}), kSearchError);  // "*+ operand could be empty"
    ASSERT_EQ(prepareSearch(s, "{a|aa}+{a|aa}+{a|aa}+{a|aa}+c", {false, true, true, true}), kSearchFound);
    LineHit h;
    EXPECT_EQ(searchLine(s, std::string(60, 'a') + "b", 0, h), kSearchNotFound);  // no "c": skipped at once
    EXPECT_EQ(searchLine(s, std::string(60, 'a') + "bc", 0, h), kSearchError);
    EXPECT_TRUE(s.gaveUp);
}

#if defined(__SSE2__)
TEST(Prefilter, VectorAndScalarScansAgree) {
    std::mt19937 rng(7);
    for (int round = 0; round < 20000; ++round) {
        const size_t len = rng() % 80;
        std::string hay(len, 'a');
        for (char& c : hay) c = "ab\r\nc"[rng() % 5];
        const size_t n = 1 + rng() % 4;
        std::string lit(n, 'a');
        for (char& c : lit) c = "abc"[rng() % 3];
        ASSERT_EQ(findLiteralSse2(hay.data(), len, lit.data(), n), findLiteralScalar(hay.data(), len, lit.data(), n))
            << hay << " / " << lit;
        const size_t from = len ? rng() % len : 0;
        ASSERT_EQ(findLineEndSse2(hay.data() + from, hay.data() + len),
                  findLineEndScalar(hay.data() + from, hay.data() + len));
        ASSERT_EQ(countByteSse2(hay.data() + from, len - from, '\n'), countByteScalar(hay.data() + from, len - from, '\n'));
        RegexLead lead{lit[0], 'a', 'c', {}};
        const auto last = static_cast<unsigned char>(lit.back());
        lead.next[last >> 6] |= uint64_t{1} << (last & 63);
        ASSERT_EQ(findLeadSse2(hay.c_str(), len, lead), findLeadScalar(hay.c_str(), len, lead));
    }
    // Byte lanes that would overflow past 255 line ends in a row.
    const std::string lines(10000, '\n');
    EXPECT_EQ(countByteSse2(lines.data(), lines.size(), '\n'), lines.size());
}
#endif

}  // namespace
}  // namespace zol
