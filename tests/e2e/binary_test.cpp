// Drives the real zolder binary the way a user does.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/process.h"
#include "tests/support/temp_dir.h"

namespace zol::test {
namespace {

using Args = std::vector<std::string>;

class Binary : public ::testing::Test {
protected:
    Outcome zolder(const Args& args) const {
        Args argv{zolderBinary()};
        argv.insert(argv.end(), args.begin(), args.end());
        return run(argv);
    }
    Outcome headless(const Args& files) const {
        Args args{"--headless", "--home", tmp_.path("home")};
        args.insert(args.end(), files.begin(), files.end());
        return zolder(args);
    }
    std::string path(const std::string& name) const { return tmp_.path(name); }

    TempDir tmp_{"zole2e"};
};

// The other options it refuses are in tests/app/cli_test.cpp.
TEST_F(Binary, HelpVersionAndBadOptions) {
    Outcome r = zolder({"--help"});
    EXPECT_EQ(r.status, 0);
    EXPECT_NE(r.out.find("Usage: zolder"), std::string::npos);
    r = zolder({"--version"});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out.rfind("zolder ", 0), 0u);
    r = zolder({"--frobnicate"});
    EXPECT_EQ(r.status, 2);
    EXPECT_NE(r.err.find("unknown option '--frobnicate'"), std::string::npos);
}

// Settings the program cannot read change nothing it reports.
TEST_F(Binary, OpensFilesAndSummarisesThemWhateverTheSettingsFileHolds) {
    tmp_.put("home/zol.ini", "[Editor]\nTabSize=999\nUndoLevels=-4\n\x01\x02garbage\n[[[\n=\nAutoSaveEvery=abc\n");
    tmp_.put("a.c", "int x;\r\nint y;\r\n");
    tmp_.put("u.txt", "one\ntwo");
    tmp_.put("empty.txt", "");
    const Outcome r = headless({path("a.c"), path("u.txt"), path("empty.txt")});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out,
              "a.c: 3 lines, 16 bytes, DOS/Windows\n"
              "u.txt: 2 lines, 7 bytes, UNIX\n"
              "empty.txt: 1 line, 0 bytes, DOS/Windows\n");
    EXPECT_TRUE(tmp_.exists("home/syntax.hgl")) << "the home is seeded";
    // Opening never changes the files.
    EXPECT_EQ(tmp_.get("a.c"), "int x;\r\nint y;\r\n");
}

TEST_F(Binary, BadFilesGetTheirMessageAndChangeNothing) {
    tmp_.put("bin.dat", std::string("ab\0cd\n", 6));
    tmp_.put("long.txt", std::string(3201, 'x'));
    tmp_.put("folder/inside", "");
    const Outcome r = headless({path("missing.txt"), path("folder"), path("bin.dat"), path("long.txt")});
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("Cannot open " + path("missing.txt") + " file."), std::string::npos) << r.err;
    EXPECT_NE(r.err.find("Cannot open " + path("folder") + " file."), std::string::npos) << r.err;
    EXPECT_NE(r.err.find("This is probably binary file."), std::string::npos);
    EXPECT_NE(r.err.find("Line length exceeds editor capacity."), std::string::npos);
    EXPECT_NE(r.out.find("bin.dat: 2 lines, 6 bytes, UNIX, read-only"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("long.txt: 2 lines"), std::string::npos) << r.out;
    EXPECT_EQ(tmp_.get("bin.dat"), std::string("ab\0cd\n", 6));
}

}  // namespace
}  // namespace zol::test
