// A fresh home folder per test, removed afterwards; the real home is never touched.
#pragma once
#include "platform/paths.h"
#include "platform/profile.h"
#include "platform/tempfile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace zol::test {

class TempHome : public ::testing::Test {
protected:
    void SetUp() override {
        dir = createTempDir("zoltest");
        ASSERT_FALSE(dir.empty());
        ASSERT_TRUE(setHomeDir(dir));
        flushProfileCache();
    }
    void TearDown() override {
        flushProfileCache();
        std::error_code ec;
        std::filesystem::permissions(dir, std::filesystem::perms::owner_all, std::filesystem::perm_options::add, ec);
        std::filesystem::remove_all(dir, ec);
    }

    std::string path(const std::string& name) const { return dir + name; }

    void put(const std::string& name, const std::string& content) const {
        std::ofstream out(path(name), std::ios::binary | std::ios::trunc);
        out << content;
    }

    std::string get(const std::string& name) const {
        std::ifstream in(path(name), std::ios::binary);
        std::ostringstream s;
        s << in.rdbuf();
        return s.str();
    }

    bool exists(const std::string& name) const { return std::filesystem::exists(path(name)); }

    std::string dir;  // ends in "/"
};

}  // namespace zol::test
