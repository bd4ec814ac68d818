// The user-tool dialogs: the tool list ("Dlg_UserTools"), the argument line of a tool
// about to run ("ToolArguments") and the external help files ("HelpOptions").
#pragma once
#include <QDialog>
#include <string>
#include <vector>

#include "tools/user_tools.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace zol {

// Edits a copy of the tool list; OK puts it in place and writes "UserTools" at once.
class TUserToolsDlg : public QDialog {
    Q_OBJECT
public:
    explicit TUserToolsDlg(QWidget* parent);
    // True when the list was changed.
    static bool run(QWidget* parent);

    void accept() override;

private:
    void buildForm();
    void buildList();
    void show(int row);
    void store();
    void add();
    void remove();
    void move(int by);
    void browse();
    void refreshButtons();

    std::vector<UserTool> tools_;
    int current_ = -1;
    bool loading_ = false;
    QListWidget* list_;
    QPushButton *add_, *remove_, *up_, *down_;
    QLineEdit *menuText_, *program_, *arguments_, *initialDir_;
    QCheckBox *askArguments_, *capture_, *prompt_;
    QComboBox *save_, *quoting_;
    QWidget* form_;
};

class TToolArgumentsDlg : public QDialog {
    Q_OBJECT
public:
    TToolArgumentsDlg(QWidget* parent, const std::string& tool, const std::string& arguments);
    // arguments comes in expanded and goes out as the user left it; false cancels.
    static bool run(QWidget* parent, const std::string& tool, std::string& arguments);

private:
    QLineEdit* edit_;
};

// Edits "UserHelp"; OK writes it at once.
class THelpOptionsDlg : public QDialog {
    Q_OBJECT
public:
    explicit THelpOptionsDlg(QWidget* parent);
    static bool run(QWidget* parent);

    void accept() override;

private:
    void show(int row);
    void store();

    std::vector<HelpEntry> entries_;
    int current_ = -1;
    bool loading_ = false;
    QLineEdit *context_, *menuString_, *helpFile_;
    QListWidget* list_;
    QPushButton *add_, *remove_;
};

}  // namespace zol
