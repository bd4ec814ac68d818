// zolder --print-pdf, checked the way a reader sees the PDF: its text through pdftotext,
// its first page as pixels through pdftoppm (rendered with the test's own fonts).
#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "syntax/definition.h"
#include "syntax/table.h"
#include "tests/support/process.h"
#include "tests/support/temp_dir.h"

namespace zol::test {
namespace {

constexpr char kFixture[] =
    "/* fixture.c */\n"
    "int main(void)\n"
    "{\n"
    "\treturn wrapped_alpha + wrapped_beta + wrapped_gamma + wrapped_delta + wrapped_omega;\n"
    "}\n";

struct Pixels {
    int width = 0, height = 0;
    std::string rgb;
};

// A binary PPM as pdftoppm writes it.
Pixels readPpm(const std::string& bytes) {
    Pixels p;
    std::istringstream in(bytes);
    std::string magic;
    int maxval = 0;
    in >> magic >> p.width >> p.height >> maxval;
    in.get();
    p.rgb = bytes.substr(static_cast<size_t>(in.tellg()));
    return p;
}

int pixelsNear(const Pixels& p, Rgb c) {
    int n = 0;
    for (size_t i = 0; i + 2 < p.rgb.size(); i += 3) {
        const int d = std::abs(static_cast<uint8_t>(p.rgb[i]) - c.r) + std::abs(static_cast<uint8_t>(p.rgb[i + 1]) - c.g) +
                      std::abs(static_cast<uint8_t>(p.rgb[i + 2]) - c.b);
        if (d < 40) ++n;
    }
    return n;
}

class PrintPdf : public ::testing::Test {
protected:
    void SetUp() override {
        if (run({"/usr/bin/env", "pdftotext", "-v"}).status != 0) GTEST_SKIP() << "pdftotext (poppler-utils) is missing";
        // Poppler finds its stand-in for Courier among the test's fonts only.
        setenv("FONTCONFIG_FILE", ZOLDER_TEST_FONTS "/fonts.conf", 1);
        tmp_.put("fixture.c", kFixture);
    }

    Outcome print(const std::string& ini) {
        tmp_.put("home/zol.ini", ini);
        return run({zolderBinary(), "--home", tmp_.path("home"), "--print-pdf", tmp_.path("out.pdf"),
                    tmp_.path("fixture.c")});
    }
    std::string text() { return run({"/usr/bin/env", "pdftotext", "-layout", tmp_.path("out.pdf"), "-"}).out; }
    Pixels firstPage() {
        run({"/usr/bin/env", "pdftoppm", "-r", "50", "-f", "1", "-l", "1", "-singlefile", tmp_.path("out.pdf"), tmp_.path("page")});
        return readPpm(tmp_.get("page.ppm"));
    }
    Rgb keywordColour() {
        const SyntaxHighlight def = loadDefinition("C/C++", ZOLDER_SOURCE_DIR "/data/syntax.hgl");
        return paletteColour(def.colour[kColKeyword]);
    }

    TempDir tmp_{"zolpdf"};
};

constexpr char kSettings[] =
    "[Editor]\nLineNumbers=1\n"
    "[Printing]\nSyntaxPrint=1\nPrintInColor=%d\nFontName=Courier\nFontSize=20\n"
    "Header=&l&f&rPage &p of &P\nFooter=&cend of &f &q\n";

std::string settings(bool colour) {
    char buf[sizeof kSettings + 8];
    std::snprintf(buf, sizeof buf, kSettings, colour ? 1 : 0);
    return buf;
}

TEST_F(PrintPdf, HeaderFooterLineNumbersAndAWrappedLine) {
    const Outcome r = print(settings(true));
    ASSERT_EQ(r.status, 0) << r.err;
    const std::string t = text();
    for (const char* expected : {"fixture.c", "Page 1 of 1", "end of fixture.c &q", "1 /* fixture.c */",
                                 "2 int main(void)", "5 }"})
        EXPECT_NE(t.find(expected), std::string::npos) << expected << " in\n" << t;
    // The long fourth line goes on in the rows below its number, and nothing is lost.
    const size_t first = t.find("4         return wrapped_alpha");
    EXPECT_NE(first, std::string::npos) << t;
    EXPECT_LT(first, t.find("wrapped_omega;"));
}

TEST_F(PrintPdf, KeywordsInTheirColourOnlyWhenPrintingInColour) {
    const Rgb keyword = keywordColour();
    ASSERT_FALSE(keyword == (Rgb{0, 0, 0}));
    ASSERT_EQ(print(settings(true)).status, 0);
    const Pixels colour = firstPage();
    ASSERT_GT(colour.width, 0);
    EXPECT_GT(pixelsNear(colour, keyword), 5);
    ASSERT_EQ(print(settings(false)).status, 0);
    EXPECT_EQ(pixelsNear(firstPage(), keyword), 0);
}

TEST_F(PrintPdf, BadInputLeavesTheOutputAlone) {
    tmp_.put("out.pdf", "old");
    struct Row {
        const char* name;
        std::string ini;
        std::vector<std::string> file;
        const char* message;
    } rows[] = {
        {"margins", "[Printing]\nLeftMargin=1500\nRightMargin=1500\n", {tmp_.path("fixture.c")}, "too small"},
        {"missing file", "", {tmp_.path("nothere.c")}, "no such file"},
    };
    for (const Row& row : rows) {
        tmp_.put("home/zol.ini", row.ini);
        const Outcome r = run({zolderBinary(), "--home", tmp_.path("home"), "--print-pdf", tmp_.path("out.pdf"),
                               row.file.front()});
        EXPECT_EQ(r.status, 1) << row.name;
        EXPECT_NE(r.err.find(row.message), std::string::npos) << row.name << ": " << r.err;
        EXPECT_EQ(tmp_.get("out.pdf"), "old") << row.name;
    }
}

}  // namespace
}  // namespace zol::test
