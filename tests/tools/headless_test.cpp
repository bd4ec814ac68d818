// The edit, build, jump-to-error loop of the real program without windows: a script
// runs a compiler through Zol_ExecuteTool, then steps through its messages with the
// command executor.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/process.h"
#include "tests/support/temp_dir.h"

namespace zol::test {
namespace {

TEST(HeadlessTools, ACapturedCompilerRunIsSteppedThroughWithNextCompilerError) {
    TempDir tmp("zolheadtool");
    const std::string source = tmp.put("prog.c", "int f(void)\n{\n    return 1\n}\n\nint g(void)\n{\n    return q;\n}\n");
    const std::string script = tmp.put("build.c", R"script(#include <stdio.h>
#include <editor/app.h>
#include <editor/doc.h>

void where(void)
{
    HDOC d = Zol_GetActiveDocument();
    char name[260];
    int col, line;
    Zol_GetFileName(d, name, 260);
    Zol_GetCursorPos(d, &col, &line);
    printf("%s %d %d\n", name, line, col);
}

int main(void)
{
    HDOC out;
    if (!Zol_ExecuteTool("cc", "-fno-diagnostics-show-caret -c $(FileName) -o /dev/null", ZOL_TOOL_CAPTURE, "$(FileDir)"))
        return 1;
    out = Zol_GetActiveDocument();
    printf("output %d\n", Zol_IsOutputWindow(out));
    Zol_EdCmd(out, 424, 0);
    where();
    Zol_EdCmd(Zol_GetActiveDocument(), 424, 0);
    where();
    Zol_EdCmd(Zol_GetActiveDocument(), 435, 0);
    where();
    /* a message that names its column */
    Zol_ExecuteTool("printf", "'%s(8): W1 col(12) here\n' $(FileName)", ZOL_TOOL_CAPTURE, "$(FileDir)");
    Zol_EdCmd(Zol_GetActiveDocument(), 424, 0);
    where();
    return 0;
}
)script");
    const Outcome r = run({zolderBinary(), "--headless", "--home", tmp.path("home/"), source, "--run", script});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "output 1\n" + source + " 3 1\n" + source + " 8 1\n" + source + " 3 1\n" + source + " 8 12\n");
}

}  // namespace
}  // namespace zol::test
