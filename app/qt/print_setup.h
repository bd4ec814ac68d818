// "Page Setup": the paper for this run of the editor, and every key of the "Printing"
// settings (kept with the other settings when the editor closes).
#pragma once
#include <QDialog>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QFontComboBox;
class QLineEdit;
class QSpinBox;

namespace zol {

class TPageSetupDlg : public QDialog {
public:
    explicit TPageSetupDlg(QWidget* parent);
    void accept() override;
    // True when the user pressed OK.
    static bool run(QWidget* parent);

private:
    QComboBox* paper_;
    QCheckBox* landscape_;
    QDoubleSpinBox* margins_[4];  // left, right, top, bottom
    QLineEdit* header_;
    QLineEdit* footer_;
    QComboBox* font_;
    QSpinBox* size_;
    QComboBox* keywordFont_;
    QComboBox* commentFont_;
    QCheckBox* syntax_;
    QCheckBox* colour_;
    QCheckBox* wrap_;
};

}  // namespace zol
