// Every text the desktop shows of plug-ins: their windows and the two plug-in dialogs.
#pragma once

namespace zol::plgqt {

inline constexpr char kWorkspaceTitle[] = "Workspace";
inline constexpr char kCorruptPlace[] =
    "The place of the window \"%1\" kept in registry.ini could not be read; it opens at its first place.";

// "AboutPlugIns"
inline constexpr char kAboutTitle[] = "About Plug-Ins";
inline constexpr char kNameColumn[] = "Name";
inline constexpr char kFileColumn[] = "File";
inline constexpr char kStateColumn[] = "State";
inline constexpr char kAboutButton[] = "&About";
inline constexpr char kHelpButton[] = "&Help";
inline constexpr char kOptionsButton[] = "&Options";
inline constexpr char kNoneLoaded[] = "No plug-in is loaded. Plug-Ins > Add/Remove Plug-Ins installs one.";

// "AddRemovePlugIns"
inline constexpr char kAddRemoveTitle[] = "Add/Remove Plug-Ins";
inline constexpr char kFolderNote[] = "Modules in %1";
inline constexpr char kLoaded[] = "Loaded";
inline constexpr char kNotLoaded[] = "Not loaded";
inline constexpr char kAddButton[] = "&Add...";
inline constexpr char kLoadButton[] = "&Load";
inline constexpr char kUnloadButton[] = "&Unload";
inline constexpr char kRemoveButton[] = "&Remove";
inline constexpr char kAddDialogTitle[] = "Add Plug-In";
inline constexpr char kModuleFilter[] = "Plug-in modules (*.zop);;All files (*)";
inline constexpr char kConfirmRemove[] = "Remove \"%1\"? It is unloaded and its file is deleted from %2.";

}  // namespace zol::plgqt
