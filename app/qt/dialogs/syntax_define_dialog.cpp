#include "app/qt/dialogs/syntax_define_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>

#include "app/qt/dialogs/cp1252.h"
#include "app/qt/dialogs/syntax_preview.h"

namespace zol {
namespace {

using dlgmsg::DefineField;
using dlgmsg::DefinePage;

constexpr int kPreviewLines = 8;
constexpr int kCharBoxChars = 8;  // room for one character and the frame
constexpr int kNumberBoxChars = 12;
constexpr int kDialogWidth = 600;

// What each side of a pair keeps: a comment opener or closer has kMultiCommentMax
// characters, brackets share the value's buffer with the blank between them.
int pairSide(HglKey k) {
    return k == HglKey::MultiComment ? kMultiCommentMax : static_cast<int>(hglKey(k).buffer - 2) / 2;
}

int numberMaximum(HglKey k) {
    return k == HglKey::CobolCommentPos ? kMaxCobolCommentPos : std::numeric_limits<int16_t>::max();
}

QString plainLabel(const char* label) {
    QString s = QString::fromLatin1(label).remove('&');
    if (s.endsWith(':')) s.chop(1);
    return s;
}

// Every key but "Extensions", which only stands in for a missing "FilePattern", has a
// control on some page.
constexpr bool everyKeyHasAControl() {
    for (size_t i = 0; i < std::size(kHglKeys); ++i) {
        const auto k = static_cast<HglKey>(i);
        const bool listed = std::any_of(std::begin(dlgmsg::kDefineFields), std::end(dlgmsg::kDefineFields),
                                        [k](const DefineField& f) { return f.key == k; });
        if (listed == (k == HglKey::Extensions)) return false;
    }
    return true;
}
static_assert(everyKeyHasAControl());
static_assert(std::size(dlgmsg::kDefinePageTitles) == static_cast<size_t>(DefinePage::Colours) + 1,
              "a title for every page");

const DefineField& fieldOf(HglKey k) {
    return *std::find_if(std::begin(dlgmsg::kDefineFields), std::end(dlgmsg::kDefineFields),
                         [k](const DefineField& f) { return f.key == k; });
}

// Where a keyword sits in its list: lists hold whole keywords back to back.
size_t keywordAt(const std::string& list, const std::string& word) {
    for (size_t at = 0; at + word.size() <= list.size(); at += word.size())
        if (list.compare(at, word.size(), word) == 0) return at;
    return std::string::npos;
}

QLineEdit* lineEdit(QWidget* parent, const char* name, int maxLength, const char* example) {
    auto* e = new QLineEdit(parent);
    e->setObjectName(name);
    e->setMaxLength(maxLength);
    if (example) e->setPlaceholderText(QString::fromLatin1(example));
    return e;
}

// Two boxes, openers and closers, for a value of two words.
QWidget* pairEdit(QWidget* parent, HglKey k, const char* example) {
    auto* w = new QWidget(parent);
    w->setObjectName(hglKey(k).key);
    const QStringList examples = QString::fromLatin1(example).split(' ');
    QLineEdit* open = lineEdit(w, "open", pairSide(k), nullptr);
    QLineEdit* close = lineEdit(w, "close", pairSide(k), nullptr);
    open->setPlaceholderText(examples.value(0));
    close->setPlaceholderText(examples.value(1));
    // A blank would split the value into other words than the two.
    for (QLineEdit* e : {open, close}) e->setValidator(new QRegularExpressionValidator(QRegularExpression("\\S*"), e));
    auto* row = new QHBoxLayout(w);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(open);
    row->addWidget(close);
    return w;
}

}  // namespace

TSyntaxHighlightDefineLangDlg::TSyntaxHighlightDefineLangDlg(QWidget* parent, const SyntaxEditLanguage& lang)
    : QDialog(parent), lang_(lang) {
    setWindowTitle(QString::fromLatin1(dlgmsg::kDefineLangTitle).arg(fromCp1252(lang.name)));
    tabs_ = new QTabWidget(this);
    for (int p = 0; p < static_cast<int>(std::size(dlgmsg::kDefinePageTitles)); ++p)
        tabs_->addTab(page(static_cast<DefinePage>(p)), QString::fromLatin1(dlgmsg::kDefinePageTitles[p]));
    auto* preview = new TSyntaxPreview(this);
    preview->setFixedHeight(preview->fontMetrics().lineSpacing() * kPreviewLines);
    auto* previewBox = new QGroupBox(QString::fromLatin1(dlgmsg::kPreview), this);
    (new QVBoxLayout(previewBox))->addWidget(preview);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &TSyntaxHighlightDefineLangDlg::finish);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_);
    layout->addWidget(previewBox);
    layout->addWidget(buttons);
    setMinimumWidth(kDialogWidth);

#define ZOL_HGL_SHOW(id, key, kind, def, buffer, field) show##kind(HglKey::id, lang.field);
    ZOL_HGL_KEYS(ZOL_HGL_SHOW)
#undef ZOL_HGL_SHOW
    preview_ = preview;
    refreshPreview();
    control<QLineEdit>(HglKey::FilePattern)->setFocus();
}

// Enter in the keyword box adds what it holds, and only that: the dialog stays.
bool TSyntaxHighlightDefineLangDlg::eventFilter(QObject* watched, QEvent* e) {
    if (watched != newKeyword_ || e->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, e);
    const int key = static_cast<QKeyEvent*>(e)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    addKeywords();
    return true;
}

QWidget* TSyntaxHighlightDefineLangDlg::page(DefinePage which) {
    if (which == DefinePage::Keywords) return keywordsPage();
    auto* w = new QWidget(this);
    auto* form = new QFormLayout(w);
    for (const DefineField& f : dlgmsg::kDefineFields)
        if (f.page == which) addControl(w, form, f);
    return w;
}

void TSyntaxHighlightDefineLangDlg::addControl(QWidget* page, QFormLayout* form, const DefineField& f) {
    const HglKeyInfo& info = hglKey(f.key);
    const QString label = QString::fromLatin1(f.label);
    auto changed = [this] { refreshPreview(); };
    switch (info.kind) {
    case HglKind::YesNo: {
        auto* c = new QCheckBox(label, page);
        c->setObjectName(info.key);
        connect(c, &QCheckBox::toggled, this, changed);
        form->addRow(c);
        return;
    }
    case HglKind::Number: {
        auto* s = new QSpinBox(page);
        s->setObjectName(info.key);
        s->setRange(0, numberMaximum(f.key));
        s->setSpecialValueText(QString::fromLatin1(dlgmsg::kNoLimit));
        s->setMaximumWidth(s->fontMetrics().averageCharWidth() * kNumberBoxChars);
        connect(s, &QSpinBox::valueChanged, this, changed);
        form->addRow(label, s);
        return;
    }
    case HglKind::Colour: {
        QComboBox* c = paletteChoice(page);
        c->setObjectName(info.key);
        connect(c, &QComboBox::currentIndexChanged, this, changed);
        form->addRow(label, c);
        return;
    }
    case HglKind::Pair: {
        QWidget* w = pairEdit(page, f.key, f.example);
        for (QLineEdit* e : w->findChildren<QLineEdit*>()) connect(e, &QLineEdit::textChanged, this, changed);
        form->addRow(label, w);
        return;
    }
    default: {
        const bool one = info.kind == HglKind::Char;
        QLineEdit* e = lineEdit(page, info.key, one ? 1 : static_cast<int>(info.buffer) - 1, f.example);
        if (one) e->setMaximumWidth(e->fontMetrics().averageCharWidth() * kCharBoxChars);
        connect(e, &QLineEdit::textChanged, this, changed);
        form->addRow(label, e);
        return;
    }
    }
}

QWidget* TSyntaxHighlightDefineLangDlg::keywordsPage() {
    const DefineField& f = fieldOf(HglKey::Keyword);
    auto* w = new QWidget(this);
    newKeyword_ = new QLineEdit(w);
    newKeyword_->setObjectName("newKeyword");
    newKeyword_->setPlaceholderText(QString::fromLatin1(f.example));
    auto* add = new QPushButton(QString::fromLatin1(dlgmsg::kKeywordAdd), w);
    add->setObjectName("addKeyword");
    keywords_ = new QListWidget(w);
    keywords_->setObjectName(hglKey(HglKey::Keyword).key);
    keywords_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    keywords_->setFlow(QListView::TopToBottom);
    keywords_->setWrapping(true);
    keywords_->setResizeMode(QListView::Adjust);
    auto* remove = new QPushButton(QString::fromLatin1(dlgmsg::kKeywordRemove), w);
    remove->setObjectName("removeKeyword");
    connect(add, &QPushButton::clicked, this, &TSyntaxHighlightDefineLangDlg::addKeywords);
    newKeyword_->installEventFilter(this);
    connect(remove, &QPushButton::clicked, this, &TSyntaxHighlightDefineLangDlg::removeKeywords);
    auto* label = new QLabel(QString::fromLatin1(f.label), w);
    label->setBuddy(newKeyword_);
    auto* entry = new QHBoxLayout;
    entry->addWidget(label);
    entry->addWidget(newKeyword_, 1);
    entry->addWidget(add);
    entry->addWidget(remove);
    auto* note = new QLabel(QString::fromLatin1(dlgmsg::kKeywordNote), w);
    note->setWordWrap(true);
    auto* layout = new QVBoxLayout(w);
    layout->addLayout(entry);
    layout->addWidget(keywords_, 1);
    layout->addWidget(note);
    return w;
}

template <class W>
W* TSyntaxHighlightDefineLangDlg::control(HglKey k) const {
    return findChild<W*>(hglKey(k).key);
}

void TSyntaxHighlightDefineLangDlg::showText(HglKey k, const std::string& v) { control<QLineEdit>(k)->setText(fromCp1252(v)); }

void TSyntaxHighlightDefineLangDlg::showPair(HglKey k, const std::string& v) {
    const QStringList words = fromCp1252(v).split(' ', Qt::SkipEmptyParts);
    auto* w = control<QWidget>(k);
    w->findChild<QLineEdit*>("open")->setText(words.value(0).left(pairSide(k)));
    w->findChild<QLineEdit*>("close")->setText(words.value(1).left(pairSide(k)));
}

void TSyntaxHighlightDefineLangDlg::showYesNo(HglKey k, bool v) { control<QCheckBox>(k)->setChecked(v); }
void TSyntaxHighlightDefineLangDlg::showNumber(HglKey k, int16_t v) { control<QSpinBox>(k)->setValue(v); }
void TSyntaxHighlightDefineLangDlg::showChar(HglKey k, char v) { showText(k, v ? std::string(1, v) : std::string()); }
void TSyntaxHighlightDefineLangDlg::showKeywords(HglKey, const std::array<std::string, kMaxKeywordLen + 1>&) { fillKeywords(); }

void TSyntaxHighlightDefineLangDlg::showColour(HglKey k, int v) {
    auto* c = control<QComboBox>(k);
    c->setCurrentIndex(std::max(0, c->findData(v)));
}

bool TSyntaxHighlightDefineLangDlg::bytesOf(QLineEdit* edit, std::string& out) {
    if (!strict_) {
        out = toCp1252Lossy(edit->text());
        return true;
    }
    if (toCp1252(edit->text(), out)) return true;
    problem_ = QString::fromLatin1(dlgmsg::kNotInCodePage);
    problemAt_ = edit;
    return false;
}

bool TSyntaxHighlightDefineLangDlg::takeText(HglKey k, std::string& v) { return bytesOf(control<QLineEdit>(k), v); }

bool TSyntaxHighlightDefineLangDlg::takePair(HglKey k, std::string& v) {
    auto* w = control<QWidget>(k);
    auto* openEdit = w->findChild<QLineEdit*>("open");
    auto* closeEdit = w->findChild<QLineEdit*>("close");
    std::string open, close;
    if (!bytesOf(openEdit, open) || !bytesOf(closeEdit, close)) return false;
    if (strict_ && open.empty() != close.empty()) {
        problem_ = QString::fromLatin1(dlgmsg::kPairIncomplete).arg(plainLabel(fieldOf(k).label));
        problemAt_ = open.empty() ? openEdit : closeEdit;
        return false;
    }
    v = open.empty() || close.empty() ? open + close : open + " " + close;
    return true;
}

bool TSyntaxHighlightDefineLangDlg::takeYesNo(HglKey k, bool& v) {
    v = control<QCheckBox>(k)->isChecked();
    return true;
}

bool TSyntaxHighlightDefineLangDlg::takeNumber(HglKey k, int16_t& v) {
    v = static_cast<int16_t>(control<QSpinBox>(k)->value());
    return true;
}

bool TSyntaxHighlightDefineLangDlg::takeChar(HglKey k, char& v) {
    std::string s;
    if (!bytesOf(control<QLineEdit>(k), s)) return false;
    v = s.empty() ? 0 : s[0];
    return true;
}

bool TSyntaxHighlightDefineLangDlg::takeKeywords(HglKey, std::array<std::string, kMaxKeywordLen + 1>& v) {
    v = lang_.keywords;
    return true;
}

bool TSyntaxHighlightDefineLangDlg::takeColour(HglKey k, int& v) {
    v = control<QComboBox>(k)->currentData().toInt();
    return true;
}

bool TSyntaxHighlightDefineLangDlg::collect(SyntaxEditLanguage& out, bool strict) {
    strict_ = strict;
    out = lang_;
    bool ok = true;
#define ZOL_HGL_TAKE(id, key, kind, def, buffer, field) ok = ok && take##kind(HglKey::id, out.field);
    ZOL_HGL_KEYS(ZOL_HGL_TAKE)
#undef ZOL_HGL_TAKE
    return ok;
}

void TSyntaxHighlightDefineLangDlg::refreshPreview() {
    if (!preview_) return;
    SyntaxEditLanguage now;
    collect(now, false);
    const SyntaxHighlight def = definitionOf(now);
    preview_->setDefinition(def);
    preview_->offerSample(sampleText(def));
}

void TSyntaxHighlightDefineLangDlg::finish() {
    SyntaxEditLanguage out;
    if (!collect(out, true)) {
        QMessageBox::warning(this, windowTitle(), problem_);
        for (QWidget* w = problemAt_; w; w = w->parentWidget())
            if (int at = tabs_->indexOf(w); at >= 0) tabs_->setCurrentIndex(at);
        problemAt_->setFocus();
        return;
    }
    lang_ = std::move(out);
    accept();
}

bool TSyntaxHighlightDefineLangDlg::run(QWidget* parent, SyntaxEditLanguage& lang) {
    TSyntaxHighlightDefineLangDlg dlg(parent, lang);
    if (dlg.exec() != QDialog::Accepted) return false;
    lang = dlg.lang_;
    return true;
}

// ---- Keywords

void TSyntaxHighlightDefineLangDlg::fillKeywords() {
    QStringList words;
    for (size_t n = 1; n < lang_.keywords.size(); ++n)
        for (size_t at = 0; at + n <= lang_.keywords[n].size(); at += n)
            words << fromCp1252(std::string_view(lang_.keywords[n]).substr(at, n));
    std::sort(words.begin(), words.end(), [](const QString& a, const QString& b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
    keywords_->clear();
    keywords_->addItems(words);
}

void TSyntaxHighlightDefineLangDlg::addKeywords() {
    QStringList words = newKeyword_->text().split(QRegularExpression("\\s+"), Qt::SkipEmptyParts);
    while (!words.isEmpty()) {
        std::string word;
        if (!toCp1252(words.front(), word)) {
            QMessageBox::warning(this, windowTitle(), QString::fromLatin1(dlgmsg::kNotInCodePage));
            break;
        }
        if (word.size() > static_cast<size_t>(kMaxKeywordLen)) {
            QMessageBox::warning(this, windowTitle(),
                                 QString::fromLatin1(dlgmsg::kKeywordTooLong).arg(kMaxKeywordLen).arg(words.front()));
            break;
        }
        if (keywordAt(lang_.keywords[word.size()], word) == std::string::npos && !addKeyword(lang_, word)) break;
        words.pop_front();
    }
    // What could not be added stays in the box, to be shortened or dropped.
    newKeyword_->setText(words.join(' '));
    fillKeywords();
    refreshPreview();
}

void TSyntaxHighlightDefineLangDlg::removeKeywords() {
    for (const QListWidgetItem* item : keywords_->selectedItems()) {
        std::string word;
        if (!toCp1252(item->text(), word)) continue;
        std::string& list = lang_.keywords[word.size()];
        if (const size_t at = keywordAt(list, word); at != std::string::npos) list.erase(at, word.size());
    }
    fillKeywords();
    refreshPreview();
}

}  // namespace zol
