#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cerrno>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "platform/process.h"
#include "tests/support/process.h"
#include "tests/support/temp_dir.h"

namespace zol {
namespace {

using Words = std::vector<std::string>;

TEST(CommandLine, SplitsAsAShellWouldWithoutExpanding) {
    EXPECT_EQ(splitCommandLine(R"(  prog "two words"	'say "hi"' back\ slash "q\"\\x" "" a"b"'c' $HOME *)"),
              (Words{"prog", "two words", "say \"hi\"", "back slash", "q\"\\x", "", "abc", "$HOME", "*"}));
    EXPECT_EQ(splitCommandLine("open 'unclosed rest"), (Words{"open", "unclosed rest"}));
    EXPECT_EQ(splitCommandLine(" \t "), Words{});
}

// The lines a started args_to_file wrote, once it wrote them.
std::string waitForFile(const test::TempDir& dir, const std::string& name) {
    for (int tries = 0; tries < 1000 && !dir.exists(name); ++tries)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return dir.get(name);
}

TEST(ProcessStart, WordsReachTheProgramWholeAndNobodyIsLeftToWaitFor) {
    test::TempDir dir("zolproc");
    EXPECT_EQ(startDetached({test::driverPath("args_to_file")}, dir.path("nofolder")), StartResult::NoFolder);
    const std::string line = "'" + test::driverPath("args_to_file") + "' out \"a b\" 'c \"d\"' $HOME";
    ASSERT_EQ(startDetached(splitCommandLine(line), dir.dir()), StartResult::Started);
    EXPECT_EQ(waitForFile(dir, "out"), "a b\nc \"d\"\n$HOME\n");
    errno = 0;
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

}  // namespace
}  // namespace zol
