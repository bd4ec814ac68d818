// Drives the real zolder binary the way a user does.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;

struct Outcome {
    int status;
    std::string out, err;
};

class Binary : public ::testing::Test {
protected:
    void SetUp() override {
        dir_ = fs::temp_directory_path() / ("zolder_e2e_" + std::to_string(::getpid()) + "_" +
                                            ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(dir_);
        fs::create_directories(dir_ / "home");
    }
    void TearDown() override {
        fs::permissions(dir_, fs::perms::owner_all, fs::perm_options::add);
        fs::remove_all(dir_);
    }

    std::string path(const std::string& name) const { return (dir_ / name).string(); }

    void write(const std::string& name, const std::string& bytes) const {
        std::ofstream(path(name), std::ios::binary) << bytes;
    }

    static std::string slurp(const std::string& p) {
        std::ifstream in(p, std::ios::binary);
        std::stringstream ss;
        ss << in.rdbuf();
        return ss.str();
    }

    Outcome run(const std::string& args) const {
        const std::string cmd = std::string(ZOLDER_BINARY) + " " + args + " >" + path("out") + " 2>" + path("err") +
                                " </dev/null";
        const int raw = std::system(cmd.c_str());
        return Outcome{WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, slurp(path("out")), slurp(path("err"))};
    }

    std::string headless(const std::string& files) const {
        return "--headless --home " + path("home") + " " + files;
    }

    fs::path dir_;
};

TEST_F(Binary, HelpVersionAndBadOptions) {
    Outcome r = run("--help");
    EXPECT_EQ(r.status, 0);
    EXPECT_NE(r.out.find("Usage: zolder"), std::string::npos);
    r = run("--version");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out.rfind("zolder ", 0), 0u);
    r = run("--frobnicate");
    EXPECT_EQ(r.status, 2);
    EXPECT_NE(r.err.find("unknown option '--frobnicate'"), std::string::npos);
    r = run("--headless --home");
    EXPECT_EQ(r.status, 2);
    r = run("--run x.c");
    EXPECT_EQ(r.status, 2);
}

TEST_F(Binary, OpensFilesAndSummarisesThem) {
    write("a.c", "int x;\r\nint y;\r\n");
    write("u.txt", "one\ntwo");
    write("empty.txt", "");
    Outcome r = run(headless(path("a.c") + " " + path("u.txt") + " " + path("empty.txt")));
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out,
              "a.c: 3 lines, 16 bytes, DOS/Windows\n"
              "u.txt: 2 lines, 7 bytes, UNIX\n"
              "empty.txt: 1 line, 0 bytes, DOS/Windows\n");
    EXPECT_TRUE(fs::exists(path("home/zol.ini")));
    // Opening never changes the files.
    EXPECT_EQ(slurp(path("a.c")), "int x;\r\nint y;\r\n");
}

TEST_F(Binary, BadFilesGetTheirMessageAndChangeNothing) {
    write("bin.dat", std::string("ab\0cd\n", 6));
    write("long.txt", std::string(3201, 'x'));
    fs::create_directories(dir_ / "folder");
    Outcome r = run(headless(path("missing.txt") + " " + path("folder") + " " + path("bin.dat") + " " + path("long.txt")));
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("Cannot open " + path("missing.txt") + " file."), std::string::npos) << r.err;
    EXPECT_NE(r.err.find("Cannot open " + path("folder") + " file."), std::string::npos) << r.err;
    EXPECT_NE(r.err.find("This is probably binary file."), std::string::npos);
    EXPECT_NE(r.err.find("Line length exceeds editor capacity."), std::string::npos);
    EXPECT_NE(r.out.find("bin.dat: 2 lines, 6 bytes, UNIX, read-only"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("long.txt: 2 lines"), std::string::npos) << r.out;
    EXPECT_EQ(slurp(path("bin.dat")), std::string("ab\0cd\n", 6));
}

TEST_F(Binary, GarbageSettingsLoadWithDefaults) {
    write("home/zol.ini", "[Editor]\nTabSize=999\nUndoLevels=-4\n\x01\x02garbage\n[[[\n=\nAutoSaveEvery=abc\n");
    write("a.txt", "x");
    Outcome r = run(headless(path("a.txt")));
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "a.txt: 1 line, 1 bytes, DOS/Windows\n");
}

}  // namespace
