#include "app/qt/dialogs/find_files_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "app/qt/dialogs/cp1252.h"
#include "app/qt/dialogs/find_dialog.h"
#include "app/qt/dialogs/messages.h"
#include "config/settings.h"
#include "platform/profile.h"
#include "search/history.h"
#include "search/messages.h"

namespace zol {
namespace {

// The file dialogs' lists: "FolderHistory" keys "1".."16", "FileFilters" one key per
// named filter whose value is its masks ("*.*" when empty).
constexpr int kFolderHistoryKeys = 16;

std::vector<std::string> fileDialogFolders() {
    std::vector<std::string> out;
    for (int i = 1; i <= kFolderHistoryKeys; ++i) {
        std::string v = getProfileString("FolderHistory", std::to_string(i), "", kSettingsFile);
        if (!v.empty()) out.push_back(std::move(v));
    }
    return out;
}

std::vector<std::string> fileDialogFilters() {
    std::vector<std::string> out;
    for (const std::string& key : getProfileKeys("FileFilters", kSettingsFile)) {
        const std::string v = getProfileString("FileFilters", key, "", kSettingsFile);
        out.push_back(v.empty() ? "*.*" : v);
    }
    return out;
}

QComboBox* historyBox(QWidget* parent, const char* name, const std::vector<std::string>& items,
                      const std::string& current) {
    auto* combo = new QComboBox(parent);
    combo->setObjectName(name);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setMinimumContentsLength(36);
    for (const std::string& h : items) combo->addItem(fromCp1252(h));
    combo->setEditText(fromCp1252(current));
    return combo;
}

QCheckBox* checkBox(QWidget* parent, const char* text, const char* name, bool on) {
    auto* box = new QCheckBox(text, parent);
    box->setObjectName(name);
    box->setChecked(on);
    return box;
}

QPushButton* button(QWidget* parent, const char* text, const char* name) {
    auto* b = new QPushButton(text, parent);
    b->setObjectName(name);
    b->setAutoDefault(false);
    return b;
}

}  // namespace

std::vector<std::string> mergedHistory(const std::vector<std::string>& first, const std::vector<std::string>& second) {
    std::vector<std::string> out = first;
    for (const std::string& s : second)
        if (std::find(out.begin(), out.end(), s) == out.end()) out.push_back(s);
    return out;
}

void pushFront(std::vector<std::string>& list, const std::string& text, size_t capacity) {
    if (text.empty()) return;
    list.erase(std::remove(list.begin(), list.end(), text), list.end());
    list.insert(list.begin(), text);
    if (list.size() > capacity) list.resize(capacity);
}

TFindFilesDialog::TFindFilesDialog(QWidget* parent, const FindFilesChoice& start, bool replace)
    : QDialog(parent), replace_(replace), choice_(start) {
    setObjectName(replace ? "ReplaceInFiles" : "FindInFiles");
    setWindowTitle(replace ? searchmsg::kReplaceInFilesTitle : searchmsg::kFindInFilesTitle);
    const FileSearchQuery& q = start.query.find;
    auto* grid = new QGridLayout;
    int row = 0;
    auto addRow = [&](const char* label, QWidget* field, QWidget* extra) {
        auto* l = new QLabel(label, this);
        l->setBuddy(field);
        grid->addWidget(l, row, 0);
        grid->addWidget(field, row, 1);
        if (extra) grid->addWidget(extra, row, 2);
        ++row;
    };
    findText_ = historyBox(this, "findText", findHistory(), q.pattern);
    QPushButton* pattern = button(this, dlgmsg::kPatternButton, "patternButton");
    pattern->setToolTip(dlgmsg::kPatternTip);
    // Its key reaches it; Tab goes from the text to find on to the next field.
    pattern->setFocusPolicy(Qt::NoFocus);
    pattern->setFixedWidth(pattern->fontMetrics().horizontalAdvance(QStringLiteral("W>W")) + 8);
    addRow(dlgmsg::kFindWhat, findText_, pattern);
    if (replace) {
        replaceText_ = historyBox(this, "replaceText", replaceHistory(), start.query.replacement);
        addRow(dlgmsg::kReplaceWith, replaceText_, nullptr);
    }
    masks_ = historyBox(this, "masks", mergedHistory(settings().multiFindFileFilters, fileDialogFilters()), q.masks);
    addRow(dlgmsg::kInFiles, masks_, nullptr);
    folder_ = historyBox(this, "folder", mergedHistory(settings().multiFindFolderHistory, fileDialogFolders()),
                         q.folder);
    QPushButton* browseButton = button(this, dlgmsg::kBrowse, "browseButton");
    addRow(dlgmsg::kInFolder, folder_, browseButton);

    wholeWord_ = checkBox(this, dlgmsg::kWholeWord, "wholeWord", q.options.wholeWord);
    matchCase_ = checkBox(this, dlgmsg::kMatchCase, "matchCase", q.options.matchCase);
    regex_ = checkBox(this, dlgmsg::kRegex, "regex", q.options.regex);
    subfolders_ = checkBox(this, dlgmsg::kSubfolders, "subfolders", q.subfolders);
    auto* checks = new QVBoxLayout;
    for (QCheckBox* b : {wholeWord_, matchCase_, regex_, subfolders_}) checks->addWidget(b);
    if (replace) {
        confirm_ = checkBox(this, dlgmsg::kConfirmEachFile, "confirm", start.prompt);
        checks->addWidget(confirm_);
    }
    auto* left = new QVBoxLayout;
    left->addLayout(grid);
    left->addLayout(checks);
    left->addStretch();

    okButton_ = new QPushButton(replace ? dlgmsg::kReplaceAll : dlgmsg::kFindButton, this);
    okButton_->setObjectName("okButton");
    okButton_->setDefault(true);
    QPushButton* cancel = button(this, dlgmsg::kCancel, "cancelButton");
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(okButton_);
    buttons->addWidget(cancel);
    buttons->addStretch();
    auto* top = new QHBoxLayout(this);
    top->addLayout(left);
    top->addLayout(buttons);

    connect(okButton_, &QPushButton::clicked, this, &TFindFilesDialog::finish);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(browseButton, &QPushButton::clicked, this, &TFindFilesDialog::browse);
    connect(pattern, &QPushButton::clicked, this, [this] {
        if (TRegExprDialog::run(this, findText_->lineEdit())) regex_->setChecked(true);
        findText_->setFocus();
    });
    connect(findText_, &QComboBox::editTextChanged, this,
            [this](const QString& t) { okButton_->setEnabled(!t.isEmpty()); });
    okButton_->setEnabled(!findText_->currentText().isEmpty());
    findText_->lineEdit()->selectAll();
    findText_->setFocus();
}

void TFindFilesDialog::browse() {
    const QString dir = QFileDialog::getExistingDirectory(this, dlgmsg::kChooseFolder, folder_->currentText());
    if (!dir.isEmpty()) folder_->setEditText(dir);
}

void TFindFilesDialog::finish() {
    FileReplaceQuery q = choice_.query;
    std::string replacement;
    if (!toCp1252(findText_->currentText(), q.find.pattern) || !toCp1252(masks_->currentText(), q.find.masks) ||
        !toCp1252(folder_->currentText(), q.find.folder) ||
        (replaceText_ && !toCp1252(replaceText_->currentText(), q.replacement))) {
        QMessageBox::warning(this, windowTitle(), dlgmsg::kNotInCodePage);
        return;
    }
    q.find.options = {wholeWord_->isChecked(), matchCase_->isChecked(), regex_->isChecked(), true};
    q.find.subfolders = subfolders_->isChecked();
    // A folder typed with a slash at its end is the same folder.
    while (q.find.folder.size() > 1 && q.find.folder.back() == '/') q.find.folder.pop_back();
    const std::string problem = fileSearchProblem(q.find);
    if (!problem.empty()) {
        QMessageBox::warning(this, windowTitle(), fromCp1252(problem));
        return;
    }
    choice_.query = q;
    if (confirm_) choice_.prompt = confirm_->isChecked();
    accept();
}

bool TFindFilesDialog::run(QWidget* parent, FindFilesChoice& choice, bool replace) {
    TFindFilesDialog dlg(parent, choice, replace);
    if (dlg.exec() != QDialog::Accepted) return false;
    choice = dlg.choice_;
    rememberFind(choice.query.find.pattern);
    if (replace) rememberReplace(choice.query.replacement);
    pushFront(settings().multiFindFolderHistory, choice.query.find.folder, kMultiFindListSize);
    pushFront(settings().multiFindFileFilters, choice.query.find.masks, kMultiFindListSize);
    return true;
}

TReplaceInFilesPromptDlg::TReplaceInFilesPromptDlg(QWidget* parent, const FileReplacePreview& p) : QDialog(parent) {
    setObjectName("ReplaceInFilesPrompt");
    setWindowTitle(searchmsg::kReplaceInFilesTitle);
    auto* top = new QVBoxLayout(this);
    auto* text = new QLabel(QString::fromLatin1(dlgmsg::kFilePromptText).arg(p.hits).arg(fromCp1252(p.rel)), this);
    text->setObjectName("question");
    top->addWidget(text);
    if (p.openDocument) top->addWidget(new QLabel(dlgmsg::kFilePromptOpen, this));
    auto* lines = new QPlainTextEdit(this);
    lines->setObjectName("preview");
    lines->setReadOnly(true);
    lines->setLineWrapMode(QPlainTextEdit::NoWrap);
    lines->setFont(QFont(QStringLiteral("monospace")));
    QString shown;
    for (const ChangedLine& c : p.lines) {
        shown += QStringLiteral("%1: - %2\n").arg(c.line).arg(fromCp1252(c.before));
        shown += QStringLiteral("%1: + %2\n").arg(c.line).arg(fromCp1252(c.after));
    }
    lines->setPlainText(shown);
    top->addWidget(lines);
    using B = AnswerButton<FilePromptAnswer>;
    static constexpr B kButtons[] = {{dlgmsg::kReplaceFile, "replaceButton", FilePromptAnswer::Replace},
                                     {dlgmsg::kSkipFile, "skipButton", FilePromptAnswer::Skip},
                                     {dlgmsg::kReplaceAllFiles, "allButton", FilePromptAnswer::All},
                                     {dlgmsg::kCancel, "cancelButton", FilePromptAnswer::Cancel}};
    top->addLayout(answerRow(this, kButtons, answer_));
    resize(640, 360);
}

FilePromptAnswer TReplaceInFilesPromptDlg::run(QWidget* parent, const FileReplacePreview& preview) {
    TReplaceInFilesPromptDlg dlg(parent, preview);
    return dlg.exec() == QDialog::Accepted ? dlg.answer_ : FilePromptAnswer::Cancel;
}

}  // namespace zol
