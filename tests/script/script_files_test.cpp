// Runs every annotated script of tests/script/*/ through the real binary and checks
// its output, exit status or error line against the comments it carries:
//   // out: TEXT      one line of expected standard output (in order)
//   // exit: N        expected exit status (default 0)
//   // error: TEXT    expected error report on standard error (exit status 255)
//   // stderr: TEXT   one line the editor writes on standard error (a message box)
//   // in: TEXT       one line of standard input
//   // args: A B ...  arguments after the script
// Scripts of tests/script/editor/, starters/ and examples/ drive documents, so they run
// in this process through the headless application's start-up, each in a home of its
// own, and may also carry:
//   // doc: NAME      a file opened before the run (the last one is active), whose
//   // | TEXT         lines follow, one annotation each
//   // doc-after: NAME   the lines that document holds when the run has ended
#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdio_ext.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "app/application.h"
#include "app/headless_shell.h"
#include "platform/paths.h"
#include "script/run_script.h"

namespace {

namespace fs = std::filesystem;

struct DocText {
    std::string name;
    std::vector<std::string> lines;
};

struct Expectation {
    std::string out, error, messages, input, args;
    int exit = 0;
    std::vector<DocText> docs, after;
};

struct Outcome {
    int status = -1;
    std::string out, err;
    std::vector<DocText> docs;
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
    std::vector<std::string>* block = nullptr;
    while (std::getline(in, line)) {
        if (const size_t bar = line.find("// |"); block && bar != std::string::npos) {
            block->push_back(line.substr(std::min(line.size(), bar + 5)));
            continue;
        }
        block = nullptr;
        if (after("doc", rest)) e.docs.push_back({rest, {}}), block = &e.docs.back().lines;
        else if (after("doc-after", rest)) e.after.push_back({rest, {}}), block = &e.after.back().lines;
        else if (after("out", rest)) e.out += rest + "\n";
        else if (after("exit", rest)) e.exit = std::stoi(rest);
        else if (after("error", rest)) e.error = rest, e.exit = 255;
        else if (after("stderr", rest)) e.messages += rest + "\n";
        else if (after("in", rest)) e.input += rest + "\n";
        else if (after("args", rest)) e.args = rest;
    }
    return e;
}

// Scripts of these folders open documents: the starter scripts of data/script/ and the
// examples of docs/scripts.md among them.
bool drivesDocuments(const std::string& script) {
    for (const char* folder : {"editor/", "starters/", "examples/"})
        if (script.rfind(folder, 0) == 0) return true;
    return false;
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

// The real binary, in the folder dir, with its standard input from dir/in.
Outcome runBinary(const fs::path& script, const Expectation& want, const fs::path& dir) {
    // One home for the whole program: seeding a new one for every script costs more than the run.
    static const struct Home {
        fs::path path = fs::temp_directory_path() / ("zolder_script_home_" + std::to_string(::getpid()));
        Home() { fs::create_directories(path); }
        ~Home() { fs::remove_all(path); }
    } home;
    const std::string cmd = std::string("cd ") + dir.string() + " && " + ZOLDER_BINARY + " --headless --home " +
                            home.path.string() + " --run " + script.string() + " " + want.args + " <in >out 2>err";
    const int raw = std::system(cmd.c_str());
    return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, slurp(dir / "out"), slurp(dir / "err"), {}};
}

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (size_t i = 0; i < lines.size(); ++i) text += (i ? "\n" : "") + lines[i];
    return text;
}

// While it lives, the process's standard streams are the files in, out and err of dir,
// as a shell gives them to the binary: runScript hands a script the process's own.
class StandardStreams {
public:
    explicit StandardStreams(const fs::path& dir) {
        std::fflush(nullptr);
        for (int fd = 0; fd < 3; ++fd) saved_[fd] = ::dup(fd);
        point(0, dir / "in", O_RDONLY);
        point(1, dir / "out", O_WRONLY | O_CREAT | O_TRUNC);
        point(2, dir / "err", O_WRONLY | O_CREAT | O_TRUNC);
    }
    ~StandardStreams() {
        std::fflush(nullptr);
        for (int fd = 0; fd < 3; ++fd) {
            ::dup2(saved_[fd], fd);
            ::close(saved_[fd]);
        }
        forgetInput();
    }
    StandardStreams(const StandardStreams&) = delete;
    StandardStreams& operator=(const StandardStreams&) = delete;

private:
    // What stdin read ahead from one run's input must not reach the next.
    static void forgetInput() {
        __fpurge(stdin);
        std::clearerr(stdin);
    }
    void point(int fd, const fs::path& file, int flags) {
        if (fd == 0) forgetInput();
        const int opened = ::open(file.c_str(), flags, 0644);
        ::dup2(opened, fd);
        ::close(opened);
    }
    int saved_[3];
};

// The headless runner's start-up with the annotated documents, the script run as
// "--run" runs it, and the documents' text taken before the application shuts down.
Outcome runEditorScript(const fs::path& script, const Expectation& want, const fs::path& dir) {
    std::vector<std::string> files;
    for (const DocText& d : want.docs) {
        files.push_back((dir / d.name).string());
        std::ofstream(files.back(), std::ios::binary) << joined(d.lines);
    }
    std::vector<std::string> args;
    std::istringstream words(want.args);
    for (std::string w; words >> w;) args.push_back(w);
    const fs::path before = fs::current_path();
    fs::current_path(dir);
    Outcome o;
    {
        StandardStreams streams(dir);
        zol::HeadlessShell shell;
        zol::setShell(&shell);
        zol::Application app;
        shell.attach(&app);
        zol::startUp(app, zol::StartupOptions{(dir / "home").string(), files, {}});
        const std::string title(zol::fileNamePart(script.string()));
        const zol::ScriptRunResult r = zol::runScript(script.string(), args, title, zol::ScriptStarter::User);
        o.status = r.error ? 255 : r.value & 0xff;
        for (const auto& doc : app.documents) {
            DocText d{std::string(zol::fileNamePart(doc->fileName)), {}};
            for (int32_t i = 0; i < doc->lines.count(); ++i) d.lines.emplace_back(zol::lineText(*doc, i));
            o.docs.push_back(std::move(d));
        }
        zol::shutDown(app);
        zol::setShell(nullptr);
    }
    fs::current_path(before);
    o.out = slurp(dir / "out");
    o.err = slurp(dir / "err");
    return o;
}

class ScriptFile : public ::testing::TestWithParam<std::string> {};

TEST_P(ScriptFile, RunsAsAnnotated) {
    const fs::path script = fs::path(ZOLDER_SOURCE_DIR) / "tests" / "script" / GetParam();
    const Expectation want = expectationsOf(script);
    const fs::path dir = fs::temp_directory_path() / ("zolder_script_" + std::to_string(::getpid()));
    fs::create_directories(dir);
    std::ofstream(dir / "in", std::ios::binary) << want.input;
    const bool editor = drivesDocuments(GetParam());
    const Outcome got = editor ? runEditorScript(script, want, dir) : runBinary(script, want, dir);
    fs::remove_all(dir);
    EXPECT_EQ(got.out, want.out);
    EXPECT_EQ(got.status, want.exit) << got.err;
    if (!want.error.empty()) EXPECT_EQ(got.err, want.error + "\n");
    else EXPECT_EQ(got.err, want.messages);
    for (const DocText& w : want.after) {
        auto it = std::find_if(got.docs.begin(), got.docs.end(), [&](const DocText& d) { return d.name == w.name; });
        ASSERT_NE(it, got.docs.end()) << "no document " << w.name;
        EXPECT_EQ(joined(it->lines), joined(w.lines)) << w.name;
    }
}

std::string testName(const ::testing::TestParamInfo<std::string>& info) {
    std::string n = info.param;
    for (char& c : n)
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    return n;
}

INSTANTIATE_TEST_SUITE_P(Annotated, ScriptFile, ::testing::ValuesIn(scripts()), testName);

// The lines that annotate a test script, which the examples of docs/scripts.md leave out.
bool isAnnotation(const std::string& line) {
    if (line.rfind("// |", 0) == 0) return true;
    for (const char* tag : {"doc", "doc-after", "out", "exit", "error", "stderr", "in", "args"})
        if (line.rfind(std::string("// ") + tag + ":", 0) == 0) return true;
    return false;
}

// The code blocks of docs/scripts.md marked "<!-- example: PATH -->", by PATH.
std::map<std::string, std::string> docExamples() {
    std::map<std::string, std::string> blocks;
    std::istringstream doc(slurp(fs::path(ZOLDER_SOURCE_DIR) / "docs" / "scripts.md"));
    const std::string marker = "<!-- example: ";
    std::string line, path;
    bool inBlock = false;
    while (std::getline(doc, line)) {
        if (line.rfind(marker, 0) == 0) path = line.substr(marker.size(), line.find(" -->") - marker.size());
        else if (!path.empty() && !inBlock && line.rfind("```", 0) == 0) inBlock = true;
        else if (inBlock && line.rfind("```", 0) == 0) inBlock = false, path.clear();
        else if (inBlock) blocks[path] += line + "\n";
    }
    return blocks;
}

TEST(DocExamples, ShowEachTestedExampleAsItStandsWithoutItsAnnotations) {
    const std::map<std::string, std::string> shown = docExamples();
    size_t files = 0;
    for (const auto& f : fs::directory_iterator(fs::path(ZOLDER_SOURCE_DIR) / "tests" / "script" / "examples")) {
        ++files;
        std::istringstream in(slurp(f.path()));
        std::string code;
        for (std::string line; std::getline(in, line);)
            if (!isAnnotation(line)) code += line + "\n";
        const std::string path = "tests/script/examples/" + f.path().filename().string();
        const auto it = shown.find(path);
        ASSERT_NE(it, shown.end()) << path << " is not shown in docs/scripts.md";
        EXPECT_EQ(it->second, code) << path;
    }
    EXPECT_EQ(shown.size(), files) << "every example shown is one of tests/script/examples/";
}

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
