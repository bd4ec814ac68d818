// The desktop ended from outside while a document holds unsaved work: the work goes to
// a side file for the next start, and the document's own file is left alone.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>

#include "tests/support/files.h"
#include "tests/support/process.h"
#include "tests/support/temp_dir.h"

namespace zol::test {
namespace {

// A start-up script makes the unsaved change, then says it is done.
std::string editingStartUpScript(const std::string& doneMark) {
    return "#include <stdio.h>\n#include <editor/doc.h>\n"
           "int main(void) {\n"
           "  FILE *f;\n"
           "  Zol_InsertText(Zol_GetActiveDocument(), \"unsaved \");\n"
           "  f = fopen(\"" + doneMark + "\", \"w\");\n"
           "  fclose(f);\n"
           "  return 0;\n"
           "}\n";
}

std::string sideFileText(const std::string& home) {
    for (const auto& e : std::filesystem::directory_iterator(home)) {
        const std::string name = e.path().filename().string();
        if (name.rfind("~zol", 0) == 0 && e.path().extension() == ".asd") return readBytes(e.path().string());
    }
    return "no side file";
}

TEST(AbruptEnd, TerminationWritesUnsavedWorkToASideFile) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    TempDir tmp("zolterm");
    const std::string home = tmp.path("home/");
    tmp.put("home/script/StartUp/edit.c", editingStartUpScript(tmp.path("edited")));
    const std::string file = tmp.put("notes.txt", "kept\n");

    Process zolder({zolderBinary(), "--home", home, file});
    for (int i = 0; i < 200 && !std::filesystem::exists(tmp.path("edited")); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    ASSERT_TRUE(std::filesystem::exists(tmp.path("edited"))) << zolder.err();
    zolder.terminate();
    const Outcome r = zolder.wait();

    EXPECT_EQ(r.status, 128 + 15) << r.err;
    EXPECT_EQ(sideFileText(home), "unsaved kept\n");
    EXPECT_EQ(tmp.get("notes.txt"), "kept\n");
}

}  // namespace
}  // namespace zol::test
