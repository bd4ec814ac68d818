// The symbol table: every Windows-1252 character from 1 to 255, one to pick.
#pragma once
#include <QDialog>

class QLabel;
class QTableWidget;

namespace zol {

class TCharacterDialog : public QDialog {
    Q_OBJECT
public:
    TCharacterDialog(QWidget* parent, const QString& title);
    // The chosen character 1..255, -1 when cancelled.
    static int run(QWidget* parent, const QString& title);

private:
    int chosen() const;
    QTableWidget* table_;
    QLabel* code_;
};

}  // namespace zol
