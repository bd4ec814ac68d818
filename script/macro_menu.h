// The user's macro menu, kept in the settings under "MacroMenu".
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace zol {

constexpr const char* kMacroMenuSection = "MacroMenu";

struct MacroMenuItem {
    std::string menuText;     // at most 39 characters; never empty once loaded
    std::string description;  // at most 79 characters
    std::string cmdLine;      // at most 1023 characters
    bool script = true;       // the command line is a script to run
};

struct MacroMenu {
    std::vector<MacroMenuItem> items;  // menu order, at most macromsg::kMaxMenuItems
};

MacroMenu& macroMenu();

// The text an item shows: its menu text, or "Macro %d" with its position from 1.
std::string macroMenuLabel(const MacroMenu& menu, size_t index);

// Owner routines of the settings section.
void loadMacroMenu(std::string_view section, std::string_view file);
void saveMacroMenu(std::string_view section, std::string_view file);

}  // namespace zol
