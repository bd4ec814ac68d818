// The Zolder home (where settings and shipped data live) and path-string helpers.
// Both "/" and "\" separate path parts when a path is split; paths are built with "/".
#pragma once
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace zol {

// The home's folder of plug-in modules and of the libraries scripts call.
constexpr const char* kPlugInsFolder = "PlugIns";

// Where the home would be: homeArg (from --home) when given, else $ZOLDER_HOME, else
// $XDG_CONFIG_HOME/zolder, else ~/.config/zolder. Absolute, ending in "/". Pure lookup.
std::string resolveHomeDir(std::string_view homeArg);

// Fixes the home to dir (created with its parents when missing). The folder is taken
// even when it cannot be created, so that later failures name it; false in that case.
bool setHomeDir(std::string_view dir);

// Resolves the home once from the arguments and the environment; see resolveHomeDir.
bool initHomeDir(std::string_view homeArg);

// The home with its trailing "/"; resolved from the environment on first use when
// nobody fixed it before.
const std::string& homeDir();

// The home stands in for the Windows directory: a file name without any folder part
// (no "/" or "\") lands there. Every bare-named profile file goes through this one
// function. A bare name that is missing in that spelling but present in another
// letter case resolves to the file that is there.
std::string resolveBareName(std::string_view name);

// The shipped folder that seeding leaves where it is: the user manual's pages.
inline constexpr std::string_view kUnseededFolder = "help/";

// Seeding the home from the shipped data folder: each shipped file is offered once.
struct SeedResult {
    bool ok = true;                    // false when dataDir could not be read or a copy failed
    int copied = 0;                    // files put into the home
    std::vector<std::string> offered;  // shipped files (relative, "/"-separated) not offered before
};
// Copies into the home every file of dataDir (recursively) that is not in offeredBefore
// and that the home lacks; a file already in the home is never touched, and a file
// offered before stays away even when the user deleted it. What was copied stays when
// a later copy fails.
SeedResult seedHome(std::string_view dataDir, const std::set<std::string>& offeredBefore);

// Full path of the running executable; empty when unknown.
std::string executablePath();

// The process's current folder, ending in "/".
std::string currentDir();

bool isPathSeparator(char c);
bool hasFolderPart(std::string_view path);
// Text after the last separator.
std::string_view fileNamePart(std::string_view path);
// Text up to and including the last separator; empty when there is none.
std::string_view folderPart(std::string_view path);
// Text after the last "." of the file part, without the dot; empty when there is none.
std::string_view extensionPart(std::string_view path);
// folder + "/" + name, adding the "/" only when folder lacks one; name alone when
// folder is empty.
std::string joinPath(std::string_view folder, std::string_view name);
// Absolute form of path: relative names are taken from the current folder; "." and
// ".." parts and repeated separators are folded away, "\" becomes "/"; a trailing
// separator stays. A ".." at the root stays at the root. Lexical only: symbolic links
// are not followed.
std::string fullPath(std::string_view path);

}  // namespace zol
