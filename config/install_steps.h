// The install and upgrade steps that run before the settings are read: the first-run
// step, the uninstall fix-up, the upgrade of an old user-tool default, and the family
// install record "vek.ini".
#pragma once
#include <string_view>

namespace zol {

constexpr const char* kVersionText = "3.0";
constexpr const char* kLanguageText = "1033";
constexpr const char* kInstallKey = "Software\\VEK\\Zolder\\Install";

// When the current user's install key holds "Start" = 0 (set by an installer, or by a
// shipped "registry.ini"), marks it 1 and prepares the first run: clears the install
// record, asks for the association dialog, turns the tips off, and gives an empty
// tool list its two starter tools and an empty macro menu its three starter entries.
void firstRunStep();
// Puts the uninstaller's path before an uninstall command that starts with its options.
void uninstallFixup();
// Replaces the argument line that early versions gave the second user tool.
void upgradeUserToolArguments();
// Records programPath, the version and the language in "vek.ini" when they changed.
void updateFamilyFile(std::string_view programPath);

}  // namespace zol
