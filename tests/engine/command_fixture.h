// Running editor commands on a document through the executor, with the fake shell
// and recording windows.
#pragma once
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/command_table.h"
#include "engine/executor.h"
#include "engine/options.h"
#include "engine/shell.h"
#include "tests/support/documents.h"
#include "tests/support/fake_shell.h"

namespace zol::test {

class RecordingView final : public EditorView {
public:
    bool preCommand(uint16_t id, uint32_t param, uint32_t) override {
        seen.push_back({id, param});
        return swallow;
    }
    void readOnlyNotify() override { ++readOnlyNotes; }
    std::vector<std::pair<uint16_t, uint32_t>> seen;
    bool swallow = false;
    int readOnlyNotes = 0;
};

class FakeEditorView : public EditorView {
public:
    int pageLines() const override { return page; }
    int32_t firstVisibleLine() const override { return first; }
    void setFirstVisibleLine(int32_t line) override { first = line; }
    void redraw() override { ++redraws; }
    void refreshStatus() override { ++statusRefreshes; }

    int page = 10;
    int32_t first = 0;
    int redraws = 0;
    int statusRefreshes = 0;
};

class CommandTest : public ::testing::Test {
protected:
    void SetUp() override {
        options() = EditOptions{};
        setShell(&shell_);
    }
    void TearDown() override {
        setShell(nullptr);
        options() = EditOptions{};
    }

    int run(std::string_view name, uint32_t param = 0) {
        const uint16_t id = commandId(name, false);
        EXPECT_NE(id, 0) << name;
        return execute(doc, id, param);
    }
    void type(std::string_view text) {
        for (char c : text) run("InsertChar", static_cast<unsigned char>(c));
    }
    // Places the cursor from outside, as a click or Zol_SetCursorPos does.
    void moveTo(int col, int32_t line) {
        setCursor(doc, makePos(col, line));
        doc.lastCmd = 0;
    }
    void select(Pos anchor, Pos end, SelMode mode = SelMode::Char) {
        doc.selExists = true;
        doc.selMode = mode;
        doc.selAnchor = anchor;
        doc.selEnd = end;
        setCursor(doc, end);
        doc.lastCmd = 0;
    }
    std::string here() const { return str(doc.cursor); }
    std::string text() const { return textOf(doc); }
    size_t undoDepth() const { return doc.undo.undo.size(); }

    Document doc;
    FakeShell shell_;
};

}  // namespace zol::test
