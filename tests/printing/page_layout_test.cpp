// The page layout without a device: header and footer codes, the frame, pages, wrap
// and cut, line numbers and selections.
#include <gtest/gtest.h>

#include <string>

#include "engine/document.h"
#include "engine/selection.h"
#include "printing/page_layout.h"
#include "tests/support/documents.h"

namespace zol {
namespace {

PageFacts facts() {
    PageFacts f;
    f.path = "/src/proj/main.c";
    f.page = 3;
    f.pages = 12;
    f.when = LocalTime{9, 5, 0, 24, 11, 2031, 1};
    f.conventions = conventionsFromFormats("%H:%M:%S", "%d.%m.%Y");
    return f;
}

TEST(PageCodes, ExpandWhereTheyStand) {
    struct Row {
        const char* name;
        const char* pattern;
        PageLine expected;
    };
    const Row rows[] = {
        {"name", "&f", {"", "main.c", ""}},
        {"path", "&F", {"", "/src/proj/main.c", ""}},
        {"pages", "Page &p of &P", {"", "Page 3 of 12", ""}},
        {"date and time", "&d &t", {"", "24.11.2031 09:05", ""}},
        {"ampersand", "R&&D", {"", "R&D", ""}},
        {"unknown code as written", "&x&", {"", "&x&", ""}},
        {"aligned", "&l&f&cmid&r&p", {"main.c", "mid", "3"}},
    };
    for (const Row& r : rows) EXPECT_EQ(expandPageCodes(r.pattern, facts()), r.expected) << r.name;
}

class Layout : public ::testing::Test {
protected:
    // A sheet of 100 by 60 units with 10-unit margins: 80 columns of 1 unit, 40 rows.
    PageMetrics metrics{100, 60, 1, 1, 1};
    PrintOptions opt;
    Document doc;
    PrintPlan plan;
    std::string error;

    void SetUp() override {
        opt.leftMargin = opt.rightMargin = opt.topMargin = opt.bottomMargin = 10;
        opt.header = opt.footer = "";
    }
    std::string rowText(const PrintPage& page, size_t row) {
        std::string s;
        for (const PrintRun& r : page.rows.at(row).runs) {
            s.resize(static_cast<size_t>(r.column), ' ');
            s += r.text;
        }
        return s;
    }
};

TEST_F(Layout, PagesWrapOrCutLongLines) {
    test::fill(doc, std::string(100, 'x') + "\nshort\n" + test::numberedLines(37));
    ASSERT_TRUE(planPrint(doc, opt, metrics, plan, error)) << error;
    // 2 rows, 1, 37 numbered lines and the empty last: 41 rows on pages of 40.
    ASSERT_EQ(plan.pages.size(), 2u);
    PrintPage p = layoutPage(plan, 0, facts());
    EXPECT_EQ(rowText(p, 0), std::string(80, 'x'));
    EXPECT_EQ(rowText(p, 1), std::string(20, 'x'));
    EXPECT_EQ(rowText(p, 2), "short");

    opt.wrap = false;
    opt.header = "&p/&P";
    opt.footer = "x";
    ASSERT_TRUE(planPrint(doc, opt, metrics, plan, error));
    EXPECT_EQ(plan.frame.textRows, 36);
    ASSERT_EQ(plan.pages.size(), 2u);
    p = layoutPage(plan, 1, facts());
    EXPECT_EQ(p.header[1], "2/2");
    EXPECT_EQ(rowText(layoutPage(plan, 0, facts()), 0), std::string(80, 'x'));
    EXPECT_EQ(p.rows.size(), 4u);
}

TEST_F(Layout, LineNumbersTakeTheirColumnsAndTabsExpand) {
    test::fill(doc, "a\tb\n" + test::numberedLines(10));
    opt.lineNumbers = true;
    ASSERT_TRUE(planPrint(doc, opt, metrics, plan, error));
    EXPECT_EQ(plan.frame.numberColumns, 3);
    const PrintPage p = layoutPage(plan, 0, facts());
    EXPECT_EQ(rowText(p, 0), " 1 a       b");
    EXPECT_EQ(rowText(p, 10), "11 line 10");
}

TEST_F(Layout, SelectionOnlyPrintsTheSelectedText) {
    test::fill(doc, "zero\none two\nthree\nfour");
    opt.selectionOnly = true;
    EXPECT_FALSE(planPrint(doc, opt, metrics, plan, error));
    setSelection(doc, {4, 1}, {0, 3});  // from "two" to the start of "four"
    ASSERT_TRUE(planPrint(doc, opt, metrics, plan, error)) << error;
    PrintPage p = layoutPage(plan, 0, facts());
    ASSERT_EQ(p.rows.size(), 2u);
    EXPECT_EQ(rowText(p, 0), "    two");
    EXPECT_EQ(rowText(p, 1), "three");

    doc.selMode = SelMode::Column;
    setSelection(doc, {1, 1}, {3, 2});
    ASSERT_TRUE(planPrint(doc, opt, metrics, plan, error));
    p = layoutPage(plan, 0, facts());
    ASSERT_EQ(p.rows.size(), 2u);
    EXPECT_EQ(rowText(p, 0), "ne");
    EXPECT_EQ(rowText(p, 1), "hr");
}

TEST_F(Layout, APageTooSmallForItsMarginsIsRefused) {
    test::fill(doc, "text");
    struct Row {
        const char* name;
        int left, top;
    } rows[] = {{"too narrow", 46, 10}, {"too low", 10, 30}, {"margins past the sheet", 60, 10}};
    for (const Row& r : rows) {
        opt.leftMargin = opt.rightMargin = r.left;
        opt.topMargin = opt.bottomMargin = r.top;
        error.clear();
        EXPECT_FALSE(planPrint(doc, opt, metrics, plan, error)) << r.name;
        EXPECT_NE(error.find("too small for its margins"), std::string::npos) << r.name;
    }
}

}  // namespace
}  // namespace zol
