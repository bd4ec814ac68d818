// A session killed after an auto-save comes back in the next start.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

extern char** environ;

namespace {

namespace fs = std::filesystem;

std::string slurp(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::stringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

int sideFiles(const fs::path& home) {
    int n = 0;
    for (const auto& e : fs::directory_iterator(home)) {
        const std::string name = e.path().filename().string();
        n += name.size() == 12 && name.starts_with("~zol") && name.ends_with(".asd");
    }
    return n;
}

// The driver edits the document as a user would (see autosave_driver.cpp), the kill
// leaves its side file behind. A second home, copied after the kill, lets both the
// real binary and the driver start on what was left: the binary shows the recovered
// document, the driver writes it out for a byte-for-byte look.
TEST(KilledSession, NextStartRecoversTheDocument) {
    const fs::path dir = fs::temp_directory_path() / ("zolder_killed_" + std::to_string(::getpid()));
    std::string driver = std::string(ZOLDER_DRIVER_DIR) + "/autosave_driver";
    const std::string original = "alpha\t\xE9\r\n  beta\r\n", edited = "xyz\r\n" + original;
    fs::remove_all(dir);
    fs::create_directories(dir / "home");
    fs::create_directories(dir / "out");
    std::ofstream(dir / "home" / "zol.ini") << "[Editor]\nAutoSave=1\nAutoSaveEvery=1\n";
    std::ofstream(dir / "doc.txt", std::ios::binary) << original;

    const std::string out = (dir / "driver.out").string(), home = (dir / "home").string(),
                      doc = (dir / "doc.txt").string();
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    char* argv[] = {driver.data(), const_cast<char*>("edit"), const_cast<char*>(home.c_str()),
                    const_cast<char*>(doc.c_str()), nullptr};
    pid_t pid = 0;
    ASSERT_EQ(posix_spawn(&pid, driver.c_str(), &actions, nullptr, argv, environ), 0);
    posix_spawn_file_actions_destroy(&actions);
    // Generous: only a hung driver ever waits this long.
    const auto giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (slurp(out).find("saved") == std::string::npos && std::chrono::steady_clock::now() < giveUp)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    ::kill(pid, SIGKILL);
    int status = 0;
    ::waitpid(pid, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status)) << slurp(out);
    ASSERT_EQ(sideFiles(home), 1);
    EXPECT_EQ(slurp(doc), original);
    fs::copy(dir / "home", dir / "home2", fs::copy_options::recursive);

    const std::string redirect = " >" + (dir / "run.out").string() + " 2>" + (dir / "run.err").string();
    const std::string summary = "Recover1: 4 lines, 22 bytes, DOS/Windows, modified\n";
    EXPECT_EQ(std::system((std::string(ZOLDER_BINARY) + " --headless --home " + home + redirect).c_str()), 0);
    EXPECT_EQ(slurp(dir / "run.out"), summary);
    EXPECT_NE(slurp(dir / "run.err").find("Your last session failed!"), std::string::npos);
    EXPECT_EQ(sideFiles(home), 0);

    const std::string home2 = (dir / "home2").string(), outDir = (dir / "out").string();
    EXPECT_EQ(std::system((driver + " dump " + home2 + " " + outDir + redirect).c_str()), 0);
    EXPECT_EQ(slurp(dir / "run.out"), summary);
    EXPECT_EQ(slurp(dir / "out" / "Recover1"), edited);
    EXPECT_EQ(sideFiles(home2), 0);
    fs::remove_all(dir);
}

}  // namespace
