// Menus made from the rows of app/qt/messages.h: the menu bar and the view's context
// menu. Command items carry their command's id, its description as status tip and the
// first key the key map gives it; an item whose command has no implementation in this
// build is disabled and says so.
#pragma once
#include <QString>
#include <cstdint>
#include <functional>
#include <map>
#include <span>
#include <string>

#include "app/qt/messages.h"

class QAction;
class QMenu;
class QMenuBar;

namespace zol {

struct MenuHooks {
    std::function<void(uint16_t)> command;
    std::function<void(const std::string&)> action;  // a frame action, by its name
};

// Makes the rows' items in bar (Menu rows open its menus) or in menu; returns the
// menus and submenus made, by name.
std::map<std::string, QMenu*> addMenuRows(QMenuBar* bar, std::span<const qtmsg::MenuRow> rows, const MenuHooks& hooks);
std::map<std::string, QMenu*> addMenuRows(QMenu* menu, std::span<const qtmsg::MenuRow> rows, const MenuHooks& hooks);

// The command an item runs, 0 for other items.
uint16_t menuCommand(const QAction* a);
// The frame action an item runs, empty for other items.
std::string menuAction(const QAction* a);
// Brings the keys beside the command items of menu (and its submenus) up to date with
// the key map.
void refreshMenuKeys(QMenu* menu);
// Gives a command item another label, keeping its keys.
void setMenuLabel(QAction* a, const QString& label);
// A label without its mnemonic marks and trailing dots: "Save &As..." gives "Save As".
QString plainLabel(const char* label);
// The command's label in the menu bar without its marks, else its name.
QString commandLabel(const char* name);

}  // namespace zol
