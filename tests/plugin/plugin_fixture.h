// A headless application in a home of its own, with a chosen set of plug-in modules
// copied into its "PlugIns" folder.
#pragma once
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "app/application.h"
#include "app/headless_shell.h"
#include "platform/dynlib.h"
#include "plugin/plugin_manager.h"
#include "tests/support/temp_dir.h"

namespace zol::test {

class PlugInTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_FALSE(home_.empty());
        std::filesystem::create_directories(plugInDir());
        setShell(&shell_);
    }

    void TearDown() override {
        if (app_.started) shutDown(app_);
        for (LibraryHandle h : kept_) closeLibrary(h);
        setShell(nullptr);
    }

    std::string plugInDir() const { return home_ + "PlugIns/"; }
    static std::string built(const std::string& module) { return std::string(ZOLDER_TEST_MODULES) + "/" + module; }

    // Copies a built module into the folder under another name.
    void install(const std::string& module, const std::string& as) {
        std::filesystem::copy_file(built(module), plugInDir() + as,
                                   std::filesystem::copy_options::overwrite_existing);
    }

    // The home gets only the modules a test installs, not the shipped examples.
    void start() {
        std::filesystem::create_directories(home_ + "empty-data");
        startUp(app_, StartupOptions{home_, {}, home_ + "empty-data"});
    }

    // The installed module named file, kept open so that it outlives unloading.
    LibraryHandle keep(const std::string& file) {
        LibraryHandle h = openLibrary(plugInDir() + file);
        if (h) kept_.push_back(h);
        return h;
    }

    template <class Fn>
    static Fn fn(LibraryHandle lib, const char* name) {
        return reinterpret_cast<Fn>(librarySymbol(lib, name));
    }
    static std::string logOf(LibraryHandle lib) { return fn<const char* (*)()>(lib, "recorder_log")(); }
    // The log so far, which starts again empty.
    static std::string takeLog(LibraryHandle lib) {
        std::string log = logOf(lib);
        fn<void (*)()>(lib, "recorder_clear")();
        return log;
    }

    TempDir tmp_{"zplug"};
    std::string home_ = tmp_.dir();
    HeadlessShell shell_{stderr};
    Application app_;
    std::vector<LibraryHandle> kept_;
};

}  // namespace zol::test
