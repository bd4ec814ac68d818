#include <gtest/gtest.h>

#include "tests/engine/command_fixture.h"

namespace zol {
namespace {

using test::fill;

class UndoRedo : public test::CommandTest {
protected:
    std::string label() const { return undoLabel(doc.undo); }
};

TEST_F(UndoRedo, ATypedRunIsOneUndoUntilAnotherCommand) {
    type("abc");
    EXPECT_EQ(undoDepth(), 1u);
    EXPECT_EQ(label(), "&Undo Typing");
    run("Undo");
    EXPECT_EQ(text(), "");
    EXPECT_EQ(doc.cursor, makePos(0, 0));
    EXPECT_EQ(label(), "Can't &Undo");

    type("ab");
    run("NullCmd");  // any other command in between
    type("c");
    EXPECT_EQ(undoDepth(), 2u);
    run("Undo");
    EXPECT_EQ(text(), "ab");
    run("Undo");
    EXPECT_EQ(text(), "");
}

TEST_F(UndoRedo, BackspaceRunKeepsTheTextInDocumentOrder) {
    options().autoUnindent = false;
    fill(doc, "-xyz-");
    moveTo(4, 0);
    for (int i = 0; i < 3; ++i) run("Backspace");
    EXPECT_EQ(text(), "--");
    ASSERT_EQ(undoDepth(), 1u);
    EXPECT_EQ(*doc.undo.undo.back().text, "xyz");
    EXPECT_EQ(label(), "&Undo Deleting");
    run("Undo");
    EXPECT_EQ(text(), "-xyz-");
}

TEST_F(UndoRedo, BackspaceRunAcrossLinesAndIndents) {
    fill(doc, "  a\n      b");
    moveTo(6, 1);
    for (int i = 0; i < 4; ++i) run("Backspace");  // unindent to 2, to 0, join, delete "a"
    EXPECT_EQ(text(), "  b");
    EXPECT_EQ(undoDepth(), 1u);
    run("Undo");
    EXPECT_EQ(text(), "  a\n      b");
}

TEST_F(UndoRedo, UndoLevelsBoundTheStack) {
    options().undoLevels = 3;
    for (char c : std::string("12345")) {
        type(std::string(1, c));
        run("NullCmd");
    }
    EXPECT_EQ(undoDepth(), 3u);
    for (int i = 0; i < 5; ++i) run("Undo");
    EXPECT_EQ(text(), "12");
}

TEST_F(UndoRedo, AnEditAfterUndoEmptiesTheRedoStack) {
    type("ab");
    run("Undo");
    type("c");
    EXPECT_EQ(run("Redo"), 0);
    EXPECT_EQ(text(), "c");
    EXPECT_TRUE(doc.undo.redo.empty());
}

TEST_F(UndoRedo, UndoUndoRedoRedoRestoresBothEdits) {
    fill(doc, "base");
    moveTo(4, 0);
    type("12");
    run("NewLine");
    type("x");
    const std::string after = text();
    EXPECT_EQ(after, "base12\nx");
    run("Undo");
    run("Undo");
    run("Undo");
    EXPECT_EQ(text(), "base");
    EXPECT_EQ(doc.undo.redo.size(), 3u);
    run("Redo");
    run("Redo");
    run("Redo");
    EXPECT_EQ(text(), after);
    EXPECT_EQ(label(), "&Undo Redo");
    EXPECT_EQ(run("Redo"), 0);
    run("Undo");
    EXPECT_EQ(text(), "base12\n");
}

// Scripts and plug-ins edit through the primitives directly, leaving the executor's
// last-command id as the previous command set it.
TEST_F(UndoRedo, AnEditOutsideTheExecutorAfterUndoOrRedoIsUndoable) {
    type("a");
    run("Undo");
    insertText(doc, "b");
    EXPECT_EQ(text(), "b");
    EXPECT_EQ(undoDepth(), 1u);
    EXPECT_TRUE(doc.undo.redo.empty());
    run("Undo");
    EXPECT_EQ(text(), "");

    type("a");
    run("NullCmd");
    type("b");
    run("Undo");
    run("Undo");
    run("Redo");
    EXPECT_EQ(text(), "a");
    insertText(doc, "X");
    EXPECT_EQ(run("Redo"), 0);
    EXPECT_EQ(text(), "aX");
    run("Undo");
    EXPECT_EQ(text(), "a");
}

}  // namespace
}  // namespace zol
