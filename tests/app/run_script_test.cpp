// Running scripts as the application does: start-up scripts in the start-up order, one
// run at a time, the error report, the plug-in entry and the list of scripts run.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "app/application.h"
#include "config/settings.h"
#include "platform/profile.h"
#include "plugin/zolder_api.h"
#include "script/run_script.h"
#include "script/script_history.h"
#include "tests/support/fake_shell.h"
#include "tests/support/temp_dir.h"

namespace zol::test {
namespace {

namespace fs = std::filesystem;

// Notes, with each error report, whether the run still held the running flag and,
// given a probe script, refused to start it from a plug-in and from the dialog.
class ReportShell : public FakeShell {
public:
    void scriptError(std::string_view report) override {
        FakeShell::scriptError(report);
        const bool refused = probe.empty() || (XPZ_ExecScript(probe.c_str(), "") == 0 &&
                                               runScript(probe, {}, "", ScriptStarter::User).refused);
        heldAtReport.push_back(XPZ_IsScriptRunning() && refused);
    }
    std::vector<bool> heldAtReport;
    std::string probe;
};

class RunScriptTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_FALSE(home_.empty());
        fs::create_directories(data_ + "script");
        fs::copy(std::string(ZOLDER_BUILD_DATA_DIR) + "/script/include", data_ + "script/include",
                 fs::copy_options::recursive);
        setShell(&shell_);
    }
    void TearDown() override {
        if (app_.started) shutDown(app_);
        setShell(nullptr);
    }
    void start(const std::vector<std::string>& files = {}) { startUp(app_, StartupOptions{home_, files, data_, true}); }
    // A script that appends tag and a line end to the file "log", then runs body.
    std::string logger(const std::string& name, const std::string& tag, const std::string& body = "return 0;") {
        return tmp_.put(name, "#include <stdio.h>\nint main(void) {\n  FILE *f = fopen(\"" + home_ + "log\", \"a\");\n  fputs(\"" + tag +
                                  "\\n\", f);\n  fclose(f);\n  " + body + "\n}\n");
    }
    std::string log() const { return tmp_.get("log"); }

    TempDir tmp_{"zolrun"};
    std::string home_ = tmp_.dir();
    // The home gets the shipped headers, not the example plug-ins.
    std::string data_ = tmp_.path("data/");
    ReportShell shell_;
    Application app_;
};

TEST_F(RunScriptTest, StartUpScriptsRunOnceInDirectoryOrderBetweenTheFilesAndRecovery) {
    logger("script/StartUp/b.c", "b", "{ int z = 0; return 1 / z; }");
    logger("script/StartUp/d.c", "d");
    logger("script/StartUp/a.c", "a");
    logger("script/StartUp/notes.txt", "notes");
    tmp_.put("script/StartUp/x.c/inside.c", "");
    fs::create_symlink(home_ + "nowhere.c", home_ + "script/StartUp/c.c");
    const std::string doc = tmp_.put("doc.txt", "text\n");
    tmp_.put("~zol1234.asd", "left\nbehind");

    start({doc});

    EXPECT_EQ(log(), "a\nb\nd\n");
    const std::vector<std::string>& m = shell_.messages;
    ASSERT_EQ(m.size(), 4u);
    EXPECT_EQ(m[0], "b.c Line 6: Divide by 0");
    EXPECT_EQ(m[1], "c.c Line 0: Cannot open #include file");
    EXPECT_EQ(m[2], home_ + "script/StartUp/x.c is a folder, not a start-up script; it was skipped.");
    EXPECT_NE(m[3].find("Your last session failed!"), std::string::npos) << m[3];
    EXPECT_EQ(shell_.heldAtReport, (std::vector<bool>{true, true}));
    EXPECT_FALSE(isScriptRunning());
    // Start-up scripts are not the user's runs; the file given stays in front of the recovered one.
    EXPECT_TRUE(scriptHistory().empty());
    EXPECT_EQ(app_.recovered, 1);
    ASSERT_NE(app_.active, nullptr);
    EXPECT_EQ(app_.active->fileName, doc);
}

TEST_F(RunScriptTest, NoOtherScriptStartsWhileARunReportsItsError) {
    const std::string other = logger("other.c", "other");
    EXPECT_EQ(XPZ_ExecScript(other.c_str(), ""), 0) << "no application yet";
    start();
    EXPECT_TRUE(shell_.messages.empty()) << "no StartUp folder, nothing said";
    shell_.probe = other;
    const std::string bad = tmp_.put("bad.c", "int main(void) {\n  int z = 0;\n  return 1 / z;\n}\n");
    EXPECT_EQ(runScript(bad, {}, "bad.c", ScriptStarter::User).value, -1);
    EXPECT_EQ(shell_.messages, std::vector<std::string>{"bad.c Line 3: Divide by 0"});
    EXPECT_EQ(shell_.heldAtReport, std::vector<bool>{true});
    EXPECT_EQ(log(), "");
    EXPECT_EQ(scriptHistory(), std::vector<std::string>{bad}) << "a refused run is no run";
    EXPECT_EQ(XPZ_IsScriptRunning(), 0);
    EXPECT_EQ(XPZ_ExecScript(other.c_str(), ""), 1);
    EXPECT_EQ(log(), "other\n");
}

TEST_F(RunScriptTest, PlugInArgumentsAreCutAsAShellCutsWords) {
    start();
    const std::string script = tmp_.put(
        "args.c",
        "#include <stdio.h>\nint main(int argc, char *argv[]) {\n  FILE *f = fopen(\"" + home_ +
            "log\", \"w\");\n  int i;\n  for (i = 0; i < argc; i++) fprintf(f, \"[%s]\", argv[i]);\n"
            "  fclose(f);\n  return 0;\n}\n");
    ASSERT_EQ(XPZ_ExecScript(script.c_str(), R"(  one 'two  three' "four \"five\" \n" six\ seven "" a'b c'd	end "open  quote)"), 1);
    EXPECT_EQ(log(), "[" + script + R"(][one][two  three][four "five" \n][six seven][][ab cd][end][open  quote])");
    ASSERT_EQ(XPZ_ExecScript(script.c_str(), nullptr), 1);
    EXPECT_EQ(log(), "[" + script + "]");
    EXPECT_TRUE(scriptHistory().empty()) << "a plug-in's run is not the user's";
}

TEST_F(RunScriptTest, TheUsersRunsAreKeptNewestFirstAcrossSessions) {
    start();
    std::vector<std::string> scripts;
    for (int i = 0; i <= kScriptHistoryMax; ++i)
        scripts.push_back(tmp_.put("s" + std::to_string(i) + ".c", "int main(void) { return 0; }"));
    for (const std::string& s : scripts) runScript(s, {}, "", ScriptStarter::User);
    runScript(scripts[1], {}, "", ScriptStarter::User);
    runScript(home_ + "missing.c", {}, "", ScriptStarter::User);
    std::vector<std::string> want{scripts[1]};
    for (int i = kScriptHistoryMax; i >= 2; --i) want.push_back(scripts[static_cast<size_t>(i)]);
    EXPECT_EQ(scriptHistory(), want);

    shutDown(app_);
    flushProfileCache();
    EXPECT_EQ(getProfileString(kScriptHistorySection, "1", "", kSettingsFile), scripts[1]);
    EXPECT_EQ(getProfileString(kScriptHistorySection, std::to_string(kScriptHistoryMax), "", kSettingsFile), scripts[2]);
    scriptHistory().clear();
    start();
    EXPECT_EQ(scriptHistory(), want);
}

}  // namespace
}  // namespace zol::test
