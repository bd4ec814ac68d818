// Finding the files that a C source names: the file name at the cursor, the header or
// source file that belongs to a document, and the include directives of a document.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "engine/document.h"

namespace zol {

struct IncludeDirective {
    std::string name;
    bool angled;  // <name> rather than "name"
};

// The name of an include directive in the line (" # include <x>" or ' # include "x"').
bool parseInclude(std::string_view line, IncludeDirective& out);
// Every include directive of the document, in order.
std::vector<IncludeDirective> includeDirectives(const Document& doc);
// The file name at a byte offset of a line: the include directive's name on an include
// line, else the run of file-name characters around the offset. Empty when none.
std::string fileNameAt(std::string_view line, size_t offset);
// The folders of a ";"-separated list, blanks around each trimmed, empty ones dropped.
std::vector<std::string> splitFolders(std::string_view list);
// The first existing file for name: an absolute name as it is; otherwise looked up in
// the folders in order. Empty when none exists.
std::string findFile(std::string_view name, const std::vector<std::string>& folders);
// Candidate names of the partner of a source or header file ("x.c" -> "x.h", ...),
// in the order they are tried; empty for other files.
std::vector<std::string> partnerFileNames(std::string_view fileName);

}  // namespace zol
