#include "app/qt/dialogs/spelling_dialog.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "app/qt/dialogs/cp1252.h"
#include "app/qt/dialogs/spelling_messages.h"
#include "app/qt/editor_view.h"
#include "engine/columns.h"
#include "engine/selection.h"
#include "engine/shell.h"
#include "proofing/messages.h"
#include "proofing/speller.h"

namespace zol {
namespace {

// Characters of the line shown on each side of the word.
constexpr int kContextChars = 50;

QString contextHtml(std::string_view line, const Misspelling& m) {
    const size_t from = m.begin > kContextChars ? m.begin - kContextChars : 0;
    const size_t to = std::min(line.size(), m.end + kContextChars);
    auto part = [&](size_t a, size_t b) { return fromCp1252(line.substr(a, b - a)).toHtmlEscaped(); };
    return QStringLiteral("%1<b style=\"color:#c00000\">%2</b>%3")
        .arg(part(from, m.begin), part(m.begin, m.end), part(m.end, to));
}

}  // namespace

TSpellingDlg::TSpellingDlg(QWidget* parent, SpellSession& session) : QDialog(parent), session_(session) {
    setWindowTitle(QString::fromLatin1(proofui::kSpellingTitle));
    context_ = new QLabel(this);
    context_->setObjectName("context");
    context_->setTextFormat(Qt::RichText);
    context_->setWordWrap(true);
    context_->setMinimumWidth(360);
    changeTo_ = new QLineEdit(this);
    changeTo_->setObjectName("changeTo");
    suggestions_ = new QListWidget(this);
    suggestions_->setObjectName("suggestions");
    status_ = new QLabel(this);
    status_->setObjectName("status");
    auto button = [this](const char* text, const char* name) {
        auto* b = new QPushButton(QString::fromLatin1(text), this);
        b->setObjectName(name);
        b->setAutoDefault(false);
        return b;
    };
    ignore_ = button(proofui::kIgnore, "ignore");
    ignoreAll_ = button(proofui::kIgnoreAll, "ignoreAll");
    change_ = button(proofui::kChange, "change");
    changeAll_ = button(proofui::kChangeAll, "changeAll");
    add_ = button(proofui::kAdd, "add");
    QPushButton* close = button(proofui::kClose, "close");
    change_->setDefault(true);

    auto* grid = new QGridLayout(this);
    grid->addWidget(new QLabel(QString::fromLatin1(proofui::kNotInDictionary), this), 0, 0, 1, 2);
    grid->addWidget(context_, 1, 0, 1, 2);
    auto* changeLabel = new QLabel(QString::fromLatin1(proofui::kChangeTo), this);
    changeLabel->setBuddy(changeTo_);
    grid->addWidget(changeLabel, 2, 0);
    grid->addWidget(changeTo_, 3, 0);
    auto* listLabel = new QLabel(QString::fromLatin1(proofui::kSuggestions), this);
    listLabel->setBuddy(suggestions_);
    grid->addWidget(listLabel, 4, 0);
    grid->addWidget(suggestions_, 5, 0);
    auto* buttons = new QVBoxLayout;
    for (QPushButton* b : {ignore_, ignoreAll_, change_, changeAll_, add_}) buttons->addWidget(b);
    buttons->addStretch();
    buttons->addWidget(close);
    grid->addLayout(buttons, 2, 1, 4, 1);
    grid->addWidget(status_, 6, 0, 1, 2);

    connect(suggestions_, &QListWidget::currentTextChanged, changeTo_, &QLineEdit::setText);
    connect(suggestions_, &QListWidget::itemDoubleClicked, this, [this] { changeWord(false); });
    connect(ignore_, &QPushButton::clicked, this, [this] { session_.ignore(current_), answered(); });
    connect(ignoreAll_, &QPushButton::clicked, this, [this] { session_.ignoreAll(current_), answered(); });
    connect(change_, &QPushButton::clicked, this, [this] { changeWord(false); });
    connect(changeAll_, &QPushButton::clicked, this, [this] { changeWord(true); });
    connect(add_, &QPushButton::clicked, this, [this] {
        if (!session_.addToDictionary(current_))
            shell().message(proofmsg::fill(proofmsg::kUserDictReadOnly, current_.word, session_.checker().userDictPath()));
        answered();
    });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    slice_.setSingleShot(true);
    connect(&slice_, &QTimer::timeout, this, &TSpellingDlg::searchOn);
    enableAnswers(false);
    slice_.start(0);
}

void TSpellingDlg::enableAnswers(bool on) {
    for (QWidget* w : std::initializer_list<QWidget*>{ignore_, ignoreAll_, change_, changeAll_, add_, changeTo_, suggestions_})
        w->setEnabled(on);
}

void TSpellingDlg::searchOn() {
    switch (session_.next(current_)) {
    case SpellStep::Found: return showWord();
    case SpellStep::Paused:
        status_->setText(QString::fromLatin1(proofui::kChecking)
                             .arg(session_.linesDone() + 1)
                             .arg(session_.linesTotal()));
        slice_.start(0);
        return;
    case SpellStep::Finished:
        completed_ = true;
        accept();
        return;
    }
}

void TSpellingDlg::showWord() {
    Document& doc = session_.document();
    const std::string_view line = lineText(doc, current_.line);
    setSelection(doc, makePos(columnOfOffset(line, current_.begin), current_.line),
                 makePos(columnOfOffset(line, current_.end), current_.line));
    if (auto* view = dynamic_cast<TVekWinEditor*>(doc.view)) {
        view->showCursorNow();
        keepClearOf(view);
    }
    context_->setText(contextHtml(line, current_));
    status_->clear();
    suggestions_->clear();
    const std::vector<std::string> words = session_.checker().suggest(current_.word);
    for (const std::string& w : words) suggestions_->addItem(fromCp1252(w));
    enableAnswers(true);
    changeTo_->setText(words.empty() ? fromCp1252(current_.word) : fromCp1252(words.front()));
    if (words.empty()) suggestions_->addItem(QString::fromLatin1(proofui::kNoSuggestions)), suggestions_->setEnabled(false);
    else suggestions_->setCurrentRow(0);
    changeTo_->setFocus();
    changeTo_->selectAll();
}

// Moves the dialog off the word it asks about, below it or else above it.
void TSpellingDlg::keepClearOf(TVekWinEditor* view) {
    const QRect caret = view->caretRect();
    if (caret.isEmpty()) return;
    const QRect word(view->viewport()->mapToGlobal(QPoint(0, caret.top())), QSize(view->viewport()->width(), caret.height()));
    const QRect me = frameGeometry();
    if (!me.intersects(word)) return;
    const QRect screen = view->screen()->availableGeometry();
    const int below = word.bottom() + view->lineHeight();
    move(me.left(), below + me.height() <= screen.bottom() ? below : std::max(screen.top(), word.top() - view->lineHeight() - me.height()));
}

void TSpellingDlg::answered() {
    enableAnswers(false);
    slice_.start(0);
}

void TSpellingDlg::changeWord(bool all) {
    std::string to;
    if (!toCp1252(changeTo_->text(), to)) {
        shell().message(proofui::kNotInCodePage);
        return;
    }
    const bool ok = to == current_.word ? (session_.ignore(current_), true)
                    : all               ? session_.changeAll(current_, to)
                                        : session_.change(current_, to);
    if (!ok) shell().message(proofmsg::kLineTooLong);
    if (auto* view = dynamic_cast<TVekWinEditor*>(session_.document().view)) view->showCursorNow();
    answered();
}

void TSpellingDlg::run(QWidget* parent, SpellSession& session) {
    TSpellingDlg dlg(parent, session);
    dlg.exec();
    clearSelection(session.document());
    if (auto* view = dynamic_cast<TVekWinEditor*>(session.document().view)) view->showCursorNow();
    if (dlg.completed()) shell().message(proofmsg::kCheckComplete);
}

}  // namespace zol
