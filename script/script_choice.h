// The scripts a user picks from: the ".c" files below the home's "script/" folder, and
// how a name the user gives (in the script dialog, or as a macro-menu item's command
// line such as "wordwrap") becomes the path of a script.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace zol {

// The home's "script/" folder, ending in "/".
std::string scriptFolder();

// The ".c" files below folder, as paths relative to it with "/" between the parts,
// sorted without regard to case, a folder's files before its subfolders'. Folders
// deeper than kMaxScriptFolderDepth are not searched.
std::vector<std::string> scriptsBelow(const std::string& folder);
// Enough for any sensible tree of scripts, and an end to a link that loops back.
inline constexpr int kMaxScriptFolderDepth = 8;

// A name without a folder, or with a relative one, lies below the script folder; an
// absolute path stays. A name that is no file there and has no extension gets ".c":
// "wordwrap" is "script/wordwrap.c" of the home.
std::string resolveScriptName(std::string_view name);

// A command line: the script (resolved as above) and the words after it, cut as
// splitArgumentLine cuts them.
struct ScriptCommand {
    std::string path;  // empty when the line holds nothing
    std::vector<std::string> args;
};
ScriptCommand scriptCommandOf(std::string_view cmdLine);

// word as splitArgumentLine gives it back: as it is, or in single quotes when it holds
// a blank, a quote or a backslash.
std::string quotedWord(std::string_view word);

// Why path cannot be run (a text of scriptmsg with the name filled in), or empty.
std::string scriptPathProblem(const std::string& path);

// How a script is best named to the user and in a command line: relative to the
// script folder when it lies below it, else the whole path.
std::string scriptDisplayName(const std::string& path);

}  // namespace zol
