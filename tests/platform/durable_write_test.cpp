// What a durable replace keeps of the file it replaces: links, permissions, owner, and
// the old bytes wherever the new ones cannot go.
#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/durable_write.h"
#include "tests/support/temp_dir.h"

namespace zol {
namespace {

namespace fs = std::filesystem;

class DurableWrite : public ::testing::Test {
protected:
    std::string path(const char* name) const { return tmp_.path(name); }
    std::string put(const char* name, const char* bytes) const { return tmp_.put(name, bytes); }
    std::string get(const char* name) const { return tmp_.get(name); }
    // Names in the folder other than the ones the test made: leftovers of a replace.
    std::vector<std::string> strays(std::initializer_list<const char*> expected) const {
        std::vector<std::string> out;
        for (const fs::directory_entry& e : fs::directory_iterator(tmp_.dir())) {
            const std::string n = e.path().filename().string();
            if (std::find(expected.begin(), expected.end(), n) == expected.end()) out.push_back(n);
        }
        return out;
    }
    static unsigned modeOf(const std::string& p) {
        struct stat st {};
        ::lstat(p.c_str(), &st);
        return st.st_mode & 07777;
    }

    test::TempDir tmp_{"zoldurable"};
};

TEST_F(DurableWrite, LinksAndPermissionsSurvive) {
    put("real.txt", "old");
    fs::permissions(path("real.txt"), fs::perms(0640));
    fs::create_symlink("real.txt", path("sym.txt"));
    fs::create_symlink("later.txt", path("dangling.txt"));
    put("twin1.txt", "old");
    fs::create_hard_link(path("twin1.txt"), path("twin2.txt"));

    ASSERT_EQ(replaceFileWith(path("sym.txt"), "via link"), ReplaceResult::Replaced);
    EXPECT_TRUE(fs::is_symlink(path("sym.txt")));
    EXPECT_EQ(get("real.txt"), "via link");
    EXPECT_EQ(modeOf(path("real.txt")), 0640u);

    ASSERT_EQ(replaceFileWith(path("dangling.txt"), "created"), ReplaceResult::Replaced);
    EXPECT_TRUE(fs::is_symlink(path("dangling.txt")));
    EXPECT_EQ(get("later.txt"), "created");

    // Both names of a hard-linked file see the new bytes.
    ASSERT_EQ(replaceFileWith(path("twin1.txt"), "both see this"), ReplaceResult::Replaced);
    EXPECT_EQ(get("twin2.txt"), "both see this");
    EXPECT_EQ(fs::hard_link_count(path("twin1.txt")), 2u);

    EXPECT_EQ(strays({"real.txt", "sym.txt", "dangling.txt", "later.txt", "twin1.txt", "twin2.txt"}),
              std::vector<std::string>{});
}

TEST_F(DurableWrite, ASecondNameLeftByAKilledSaveIsDropped) {
    // Killed after naming the old bytes a second time: the next save must not mistake
    // that name for a user's hard link and write in place.
    put("doc.txt", "old");
    fs::create_hard_link(path("doc.txt"), path(".zol0123ABCD.old"));
    DurableReplace r;
    ASSERT_EQ(beginReplace(r, path("doc.txt")), ReplaceResult::Replaced);
    EXPECT_EQ(r.inPlace, InPlaceReason::None);
    putBytes(r, "new");
    ASSERT_EQ(finishReplace(r), ReplaceResult::Replaced);
    EXPECT_EQ(get("doc.txt"), "new");
    EXPECT_EQ(strays({"doc.txt"}), std::vector<std::string>{});
}

TEST_F(DurableWrite, BackupTakesTheOldBytesAndReplacesAnOlderBackup) {
    put("a.txt", "one");
    put("a.bak", "older");
    ASSERT_EQ(replaceFileWith(path("a.txt"), "two", path("a.bak")), ReplaceResult::Replaced);
    EXPECT_EQ(get("a.txt"), "two");
    EXPECT_EQ(get("a.bak"), "one");
    // A new file has nothing to back up.
    ASSERT_EQ(replaceFileWith(path("b.txt"), "new", path("b.bak")), ReplaceResult::Replaced);
    EXPECT_FALSE(fs::exists(path("b.bak")));
    // A backup name that is taken by a folder fails the save, and the file stays.
    fs::create_directory(path("c.bak"));
    put("c.txt", "keep me");
    EXPECT_EQ(replaceFileWith(path("c.txt"), "lost?", path("c.bak")), ReplaceResult::BackupFailed);
    EXPECT_EQ(get("c.txt"), "keep me");
    EXPECT_EQ(strays({"a.txt", "a.bak", "b.txt", "c.txt", "c.bak"}), std::vector<std::string>{});
}

TEST_F(DurableWrite, TargetsThatCannotBeReplacedStayAsTheyAre) {
    fs::create_directory(path("folder"));
    EXPECT_EQ(replaceFileWith(path("folder"), "x"), ReplaceResult::CannotOpen);
    put("locked.txt", "locked");
    fs::permissions(path("locked.txt"), fs::perms::owner_read);
    EXPECT_EQ(replaceFileWith(path("locked.txt"), "x"), ReplaceResult::CannotOpen);
    EXPECT_EQ(get("locked.txt"), "locked");
    EXPECT_EQ(replaceFileWith(path("no/such/folder.txt"), "x"), ReplaceResult::CannotOpen);
    // A stream of bytes given up half-way leaves nothing behind.
    DurableReplace r;
    ASSERT_EQ(beginReplace(r, path("locked2.txt")), ReplaceResult::Replaced);
    putBytes(r, std::string(3 << 20, 'x'));
    abandonReplace(r);
    EXPECT_FALSE(fs::exists(path("locked2.txt")));
    EXPECT_EQ(strays({"folder", "locked.txt"}), std::vector<std::string>{});
}

TEST_F(DurableWrite, AFileOfAnotherOwnerKeepsItsOwner) {
    put("theirs.txt", "old");
    constexpr uid_t kOther = 4321;
    if (::chown(path("theirs.txt").c_str(), kOther, kOther) != 0)
        GTEST_SKIP() << "giving a file to another user needs root; as another user the file cannot be set up";
    fs::permissions(path("theirs.txt"), fs::perms(0666));
    ASSERT_EQ(replaceFileWith(path("theirs.txt"), "new"), ReplaceResult::Replaced);
    struct stat st {};
    ASSERT_EQ(::stat(path("theirs.txt").c_str(), &st), 0);
    EXPECT_EQ(st.st_uid, kOther);
    EXPECT_EQ(get("theirs.txt"), "new");
}

TEST_F(DurableWrite, AFolderWithoutWriteRightsIsWrittenInPlace) {
    if (::geteuid() == 0) GTEST_SKIP() << "root may write any folder, so the folder's rights cannot be tested";
    put("in/file.txt", "old bytes here");
    fs::permissions(path("in"), fs::perms(0555));
    DurableReplace r;
    ASSERT_EQ(beginReplace(r, path("in/file.txt")), ReplaceResult::Replaced);
    EXPECT_EQ(r.inPlace, InPlaceReason::Folder);
    putBytes(r, "new");
    EXPECT_EQ(finishReplace(r, path("in/file.bak")), ReplaceResult::BackupFailed);
    EXPECT_EQ(get("in/file.txt"), "old bytes here");
    EXPECT_EQ(replaceFileWith(path("in/file.txt"), "new"), ReplaceResult::Replaced);
    EXPECT_EQ(get("in/file.txt"), "new");
    fs::permissions(path("in"), fs::perms(0755));
}

TEST_F(DurableWrite, CreatingNeverReplaces) {
    EXPECT_TRUE(createFileDurably(path("side"), "first", 0600));
    EXPECT_FALSE(createFileDurably(path("side"), "second", 0600));
    EXPECT_EQ(get("side"), "first");
    EXPECT_EQ(modeOf(path("side")), 0600u);
    EXPECT_EQ(strays({"side"}), std::vector<std::string>{});
}

}  // namespace
}  // namespace zol
