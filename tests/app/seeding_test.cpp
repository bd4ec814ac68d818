// The home is seeded from the shipped files once: a file the user deleted stays
// deleted, and a file that a newer version ships arrives once.
#include <gtest/gtest.h>

#include <filesystem>

#include "app/application.h"
#include "tests/support/temp_dir.h"

namespace zol {
namespace {

class Seeding : public ::testing::Test {
protected:
    void startAndStop() {
        Application app;
        startUp(app, StartupOptions{tmp_.path("home"), {}, tmp_.path("data")});
        shutDown(app);
    }
    bool inHome(const char* name) const { return tmp_.exists(std::string("home/") + name); }

    test::TempDir tmp_{"zolseed"};
};

// What a single seeding copies and keeps is in tests/platform/paths_test.cpp; here the
// application remembers across starts what it offered.
TEST_F(Seeding, ShippedFilesArriveOnceEach) {
    tmp_.put("data/samples/hello.c", "int main(void) { return 0; }\n");
    startAndStop();
    ASSERT_TRUE(inHome("samples/hello.c"));

    std::filesystem::remove(tmp_.path("home/samples/hello.c"));
    tmp_.put("data/script/new_in_this_version.c", "/* new */\n");
    startAndStop();
    EXPECT_FALSE(inHome("samples/hello.c")) << "deleted by the user";
    EXPECT_TRUE(inHome("script/new_in_this_version.c"));

    std::filesystem::remove(tmp_.path("home/script/new_in_this_version.c"));
    startAndStop();
    EXPECT_FALSE(inHome("script/new_in_this_version.c"));
}

}  // namespace
}  // namespace zol
