// A keystroke macro from key presses to another session: record it with the shipped
// keys, save the key file, start again and play it in another document.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "app/application.h"
#include "app/headless_shell.h"
#include "config/keyfile.h"
#include "config/keymap.h"
#include "engine/executor.h"
#include "platform/tempfile.h"
#include "script/macros.h"
#include "tests/support/documents.h"

namespace zol {
namespace {

// One thing the user does while recording: press keys ("Ctrl+K B"), type text, or
// run a command directly with a string parameter passed first as Param1 characters
// (the form a search step takes: {Command, "FindParam", "needle"}).
struct Action {
    enum Kind { Keys, Type, Command } kind;
    const char* what;
    const char* text = "";
};

void perform(Document& doc, const Action& a) {
    uint16_t pending = 0;
    switch (a.kind) {
        case Action::Keys:
            for (std::string_view keys = a.what; !keys.empty();) {
                const size_t blank = std::min(keys.find(' '), keys.size());
                const uint16_t cmd = keyCommand(keyMap(), doc, parseKeyName(keys.substr(0, blank)), pending);
                if (cmd) execute(doc, cmd);
                keys.remove_prefix(std::min(blank + 1, keys.size()));
            }
            break;
        case Action::Type:
            for (char c : std::string_view(a.what)) {
                const uint16_t cmd = keyCommand(keyMap(), doc, static_cast<unsigned char>(c), pending);
                execute(doc, cmd, static_cast<unsigned char>(c));
            }
            break;
        case Action::Command:
            for (char c : std::string_view(a.text)) execute(doc, commandId("Param1", false), static_cast<unsigned char>(c));
            execute(doc, commandId(a.what, false));
            break;
    }
}

class MacroSession : public ::testing::Test {
protected:
    void SetUp() override {
        home = createTempDir("zolmacro");
        ASSERT_FALSE(home.empty());
        out = std::tmpfile();
        shell = std::make_unique<HeadlessShell>(out);
        setShell(shell.get());
    }
    void TearDown() override {
        setShell(nullptr);
        std::fclose(out);
        std::error_code ec;
        std::filesystem::remove_all(home, ec);
    }

    std::string home;
    std::FILE* out = nullptr;
    std::unique_ptr<HeadlessShell> shell;
};

TEST_F(MacroSession, RecordedMacroPlaysInTheNextSession) {
    const Action session[] = {
        {Action::Keys, "Ctrl+Shift+R"},
        {Action::Command, "FindParam", "t"},  // the next line holding a "t"
        {Action::Keys, "End"},
        {Action::Type, " // done"},
        {Action::Keys, "Home"},
        {Action::Type, "> "},
        {Action::Keys, "Ctrl+K B"},
        {Action::Keys, "Shift+End"},
        {Action::Keys, "Ctrl+K H"},
        {Action::Command, "CursorDown"},
        {Action::Keys, "Ctrl+Shift+E"},
    };
    {
        Application app;
        startUp(app, StartupOptions{home, {}, {}});
        Document* doc = newDocument(app);
        test::fill(*doc, "zero\nfirst");
        for (const Action& a : session) perform(*doc, a);
        EXPECT_EQ(test::textOf(*doc), "zero\n> first // done");
        ASSERT_NE(findMacro("Macro1"), 0);
        EXPECT_TRUE(saveKeyFile());

        // Not saved: the headless shell says no to saving key-map changes.
        perform(*doc, {Action::Keys, "Ctrl+Shift+R"});
        perform(*doc, {Action::Type, "lost"});
        perform(*doc, {Action::Keys, "Ctrl+Shift+E"});
        ASSERT_NE(findMacro("Macro2"), 0);
        shutDown(app);
    }
    EXPECT_TRUE(std::filesystem::exists(home + "DEFKEY.ZOL"));

    const std::string other = home + "other.txt";
    std::ofstream(other, std::ios::binary) << "alpha\nbeta\n";
    Application app;
    startUp(app, StartupOptions{home, {other}, {}});
    ASSERT_NE(app.active, nullptr);
    EXPECT_EQ(executeMacro(app.active, "Macro2"), 0);
    EXPECT_EQ(executeMacro(app.active, "Macro1"), 1);
    EXPECT_EQ(test::textOf(*app.active), "alpha\n> beta // done\n");
    EXPECT_EQ(app.active->cursor.line, 2);
    shutDown(app);
}

}  // namespace
}  // namespace zol
