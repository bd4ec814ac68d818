// A fresh home folder per test, removed afterwards (the real home is never touched),
// with the fake shell answering and the global editing options put back at the end.
#pragma once
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "engine/options.h"
#include "platform/paths.h"
#include "platform/profile.h"
#include "tests/support/fake_shell.h"
#include "tests/support/temp_dir.h"

namespace zol::test {

class TempHome : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_FALSE(dir.empty());
        ASSERT_TRUE(setHomeDir(dir));
        flushProfileCache();
        setShell(&shell_);
    }
    void TearDown() override {
        setShell(nullptr);
        options() = savedOptions_;
        flushProfileCache();
    }

    std::string path(std::string_view name) const { return home_.path(name); }
    // Writes the file and returns its path.
    std::string put(std::string_view name, std::string_view content) const { return home_.put(name, content); }
    std::string get(std::string_view name) const { return home_.get(name); }
    bool exists(std::string_view name) const { return home_.exists(name); }

    TempDir home_{"zoltest"};
    std::string dir = home_.dir();  // ends in "/"
    FakeShell shell_;
    EditOptions savedOptions_ = options();
};

}  // namespace zol::test
