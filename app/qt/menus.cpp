#include "app/qt/menus.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <vector>

#include "config/keymap.h"
#include "engine/command_table.h"

namespace zol {
namespace {

using qtmsg::MenuItem;
using qtmsg::MenuRow;

constexpr char kCommandProperty[] = "zolCommand";
constexpr char kActionProperty[] = "zolAction";
constexpr char kLabelProperty[] = "zolLabel";

QString keyedText(const QString& label, uint16_t id) {
    const std::vector<std::string> keys = commandKeyNames(keyMap(), id);
    if (keys.empty()) return label;
    return label + QLatin1Char('\t') + QString::fromLatin1(keys.front().c_str());
}

void addCommand(QMenu* menu, const MenuRow& row, const MenuHooks& hooks) {
    const CommandRecord* r = findCommand(std::string_view(row.name));
    if (!r) return;
    const QString label = QString::fromLatin1(row.label);
    QAction* a = menu->addAction(keyedText(label, r->id));
    a->setProperty(kCommandProperty, r->id);
    a->setProperty(kLabelProperty, label);
    if (r->owner == CommandOwner::Inert) {
        a->setEnabled(false);
        a->setStatusTip(QString::fromLatin1(qtmsg::kNotAvailableTip));
        a->setToolTip(QString::fromLatin1(qtmsg::kNotAvailableTip));
    } else if (r->description) {
        a->setStatusTip(QString::fromLatin1(r->description));
    }
    const uint16_t id = r->id;
    QObject::connect(a, &QAction::triggered, menu, [run = hooks.command, id] { run(id); });
}

void addAction(QMenu* menu, const MenuRow& row, const MenuHooks& hooks) {
    QAction* a = menu->addAction(QString::fromLatin1(row.label));
    const std::string name = row.name;
    a->setProperty(kActionProperty, QString::fromLatin1(row.name));
    QObject::connect(a, &QAction::triggered, menu, [run = hooks.action, name] { run(name); });
}

// Rows from the first on, into the menus on the stack; a Menu row asks openMenu for a
// new bottom of the stack.
std::map<std::string, QMenu*> build(std::vector<QMenu*> stack, std::span<const MenuRow> rows, const MenuHooks& hooks,
                                    const std::function<QMenu*(const QString&)>& openMenu) {
    std::map<std::string, QMenu*> made;
    for (const MenuRow& row : rows) {
        switch (row.item) {
        case MenuItem::Menu:
            stack = {openMenu(QString::fromLatin1(row.label))};
            made[row.name] = stack.back();
            break;
        case MenuItem::Submenu:
            if (stack.empty()) break;
            stack.push_back(stack.back()->addMenu(QString::fromLatin1(row.label)));
            made[row.name] = stack.back();
            break;
        case MenuItem::End:
            if (stack.size() > 1) stack.pop_back();
            break;
        case MenuItem::Separator:
            if (!stack.empty()) stack.back()->addSeparator();
            break;
        case MenuItem::Command:
            if (!stack.empty()) addCommand(stack.back(), row, hooks);
            break;
        case MenuItem::Action:
            if (!stack.empty()) addAction(stack.back(), row, hooks);
            break;
        }
    }
    return made;
}

}  // namespace

std::map<std::string, QMenu*> addMenuRows(QMenuBar* bar, std::span<const MenuRow> rows, const MenuHooks& hooks) {
    return build({}, rows, hooks, [bar](const QString& label) { return bar->addMenu(label); });
}

std::map<std::string, QMenu*> addMenuRows(QMenu* menu, std::span<const MenuRow> rows, const MenuHooks& hooks) {
    return build({menu}, rows, hooks, [menu](const QString& label) { return menu->addMenu(label); });
}

uint16_t menuCommand(const QAction* a) {
    const QVariant v = a ? a->property(kCommandProperty) : QVariant();
    return v.isValid() ? static_cast<uint16_t>(v.toUInt()) : 0;
}

std::string menuAction(const QAction* a) {
    const QVariant v = a ? a->property(kActionProperty) : QVariant();
    return v.isValid() ? v.toString().toStdString() : std::string();
}

void refreshMenuKeys(QMenu* menu) {
    for (QAction* a : menu->actions()) {
        if (QMenu* sub = a->menu()) refreshMenuKeys(sub);
        if (const uint16_t id = menuCommand(a)) a->setText(keyedText(a->property(kLabelProperty).toString(), id));
    }
}

void setMenuLabel(QAction* a, const QString& label) {
    const uint16_t id = menuCommand(a);
    if (!id) return;
    a->setProperty(kLabelProperty, label);
    a->setText(keyedText(label, id));
}

QString plainLabel(const char* label) {
    QString s = QString::fromLatin1(label);
    s.remove(QLatin1Char('&'));
    while (s.endsWith(QLatin1Char('.'))) s.chop(1);
    return s;
}

QString commandLabel(const char* name) {
    for (const MenuRow& row : qtmsg::kMenuBar)
        if (row.item == MenuItem::Command && std::string_view(row.name) == name) return plainLabel(row.label);
    return QString::fromLatin1(name);
}

}  // namespace zol
