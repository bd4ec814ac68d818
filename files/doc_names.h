// Names of new, unsaved documents: "noname01." and so on, then "nnam0100." from the
// hundredth on, so that a name keeps to eight characters before its extension.
#pragma once
#include <string>
#include <string_view>

namespace zol {

// The name of new document number counter followed by ext (at most
// filemsg::kMaxNewFileExtension characters of it).
std::string newDocumentName(int counter, std::string_view ext);

// The name for the next new document of this run. The count starts at 1 and is never
// reset, so a name is not handed out twice while the program runs.
std::string nextNewDocumentName(std::string_view ext);

}  // namespace zol
