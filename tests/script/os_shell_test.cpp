// The operating-system built-ins that reach the user through the shell: what each call
// asks of the shell, and how the shell's answer comes back to the script.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "engine/shell.h"
#include "script/runner.h"
#include "tests/support/temp_home.h"

namespace zol {
namespace {

struct RecordingShell : test::FakeShell {
    BoxButton messageBox(const MessageBoxRequest& box) override {
        boxes.push_back(box);
        texts.push_back(std::string(box.text) + "|" + std::string(box.caption));
        return FakeShell::messageBox(box);  // as a message or a question
    }
    void beep() override { ++beeps; }
    void busyCursor(bool on) override { cursor.push_back(on); }
    uint32_t findWindow(std::optional<std::string_view> cls, std::optional<std::string_view> title) override {
        searches.push_back(std::string(cls.value_or("*")) + "|" + std::string(title.value_or("*")));
        return kMainWindowToken;
    }
    bool openHelp(const std::string& path) override {
        helpFiles.push_back(path);
        return true;
    }

    std::vector<MessageBoxRequest> boxes;  // their texts are gone after the run
    std::vector<std::string> texts, searches, helpFiles;
    std::vector<bool> cursor;
    int beeps = 0;
};

class ShellCalls : public test::TempHome {
protected:
    void SetUp() override {
        TempHome::SetUp();
        setShell(&recorder);
    }
    // main's value for a body that includes windows.h.
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
    recorder.answer = Answer::Yes;
    EXPECT_EQ(run("return MessageBox(NULL, \"Sure?\", \"Title\", MB_YESNO);"), 6);
    recorder.answer.reset();
    EXPECT_EQ(run("return MsgBox(\"Plain\", MB_OK | MB_ICONINFORMATION);"), 1);
    EXPECT_EQ(run("return MessageBox(NULL, NULL, NULL, MB_ABORTRETRYIGNORE | MB_ICONSTOP | MB_DEFBUTTON3);"), 3);
    EXPECT_EQ(run("return MessageBox(NULL, \"Go?\", NULL, MB_OKCANCEL | MB_ICONWARNING | MB_DEFBUTTON3);"), 2);
    EXPECT_EQ(run("return MessageBox(NULL, \"Odd\", \"\", 0xFFFF);"), 1);

    ASSERT_EQ(recorder.boxes.size(), 6u);
    EXPECT_EQ(recorder.texts, (std::vector<std::string>{"Sure?|Title", "Sure?|Title", "Plain|", "|", "Go?|", "Odd|"}));
    const BoxButtons buttons[] = {BoxButtons::YesNo,          BoxButtons::YesNo,    BoxButtons::Ok,
                                  BoxButtons::AbortRetryIgnore, BoxButtons::OkCancel, BoxButtons::Ok};
    const BoxIcon icons[] = {BoxIcon::Question, BoxIcon::None,    BoxIcon::Information,
                             BoxIcon::Error,    BoxIcon::Warning, BoxIcon::None};
    const size_t defaults[] = {1, 0, 0, 2, 0, 0};  // a third button on a box of two: the first
    for (size_t k = 0; k < 6; ++k) {
        EXPECT_EQ(recorder.boxes[k].buttons, buttons[k]) << k;
        EXPECT_EQ(recorder.boxes[k].icon, icons[k]) << k;
        EXPECT_EQ(recorder.boxes[k].defaultButton, defaults[k]) << k;
    }
    EXPECT_EQ(recorder.messages, (std::vector<std::string>{"Plain", "Odd"}));
}

TEST_F(ShellCalls, BeepCursorWindowsAndHelpGoToTheShell) {
    put("guide.txt", "help\n");
    EXPECT_EQ(run("WaitCursor(); RestoreCursor(); return MessageBeep(MB_ICONHAND);"), 1);
    EXPECT_EQ(run("return FindWindow(\"TMainFrame\", NULL) == (HWND)1 && FindWindow(NULL, \"Zolder\") != NULL;"), 1);
    EXPECT_EQ(run("return GetMainWndHandle() == NULL;"), 1);
    EXPECT_EQ(run("return WinHelp(NULL, \"guide.txt\", HELP_CONTENTS, 0) + WinHelp(NULL, \"/doc/x.html\", 1, 0);"), 2);
    EXPECT_EQ(run("return WinHelp(NULL, \"guide.txt\", HELP_QUIT, 0) + WinHelp(NULL, NULL, 1, 0);"), 0);

    EXPECT_EQ(recorder.beeps, 1);
    EXPECT_EQ(recorder.cursor, (std::vector<bool>{true, false}));
    EXPECT_EQ(recorder.searches, (std::vector<std::string>{"TMainFrame|*", "*|Zolder"}));
    EXPECT_EQ(recorder.helpFiles, (std::vector<std::string>{path("guide.txt"), "/doc/x.html"}));
}

}  // namespace
}  // namespace zol
