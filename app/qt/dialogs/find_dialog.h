// The Find and Replace dialogs and the pattern builder they open.
#pragma once
#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>
#include <cstddef>

#include "engine/shell.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace zol {

// Puts piece `index` of dlgmsg::kPatternPieces at the caret of edit (over its
// selection, if any) and places the caret where the piece wants it.
void insertPatternPiece(QLineEdit* edit, int index);

// The pattern builder: one button per piece; a click inserts it into the target and
// closes the builder.
class TRegExprDialog : public QDialog {
    Q_OBJECT
public:
    TRegExprDialog(QWidget* parent, QLineEdit* target);
    // False when closed without choosing a piece.
    static bool run(QWidget* parent, QLineEdit* target);
};

class TFindDialog : public QDialog {
    Q_OBJECT
public:
    TFindDialog(QWidget* parent, const FindDialogData& data, bool replace);
    // Fills the dialog from data; unless cancelled writes the choices back and puts
    // the texts into the search histories.
    static FindDialogResult run(QWidget* parent, FindDialogData& data, bool replace);

private:
    void finish(FindDialogResult result);
    void updateButtons();

    bool replace_;
    FindDialogResult result_ = FindDialogResult::Cancel;
    FindDialogData data_;
    QComboBox* findText_;
    QComboBox* replaceText_ = nullptr;
    QCheckBox* wholeWord_;
    QCheckBox* matchCase_;
    QCheckBox* regex_;
    QCheckBox* inSelection_ = nullptr;
    QCheckBox* confirm_ = nullptr;
    QRadioButton* up_;
    QRadioButton* down_;
    QPushButton* findButton_;
    QPushButton* replaceButton_ = nullptr;
    QPushButton* replaceAllButton_ = nullptr;
};

// The buttons of a question dialog: each closes it with its answer.
template <class A>
struct AnswerButton {
    const char* text;
    const char* name;
    A answer;
};
// A row of answer buttons, the first the default; a click stores its answer in chosen.
template <class A, size_t N>
QHBoxLayout* answerRow(QDialog* dlg, const AnswerButton<A> (&buttons)[N], A& chosen) {
    auto* row = new QHBoxLayout;
    for (const AnswerButton<A>& b : buttons) {
        auto* button = new QPushButton(b.text, dlg);
        button->setObjectName(b.name);
        button->setDefault(&b == &buttons[0]);
        row->addWidget(button);
        QObject::connect(button, &QPushButton::clicked, dlg, [dlg, &chosen, a = b.answer] {
            chosen = a;
            dlg->accept();
        });
    }
    return row;
}

// "ReplacePrompt": Yes, No, All or Cancel for the hit that is selected in the editor.
class TReplacePromptDlg : public QDialog {
    Q_OBJECT
public:
    explicit TReplacePromptDlg(QWidget* parent);
    // Escape and closing the window answer Cancel.
    static ReplacePromptAnswer run(QWidget* parent);

private:
    ReplacePromptAnswer answer_ = ReplacePromptAnswer::Cancel;
};

}  // namespace zol
