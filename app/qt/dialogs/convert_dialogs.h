// The two dialogs of the "ConvertText" command: "Convert Text" (which table, and the
// selection or the whole text) and "Convert Table" (which table of "TEXT.CNV").
#pragma once
#include <QDialog>
#include <string>
#include <vector>

#include "files/convert_command.h"

class QCheckBox;
class QListWidget;
class QRadioButton;

namespace zol {

class TConvertTextDlg : public QDialog {
    Q_OBJECT
public:
    TConvertTextDlg(QWidget* parent, const ConvertChoice& choice);
    // choice changes only on OK.
    static bool run(QWidget* parent, ConvertChoice& choice);

private:
    QRadioButton* kinds_[3];
    QCheckBox* selectedOnly_;
};

class TConvertTableDlg : public QDialog {
    Q_OBJECT
public:
    // What the dialog was closed with; EditTables asks for "TEXT.CNV" to be opened.
    enum Outcome { Cancelled, Chosen, EditTables };
    TConvertTableDlg(QWidget* parent, const std::vector<std::string>& names, const std::string& picked);
    static Outcome run(QWidget* parent, const std::vector<std::string>& names, std::string& picked);

private:
    QListWidget* list_;
};

// Makes the two dialogs the command's, as children of frame, until frame goes; the
// frame calls it once.
void installConvertChooser(QWidget* frame);

}  // namespace zol
