// The shipped header editor/macros.h, generated at build time, against the command list:
// a script calls the VM_ macro of every command, "BackTab" and "PrevTabPos" both, with
// Zol_EditorCommand standing in for a printer, so that a missing macro, a wrong number
// or a wrong arity shows in what it prints.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "engine/command_table.h"
#include "script/runner.h"

namespace zol {
namespace {

const std::string kIncludeDir = std::string(ZOLDER_BUILD_DATA_DIR) + "/script/include";

bool takesParameter(const CommandRecord& c) { return c.kind == ParamKind::Char || c.kind == ParamKind::Number; }

TEST(CommandMacros, EveryCommandHasItsMacroWithItsNumberAndArity) {
    // The includes as the script wizard writes them: doc.h comes in twice.
    std::string script = "#include <windows.h>\n#include <stdio.h>\n#include <editor/doc.h>\n"
                         "#include <editor/macros.h>\n"
                         "#define Zol_EditorCommand(h, n, p) printf(\"%d %d\\n\", n, p)\n"
                         "int main(void) {\n";
    std::string want;
    for (const CommandRecord& c : commandTable()) {
        script += std::string("  VM_") + c.name + (takesParameter(c) ? "(0, 7);\n" : "(0);\n");
        want += std::to_string(c.id) + (takesParameter(c) ? " 7\n" : " 0\n");
    }
    script += "  return 0;\n}\n";
    FILE* out = std::tmpfile();
    ASSERT_NE(out, nullptr);
    ScriptRunOptions opts;
    opts.includeDir = kIncludeDir;
    opts.out = out;
    const ScriptRunResult r = runScriptText("/nowhere/macros.c", script, {"macros.c"}, opts);
    std::rewind(out);
    std::string got;
    for (int ch; (ch = std::fgetc(out)) != EOF;) got += static_cast<char>(ch);
    std::fclose(out);
    EXPECT_EQ(r.error, 0) << r.message;
    EXPECT_EQ(got, want);
}

}  // namespace
}  // namespace zol
