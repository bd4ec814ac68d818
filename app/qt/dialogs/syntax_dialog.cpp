#include "app/qt/dialogs/syntax_dialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/qt/dialogs/cp1252.h"
#include "app/qt/dialogs/messages.h"
#include "app/qt/dialogs/syntax_define_dialog.h"
#include "engine/shell.h"
#include "files/messages.h"
#include "platform/fileinfo.h"
#include "platform/paths.h"
#include "syntax/doc_syntax.h"
#include "syntax/table.h"

namespace zol {
namespace {

constexpr int kNameColumnWidth = 160;
constexpr int kListWidth = 480, kListHeight = 320;

QPushButton* button(QWidget* parent, const char* name, const char* text) {
    auto* b = new QPushButton(QString::fromLatin1(text), parent);
    b->setObjectName(name);
    b->setAutoDefault(false);
    return b;
}

}  // namespace

// ---- The list

TSyntaxHighlightDlg::TSyntaxHighlightDlg(QWidget* parent, const std::string& path)
    : QDialog(parent), path_(path), langs_(readEditCopy(path)) {
    setWindowTitle(QString::fromLatin1(dlgmsg::kSyntaxTitle));
    list_ = new QTreeWidget(this);
    list_->setObjectName("languages");
    list_->setRootIsDecorated(false);
    list_->setHeaderLabels(QString::fromLatin1(dlgmsg::kSyntaxColumns).split('\t'));
    list_->header()->resizeSection(0, kNameColumnWidth);
    list_->setMinimumSize(kListWidth, kListHeight);
    auto* add = button(this, "add", dlgmsg::kSyntaxAdd);
    remove_ = button(this, "remove", dlgmsg::kSyntaxRemove);
    define_ = button(this, "define", dlgmsg::kSyntaxDefine);
    up_ = button(this, "up", dlgmsg::kSyntaxUp);
    down_ = button(this, "down", dlgmsg::kSyntaxDown);
    connect(add, &QPushButton::clicked, this, &TSyntaxHighlightDlg::addLanguage);
    connect(remove_, &QPushButton::clicked, this, &TSyntaxHighlightDlg::removeLanguage);
    connect(define_, &QPushButton::clicked, this, &TSyntaxHighlightDlg::defineLanguage);
    connect(up_, &QPushButton::clicked, this, [this] { move(-1); });
    connect(down_, &QPushButton::clicked, this, [this] { move(1); });
    connect(list_, &QTreeWidget::itemDoubleClicked, this, &TSyntaxHighlightDlg::defineLanguage);
    connect(list_, &QTreeWidget::currentItemChanged, this, &TSyntaxHighlightDlg::updateButtons);
    auto* side = new QVBoxLayout;
    for (QPushButton* b : {add, define_, remove_, up_, down_}) side->addWidget(b);
    side->addStretch();
    auto* top = new QHBoxLayout;
    top->addWidget(list_, 1);
    top->addLayout(side);
    auto* note = new QLabel(QString::fromLatin1(dlgmsg::kSyntaxOrder), this);
    note->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &TSyntaxHighlightDlg::save);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(note);
    layout->addWidget(buttons);
    fill(0);
}

void TSyntaxHighlightDlg::fill(int select) {
    list_->clear();
    for (const SyntaxEditLanguage& l : langs_)
        new QTreeWidgetItem(list_, {fromCp1252(l.name), fromCp1252(l.pattern)});
    if (select >= 0 && select < list_->topLevelItemCount()) list_->setCurrentItem(list_->topLevelItem(select));
    updateButtons();
}

int TSyntaxHighlightDlg::current() const {
    QTreeWidgetItem* item = list_->currentItem();
    return item ? list_->indexOfTopLevelItem(item) : -1;
}

void TSyntaxHighlightDlg::updateButtons() {
    const int at = current();
    remove_->setEnabled(at >= 0);
    define_->setEnabled(at >= 0);
    up_->setEnabled(at > 0);
    down_->setEnabled(at >= 0 && at + 1 < static_cast<int>(langs_.size()));
}

void TSyntaxHighlightDlg::addLanguage() {
    if (!roomForLanguage(langs_) || !TSyntaxHighlightAddLangDlg::run(this, langs_)) return;
    const int added = static_cast<int>(langs_.size()) - 1;
    fill(added);
    defineLanguage();
}

void TSyntaxHighlightDlg::removeLanguage() {
    const int at = current();
    if (at < 0) return;
    langs_.erase(langs_.begin() + at);
    fill(std::min(at, static_cast<int>(langs_.size()) - 1));
}

void TSyntaxHighlightDlg::defineLanguage() {
    const int at = current();
    if (at < 0) return;
    if (TSyntaxHighlightDefineLangDlg::run(this, langs_[static_cast<size_t>(at)])) fill(at);
}

void TSyntaxHighlightDlg::move(int by) {
    const int at = current(), to = at + by;
    if (at < 0 || to < 0 || to >= static_cast<int>(langs_.size())) return;
    std::swap(langs_[static_cast<size_t>(at)], langs_[static_cast<size_t>(to)]);
    fill(to);
}

void TSyntaxHighlightDlg::save() {
    if (!saveDefinitions(syntaxTable(), path_, langs_)) {
        // The old file is whole and the dialog stays, so that nothing typed is lost.
        const char* text = fileAttributes(path_).readOnly ? filemsg::kReadOnlyTarget : filemsg::kCannotOpenWrite;
        shell().message(filemsg::withFileName(text, path_));
        return;
    }
    followReloadedDefinitions();
    accept();
}

bool TSyntaxHighlightDlg::run(QWidget* parent) { return run(parent, resolveBareName(kSyntaxFile)); }

bool TSyntaxHighlightDlg::run(QWidget* parent, const std::string& path) {
    TSyntaxHighlightDlg dlg(parent, path);
    return dlg.exec() == QDialog::Accepted;
}

// ---- Adding

TSyntaxHighlightAddLangDlg::TSyntaxHighlightAddLangDlg(QWidget* parent, std::vector<SyntaxEditLanguage>& langs)
    : QDialog(parent), langs_(langs) {
    setWindowTitle(QString::fromLatin1(dlgmsg::kAddLangTitle));
    name_ = new QLineEdit(this);
    name_->setObjectName("name");
    name_->setMaxLength(static_cast<int>(kEditNameSize) - 1);
    copyOf_ = new QComboBox(this);
    copyOf_->setObjectName("copyOf");
    copyOf_->addItem(QString::fromLatin1(dlgmsg::kAddLangNoCopy));
    for (const SyntaxEditLanguage& l : langs_) copyOf_->addItem(fromCp1252(l.name));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
    ok->setEnabled(false);
    connect(name_, &QLineEdit::textChanged, this, [ok](const QString& t) { ok->setEnabled(!t.trimmed().isEmpty()); });
    connect(buttons, &QDialogButtonBox::accepted, this, &TSyntaxHighlightAddLangDlg::check);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* form = new QFormLayout(this);
    form->addRow(QString::fromLatin1(dlgmsg::kAddLangName), name_);
    form->addRow(QString::fromLatin1(dlgmsg::kAddLangCopy), copyOf_);
    form->addRow(buttons);
}

void TSyntaxHighlightAddLangDlg::check() {
    std::string name;
    if (!toCp1252(name_->text().trimmed(), name)) {
        QMessageBox::warning(this, windowTitle(), QString::fromLatin1(dlgmsg::kNotInCodePage));
        return;
    }
    const int from = copyOf_->currentIndex() - 1;
    if (name.empty() || !zol::addLanguage(langs_, name)) return;
    if (from >= 0) {
        SyntaxEditLanguage copy = langs_[static_cast<size_t>(from)];
        copy.name = std::move(langs_.back().name);
        langs_.back() = std::move(copy);
    }
    accept();
}

bool TSyntaxHighlightAddLangDlg::run(QWidget* parent, std::vector<SyntaxEditLanguage>& langs) {
    TSyntaxHighlightAddLangDlg dlg(parent, langs);
    return dlg.exec() == QDialog::Accepted;
}

}  // namespace zol
