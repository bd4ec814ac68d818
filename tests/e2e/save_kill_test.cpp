// A save killed at any moment leaves the file whole: its complete old bytes or its
// complete new ones, never a mixture, a truncated file or nothing; and it leaves no
// half-written temporary file beside it where the file system has unnamed files.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <dirent.h>
#include <fcntl.h>
#include <random>
#include <string_view>
#include <thread>
#include <unistd.h>

#include "tests/support/process.h"
#include "tests/support/temp_dir.h"

namespace zol {
namespace {

using Clock = std::chrono::steady_clock;

// Fifty kills spread over the whole of a save; the document is big enough that a save
// takes long enough to be hit in the middle.
constexpr int kKills = 50;
constexpr int kMaxKills = 150;
constexpr int kLines = 400'000;

// Removes the temporary files a killed save left in dir and tells how many there were.
int removeStrayTemps(const std::string& dir) {
    int strays = 0;
    DIR* d = ::opendir(dir.c_str());
    while (const dirent* e = d ? ::readdir(d) : nullptr) {
        const std::string_view name = e->d_name;
        if (name.size() < 8 || name.substr(0, 4) != ".zol" || name.substr(name.size() - 4) != ".tmp") continue;
        ::unlink((dir + std::string(name)).c_str());
        ++strays;
    }
    if (d) ::closedir(d);
    return strays;
}

bool unnamedFilesIn(const std::string& dir) {
    const int fd = ::open(dir.c_str(), O_WRONLY | O_TMPFILE, 0600);
    if (fd >= 0) ::close(fd);
    return fd >= 0;
}

std::string lines(const char* word) {
    std::string out;
    for (int i = 0; i < kLines; ++i) out += std::string(word) + " line " + std::to_string(i) + "\n";
    return out;
}

TEST(SaveKill, TheFileIsAlwaysWholeOldOrWholeNew) {
    test::TempDir tmp("zolkill");
    const std::string oldText = lines("old"), newText = lines("a new and longer");
    const std::string target = tmp.put("doc.txt", oldText);
    const std::string source = tmp.put("new.txt", newText);
    const std::string saver = test::driverPath("save_driver");

    // One save to its end tells how long a save takes here.
    std::chrono::microseconds window;
    {
        test::Process p({saver, target, source});
        ASSERT_TRUE(p.waitUntilStopped());
        const Clock::time_point begun = Clock::now();
        p.resume();
        ASSERT_EQ(p.wait().status, 0);
        window = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begun);
    }
    ASSERT_EQ(tmp.get("doc.txt"), newText);

    std::mt19937 random(20261124);
    std::uniform_int_distribution<long> moment(0, window.count());
    int whole = 0, interrupted = 0, strays = 0;
    // A loaded machine can stretch a save so that no kill lands before its end, or
    // none after it: runs go on, at the two ends of the window, until both were seen.
    for (int run = 0; run < kKills || ((interrupted == 0 || whole == 0) && run < kMaxKills); ++run) {
        SCOPED_TRACE("run " + std::to_string(run));
        tmp.put("doc.txt", oldText);
        test::Process p({saver, target, source, run % 2 ? "bak" : ""});
        ASSERT_TRUE(p.waitUntilStopped());
        const long at = run < kKills ? moment(random) : interrupted == 0 ? 0 : 2 * window.count();
        p.resume();
        std::this_thread::sleep_for(std::chrono::microseconds(at));
        const bool killed = p.kill();
        p.wait();
        const std::string now = tmp.get("doc.txt");
        ASSERT_TRUE(now == oldText || now == newText) << "a save killed part-way left " << now.size() << " bytes";
        if (run % 2 && now == newText) {
            EXPECT_EQ(tmp.get("doc.txt.bak"), oldText);
        }
        (killed && now == oldText ? interrupted : whole)++;
        strays += removeStrayTemps(tmp.dir());
    }
    // Some kills must land before the new bytes took the name, or the test proves little.
    EXPECT_GT(interrupted, 0);
    EXPECT_GT(whole, 0);
    // The new bytes get a name only in the moment before they take the target's, so a
    // kill leaves them behind only by landing in that moment (with named temporary files
    // nearly every interrupted save did). A loaded machine may stretch the moment.
    if (unnamedFilesIn(tmp.dir())) {
        EXPECT_LE(strays, std::max(2, interrupted / 2)) << interrupted << " interrupted saves";
    }
}

}  // namespace
}  // namespace zol
