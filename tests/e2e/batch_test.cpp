// Batch editing: zolder --headless FILE... --run SCRIPT ARG..., after the start-up scripts.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <sys/stat.h>

#include "tests/support/process.h"
#include "tests/support/temp_dir.h"

namespace zol::test {
namespace {

TEST(Batch, ScriptRunsAfterStartUpOnTheOpenFilesAndItsValueIsTheStatus) {
    TempDir tmp("zolbatch");
    const std::string home = tmp.path("home/");
    tmp.put("home/script/StartUp/mark.c",
            "#include <stdio.h>\nint main(void) {\n  FILE *f = fopen(\"" + tmp.path("started") +
                "\", \"w\");\n  fclose(f);\n  return 0;\n}\n");
    tmp.put("home/script/StartUp/broken.c", "int main(void) {\n  int z = 0;\n  return 1 / z;\n}\n");
    const std::string script = tmp.put(
        "batch.c",
        "#include <stdio.h>\nint main(int argc, char *argv[]) {\n  FILE *f = fopen(\"" + tmp.path("started") +
            "\", \"r\");\n  printf(\"%d [%s] [%s]\\n\", argc, argv[1], argv[2]);\n  return f ? 3 : 9;\n}\n");
    const std::string a = tmp.put("a.txt", "alpha\n"), b = tmp.put("b.txt", "beta\r\n");

    const Outcome r = run({zolderBinary(), "--headless", "--home", home, a, b, "--run", script, "one", "two words"});

    EXPECT_EQ(r.status, 3) << r.err;
    EXPECT_EQ(r.out, "3 [one] [two words]\n") << "the script's output only, no summaries";
    // A start-up script's error is its one report line; the others and the batch still run.
    EXPECT_EQ(r.err, "broken.c Line 3: Divide by 0\n");
    EXPECT_EQ(tmp.get("a.txt"), "alpha\n");
    EXPECT_EQ(tmp.get("b.txt"), "beta\r\n");
}

TEST(Batch, ARunThatChangesNoSettingLeavesTheSettingsFilesUntouched) {
    TempDir tmp("zolbatch");
    const std::string home = tmp.path("home/");
    const std::string script = tmp.put("count.c", "int main(void) {\n  return 7;\n}\n");
    const std::string a = tmp.put("a.c", "int a;\n");
    const std::vector<std::string> runs[] = {
        {zolderBinary(), "--headless", "--home", home, a, "--run", script},
        {zolderBinary(), "--headless", "--home", home, a},
    };
    // The first run seeds the home and remembers the script among the recent ones.
    ASSERT_EQ(run(runs[0]).status, 7);
    struct Seen {
        std::string bytes;
        struct stat st {};
    };
    auto look = [&](const char* name) {
        Seen s{tmp.get(std::string("home/") + name)};
        EXPECT_EQ(::stat(tmp.path(std::string("home/") + name).c_str(), &s.st), 0) << name;
        return s;
    };
    const char* const names[] = {"zol.ini", "vek.ini", "registry.ini"};
    std::vector<Seen> before;
    for (const char* name : names) before.push_back(look(name));
    for (const auto& argv : runs) EXPECT_EQ(run(argv).status, argv.size() > 5 ? 7 : 0);
    for (size_t i = 0; i < std::size(names); ++i) {
        const Seen after = look(names[i]);
        EXPECT_EQ(after.bytes, before[i].bytes) << names[i];
        EXPECT_EQ(after.st.st_ino, before[i].st.st_ino) << names[i] << " was replaced";
        EXPECT_EQ(after.st.st_mtim.tv_sec, before[i].st.st_mtim.tv_sec) << names[i];
        EXPECT_EQ(after.st.st_mtim.tv_nsec, before[i].st.st_mtim.tv_nsec) << names[i];
    }
}

}  // namespace
}  // namespace zol::test
