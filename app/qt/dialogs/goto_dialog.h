// Asks for one number: the line or column to go to.
#pragma once
#include <QDialog>

class QLineEdit;

namespace zol {

class TGoToDialog : public QDialog {
    Q_OBJECT
public:
    TGoToDialog(QWidget* parent, const QString& prompt, int value);
    // value comes in as the suggestion; false when cancelled, value then unchanged.
    static bool run(QWidget* parent, const QString& prompt, int& value);

private:
    QLineEdit* edit_;
};

}  // namespace zol
