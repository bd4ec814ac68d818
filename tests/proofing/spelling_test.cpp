#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/document.h"
#include "engine/options.h"
#include "engine/selection.h"
#include "engine/undo.h"
#include "proofing/regions.h"
#include "proofing/spell_session.h"
#include "proofing/speller.h"
#include "tests/proofing/proofing_fixture.h"

namespace zol::test {
namespace {

class Spelling : public ProofingTest {
protected:
    void SetUp() override {
        ProofingTest::SetUp();
        std::string error;
        ASSERT_TRUE(checker.load(findDictionary("en_US"), path("zol.dic"), error)) << error;
    }
    // Every word the session stops at, each answered with Ignore.
    std::vector<std::string> offered(Document& d) {
        SpellSession s(d, checker);
        std::vector<std::string> words;
        Misspelling m;
        while (s.next(m) == SpellStep::Found) {
            words.push_back(m.word);
            s.ignore(m);
        }
        return words;
    }
    Speller checker;
    Document doc;
};

TEST_F(Spelling, InSourceOnlyCommentsAndStringsAreChecked) {
    open(doc, "a.c",
         "/* This coment spans\n"
         "   two lnes. */\n"
         "int mispeled = 1;  // anothr one\n"
         "puts(\"a strng here\\nand\"); frobnicat();\n");
    EXPECT_EQ(offered(doc), (std::vector<std::string>{"coment", "lnes", "anothr", "strng"}));
}

TEST_F(Spelling, PlainTextIsCheckedThroughoutFromTheCursorRoundToIt) {
    open(doc, "a.txt", "frist line\nsecnd line\nthrid line");
    setCursor(doc, makePos(0, 1));
    EXPECT_EQ(offered(doc), (std::vector<std::string>{"secnd", "thrid", "frist"}));
    setSelection(doc, makePos(0, 1), makePos(5, 2));
    EXPECT_EQ(offered(doc), (std::vector<std::string>{"secnd", "thrid"}));
}

TEST_F(Spelling, ChangeAllIsOneUndoStep) {
    const std::string text = "teh cat\nand teh dog\n\nsaw teh end";
    open(doc, "a.txt", text);
    SpellSession s(doc, checker);
    Misspelling m;
    ASSERT_EQ(s.next(m), SpellStep::Found);
    ASSERT_EQ(m.word, "teh");
    ASSERT_TRUE(s.changeAll(m, "the"));
    EXPECT_EQ(s.next(m), SpellStep::Finished);
    EXPECT_EQ(textOf(doc), "the cat\nand the dog\n\nsaw the end");
    EXPECT_STREQ(undoLabel(doc.undo), "&Undo Spelling");
    undo(doc);
    EXPECT_EQ(textOf(doc), text);
    EXPECT_TRUE(doc.undo.undo.empty());
}

// The run takes one place on a full undo stack: only the oldest record goes.
TEST_F(Spelling, AFullUndoStackLosesOneRecordToARun) {
    open(doc, "a.txt", "teh cat\nand teh dog");
    const int levels = options().undoLevels;
    for (int i = 0; i < levels; ++i) {
        EditRecord rec;
        rec.at = makePos(i, 0);
        doc.undo.undo.push_back(rec);
    }
    SpellSession s(doc, checker);
    Misspelling m;
    ASSERT_EQ(s.next(m), SpellStep::Found);
    ASSERT_TRUE(s.changeAll(m, "the"));
    EXPECT_EQ(s.next(m), SpellStep::Finished);
    EXPECT_EQ(textOf(doc), "the cat\nand the dog");
    ASSERT_EQ(static_cast<int>(doc.undo.undo.size()), levels);
    EXPECT_EQ(doc.undo.undo.front().at.col, 1);
    EXPECT_STREQ(undoLabel(doc.undo), "&Undo Spelling");
}

TEST_F(Spelling, ALongRunStopsBetweenSlicesAndGoesOn) {
    std::string text;
    for (int i = 0; i < 2000; ++i) text += "every word here is right\n";
    open(doc, "a.txt", text + "but not this wrod");
    SpellSession s(doc, checker);
    Misspelling m;
    int pauses = 0;
    SpellStep step;
    while ((step = s.next(m, 4096)) == SpellStep::Paused) ++pauses;
    EXPECT_GT(pauses, 5);
    ASSERT_EQ(step, SpellStep::Found);
    EXPECT_EQ(m.word, "wrod");
}

TEST_F(Spelling, TheUserDictionarySurvivesARestartAndAnUnwritableOneStillServesTheRun) {
    EXPECT_FALSE(checker.correct("Zolderish"));
    EXPECT_TRUE(checker.add("Zolderish"));
    Speller again, unwritable;
    std::string error;
    ASSERT_TRUE(again.load(findDictionary("en_US"), path("zol.dic"), error));
    EXPECT_TRUE(again.correct("Zolderish"));
    // A folder where the file should be: no user, root included, can write it.
    ASSERT_TRUE(unwritable.load(findDictionary("en_US"), dir, error));
    EXPECT_FALSE(unwritable.add("Zolderlike"));
    EXPECT_TRUE(unwritable.correct("Zolderlike"));
}

// The user dictionary holds UTF-8; a dictionary in an 8-bit encoding gets its words in
// that encoding, so a word with an accent added in one run is known in the next.
TEST_F(Spelling, AnAccentedWordAddedToALatin1DictionaryIsKnownAfterARestart) {
    const DictionaryFiles latin1{"xx", put("xx.aff", "SET ISO8859-1\n"), put("xx.dic", "1\nhello\n")};
    const std::string naive = "na\xEFve";  // as the editor holds it, one byte a letter
    Speller first, again;
    std::string error;
    ASSERT_TRUE(first.load(latin1, path("latin.dic"), error)) << error;
    EXPECT_FALSE(first.correct(naive));
    EXPECT_TRUE(first.add(naive));
    ASSERT_TRUE(again.load(latin1, path("latin.dic"), error)) << error;
    EXPECT_TRUE(again.correct(naive));
    EXPECT_TRUE(again.correct("hello"));
}

TEST_F(Spelling, AMissingDictionaryNamesItsDebianPackage) {
    Speller s;
    std::string error;
    EXPECT_FALSE(s.load(findDictionary("xx_YY"), path("zol.dic"), error));
    EXPECT_NE(error.find("hunspell-xx-yy"), std::string::npos) << error;
    EXPECT_EQ(lexiconLanguage("spellus.lex"), "en_US");
}

TEST(ProseWords, LeaveOutWhatReadsAsCode) {
    const struct {
        const char* name;
        const char* text;
        std::vector<std::string> words;
    } rows[] = {
        {"plain", "Hello, world!", {"Hello", "world"}},
        {"apostrophe", "don't 'quote'", {"don't", "quote"}},
        {"file and member", "see main.c and p->next", {"see", "and"}},
        {"names", "my_name x2y camelCase", {}},
        {"capitals", "NULL TODO", {}},
        {"escape and directive", "%s items\\nfound", {"items", "found"}},
        {"address", "http://example.org mail@example.org", {}},
        {"call", "call foo() now", {"call", "now"}},
    };
    for (const auto& r : rows) {
        std::vector<std::string> got;
        const std::string_view t = r.text;
        for (const WordSpan& w : proseWords(t, nullptr, WordRules{})) got.emplace_back(t.substr(w.begin, w.end - w.begin));
        EXPECT_EQ(got, r.words) << r.name;
    }
}

}  // namespace
}  // namespace zol::test
