// Replace in files: changed files come back byte for byte but for the hits, with their
// line ends and a backup; open documents change in the editor instead; read-only
// files, binary files and the user's answers leave files as they were.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <map>
#include <string>
#include <vector>

#include "engine/options.h"
#include "engine/undo.h"
#include "search/messages.h"
#include "tests/support/documents.h"
#include "tests/support/temp_dir.h"
#include "tools/replace_in_files.h"

namespace zol {
namespace {

using Lines = std::vector<std::string>;

class ReplaceInFiles : public ::testing::Test {
protected:
    void SetUp() override { options() = EditOptions{}; }
    void TearDown() override { options() = EditOptions{}; }

    ReplaceTotals run(const char* pattern, const char* with, bool regex = false) {
        FileReplaceQuery q{{pattern, {false, true, regex, true}, t.dir(), "", true}, with};
        ReplaceInFilesHooks hooks;
        hooks.openDocument = [&](const std::string& path) -> Document* {
            const auto it = open.find(path);
            return it == open.end() ? nullptr : it->second;
        };
        if (!answers.empty()) {
            hooks.ask = [&](const FileReplacePreview& p) {
                asked.push_back(p.rel);
                const FilePromptAnswer a = answers.front();
                if (answers.size() > 1) answers.erase(answers.begin());
                return a;
            };
        }
        hooks.output = [&](Lines& lines) { output.insert(output.end(), lines.begin(), lines.end()); };
        return replaceInFiles(q, hooks);
    }

    test::TempDir t;
    std::map<std::string, Document*> open;
    std::vector<FilePromptAnswer> answers;
    Lines asked, output;
};

TEST_F(ReplaceInFiles, ChangesOnlyTheHitsAndKeepsLineEndsAndABackup) {
    struct Row {
        const char* name;
        std::string before;
        const char* pattern;
        const char* with;
        bool regex;
        std::string after;
    };
    const Row rows[] = {
        {"crlf.c", "one foo\r\nfoo two\r\nend", "foo", "bar", false, "one bar\r\nbar two\r\nend"},
        {"mixed.c", "foo\nx\rfoo\r\n\tfoo  \r", "foo", "bar", false, "bar\nx\rbar\r\n\tbar  \r"},
        {"break.c", "a;b\r\nc;", "{[a-z]};", "\\1\\n", true, "a\r\nb\r\nc\r\n"},
        {"groups.c", "x12y x3y", "x{[0-9]+}y", "<\\1>", true, "<12> <3>"},
    };
    options().backupFiles = true;
    options().backupFilesAs = 0;
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        t.put(r.name, r.before);
        const std::string untouched = "nothing to see\r\n";
        t.put("other.txt", untouched);
        output.clear();
        const ReplaceTotals totals = run(r.pattern, r.with, r.regex);
        EXPECT_EQ(t.get(r.name), r.after);
        EXPECT_EQ(t.get(std::string(r.name, std::string(r.name).find('.')) + ".bak"), r.before);
        EXPECT_EQ(t.get("other.txt"), untouched);
        EXPECT_FALSE(t.exists("other.bak"));
        EXPECT_EQ(totals.filesChanged, 1u);
        EXPECT_FALSE(output.empty());
        std::remove(t.path(r.name).c_str());
        std::remove(t.path(std::string(r.name, std::string(r.name).find('.')) + ".bak").c_str());
    }
}

TEST_F(ReplaceInFiles, OpenDocumentsChangeInTheEditorAndReadOnlyFilesStay) {
    options().backupFiles = false;
    const std::string disk = "foo on disk\n";
    const std::string openPath = t.put("open.txt", disk);
    Document doc;
    test::fill(doc, "edited\nfoo foo");
    doc.modified = true;
    open[openPath] = &doc;
    t.put("locked.txt", "foo\n");
    ASSERT_EQ(::chmod(t.path("locked.txt").c_str(), 0444), 0);
    t.put("bin.dat", std::string("foo\0", 4));
    t.put("plain.txt", "a foo\n");

    const ReplaceTotals totals = run("foo", "bar");
    EXPECT_EQ(t.get("open.txt"), disk);  // not behind the editor's back
    EXPECT_EQ(test::textOf(doc), "edited\nbar bar");
    EXPECT_EQ(doc.undo.undo.size(), 1u);
    EXPECT_EQ(t.get("locked.txt"), "foo\n");
    EXPECT_EQ(t.get("bin.dat"), std::string("foo\0", 4));
    EXPECT_EQ(t.get("plain.txt"), "a bar\n");
    EXPECT_FALSE(t.exists("plain.txt.bak") || t.exists("plain.bak"));
    EXPECT_EQ(output, (Lines{std::string("locked.txt") + searchmsg::kReadOnlyFile, "open.txt(2): bar bar",
                             "plain.txt(1): a bar"}));
    EXPECT_EQ(replaceSummaryLines(totals),
              (Lines{"3 replacements", "1 file changed", "1 open document changed, not yet saved",
                     "1 file left as it was", "3 files searched", "1 binary file skipped"}));
}

TEST_F(ReplaceInFiles, ThePromptDecidesFileByFile) {
    options().backupFiles = false;
    struct Row {
        const char* name;
        std::vector<FilePromptAnswer> answers;
        const char* a;
        const char* b;
        const char* c;
        Lines asked;
    };
    using F = FilePromptAnswer;
    const Row rows[] = {
        {"skip, replace, skip", {F::Skip, F::Replace, F::Skip}, "x", "y", "x", {"a", "b", "c"}},
        {"replace, then all without asking", {F::Replace, F::All}, "y", "y", "y", {"a", "b"}},
        {"cancel stops before the first", {F::Cancel}, "x", "x", "x", {"a"}},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.name);
        for (const char* name : {"a", "b", "c"}) t.put(name, "x");
        answers = r.answers;
        asked.clear();
        const ReplaceTotals totals = run("x", "y");
        EXPECT_EQ(t.get("a"), r.a);
        EXPECT_EQ(t.get("b"), r.b);
        EXPECT_EQ(t.get("c"), r.c);
        EXPECT_EQ(asked, r.asked);
        EXPECT_EQ(totals.search.cancelled, r.answers.front() == F::Cancel);
    }
}

}  // namespace
}  // namespace zol
