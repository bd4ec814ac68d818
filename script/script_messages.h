// Every text that choosing a script to run and the script wizard tell the user. "%s"
// stands for a file name (filemsg::withFileName fills it in).
#pragma once

namespace zol::scriptmsg {

// Choosing a script (the script dialog, the macro menu).
inline constexpr char kNoScriptChosen[] = "Choose a script to run.";
inline constexpr char kScriptMissing[] = "Cannot find the script %s.";
inline constexpr char kScriptIsFolder[] = "%s is a folder, not a script.";
inline constexpr char kScriptRunning[] = "A script is running; only one runs at a time.";

// The wizard.
inline constexpr char kEmptyName[] = "The script needs a name.";
inline constexpr char kBadName[] = "A script name may not contain any of the characters /<>|\"\\?*:";
inline constexpr char kBannerEnd[] =
    "The description and the syntax may not contain \"*/\": it would end the comment they stand in.";
inline constexpr char kReplaceScript[] = "%s already exists. Replace it?";
inline constexpr char kCannotWrite[] =
    "Cannot write %s. Check that the folder exists and that you may write in it; nothing was changed.";

}  // namespace zol::scriptmsg
