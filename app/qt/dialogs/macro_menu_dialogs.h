// The dialogs of the user's macro menu: "Customize Macro Menu" (the items in menu
// order), "Add Macro" (one item: a keystroke macro or a VEK C script) and the list of
// keystroke macros to pick from ("MacroList").
#pragma once
#include <QDialog>
#include <string>

#include "script/macro_menu.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace zol {

class TMacroListDlg : public QDialog {
    Q_OBJECT
public:
    explicit TMacroListDlg(QWidget* parent);
    // name comes in as the one to select; false when cancelled or there is no macro.
    static bool run(QWidget* parent, std::string& name);

private:
    QListWidget* list_;
};

class TMacroMenuAddDlg : public QDialog {
    Q_OBJECT
public:
    TMacroMenuAddDlg(QWidget* parent, const QString& title, const MacroMenuItem& item);
    // item comes in as shown and goes out as the user left it; false when cancelled.
    static bool run(QWidget* parent, const QString& title, MacroMenuItem& item);

private:
    void choose();
    void check();
    void updateKind();

    MacroMenuItem item_;
    QRadioButton* macro_;
    QRadioButton* script_;
    QLineEdit* menuText_;
    QLineEdit* description_;
    QLabel* cmdLineLabel_;
    QLineEdit* cmdLine_;
};

// Works on a copy: OK puts it in place and saves it in the settings at once.
class TMacroMenuDlg : public QDialog {
    Q_OBJECT
public:
    explicit TMacroMenuDlg(QWidget* parent);
    static bool run(QWidget* parent);

private:
    void fill(int select);
    void add();
    void change();
    void remove();
    void move(int by);
    void updateButtons();

    MacroMenu menu_;
    QListWidget* list_;
    QLabel* full_;
    QPushButton* add_;
    QPushButton* change_;
    QPushButton* remove_;
    QPushButton* up_;
    QPushButton* down_;
};

}  // namespace zol
