// The operating-system built-ins that reach the user through the shell: what each call
// asks of the shell, and how the shell's answer comes back to the script.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/shell.h"
#include "script/runner.h"
#include "tests/support/temp_home.h"

namespace zol {
namespace {

// Keeps each request as one line (a box: its text, caption, and the digits of its
// buttons, icon and default button) and answers as the fake shell does.
struct RecordingShell : test::FakeShell {
    BoxButton messageBox(const MessageBoxRequest& b) override {
        calls.push_back("box " + std::string(b.text) + "|" + std::string(b.caption) + " " +
                        std::to_string(static_cast<int>(b.buttons)) + std::to_string(static_cast<int>(b.icon)) +
                        std::to_string(b.defaultButton));
        return FakeShell::messageBox(b);
    }
    void beep() override { calls.push_back("beep"); }
    void busyCursor(bool on) override { calls.push_back(on ? "busy" : "idle"); }
    uint32_t findWindow(std::optional<std::string_view> cls, std::optional<std::string_view> title) override {
        calls.push_back("find " + std::string(cls.value_or("*")) + "|" + std::string(title.value_or("*")));
        return kMainWindowToken;
    }
    bool openHelp(const std::string& path) override {
        calls.push_back("help " + path);
        return true;
    }
    std::vector<std::string> calls;
};

class ShellCalls : public test::TempHome {
protected:
    void SetUp() override {
        TempHome::SetUp();
        setShell(&recorder);
    }
    int run(const std::string& body) {
        ScriptRunOptions opts;
        opts.includeDir = std::string(ZOLDER_SOURCE_DIR) + "/data/script/include";
        const std::string text = "#include <windows.h>\nint main(void) {\n" + body + "\n}\n";
        const ScriptRunResult r = runScriptText(dir + "t.c", text, {"t.c"}, opts);
        EXPECT_EQ(r.error, 0) << r.message;
        return r.value;
    }
    RecordingShell recorder;
};

TEST_F(ShellCalls, MessageBoxFlagsPickButtonsIconAndDefaultAndTheAnswerIsTheButtonsId) {
    EXPECT_EQ(run("return MessageBox(NULL, \"Sure?\", \"Title\", MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2);"), 7);
    EXPECT_EQ(run("return MsgBox(\"Plain\", MB_OK | MB_ICONINFORMATION);"), 1);
    EXPECT_EQ(run("return MessageBox(NULL, NULL, NULL, MB_ABORTRETRYIGNORE | MB_ICONSTOP | MB_DEFBUTTON3);"), 3);
    // A third button's default on a box of two falls back to the first.
    EXPECT_EQ(run("return MessageBox(NULL, \"Go?\", NULL, MB_OKCANCEL | MB_ICONWARNING | MB_DEFBUTTON3);"), 2);
    EXPECT_EQ(run("return MessageBox(NULL, \"Odd\", \"\", 0xFFFF);"), 1);
    EXPECT_EQ(recorder.calls, (std::vector<std::string>{"box Sure?|Title 421", "box Plain| 040",
                                                         "box | 212", "box Go?| 130", "box Odd| 000"}));
    EXPECT_EQ(recorder.messages, (std::vector<std::string>{"Plain", "Odd"}));
}

TEST_F(ShellCalls, BeepCursorWindowsAndHelpGoToTheShell) {
    put("guide.txt", "help\n");
    EXPECT_EQ(run("WaitCursor(); RestoreCursor(); return MessageBeep(MB_ICONHAND);"), 1);
    EXPECT_EQ(run("return FindWindow(\"TMainFrame\", NULL) == (HWND)1 && FindWindow(NULL, \"Zolder\") != NULL"
                  " && GetMainWndHandle() == NULL;"), 1);
    EXPECT_EQ(run("return WinHelp(NULL, \"guide.txt\", HELP_CONTENTS, 0) + WinHelp(NULL, \"/doc/x.html\", 1, 0);"), 2);
    EXPECT_EQ(run("return WinHelp(NULL, \"guide.txt\", HELP_QUIT, 0) + WinHelp(NULL, NULL, 1, 0);"), 0);
    EXPECT_EQ(recorder.calls, (std::vector<std::string>{"busy", "idle", "beep", "find TMainFrame|*", "find *|Zolder",
                                                         "help " + path("guide.txt"), "help /doc/x.html"}));
}

}  // namespace
}  // namespace zol
