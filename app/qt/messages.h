// Every text the desktop shell shows on its own account (the engine's messages come
// through the Shell with their texts already made).
#pragma once

namespace zol::qtmsg {

inline constexpr char kAppTitle[] = "Zolder";
inline constexpr char kReadOnlyDocument[] = "Document is read only!";
inline constexpr char kNotInCodePage[] = "The character U+%1 is not in the Windows-1252 code page.";
inline constexpr char kPendingPrefix[] = "%1 ...";
inline constexpr char kRecording[] = "REC";
inline constexpr char kInsert[] = "INS";
inline constexpr char kOverwrite[] = "OVR";
inline constexpr char kModified[] = "Modified";
inline constexpr char kReadOnly[] = "Read-only";
inline constexpr char kLineColumn[] = "Ln %1, Col %2";
inline constexpr char kNotAvailable[] = "This command is not available in this build.";
inline constexpr char kOpenTitle[] = "Open";
inline constexpr char kSaveAsTitle[] = "Save As";
inline constexpr char kAllFilesFilter[] = "All files (*)";
inline constexpr char kSaveFormatDos[] = "DOS/Windows text (CR LF) (*)";
inline constexpr char kSaveFormatUnix[] = "UNIX text (LF) (*)";
inline constexpr char kSaveFormatMac[] = "Macintosh text (CR) (*)";
inline constexpr char kNoRecentFiles[] = "(none)";
inline constexpr char kDesktopUsage[] = "cannot start the desktop: %1";

// Text formats as the status bar names them, indexed by Document::textFormat.
inline constexpr const char* kFormatNames[] = {"DOS", "UNIX", "MAC"};

// Menu titles of the command groups 1..13 and of the frame's own menus.
inline constexpr const char* kGroupMenus[] = {
    "",         "&Edit",    "&Cursor",  "&Select", "Sea&rch", "&Marks",   "&Block",
    "&Clip",    "&Tools",   "&File",    "M&odes",  "&Window", "&Help",    "S&pecial"};
inline constexpr char kRecentMenu[] = "Recent &Files";
inline constexpr char kCloseAction[] = "&Close";
inline constexpr char kExitAction[] = "E&xit";
inline constexpr char kOptionsAction[] = "&Options...";
inline constexpr char kPlugInsMenu[] = "Plu&g-Ins";
inline constexpr char kTabsAction[] = "&Tabbed Documents";

}  // namespace zol::qtmsg
