// Every text that installing, loading, unloading and removing plug-ins shows the user.
// "%s" is filled with a module's file or folder, in order.
#pragma once
#include <cstddef>

#include "plugin/plugin_manager.h"

namespace zol::plgmsg {

inline constexpr char kSourceUnreadable[] = "\"%s\" cannot be read. Nothing was installed.";
inline constexpr char kNotALibrary[] =
    "\"%s\" is not a plug-in module: a plug-in is a shared library (ELF) with the extension .zop. Nothing was "
    "installed.";
inline constexpr char kNameClash[] =
    "A plug-in module named \"%s\" is already installed. Remove it first, or rename the new one. Nothing was "
    "installed.";
inline constexpr char kCannotCopy[] = "\"%s\" could not be copied into %s. Nothing was installed.";
inline constexpr char kCannotLoad[] =
    "\"%s\" could not be loaded as a plug-in: it does not export XPP_Initialize, needs a library that is missing, "
    "or refused to start.";
inline constexpr char kNotInstalled[] = "Nothing was installed.";
// kMaxPlugIns (plugin_manager.h): the loader refuses further modules past it.
inline constexpr char kTooManyPlugIns[] = "No more plug-ins can be loaded: at most 61 are loaded at once.";
static_assert(kMaxPlugIns + 1 == 61, "kTooManyPlugIns names the count");
inline constexpr char kRefusesUnload[] = "\"%s\" does not allow unloading now (XPP_CanUnload answered no). Nothing was removed.";
inline constexpr char kCannotRemove[] = "\"%s\" was unloaded but could not be deleted from %s.";
inline constexpr char kNoSuchModule[] = "\"%s\" is not in the plug-in folder any more.";
// The lines of "PlugIns/install.log".
inline constexpr char kLogInstalled[] = "installed %s from %s";
inline constexpr char kLogRemoved[] = "removed %s";

}  // namespace zol::plgmsg
