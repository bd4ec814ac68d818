// A fresh folder of the test's own, removed with everything in it when the test ends.
#pragma once
#include <string>
#include <string_view>

namespace zol::test {

class TempDir {
public:
    explicit TempDir(std::string_view prefix = "zoltest");
    // Removes the folder even where the test took away its own rights.
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    // Ends in "/"; empty when no folder could be made, and so is every path in it, so
    // that nothing lands in the working folder instead.
    const std::string& dir() const { return dir_; }
    std::string path(std::string_view name) const { return dir_.empty() ? dir_ : dir_ + std::string(name); }
    // Writes bytes to the named file, folders above it included, and returns its path.
    std::string put(std::string_view name, std::string_view bytes) const;
    std::string get(std::string_view name) const;
    bool exists(std::string_view name) const;

private:
    std::string dir_;
};

}  // namespace zol::test
