// Scripts reach the very functions plug-ins call: the same edits, made by a plug-in on
// one copy of a text and by a script on another, leave the same bytes and get the same
// answers.
#include <cstdio>
#include <string>

#include "engine/executor.h"
#include "plugin/zolder_api.h"
#include "script/runner.h"
#include "tests/plugin/plugin_fixture.h"
#include "tests/support/documents.h"

namespace zol {
namespace {

constexpr char kFixture[] =
    "int total(int n)\n"
    "{\n"
    "\tint value = 0;\n"
    "\twhile (n > 0)\n"
    "\t\tvalue += n--;\n"
    "\treturn value;\n"
    "}\n";

class Twin : public test::PlugInTest {};

std::string readAll(std::FILE* f) {
    std::string text;
    std::rewind(f);
    for (int c; (c = std::fgetc(f)) != EOF;) text += static_cast<char>(c);
    return text;
}

TEST_F(Twin, APlugInAndAScriptMakeTheSameEdits) {
    install("twin.zop", "twin.zop");
    start();
    const std::string fixture = tmp_.put("fixture.c", kFixture);
    Document* byPlugIn = openDocument(app_, tmp_.put("plugin.c", kFixture));
    Document* byScript = openDocument(app_, tmp_.put("script.c", kFixture));
    ASSERT_TRUE(byPlugIn && byScript);
    const int commands[] = {idOf(Cmd::DeleteLine), idOf(Cmd::Undo), idOf(Cmd::LineEnd), idOf(Cmd::Backspace)};

    char plugInLog[4096] = "";
    LibraryHandle module = keep("twin.zop");
    ASSERT_NE(module, nullptr);
    fn<void (*)(HDOC, const int*, char*)>(module, "twin_run")(byPlugIn, commands, plugInLog);

    setActiveDocument(app_, byScript);
    std::vector<std::string> args{std::string(ZOLDER_SOURCE_DIR) + "/tests/plugin/twin/edits_script.c"};
    for (int c : commands) args.push_back(std::to_string(c));
    ScriptRunOptions opts;
    opts.includeDir = shippedDataDir() + "/script/include";
    opts.out = std::tmpfile();
    ASSERT_NE(opts.out, nullptr);
    const ScriptRunResult run = runScriptFile(args[0], args, opts);
    const std::string scriptLog = readAll(opts.out);
    std::fclose(opts.out);

    ASSERT_EQ(run.error, 0) << run.message;
    EXPECT_EQ(scriptLog, plugInLog);

    EXPECT_EQ(test::textOf(*byScript), test::textOf(*byPlugIn));
    EXPECT_NE(test::textOf(*byPlugIn), test::textOf(*openDocument(app_, fixture)));
    EXPECT_NE(std::string(plugInLog).find("replace=0 selected=[amount] inline=0"), std::string::npos) << plugInLog;
    EXPECT_NE(std::string(plugInLog).find("char=9 "), std::string::npos) << plugInLog;
}

}  // namespace
}  // namespace zol
