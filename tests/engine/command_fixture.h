// Running editor commands on a document through the executor, with a recording
// shell and window.
#pragma once
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "engine/executor.h"
#include "engine/options.h"
#include "engine/shell.h"
#include "tests/engine/doc_helpers.h"

namespace zol::test {

class RecordingShell final : public Shell {
public:
    void message(std::string_view text) override { messages.emplace_back(text); }
    Answer ask(std::string_view, bool withCancel) override { return withCancel ? Answer::Cancel : Answer::No; }
    void statusMessage(std::string_view text) override { status.emplace_back(text); }
    ClipboardData getClipboard() override { return clip; }
    void setClipboard(const ClipboardData& data) override { clip = data; }

    std::vector<std::string> messages, status;
    ClipboardData clip;
};

class RecordingView final : public EditorView {
public:
    void readOnlyNotify() override { ++readOnlyNotes; }
    int readOnlyNotes = 0;
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
    std::string text() const { return textOf(doc); }
    size_t undoDepth() const { return doc.undo.undo.size(); }

    Document doc;
    RecordingShell shell_;
};

}  // namespace zol::test
