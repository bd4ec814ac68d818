// Shared set-up of the movement, selection and mode command tests: a document, a
// window fake, commands run by name, and the global options restored afterwards.
#pragma once
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "engine/command_table.h"
#include "engine/executor.h"
#include "engine/options.h"
#include "engine/shell.h"
#include "tests/engine/doc_helpers.h"

namespace zol::test {

// "col,line", so that failures print positions readably.
inline std::string str(Pos p) { return std::to_string(p.col) + "," + std::to_string(p.line); }

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

class CursorFixture : public ::testing::Test {
protected:
    void TearDown() override { options() = saved_; }

    int run(std::string_view name, uint32_t param = 0) {
        const CommandRecord* rec = findCommand(name);
        EXPECT_NE(rec, nullptr) << name;
        return rec ? execute(doc, rec->id, param) : 0;
    }
    // Places the cursor as a mouse click or the interface would: no command history.
    void at(int col, int32_t line) {
        setCursor(doc, makePos(col, line));
        doc.lastCmd = 0;
    }
    std::string here() const { return str(doc.cursor); }

    Document doc;

private:
    EditOptions saved_ = options();
};

}  // namespace zol::test
