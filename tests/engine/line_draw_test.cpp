#include <gtest/gtest.h>

#include "engine/commands/line_draw.h"
#include "tests/engine/command_fixture.h"

namespace zol {
namespace {

using test::fill;

class LineDraw : public test::CommandTest {
protected:
    void TearDown() override {
        lineDrawState() = LineDrawState{};
        CommandTest::TearDown();
    }
    void box() {
        for (const char* k : {"CursorRight", "CursorRight", "CursorDown", "CursorDown", "CursorLeft", "CursorLeft",
                              "CursorUp", "CursorUp"})
            run(k);
    }
};

TEST_F(LineDraw, CursorKeysDrawABoxThatGrowsTheText) {
    fill(doc, "");
    run("ToggleLineDraw");
    EXPECT_TRUE(doc.lineDrawing);
    box();
    EXPECT_EQ(text(), "+-+\n| |\n+-+");
    EXPECT_EQ(doc.cursor, makePos(0, 0));
    run("Undo");
    EXPECT_EQ(text(), "--+\n| |\n+-+");  // one step undone

    run("EndLineDraw");
    moveTo(0, 0);
    run("CursorRight");
    EXPECT_EQ(doc.cursor, makePos(1, 0));  // moves, draws nothing
}

TEST_F(LineDraw, OemStylesUseCodePage437BoxCharacters) {
    lineDrawState().oemCharset = true;
    run("LineDrawStyle");
    EXPECT_EQ(shell_.status.back(), "Line drawing: double lines");
    fill(doc, "");
    run("StartLineDraw");
    box();
    EXPECT_EQ(text(), "\xC9\xCD\xBB\n\xBA \xBA\n\xC8\xCD\xBC");
    // A single stroke crossing the double box makes the mixed junction.
    lineDrawState().style = LineStyle::Single;
    moveTo(1, 1);
    run("CursorUp");
    EXPECT_EQ(lineText(doc, 0).substr(1, 1), "\xD1");
    EXPECT_EQ(joinStroke('\xC4', DrawDir::Down, LineStyle::Single, true), '\xC2');
}

}  // namespace
}  // namespace zol
