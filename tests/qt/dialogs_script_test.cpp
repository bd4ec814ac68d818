// Scripts in the desktop: the "VEK C Script" dialog and its history, the user's macro
// menu with its dialogs, and the script wizard writing into the home. Every step on a
// dialog closes it whatever it found, so that a failure cannot leave a test waiting.
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QRadioButton>
#include <QTreeWidget>
#include <QWizard>
#include <filesystem>

#include "app/qt/dialogs/macro_menu_dialogs.h"
#include "app/qt/dialogs/script_dialog.h"
#include "app/qt/dialogs/wizard_dialog.h"
#include "config/settings.h"
#include "engine/command_table.h"
#include "platform/paths.h"
#include "platform/profile.h"
#include "script/macro_menu.h"
#include "script/macros.h"
#include "qt_fixture.h"

namespace zol::qttest {
namespace {

// Puts each of its arguments into the active document, followed by "|".
constexpr char kMarkScript[] =
    "#include <editor/doc.h>\n"
    "int main(int argc, char *argv[])\n{\n   int i;\n"
    "   for (i = 1; i < argc; i++) { Zol_InsertText(Zol_GetActiveDocument(), argv[i]); "
    "Zol_InsertText(Zol_GetActiveDocument(), \"|\"); }\n"
    "   return 0;\n}\n";

class ScriptDesktopTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        savedMacros_ = macros();
        tmp_.put("script/mark.c", kMarkScript);
    }
    void TearDown() override {
        DesktopTest::TearDown();
        macros() = savedMacros_;
    }

    // The Macros menu's item with this text, as the user sees the menu.
    QAction* macroMenuItem(const QString& text) {
        QMenu* m = frame_->menu("Macros");
        Q_EMIT m->aboutToShow();
        for (QAction* a : m->actions())
            if (a->property(TMainFrame::kMacroMenuItemProperty).isValid() && a->text() == text) return a;
        return nullptr;
    }

    std::string iniValue(const std::string& key) {
        flushProfileCache();
        return getProfileString(kMacroMenuSection, key, "", kSettingsFile);
    }

    // Scripts may be handed to another thread of work: wait for the edit to show.
    bool textBecomes(const std::string& want) {
        return QTest::qWaitFor([&] { return line(0) == want; }, 3000);
    }

    MacroTable savedMacros_;
};

TEST_F(ScriptDesktopTest, TheDialogRunsAScriptAndOffersItFirstNextTime) {
    open("a.txt", "text\n");
    whenModal<TScriptDialog>([this](TScriptDialog* d) {
        auto* script = child<QComboBox>(d, "script");
        EXPECT_EQ(script->count(), 0) << "nothing run yet";
        auto* tree = child<QTreeWidget>(d, "scripts");
        // The shipped starter scripts and the test's own; include/ holds no scripts.
        QStringList shown;
        for (int i = 0; i < tree->topLevelItemCount(); ++i) shown << tree->topLevelItem(i)->text(0);
        EXPECT_TRUE(shown.contains("mark.c")) << shown.join(",").toStdString();
        EXPECT_FALSE(shown.contains("include")) << "only folders that hold scripts";
        // A folder and a missing file are refused; the dialog keeps what was typed.
        for (const char* bad : {"include", "nosuch"}) {
            script->setEditText(bad);
            child<QPushButton>(d, "run")->click();
            EXPECT_TRUE(d->isVisible()) << bad;
            EXPECT_EQ(script->currentText(), bad);
        }
        script->setEditText("mark");
        child<QLineEdit>(d, "arguments")->setText("one 'two words'");
        child<QPushButton>(d, "run")->click();
    });
    frame_->runOnActive(idOf(Cmd::ExecScript));
    ASSERT_EQ(boxTexts_.size(), 2u);
    EXPECT_NE(boxTexts_[0].find("is a folder, not a script"), std::string::npos) << boxTexts_[0];
    EXPECT_NE(boxTexts_[1].find("Cannot find the script"), std::string::npos) << boxTexts_[1];
    EXPECT_TRUE(textBecomes("one|two words|text"));
    whenModal<TScriptDialog>([](TScriptDialog* d) {
        EXPECT_EQ(child<QComboBox>(d, "script")->currentText(), "mark.c");
        d->reject();
    });
    frame_->runOnActive(idOf(Cmd::ExecScript));
}

// Fills the Add Macro dialog and presses OK.
void fillItem(TMacroMenuAddDlg* d, bool script, const char* cmdLine, const char* text) {
    child<QRadioButton>(d, script ? "script" : "macro")->setChecked(true);
    child<QLineEdit>(d, "cmdLine")->setText(cmdLine);
    child<QLineEdit>(d, "menuText")->setText(text);
    dlgtest::pressOk(d);
}

TEST_F(ScriptDesktopTest, MacroMenuItemsAreAddedRunAndRemoved) {
    open("b.txt", "x\n");
    ASSERT_NE(addMacro(macros(), Macro{true, "typeab", "", {{2, 'a'}, {2, 'b'}}}), 0);
    const size_t firstRun = macroMenu().items.size();

    whenModal<TMacroMenuDlg>([](TMacroMenuDlg* d) {
        whenModal<TMacroMenuAddDlg>([](TMacroMenuAddDlg* add) {
            fillItem(add, true, "nosuch", "&Gone");  // refused: no such script
            EXPECT_TRUE(add->isVisible());
            fillItem(add, true, "mark 'x y'", "&Mark");
        });
        child<QPushButton>(d, "add")->click();
        whenModal<TMacroMenuAddDlg>([](TMacroMenuAddDlg* add) { fillItem(add, false, "typeab", "&Type ab"); });
        child<QPushButton>(d, "add")->click();
        dlgtest::pressOk(d);
    });
    frame_->runFrameAction("CustomizeMacroMenu");
    ASSERT_EQ(boxTexts_.size(), 1u);
    EXPECT_NE(boxTexts_[0].find("Cannot find the script"), std::string::npos) << boxTexts_[0];
    EXPECT_EQ(iniValue("CmdLine" + std::to_string(firstRun + 1)), "mark 'x y'") << "saved at once";
    EXPECT_EQ(iniValue("Script" + std::to_string(firstRun + 2)), "0");

    QAction* typeAb = macroMenuItem("&Type ab");
    ASSERT_NE(typeAb, nullptr);
    typeAb->trigger();
    EXPECT_EQ(line(0), "abx");
    QAction* mark = macroMenuItem("&Mark");
    ASSERT_NE(mark, nullptr);
    mark->trigger();
    EXPECT_TRUE(textBecomes("abx y|x"));

    whenModal<TMacroMenuDlg>([firstRun](TMacroMenuDlg* d) {
        child<QListWidget>(d, "items")->setCurrentRow(static_cast<int>(firstRun));
        child<QPushButton>(d, "remove")->click();
        dlgtest::pressOk(d);
    });
    frame_->runFrameAction("CustomizeMacroMenu");
    EXPECT_EQ(macroMenuItem("&Mark"), nullptr);
    EXPECT_NE(macroMenuItem("&Type ab"), nullptr);
    EXPECT_EQ(iniValue("MenuText" + std::to_string(firstRun + 1)), "&Type ab");
    EXPECT_EQ(iniValue("MenuText" + std::to_string(firstRun + 2)), "") << "the removed item does not come back";
}

// Walks the wizard to its last page as an editor script named name.
void toGeneratePage(TScriptWizard* w, const char* name) {
    child<QRadioButton>(w, "editor")->setChecked(true);
    w->next();
    child<QLineEdit>(w, "name")->setText(name);
    w->next();
    w->next();
    EXPECT_EQ(w->currentId(), TScriptWizard::GeneratePage);
}

TEST_F(ScriptDesktopTest, TheWizardKeepsEverythingWhenItCannotWriteAndOpensWhatItWrote) {
    namespace fs = std::filesystem;
    const fs::path folder = home_ / "script", aside = home_ / "script.aside";
    whenModal<TScriptWizard>([&](TScriptWizard* w) {
        child<QRadioButton>(w, "editor")->setChecked(true);
        w->next();
        child<QLineEdit>(w, "name")->setText("say \"hi\"");
        w->next();
        EXPECT_EQ(w->currentId(), TScriptWizard::NamePage) << "a double quote is refused";
        child<QLineEdit>(w, "name")->setText("fresh");
        w->next();
        w->next();
        // A home whose script folder cannot take a file: a plain file in its place.
        fs::rename(folder, aside);
        tmp_.put("script", "not a folder");
        w->button(QWizard::FinishButton)->click();
        EXPECT_TRUE(w->isVisible());
        EXPECT_EQ(w->currentId(), TScriptWizard::GeneratePage);
        fs::remove(folder);
        fs::rename(aside, folder);
        w->button(QWizard::FinishButton)->click();
    });
    frame_->runFrameAction("ScriptWizard");
    ASSERT_EQ(boxTexts_.size(), 2u);
    EXPECT_NE(boxTexts_[0].find("may not contain"), std::string::npos) << boxTexts_[0];
    EXPECT_NE(boxTexts_[1].find("Cannot write"), std::string::npos) << boxTexts_[1];
    ASSERT_TRUE(fs::exists(folder / "fresh.c"));
    EXPECT_TRUE(fs::exists(folder / "mark.c")) << "the folder came back whole";
    EXPECT_EQ(fullPath(doc().fileName), fullPath((folder / "fresh.c").string()));
    EXPECT_EQ(line(1), "                         fresh");

    // Finishing again under the same name asks first; No keeps the file as it is.
    tmp_.put("script/fresh.c", "mine\n");
    answer_ = QMessageBox::No;
    whenModal<TScriptWizard>([](TScriptWizard* w) {
        toGeneratePage(w, "fresh");
        w->button(QWizard::FinishButton)->click();
        EXPECT_TRUE(w->isVisible());
        w->reject();
    });
    frame_->runFrameAction("ScriptWizard");
    EXPECT_EQ(tmp_.get("script/fresh.c"), "mine\n");
}

}  // namespace
}  // namespace zol::qttest
