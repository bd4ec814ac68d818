// Telling compiler and tool messages from other output: hand-made lines for each rule
// and its quirks, then real output of gcc, clang, make and grep -n.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "tools/message_parse.h"

namespace zol {
namespace {

struct Row {
    const char* why;
    const char* text;
    bool message;
    const char* name;
    uint32_t line, column;
};

const Row kRows[] = {
    {"parenthesised line", "foo.c(12): error C2065: undeclared identifier x", true, "foo.c", 12, 0},
    {"colon ends the name", "foo.c:12: parse error", true, "foo.c", 12, 0},
    {"severity word skipped", "Error foo.cpp 7: Undefined symbol x", true, "foo.cpp", 7, 0},
    {"both severity words, any case", "ERROR warning foo.cpp 9: y is never used", true, "foo.cpp", 9, 0},
    {"warning alone", "Warning foo.cpp 9: y is never used", true, "foo.cpp", 9, 0},
    {"drive kept", "c:\\src\\a.c(3): x", true, "c:\\src\\a.c", 3, 0},
    {"drive with slash", "  d:/w/b.h(40): x", true, "d:/w/b.h", 40, 0},
    {"column after blank col(", "x.c(5): W1 col(7)", true, "x.c", 5, 7},
    {"col( without its blank", "x.c(5): col(7)", true, "x.c", 5, 0},
    {"col( without a digit", "x.c(5): W1 col(x)", true, "x.c", 5, 0},
    {"col( only after ): and a blank", "x.c:5: W1 col(7)", true, "x.c", 5, 0},
    {"Note! with text after it", "foo.c(3): Note! N2002: x defined", true, "foo.c", 3, 0},
    {"Note! alone keeps name and line", "foo.c(3): Note!", false, "foo.c", 3, 0},
    {"noise line, whole string", "gcc ", false, "", 0, 0},
    {"noise line, no case", "  COPYRIGHT ", false, "", 0, 0},
    {"noise only as a whole", "gcc -c x.c", false, "", 0, 0},
    {"banner that is no noise", "Borland C++ 5.0", true, "Borland", 5, 0},
    {"make[ alone is noise", "make[", false, "", 0, 0},
    {"digits cannot start a name", "2 errors", false, "", 0, 0},
    {"line 0 is none", "a.c:0: x", false, "", 0, 0},
    {"seventeen digits at most", "a.c:123456789012345678: x", true, "a.c", 4294967295u, 0},
    {"name cut to 63 characters",
     "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa.c:4: x", true,
     "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa", 4, 0},
    {"vertical tab is a blank", "\v\fa.c(2):\tcol(3) x col(4)", true, "a.c", 2, 4},
    {"empty line", "", false, "", 0, 0},
};

TEST(ParseMessageLine, Rules) {
    for (const Row& r : kRows) {
        MessageLocation m;
        EXPECT_EQ(parseMessageLine(r.text, m), r.message) << r.why;
        EXPECT_EQ(m.name, r.name) << r.why;
        EXPECT_EQ(m.line, r.line) << r.why;
        EXPECT_EQ(m.column, r.column) << r.why;
    }
}

TEST(ParseMessageLine, NameBufferCapacity) {
    MessageLocation m;
    EXPECT_TRUE(parseMessageLine("abcdef.c(9): x", m, 4));
    EXPECT_EQ(m.name, "abc");
    EXPECT_EQ(m.line, 9u);
    // A drive prefix is cut to the buffer like the rest of the name.
    EXPECT_TRUE(parseMessageLine("Z:/a.c(8): x", m, 3));
    EXPECT_EQ(m.name, "Z:");
    EXPECT_FALSE(parseMessageLine("Z:/a.c(8): x", m, 1));
    EXPECT_EQ(m.name, "");
}

// Output captured from the real programs (LC_ALL=C), with every line that parses as a
// message: its index, name and line. Caret lines and "make[1]:" lines count too: the
// rules take the first word and the first number of a line.
struct Fixture {
    const char* file;
    std::vector<std::tuple<int, std::string, uint32_t>> messages;
};

const Fixture kFixtures[] = {
    {"gcc.txt", {{1, "bad.c", 6}, {5, "bad.c", 12}, {6, "int", 5}}},
    {"clang.txt", {{0, "bad.c", 5}, {4, "bad.c", 12}, {5, "int", 5}}},
    {"make.txt",
     {{1, "make", 1}, {4, "bad.c", 6}, {8, "bad.c", 12}, {9, "int", 5}, {11, "make", 1}, {12, "make", 1}, {13, "make", 2}}},
    {"grep.txt", {{0, "sub/bad.c", 3}, {1, "sub/bad.c", 5}, {2, "sub/bad.c", 12}, {3, "sub/bad.c", 13}}},
};

TEST(ParseMessageLine, RealToolOutput) {
    for (const Fixture& f : kFixtures) {
        std::ifstream in(std::string(ZOLDER_SOURCE_DIR) + "/tests/tools/fixtures/" + f.file);
        ASSERT_TRUE(in) << f.file;
        std::vector<std::tuple<int, std::string, uint32_t>> found;
        std::string text;
        for (int i = 0; std::getline(in, text); ++i) {
            MessageLocation m;
            if (parseMessageLine(text, m)) {
                found.emplace_back(i, m.name, m.line);
                EXPECT_EQ(m.column, 0u) << f.file << " line " << i;
            }
        }
        EXPECT_EQ(found, f.messages) << f.file;
    }
}

}  // namespace
}  // namespace zol
