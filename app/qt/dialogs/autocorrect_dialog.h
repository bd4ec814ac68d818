// TAutoCorrectDlg: the AutoCorrect list with its four rules, and the spelling options
// (dictionary, user dictionary, underlining), on two pages.
#pragma once
#include <QDialog>

#include "proofing/autocorrect.h"

class QCheckBox;
class QLineEdit;
class QTableWidget;

namespace zol {

class TAutoCorrectDlg : public QDialog {
    Q_OBJECT
public:
    explicit TAutoCorrectDlg(QWidget* parent);
    // True when OK changed and saved the list or the spelling options.
    static bool run(QWidget* parent);

private:
    QWidget* autoCorrectPage();
    QWidget* spellingPage();
    void fillTable();
    void addEntry();
    void deleteEntry();
    void apply();

    AutoCorrectList list_;
    QCheckBox *twoCapitals_, *capitalize_, *capsLock_, *replaceText_;
    QLineEdit *replace_, *with_;
    QTableWidget* table_;
    QLineEdit *lexicon_, *userDict_;
    QCheckBox *underlineText_, *underlineSource_, *ignoreUppercase_;
};

}  // namespace zol
