// The application reads the shipped definitions at start-up, and every document takes
// the definition of its file name when it is read and when it is saved under a new name.
#include <gtest/gtest.h>

#include "app/application.h"
#include "app/headless_shell.h"
#include "engine/executor.h"
#include "files/save.h"
#include "syntax/doc_syntax.h"
#include "syntax/table.h"
#include "tests/support/documents.h"
#include "tests/support/temp_dir.h"

namespace zol::test {
namespace {

TEST(SyntaxWiring, DocumentsFollowTheirFileNames) {
    const TempDir home("zolsynhome");
    std::FILE* sink = std::tmpfile();
    HeadlessShell headless(sink);
    setShell(&headless);
    Application app;
    headless.attach(&app);
    startUp(app, StartupOptions{home.dir(), {}});
    // The table holds the file as start-up found it, however late it is first used.
    home.put("syntax.hgl", "[Changed since]\nFilePattern=*.*\n");
    ASSERT_NE(definitionAt(syntaxTable(), 1), nullptr);
    EXPECT_EQ(definitionAt(syntaxTable(), 1)->name, "C/C++");

    const std::string dir = home.dir() + "wiring/";
    home.put("wiring/a.c", "int a; /* open\nstill */ int b;\n#include \"b.h\"");
    home.put("wiring/b.h", "");
    Document* doc = openDocument(app, dir + "a.c");
    ASSERT_NE(doc, nullptr);
    EXPECT_EQ(doc->syntaxSlot, 1);
    EXPECT_EQ(commentBits(*doc), "100");

    // Saving under a name no definition knows drops the colouring and its bits.
    ASSERT_TRUE(saveDocumentAs(*doc, dir + "a.txt", 1));
    EXPECT_EQ(doc->syntaxSlot, 0);
    EXPECT_EQ(commentBits(*doc), "000");
    renameDocument(*doc, dir + "a.py");
    EXPECT_EQ(definitionAt(syntaxTable(), doc->syntaxSlot)->name, "Python");

    // The file named at the cursor opens as a new, active document.
    setCursor(*doc, makePos(12, 2));
    execute(*doc, commandId("OpenFileAtCursor", false));
    ASSERT_EQ(app.documents.size(), 2u);
    EXPECT_EQ(app.active->fileName, dir + "b.h");
    EXPECT_EQ(app.active->syntaxSlot, 1);
    execute(*doc, commandId("OpenFileAtCursor", false));
    EXPECT_EQ(app.documents.size(), 2u);  // already open: made active again

    shutDown(app);
    setShell(nullptr);
    std::fclose(sink);
    loadDefinitions(syntaxTable(), "");
}

}  // namespace
}  // namespace zol::test
