#include <filesystem>
#include <fstream>

#include "platform/clock.h"
#include "platform/fileinfo.h"
#include "platform/instance_lock.h"
#include "platform/paths.h"
#include "platform/registry.h"
#include "platform/tempfile.h"
#include "tests/support/temp_home.h"

namespace zol {
namespace {

using InstanceLocking = test::TempHome;

TEST_F(InstanceLocking, EachInstanceSeesTheOthers) {
    InstanceLock first, second;
    EXPECT_FALSE(otherInstanceRunning(first, dir));
    ASSERT_TRUE(takeInstanceLock(first, dir));
    EXPECT_TRUE(exists(kInstanceLockFile));
    EXPECT_FALSE(otherInstanceRunning(first, dir));
    EXPECT_TRUE(otherInstanceRunning(second, dir));
    ASSERT_TRUE(takeInstanceLock(second, dir));
    EXPECT_TRUE(otherInstanceRunning(first, dir));
    EXPECT_TRUE(otherInstanceRunning(second, dir));
    // Asking twice must not lose the lock.
    EXPECT_TRUE(otherInstanceRunning(second, dir));
    releaseInstanceLock(first);
    EXPECT_FALSE(otherInstanceRunning(second, dir));
    releaseInstanceLock(second);
    EXPECT_EQ(second.fd, -1);
    EXPECT_FALSE(takeInstanceLock(first, dir + "missing/"));
}

using Registry = test::TempHome;

TEST_F(Registry, ValuesKeepTheirType) {
    const char* key = "Software\\VEK\\Zolder\\Install";
    EXPECT_FALSE(registryKeyExists(RegistryRoot::CurrentUser, key));
    EXPECT_EQ(registryGetInt(RegistryRoot::CurrentUser, key, "Start"), std::nullopt);
    ASSERT_TRUE(registrySetInt(RegistryRoot::CurrentUser, key, "Start", 0xFFFFFFFFu));
    ASSERT_TRUE(registrySetString(RegistryRoot::CurrentUser, key, "Path", "  padded \"x\"  "));
    EXPECT_TRUE(exists(kRegistryFile));
    EXPECT_TRUE(registryKeyExists(RegistryRoot::CurrentUser, "software\\vek\\zolder\\install\\"));
    EXPECT_FALSE(registryKeyExists(RegistryRoot::LocalMachine, key));
    EXPECT_EQ(registryGetInt(RegistryRoot::CurrentUser, key, "start"), 0xFFFFFFFFu);
    EXPECT_EQ(registryGetString(RegistryRoot::CurrentUser, key, "Path"), "  padded \"x\"  ");
    EXPECT_EQ(registryGetString(RegistryRoot::CurrentUser, key, "Start"), std::nullopt);
    EXPECT_EQ(registryGetInt(RegistryRoot::CurrentUser, key, "Path"), std::nullopt);
}

TEST_F(Registry, HandWrittenValues) {
    put(kRegistryFile,
        "[HKEY_LOCAL_MACHINE\\Soft\\App]\nplain=text\nbadint=dword:12xz\nlong=dword:123456789\n@=dflt\n");
    EXPECT_EQ(registryGetString(RegistryRoot::LocalMachine, "Soft\\App", "plain"), "text");
    EXPECT_EQ(registryGetString(RegistryRoot::LocalMachine, "Soft\\App", ""), "dflt");
    EXPECT_EQ(registryGetInt(RegistryRoot::LocalMachine, "Soft\\App", "badint"), std::nullopt);
    EXPECT_EQ(registryGetInt(RegistryRoot::LocalMachine, "Soft\\App", "long"), std::nullopt);
}

using FileFacts = test::TempHome;

TEST_F(FileFacts, AttributesOfFilesAndFolders) {
    put("f.txt", "12345");
    FileAttributes f = fileAttributes(path("f.txt"));
    EXPECT_TRUE(f.exists);
    EXPECT_FALSE(f.isDirectory);
    EXPECT_FALSE(f.readOnly);
    EXPECT_EQ(f.size, 5u);
    EXPECT_NE(fileTime32(path("f.txt")), 0u);
    EXPECT_TRUE(isDirectory(dir));
    EXPECT_FALSE(fileExists(path("none")));
    EXPECT_EQ(fileTime32(path("none")), 0u);
    std::filesystem::permissions(path("f.txt"), std::filesystem::perms::owner_read);
    if (!std::ofstream(path("f.txt"), std::ios::app)) {
        EXPECT_TRUE(fileAttributes(path("f.txt")).readOnly);
    }
}

TEST_F(FileFacts, TemporaryNamesAreNewFiles) {
    std::string a = createTempFile(dir, "zolder");
    std::string b = createTempFile(dir, "zolder");
    ASSERT_FALSE(a.empty());
    ASSERT_FALSE(b.empty());
    EXPECT_NE(a, b);
    EXPECT_EQ(std::string(fileNamePart(a)).substr(0, 3), "zol");
    EXPECT_EQ(fileNamePart(a).size(), 11u);
    EXPECT_EQ(extensionPart(a), "tmp");
    EXPECT_EQ(fileAttributes(a).size, 0u);
    EXPECT_TRUE(createTempFile(dir + "missing", "z").empty());
}

TEST(Clock, ConventionsFromLocaleFormats) {
    TimeConventions c = conventionsFromFormats("%H:%M:%S", "%m/%d/%y");
    EXPECT_EQ(c.timeSeparator, ':');
    EXPECT_TRUE(c.hours24);
    EXPECT_TRUE(c.leadingZeroHour);
    EXPECT_EQ(c.dateOrder, DateOrder::MonthDayYear);
    EXPECT_EQ(c.dateSeparator, '/');
    c = conventionsFromFormats("%l.%M.%S %p", "%d.%m.%Y");
    EXPECT_EQ(c.timeSeparator, '.');
    EXPECT_FALSE(c.hours24);
    EXPECT_FALSE(c.leadingZeroHour);
    EXPECT_EQ(c.dateOrder, DateOrder::DayMonthYear);
    EXPECT_EQ(c.dateSeparator, '.');
    c = conventionsFromFormats("%-H:%M", "%Y-%m-%d");
    EXPECT_FALSE(c.leadingZeroHour);
    EXPECT_EQ(c.dateOrder, DateOrder::YearMonthDay);
    EXPECT_EQ(conventionsFromFormats("%r", "%F").hours24, false);
}

}  // namespace
}  // namespace zol
