// The editor commands of the language services and their start-up.
#pragma once
#include <string>

namespace zol {

// Where the extra include folders come from (the "IncludeDirs" setting, ";"-separated).
using IncludeDirsSource = std::string (*)();

// Installs the handlers of "MatchPair", "MatchPreprocNext", "MatchPreprocPrev",
// "MatchHtmlTag", "OpenFileAtCursor", "OpenHeaderFile" and "IncludeFiles" and starts
// keeping the comment bits current after edits. Calling it again only replaces the source.
void initSyntax(IncludeDirsSource includeDirs);

}  // namespace zol
