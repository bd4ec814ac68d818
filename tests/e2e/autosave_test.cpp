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
// leaves its side file behind. A second home, copied after the kill, lets both the
// real binary and the driver start on what was left: the binary shows the recovered
// document, the driver writes it out for a byte-for-byte look.
TEST(KilledSession, NextStartRecoversTheDocument) {
    TempDir tmp("zolkill");
    const std::string original = "alpha\t\xE9\r\n  beta\r\n", edited = "xyz\r\n" + original;
    const std::string home = tmp.path("home/"), home2 = tmp.path("home2/"), outDir = tmp.path("out/");
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
    fs::copy(home, home2, fs::copy_options::recursive);

    const std::string summary = "Recover1: 4 lines, 22 bytes, DOS/Windows, modified\n";
    Outcome r = run({zolderBinary(), "--headless", "--home", home});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, summary);
    EXPECT_NE(r.err.find("Your last session failed!"), std::string::npos);
    EXPECT_EQ(sideFiles(home), 0);

    r = run({driverPath("autosave_driver"), "dump", home2, outDir});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, summary);
    EXPECT_EQ(tmp.get("out/Recover1"), edited);
    EXPECT_EQ(sideFiles(home2), 0);
}

}  // namespace
}  // namespace zol::test
