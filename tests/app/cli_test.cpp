#include <gtest/gtest.h>

#include "app/cli.h"

namespace zol {
namespace {

bool parse(std::initializer_list<const char*> args, CommandLine& cl, std::string& err) {
    std::vector<const char*> argv{"zolder"};
    argv.insert(argv.end(), args);
    return parseCommandLine(static_cast<int>(argv.size()), argv.data(), cl, err);
}

TEST(CommandLine, ScriptTakesEverythingAfterIt) {
    CommandLine cl;
    std::string err;
    ASSERT_TRUE(parse({"--headless", "--home", "/h", "a.c", "--run", "s.c", "--x", "b"}, cl, err)) << err;
    EXPECT_TRUE(cl.headless);
    EXPECT_EQ(cl.home, "/h");
    EXPECT_EQ(cl.files, std::vector<std::string>{"a.c"});
    EXPECT_EQ(cl.script, "s.c");
    EXPECT_EQ(cl.scriptArgs, (std::vector<std::string>{"--x", "b"}));
}

TEST(CommandLine, DoubleDashEndsOptions) {
    CommandLine cl;
    std::string err;
    ASSERT_TRUE(parse({"--headless", "--", "--help"}, cl, err));
    EXPECT_FALSE(cl.help);
    EXPECT_EQ(cl.files, std::vector<std::string>{"--help"});
}

TEST(CommandLine, RefusesWhatItCannotUse) {
    for (auto args : {std::vector<const char*>{"--bogus"}, {"--home"}, {"--home="}, {"--headless", "--run"},
                      {"--run", "s.c"}}) {
        CommandLine cl;
        std::string err;
        std::vector<const char*> argv{"zolder"};
        argv.insert(argv.end(), args.begin(), args.end());
        EXPECT_FALSE(parseCommandLine(static_cast<int>(argv.size()), argv.data(), cl, err)) << args[0];
        EXPECT_FALSE(err.empty());
    }
}

}  // namespace
}  // namespace zol
