// Replacing within a selection (character and column blocks) and hit by hit with the
// question before each replacement, directly and through the Replace dialog.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/selection.h"
#include "engine/undo.h"
#include "search/commands.h"
#include "search/replace.h"
#include "tests/engine/command_fixture.h"

namespace zol {
namespace {

using A = ReplacePromptAnswer;

class ReplaceScopes : public test::CommandTest {
protected:
    void SetUp() override {
        CommandTest::SetUp();
        initSearch(nullptr, nullptr);
        forgetLastSearch();
    }
    Searcher searcher(const char* pattern, bool regex = false) {
        Searcher s;
        EXPECT_EQ(prepareSearch(s, pattern, {false, true, regex, true}), kSearchFound);
        return s;
    }
    std::string selection() const {
        Pos b, e;
        if (!selectionRange(doc, b, e)) return "none";
        return test::str(b) + "-" + test::str(e);
    }
};

TEST_F(ReplaceScopes, AllInASelectionLeavesTheRestAndStaysSelected) {
    struct Row {
        const char* name;
        const char* text;
        Pos anchor, end;
        SelMode mode;
        const char* pattern;
        bool regex;
        const char* with;
        const char* after;
        const char* selectedAfter;
    };
    const Row rows[] = {
        {"character block from mid-line to mid-line", "aa aa\naa aa\naa aa", {3, 0}, {2, 2}, SelMode::Char, "aa",
         false, "bbb", "aa bbb\nbbb bbb\nbbb aa", "3,0-3,2"},
        {"a hit across the block's end is left", "xaaaa", {0, 0}, {3, 0}, SelMode::Char, "aaa", false, "-",
         "xaaaa", "0,0-3,0"},
        {"the end of the block is a line end for $", "abc abc", {0, 0}, {3, 0}, SelMode::Char, "c$", true, "C",
         "abC abc", "0,0-3,0"},
        {"column block", "a1a1\na1a1\na1a1", {1, 0}, {3, 1}, SelMode::Column, "1", false, "22",
         "a22a1\na22a1\na1a1", "1,0-3,1"},
        {"column block over a short line", "aaaa\na\naaaa", {2, 0}, {4, 2}, SelMode::Column, "a", false, "b",
         "aabb\na\naabb", "2,0-4,2"},
        {"replacement breaking a line", "k k\nk k", {2, 0}, {1, 1}, SelMode::Char, "k", false, "\\n", "k \n\n\n k",
         "2,0-0,3"},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        test::fill(doc, r.text);
        select(r.anchor, r.end, r.mode);
        ReplaceScope scope;
        ASSERT_TRUE(selectionScope(doc, scope));
        Searcher s = searcher(r.pattern, r.regex || std::string(r.with) == "\\n");
        ReplaceAllResult result;
        replaceAll(doc, s, r.with, result, &scope);
        EXPECT_EQ(text(), r.after);
        EXPECT_EQ(selection(), r.selectedAfter);
        EXPECT_LE(undoDepth(), 1u);
        if (undoDepth() == 1u) {
            undo(doc);
            EXPECT_EQ(text(), r.text);
        }
    }
}

TEST_F(ReplaceScopes, PromptAnswersYesNoAllCancel) {
    const char* before = "x1 x2\nx3 x4\nx5";
    struct Row {
        const char* name;
        std::vector<A> answers;
        const char* after;
        std::vector<std::string> asked;
        size_t undoSteps;
    };
    const Row rows[] = {
        {"yes and no in turn, then out of hits", {A::Yes, A::No, A::Yes, A::No, A::Yes}, "y1 x2\ny3 x4\ny5",
         {"x", "x", "x", "x", "x"}, 3},
        {"cancel at once", {A::Cancel}, before, {"x"}, 0},
        {"no, then all the rest in one step", {A::No, A::All}, "x1 y2\ny3 y4\ny5", {"x", "x"}, 1},
        {"yes, then cancel", {A::Yes, A::Cancel}, "y1 x2\nx3 x4\nx5", {"x", "x"}, 1},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        test::fill(doc, before);
        shell_.prompted.clear();
        shell_.promptAnswers.assign(r.answers.begin(), r.answers.end());
        Searcher s = searcher("x");
        ReplaceAllResult result;
        replacePrompted(doc, s, "y", wholeDocumentScope(doc), [&](Document& d) { return shell_.replacePrompt(d); },
                        result);
        EXPECT_EQ(text(), r.after);
        EXPECT_EQ(shell_.prompted, r.asked);  // each hit was selected when asked
        EXPECT_EQ(undoDepth(), r.undoSteps);
    }
}

TEST_F(ReplaceScopes, PromptWalksEmptyMatchesAndTheSelectionOnly) {
    // An empty match is asked about once per place, also after a replacement.
    test::fill(doc, "ab");
    shell_.promptAnswers = {A::Yes, A::Yes, A::Yes, A::Yes};
    Searcher s = searcher("x*", true);
    ReplaceAllResult result;
    auto ask = [&](Document& d) { return shell_.replacePrompt(d); };
    replacePrompted(doc, s, "-", wholeDocumentScope(doc), ask, result);
    EXPECT_EQ(text(), "-a-b-");
    EXPECT_EQ(result.replaced, 3);

    // Within a column block, hits grow the line without moving the block's rows.
    test::fill(doc, "aXa\naXa\naXa");
    select({1, 0}, {2, 1}, SelMode::Column);
    ReplaceScope scope;
    ASSERT_TRUE(selectionScope(doc, scope));
    shell_.promptAnswers = {A::Yes, A::Yes, A::Yes};
    shell_.prompted.clear();
    Searcher x = searcher("X");
    replacePrompted(doc, x, "YY", scope, ask, result);
    EXPECT_EQ(text(), "aYYa\naYYa\naXa");
    EXPECT_EQ(shell_.prompted, (std::vector<std::string>{"X", "X"}));
}

TEST_F(ReplaceScopes, ReplaceDialogOffersTheSelectionAndThePrompt) {
    test::fill(doc, "one\ntwo one\none");
    select({0, 1}, {3, 2});
    shell_.findResult = FindDialogResult::ReplaceAll;
    shell_.findChoice.findText = "one";
    shell_.findChoice.replaceText = "1";
    shell_.findChoice.inSelection = true;
    EXPECT_EQ(run("Replace"), 1);
    EXPECT_TRUE(shell_.findShown.inSelection);  // a selection over lines is where to replace
    EXPECT_EQ(text(), "one\ntwo 1\n1");

    shell_.findChoice.inSelection = false;
    shell_.findChoice.prompt = true;
    shell_.promptAnswers = {A::No};  // then Cancel
    EXPECT_EQ(run("Replace"), 0);
    EXPECT_EQ(text(), "one\ntwo 1\n1");
    EXPECT_EQ(shell_.messages.back(), "0 occurrence(s) replaced.");

    doc.readOnly = true;
    shell_.promptAnswers = {A::Yes};
    EXPECT_EQ(run("Replace"), 0);
    EXPECT_EQ(text(), "one\ntwo 1\n1");
}

}  // namespace
}  // namespace zol
