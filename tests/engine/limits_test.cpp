// Fixed capacities reached through the editing commands: 3200 columns a line, 384 undo
// records, the saved cursor positions, and texts of a million lines.
#include <gtest/gtest.h>

#include "engine/commands/messages.h"
#include "engine/bookmarks.h"
#include "engine/marks.h"
#include "tests/engine/command_fixture.h"

namespace zol::test {
namespace {

class Limits : public CommandTest {};

TEST_F(Limits, AFullLineRefusesMoreCharactersButOverwriteStillWorks) {
    fill(doc, std::string(3199, 'x'));
    moveTo(3199, 0);
    type("y");
    EXPECT_EQ(lineWidthAt(doc, 0), 3200);
    EXPECT_TRUE(shell_.status.empty());

    doc.modified = false;
    const size_t depth = undoDepth();
    EXPECT_EQ(run("InsertChar", 'z'), 0);
    EXPECT_EQ(run("Tab"), 0);
    EXPECT_EQ(lineText(doc, 0), std::string(3199, 'x') + "y");
    EXPECT_FALSE(doc.modified);
    EXPECT_EQ(undoDepth(), depth);
    ASSERT_EQ(shell_.status.size(), 2u);
    EXPECT_EQ(shell_.status[0], kMsgLineTooLong);

    options().overwrite = true;
    moveTo(0, 0);
    type("A");
    EXPECT_EQ(lineText(doc, 0)[0], 'A');

    moveTo(kMaxColumns, 0);
    EXPECT_EQ(run("CursorRight"), 0);
    EXPECT_EQ(doc.cursor.col, kMaxColumns);
}

// A paste over a selection that would leave a line too long is refused before
// anything is deleted: the lines, their bookmarks, the cursor and undo stay.
TEST_F(Limits, APasteOverASelectionThatWouldOverflowChangesNothing) {
    const struct {
        const char* name;
        Pos from, to;
        size_t pasted;
    } rows[] = {
        {"over a line end, onto the long line", makePos(1, 0), makePos(5, 1), 40},
        {"over a line end, from the long line", makePos(3189, 1), makePos(1, 2), 12},
        {"inside a line", makePos(1, 2), makePos(2, 2), 3200},
    };
    const std::string original = "ab\n" + std::string(3190, 'x') + "\ncd\nef";
    for (const auto& row : rows) {
        fill(doc, original);
        setBookmark(doc, 2, true);
        select(row.from, row.to);
        shell_.clip = ClipboardData{std::string(row.pasted, 'y')};
        EXPECT_EQ(run("Paste"), 0) << row.name;
        EXPECT_TRUE(text() == original) << row.name;
        EXPECT_EQ(here(), str(row.to)) << row.name;
        EXPECT_EQ(doc.lines.currentIndex, row.to.line) << row.name;
        EXPECT_TRUE(isBookmarked(doc, 2)) << row.name;
        EXPECT_FALSE(doc.modified) << row.name;
        EXPECT_EQ(undoDepth(), 0u) << row.name;
    }
}

TEST_F(Limits, UndoKeepsTheLatest384Records) {
    options().undoLevels = kMaxUndoRecords;
    const int edits = kMaxUndoRecords + 10;
    for (int i = 0; i < edits; ++i) {
        type("x");
        run("NullCmd");
    }
    EXPECT_EQ(undoDepth(), static_cast<size_t>(kMaxUndoRecords));
    for (int i = 0; i < edits; ++i) run("Undo");
    EXPECT_EQ(text(), std::string(edits - kMaxUndoRecords, 'x'));
}

TEST_F(Limits, SavedCursorPositionsKeepTheLatest) {
    fill(doc, numberedLines(19));
    for (int32_t l = 0; l < 19; ++l) {
        moveTo(0, l);
        run("SaveCursorPos");
    }
    std::vector<int32_t> back;
    while (run("RestoreCursorPos")) back.push_back(doc.cursor.line);
    ASSERT_EQ(back.size(), kCursorStackDepth);
    EXPECT_EQ(back.front(), 18);
    EXPECT_EQ(back.back(), static_cast<int32_t>(19 - kCursorStackDepth));
}

// Pasted, undone and redone, then walked by the moves that jump far.
TEST_F(Limits, AMillionLines) {
    constexpr int kLines = 1000000;
    fill(doc, "end");
    shell_.clip.text = numberedLines(kLines);
    run("Paste");
    ASSERT_EQ(doc.lines.count(), kLines + 1);
    EXPECT_EQ(lineText(doc, 123455), "line 123456");
    EXPECT_EQ(lineText(doc, kLines), "end");
    run("Undo");
    EXPECT_EQ(text(), "end");
    run("Redo");
    ASSERT_EQ(doc.lines.count(), kLines + 1);
    EXPECT_EQ(doc.cursor, makePos(0, kLines));

    run("GoToLineNum", kLines);
    EXPECT_EQ(doc.lines.currentIndex, kLines - 1);
    EXPECT_EQ(doc.lines.text(doc.lines.current), "line 1000000");
    run("TextStart");
    run("ParaDown");  // one paragraph down to the end of the text
    EXPECT_EQ(here(), "3,1000000");
    run("CursorUp");
    EXPECT_EQ(doc.lines.text(doc.lines.current), "line 1000000");
    run("GoToLineNum", 2);
    EXPECT_EQ(doc.lines.text(doc.lines.current), "line 2");
}

}  // namespace
}  // namespace zol::test
