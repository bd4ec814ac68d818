// Commands that need a window or an answer from the user: page moves and scrolling
// by the window's size, the redraws of mode commands, a chosen fill character, and
// the line-drawing styles.
#include <gtest/gtest.h>

#include "engine/commands/line_draw.h"
#include "tests/engine/command_fixture.h"

namespace zol::test {
namespace {

class WithView : public CommandTest {
protected:
    void SetUp() override {
        CommandTest::SetUp();
        doc.view = &view;
    }
    void TearDown() override {
        lineDrawState() = LineDrawState{};
        CommandTest::TearDown();
    }
    FakeEditorView view;
};

TEST_F(WithView, PagesAndWindowFollowTheView) {
    fill(doc, numberedLines(99));  // 100 lines, the last empty
    moveTo(3, 0);
    run("PageDown");
    EXPECT_EQ(here(), "3,10");
    EXPECT_EQ(view.first, 10);
    for (int i = 0; i < 9; ++i) run("PageDown");
    EXPECT_EQ(here(), "3,99");  // the last line is empty, but the column is kept
    EXPECT_EQ(view.first, 90);  // the last page stays full
    run("PageUp");
    EXPECT_EQ(here(), "3,89");
    EXPECT_EQ(view.first, 80);

    run("TopOfWindow");
    EXPECT_EQ(here(), "3,80");
    run("BottomOfWindow");
    EXPECT_EQ(here(), "3,89");

    run("ScrollDown");
    EXPECT_EQ(view.first, 81);
    EXPECT_EQ(here(), "3,89");  // still visible, so it stays
    run("ScrollUp");
    run("ScrollUp");
    EXPECT_EQ(view.first, 79);
    EXPECT_EQ(here(), "3,88");  // dragged along with the bottom line

    run("GoToLineNum", 10);
    EXPECT_EQ(view.first, 9);  // moves that leave the window scroll it
    view.first = 0;
    EXPECT_EQ(run("ScrollUp"), 0);
    EXPECT_GT(view.statusRefreshes, 0);
}

TEST_F(CommandTest, PagesWithoutAViewAre25Lines) {
    fill(doc, numberedLines(60));
    run("PageDown");
    EXPECT_EQ(here(), "0,25");
    run("BottomOfWindow");
    EXPECT_EQ(here(), "0,24");
    EXPECT_EQ(run("ScrollDown"), 0);
}

TEST_F(WithView, ModeCommandsRedrawAndRefreshTheStatus) {
    for (const char* name : {"ToggleInsert", "ToggleAutoIndent", "ToggleAutoUnindent", "ToggleRuler",
                             "ToggleVisibleSpaces", "ToggleLineNumbers"}) {
        const int redraws = view.redraws, statuses = view.statusRefreshes;
        EXPECT_EQ(run(name), 1) << name;
        EXPECT_EQ(view.redraws, redraws + 1) << name;
        EXPECT_EQ(view.statusRefreshes, statuses + 1) << name;
    }
    fill(doc, "abcdef\nghijkl");
    select(makePos(4, 0), makePos(1, 1));
    const int redraws = view.redraws;
    for (const char* name : {"ToggleSelMode", "ToggleSelMode", "SetColumnSelMode", "SetCharSelMode"}) run(name);
    EXPECT_GE(view.redraws, redraws + 4);
}

TEST_F(WithView, FillBlockCoversTheRectangleWithTheChosenCharacter) {
    struct Picker final : Shell {
        void message(std::string_view) override {}
        Answer ask(std::string_view, bool) override { return Answer::Cancel; }
        void statusMessage(std::string_view) override {}
        ClipboardData getClipboard() override { return {}; }
        void setClipboard(const ClipboardData&) override {}
        int chooseCharacter(std::string_view) override { return '*'; }
    } picker;
    setShell(&picker);
    fill(doc, "abcdef\na\tb");
    select(makePos(1, 0), makePos(4, 1), SelMode::Column);
    run("FillBlock");
    EXPECT_EQ(text(), "a***ef\na***    b");  // the cut tab keeps b in its column
    run("Undo");
    EXPECT_EQ(text(), "abcdef\na\tb");
}

TEST_F(WithView, OemLineDrawingUsesCodePage437BoxCharacters) {
    lineDrawState().oemCharset = true;
    run("LineDrawStyle");
    EXPECT_EQ(shell_.status.back(), "Line drawing: double lines");
    fill(doc, "");
    run("StartLineDraw");
    for (const char* k : {"CursorRight", "CursorRight", "CursorDown", "CursorDown", "CursorLeft", "CursorLeft",
                          "CursorUp", "CursorUp"})
        run(k);
    EXPECT_EQ(text(), "\xC9\xCD\xBB\n\xBA \xBA\n\xC8\xCD\xBC");
    // A single stroke crossing the double box makes the mixed junction.
    lineDrawState().style = LineStyle::Single;
    moveTo(1, 1);
    run("CursorUp");
    EXPECT_EQ(lineText(doc, 0).substr(1, 1), "\xD1");
    EXPECT_EQ(joinStroke('\xC4', DrawDir::Down, LineStyle::Single, true), '\xC2');
}

}  // namespace
}  // namespace zol::test
