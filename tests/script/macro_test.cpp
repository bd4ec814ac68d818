#include <gtest/gtest.h>

#include "config/keymap.h"
#include "config/profile_owners.h"
#include "engine/document.h"
#include "engine/executor.h"
#include "engine/shell.h"
#include "platform/profile.h"
#include "script/macro_menu.h"
#include "script/macro_text.h"
#include "script/macros.h"
#include "tests/support/documents.h"
#include "tests/support/fake_shell.h"
#include "tests/support/temp_home.h"

namespace zol {
namespace {

uint16_t id(const char* name) { return commandId(name, false); }

// Notes whether a macro was running when each command reached the window.
class WatchingView final : public EditorView {
public:
    explicit WatchingView(const Document& d) : doc(d) {}
    bool preCommand(uint16_t, uint32_t, uint32_t) override {
        running.push_back(doc.macroRunning);
        return false;
    }
    const Document& doc;
    std::vector<bool> running;
};

class Macros : public ::testing::Test {
protected:
    void SetUp() override {
        initMacros();
        macros() = MacroTable{};
        setShell(&shell);
    }
    void TearDown() override {
        setShell(nullptr);
        macros() = MacroTable{};
        setKeyMapChanged(false);
    }
    void run(const char* name, uint32_t param = 0) { execute(doc, id(name), param); }
    void type(std::string_view text) {
        for (char c : text) run("InsertChar", static_cast<unsigned char>(c));
    }
    // Records what fn does as a new macro; its command number.
    template <class Fn>
    uint16_t record(Fn fn) {
        run("RecordMacro");
        fn();
        run("MacroStopRecorder");
        return findMacro(shell.macroName.empty() ? shell.suggestions.back() : shell.macroName);
    }

    Document doc;
    test::FakeShell shell;
};

TEST_F(Macros, RecordingKeepsEveryCommandWithItsParameter) {
    const uint16_t first = record([&] {
        type("ab");
        run("CursorLeft", 99);
        run("GoToLineNum", 1);
    });
    EXPECT_EQ(shell.suggestions, std::vector<std::string>{"Macro1"});
    ASSERT_EQ(first, 1000);
    EXPECT_EQ(macroById(macros(), first)->steps,
              (std::vector<MacroStep>{{2, 'a'}, {2, 'b'}, {30, 0}, {436, 1}}));
    EXPECT_EQ(test::textOf(doc), "ab");
    EXPECT_TRUE(keyMapChanged());
    EXPECT_EQ(doc.recorder, Recorder::Idle);

    const uint16_t second = record([&] { type("c"); });
    EXPECT_EQ(shell.suggestions.back(), "Macro2");
    EXPECT_EQ(second, 1001);
    EXPECT_EQ(commandName(second), "Macro2");
    EXPECT_EQ(commandId("MACRO2", true), second);
    EXPECT_EQ(commandParamKind(second), ParamKind::None);

    // A name the user gives that exists already records over that macro.
    shell.macroName = "Macro1";
    EXPECT_EQ(record([&] { run("NewLine"); }), first);
    EXPECT_EQ(macroById(macros(), first)->steps, (std::vector<MacroStep>{{15, 0}}));
    EXPECT_FALSE(macroById(macros(), 1002));
}

TEST_F(Macros, CancelledOrFullRecordingsKeepWhatExists) {
    shell.cancelNaming = true;
    run("RecordMacro");
    EXPECT_EQ(doc.recorder, Recorder::Idle);
    type("x");
    run("MacroStopRecorder");
    EXPECT_FALSE(macroById(macros(), 1000));

    shell.cancelNaming = false;
    for (int i = 0; i < 150; ++i) addMacro(macros(), Macro{true, "m" + std::to_string(i), "", {{2, 'q'}}});
    run("RecordMacro");
    EXPECT_EQ(doc.recorder, Recorder::Idle);
    EXPECT_EQ(shell.messages, std::vector<std::string>{macromsg::kSlotsFull});
    EXPECT_EQ(addMacro(macros(), Macro{}), 0);
    EXPECT_EQ(macroById(macros(), 1149)->name, "m149");
}

TEST_F(Macros, PlaybackRunsTheStepsAsAMacro) {
    WatchingView view(doc);
    doc.view = &view;
    const uint16_t m = addMacro(macros(), Macro{true, "Twice", "", {{2, 'x'}, {2, 'y'}, {30, 0}}});
    execute(doc, m);
    execute(doc, m);
    EXPECT_EQ(test::textOf(doc), "xxyy");
    EXPECT_EQ(doc.cursor.col, 2);
    EXPECT_EQ(view.running, std::vector<bool>(6, true));
    EXPECT_FALSE(doc.macroRunning);

    // Recording while a macro plays keeps the steps it ran.
    const uint16_t outer = record([&] { execute(doc, m); });
    EXPECT_EQ(macroById(macros(), outer)->steps, macroById(macros(), m)->steps);

    // By name, as scripts and plug-ins run macros: the exact name only.
    EXPECT_EQ(executeMacro(nullptr, "Twice"), 0);
    EXPECT_EQ(executeMacro(&doc, nullptr), 0);
    EXPECT_EQ(executeMacro(&doc, "twice"), 0);
    EXPECT_EQ(executeMacro(&doc, "Twice"), 1);
    EXPECT_EQ(test::textOf(doc), "xxxxyyyy");
}

TEST_F(Macros, MacrosThatRunThemselvesStop) {
    const uint16_t loop = addMacro(macros(), Macro{true, "Loop", "", {}});
    macroById(macros(), loop)->steps = {{2, 'a'}, {loop, 0}, {2, 'b'}};
    execute(doc, loop);
    EXPECT_EQ(test::textOf(doc), std::string(macromsg::kMaxNesting, 'a'));
    EXPECT_EQ(shell.messages, std::vector<std::string>{macromsg::kTooDeep});
    // The next run starts afresh.
    execute(doc, loop);
    EXPECT_EQ(shell.messages.size(), 2u);
}

TEST_F(Macros, EditedTextReplacesTheStepsOnlyWhenItCompiles) {
    const uint16_t m = addMacro(macros(), Macro{true, "Edit", "", {{2, 'a'}}});
    std::string text;
    ASSERT_EQ(macroToText(m, text), MacroTextStatus::Ok);
    EXPECT_EQ(macroToText(1001, text), MacroTextStatus::NoMacro);
    EXPECT_EQ(macroToText(999, text), MacroTextStatus::NoMacro);

    EXPECT_FALSE(finishMacroEdit(m, "x", "x"));
    EXPECT_TRUE(shell.questions.empty());
    EXPECT_FALSE(finishMacroEdit(m, "x", "Edit\r\n"));
    EXPECT_EQ(shell.questions, std::vector<std::string>{macromsg::kAskCompile});

    shell.answer = Answer::Yes;
    EXPECT_FALSE(finishMacroEdit(m, "x", "CursorLeft\r\nbogus\r\n"));
    EXPECT_EQ(shell.messages, std::vector<std::string>{"Line 2: unknown command"});
    EXPECT_EQ(macroById(macros(), m)->steps, (std::vector<MacroStep>{{2, 'a'}}));
    // A macro may run another by name.
    addMacro(macros(), Macro{true, "Other", "", {}});
    EXPECT_TRUE(finishMacroEdit(m, "x", "other\r\nInsertText \"b\"\r\n"));
    EXPECT_EQ(macroById(macros(), m)->steps, (std::vector<MacroStep>{{1001, 0}, {2, 'b'}}));
    EXPECT_TRUE(keyMapChanged());
}

class MacroMenuSettings : public test::TempHome {
protected:
    const MacroMenu& load(const std::string& ini) {
        put("zol.ini", ini);
        flushProfileCache();
        loadMacroMenu("MacroMenu", "zol.ini");
        return macroMenu();
    }
};

TEST_F(MacroMenuSettings, AnEmptyMenuTextEndsTheList) {
    const MacroMenu& menu = load("[MacroMenu]\nMenuText1=One\nCmdLine1=one\nMenuText2=Two\nScript2=2\n"
                                 "MenuText3=\nMenuText4=Four\n");
    ASSERT_EQ(menu.items.size(), 2u);
    EXPECT_TRUE(menu.items[0].script) << "a missing Script key means a script";
    EXPECT_FALSE(menu.items[1].script);
    EXPECT_EQ(macroMenuLabel(MacroMenu{{MacroMenuItem{}}}, 0), "Macro 1");

    std::string ini = "[MacroMenu]\n";
    for (int n = 1; n <= 16; ++n) ini += "MenuText" + std::to_string(n) + "=" + std::string(50, 'm') + "\n";
    ini += "Description1=" + std::string(100, 'd') + "\nCmdLine1=" + std::string(1100, 'c') + "\nScript1=3\n";
    load(ini);
    ASSERT_EQ(menu.items.size(), 15u);
    EXPECT_EQ(menu.items[0].menuText.size(), 39u);
    EXPECT_EQ(menu.items[0].description.size(), 79u);
    EXPECT_EQ(menu.items[0].cmdLine.size(), 1023u);
    EXPECT_TRUE(menu.items[0].script);

    // Saving a shorter list keeps the dropped items from coming back.
    macroMenu().items = {MacroMenuItem{"&Wrap", "Wraps", "wordwrap -x", false}};
    saveMacroMenu("MacroMenu", "zol.ini");
    flushProfileCache();
    loadMacroMenu("MacroMenu", "zol.ini");
    ASSERT_EQ(menu.items.size(), 1u);
    EXPECT_EQ(menu.items[0].cmdLine, "wordwrap -x");
    EXPECT_FALSE(menu.items[0].script);
}

}  // namespace
}  // namespace zol
