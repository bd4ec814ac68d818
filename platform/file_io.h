// Whole-file reads and crash-safe whole-file writes for the platform layer's own files.
#pragma once
#include <string>
#include <string_view>

namespace zol {

// Reads the whole file into out; false (out emptied) when it cannot be opened or read.
bool readWholeFile(const std::string& path, std::string& out);

// Replaces path's contents with data durably (platform/durable_write.h): a crash leaves
// either the old or the new file, never half of one. An existing file keeps its
// permission bits; a symbolic link keeps pointing where it did and its target is
// replaced. A missing file is created (its folder must exist).
bool replaceFile(const std::string& path, std::string_view data);
// The same; opened tells whether writing could begin (the target could be replaced and
// its folder took the temporary file), so that a caller can tell a file it cannot open
// from a write that failed, for example on a full disk.
bool replaceFile(const std::string& path, std::string_view data, bool& opened);

// Creates path with data and the given permission bits, only when nothing is there
// yet; the file appears complete and on disk, or not at all. False when path exists or on failure.
bool createFileNoReplace(const std::string& path, std::string_view data, unsigned mode);

}  // namespace zol
