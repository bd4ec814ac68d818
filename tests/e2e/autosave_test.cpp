// A session killed after an auto-save comes back in the next start.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "tests/support/process.h"
#include "tests/support/temp_dir.h"

namespace zol::test {
namespace {

namespace fs = std::filesystem;

int sideFiles(const std::string& home) {
    int n = 0;
    for (const auto& e : fs::directory_iterator(home)) {
        const std::string name = e.path().filename().string();
        n += name.size() == 12 && name.starts_with("~zol") && name.ends_with(".asd");
    }
    return n;
}

// The driver edits the document as a user would (see autosave_driver.cpp), the kill
// leaves its side file behind. A headless batch run in the same home must leave it
// alone: it saves nothing, so recovering would throw the work away. The next desktop
// start (the driver's "dump", which writes what it recovered out for a byte-for-byte
// look) brings the document back.
TEST(KilledSession, HeadlessRunsLeaveTheWorkForTheNextDesktopStart) {
    TempDir tmp("zolkill");
    const std::string original = "alpha\t\xE9\r\n  beta\r\n", edited = "xyz\r\n" + original;
    const std::string home = tmp.path("home/"), outDir = tmp.path("out/");
    tmp.put("home/zol.ini", "[Editor]\nAutoSave=1\nAutoSaveEvery=1\n");
    const std::string doc = tmp.put("doc.txt", original);
    fs::create_directories(outDir);
    {
        Process driver({driverPath("autosave_driver"), "edit", home, doc});
        ASSERT_TRUE(driver.started());
        // Generous: only a hung driver ever waits this long.
        EXPECT_TRUE(driver.waitForOutput("saved", std::chrono::seconds(60)));
        ASSERT_TRUE(driver.kill()) << driver.out();
    }
    ASSERT_EQ(sideFiles(home), 1);
    EXPECT_EQ(tmp.get("doc.txt"), original);

    const std::string script = tmp.put("batch.c", "int main(void) { return 0; }\n");
    Outcome r = run({zolderBinary(), "--headless", "--home", home, "--run", script});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(sideFiles(home), 1) << "a batch run took the side file";

    r = run({driverPath("autosave_driver"), "dump", home, outDir});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "Recover1: 4 lines, 22 bytes, DOS/Windows, modified\n");
    EXPECT_EQ(tmp.get("out/Recover1"), edited);
    EXPECT_EQ(sideFiles(home), 0);
}

}  // namespace
}  // namespace zol::test
