// TSpellingDlg: the "Spelling" dialog. It walks a spelling session in slices on the
// window thread, so that the editor repaints and Close stops a long walk, and shows
// each word the checker does not know, selected in its document.
#pragma once
#include <QDialog>
#include <QTimer>

#include "proofing/spell_session.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace zol {

class TVekWinEditor;

class TSpellingDlg : public QDialog {
    Q_OBJECT
public:
    TSpellingDlg(QWidget* parent, SpellSession& session);
    // Runs the session to its end or until the user closes the dialog.
    static void run(QWidget* parent, SpellSession& session);
    // Reaching the end told the user so (the dialog closed by itself).
    bool completed() const { return completed_; }

private:
    void searchOn();
    void showWord();
    void answered();
    void changeWord(bool all);
    void enableAnswers(bool on);
    void keepClearOf(TVekWinEditor* view);

    SpellSession& session_;
    Misspelling current_;
    bool completed_ = false;
    QTimer slice_;
    QLabel *context_, *status_;
    QLineEdit* changeTo_;
    QListWidget* suggestions_;
    QPushButton *ignore_, *ignoreAll_, *change_, *changeAll_, *add_;
};

}  // namespace zol
