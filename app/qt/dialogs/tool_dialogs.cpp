#include "app/qt/dialogs/tool_dialogs.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "app/qt/dialogs/tool_messages.h"
#include "app/qt/local_text.h"
#include "config/settings.h"
#include "tools/messages.h"

namespace zol {
namespace {

namespace msg = toolmsg::dlg;

QString txt(const char* text) { return QString::fromLatin1(text); }

QDialogButtonBox* okCancel(QDialog* d) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, d);
    QObject::connect(buttons, &QDialogButtonBox::accepted, d, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, d, &QDialog::reject);
    return buttons;
}

// The ">" button beside an argument field: a menu of the macros, inserted at the caret.
QToolButton* macroButton(QWidget* parent, QLineEdit* edit) {
    auto* button = new QToolButton(parent);
    button->setText(txt(msg::kMacroButton));
    button->setToolTip(txt(msg::kMacroTip));
    button->setPopupMode(QToolButton::InstantPopup);
    auto* menu = new QMenu(button);
    for (const char* m : msg::kMacros) menu->addAction(txt(m), edit, [edit, m] { edit->insert(txt(m)); });
    button->setMenu(menu);
    return button;
}

QComboBox* choices(QWidget* parent, const char* const* items, size_t count, const char* name) {
    auto* box = new QComboBox(parent);
    box->setObjectName(name);
    for (size_t i = 0; i < count; ++i) box->addItem(txt(items[i]));
    return box;
}

QLineEdit* lineEdit(QWidget* parent, const char* name, size_t size) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(name);
    edit->setMaxLength(static_cast<int>(size) - 1);
    return edit;
}

// A list may be kept only when every entry has what it needs; the first that does not
// is told and shown.
template <class T, class Complete>
bool allComplete(QDialog* d, QListWidget* list, const std::vector<T>& items, const char* message, Complete complete) {
    for (size_t i = 0; i < items.size(); ++i) {
        if (complete(items[i])) continue;
        QMessageBox::warning(d, d->windowTitle(), txt(message).arg(i + 1));
        list->setCurrentRow(static_cast<int>(i));
        return false;
    }
    return true;
}

}  // namespace

TUserToolsDlg::TUserToolsDlg(QWidget* parent) : QDialog(parent), tools_(userTools().tools) {
    setObjectName(msg::kUserToolsName);
    setWindowTitle(txt(msg::kUserToolsTitle));
    auto* top = new QHBoxLayout;
    buildList();
    auto* side = new QVBoxLayout;
    auto* label = new QLabel(txt(msg::kTools), this);
    label->setBuddy(list_);
    side->addWidget(label);
    side->addWidget(list_);
    auto* moves = new QHBoxLayout;
    for (QPushButton* b : {add_, remove_, up_, down_}) moves->addWidget(b);
    side->addLayout(moves);
    top->addLayout(side, 1);
    buildForm();
    top->addWidget(form_, 2);
    auto* outer = new QVBoxLayout(this);
    outer->addLayout(top);
    outer->addWidget(okCancel(this));
    for (const UserTool& t : tools_) list_->addItem(qs(t.menuText));
    list_->setCurrentRow(tools_.empty() ? -1 : 0);
    show(list_->currentRow());
}

void TUserToolsDlg::buildList() {
    list_ = new QListWidget(this);
    list_->setObjectName("tools");
    add_ = new QPushButton(txt(msg::kAdd), this);
    remove_ = new QPushButton(txt(msg::kRemove), this);
    up_ = new QPushButton(txt(msg::kMoveUp), this);
    down_ = new QPushButton(txt(msg::kMoveDown), this);
    add_->setObjectName("add");
    remove_->setObjectName("remove");
    up_->setObjectName("up");
    down_->setObjectName("down");
    add_->setToolTip(txt(toolmsg::kTooManyTools));
    connect(list_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (loading_) return;
        store();
        show(row);
    });
    connect(add_, &QPushButton::clicked, this, &TUserToolsDlg::add);
    connect(remove_, &QPushButton::clicked, this, &TUserToolsDlg::remove);
    connect(up_, &QPushButton::clicked, this, [this] { move(-1); });
    connect(down_, &QPushButton::clicked, this, [this] { move(1); });
}

void TUserToolsDlg::buildForm() {
    form_ = new QWidget(this);
    auto* form = new QFormLayout(form_);
    menuText_ = lineEdit(form_, "menuText", toolmsg::kMenuTextSize);
    program_ = lineEdit(form_, "program", toolmsg::kPathNameSize);
    arguments_ = lineEdit(form_, "arguments", toolmsg::kArgumentsSize);
    initialDir_ = lineEdit(form_, "initialDir", toolmsg::kInitialDirSize);
    auto row = [this, form](const char* label, QLineEdit* edit, QWidget* extra) {
        auto* line = new QHBoxLayout;
        line->addWidget(edit, 1);
        if (extra) line->addWidget(extra);
        auto* l = new QLabel(txt(label), form_);
        l->setBuddy(edit);
        form->addRow(l, line);
    };
    auto* browse = new QPushButton(txt(msg::kBrowse), form_);
    browse->setObjectName("browse");
    connect(browse, &QPushButton::clicked, this, &TUserToolsDlg::browse);
    row(msg::kMenuText, menuText_, nullptr);
    row(msg::kProgram, program_, browse);
    row(msg::kArguments, arguments_, macroButton(form_, arguments_));
    row(msg::kInitialDir, initialDir_, macroButton(form_, initialDir_));
    askArguments_ = new QCheckBox(txt(msg::kAskArguments), form_);
    capture_ = new QCheckBox(txt(msg::kCaptureOutput), form_);
    prompt_ = new QCheckBox(txt(msg::kPromptBeforeSave), form_);
    askArguments_->setObjectName("askArguments");
    capture_->setObjectName("capture");
    prompt_->setObjectName("prompt");
    save_ = choices(form_, msg::kSaveChoices, std::size(msg::kSaveChoices), "save");
    quoting_ = choices(form_, msg::kQuoteChoices, std::size(msg::kQuoteChoices), "quoting");
    form->addRow(askArguments_);
    form->addRow(capture_);
    form->addRow(txt(msg::kSave), save_);
    form->addRow(prompt_);
    form->addRow(txt(msg::kQuoting), quoting_);
    connect(menuText_, &QLineEdit::textEdited, this, [this](const QString& text) {
        if (QListWidgetItem* item = list_->currentItem()) item->setText(text);
    });
}

void TUserToolsDlg::show(int row) {
    loading_ = true;
    current_ = row >= 0 && row < static_cast<int>(tools_.size()) ? row : -1;
    const UserTool blank;
    const UserTool& t = current_ >= 0 ? tools_[static_cast<size_t>(current_)] : blank;
    menuText_->setText(qs(t.menuText));
    program_->setText(qs(t.pathName));
    arguments_->setText(qs(t.arguments));
    initialDir_->setText(qs(t.initialDir));
    askArguments_->setChecked(t.askArguments);
    capture_->setChecked(t.captureOutput);
    prompt_->setChecked(t.promptBeforeSave);
    // A "SaveFile" value above 2 is kept as it is until the user picks another.
    save_->setCurrentIndex(std::clamp(t.saveFile, 0, static_cast<int>(kSaveAll)));
    quoting_->setCurrentIndex(t.quoteMode);
    form_->setEnabled(current_ >= 0);
    loading_ = false;
    refreshButtons();
}

void TUserToolsDlg::store() {
    if (current_ < 0 || current_ >= static_cast<int>(tools_.size())) return;
    UserTool& t = tools_[static_cast<size_t>(current_)];
    t.menuText = local(menuText_->text());
    t.pathName = local(program_->text());
    t.arguments = local(arguments_->text());
    t.initialDir = local(initialDir_->text());
    t.askArguments = askArguments_->isChecked();
    t.captureOutput = capture_->isChecked();
    t.promptBeforeSave = prompt_->isChecked();
    if (save_->currentIndex() != std::clamp(t.saveFile, 0, static_cast<int>(kSaveAll))) t.saveFile = save_->currentIndex();
    t.quoteMode = quoting_->currentIndex();
}

void TUserToolsDlg::refreshButtons() {
    const int n = static_cast<int>(tools_.size());
    add_->setEnabled(n < static_cast<int>(toolmsg::kMaxTools));
    remove_->setEnabled(current_ >= 0);
    up_->setEnabled(current_ > 0);
    down_->setEnabled(current_ >= 0 && current_ + 1 < n);
}

void TUserToolsDlg::add() {
    if (tools_.size() >= toolmsg::kMaxTools) return;
    store();
    UserTool t;
    t.menuText = msg::kNewTool;
    tools_.push_back(t);
    list_->addItem(txt(msg::kNewTool));
    list_->setCurrentRow(static_cast<int>(tools_.size()) - 1);
    program_->setFocus();
}

void TUserToolsDlg::remove() {
    if (current_ < 0) return;
    const int row = current_;
    tools_.erase(tools_.begin() + row);
    current_ = -1;
    loading_ = true;
    delete list_->takeItem(row);
    loading_ = false;
    list_->setCurrentRow(std::min(row, static_cast<int>(tools_.size()) - 1));
    show(list_->currentRow());
}

void TUserToolsDlg::move(int by) {
    const int to = current_ + by;
    if (current_ < 0 || to < 0 || to >= static_cast<int>(tools_.size())) return;
    store();
    std::swap(tools_[static_cast<size_t>(current_)], tools_[static_cast<size_t>(to)]);
    loading_ = true;
    list_->item(current_)->setText(qs(tools_[static_cast<size_t>(current_)].menuText));
    list_->item(to)->setText(qs(tools_[static_cast<size_t>(to)].menuText));
    list_->setCurrentRow(to);
    loading_ = false;
    show(to);
}

void TUserToolsDlg::browse() {
    const QString file = QFileDialog::getOpenFileName(this, txt(msg::kBrowseTitle), program_->text());
    if (!file.isEmpty()) program_->setText(file);
}

void TUserToolsDlg::accept() {
    store();
    if (!allComplete(this, list_, tools_, msg::kIncomplete,
                     [](const UserTool& t) { return !t.menuText.empty() && !t.pathName.empty(); }))
        return;
    userTools().tools = tools_;
    saveUserTools("UserTools", kSettingsFile);
    QDialog::accept();
}

bool TUserToolsDlg::run(QWidget* parent) {
    TUserToolsDlg dlg(parent);
    return dlg.exec() == QDialog::Accepted;
}

TToolArgumentsDlg::TToolArgumentsDlg(QWidget* parent, const std::string& tool, const std::string& arguments)
    : QDialog(parent) {
    setObjectName(msg::kArgumentsName);
    setWindowTitle(txt(msg::kArgumentsTitle));
    edit_ = lineEdit(this, "arguments", toolmsg::kArgumentsSize);
    edit_->setText(qs(arguments));
    edit_->setMinimumWidth(edit_->fontMetrics().averageCharWidth() * 60);
    auto* form = new QFormLayout(this);
    auto* label = new QLabel(txt(msg::kArgumentsPrompt).arg(qs(tool)), this);
    label->setBuddy(edit_);
    form->addRow(label);
    form->addRow(edit_);
    form->addRow(okCancel(this));
}

bool TToolArgumentsDlg::run(QWidget* parent, const std::string& tool, std::string& arguments) {
    TToolArgumentsDlg dlg(parent, tool, arguments);
    if (dlg.exec() != QDialog::Accepted) return false;
    arguments = local(dlg.edit_->text());
    return true;
}

THelpOptionsDlg::THelpOptionsDlg(QWidget* parent) : QDialog(parent), entries_(userHelp().entries) {
    setObjectName(msg::kHelpName);
    setWindowTitle(txt(msg::kHelpTitle));
    context_ = lineEdit(this, "contextHelp", toolmsg::kHelpFileSize);
    context_->setText(qs(userHelp().contextHelpFile));
    list_ = new QListWidget(this);
    list_->setObjectName("entries");
    menuString_ = lineEdit(this, "menuString", toolmsg::kHelpMenuSize);
    helpFile_ = lineEdit(this, "helpFile", toolmsg::kHelpFileSize);
    add_ = new QPushButton(txt(msg::kAdd), this);
    remove_ = new QPushButton(txt(msg::kRemove), this);
    add_->setObjectName("add");
    remove_->setObjectName("remove");
    auto* form = new QFormLayout(this);
    form->addRow(txt(msg::kContextHelp), context_);
    form->addRow(txt(msg::kHelpEntries), list_);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(add_);
    buttons->addWidget(remove_);
    form->addRow(buttons);
    form->addRow(txt(msg::kHelpMenuText), menuString_);
    form->addRow(txt(msg::kHelpFile), helpFile_);
    form->addRow(okCancel(this));
    for (const HelpEntry& e : entries_) list_->addItem(qs(e.menuString));
    connect(list_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (loading_) return;
        store();
        show(row);
    });
    connect(menuString_, &QLineEdit::textEdited, this, [this](const QString& text) {
        if (QListWidgetItem* item = list_->currentItem()) item->setText(text);
    });
    connect(add_, &QPushButton::clicked, this, [this] {
        store();
        entries_.push_back(HelpEntry{msg::kNewHelp, {}});
        list_->addItem(txt(msg::kNewHelp));
        list_->setCurrentRow(static_cast<int>(entries_.size()) - 1);
    });
    connect(remove_, &QPushButton::clicked, this, [this] {
        if (current_ < 0) return;
        const int row = current_;
        entries_.erase(entries_.begin() + row);
        current_ = -1;
        loading_ = true;
        delete list_->takeItem(row);
        loading_ = false;
        show(list_->currentRow());
    });
    list_->setCurrentRow(entries_.empty() ? -1 : 0);
    show(list_->currentRow());
}

void THelpOptionsDlg::show(int row) {
    loading_ = true;
    current_ = row >= 0 && row < static_cast<int>(entries_.size()) ? row : -1;
    const HelpEntry blank;
    const HelpEntry& e = current_ >= 0 ? entries_[static_cast<size_t>(current_)] : blank;
    menuString_->setText(qs(e.menuString));
    helpFile_->setText(qs(e.helpFile));
    menuString_->setEnabled(current_ >= 0);
    helpFile_->setEnabled(current_ >= 0);
    add_->setEnabled(entries_.size() < toolmsg::kMaxHelpEntries);
    remove_->setEnabled(current_ >= 0);
    loading_ = false;
}

void THelpOptionsDlg::store() {
    if (current_ < 0 || current_ >= static_cast<int>(entries_.size())) return;
    entries_[static_cast<size_t>(current_)] = HelpEntry{local(menuString_->text()), local(helpFile_->text())};
}

void THelpOptionsDlg::accept() {
    store();
    if (!allComplete(this, list_, entries_, msg::kHelpIncomplete,
                     [](const HelpEntry& e) { return !e.menuString.empty() && !e.helpFile.empty(); }))
        return;
    userHelp().contextHelpFile = local(context_->text());
    userHelp().entries = entries_;
    saveUserHelp("UserHelp", kSettingsFile);
    QDialog::accept();
}

bool THelpOptionsDlg::run(QWidget* parent) {
    THelpOptionsDlg dlg(parent);
    return dlg.exec() == QDialog::Accepted;
}

}  // namespace zol
