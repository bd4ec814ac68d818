#include "tests/support/temp_dir.h"

#include <filesystem>

#include "platform/tempfile.h"
#include "tests/support/files.h"

namespace zol::test {
namespace {

namespace fs = std::filesystem;

void allowEverything(const fs::path& p) {
    std::error_code ec;
    if (fs::is_symlink(p, ec)) return;
    fs::permissions(p, fs::perms::owner_all, fs::perm_options::add, ec);
    if (!fs::is_directory(p, ec)) return;
    for (const auto& e : fs::directory_iterator(p, ec)) allowEverything(e.path());
}

}  // namespace

TempDir::TempDir(std::string_view prefix) : dir_(createTempDir(prefix)) {}

TempDir::~TempDir() {
    if (dir_.empty()) return;
    allowEverything(dir_);
    std::error_code ec;
    fs::remove_all(dir_, ec);
}

std::string TempDir::put(std::string_view name, std::string_view bytes) const {
    const std::string p = path(name);
    writeBytes(p, bytes);
    return p;
}

std::string TempDir::get(std::string_view name) const { return readBytes(path(name)); }

bool TempDir::exists(std::string_view name) const { return fs::exists(path(name)); }

}  // namespace zol::test
