#include <gtest/gtest.h>

#include <set>

#include "engine/command_table.h"
#include "engine/executor.h"
#include "engine/shell.h"
#include "tests/engine/command_fixture.h"

namespace zol {
namespace {

TEST(CommandTable, HoldsEveryCommandOnceWithValidFields) {
    auto table = commandTable();
    ASSERT_EQ(table.size(), 259u);
    std::set<std::string> names;
    std::set<uint16_t> ids;
    for (const CommandRecord& r : table) {
        EXPECT_TRUE(names.insert(r.name).second) << r.name;
        EXPECT_LT(std::string(r.name).size(), kCommandNameSize) << r.name;
        EXPECT_GE(r.group, 1);
        EXPECT_LE(r.group, 13);
        EXPECT_NE(r.kind, ParamKind::Unknown);
        ids.insert(r.id);
    }
    EXPECT_EQ(ids.size(), 258u);  // "PrevTabPos" and "BackTab" share id 3
}

TEST(CommandTable, LookupsByIdAndName) {
    EXPECT_EQ(commandName(3), "PrevTabPos");
    EXPECT_EQ(commandId("BackTab", false), 3);
    EXPECT_EQ(commandId("pageup", false), 34);
    EXPECT_EQ(commandId("NoSuchCommand", true), 0);
    EXPECT_EQ(commandParamKind(1000), ParamKind::Unknown);  // no macro stored
    EXPECT_EQ(commandParamKind(999), ParamKind::Unknown);
    EXPECT_EQ(commandGroup(999), 0);
    EXPECT_EQ(commandDescriptionString(280), "");  // user tools have none
}

using test::RecordingView;

TEST(Executor, ForcesParametersOfCommandsThatTakeNone) {
    Document doc;
    RecordingView view;
    doc.view = &view;
    execute(doc, 30, 10);
    execute(doc, 436, 10);
    ASSERT_EQ(view.seen.size(), 2u);
    EXPECT_EQ(view.seen[0].second, 0u);
    EXPECT_EQ(view.seen[1].second, 10u);
}

TEST(Executor, PreCommandHookCanSwallowUnlessBypassed) {
    Document doc;
    test::fill(doc, "x");
    RecordingView view;
    view.swallow = true;
    doc.view = &view;
    execute(doc, 2, 'a');
    EXPECT_EQ(lineText(doc, 0), "x");
    EXPECT_EQ(doc.lastCmd, 0);
    execute(doc, 2, 'a', kBypassPreCommand);
    EXPECT_EQ(view.seen.size(), 1u);
    EXPECT_EQ(doc.lastCmd, 2);
}

TEST(Executor, TracksLastAndPreviousCommandExceptForUndo) {
    Document doc;
    execute(doc, 30);
    execute(doc, 31);
    EXPECT_EQ(doc.prevCmd, 30);
    EXPECT_EQ(doc.lastCmd, 31);
    execute(doc, 120);
    EXPECT_EQ(doc.prevCmd, 30);
    EXPECT_EQ(doc.lastCmd, 120);  // set by undo itself, not by the executor's bookkeeping
}

TEST(Executor, ReservedAndUnknownIdsDoNothing) {
    Document doc;
    test::fill(doc, "x");
    EXPECT_EQ(execute(doc, 1150), 0);
    EXPECT_EQ(execute(doc, 1999), 0);
    EXPECT_EQ(execute(doc, 446), 0);
    EXPECT_EQ(execute(doc, 1000), 0);
    EXPECT_EQ(lineText(doc, 0), "x");
}

TEST(Executor, ReadOnlyGuardNotifiesOnlyForCleanDocumentsOutsideMacros) {
    Document doc;
    test::fill(doc, "x");
    RecordingView view;
    doc.view = &view;
    doc.readOnly = true;
    for (const char* name : {"InsertChar", "Backspace", "NewLine", "Paste", "IndentBlock", "Sort", "UpperCase"})
        EXPECT_EQ(execute(doc, commandId(name, false), 'a'), 0) << name;
    EXPECT_EQ(view.readOnlyNotes, 7);
    doc.macroRunning = true;
    execute(doc, 2, 'a');
    EXPECT_EQ(view.readOnlyNotes, 7);
    doc.macroRunning = false;
    doc.modified = true;
    execute(doc, 13);
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

    execute(doc, 230);
    execute(doc, 230);  // already recording
    execute(doc, 2, 'q');
    execute(doc, 30);
    execute(doc, 231);
    execute(doc, 31);
    EXPECT_EQ(macros.starts, 1);
    EXPECT_EQ(macros.stops, 1);
    ASSERT_EQ(macros.steps.size(), 2u);
    EXPECT_EQ(macros.steps[0], (std::pair<uint16_t, uint32_t>{2, 'q'}));
    setMacroStore(nullptr);
}

}  // namespace
}  // namespace zol
