#include "app/qt/dialogs/macro_dialogs.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QVBoxLayout>

#include "app/qt/dialogs/cp1252.h"
#include "app/qt/dialogs/messages.h"
#include "config/keymap.h"
#include "engine/executor.h"
#include "engine/shell.h"
#include "script/macro_text.h"
#include "script/macros.h"

namespace zol {

namespace {

QDialogButtonBox* okCancel(QDialog* dlg) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, dlg);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dlg, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dlg, &QDialog::reject);
    return buttons;
}

QLineEdit* boundedEdit(QWidget* parent, const char* objectName, const std::string& text, size_t size) {
    auto* e = new QLineEdit(fromCp1252(text), parent);
    e->setObjectName(objectName);
    e->setMaxLength(static_cast<int>(size) - 1);
    return e;
}

}  // namespace

// ---- Record Macro

TRecordMacroDialog::TRecordMacroDialog(QWidget* parent, const std::string& name) : QDialog(parent) {
    setWindowTitle(dlgmsg::kRecordMacroTitle);
    name_ = boundedEdit(this, "name", name, kMacroNameSize);
    name_->selectAll();
    auto* label = new QLabel(macromsg::kRecordPrompt, this);
    label->setBuddy(name_);
    auto* form = new QFormLayout(this);
    form->addRow(label, name_);
    form->addRow(okCancel(this));
}

bool TRecordMacroDialog::run(QWidget* parent, std::string& name) {
    TRecordMacroDialog dlg(parent, name);
    while (dlg.exec() == QDialog::Accepted) {
        std::string bytes;
        if (toCp1252(dlg.name_->text().trimmed(), bytes)) {
            name = bytes;
            return true;
        }
        QMessageBox::warning(&dlg, dlg.windowTitle(), dlgmsg::kNotInCodePage);
    }
    return false;
}

// ---- Name and description

TMacroNameDialog::TMacroNameDialog(QWidget* parent, const QString& title, uint16_t self, const std::string& name,
                                   const std::string& description)
    : QDialog(parent), self_(self) {
    setWindowTitle(title);
    name_ = boundedEdit(this, "name", name, kMacroNameSize);
    description_ = boundedEdit(this, "description", description, kMacroDescriptionSize);
    description_->setMinimumWidth(320);
    auto* form = new QFormLayout(this);
    form->addRow(dlgmsg::kMacroName, name_);
    form->addRow(dlgmsg::kMacroDescription, description_);
    auto* buttons = okCancel(this);
    disconnect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::accepted, this, &TMacroNameDialog::check);
    form->addRow(buttons);
}

void TMacroNameDialog::check() {
    std::string name, description;
    if (!toCp1252(name_->text().trimmed(), name) || !toCp1252(description_->text(), description)) {
        QMessageBox::warning(this, windowTitle(), dlgmsg::kNotInCodePage);
        return;
    }
    if (name.empty()) {
        QMessageBox::warning(this, windowTitle(), dlgmsg::kEmptyMacroName);
        return;
    }
    const uint16_t other = findMacro(name);
    if (other != 0 && other != self_) {
        QMessageBox::warning(this, windowTitle(), QString(dlgmsg::kMacroNameTaken).arg(fromCp1252(name)));
        return;
    }
    nameBytes_ = name;
    descriptionBytes_ = description;
    accept();
}

bool TMacroNameDialog::run(QWidget* parent, const QString& title, uint16_t self, std::string& name,
                           std::string& description) {
    TMacroNameDialog dlg(parent, title, self, name, description);
    if (dlg.exec() != QDialog::Accepted) return false;
    name = dlg.nameBytes_;
    description = dlg.descriptionBytes_;
    return true;
}

// ---- Text form

TMacroEditDialog::TMacroEditDialog(QWidget* parent, uint16_t id, const std::string& text)
    : QDialog(parent), id_(id) {
    const Macro* m = macroById(macros(), id);
    setWindowTitle(QStringLiteral("%1 - %2").arg(dlgmsg::kMacroEditTitle, m ? fromCp1252(m->name) : QString()));
    std::string lf;
    lf.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i)
        if (!(text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')) lf.push_back(text[i]);
    original_ = fromCp1252(lf);
    text_ = new QPlainTextEdit(original_, this);
    text_->setObjectName("text");
    text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    text_->setMinimumSize(480, 300);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &TMacroEditDialog::finish);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text_);
    layout->addWidget(buttons);
}

// Escape and the window's close button must ask too.
void TMacroEditDialog::reject() { finish(); }

void TMacroEditDialog::finish() {
    const QString now = text_->toPlainText();
    if (now == original_) {
        done(QDialog::Rejected);
        return;
    }
    std::string bytes;
    if (!toCp1252(now, bytes)) {
        QMessageBox::warning(this, windowTitle(), dlgmsg::kNotInCodePage);
        return;
    }
    if (shell().ask(macromsg::kAskCompile, false) != Answer::Yes) {
        done(QDialog::Rejected);
        return;
    }
    if (compileMacroText(id_, bytes)) {
        compiled_ = true;
        done(QDialog::Accepted);
        return;
    }
    // The error was shown; keep the user's text and point at the line.
    std::vector<MacroStep> unused;
    const MacroParseError err = textToSteps(bytes, unused);
    if (err.line > 0) {
        QTextCursor c(text_->document()->findBlockByNumber(err.line - 1));
        text_->setTextCursor(c);
    }
    text_->setFocus();
}

bool TMacroEditDialog::run(QWidget* parent, uint16_t id) {
    std::string text;
    switch (macroToText(id, text)) {
    case MacroTextStatus::Ok: break;
    case MacroTextStatus::TooLarge: shell().message(macromsg::kTooLargeToEdit); return false;
    case MacroTextStatus::NoMacro: return false;
    }
    TMacroEditDialog dlg(parent, id, text);
    dlg.exec();
    return dlg.compiled_;
}

// ---- The macro list

TMacroDialog::TMacroDialog(QWidget* parent, Document* doc) : QDialog(parent), doc_(doc) {
    setWindowTitle(dlgmsg::kMacroTitle);
    list_ = new QListWidget(this);
    list_->setObjectName("macros");
    list_->setMinimumSize(320, 240);
    auto button = [this](const char* text, const char* name) {
        auto* b = new QPushButton(text, this);
        b->setObjectName(name);
        b->setAutoDefault(false);
        return b;
    };
    run_ = button(dlgmsg::kMacroRun, "run");
    run_->setDefault(true);
    auto* add = button(dlgmsg::kMacroNew, "new");
    delete_ = button(dlgmsg::kMacroDelete, "delete");
    rename_ = button(dlgmsg::kMacroRename, "rename");
    edit_ = button(dlgmsg::kMacroEdit, "edit");
    auto* close = button(dlgmsg::kClose, "close");
    auto* buttons = new QVBoxLayout;
    for (QPushButton* b : {run_, add, delete_, rename_, edit_}) buttons->addWidget(b);
    buttons->addStretch();
    buttons->addWidget(close);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(list_);
    layout->addLayout(buttons);

    connect(run_, &QPushButton::clicked, this, [this] {
        runId_ = current();
        if (runId_ != 0) accept();
    });
    connect(list_, &QListWidget::itemDoubleClicked, run_, &QPushButton::click);
    connect(add, &QPushButton::clicked, this, &TMacroDialog::newMacro);
    connect(delete_, &QPushButton::clicked, this, &TMacroDialog::deleteMacro);
    connect(rename_, &QPushButton::clicked, this, &TMacroDialog::renameMacro);
    connect(edit_, &QPushButton::clicked, this, &TMacroDialog::editMacro);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    connect(list_, &QListWidget::currentRowChanged, this, &TMacroDialog::updateButtons);
    fill(0);
}

void TMacroDialog::fill(uint16_t select) {
    list_->clear();
    for (int slot = 0; slot < macromsg::kMacroSlots; ++slot) {
        const uint16_t id = static_cast<uint16_t>(kFirstMacroId + slot);
        const Macro* m = macroById(macros(), id);
        if (!m) continue;
        auto* item = new QListWidgetItem(fromCp1252(m->name), list_);
        item->setData(Qt::UserRole, id);
        item->setToolTip(fromCp1252(m->description));
        if (id == select || list_->count() == 1) list_->setCurrentItem(item);
    }
    updateButtons();
}

uint16_t TMacroDialog::current() const {
    const QListWidgetItem* item = list_->currentItem();
    return item ? static_cast<uint16_t>(item->data(Qt::UserRole).toUInt()) : 0;
}

void TMacroDialog::updateButtons() {
    const bool any = current() != 0;
    run_->setEnabled(any && doc_ != nullptr);
    delete_->setEnabled(any);
    rename_->setEnabled(any);
    edit_->setEnabled(any);
}

void TMacroDialog::newMacro() {
    std::string name, description;
    if (!TMacroNameDialog::run(this, dlgmsg::kMacroNewTitle, 0, name, description)) return;
    const uint16_t id = addMacro(macros(), Macro{true, name, description, {}});
    if (id == 0) {
        shell().message(macromsg::kSlotsFull);
        return;
    }
    setKeyMapChanged(true);
    fill(id);
}

void TMacroDialog::deleteMacro() {
    const uint16_t id = current();
    const Macro* m = macroById(macros(), id);
    if (!m) return;
    if (QMessageBox::question(this, windowTitle(), QString(dlgmsg::kAskDeleteMacro).arg(fromCp1252(m->name))) !=
        QMessageBox::Yes)
        return;
    zol::deleteMacro(macros(), id);
    setKeyMapChanged(true);
    fill(0);
}

void TMacroDialog::renameMacro() {
    const uint16_t id = current();
    Macro* m = macroById(macros(), id);
    if (!m) return;
    std::string name = m->name, description = m->description;
    if (!TMacroNameDialog::run(this, dlgmsg::kMacroRenameTitle, id, name, description)) return;
    m->name = name;
    m->description = description;
    setKeyMapChanged(true);
    fill(id);
}

void TMacroDialog::editMacro() {
    const uint16_t id = current();
    if (id != 0) TMacroEditDialog::run(this, id);
}

void TMacroDialog::run(QWidget* parent, Document* doc) {
    TMacroDialog dlg(parent, doc);
    if (dlg.exec() == QDialog::Accepted && doc && dlg.runId_ != 0) execute(*doc, dlg.runId_);
}

}  // namespace zol
