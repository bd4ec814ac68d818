// Changes that do not come through the executor: a cursor placed by a click or by the
// interface, edits that scripts and plug-ins make through the primitives, and the
// selection helpers they call.
#include <gtest/gtest.h>

#include "engine/edit.h"
#include "engine/selection.h"
#include "tests/engine/command_fixture.h"

namespace zol::test {
namespace {

class Outside : public CommandTest {
protected:
    // "begin-end" of the selection in document order, or "none".
    std::string selection() const {
        Pos b, e;
        return selectionRange(doc, b, e) ? str(b) + "-" + str(e) : "none";
    }
};

TEST_F(Outside, APlacedCursorEndsTheMarkedRange) {
    fill(doc, "abcdef\nghijkl");
    moveTo(2, 0);
    run("StartSelect");
    moveTo(4, 1);
    run("EndSelect");
    EXPECT_EQ(selection(), "2,0-4,1");
    EXPECT_FALSE(doc.selecting);
}

// The executor's last-command id stays as the command before left it.
TEST_F(Outside, AnEditAfterUndoOrRedoIsUndoable) {
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

TEST_F(Outside, SelectionEndsAreClampedToTheText) {
    fill(doc, "ab\ncd");
    setSelection(doc, makePos(-3, -1), makePos(9000, 7));
    EXPECT_EQ(selection(), "0,0-3200,1");
    clearSelection(doc);
    EXPECT_EQ(selection(), "none");
    Pos b, e;
    moveTo(1, 1);
    EXPECT_FALSE(selectionRange(doc, b, e));
    EXPECT_EQ(str(b), "1,1");
}

TEST_F(Outside, AReadOnlyDocumentKeepsItsSelectedText) {
    fill(doc, "one two");
    doc.readOnly = true;
    setSelection(doc, makePos(0, 0), makePos(3, 0));
    EXPECT_FALSE(deleteSelection(doc));
    EXPECT_TRUE(doc.selExists);
    EXPECT_EQ(text(), "one two");
}

}  // namespace
}  // namespace zol::test
