// Runs every annotated script of tests/script/*/ through the real binary and checks
// its output, exit status or error line against the comments it carries:
//   // out: TEXT      one line of expected standard output (in order)
//   // exit: N        expected exit status (default 0)
//   // error: TEXT    expected error report on standard error (exit status 255)
//   // in: TEXT       one line of standard input
//   // args: A B ...  arguments after the script
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Expectation {
    std::string out, error, input, args;
    int exit = 0;
};

std::string slurp(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::stringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

Expectation expectationsOf(const fs::path& script) {
    Expectation e;
    std::istringstream in(slurp(script));
    std::string line;
    auto after = [&](const std::string& tag, std::string& rest) {
        const size_t at = line.find("// " + tag + ":");
        if (at == std::string::npos) return false;
        rest = line.substr(at + tag.size() + 4);
        if (!rest.empty() && rest[0] == ' ') rest.erase(0, 1);
        while (!rest.empty() && rest.back() == '\r') rest.pop_back();
        return true;
    };
    std::string rest;
    while (std::getline(in, line)) {
        if (after("out", rest)) e.out += rest + "\n";
        else if (after("exit", rest)) e.exit = std::stoi(rest);
        else if (after("error", rest)) e.error = rest, e.exit = 255;
        else if (after("in", rest)) e.input += rest + "\n";
        else if (after("args", rest)) e.args = rest;
    }
    return e;
}

std::vector<std::string> scripts() {
    std::vector<std::string> v;
    const fs::path root = fs::path(ZOLDER_SOURCE_DIR) / "tests" / "script";
    for (const auto& d : fs::directory_iterator(root)) {
        if (!d.is_directory() || d.path().filename() == "c89") continue;
        for (const auto& f : fs::directory_iterator(d.path()))
            if (f.path().extension() == ".c") v.push_back(fs::relative(f.path(), root).string());
    }
    std::sort(v.begin(), v.end());
    return v;
}

class ScriptFile : public ::testing::TestWithParam<std::string> {};

TEST_P(ScriptFile, RunsAsAnnotated) {
    const fs::path script = fs::path(ZOLDER_SOURCE_DIR) / "tests" / "script" / GetParam();
    const Expectation want = expectationsOf(script);
    // One home for the whole program: seeding a new one for every script costs more than the run.
    static const struct Home {
        fs::path path = fs::temp_directory_path() / ("zolder_script_home_" + std::to_string(::getpid()));
        Home() { fs::create_directories(path); }
        ~Home() { fs::remove_all(path); }
    } homeDir;
    const fs::path& home = homeDir.path;
    const fs::path dir = fs::temp_directory_path() / ("zolder_script_" + std::to_string(::getpid()));
    fs::create_directories(dir);
    std::ofstream(dir / "in", std::ios::binary) << want.input;
    const std::string cmd = std::string("cd ") + dir.string() + " && " + ZOLDER_BINARY + " --headless --home " +
                            home.string() + " --run " + script.string() + " " + want.args + " <in >out 2>err";
    const int raw = std::system(cmd.c_str());
    const int status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    const std::string out = slurp(dir / "out"), err = slurp(dir / "err");
    fs::remove_all(dir);
    EXPECT_EQ(out, want.out);
    EXPECT_EQ(status, want.exit) << err;
    if (!want.error.empty()) EXPECT_EQ(err, want.error + "\n");
    else EXPECT_EQ(err, "");
}

std::string testName(const ::testing::TestParamInfo<std::string>& info) {
    std::string n = info.param;
    for (char& c : n)
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    return n;
}

INSTANTIATE_TEST_SUITE_P(Annotated, ScriptFile, ::testing::ValuesIn(scripts()), testName);

// Runs run-c-suite.sh with FLAGS over DIR; its exit status and what it printed.
std::pair<int, std::string> runCSuite(const std::string& flags, const fs::path& dir) {
    const fs::path root = fs::path(ZOLDER_SOURCE_DIR) / "tests" / "script";
    const std::string cmd = "ZOLDER=" + std::string(ZOLDER_BINARY) + " " + (root / "run-c-suite.sh").string() + " " +
                            flags + " " + dir.string() + " 2>&1";
    FILE* p = ::popen(cmd.c_str(), "r");
    if (!p) return {-1, ""};
    std::string out;
    char buf[4096];
    size_t n;
    while ((n = std::fread(buf, 1, sizeof buf, p)) > 0) out.append(buf, n);
    const int raw = ::pclose(p);
    return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, out};
}

TEST(CSuiteRunner, PassesTheOwnC89Programs) {
    const auto [status, out] = runCSuite("", fs::path(ZOLDER_SOURCE_DIR) / "tests" / "script" / "c89");
    EXPECT_EQ(status, 0) << out;
    EXPECT_NE(out.find(" passed, 0 failed"), std::string::npos) << out;
}

TEST(CSuiteRunner, ReportsEachFailureAndTheCount) {
    const fs::path dir = fs::temp_directory_path() / ("zolder_csuite_" + std::to_string(::getpid()));
    fs::create_directories(dir);
    std::ofstream(dir / "good.c") << "int main(void) { printf(\"a  b\\n\"); return 0; }\n";
    std::ofstream(dir / "good.c.expected") << "a b\n";
    std::ofstream(dir / "bad.c") << "int main(void) { return 2; }\n";
    std::ofstream(dir / "bad.expect") << "";
    const std::string exact = runCSuite("", dir).second;
    EXPECT_NE(exact.find("0 passed, 2 failed"), std::string::npos) << exact;
    const auto [status, loose] = runCSuite("-w", dir);
    EXPECT_NE(status, 0);
    EXPECT_NE(loose.find("1 passed, 1 failed"), std::string::npos) << loose;
    EXPECT_NE(loose.find("bad.c"), std::string::npos) << loose;
    fs::remove_all(dir);
}

}  // namespace
