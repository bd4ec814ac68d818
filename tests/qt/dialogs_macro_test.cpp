#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTextBlock>

#include "app/qt/dialogs/macro_dialogs.h"
#include "config/keymap.h"
#include "engine/executor.h"
#include "script/macro_text.h"
#include "script/macros.h"
#include "tests/qt/dialogs_support.h"

namespace zol::qttest {
namespace {

class MacroDialogTest : public ::testing::Test {
protected:
    void SetUp() override {
        dlgtest::ensureApp();
        saved_ = macros();
        savedChanged_ = keyMapChanged();
        setKeyMapChanged(false);
        macros() = MacroTable{};
        id_ = addMacro(macros(), Macro{true, "typeab", "", {{2, 'a'}, {2, 'b'}}});
        ASSERT_NE(id_, 0);
    }
    void TearDown() override {
        macros() = saved_;
        setKeyMapChanged(savedChanged_);
    }
    const std::vector<MacroStep>& steps() { return macroById(macros(), id_)->steps; }

    MacroTable saved_;
    bool savedChanged_ = false;
    uint16_t id_ = 0;
    dlgtest::RecordingShell shell_;
};

TEST_F(MacroDialogTest, EditShowsTheTextFormAndCompilesTheChange) {
    whenModal<TMacroEditDialog>([](TMacroEditDialog* d) {
        auto* text = d->findChild<QPlainTextEdit*>("text");
        EXPECT_EQ(text->toPlainText(), "InsertText \"ab\"\n");
        text->setPlainText("InsertText \"x\\ty\"\nNewLine\n");
        d->reject();  // closing by Escape asks just the same
    });
    EXPECT_TRUE(TMacroEditDialog::run(nullptr, id_));
    ASSERT_EQ(shell_.questions.size(), 1u);
    EXPECT_EQ(shell_.questions[0], "Macro has changed. Compile?");
    const uint16_t newLine = commandId("NewLine", false);
    EXPECT_EQ(steps(), (std::vector<MacroStep>{{2, 'x'}, {2, '\t'}, {2, 'y'}, {newLine, 0}}));
    EXPECT_TRUE(keyMapChanged());  // the key file holds the macros: it must be saved
    // Unchanged text closes without asking.
    whenModal<TMacroEditDialog>([](TMacroEditDialog* d) { d->reject(); });
    EXPECT_FALSE(TMacroEditDialog::run(nullptr, id_));
    EXPECT_EQ(shell_.questions.size(), 1u);
}

TEST_F(MacroDialogTest, BadLineKeepsTheMacroAndTheUsersText) {
    const std::vector<MacroStep> before = steps();
    whenModal<TMacroEditDialog>([](TMacroEditDialog* d) {
        auto* text = d->findChild<QPlainTextEdit*>("text");
        text->setPlainText("InsertText \"xy\"\nNoSuchCommand\nNewLine\n");
        d->reject();
        // Still open, on the bad line, with the text as typed.
        EXPECT_TRUE(d->isVisible());
        EXPECT_EQ(text->textCursor().blockNumber(), 1);
        EXPECT_EQ(text->toPlainText(), "InsertText \"xy\"\nNoSuchCommand\nNewLine\n");
        // Declining to compile then closes without touching the macro.
        static_cast<dlgtest::RecordingShell&>(shell()).answer = Answer::No;
        d->reject();
    });
    EXPECT_FALSE(TMacroEditDialog::run(nullptr, id_));
    ASSERT_FALSE(shell_.messages.empty());
    EXPECT_EQ(shell_.messages[0].rfind("Line 2: ", 0), 0u) << shell_.messages[0];
    EXPECT_EQ(steps(), before);
    EXPECT_FALSE(keyMapChanged());
}

TEST_F(MacroDialogTest, ListCreatesAndRenamesAndRefusesATakenName) {
    whenModal<TMacroDialog>([](TMacroDialog* d) {
        auto* list = d->findChild<QListWidget*>("macros");
        EXPECT_EQ(list->count(), 1);
        // Without a document nothing can run.
        EXPECT_FALSE(d->findChild<QPushButton*>("run")->isEnabled());
        whenModal<TMacroNameDialog>([](TMacroNameDialog* n) {
            QTest::keyClicks(n->findChild<QLineEdit*>("name"), "second");
            QTest::keyClicks(n->findChild<QLineEdit*>("description"), "does little");
            dlgtest::pressOk(n);
        });
        d->findChild<QPushButton*>("new")->click();
        EXPECT_EQ(list->count(), 2);
        EXPECT_EQ(list->currentItem()->text(), "second");
        // Renaming "second" to the first macro's name is refused, then cancelled.
        whenModal<TMacroNameDialog>([](TMacroNameDialog* n) {
            auto* name = n->findChild<QLineEdit*>("name");
            name->setText("typeab");
            whenModal<QMessageBox>([](QMessageBox* box) { box->accept(); });
            dlgtest::pressOk(n);
            EXPECT_TRUE(n->isVisible());
            n->reject();
        });
        d->findChild<QPushButton*>("rename")->click();
        d->reject();
    });
    TMacroDialog::run(nullptr, nullptr);
    const uint16_t second = findMacro("second");
    ASSERT_NE(second, 0);
    EXPECT_EQ(macroById(macros(), second)->description, "does little");
    EXPECT_TRUE(macroById(macros(), second)->steps.empty());
    EXPECT_EQ(findMacro("typeab"), id_);
    EXPECT_TRUE(keyMapChanged());
}

}  // namespace
}  // namespace zol::qttest
