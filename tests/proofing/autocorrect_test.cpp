#include <gtest/gtest.h>

#include <string>

#include "engine/command_table.h"
#include "engine/document.h"
#include "engine/edit.h"
#include "engine/undo.h"
#include "proofing/autocorrect.h"
#include "tests/proofing/proofing_fixture.h"

namespace zol::test {
namespace {

AutoCorrectList starter() {
    AutoCorrectList l;
    l.entries = {{"teh", "the"}, {"dont", "don't"}, {"MHz", "MHz"}};
    return l;
}

TEST(AutoCorrectRules, EachOptionFiresAndHoldsBack) {
    const struct {
        const char* name;
        bool AutoCorrectOptions::*option;
        const char* word;
        bool sentenceStart;
        const char* fixed;  // "" when the word must stay
    } rows[] = {
        {"list", &AutoCorrectOptions::replaceText, "teh", false, "the"},
        {"list keeps the case typed", &AutoCorrectOptions::replaceText, "TEH", false, "THE"},
        {"list: unknown word", &AutoCorrectOptions::replaceText, "ten", false, ""},
        {"two capitals", &AutoCorrectOptions::twoCapitals, "THis", false, "This"},
        {"two capitals: a plural", &AutoCorrectOptions::twoCapitals, "CDs", false, ""},
        {"two capitals: an exception", &AutoCorrectOptions::twoCapitals, "MHz", false, ""},
        {"two capitals: all capitals", &AutoCorrectOptions::twoCapitals, "THE", false, ""},
        {"caps lock", &AutoCorrectOptions::capsLock, "tHIS", false, "This"},
        {"caps lock: too short to tell", &AutoCorrectOptions::capsLock, "iOS", false, ""},
        {"sentence", &AutoCorrectOptions::capitalize, "word", true, "Word"},
        {"sentence: not at its start", &AutoCorrectOptions::capitalize, "word", false, ""},
    };
    for (const auto& r : rows) {
        AutoCorrectList on = starter();
        on.options = AutoCorrectOptions{false, false, false, false};
        on.options.*r.option = true;
        EXPECT_EQ(correctedWord(on, r.word, r.sentenceStart), r.fixed) << r.name;
        on.options.*r.option = false;
        EXPECT_EQ(correctedWord(on, r.word, r.sentenceStart), "") << r.name << ", option off";
    }
}

class AutoCorrectTyping : public ProofingTest {
protected:
    // Types text character by character as the keyboard does, correcting after each.
    void type(std::string_view text) {
        for (char c : text) {
            doc.prevCmd = doc.lastCmd;
            doc.lastCmd = idOf(Cmd::InsertChar);
            insertText(doc, std::string(1, c));
            autoCorrectTyped(doc, list);
        }
    }
    AutoCorrectList list = starter();
    Document doc;
};

TEST_F(AutoCorrectTyping, ACorrectionIsItsOwnUndoStep) {
    open(doc, "a.txt", "");
    type("So teh cat");
    EXPECT_EQ(textOf(doc), "So the cat");
    undo(doc);  // the typing after the correction
    undo(doc);
    EXPECT_EQ(textOf(doc), "So teh ");
    EXPECT_EQ(doc.cursor.col, 7);
}

TEST_F(AutoCorrectTyping, OnlyProseOutsideNames) {
    open(doc, "a.c", "");
    type("int teh = my_teh; /* teh. it */ s = \"teh \";");
    EXPECT_EQ(textOf(doc), "int teh = my_teh; /* the. It */ s = \"the \";");
    open(doc, "b.txt", "");
    type("my_teh e.g. it x.teh ");
    EXPECT_EQ(textOf(doc), "my_teh e.g. it x.teh ");
}

TEST(AutoCorrectFile, BrokenLinesAreToldAndKept) {
    const std::string huge(1 << 20, 'x');
    const std::string text = "# mine\nteh\tthe\nno tab here\n" + huge + "\tx\nReplaceText=0\nBogus=1\n";
    const AcrParse p = parseAutoCorrect(text);
    EXPECT_EQ(p.brokenLines, (std::vector<int>{3, 4, 6}));
    EXPECT_EQ(p.list.entries.size(), 1u);
    EXPECT_FALSE(p.list.options.replaceText);
    const std::string again = formatAutoCorrect(p.list);
    EXPECT_NE(again.find("# mine\n"), std::string::npos);
    EXPECT_NE(again.find(huge), std::string::npos);
    EXPECT_EQ(parseAutoCorrect(again).list.entries, p.list.entries);
}

}  // namespace
}  // namespace zol::test
