#include "app/qt/completion_popup.h"

#include <QKeyEvent>
#include <QScrollBar>

#include "app/qt/dialogs/cp1252.h"
#include "app/qt/dialogs/spelling_dialog.h"
#include "app/qt/editor_view.h"
#include "proofing/commands.h"

namespace zol {
namespace {

constexpr int kVisibleRows = 10;
constexpr int kMaxWidthChars = 70;

QString label(const Candidate& c) {
    QString s = fromCp1252(c.text);
    if (c.detail.empty() || c.detail == c.text) return s;
    QString detail = fromCp1252(c.detail);
    // A snippet's first line shows without its cursor mark.
    if (c.kind == CandidateKind::Snippet) {
        detail.replace(QStringLiteral("^^"), QStringLiteral("\x01")).remove(QLatin1Char('^'));
        detail.replace(QLatin1Char('\x01'), QLatin1Char('^'));
    }
    return s + QStringLiteral("    ") + detail;
}

class QtProofingFrontEnd : public QObject, public ProofingFrontEnd {
public:
    explicit QtProofingFrontEnd(QWidget* frame) : QObject(frame), frame_(frame) { setProofingFrontEnd(this); }
    ~QtProofingFrontEnd() override { setProofingFrontEnd(nullptr); }
    void spellingDialog(SpellSession& session) override { TSpellingDlg::run(frame_, session); }
    void completionPopup(Document& doc, const CompletionPrefix& prefix, std::vector<Candidate> all) override {
        auto* view = dynamic_cast<TVekWinEditor*>(doc.view);
        if (!view) return;
        if (TCompletionPopup* old = TCompletionPopup::of(view)) old->dismiss();
        new TCompletionPopup(view, prefix, std::move(all));
    }

private:
    QWidget* frame_;
};

}  // namespace

void installProofingFrontEnd(QWidget* frame) { new QtProofingFrontEnd(frame); }

TCompletionPopup::TCompletionPopup(TVekWinEditor* view, const CompletionPrefix& prefix, std::vector<Candidate> all)
    : QListWidget(view->viewport()), view_(view), prefix_(prefix), all_(std::move(all)) {
    setObjectName("completionPopup");
    setFocusPolicy(Qt::NoFocus);
    setFont(editorFont());
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view_->installEventFilter(this);
    connect(view_, &TVekWinEditor::commandDone, this, [this] { refilter(); });
    connect(view_, &TVekWinEditor::documentClosed, this, &TCompletionPopup::dismiss);
    connect(this, &QListWidget::itemClicked, this, [this] { acceptCurrent(); });
    refilter();
    show();
}

TCompletionPopup* TCompletionPopup::of(TVekWinEditor* view) {
    for (auto* p : view->viewport()->findChildren<TCompletionPopup*>(QString(), Qt::FindDirectChildrenOnly))
        if (p->isVisible()) return p;
    return nullptr;
}

// Out of sight at once; gone when the event loop comes round.
void TCompletionPopup::dismiss() {
    hide();
    view_->removeEventFilter(this);
    deleteLater();
}

// The prefix as the document now has it; the popup goes when the cursor left the word.
void TCompletionPopup::refilter() {
    Document* doc = view_->document();
    if (!doc) return dismiss();
    const CompletionPrefix now = completionPrefix(*doc);
    if (now.line != prefix_.line || now.begin != prefix_.begin || now.end < now.begin) return dismiss();
    // The command that opened the popup reports itself done as well.
    if (count() > 0 && now.text == prefix_.text) return;
    prefix_ = now;
    shown_ = filterCandidates(all_, prefix_.text, kMaxShown);
    if (shown_.empty()) return dismiss();
    QStringList labels;
    labels.reserve(static_cast<qsizetype>(shown_.size()));
    for (const Candidate* c : shown_) labels.append(label(*c));
    setUpdatesEnabled(false);
    clear();
    addItems(labels);
    setCurrentRow(0);
    setUpdatesEnabled(true);
    place();
}

void TCompletionPopup::place() {
    const QFontMetrics fm(font());
    int widest = 0;
    for (int i = 0; i < count() && i < kVisibleRows * 4; ++i) widest = std::max(widest, fm.horizontalAdvance(item(i)->text()));
    const int w = std::min(widest, fm.averageCharWidth() * kMaxWidthChars) + 2 * frameWidth() + verticalScrollBar()->sizeHint().width() + 8;
    const int h = std::min(count(), kVisibleRows) * sizeHintForRow(0) + 2 * frameWidth();
    const QRect caret = view_->caretRect();
    const QRect area = view_->viewport()->rect();
    int x = std::clamp(caret.left() - fm.horizontalAdvance(fromCp1252(prefix_.text)), 0, std::max(0, area.width() - w));
    int y = caret.bottom() + 1;
    if (y + h > area.height() && caret.top() - h >= 0) y = caret.top() - h;
    setGeometry(x, y, w, h);
}

bool TCompletionPopup::acceptCurrent() {
    Document* doc = view_->document();
    const int row = currentRow();
    if (!doc || row < 0 || row >= shownCount()) return false;
    const Candidate chosen = *shown_[static_cast<size_t>(row)];
    const CompletionPrefix at = prefix_;
    TVekWinEditor* view = view_;
    dismiss();
    disconnect(view_, nullptr, this, nullptr);
    if (acceptCandidate(*doc, at, chosen)) view->showCursorNow();
    return true;
}

bool TCompletionPopup::eventFilter(QObject* watched, QEvent* e) {
    if (watched != view_) return false;
    if (e->type() == QEvent::FocusOut || e->type() == QEvent::MouseButtonPress || e->type() == QEvent::Resize) {
        dismiss();
        return false;
    }
    if (e->type() != QEvent::KeyPress) return false;
    auto* k = static_cast<QKeyEvent*>(e);
    if (k->modifiers() & ~Qt::KeypadModifier & ~Qt::ShiftModifier) return false;
    const int rows = count();
    switch (k->key()) {
    case Qt::Key_Up: setCurrentRow((currentRow() + rows - 1) % rows); return true;
    case Qt::Key_Down: setCurrentRow((currentRow() + 1) % rows); return true;
    case Qt::Key_PageUp: setCurrentRow(std::max(0, currentRow() - kVisibleRows)); return true;
    case Qt::Key_PageDown: setCurrentRow(std::min(rows - 1, currentRow() + kVisibleRows)); return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab: return acceptCurrent();
    case Qt::Key_Escape: dismiss(); return true;
    default: return false;
    }
}

}  // namespace zol
