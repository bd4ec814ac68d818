#include <cstdlib>
#include <filesystem>
#include <optional>
#include <set>

#include "platform/paths.h"
#include "tests/support/temp_home.h"

namespace zol {
namespace {

TEST(PathParts, BothSeparatorsSplit) {
    EXPECT_EQ(fileNamePart("C:\\dir/sub\\name.ext"), "name.ext");
    EXPECT_EQ(folderPart("C:\\dir/sub\\name.ext"), "C:\\dir/sub\\");
    EXPECT_EQ(fileNamePart("plain"), "plain");
    EXPECT_EQ(folderPart("plain"), "");
    EXPECT_EQ(extensionPart("a/b.tar.gz"), "gz");
    EXPECT_EQ(extensionPart("dir.d\\noext"), "");
    EXPECT_EQ(extensionPart("dir.d/"), "");
    EXPECT_TRUE(hasFolderPart("a\\b"));
    EXPECT_FALSE(hasFolderPart("zol.ini"));
    EXPECT_EQ(joinPath("/a", "b"), "/a/b");
    EXPECT_EQ(joinPath("/a/", "b"), "/a/b");
    EXPECT_EQ(joinPath("C:\\a\\", "b"), "C:\\a\\b");
    EXPECT_EQ(joinPath("", "b"), "b");
}

TEST(PathParts, FullPathFoldsDotsAndSeparators) {
    EXPECT_EQ(fullPath("/x//y/./z/../w"), "/x/y/w");
    EXPECT_EQ(fullPath("/../.."), "/");
    EXPECT_EQ(fullPath("/a\\b\\"), "/a/b/");
    EXPECT_EQ(fullPath("rel/../f.txt"), currentDir() + "f.txt");
    EXPECT_EQ(fullPath(""), currentDir());
}

using HomeFolder = test::TempHome;

// Sets an environment variable for the test's length, and puts it back even when an
// assertion ends the test early.
class ScopedEnv {
public:
    explicit ScopedEnv(const char* name) : name_(name) {
        if (const char* v = std::getenv(name)) saved_ = v;
    }
    ~ScopedEnv() { saved_ ? (void)::setenv(name_, saved_->c_str(), 1) : (void)::unsetenv(name_); }
    void set(const std::string& value) const { ::setenv(name_, value.c_str(), 1); }
    void unset() const { ::unsetenv(name_); }

private:
    const char* name_;
    std::optional<std::string> saved_;
};

TEST_F(HomeFolder, ResolutionPrefersArgumentThenEnvironment) {
    const ScopedEnv zh("ZOLDER_HOME"), xdg("XDG_CONFIG_HOME");
    zh.set(dir + "zh");
    xdg.set(dir + "xdg");
    EXPECT_EQ(resolveHomeDir(dir + "arg/x/.."), dir + "arg/");
    EXPECT_EQ(resolveHomeDir(""), dir + "zh/");
    zh.unset();
    EXPECT_EQ(resolveHomeDir(""), dir + "xdg/zolder/");
    xdg.set("relative");
    EXPECT_EQ(resolveHomeDir("").substr(resolveHomeDir("").size() - 16), "/.config/zolder/");
}

TEST_F(HomeFolder, MissingHomeIsCreatedWithItsParents) {
    ASSERT_TRUE(setHomeDir(dir + "deep/er/home"));
    EXPECT_EQ(homeDir(), dir + "deep/er/home/");
    EXPECT_TRUE(std::filesystem::is_directory(dir + "deep/er/home"));
    EXPECT_EQ(resolveBareName("zol.ini"), dir + "deep/er/home/zol.ini");
    put("file", "x");
    EXPECT_FALSE(setHomeDir(dir + "file/sub"));
}

TEST_F(HomeFolder, SeedingCopiesWhatTheHomeLacksOfWhatWasNotOfferedBefore) {
    put("data/syntax.hgl", "shipped");
    put("data/zol.ini", "shipped settings");
    put("data/script/include/a.h", "header");
    put("data/samples/gone.c", "deleted by the user");
    put("data/help/index.txt", "the manual stays where it ships");
    // A link back up the tree is walked once, not until the paths grow too long.
    std::filesystem::create_directory_symlink("..", dir + "data/script/up");
    ASSERT_TRUE(setHomeDir(dir + "home"));
    put("home/zol.ini", "user settings");
    const SeedResult first = seedHome(dir + "data", {"samples/gone.c"});
    EXPECT_TRUE(first.ok);
    EXPECT_EQ(first.copied, 2);
    EXPECT_EQ(std::set<std::string>(first.offered.begin(), first.offered.end()),
              (std::set<std::string>{"syntax.hgl", "zol.ini", "script/include/a.h"}));
    EXPECT_EQ(get("home/zol.ini"), "user settings");
    EXPECT_EQ(get("home/syntax.hgl"), "shipped");
    EXPECT_EQ(get("home/script/include/a.h"), "header");
    EXPECT_FALSE(exists("home/samples/gone.c"));
    EXPECT_FALSE(seedHome(dir + "nodata", {}).ok);
}

TEST(ProgramPath, ExecutableIsKnown) {
    std::string exe = executablePath();
    ASSERT_FALSE(exe.empty());
    EXPECT_EQ(exe[0], '/');
    EXPECT_TRUE(std::filesystem::is_regular_file(exe));
}

}  // namespace
}  // namespace zol
