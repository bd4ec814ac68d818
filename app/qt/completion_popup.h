// TCompletionPopup: the candidates of "CodeCompletion" under the cursor, narrowed as
// the user goes on typing into the document. Up and Down choose, Enter or Tab accept,
// Esc, a click elsewhere or leaving the word closes it. It never takes the keyboard
// from the view: it watches the view's keys and commands.
#pragma once
#include <QListWidget>
#include <vector>

#include "proofing/completion.h"

namespace zol {

class TVekWinEditor;

class TCompletionPopup : public QListWidget {
    Q_OBJECT
public:
    // The popup shows at most this many candidates; typing narrows the rest.
    static constexpr int kMaxShown = 200;

    TCompletionPopup(TVekWinEditor* view, const CompletionPrefix& prefix, std::vector<Candidate> all);
    // The popup of a view, if one is open.
    static TCompletionPopup* of(TVekWinEditor* view);
    int shownCount() const { return static_cast<int>(shown_.size()); }
    bool acceptCurrent();
    void dismiss();

protected:
    bool eventFilter(QObject* watched, QEvent* e) override;

private:
    void refilter();
    void place();

    TVekWinEditor* view_;
    CompletionPrefix prefix_;
    std::vector<Candidate> all_;
    std::vector<const Candidate*> shown_;
};

// Makes the desktop the proofing layer's front end: the Spelling dialog and this popup.
void installProofingFrontEnd(QWidget* frame);

}  // namespace zol
