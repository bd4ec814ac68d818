// A fresh home folder per test, removed afterwards; the real home is never touched.
#pragma once
#include <gtest/gtest.h>

#include <string>

#include "platform/paths.h"
#include "platform/profile.h"
#include "tests/support/temp_dir.h"

namespace zol::test {

class TempHome : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_FALSE(dir.empty());
        ASSERT_TRUE(setHomeDir(dir));
        flushProfileCache();
    }
    void TearDown() override { flushProfileCache(); }

    std::string path(const std::string& name) const { return home_.path(name); }
    void put(const std::string& name, const std::string& content) const { home_.put(name, content); }
    std::string get(const std::string& name) const { return home_.get(name); }
    bool exists(const std::string& name) const { return home_.exists(name); }

    TempDir home_{"zoltest"};
    std::string dir = home_.dir();  // ends in "/"
};

}  // namespace zol::test
