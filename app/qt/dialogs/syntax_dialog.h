// "Syntax &Highlighting...": the list of language definitions in "syntax.hgl", with
// adding, removing, ordering and defining languages. Nothing reaches the file before
// OK; OK writes it whole, loads the table again and recolours the open documents.
#pragma once
#include <QDialog>
#include <string>
#include <vector>

#include "syntax/edit_copy.h"

class QComboBox;
class QLineEdit;
class QPushButton;
class QTreeWidget;

namespace zol {

class TSyntaxHighlightDlg : public QDialog {
    Q_OBJECT
public:
    TSyntaxHighlightDlg(QWidget* parent, const std::string& path);
    // Edits the definitions of the home folder's "syntax.hgl"; false when cancelled.
    static bool run(QWidget* parent);
    static bool run(QWidget* parent, const std::string& path);

private:
    void fill(int select);
    int current() const;
    void updateButtons();
    void addLanguage();
    void removeLanguage();
    void defineLanguage();
    void move(int by);
    void save();

    std::string path_;
    std::vector<SyntaxEditLanguage> langs_;
    QTreeWidget* list_;
    QPushButton *remove_, *define_, *up_, *down_;
};

// The name of a new language and, optionally, the definition it starts from.
class TSyntaxHighlightAddLangDlg : public QDialog {
    Q_OBJECT
public:
    TSyntaxHighlightAddLangDlg(QWidget* parent, std::vector<SyntaxEditLanguage>& langs);
    // Appends the new language to langs; false when cancelled. A name that is taken
    // keeps the dialog open.
    static bool run(QWidget* parent, std::vector<SyntaxEditLanguage>& langs);

private:
    void check();

    std::vector<SyntaxEditLanguage>& langs_;
    QLineEdit* name_;
    QComboBox* copyOf_;
};

}  // namespace zol
