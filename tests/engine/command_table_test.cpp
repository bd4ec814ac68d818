#include <gtest/gtest.h>

#include <set>

#include "engine/command_table.h"
#include "engine/executor.h"
#include "engine/shell.h"
#include "engine/text_util.h"
#include "tests/engine/command_fixture.h"

namespace zol {
namespace {

// Key files, macros and scripts name commands; a clash or an overlong name would make
// one of them unreachable or cut short.
TEST(CommandTable, NamesAreDistinctWithoutCaseAndFitTheirBuffer) {
    std::set<std::string> names;
    for (const CommandRecord& r : commandTable()) {
        std::string lower(r.name);
        for (char& c : lower) c = asciiLower(c);
        EXPECT_TRUE(names.insert(lower).second) << r.name;
        EXPECT_LT(std::string(r.name).size(), kCommandNameSize) << r.name;
    }
}

// Only "BackTab" shares its number, and yields to "PrevTabPos" when looked up by it.
TEST(CommandTable, EveryCommandIsFoundByItsNumberAndName) {
    for (const CommandRecord& r : commandTable()) {
        EXPECT_EQ(findCommand(std::string_view(r.name)), &r) << r.name;
        if (r.id == idOf(Cmd::BackTab)) continue;
        EXPECT_EQ(findCommand(r.id), &r) << r.name;
    }
    EXPECT_EQ(commandName(idOf(Cmd::BackTab)), "PrevTabPos");
    EXPECT_EQ(commandId("BackTab", false), 3);
}

TEST(CommandTable, LookupsOfUnknownNumbersAndNames) {
    EXPECT_EQ(commandId("pageup", false), idOf(Cmd::PageUp));
    EXPECT_EQ(commandId("NoSuchCommand", true), 0);
    EXPECT_EQ(commandParamKind(idOf(Cmd::InsertChar)), ParamKind::Char);
    EXPECT_EQ(commandParamKind(1000), ParamKind::Unknown);  // no macro stored
    EXPECT_EQ(commandParamKind(999), ParamKind::Unknown);
    EXPECT_EQ(commandGroup(999), 0);
    EXPECT_EQ(findCommand(kMaxDispatchId + 1), nullptr);
    EXPECT_EQ(commandDescriptionString(idOf(Cmd::UserTool1)), "");  // user tools have none
}

using test::RecordingView;

// Scripts and plug-ins pass any number; only the commands that read a parameter may
// see it.
TEST(Executor, PassesParametersOnlyToCommandsThatTakeOne) {
    Document doc;
    RecordingView view;
    view.swallow = true;
    doc.view = &view;
    for (const CommandRecord& r : commandTable()) {
        view.seen.clear();
        execute(doc, r.id, 10);
        ASSERT_EQ(view.seen.size(), 1u) << r.name;
        const bool takesOne = r.kind == ParamKind::Char || r.kind == ParamKind::Number;
        EXPECT_EQ(view.seen[0].second, takesOne ? 10u : 0u) << r.name;
    }
}

TEST(Executor, PreCommandHookCanSwallowUnlessBypassed) {
    Document doc;
    test::fill(doc, "x");
    RecordingView view;
    view.swallow = true;
    doc.view = &view;
    execute(doc, Cmd::InsertChar, 'a');
    EXPECT_EQ(lineText(doc, 0), "x");
    EXPECT_EQ(doc.lastCmd, 0);
    execute(doc, Cmd::InsertChar, 'a', kBypassPreCommand);
    EXPECT_EQ(view.seen.size(), 1u);
    EXPECT_EQ(doc.lastCmd, idOf(Cmd::InsertChar));
}

TEST(Executor, TracksLastAndPreviousCommandExceptForUndo) {
    Document doc;
    execute(doc, Cmd::CursorLeft);
    execute(doc, Cmd::CursorRight);
    EXPECT_EQ(doc.prevCmd, idOf(Cmd::CursorLeft));
    EXPECT_EQ(doc.lastCmd, idOf(Cmd::CursorRight));
    execute(doc, Cmd::Undo);
    EXPECT_EQ(doc.prevCmd, idOf(Cmd::CursorLeft));
    EXPECT_EQ(doc.lastCmd, idOf(Cmd::Undo));  // set by undo itself, not by the executor's bookkeeping
}

TEST(Executor, ReservedAndUnknownIdsDoNothing) {
    Document doc;
    test::fill(doc, "x");
    EXPECT_EQ(execute(doc, 1150), 0);
    EXPECT_EQ(execute(doc, 1999), 0);
    EXPECT_EQ(execute(doc, kMaxDispatchId + 1), 0);
    EXPECT_EQ(execute(doc, 1000), 0);
    EXPECT_EQ(lineText(doc, 0), "x");
}

TEST(Executor, ReadOnlyGuardNotifiesOnlyForCleanDocumentsOutsideMacros) {
    Document doc;
    test::fill(doc, "x");
    RecordingView view;
    doc.view = &view;
    doc.readOnly = true;
    for (Cmd c : {Cmd::InsertChar, Cmd::Backspace, Cmd::NewLine, Cmd::Paste, Cmd::IndentBlock, Cmd::Sort,
                  Cmd::UpperCase})
        EXPECT_EQ(execute(doc, c, 'a'), 0) << commandName(idOf(c));
    EXPECT_EQ(view.readOnlyNotes, 7);
    doc.macroRunning = true;
    execute(doc, Cmd::InsertChar, 'a');
    EXPECT_EQ(view.readOnlyNotes, 7);
    doc.macroRunning = false;
    doc.modified = true;
    execute(doc, Cmd::DeleteLine);
    EXPECT_EQ(view.readOnlyNotes, 7);
    EXPECT_EQ(lineText(doc, 0), "x");
}

class FakeMacros : public MacroStore {
public:
    bool has(uint16_t id) const override { return id == 1003; }
    std::string name(uint16_t) const override { return "Macro4"; }
    uint16_t find(std::string_view n) const override { return n == "Macro4" ? 1003 : 0; }
    void play(Document& doc, uint16_t) override { runningDuringPlay = doc.macroRunning; ++plays; }
    void startRecording(Document&) override { ++starts; }
    void recordStep(Document&, uint16_t id, uint32_t param) override { steps.push_back({id, param}); }
    void stopRecording(Document&) override { ++stops; }
    int plays = 0, starts = 0, stops = 0;
    bool runningDuringPlay = false;
    std::vector<std::pair<uint16_t, uint32_t>> steps;
};

TEST(Executor, PlaysRecordsAndNamesMacros) {
    FakeMacros macros;
    setMacroStore(&macros);
    Document doc;
    EXPECT_EQ(commandName(1003), "Macro4");
    EXPECT_EQ(commandId("Macro4", true), 1003);
    EXPECT_EQ(commandId("Macro4", false), 0);
    EXPECT_EQ(commandParamKind(1003), ParamKind::None);
    execute(doc, 1003);
    EXPECT_EQ(macros.plays, 1);
    EXPECT_TRUE(macros.runningDuringPlay);
    EXPECT_FALSE(doc.macroRunning);

    execute(doc, Cmd::RecordMacro);
    execute(doc, Cmd::RecordMacro);  // already recording
    EXPECT_EQ(doc.recorder, Recorder::Recording);
    execute(doc, Cmd::InsertChar, 'q');
    execute(doc, Cmd::CursorLeft);
    execute(doc, Cmd::MacroStopRecorder);
    execute(doc, Cmd::CursorRight);
    EXPECT_EQ(doc.recorder, Recorder::Idle);
    EXPECT_EQ(macros.starts, 1);
    EXPECT_EQ(macros.stops, 1);
    ASSERT_EQ(macros.steps.size(), 2u);
    EXPECT_EQ(macros.steps[0], (std::pair<uint16_t, uint32_t>{idOf(Cmd::InsertChar), 'q'}));
    setMacroStore(nullptr);
}

}  // namespace
}  // namespace zol
