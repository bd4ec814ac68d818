// Scripts driving the editor through the real binary: a start-up script that edits and
// saves the file of the command line, a batch run over three files that saves two, the
// start-up example of docs/scripts.md, and the starter scripts that the first start
// puts on the macro menu. Files are checked byte for byte.
#include <gtest/gtest.h>

#include <string>

#include "platform/profile.h"
#include "tests/support/files.h"
#include "tests/support/process.h"
#include "tests/support/temp_dir.h"

namespace zol::test {
namespace {

const std::string kSourceDir = ZOLDER_SOURCE_DIR;

TEST(Scripting, StartUpScriptEditsTheFileOfTheCommandLineAndSavesItKeepingItsLineEnds) {
    TempDir tmp("zolscript");
    const std::string home = tmp.path("home/");
    tmp.put("home/script/StartUp/stamp.c",
            "#include <editor/doc.h>\n"
            "int main(void)\n{\n"
            "   HDOC h = Zol_GetActiveDocument();\n"
            "   Zol_SetLine(h, 1, \"FIRST\");\n"
            "   Zol_SetCursorPos(h, 1, 3, FALSE);\n"
            "   Zol_InsertText(h, \"inserted\\n\");\n"
            "   return Zol_SaveFile(h, 0) ? 0 : 1;\n}\n");
    // CR LF ends, a Windows-1252 byte, no line end after the last line.
    const std::string file = tmp.put("notes.txt", "first\r\ncaf\xe9\r\nlast");

    const Outcome r = run({zolderBinary(), "--headless", "--home", home, file});

    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(tmp.get("notes.txt"), "FIRST\r\ncaf\xe9\r\ninserted\r\nlast");
}

TEST(Scripting, BatchRunEditsThreeFilesAndOnlyTheTwoItSavesChangeOnDisk) {
    TempDir tmp("zolscript");
    const std::string home = tmp.path("home/");
    const std::string script = tmp.put(
        "edit.c",
        "#include <string.h>\n#include <editor/doc.h>\n"
        "int main(void)\n{\n"
        "   HDOC h;\n   char name[260];\n   int saved = 0;\n"
        "   for (h = Zol_GetFirstDocument(); h; h = Zol_GetNextDocument(h)) {\n"
        "      Zol_Replace(h, \"old\", \"new\", 1, 1, FALSE, TRUE, FALSE, TRUE);\n"
        "      Zol_SetCursorPos(h, 1, 1, FALSE);\n"
        "      Zol_InsertText(h, \"# edited\\n\");\n"
        "      Zol_GetDocumentName(h, name, sizeof name);\n"
        "      if (strcmp(name, \"c.txt\") != 0 && Zol_SaveFile(h, 0))\n"
        "         saved++;\n"
        "   }\n"
        "   return saved;\n}\n");
    const std::string a = tmp.put("a.txt", "an old line\nkept\n");
    const std::string b = tmp.put("b.txt", "old\r\n\r\nend\r\n");
    const std::string c = tmp.put("c.txt", "old\rstays\r");

    const Outcome r = run({zolderBinary(), "--headless", "--home", home, a, b, c, "--run", script});

    EXPECT_EQ(r.status, 2) << r.err;
    EXPECT_EQ(r.err, "") << "the edited, unsaved c.txt is dropped without a question";
    EXPECT_EQ(tmp.get("a.txt"), "# edited\nan new line\nkept\n");
    EXPECT_EQ(tmp.get("b.txt"), "# edited\r\nnew\r\n\r\nend\r\n");
    EXPECT_EQ(tmp.get("c.txt"), "old\rstays\r");
}

TEST(Scripting, StartUpExampleOfTheDocsSetsTheOptionsAndWrapsTextFiles) {
    TempDir tmp("zolscript");
    const std::string home = tmp.path("home/");
    tmp.put("home/script/StartUp/options.c", readBytes(kSourceDir + "/tests/script/examples/startup.c"));
    const std::string probe = tmp.put(
        "probe.c",
        "#include <stdio.h>\n#include <editor/doc.h>\n#include <editor/options.h>\n"
        "int main(void)\n{\n"
        "   printf(\"%d %d %d\", Zol_GetTabSize(), Zol_IsUseTabChar(), Zol_IsKeepTrailingBlanks());\n"
        "   printf(\" %d %d\\n\", Zol_IsDocWordWrap(Zol_GetFirstDocument()), "
        "Zol_IsDocWordWrap(Zol_GetLastDocument()));\n"
        "   return 0;\n}\n");
    tmp.put("home/zol.ini", "[Editor]\nTabSize=8\nUseTabChar=1\nKeepTrailingBlanks=1\n");
    const std::string notes = tmp.put("notes.md", "Notes\n"), code = tmp.put("main.c", "int x;\n");

    const Outcome r = run({zolderBinary(), "--headless", "--home", home, notes, code, "--run", probe});

    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "4 0 0 1 0\n");
}

// The first start enters the starter scripts in the macro menu by their command lines;
// a new home holds each as script/NAME.c, as shipped, and each refuses to run without
// a document.
TEST(Scripting, StarterScriptsOfTheMacroMenuShipInTheHomeAndNeedADocument) {
    TempDir tmp("zolscript");
    const std::string home = tmp.path("home/");
    ASSERT_EQ(run({zolderBinary(), "--headless", "--home", home}).status, 0);

    for (int n = 1; n <= 3; ++n) {
        const std::string name = getProfileString("MacroMenu", "CmdLine" + std::to_string(n), "", home + "zol.ini");
        ASSERT_FALSE(name.empty()) << "item " << n;
        const std::string script = home + "script/" + name + ".c";
        EXPECT_EQ(readBytes(script), readBytes(kSourceDir + "/data/script/" + name + ".c")) << name;

        const Outcome r = run({zolderBinary(), "--headless", "--home", home, "--run", script});
        EXPECT_EQ(r.status, 1) << name;
        EXPECT_EQ(r.err, "zolder: Cannot get handle of the active document!\n") << name;
    }
}

}  // namespace
}  // namespace zol::test
