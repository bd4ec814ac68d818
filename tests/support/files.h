// Reading and writing whole files as bytes.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace zol::test {

// The file's bytes; empty when it cannot be read.
std::string readBytes(const std::string& path);
// Replaces the file with bytes, creating the folders above it; false when it cannot.
bool writeBytes(const std::string& path, std::string_view bytes);
// The file's lines without their "\n"; a "\r" before it stays.
std::vector<std::string> readLines(const std::string& path);

// While it lives, no file of the process grows past bytes, as on a full disk: the
// write that would pass the limit fails (root is limited too).
class FileSizeLimit {
public:
    explicit FileSizeLimit(unsigned long bytes);
    ~FileSizeLimit();
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    unsigned long long saved_;
};

}  // namespace zol::test
