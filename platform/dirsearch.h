// Directory search by wildcard, in the manner of FindFirstFile/FindNextFile.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace zol {

struct FoundFile {
    std::string name;  // name inside the searched folder, never "." or ".."
    bool isDirectory = false;
};

// "*" matches any run of characters, "?" exactly one. A pattern ending in ".*" also
// matches names without that dot ("*.*" matches every name, "a.*" matches "a").
bool wildcardMatch(std::string_view pattern, std::string_view name, bool ignoreCase);

// The entries of the pattern's folder part (the current folder when it has none) whose
// names match its file part, sorted by name without regard to case. Empty when the
// folder cannot be read.
std::vector<FoundFile> findFiles(std::string_view pattern, bool ignoreCase = true);

}  // namespace zol
