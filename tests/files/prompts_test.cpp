// Names of new documents, and files changed behind the editor's back.
#include <chrono>
#include <filesystem>

#include "files/doc_names.h"
#include "files/messages.h"
#include "files/prompts.h"
#include "files/textfile.h"
#include "tests/support/documents.h"
#include "tests/support/files.h"
#include "tests/support/temp_home.h"

namespace zol::test {
namespace {

TEST(DocNames, CounterAndExtension) {
    EXPECT_EQ(newDocumentName(1, "txt"), "noname01.txt");
    EXPECT_EQ(newDocumentName(99, "c"), "noname99.c");
    EXPECT_EQ(newDocumentName(100, "txt"), "nnam0100.txt");
    EXPECT_EQ(newDocumentName(7, ""), "noname07.");
    EXPECT_EQ(newDocumentName(2, "abcdefghijklmnopq"), "noname02.abcdefghijklmno");

    const std::string first = nextNewDocumentName("x");
    int n = 1;
    while (n < 1000 && newDocumentName(n, "x") != first) ++n;
    EXPECT_EQ(nextNewDocumentName("x"), newDocumentName(n + 1, "x"));
}

using Prompts = TempHome;

TEST_F(Prompts, ChangedFilesAreOfferedForReloadOnce) {
    const std::string p = put("a.txt", "one");
    // Moves the file's time so that the check sees a change within the same second too.
    auto touchLater = [&] {
        std::filesystem::last_write_time(p, std::filesystem::last_write_time(p) + std::chrono::seconds(10));
    };
    Document clean, dirty, unnamed;
    ASSERT_TRUE(readFile(clean, p, true));
    ASSERT_TRUE(readFile(dirty, p, true));
    fill(dirty, "my edit");
    dirty.modified = true;
    std::vector<Document*> docs{&clean, &dirty, &unnamed};

    EXPECT_EQ(checkFileTime(docs), 0);
    EXPECT_TRUE(shell_.questions.empty());

    put("a.txt", "two");
    touchLater();
    shell_.answers = {Answer::Yes, Answer::No};
    EXPECT_EQ(checkFileTime(docs), 1);
    EXPECT_EQ(shell_.questions, (Lines{filemsg::withFileName(filemsg::kReloadUnchanged, p),
                                       filemsg::withFileName(filemsg::kReloadModified, p)}));
    EXPECT_EQ(textOf(clean), "two");
    EXPECT_EQ(textOf(dirty), "my edit");
    EXPECT_TRUE(dirty.modified);

    shell_.questions.clear();
    EXPECT_EQ(checkFileTime(docs), 0);
    EXPECT_TRUE(shell_.questions.empty());

    touchLater();
    options().checkFileTime = false;
    EXPECT_EQ(checkFileTime(docs), 0);
    EXPECT_TRUE(shell_.questions.empty());

    options().checkFileTime = true;
    shell_.answers = {Answer::Yes};
    int calls = 0;
    EXPECT_EQ(checkFileTime({&clean}, [&](Document&) { return ++calls == 1; }), 1);
    EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace zol::test
