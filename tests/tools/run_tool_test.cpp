// Running tools without windows: saving first, the argument question, capture into an
// output document, stopping, and the ways a run is refused with everything left as it
// was.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include "engine/edit.h"
#include "engine/executor.h"
#include "plugin/zolder_api.h"
#include "tests/support/documents.h"
#include "tests/tools/tool_app.h"
#include "tools/capture_job.h"
#include "tools/output_document.h"
#include "tools/run_tool.h"

namespace zol::test {
namespace {

using RunToolTest = ToolAppTest;

ToolRequest captured(std::string program, std::string arguments, std::string dir = {}) {
    ToolRequest r;
    r.title = "T";
    r.program = std::move(program);
    r.arguments = std::move(arguments);
    r.initialDir = std::move(dir);
    r.captureOutput = true;
    return r;
}

// The process has ended (a zombie waiting for init counts as ended).
bool gone(const std::string& pid) {
    for (int i = 0; i < 500; ++i) {
        std::ifstream stat("/proc/" + pid + "/stat");
        std::string number, name, state;
        if (!(stat >> number >> name >> state) || state == "Z") return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}

size_t outputDocuments(const Application& app) {
    size_t n = 0;
    for (const auto& d : app.documents) n += d->outputWindow;
    return n;
}

TEST_F(RunToolTest, ACompilerRunFillsTheOutputAndF4StepsThroughIt) {
    const std::string src = "int f(void)\n{\n    return 1\n}\n\nvoid g(void)\n{\n    int *p = 5.0;\n    (void)p;\n}\n";
    open("two.c", src);
    ASSERT_TRUE(runTool(captured("cc", "-Wall -fno-diagnostics-show-caret -c $(FileName) -o /dev/null", "$(FileDir)"), true));
    Document* out = active();
    ASSERT_TRUE(out->outputWindow);
    EXPECT_EQ(out->fileName, "Output - T");
    ASSERT_FALSE(shell_.status.empty());
    EXPECT_EQ(shell_.status.back(), "T: ended with exit status 1");
    const std::pair<uint16_t, int32_t> steps[] = {{idOf(Cmd::NextCompilerError), 3},
                                                   {idOf(Cmd::NextCompilerError), 8},
                                                   {idOf(Cmd::PrevCompilerError), 3}};
    for (const auto& [command, line] : steps) {
        ASSERT_NE(execute(*active(), command), 0) << linesOf(*out).size();
        EXPECT_EQ(active()->fileName, dir_ + "two.c");
        EXPECT_EQ(active()->cursor.line + 1, line);
    }
}

TEST_F(RunToolTest, SavingFirstAskingAndEditingTheArguments) {
    Document* doc = open("s.txt", "old\n");
    insertText(*doc, "new ");
    ToolRequest r = captured("cat", "$(FileName)", "$(FileDir)");
    r.saveFile = kSaveActive;
    r.promptBeforeSave = true;
    r.askArguments = true;
    shell_.editedArguments = "$(FileName) s.txt";  // taken as typed: no second expansion
    shell_.answers = {Answer::Cancel};
    EXPECT_FALSE(runTool(r, true));
    EXPECT_TRUE(doc->modified);
    EXPECT_TRUE(shell_.shownArguments.empty()) << "cancelled before the arguments";
    shell_.answers = {Answer::Yes};
    shell_.editedArguments = "s.txt s.txt";
    ASSERT_TRUE(runTool(r, true));
    EXPECT_EQ(shell_.questions.back(), "Save all modified files before running tool?");
    EXPECT_EQ(shell_.shownArguments.back(), "s.txt");
    EXPECT_FALSE(doc->modified);
    EXPECT_EQ(linesOf(*active()), (Lines{"new old", "new old"}));
    shell_.editedArguments.reset();
    EXPECT_FALSE(runTool(r, true)) << "the argument dialog cancelled";
}

TEST_F(RunToolTest, RefusedRunsChangeNothing) {
    open("r.c", "x\n");
    put("noexec.sh", "#!/bin/sh\necho hi\n");
    const std::string tooLong = std::string(240, 'a') + "$(FilePath)";
    struct Row {
        const char* why;
        ToolRequest request;
        const char* message;
    };
    const Row rows[] = {
        {"no such program", captured(dir_ + "nowhere/tool", "x"), "The path '%snowhere/tool' is invalid. The tool cannot be run."},
        {"not executable", captured(dir_ + "noexec.sh", "x"), "The path '%snoexec.sh' is invalid. The tool cannot be run."},
        {"arguments past their buffer", captured("echo", tooLong),
         "The arguments of 'T' are longer than 255 characters once their macros are expanded. The tool cannot be run."},
    };
    for (const Row& r : rows) {
        shell_.messages.clear();
        const size_t documents = app_.documents.size();
        EXPECT_FALSE(runTool(r.request, true)) << r.why;
        ASSERT_EQ(shell_.messages.size(), 1u) << r.why;
        std::string expected = r.message;
        if (const size_t at = expected.find("%s"); at != std::string::npos) expected.replace(at, 2, dir_);
        EXPECT_EQ(shell_.messages[0], expected) << r.why;
        EXPECT_EQ(app_.documents.size(), documents) << r.why;
    }
    // The interface's own refusals; its successful runs are in headless_test.cpp.
    EXPECT_FALSE(Zol_ExecuteTool("echo", "", ZOL_TOOL_CAPTURE, nullptr));
    EXPECT_FALSE(Zol_ExecuteTool(nullptr, "x", ZOL_TOOL_CAPTURE, nullptr));
}

TEST_F(RunToolTest, AFolderThatCannotBeEnteredIsAskedAbout) {
    ToolRequest r = captured("pwd", "-P", dir_ + "missing");
    shell_.answers = {Answer::No};
    EXPECT_FALSE(runTool(r, true));
    EXPECT_EQ(shell_.questions.back(), "The current directory cannot be changed to '" + dir_ + "missing'.\nContinue ?");
    EXPECT_EQ(outputDocuments(app_), 0u);
    shell_.answers = {Answer::Yes};
    ASSERT_TRUE(runTool(r, true));
    EXPECT_EQ(linesOf(*active()), (Lines{std::filesystem::current_path().string()}));
}

TEST_F(RunToolTest, BinaryBytesAndAHugeLineArriveWhole) {
    ASSERT_TRUE(runTool(captured("sh", "-c 'printf \"a\\000b\\377\\r\\n\"; head -c 10000000 /dev/zero | tr \"\\000\" x'"), true));
    const Document& out = *active();
    ASSERT_EQ(out.lines.count(), 3126) << "one line, then 10,000,000 bytes in lines of 3200";
    EXPECT_EQ(lineText(out, 0), "a b\xff");
    EXPECT_EQ(lineText(out, 3125).size(), 3200u);
    EXPECT_EQ(shell_.status.back(), "T: done");
}

TEST_F(RunToolTest, AToolThatWillNotEndIsStoppedThenKilled) {
    shell_.holdJobs = true;
    const std::string pidFile = dir_ + "pid";
    ASSERT_TRUE(runTool(captured("sh", "-c 'trap \"\" TERM; echo $$ > " + pidFile + "; echo started; exec sleep 100'"), false));
    ASSERT_EQ(shell_.held.size(), 1u);
    BackgroundJob& job = *shell_.held[0];
    while (linesOf(*active()) != Lines{"started"}) ASSERT_TRUE(job.poll(kJobWaitMs));
    EXPECT_EQ(shell_.status.back(), "T: running");
    job.stop();
    EXPECT_TRUE(job.stopping());
    while (job.poll(kJobWaitMs)) {
    }
    EXPECT_EQ(shell_.status.back(), "T: stopped");
    const std::string pid = tmp_.get("pid");
    ASSERT_FALSE(pid.empty());
    EXPECT_TRUE(gone(pid.substr(0, pid.find('\n')))) << "nothing left running";
}

TEST_F(RunToolTest, UserToolCommandsRunTheirTools) {
    open("u.c", "x\n");
    userTools().tools.resize(2);
    for (UserTool& t : userTools().tools) {
        t.pathName = "echo";
        t.captureOutput = true;
    }
    userTools().tools[0].menuText = "&First";
    userTools().tools[1].menuText = "&Second";
    ASSERT_NE(execute(*active(), Cmd::UserTool2), 0);
    EXPECT_EQ(active()->fileName, "Output - Second");
    EXPECT_EQ(execute(*active(), Cmd::UserTool3), 0);
    EXPECT_EQ(shell_.status.back(), "User tool 3 is not defined (Tools > User Tools).");
}

}  // namespace
}  // namespace zol::test
