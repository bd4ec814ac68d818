#include "app/qt/dialogs/find_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <cstring>
#include <iterator>

#include "app/qt/dialogs/cp1252.h"
#include "app/qt/dialogs/messages.h"
#include "search/history.h"

namespace zol {

void insertPatternPiece(QLineEdit* edit, int index) {
    if (index < 0 || index >= static_cast<int>(std::size(dlgmsg::kPatternPieces))) return;
    const dlgmsg::PatternPiece& piece = dlgmsg::kPatternPieces[index];
    int start = edit->hasSelectedText() ? edit->selectionStart() : edit->cursorPosition();
    edit->insert(QString::fromLatin1(piece.text));
    edit->setCursorPosition(start + piece.caret);
}

TRegExprDialog::TRegExprDialog(QWidget* parent, QLineEdit* target) : QDialog(parent) {
    setWindowTitle(dlgmsg::kPatternTitle);
    auto* grid = new QGridLayout(this);
    const int count = static_cast<int>(std::size(dlgmsg::kPatternPieces));
    const int rows = (count + 1) / 2;
    for (int i = 0; i < count; ++i) {
        const dlgmsg::PatternPiece& piece = dlgmsg::kPatternPieces[i];
        auto* button = new QPushButton(QString::fromLatin1(piece.text), this);
        button->setObjectName(QStringLiteral("piece%1").arg(i));
        button->setAutoDefault(false);
        button->setToolTip(piece.label);
        button->setStyleSheet(QStringLiteral("text-align: left; font-family: monospace;"));
        grid->addWidget(button, i % rows, (i / rows) * 2);
        grid->addWidget(new QLabel(piece.label, this), i % rows, (i / rows) * 2 + 1);
        connect(button, &QPushButton::clicked, this, [this, target, i] {
            insertPatternPiece(target, i);
            accept();
        });
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    grid->addWidget(buttons, rows, 0, 1, 4);
}

bool TRegExprDialog::run(QWidget* parent, QLineEdit* target) {
    TRegExprDialog dlg(parent, target);
    return dlg.exec() == QDialog::Accepted;
}

namespace {

QComboBox* historyCombo(QWidget* parent, const char* name, const std::vector<std::string>& history,
                        const std::string& current) {
    auto* combo = new QComboBox(parent);
    combo->setObjectName(name);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setMinimumContentsLength(30);
    for (const std::string& h : history) combo->addItem(fromCp1252(h));
    combo->setEditText(fromCp1252(current));
    return combo;
}

QPushButton* actionButton(QWidget* parent, const char* text, const char* name) {
    auto* b = new QPushButton(text, parent);
    b->setObjectName(name);
    return b;
}

}  // namespace

TFindDialog::TFindDialog(QWidget* parent, const FindDialogData& data, bool replace)
    : QDialog(parent), replace_(replace), data_(data) {
    setWindowTitle(replace ? dlgmsg::kReplaceTitle : dlgmsg::kFindTitle);

    auto* fields = new QGridLayout;
    findText_ = historyCombo(this, "findText", findHistory(), data.findText);
    auto* findLabel = new QLabel(dlgmsg::kFindWhat, this);
    findLabel->setBuddy(findText_);
    auto* pattern = new QPushButton(dlgmsg::kPatternButton, this);
    pattern->setObjectName("patternButton");
    pattern->setToolTip(dlgmsg::kPatternTip);
    pattern->setAutoDefault(false);
    pattern->setFixedWidth(pattern->fontMetrics().horizontalAdvance(QStringLiteral("W>W")) + 8);
    fields->addWidget(findLabel, 0, 0);
    fields->addWidget(findText_, 0, 1);
    fields->addWidget(pattern, 0, 2);
    if (replace) {
        replaceText_ = historyCombo(this, "replaceText", replaceHistory(), data.replaceText);
        auto* replaceLabel = new QLabel(dlgmsg::kReplaceWith, this);
        replaceLabel->setBuddy(replaceText_);
        fields->addWidget(replaceLabel, 1, 0);
        fields->addWidget(replaceText_, 1, 1);
    }

    wholeWord_ = new QCheckBox(dlgmsg::kWholeWord, this);
    wholeWord_->setObjectName("wholeWord");
    wholeWord_->setChecked(data.wholeWord);
    matchCase_ = new QCheckBox(dlgmsg::kMatchCase, this);
    matchCase_->setObjectName("matchCase");
    matchCase_->setChecked(data.matchCase);
    regex_ = new QCheckBox(dlgmsg::kRegex, this);
    regex_->setObjectName("regex");
    regex_->setChecked(data.regex);
    auto* checks = new QVBoxLayout;
    checks->addWidget(wholeWord_);
    checks->addWidget(matchCase_);
    checks->addWidget(regex_);
    if (replace) {
        inSelection_ = new QCheckBox(dlgmsg::kInSelection, this);
        inSelection_->setObjectName("inSelection");
        inSelection_->setChecked(data.inSelection);
        confirm_ = new QCheckBox(dlgmsg::kConfirmEach, this);
        confirm_->setObjectName("confirm");
        confirm_->setChecked(data.prompt);
        checks->addWidget(inSelection_);
        checks->addWidget(confirm_);
    }
    checks->addStretch();

    auto* direction = new QGroupBox(dlgmsg::kDirection, this);
    up_ = new QRadioButton(dlgmsg::kUp, direction);
    up_->setObjectName("up");
    down_ = new QRadioButton(dlgmsg::kDown, direction);
    down_->setObjectName("down");
    (data.forward ? down_ : up_)->setChecked(true);
    auto* dirLayout = new QVBoxLayout(direction);
    dirLayout->addWidget(up_);
    dirLayout->addWidget(down_);

    auto* options = new QHBoxLayout;
    options->addLayout(checks);
    options->addWidget(direction, 0, Qt::AlignTop);

    auto* left = new QVBoxLayout;
    left->addLayout(fields);
    left->addLayout(options);
    left->addStretch();

    auto* buttons = new QVBoxLayout;
    findButton_ = actionButton(this, dlgmsg::kFindNext, "findButton");
    findButton_->setDefault(true);
    buttons->addWidget(findButton_);
    connect(findButton_, &QPushButton::clicked, this, [this] { finish(FindDialogResult::Find); });
    if (replace) {
        replaceButton_ = actionButton(this, dlgmsg::kReplaceOne, "replaceButton");
        replaceAllButton_ = actionButton(this, dlgmsg::kReplaceAll, "replaceAllButton");
        buttons->addWidget(replaceButton_);
        buttons->addWidget(replaceAllButton_);
        connect(replaceButton_, &QPushButton::clicked, this, [this] { finish(FindDialogResult::ReplaceOne); });
        connect(replaceAllButton_, &QPushButton::clicked, this, [this] { finish(FindDialogResult::ReplaceAll); });
    }
    auto* cancel = actionButton(this, "Cancel", "cancelButton");
    buttons->addWidget(cancel);
    buttons->addStretch();
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* top = new QHBoxLayout(this);
    top->addLayout(left);
    top->addLayout(buttons);

    connect(pattern, &QPushButton::clicked, this, [this] {
        if (TRegExprDialog::run(this, findText_->lineEdit())) regex_->setChecked(true);
        findText_->setFocus();
    });
    connect(findText_, &QComboBox::editTextChanged, this, [this] { updateButtons(); });
    updateButtons();
    findText_->lineEdit()->selectAll();
    findText_->setFocus();
}

void TFindDialog::updateButtons() {
    const bool any = !findText_->currentText().isEmpty();
    findButton_->setEnabled(any);
    if (replaceButton_) replaceButton_->setEnabled(any);
    if (replaceAllButton_) replaceAllButton_->setEnabled(any);
}

void TFindDialog::finish(FindDialogResult result) {
    std::string find, repl;
    if (!toCp1252(findText_->currentText(), find) ||
        (replaceText_ && !toCp1252(replaceText_->currentText(), repl))) {
        QMessageBox::warning(this, windowTitle(), dlgmsg::kNotInCodePage);
        return;
    }
    if (find.empty()) return;
    data_.findText = find;
    if (replaceText_) data_.replaceText = repl;
    data_.wholeWord = wholeWord_->isChecked();
    data_.matchCase = matchCase_->isChecked();
    data_.regex = regex_->isChecked();
    data_.forward = down_->isChecked();
    if (inSelection_) data_.inSelection = inSelection_->isChecked();
    if (confirm_) data_.prompt = confirm_->isChecked();
    result_ = result;
    accept();
}

FindDialogResult TFindDialog::run(QWidget* parent, FindDialogData& data, bool replace) {
    TFindDialog dlg(parent, data, replace);
    if (dlg.exec() != QDialog::Accepted) return FindDialogResult::Cancel;
    data = dlg.data_;
    rememberFind(data.findText);
    if (replace) rememberReplace(data.replaceText);
    return dlg.result_;
}

TReplacePromptDlg::TReplacePromptDlg(QWidget* parent) : QDialog(parent) {
    setObjectName("ReplacePrompt");
    setWindowTitle(dlgmsg::kReplaceTitle);
    auto* top = new QVBoxLayout(this);
    top->addWidget(new QLabel(dlgmsg::kReplacePromptText, this));
    using B = AnswerButton<ReplacePromptAnswer>;
    static constexpr B kButtons[] = {{dlgmsg::kYes, "yesButton", ReplacePromptAnswer::Yes},
                                     {dlgmsg::kNo, "noButton", ReplacePromptAnswer::No},
                                     {dlgmsg::kAll, "allButton", ReplacePromptAnswer::All},
                                     {dlgmsg::kCancel, "cancelButton", ReplacePromptAnswer::Cancel}};
    top->addLayout(answerRow(this, kButtons, answer_));
}

ReplacePromptAnswer TReplacePromptDlg::run(QWidget* parent) {
    TReplacePromptDlg dlg(parent);
    // Off the editor's middle, so that the selected hit stays in sight.
    if (parent) dlg.move(parent->mapToGlobal(QPoint(parent->width() - dlg.sizeHint().width() - 40, 60)));
    return dlg.exec() == QDialog::Accepted ? dlg.answer_ : ReplacePromptAnswer::Cancel;
}

}  // namespace zol
