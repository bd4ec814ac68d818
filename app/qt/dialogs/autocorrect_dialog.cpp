#include "app/qt/dialogs/autocorrect_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

#include "app/qt/dialogs/cp1252.h"
#include "app/qt/dialogs/spelling_messages.h"
#include "app/qt/local_text.h"
#include "config/settings.h"
#include "engine/shell.h"
#include "proofing/speller.h"

namespace zol {
namespace {

QCheckBox* check(QWidget* parent, const char* text, const char* name, bool on) {
    auto* c = new QCheckBox(QString::fromLatin1(text), parent);
    c->setObjectName(name);
    c->setChecked(on);
    return c;
}

QLineEdit* labelled(QFormLayout* form, QWidget* parent, const char* label, const char* name, const QString& text) {
    auto* e = new QLineEdit(text, parent);
    e->setObjectName(name);
    form->addRow(QString::fromLatin1(label), e);
    return e;
}

}  // namespace

TAutoCorrectDlg::TAutoCorrectDlg(QWidget* parent) : QDialog(parent), list_(autoCorrect()) {
    setWindowTitle(QString::fromLatin1(proofui::kAutoCorrectTitle));
    auto* tabs = new QTabWidget(this);
    tabs->addTab(autoCorrectPage(), QString::fromLatin1(proofui::kTabAutoCorrect));
    tabs->addTab(spellingPage(), QString::fromLatin1(proofui::kTabSpelling));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        apply();
        accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    layout->addWidget(buttons);
    resize(520, 480);
}

QWidget* TAutoCorrectDlg::autoCorrectPage() {
    auto* w = new QWidget(this);
    const AutoCorrectOptions& o = list_.options;
    twoCapitals_ = check(w, proofui::kTwoCapitals, "CorrectTwoInitCaps", o.twoCapitals);
    capitalize_ = check(w, proofui::kCapitalize, "CapitalizeSentence", o.capitalize);
    capsLock_ = check(w, proofui::kCapsLock, "CorrectCapsLock", o.capsLock);
    replaceText_ = check(w, proofui::kReplaceText, "ReplaceText", o.replaceText);
    auto* form = new QFormLayout;
    replace_ = labelled(form, w, proofui::kReplace, "replace", {});
    with_ = labelled(form, w, proofui::kWith, "with", {});
    auto* add = new QPushButton(QString::fromLatin1(proofui::kAddEntry), w);
    add->setObjectName("add");
    auto* del = new QPushButton(QString::fromLatin1(proofui::kDeleteEntry), w);
    del->setObjectName("delete");
    table_ = new QTableWidget(0, 2, w);
    table_->setObjectName("entries");
    table_->horizontalHeader()->setVisible(false);
    table_->verticalHeader()->setVisible(false);
    table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + 4);
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    connect(add, &QPushButton::clicked, this, &TAutoCorrectDlg::addEntry);
    connect(del, &QPushButton::clicked, this, &TAutoCorrectDlg::deleteEntry);
    connect(table_, &QTableWidget::currentCellChanged, this, [this](int row) {
        if (row < 0 || !table_->item(row, 0)) return;
        replace_->setText(table_->item(row, 0)->text());
        with_->setText(table_->item(row, 1)->text());
    });
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(add);
    buttons->addWidget(del);
    auto* layout = new QVBoxLayout(w);
    for (QCheckBox* c : {twoCapitals_, capitalize_, capsLock_, replaceText_}) layout->addWidget(c);
    layout->addLayout(form);
    layout->addLayout(buttons);
    layout->addWidget(table_);
    fillTable();
    return w;
}

QWidget* TAutoCorrectDlg::spellingPage() {
    auto* w = new QWidget(this);
    const SpellingSettings& s = settings().spelling;
    auto* form = new QFormLayout(w);
    lexicon_ = labelled(form, w, proofui::kLanguage, "MainLexicon", qs(s.mainLexicon));
    userDict_ = labelled(form, w, proofui::kUserDictionary, "UserDictionary", qs(s.userDictionary));
    underlineText_ = check(w, proofui::kUnderlineText, "UnderlineText", s.underlineText);
    underlineSource_ = check(w, proofui::kUnderlineSource, "UnderlineSource", s.underlineSource);
    ignoreUppercase_ = check(w, proofui::kIgnoreUppercase, "IgnoreUppercase", s.ignoreUppercase);
    for (QCheckBox* c : {underlineText_, underlineSource_, ignoreUppercase_}) form->addRow(c);
    return w;
}

void TAutoCorrectDlg::fillTable() {
    table_->setRowCount(static_cast<int>(list_.entries.size()));
    int row = 0;
    for (const auto& [wrong, right] : list_.entries) {
        table_->setItem(row, 0, new QTableWidgetItem(fromCp1252(wrong)));
        table_->setItem(row, 1, new QTableWidgetItem(fromCp1252(right)));
        ++row;
    }
}

void TAutoCorrectDlg::addEntry() {
    std::string wrong, right;
    if (!toCp1252(replace_->text().trimmed(), wrong) || !toCp1252(with_->text().trimmed(), right) || wrong.empty() ||
        right.empty())
        return;
    if (wrong.find(' ') != std::string::npos) {
        shell().message(proofui::kEntryHasBlank);
        return;
    }
    list_.entries[wrong] = right;
    fillTable();
    const auto found = table_->findItems(fromCp1252(wrong), Qt::MatchExactly);
    if (!found.isEmpty()) table_->setCurrentItem(found.front());
}

void TAutoCorrectDlg::deleteEntry() {
    std::string wrong;
    if (!toCp1252(replace_->text().trimmed(), wrong) || !list_.entries.erase(wrong)) return;
    fillTable();
    replace_->clear();
    with_->clear();
}

void TAutoCorrectDlg::apply() {
    list_.options = {twoCapitals_->isChecked(), capitalize_->isChecked(), capsLock_->isChecked(),
                     replaceText_->isChecked()};
    autoCorrect() = list_;
    saveAutoCorrect();
    SpellingSettings& s = settings().spelling;
    const std::string lexicon = local(lexicon_->text().trimmed()), user = local(userDict_->text().trimmed());
    if (lexicon != s.mainLexicon || user != s.userDictionary) resetSpeller();
    s.mainLexicon = lexicon;
    s.userDictionary = user;
    s.underlineText = underlineText_->isChecked();
    s.underlineSource = underlineSource_->isChecked();
    s.ignoreUppercase = ignoreUppercase_->isChecked();
}

bool TAutoCorrectDlg::run(QWidget* parent) {
    TAutoCorrectDlg dlg(parent);
    return dlg.exec() == QDialog::Accepted;
}

}  // namespace zol
