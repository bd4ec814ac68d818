// An application without windows for the tool tests: a fresh home, a shell that opens
// files as the headless one does and can keep running tools for the test to stop.
#pragma once
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "app/application.h"
#include "engine/document.h"
#include "plugin/plugin_manager.h"
#include "tests/support/fake_shell.h"
#include "tests/support/temp_dir.h"
#include "tools/user_tools.h"

namespace zol::test {

class ToolShell : public FakeShell {
public:
    bool openFile(const std::string& path) override {
        FakeShell::openFile(path);
        return app && openDocument(*app, path);
    }
    void runJob(std::shared_ptr<BackgroundJob> job, bool wait) override {
        if (holdJobs) held.push_back(job);
        else Shell::runJob(job, wait);
    }
    bool toolArguments(std::string& arguments, std::string_view) override {
        shownArguments.push_back(arguments);
        if (!editedArguments) return false;
        arguments = *editedArguments;
        return true;
    }
    Application* app = nullptr;
    bool holdJobs = false;
    std::vector<std::shared_ptr<BackgroundJob>> held;
    std::vector<std::string> shownArguments;
    std::optional<std::string> editedArguments;
};

class ToolAppTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_FALSE(tmp_.dir().empty());
        shell_.app = &app_;
        setShell(&shell_);
        plugInManager().enabled = false;
        startUp(app_, StartupOptions{home_, {}});
        userTools() = UserTools{};
    }
    void TearDown() override {
        shell_.held.clear();
        for (const auto& d : app_.documents) d->modified = false;
        shutDown(app_);
        setShell(nullptr);
        plugInManager().enabled = true;
        userTools() = UserTools{};
    }
    std::string put(const std::string& name, const std::string& text) { return tmp_.put(name, text); }
    Document* open(const std::string& name, const std::string& text) { return openDocument(app_, put(name, text)); }
    Document* active() const { return app_.active; }

    TempDir tmp_{"zoltool"};
    std::string dir_ = tmp_.dir();
    std::string home_ = dir_ + "home/";
    Application app_;
    ToolShell shell_;
};

}  // namespace zol::test
