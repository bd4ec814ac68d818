// A session killed after an auto-save comes back in the next start.
#include <gtest/gtest.h>
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

extern char** environ;

namespace {

namespace fs = std::filesystem;

const std::string kDriver = std::string(ZOLDER_DRIVER_DIR) + "/autosave_driver";
// What the driver's edit makes of kOriginal: "xyz" and a line break typed at the start.
const std::string kOriginal = "alpha\t\xE9\r\n  beta\r\n";
const std::string kEdited = "xyz\r\nalpha\t\xE9\r\n  beta\r\n";

class KilledSession : public ::testing::Test {
protected:
    void SetUp() override {
        dir_ = fs::temp_directory_path() / ("zolder_autosave_" + std::to_string(::getpid()) + "_" +
                                            ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(dir_);
        fs::create_directories(dir_ / "home");
        fs::create_directories(dir_ / "out");
        std::ofstream(dir_ / "home" / "zol.ini") << "[Editor]\nAutoSave=1\nAutoSaveEvery=1\n";
        std::ofstream(dir_ / "doc.txt", std::ios::binary) << kOriginal;
    }
    void TearDown() override { fs::remove_all(dir_); }

    std::string path(const std::string& name) const { return (dir_ / name).string(); }

    static std::string slurp(const fs::path& p) {
        std::ifstream in(p, std::ios::binary);
        std::stringstream ss;
        ss << in.rdbuf();
        return ss.str();
    }

    std::vector<fs::path> sideFiles() const {
        std::vector<fs::path> found;
        for (const auto& e : fs::directory_iterator(dir_ / "home")) {
            const std::string name = e.path().filename().string();
            if (name.size() == 12 && name.rfind("~zol", 0) == 0 && name.ends_with(".asd")) found.push_back(e.path());
        }
        return found;
    }

    // Starts the editing driver, waits for its first auto-save and kills it outright.
    void editAndKill() {
        const std::string out = path("driver.out");
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        const std::string home = path("home"), doc = path("doc.txt");
        std::vector<char*> argv = {const_cast<char*>(kDriver.c_str()), const_cast<char*>("edit"),
                                   const_cast<char*>(home.c_str()), const_cast<char*>(doc.c_str()), nullptr};
        pid_t pid = 0;
        ASSERT_EQ(posix_spawn(&pid, kDriver.c_str(), &actions, nullptr, argv.data(), environ), 0);
        posix_spawn_file_actions_destroy(&actions);
        // Generous: only a hung driver ever waits this long.
        const auto giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (slurp(out).find("saved") == std::string::npos && std::chrono::steady_clock::now() < giveUp)
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        ::kill(pid, SIGKILL);
        int status = 0;
        ::waitpid(pid, &status, 0);
        ASSERT_NE(slurp(out).find("saved"), std::string::npos);
        ASSERT_TRUE(WIFSIGNALED(status));
        ASSERT_EQ(sideFiles().size(), 1u);
        EXPECT_EQ(slurp(sideFiles()[0]), kEdited);
        EXPECT_EQ(slurp(path("doc.txt")), kOriginal);
    }

    std::string runToFiles(const std::string& command) const {
        const int raw = std::system((command + " >" + path("run.out") + " 2>" + path("run.err") + " </dev/null").c_str());
        EXPECT_TRUE(WIFEXITED(raw) && WEXITSTATUS(raw) == 0) << slurp(path("run.err"));
        return slurp(path("run.out"));
    }

    fs::path dir_;
};

TEST_F(KilledSession, NextStartRecoversTheTextByteForByte) {
    editAndKill();
    const std::string out = runToFiles(kDriver + " dump " + path("home") + " " + path("out"));
    EXPECT_EQ(out, "Recover1: 4 lines, 22 bytes, DOS/Windows, modified\n");
    EXPECT_EQ(slurp(dir_ / "out" / "Recover1"), kEdited);
    EXPECT_TRUE(sideFiles().empty());
}

TEST_F(KilledSession, HeadlessZolderShowsTheRecoveredDocument) {
    editAndKill();
    const std::string out = runToFiles(std::string(ZOLDER_BINARY) + " --headless --home " + path("home"));
    EXPECT_EQ(out, "Recover1: 4 lines, 22 bytes, DOS/Windows, modified\n");
    EXPECT_NE(slurp(path("run.err")).find("Your last session failed!"), std::string::npos);
    EXPECT_TRUE(sideFiles().empty());
}

}  // namespace
