// Temporary files and folders.
#pragma once
#include <string>
#include <string_view>

namespace zol {

// $TMPDIR when it names a folder, else "/tmp/"; always ends in "/".
std::string tempDir();

// Like GetTempFileName: creates a new empty file named from up to three characters of
// prefix, four hexadecimal digits and ".tmp" in dir (tempDir() when dir is empty) and
// returns its path; empty when no name could be taken.
std::string createTempFile(std::string_view dir, std::string_view prefix);

// A new folder, readable by this user only, below tempDir(); its path ends in "/".
// Empty on failure.
std::string createTempDir(std::string_view prefix);

}  // namespace zol
