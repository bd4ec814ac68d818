#include <gtest/gtest.h>

#include "tests/engine/command_fixture.h"

namespace zol::test {
namespace {

class ModeCommands : public CommandTest {};

struct ModeCase {
    const char* toggle;
    const char* set;     // switches the mode to `setValue` whatever its state
    bool setValue;
    bool EditOptions::*option;
};

TEST_F(ModeCommands, ToggleFlipsAndSetForces) {
    const ModeCase cases[] = {
        {"ToggleInsert", "SetInsert", false, &EditOptions::overwrite},
        {"ToggleAutoIndent", "SetAutoIndent", true, &EditOptions::autoIndent},
        {"ToggleAutoUnindent", "SetAutoUnindent", true, &EditOptions::autoUnindent},
        {"ToggleRuler", "ShowRuler", true, &EditOptions::ruler},
        {"ToggleVisibleSpaces", "ShowVisibleSpaces", true, &EditOptions::visibleSpaces},
        {"ToggleLineNumbers", "ShowLineNumbers", true, &EditOptions::lineNumbers},
    };
    static FakeEditorView view;
    doc.view = &view;
    for (const ModeCase& c : cases) {
        bool& flag = options().*(c.option);
        const bool before = flag;
        const int redraws = view.redraws, statuses = view.statusRefreshes;
        EXPECT_EQ(run(c.toggle), 1) << c.toggle;
        EXPECT_EQ(flag, !before) << c.toggle;
        EXPECT_EQ(view.redraws, redraws + 1) << c.toggle;
        EXPECT_EQ(view.statusRefreshes, statuses + 1) << c.toggle;
        run(c.toggle);
        EXPECT_EQ(flag, before) << c.toggle;
        run(c.set);
        EXPECT_EQ(flag, c.setValue) << c.set;
        run(c.set);
        EXPECT_EQ(flag, c.setValue) << c.set;
    }
}

TEST_F(ModeCommands, WordWrapBelongsToTheDocument) {
    Document other;
    const bool global = options().wordWrap;
    run("ToggleWordWrap");
    EXPECT_TRUE(doc.wordWrap);
    EXPECT_FALSE(other.wordWrap);
    EXPECT_EQ(options().wordWrap, global);
    run("ToggleWordWrap");
    EXPECT_FALSE(doc.wordWrap);
    run("SetWordWrap");
    run("SetWordWrap");
    EXPECT_TRUE(doc.wordWrap);
}

}  // namespace
}  // namespace zol::test
