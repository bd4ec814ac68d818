#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "engine/document.h"
#include "engine/undo.h"
#include "proofing/completion.h"
#include "tests/proofing/proofing_fixture.h"

namespace zol::test {
namespace {

const char kFile[] =
    "; test sections\n"
    "[C/C++]\n"
    "Keywords=constexpr_thing\n"
    "Function=int printf(const char *format, ...)\n"
    "Function=int getch(void)\n"
    "Snippet=forx\n"
    "for (;;) {\n"
    "\t^\n"
    "}\n"
    "EndSnippet\n"
    "[Klingon]\n"
    "Keywords=qapla\n"
    "[VEK C]\n"
    "FilePattern=*.c\n"
    "Folder=script\n"
    "BuiltIns=1\n";

class Completion : public ProofingTest {
protected:
    std::vector<std::string> offered(const Document& d, const std::vector<const Document*>& others = {}) {
        all = gatherCandidates(d, others);
        std::vector<std::string> out;
        for (const Candidate* c : filterCandidates(all, completionPrefix(d).text)) out.push_back(c->text);
        return out;
    }
    bool has(const std::vector<std::string>& v, const char* s) { return std::find(v.begin(), v.end(), s) != v.end(); }
    std::vector<Candidate> all;
    Document doc, other;
};

TEST_F(Completion, EverySourceOffersItsCandidates) {
    put("CodeCmpl.ini", kFile);
    open(other, "b.txt", "constellation constant");
    open(doc, "a.c", "int x;\ncons");
    setCursor(doc, makePos(4, 1));
    const auto got = offered(doc, {&other});
    EXPECT_TRUE(has(got, "constexpr_thing")) << "the section's keyword";
    EXPECT_TRUE(has(got, "const")) << "the language definition's keyword";
    EXPECT_TRUE(has(got, "constellation")) << "another document's word";
    EXPECT_FALSE(has(got, "cons")) << "the prefix itself";
    fill(doc, "pri");
    setCursor(doc, makePos(3, 0));
    EXPECT_EQ(offered(doc).front(), "printf");
}

TEST_F(Completion, ScriptsGetTheBuiltInsWithTheirPrototypes) {
    put("CodeCmpl.ini", kFile);
    open(doc, "script/x.c", "Zol_GetLi");
    setCursor(doc, makePos(9, 0));
    all = gatherCandidates(doc, {});
    const auto fit = filterCandidates(all, "Zol_GetLi");
    ASSERT_FALSE(fit.empty());
    EXPECT_EQ(fit.front()->text, "Zol_GetLine");
    EXPECT_NE(fit.front()->detail.find("Zol_GetLine("), std::string::npos);
}

TEST_F(Completion, ASnippetTakesTheIndentAndPutsTheCursorAtItsMark) {
    put("CodeCmpl.ini", kFile);
    open(doc, "a.c", "  fo");
    setCursor(doc, makePos(4, 0));
    all = gatherCandidates(doc, {});
    const CompletionPrefix p = completionPrefix(doc);
    const auto fit = filterCandidates(all, p.text);
    ASSERT_EQ(fit.front()->kind, CandidateKind::Snippet);
    ASSERT_TRUE(acceptCandidate(doc, p, *fit.front()));
    EXPECT_EQ(textOf(doc), "  for (;;) {\n  \t\n  }");
    EXPECT_EQ(str(doc.cursor), "8,1");  // after the tab
    undo(doc);
    EXPECT_EQ(textOf(doc), "  fo");
}

TEST_F(Completion, AFunctionGetsItsParentheses) {
    put("CodeCmpl.ini", kFile);
    for (const auto& [typed, text, col] : {std::tuple{"printf", "printf()", 7}, std::tuple{"getch", "getch()", 7}}) {
        open(doc, "a.c", typed);
        setCursor(doc, makePos(static_cast<int>(std::string_view(typed).size()), 0));
        all = gatherCandidates(doc, {});
        const CompletionPrefix p = completionPrefix(doc);
        ASSERT_TRUE(acceptCandidate(doc, p, *filterCandidates(all, p.text).front()));
        EXPECT_EQ(textOf(doc), text);
        EXPECT_EQ(doc.cursor.col, col) << typed;
    }
}

TEST_F(Completion, WithoutItsSectionALanguageStillHasKeywordsAndWords) {
    put("CodeCmpl.ini", "[Python]\nKeywords=lambda\n");
    open(doc, "a.c", "whilst\nwhi");
    setCursor(doc, makePos(3, 1));
    EXPECT_EQ(offered(doc), (std::vector<std::string>{"while", "whilst"}));
}

TEST(CodeCmplFile, BrokenPartsAreLeftOutWithTheirLines) {
    const CmplParse p = parseCodeCompletion(
        "Keywords=early\n[Odd\n[Fine]\nKeywords=a b\nNonsense=1\nSnippet=open\nline one\n[Next]\nKeywords=c\n"
        "Snippet=last\nnever ends");
    ASSERT_EQ(p.sections.size(), 2u);
    EXPECT_EQ(p.sections[0].items.size(), 2u);
    EXPECT_EQ(p.sections[1].items.size(), 1u);
    ASSERT_EQ(p.problems.size(), 5u);
    EXPECT_NE(p.problems[3].find("line 6"), std::string::npos) << p.problems[3];
    EXPECT_NE(p.problems[3].find("\"open\""), std::string::npos);
}

}  // namespace
}  // namespace zol::test
