// The application's side of auto-save: the interval, closing, and who may recover.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "app/application.h"
#include "engine/edit.h"
#include "engine/options.h"
#include "files/autosave.h"
#include "platform/dirsearch.h"
#include "platform/instance_lock.h"
#include "platform/tempfile.h"

namespace zol {
namespace {

constexpr int64_t kMinute = 60 * 1000;

class AppAutoSave : public ::testing::Test {
protected:
    void SetUp() override {
        home_ = createTempDir("zolapp");
        ASSERT_FALSE(home_.empty());
    }
    void TearDown() override {
        shutDown(app_);
        std::error_code ec;
        std::filesystem::remove_all(home_, ec);
    }
    void start() {
        startUp(app_, StartupOptions{home_, {}});
        options().autoSave = true;
        options().autoSaveEvery = 2;
    }
    size_t sideFiles() const { return findFiles(home_ + kAutoSavePattern, false).size(); }
    Document* modifiedDoc(std::string_view text) {
        Document* d = newDocument(app_);
        insertText(*d, text);
        return d;
    }

    std::string home_;
    Application app_;
};

TEST_F(AppAutoSave, TickSavesOnceTheIntervalHasPassed) {
    start();
    Document* changed = modifiedDoc("edited");
    newDocument(app_);
    autoSaveTick(app_, 1000);
    autoSaveTick(app_, 1000 + 2 * kMinute - 1);
    EXPECT_EQ(sideFiles(), 0u);
    autoSaveTick(app_, 1000 + 2 * kMinute);
    EXPECT_EQ(sideFiles(), 1u);
    EXPECT_TRUE(changed->modified);

    // Closing the document normally takes its side file with it.
    destroyDocument(app_, changed);
    EXPECT_EQ(sideFiles(), 0u);

    options().autoSave = false;
    modifiedDoc("more");
    autoSaveTick(app_, 100 * kMinute);
    EXPECT_EQ(sideFiles(), 0u);
}

TEST_F(AppAutoSave, NormalExitLeavesNoSideFiles) {
    start();
    modifiedDoc("a");
    modifiedDoc("b");
    autoSaveTick(app_, 0);
    autoSaveTick(app_, 10 * kMinute);
    EXPECT_EQ(sideFiles(), 2u);
    shutDown(app_);
    EXPECT_EQ(sideFiles(), 0u);
}

TEST_F(AppAutoSave, OnlyTheSoleInstanceRecovers) {
    std::ofstream(home_ + "~zol1234.asd", std::ios::binary) << "left\nbehind";
    InstanceLock other;
    ASSERT_TRUE(takeInstanceLock(other, home_));
    start();
    EXPECT_TRUE(app_.anotherInstance);
    EXPECT_TRUE(app_.documents.empty());
    EXPECT_EQ(sideFiles(), 1u);
    shutDown(app_);
    releaseInstanceLock(other);

    start();
    ASSERT_EQ(app_.documents.size(), 1u);
    EXPECT_EQ(app_.recovered, 1);
    EXPECT_EQ(documentSummary(*app_.active), "Recover1: 2 lines, 11 bytes, UNIX, modified");
    EXPECT_EQ(sideFiles(), 0u);
}

}  // namespace
}  // namespace zol
