// The application's side of auto-save: the interval, closing, and who may recover.
#include <gtest/gtest.h>

#include "app/application.h"
#include "engine/edit.h"
#include "engine/options.h"
#include "files/autosave.h"
#include "platform/dirsearch.h"
#include "platform/instance_lock.h"
#include "tests/support/temp_dir.h"

namespace zol {
namespace {

constexpr int64_t kMinute = 60 * 1000;

class AppAutoSave : public ::testing::Test {
protected:
    void TearDown() override { shutDown(app_); }
    void start() {
        startUp(app_, StartupOptions{home_, {}, {}, true});
        options().autoSaveEvery = 2;
    }
    size_t sideFiles() const { return findFiles(home_ + kAutoSavePattern, false).size(); }
    Document* modifiedDoc() {
        Document* d = newDocument(app_);
        insertText(*d, "edited");
        return d;
    }

    test::TempDir tmp_{"zolapp"};
    std::string home_ = tmp_.dir();
    Application app_;
};

TEST_F(AppAutoSave, TickSavesEachIntervalAndNormalEndsLeaveNothing) {
    start();
    Document* changed = modifiedDoc();
    newDocument(app_);
    autoSaveTick(app_, 1000);
    autoSaveTick(app_, 1000 + 2 * kMinute - 1);
    EXPECT_EQ(sideFiles(), 0u);
    autoSaveTick(app_, 1000 + 2 * kMinute);
    EXPECT_EQ(sideFiles(), 1u);
    destroyDocument(app_, changed);
    EXPECT_EQ(sideFiles(), 0u);
    modifiedDoc();
    autoSaveTick(app_, 10 * kMinute);
    shutDown(app_);
    EXPECT_EQ(sideFiles(), 0u);
}

TEST_F(AppAutoSave, OnlyTheSoleInstanceRecovers) {
    tmp_.put("~zol1234.asd", "left\nbehind");
    InstanceLock other;
    ASSERT_TRUE(takeInstanceLock(other, home_));
    start();
    EXPECT_TRUE(app_.documents.empty());
    shutDown(app_);
    releaseInstanceLock(other);
    start();
    ASSERT_EQ(app_.recovered, 1);
    EXPECT_EQ(documentSummary(*app_.active), "Recover1: 2 lines, 11 bytes, UNIX, modified");
    EXPECT_EQ(sideFiles(), 0u);
}

}  // namespace
}  // namespace zol
