// Every shipped language colours its sample as recorded beside it in expected.txt,
// written in the notation that golden/README.md explains. Each sample is scanned whole,
// carrying the scanner's own result from line to line, and again from a document built
// by edits, using the comment bit stored with the line before; both must give the
// record. ZOLDER_UPDATE_GOLDEN=1 rewrites the records.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <set>

#include "syntax/commands.h"
#include "syntax/doc_syntax.h"
#include "tests/support/files.h"
#include "tests/syntax/syntax_fixture.h"

namespace zol::test {
namespace {

namespace fs = std::filesystem;

const fs::path kGolden = fs::path(ZOLDER_SOURCE_DIR) / "tests/syntax/golden";

std::string join(const std::vector<std::string>& lines) {
    std::string s;
    for (const std::string& l : lines) s += l + "\n";
    return s;
}

fs::path sampleIn(const fs::path& dir) {
    for (const auto& e : fs::directory_iterator(dir))
        if (e.path().stem() == "sample") return e.path();
    return {};
}

// Each line with the bit stored in the line before.
std::vector<std::string> paintFromDocument(const Document& doc, const SyntaxHighlight& def) {
    std::vector<std::string> out;
    int prev = 0;
    ensureCommentStates(doc, doc.lines.lastIndex);
    for (LineRef r = doc.lines.first; r != kNoLine; r = doc.lines.next(r)) {
        out.push_back(styled(def, doc.lines.text(r), prev));
        prev = doc.lines.header(r).comment;
    }
    return out;
}

class Golden : public ::testing::TestWithParam<std::string> {
protected:
    static void SetUpTestSuite() { initSyntax(nullptr); }
    void TearDown() override { loadDefinitions(syntaxTable(), ""); }
};

TEST_P(Golden, SampleColoursMatchTheRecord) {
    const fs::path dir = kGolden / GetParam();
    const fs::path sample = sampleIn(dir);
    ASSERT_FALSE(sample.empty());
    const std::vector<std::string> lines = readLines(sample.string());

    // The shipped file first; the languages beyond its twenty come from the second file.
    int slot = 0;
    for (const char* file : {"syntax.hgl", "syntax_more.hgl"}) {
        flushProfileCache();
        loadDefinitions(syntaxTable(), (fs::path(ZOLDER_SOURCE_DIR) / "data" / file).string());
        slot = findDefinitionForFile(syntaxTable(), sample.filename().string());
        if (slot) break;
    }
    ASSERT_NE(slot, 0) << "no definition for " << sample;
    const SyntaxHighlight& def = *definitionAt(syntaxTable(), slot);

    std::vector<std::string> whole;
    int bit = 0;
    for (const std::string& l : lines) whole.push_back(styled(def, l, bit, &bit));

    const std::string record = (dir / "expected.txt").string();
    if (std::getenv("ZOLDER_UPDATE_GOLDEN")) writeBytes(record, join(whole));
    EXPECT_EQ(join(whole), readBytes(record)) << def.name;

    // Built bottom line first, each new line typed above the others.
    Document doc;
    setDocumentSyntax(doc, slot);
    for (size_t i = lines.size(); i-- > 0;) {
        setCursor(doc, Pos{});
        insertText(doc, i + 1 < lines.size() ? lines[i] + "\n" : lines[i]);
    }
    ASSERT_EQ(linesOf(doc), lines);
    EXPECT_EQ(paintFromDocument(doc, def), whole) << def.name << " built upwards";

    // Every line joined to the one before and split again.
    for (int32_t i = 1; i < lastLine(doc) + 1; ++i) {
        const Pos end = makePos(lineWidthAt(doc, i - 1), i - 1);
        deleteRange(doc, end, makePos(0, i));
        setCursor(doc, end);
        insertText(doc, "\n");
    }
    ASSERT_EQ(linesOf(doc), lines);
    EXPECT_EQ(paintFromDocument(doc, def), whole) << def.name << " after joins and splits";
}

std::vector<std::string> languages() {
    std::vector<std::string> out;
    for (const auto& e : fs::directory_iterator(kGolden))
        if (e.is_directory()) out.push_back(e.path().filename().string());
    std::sort(out.begin(), out.end());
    return out;
}

INSTANTIATE_TEST_SUITE_P(Shipped, Golden, ::testing::ValuesIn(languages()),
                         [](const auto& info) { return info.param; });

TEST(GoldenSet, EveryShippedLanguageHasASample) {
    std::set<std::string> names;
    for (const char* file : {"syntax.hgl", "syntax_more.hgl"}) {
        for (const std::string& s : getProfileSectionNames((fs::path(ZOLDER_SOURCE_DIR) / "data" / file).string()))
            names.insert(s);
    }
    EXPECT_EQ(names.size(), 25u);
    EXPECT_EQ(languages().size(), names.size());
}

}  // namespace
}  // namespace zol::test
