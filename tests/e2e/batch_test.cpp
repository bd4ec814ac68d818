// Batch editing: zolder --headless FILE... --run SCRIPT ARG..., after the start-up scripts.
#include <gtest/gtest.h>

#include <string>

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

}  // namespace
}  // namespace zol::test
