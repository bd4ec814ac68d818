#include "script/macro_menu.h"

#include <cstdio>

#include "platform/profile.h"
#include "script/macro_messages.h"

namespace zol {
namespace {

std::string numbered(const char* key, size_t n) { return key + std::to_string(n); }

}  // namespace

MacroMenu& macroMenu() {
    static MacroMenu menu;
    return menu;
}

std::string macroMenuLabel(const MacroMenu& menu, size_t index) {
    if (index < menu.items.size() && !menu.items[index].menuText.empty()) return menu.items[index].menuText;
    char label[32];
    std::snprintf(label, sizeof label, macromsg::kUnnamedMenuItem, static_cast<int>(index + 1));
    return label;
}

void loadMacroMenu(std::string_view section, std::string_view file) {
    MacroMenu& menu = macroMenu();
    menu.items.clear();
    for (size_t n = 1; n <= static_cast<size_t>(macromsg::kMaxMenuItems); ++n) {
        MacroMenuItem item;
        item.menuText = getProfileString(section, numbered("MenuText", n), "", file, macromsg::kMenuTextSize);
        if (item.menuText.empty()) break;
        item.description = getProfileString(section, numbered("Description", n), "", file, macromsg::kMenuDescSize);
        item.cmdLine = getProfileString(section, numbered("CmdLine", n), "", file, macromsg::kMenuCmdLineSize);
        item.script = getProfileInt(section, numbered("Script", n), 1, file) & 1;
        menu.items.push_back(std::move(item));
    }
}

void saveMacroMenu(std::string_view section, std::string_view file) {
    const MacroMenu& menu = macroMenu();
    for (size_t n = 1; n <= menu.items.size(); ++n) {
        const MacroMenuItem& item = menu.items[n - 1];
        writeProfileString(section, numbered("MenuText", n), item.menuText, file);
        writeProfileString(section, numbered("Description", n), item.description, file);
        writeProfileString(section, numbered("CmdLine", n), item.cmdLine, file);
        writeProfileInt(section, numbered("Script", n), item.script ? 1 : 0, file);
    }
    // Items the list no longer has would come back on the next load.
    for (size_t n = menu.items.size() + 1; n <= static_cast<size_t>(macromsg::kMaxMenuItems); ++n)
        if (findProfileString(section, numbered("MenuText", n), file)) writeProfileString(section, numbered("MenuText", n), nullptr, file);
}

}  // namespace zol
