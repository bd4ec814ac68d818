#include "app/qt/dialogs/macro_menu_dialogs.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <cstdio>

#include "app/qt/dialogs/cp1252.h"
#include "app/qt/dialogs/messages.h"
#include "app/qt/local_text.h"
#include "config/settings.h"
#include "engine/command_table.h"
#include "files/messages.h"
#include "script/macros.h"
#include "script/script_choice.h"

namespace zol {
namespace {

// Script command lines are file names, bytes in the locale's encoding; the other
// texts are Windows-1252 as the menus show them.

QDialogButtonBox* okCancel(QDialog* dlg) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, dlg);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dlg, &QDialog::reject);
    return buttons;
}

QLineEdit* boundedEdit(QWidget* parent, const char* objectName, const QString& text, size_t size) {
    auto* e = new QLineEdit(text, parent);
    e->setObjectName(objectName);
    e->setMaxLength(static_cast<int>(size) - 1);
    return e;
}

QPushButton* sideButton(QWidget* parent, const char* text, const char* objectName) {
    auto* b = new QPushButton(text, parent);
    b->setObjectName(objectName);
    b->setAutoDefault(false);
    return b;
}

}  // namespace

// ---- The keystroke macros to pick from

TMacroListDlg::TMacroListDlg(QWidget* parent) : QDialog(parent) {
    setObjectName("MacroList");
    setWindowTitle(dlgmsg::kMacroListTitle);
    list_ = new QListWidget(this);
    list_->setObjectName("macros");
    list_->setMinimumSize(320, 200);
    for (const Macro& m : macros().slots) {
        if (!m.used) continue;
        auto* item = new QListWidgetItem(fromCp1252(m.name), list_);
        item->setToolTip(fromCp1252(m.description));
    }
    list_->setCurrentRow(0);
    QDialogButtonBox* buttons = okCancel(this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(list_, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(list_);
    layout->addWidget(buttons);
}

bool TMacroListDlg::run(QWidget* parent, std::string& name) {
    TMacroListDlg dlg(parent);
    const QList<QListWidgetItem*> same = dlg.list_->findItems(fromCp1252(name), Qt::MatchExactly);
    if (!same.isEmpty()) dlg.list_->setCurrentItem(same.front());
    if (dlg.exec() != QDialog::Accepted || !dlg.list_->currentItem()) return false;
    name = toCp1252Lossy(dlg.list_->currentItem()->text());
    return true;
}

// ---- One item

TMacroMenuAddDlg::TMacroMenuAddDlg(QWidget* parent, const QString& title, const MacroMenuItem& item)
    : QDialog(parent), item_(item) {
    setObjectName("MacroMenuAdd");
    setWindowTitle(title);
    macro_ = new QRadioButton(dlgmsg::kAddKeyMacro, this);
    macro_->setObjectName("macro");
    script_ = new QRadioButton(dlgmsg::kAddScript, this);
    script_->setObjectName("script");
    (item.script ? script_ : macro_)->setChecked(true);
    auto* kind = new QButtonGroup(this);
    kind->addButton(macro_);
    kind->addButton(script_);
    menuText_ = boundedEdit(this, "menuText", fromCp1252(item.menuText), macromsg::kMenuTextSize);
    description_ = boundedEdit(this, "description", fromCp1252(item.description), macromsg::kMenuDescSize);
    description_->setMinimumWidth(360);
    const QString cmdLine = item.script ? qs(item.cmdLine) : fromCp1252(item.cmdLine);
    cmdLine_ = boundedEdit(this, "cmdLine", cmdLine, macromsg::kMenuCmdLineSize);
    cmdLineLabel_ = new QLabel(this);
    cmdLineLabel_->setBuddy(cmdLine_);
    auto* choose = sideButton(this, dlgmsg::kChoose, "choose");
    auto* cmdRow = new QHBoxLayout;
    cmdRow->addWidget(cmdLine_, 1);
    cmdRow->addWidget(choose);
    auto* kindRow = new QHBoxLayout;
    kindRow->addWidget(macro_);
    kindRow->addWidget(script_);
    kindRow->addStretch();
    QDialogButtonBox* buttons = okCancel(this);
    auto* form = new QFormLayout(this);
    form->addRow(kindRow);
    form->addRow(cmdLineLabel_, cmdRow);
    form->addRow(dlgmsg::kMenuText, menuText_);
    form->addRow(dlgmsg::kMenuDescription, description_);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &TMacroMenuAddDlg::check);
    connect(choose, &QPushButton::clicked, this, &TMacroMenuAddDlg::choose);
    connect(kind, &QButtonGroup::buttonToggled, this, &TMacroMenuAddDlg::updateKind);
    updateKind();
}

void TMacroMenuAddDlg::updateKind() {
    cmdLineLabel_->setText(script_->isChecked() ? dlgmsg::kMenuScript : dlgmsg::kMenuMacro);
}

// A macro's name and description stand in for empty fields.
void TMacroMenuAddDlg::choose() {
    if (script_->isChecked()) {
        const QString file = QFileDialog::getOpenFileName(this, dlgmsg::kAddScript, qs(scriptFolder()), dlgmsg::kScriptFilter);
        if (!file.isEmpty()) cmdLine_->setText(qs(quotedWord(scriptDisplayName(local(file)))));
        return;
    }
    std::string name = toCp1252Lossy(cmdLine_->text().trimmed());
    if (!TMacroListDlg::run(this, name)) return;
    cmdLine_->setText(fromCp1252(name));
    const Macro* m = macroById(macros(), findMacro(name));
    if (menuText_->text().isEmpty()) menuText_->setText(fromCp1252(name));
    if (m && description_->text().isEmpty()) description_->setText(fromCp1252(m->description));
}

void TMacroMenuAddDlg::check() {
    MacroMenuItem item;
    item.script = script_->isChecked();
    const QString cmdLine = cmdLine_->text().trimmed();
    item.cmdLine = item.script ? local(cmdLine) : toCp1252Lossy(cmdLine);
    std::string problem;
    if (!toCp1252(menuText_->text().trimmed(), item.menuText) || !toCp1252(description_->text(), item.description) ||
        (!item.script && !toCp1252(cmdLine, item.cmdLine)))
        problem = dlgmsg::kNotInCodePage;
    else if (item.menuText.empty())
        problem = macromsg::kMenuTextNeeded;
    else if (item.cmdLine.empty())
        problem = item.script ? macromsg::kMenuScriptNeeded : macromsg::kMenuMacroNeeded;
    else if (item.script)
        problem = scriptPathProblem(scriptCommandOf(item.cmdLine).path);
    else if (!findMacro(item.cmdLine))
        problem = filemsg::withFileName(macromsg::kNoSuchMacro, item.cmdLine);
    if (!problem.empty()) {
        QMessageBox::warning(this, windowTitle(), item.script ? qs(problem) : fromCp1252(problem));
        return;
    }
    item_ = item;
    accept();
}

bool TMacroMenuAddDlg::run(QWidget* parent, const QString& title, MacroMenuItem& item) {
    TMacroMenuAddDlg dlg(parent, title, item);
    if (dlg.exec() != QDialog::Accepted) return false;
    item = dlg.item_;
    return true;
}

// ---- The whole menu

TMacroMenuDlg::TMacroMenuDlg(QWidget* parent) : QDialog(parent), menu_(macroMenu()) {
    setObjectName("MacroMenu");
    setWindowTitle(dlgmsg::kMacroMenuTitle);
    list_ = new QListWidget(this);
    list_->setObjectName("items");
    list_->setMinimumSize(360, 240);
    full_ = new QLabel(macromsg::kMenuFull, this);
    full_->setWordWrap(true);
    add_ = sideButton(this, dlgmsg::kMacroMenuAdd, "add");
    change_ = sideButton(this, dlgmsg::kMacroMenuChange, "change");
    remove_ = sideButton(this, dlgmsg::kMacroMenuRemove, "remove");
    up_ = sideButton(this, dlgmsg::kMacroMenuUp, "up");
    down_ = sideButton(this, dlgmsg::kMacroMenuDown, "down");
    auto* side = new QVBoxLayout;
    for (QPushButton* b : {add_, change_, remove_, up_, down_}) side->addWidget(b);
    side->addStretch();
    auto* top = new QHBoxLayout;
    auto* left = new QVBoxLayout;
    left->addWidget(list_, 1);
    left->addWidget(full_);
    top->addLayout(left, 1);
    top->addLayout(side);
    QDialogButtonBox* buttons = okCancel(this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(buttons);
    connect(add_, &QPushButton::clicked, this, &TMacroMenuDlg::add);
    connect(change_, &QPushButton::clicked, this, &TMacroMenuDlg::change);
    // Enter closes the dialog as in any other list dialog; a double click changes the item.
    connect(list_, &QListWidget::itemDoubleClicked, this, &TMacroMenuDlg::change);
    connect(remove_, &QPushButton::clicked, this, &TMacroMenuDlg::remove);
    connect(up_, &QPushButton::clicked, this, [this] { move(-1); });
    connect(down_, &QPushButton::clicked, this, [this] { move(1); });
    connect(list_, &QListWidget::currentRowChanged, this, &TMacroMenuDlg::updateButtons);
    fill(0);
}

void TMacroMenuDlg::fill(int select) {
    list_->clear();
    for (size_t i = 0; i < menu_.items.size(); ++i) {
        auto* item = new QListWidgetItem(fromCp1252(macroMenuLabel(menu_, i)).remove(QLatin1Char('&')), list_);
        const MacroMenuItem& m = menu_.items[i];
        item->setToolTip(m.script ? qs(m.cmdLine) : fromCp1252(m.cmdLine));
    }
    list_->setCurrentRow(std::min(select, list_->count() - 1));
    updateButtons();
}

void TMacroMenuDlg::updateButtons() {
    const int row = list_->currentRow();
    const bool full = menu_.items.size() >= static_cast<size_t>(macromsg::kMaxMenuItems);
    add_->setEnabled(!full);
    full_->setVisible(full);
    change_->setEnabled(row >= 0);
    remove_->setEnabled(row >= 0);
    up_->setEnabled(row > 0);
    down_->setEnabled(row >= 0 && row + 1 < list_->count());
}

void TMacroMenuDlg::add() {
    if (menu_.items.size() >= static_cast<size_t>(macromsg::kMaxMenuItems)) return;
    MacroMenuItem item;
    char text[macromsg::kMenuTextSize];
    std::snprintf(text, sizeof text, macromsg::kNumberedMenuText, static_cast<int>(menu_.items.size() + 1));
    item.menuText = text;
    if (!TMacroMenuAddDlg::run(this, dlgmsg::kMacroMenuAddTitle, item)) return;
    menu_.items.push_back(item);
    fill(static_cast<int>(menu_.items.size()) - 1);
}

void TMacroMenuDlg::change() {
    const int row = list_->currentRow();
    if (row < 0) return;
    MacroMenuItem& item = menu_.items[static_cast<size_t>(row)];
    if (TMacroMenuAddDlg::run(this, dlgmsg::kMacroMenuChangeTitle, item)) fill(row);
}

void TMacroMenuDlg::remove() {
    const int row = list_->currentRow();
    if (row < 0) return;
    menu_.items.erase(menu_.items.begin() + row);
    fill(row);
}

void TMacroMenuDlg::move(int by) {
    const int row = list_->currentRow(), to = row + by;
    if (row < 0 || to < 0 || to >= list_->count()) return;
    std::swap(menu_.items[static_cast<size_t>(row)], menu_.items[static_cast<size_t>(to)]);
    fill(to);
}

bool TMacroMenuDlg::run(QWidget* parent) {
    TMacroMenuDlg dlg(parent);
    if (dlg.exec() != QDialog::Accepted) return false;
    macroMenu() = dlg.menu_;
    saveMacroMenu(kMacroMenuSection, kSettingsFile);
    return true;
}

}  // namespace zol
