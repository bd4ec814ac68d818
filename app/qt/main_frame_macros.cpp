// TMainFrame: scripts the user runs and the user's macro menu: the script dialog, the
// script wizard, the macro menu's items after the Macros menu's own, and running what
// an item names.
#include <QAction>
#include <QMenu>

#include "app/qt/dialogs/macro_menu_dialogs.h"
#include "app/qt/dialogs/script_dialog.h"
#include "app/qt/dialogs/wizard_dialog.h"
#include "app/qt/main_frame.h"
#include "app/qt/qt_shell.h"
#include "files/messages.h"
#include "platform/paths.h"
#include "script/macro_menu.h"
#include "script/macros.h"
#include "script/run_script.h"
#include "script/script_choice.h"
#include "script/script_messages.h"

namespace zol {

void TMainFrame::runExecScript() {
    TScriptDialog::Choice choice;
    switch (TScriptDialog::run(this, choice)) {
    case TScriptDialog::Outcome::Run: runUserScript(choice.path, choice.args); break;
    case TScriptDialog::Outcome::Wizard: scriptWizard(); break;
    case TScriptDialog::Outcome::Cancel: break;
    }
}

void TMainFrame::runUserScript(const std::string& path, const std::vector<std::string>& args) {
    if (const std::string problem = scriptPathProblem(path); !problem.empty()) {
        shell_->message(problem);
        return;
    }
    if (runScript(path, args, fileNamePart(path), ScriptStarter::User).refused)
        showMessage(QString::fromLatin1(scriptmsg::kScriptRunning));
    syncViews();
    redrawViews();
}

void TMainFrame::scriptWizard() {
    const std::string path = TScriptWizard::run(this);
    if (!path.empty()) openFile(path);
}

void TMainFrame::customizeMacroMenu() {
    TMacroMenuDlg::run(this);
    rebuildMacroMenu();
}

void TMainFrame::rebuildMacroMenu() {
    QMenu* m = menu("Macros");
    if (!m) return;
    // Later: an item's own run may still be on the stack.
    for (QAction* a : macroMenuItems_) {
        m->removeAction(a);
        a->deleteLater();
    }
    macroMenuItems_.clear();
    const MacroMenu& list = macroMenu();
    if (list.items.empty()) return;
    macroMenuItems_.append(m->addSeparator());
    const bool haveDocument = activeView() != nullptr;
    for (size_t i = 0; i < list.items.size(); ++i) {
        const MacroMenuItem& item = list.items[i];
        QAction* a = m->addAction(fromAnsi(macroMenuLabel(list, i)));
        a->setProperty(kMacroMenuItemProperty, static_cast<qulonglong>(i));
        a->setStatusTip(fromAnsi(item.description));
        a->setEnabled(item.script || haveDocument);  // a keystroke macro plays in a document
        connect(a, &QAction::triggered, this, [this, i] { runMacroMenuItem(i); });
        macroMenuItems_.append(a);
    }
}

void TMainFrame::runMacroMenuItem(size_t index) {
    if (index >= macroMenu().items.size()) return;
    const MacroMenuItem item = macroMenu().items[index];
    if (item.script) {
        const ScriptCommand command = scriptCommandOf(item.cmdLine);
        runUserScript(command.path, command.args);
        return;
    }
    const uint16_t id = findMacro(item.cmdLine);
    if (id == 0) {
        shell_->message(filemsg::withFileName(macromsg::kNoSuchMacro, item.cmdLine));
        return;
    }
    runOnActive(id);
}

}  // namespace zol
