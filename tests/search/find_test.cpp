// Searching lines, documents and strings, the entry points behind the interfaces,
// replacing with undo, and the find and replace commands through the executor.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/command_params.h"
#include "engine/edit.h"
#include "engine/selection.h"
#include "engine/undo.h"
#include "search/commands.h"
#include "search/find.h"
#include "search/history.h"
#include "search/replace.h"
#include "tests/engine/command_fixture.h"

namespace zol {
namespace {

// First hit in a line: offset, or -1 when none, -2 on error.
int lineHit(const char* text, std::string_view line, size_t start, SearchOptions opt) {
    Searcher s;
    if (prepareSearch(s, text, opt) != kSearchFound) return -2;
    LineHit h;
    const int res = searchLine(s, line, start, h);
    return res == kSearchFound ? static_cast<int>(h.offset) : res == kSearchNotFound ? -1 : -2;
}

TEST(LineSearch, DirectionsCaseAndWholeWords) {
    const std::string line = "ab Ab ab_x ab";
    const SearchOptions fwd{}, back{false, false, false, false};
    EXPECT_EQ(lineHit("ab", line, 0, fwd), 0);
    EXPECT_EQ(lineHit("ab", line, 1, fwd), 3);                               // "Ab" without regard to case
    EXPECT_EQ(lineHit("ab", line, 1, {false, true, false, true}), 6);        // with it
    EXPECT_EQ(lineHit("ab", line, 1, {true, false, false, true}), 3);        // "Ab" is a word
    EXPECT_EQ(lineHit("ab", line, 4, {true, false, false, true}), 11);       // "ab_x" is not
    EXPECT_EQ(lineHit("AB", line, 3199, back), 11);
    EXPECT_EQ(lineHit("ab", line, 11, back), 6);                             // must end by the start
    EXPECT_EQ(lineHit("ab", line, 11, {true, false, false, false}), 3);
    EXPECT_EQ(lineHit("ab", line, 1, back), -1);
    EXPECT_EQ(lineHit("\xC4", "x\xE4y", 0, fwd), 1);                         // the code page's letters fold
    const std::string cut(200, 'q');
    EXPECT_EQ(lineHit(cut.c_str(), std::string(127, 'q'), 0, fwd), 0);       // the text is cut to 127
}

TEST(LineSearch, RegularExpressions) {
    const SearchOptions re{false, false, true, true}, reBack{false, false, true, false};
    EXPECT_EQ(lineHit("[0-9]+", "ab 12 34", 0, re), 3);
    EXPECT_EQ(lineHit("^ab", "ab ab", 1, re), -1);       // a search from inside the line is not at its start
    EXPECT_EQ(lineHit("[0-9]+", "ab 12 34", 6, reBack), 4);  // the nearest start, not the longest match
    EXPECT_EQ(lineHit("$", "abc", 3199, reBack), 3);     // from past the end the end itself counts
    EXPECT_EQ(lineHit("[A-Z]", "xyz", 0, re), 0);        // pattern and line are lower-cased alike
    EXPECT_EQ(lineHit("X", "xyz", 0, {false, true, true, true}), -1);
    EXPECT_EQ(lineHit("a+", "aaxa a", 0, {true, false, true, true}), 5);
    EXPECT_EQ(lineHit("a+", "a aax", 5, {true, false, true, false}), 0);
    EXPECT_EQ(lineHit("{a", "a", 0, re), -2);
}

TEST(LineSearch, WordCharacterModes) {
    // Mode 0 is ASCII only, 1 adds the code page's letters, 2 drops the digits.
    for (int mode : {0, 1, 2}) {
        setWordCharMode(mode);
        EXPECT_EQ(isSearchWordChar('\xE9'), mode != 0) << mode;
        EXPECT_EQ(isSearchWordChar('7'), mode != 2) << mode;
    }
    EXPECT_TRUE(isSearchWordChar('_'));
    setWordCharMode(9);
    EXPECT_EQ(wordCharMode(), 2);
    setWordCharMode(0);
}

TEST(StringSearch, PlainAndRegularExpression) {
    int pos = 9, len = 9;
    EXPECT_EQ(findInString("concat cat", "cat", true, false, false, &pos, &len), kSearchFound);
    EXPECT_EQ(std::pair(pos, len), std::pair(7, 3));
    EXPECT_EQ(findInString("cat", "CAT", true, false, false, &pos, &len), kSearchFound);
    EXPECT_EQ(pos, 0);  // the text start is a word boundary
    EXPECT_EQ(findInString("cat", "CAT", false, true, false, &pos, &len), kSearchNotFound);
    EXPECT_EQ(findInString("xx cat", "c.t", false, false, true, &pos, &len), kSearchFound);
    EXPECT_EQ(std::pair(pos, len), std::pair(0, 0));  // a regular-expression hit leaves the outputs cleared
    EXPECT_EQ(findInString("xx cat", "c{t", false, false, true, &pos, &len), kSearchError);
    EXPECT_EQ(findInString(nullptr, "a", false, false, false, &pos, &len), kSearchError);
}

class DocSearch : public test::CommandTest {
protected:
    void SetUp() override {
        CommandTest::SetUp();
        initSearch(nullptr, nullptr);
        forgetLastSearch();
    }
    // What a search left: the selection it made as "col,line-col,line" from its start
    // to its end, or how it failed.
    std::string hit(int result) const {
        if (result != kSearchFound) return result == kSearchNotFound ? "not found" : "error";
        Pos b, e;
        selectionRange(doc, b, e);
        return test::str(b) + "-" + test::str(e);
    }
    // The same for a command, which tells success only.
    std::string found(std::string_view command) { return hit(run(command) ? kSearchFound : kSearchNotFound); }
    // The text after a replacement, or how it failed.
    std::string replaced(int result) const { return result == kSearchFound ? text() : hit(result); }
    void params(std::string_view p1, std::string_view p2 = {}) {
        for (char c : p1) run("Param1", static_cast<unsigned char>(c));
        for (char c : p2) run("Param2", static_cast<unsigned char>(c));
    }
};

TEST_F(DocSearch, EntryPointsCheckArgumentsAndWalkLines) {
    test::fill(doc, "one\ntwo one\nthree");
    EXPECT_EQ(hit(findText(&doc, "one", 0, 1, false, false, false, true)), "error");
    EXPECT_EQ(hit(findText(&doc, "", 1, 1, false, false, false, true)), "error");
    EXPECT_EQ(hit(findText(&doc, "{", 1, 1, false, false, true, true)), "error");

    EXPECT_EQ(hit(findText(&doc, "one", 2, 1, false, false, false, true)), "4,1-7,1");
    EXPECT_EQ(here(), "7,1");
    EXPECT_EQ(hit(findText(&doc, "one", 1, 2, false, false, false, false)), "0,0-3,0");  // back to line 1
    EXPECT_EQ(hit(findText(&doc, "one", 1, 1, false, false, false, false)), "not found");
    EXPECT_EQ(hit(findText(&doc, "three", 1, 1, false, false, false, true)), "0,2-5,2");
    EXPECT_EQ(hit(findTextInLine(&doc, "three", 1, 1, false, false, false, true)), "not found");
    EXPECT_EQ(hit(findText(&doc, "^t", 1, 3, false, false, true, false)), "0,1-1,1");
}

TEST_F(DocSearch, HitsAtLineEdgesTabsAndTheLastColumn) {
    test::fill(doc, "\tab\n" + std::string(3199, 'x') + "Z\nZ");
    EXPECT_EQ(hit(findText(&doc, "ab", 1, 1, false, true, false, true)), "8,0-10,0");  // columns, after the tab
    EXPECT_EQ(hit(findText(&doc, "Z", 1, 2, false, true, false, true)), "3199,1-3200,1");
    EXPECT_EQ(hit(findText(&doc, "Z", 2, 3, false, true, false, false)), "0,2-1,2");
    // Backwards, earlier lines are searched from column 3199, so a hit in the last
    // column of a full line lies beyond the start.
    EXPECT_EQ(hit(findText(&doc, "Z", 1, 3, false, true, false, false)), "not found");
    EXPECT_EQ(hit(findText(&doc, "Z", 1, 3, false, true, true, false)), "not found");
    EXPECT_EQ(hit(findText(&doc, "x", 1, 3, false, true, true, false)), "3198,1-3199,1");
}

TEST_F(DocSearch, ReplacingIsOneUndoStepEach) {
    test::fill(doc, "cat cat\ncat");
    EXPECT_EQ(replaced(replaceText(&doc, "cat", "dog", 1, 1, false, false, false, true)), "dog cat\ncat");
    EXPECT_EQ(hit(kSearchFound), "0,0-3,0");
    EXPECT_EQ(replaced(replaceText(&doc, "{c}at", "\\U\\1-&", 4, 1, false, false, true, true)), "dog C-cat\ncat");
    EXPECT_EQ(replaced(replaceTextInLine(&doc, "cat", "", 1, 2, false, false, false, true)), "dog C-cat\n");
    EXPECT_EQ(undoDepth(), 3u);
    for (int i = 0; i < 3; ++i) undo(doc);
    EXPECT_EQ(text(), "cat cat\ncat");
    const std::string wide(3300, 'w');
    EXPECT_EQ(replaced(replaceText(&doc, "cat", wide.c_str(), 1, 1, false, false, false, true)), "error");
    EXPECT_EQ(text(), "cat cat\ncat");
}

TEST_F(DocSearch, ReplaceAllIsOneUndoStepAndCounts) {
    const std::string before = "int a;\nchar b;\nint c; int d;\nlong e;";
    test::fill(doc, before);
    Searcher s;
    ReplaceAllResult r;
    auto replaceAllOf = [&](const char* pattern, SearchOptions opt, const char* with) {
        EXPECT_EQ(prepareSearch(s, pattern, opt), kSearchFound) << pattern;
        return replaced(replaceAll(doc, s, with, r));
    };
    doc.lastCmd = 91;
    EXPECT_EQ(replaceAllOf("int", {true, true, false, true}, "long"), "long a;\nchar b;\nlong c; long d;\nlong e;");
    EXPECT_EQ(r.replaced, 3);
    EXPECT_EQ(undoDepth(), 1u);
    EXPECT_STREQ(undoLabel(doc.undo), "&Undo Replace");
    undo(doc);
    EXPECT_EQ(text(), before);
    // A template may break lines; empty matches still advance.
    EXPECT_EQ(replaceAllOf("{[a-e]};", {false, true, true, true}, "\\1\\n"),
              "int a\n\nchar b\n\nint c\n int d\n\nlong e\n");
    undo(doc);
    EXPECT_EQ(replaceAllOf("x*", {false, true, true, true}, "-"),
              "-i-n-t- -a-;-\n-c-h-a-r- -b-;-\n-i-n-t- -c-;- -i-n-t- -d-;-\n-l-o-n-g- -e-;-");
    undo(doc);
    EXPECT_EQ(replaceAllOf("zzz", {}, "y"), "not found");
    EXPECT_EQ(undoDepth(), 0u);
    EXPECT_EQ(text(), before);
}

TEST_F(DocSearch, ParameterCommandsFindAndReplace) {
    test::fill(doc, "Alpha beta alpha\nalphabet");
    params("ALPHA");
    EXPECT_EQ(found("FindParam"), "0,0-5,0");
    EXPECT_EQ(found("FindParam"), "11,0-16,0");  // the parameter stays until the next Param1
    params("Alpha");
    EXPECT_EQ(found("FindParamC"), "not found");
    params("alpha");
    moveTo(0, 0);
    EXPECT_EQ(found("FindParamC"), "11,0-16,0");
    EXPECT_EQ(found("FindNext"), "0,1-5,1");
    params("alpha");
    EXPECT_EQ(found("FindParamCW"), "not found");  // only "alphabet" is left
    moveTo(0, 0);
    params("alpha", "Omega");
    EXPECT_EQ(run("ReplaceInLineParamCW"), 1);
    EXPECT_EQ(text(), "Alpha beta Omega\nalphabet");
    moveTo(0, 1);
    params("al{p}ha", "[\\1]");
    EXPECT_EQ(run("ReplaceParamR"), 1);
    EXPECT_EQ(text(), "Alpha beta Omega\n[p]bet");
    EXPECT_STREQ(undoLabel(doc.undo), "&Undo");
    params("x{");
    EXPECT_EQ(run("FindParamR"), 0);
    EXPECT_EQ(shell_.messages, std::vector<std::string>{"Regular expression error:  umatched {}"});
}

TEST_F(DocSearch, RunawayExpressionStopsTheSearchWithAMessage) {
    const char* runaway = "{a|aa}*{a|aa}*{a|aa}*{a|aa}*[bc]";
    test::fill(doc, "x\n" + std::string(3000, 'a') + "\nab");
    params(runaway);
    EXPECT_EQ(run("FindParamR"), 0);
    EXPECT_EQ(shell_.messages, std::vector<std::string>{"Regular expression error:  the expression takes too "
                                                        "long on line 2; the search was stopped."});
    EXPECT_EQ(hit(findText(&doc, runaway, 1, 2, false, true, true, true)), "error");
    EXPECT_EQ(hit(findText(&doc, runaway, 1, 3, false, true, true, true)), "0,2-2,2");
}

TEST_F(DocSearch, WordAtCursorSearches) {
    test::fill(doc, "foo food foo\nfoo");
    moveTo(1, 0);
    EXPECT_EQ(found("FindNextWord"), "9,0-12,0");  // "food" is not the word
    EXPECT_EQ(found("FindNextWord"), "0,1-3,1");   // the selection is searched for now
    EXPECT_EQ(found("FindPrevWord"), "9,0-12,0");
    EXPECT_EQ(found("FindPrevWord"), "4,0-7,0");  // a selection is plain text, "food" holds it
}

TEST_F(DocSearch, DialogsHistoriesAndGoTo) {
    std::vector<std::string> finds{"old"}, replaces;
    initSearch(&finds, &replaces);
    test::fill(doc, "word x\nx word");
    EXPECT_EQ(run("Find"), 0);  // cancelled
    EXPECT_EQ(shell_.findShown.findText, "word");
    EXPECT_FALSE(lastSearch().valid);

    shell_.findResult = FindDialogResult::ReplaceAll;
    shell_.findChoice.findText = "x";
    shell_.findChoice.replaceText = "yy";
    EXPECT_EQ(run("Replace"), 1);
    EXPECT_TRUE(shell_.findWasReplace);
    EXPECT_EQ(text(), "word yy\nyy word");
    EXPECT_EQ(shell_.messages, std::vector<std::string>{"2 occurrence(s) replaced."});
    EXPECT_EQ(finds, (std::vector<std::string>{"x", "old"}));
    EXPECT_EQ(replaces, (std::vector<std::string>{"yy"}));
    EXPECT_EQ(undoDepth(), 1u);

    shell_.findResult = FindDialogResult::Find;
    shell_.findChoice.findText = "nothing";
    EXPECT_EQ(run("Find"), 0);
    EXPECT_EQ(shell_.status.back(), "Cannot find \"nothing\".");

    shell_.number = 2;
    EXPECT_EQ(run("GoToLine"), 1);
    EXPECT_EQ(doc.cursor.line, 1);
    shell_.number = 3;
    run("GoToColumn");
    EXPECT_EQ(doc.cursor.col, 2);
    initSearch(nullptr, nullptr);
}

TEST(SearchHistory, NewestFirstWithoutDuplicates) {
    std::vector<std::string> list;
    for (const char* s : {"a", "b", "c", "d", "e", "f", "g", "h", "i"}) pushHistory(list, s);
    EXPECT_EQ(list.size(), kSearchHistorySize);
    EXPECT_EQ(list.front(), "i");
    EXPECT_EQ(list.back(), "b");
    pushHistory(list, "e");
    EXPECT_EQ(list.front(), "e");
    EXPECT_EQ(std::count(list.begin(), list.end(), "e"), 1);
    pushHistory(list, "");
    pushHistory(list, std::string(80, 'x'));
    EXPECT_EQ(list.front(), "e");
}

}  // namespace
}  // namespace zol
