// "VEK C Script" (ExecScript): the user picks a script below the home's "script/"
// folder (the scripts run last first), gives its arguments and runs it, or goes on to
// the script wizard.
#pragma once
#include <QDialog>
#include <string>
#include <vector>

class QComboBox;
class QLineEdit;
class QTreeWidget;

namespace zol {

class TScriptDialog : public QDialog {
    Q_OBJECT
public:
    enum class Outcome { Cancel = QDialog::Rejected, Run = QDialog::Accepted, Wizard };
    struct Choice {
        std::string path;  // an existing file
        std::vector<std::string> args;
    };

    explicit TScriptDialog(QWidget* parent);
    // Run only with a script that exists: a missing file or a folder is refused with a
    // message and the dialog stays open with what the user typed.
    static Outcome run(QWidget* parent, Choice& choice);

private:
    void fillScripts();
    void browse();
    void tryRun();

    Choice choice_;
    QComboBox* script_;
    QLineEdit* arguments_;
    QTreeWidget* scripts_;
};

}  // namespace zol
