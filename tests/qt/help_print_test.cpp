// Help on the word at the cursor, API assistance, and the print preview, in the real
// frame offscreen.
#include <QListWidget>
#include <QTextBrowser>
#include <QToolTip>

#include "app/qt/help_lookup.h"
#include "app/qt/help_window.h"
#include "app/qt/print_preview.h"
#include "config/settings.h"
#include "engine/command_table.h"
#include "tests/qt/qt_fixture.h"
#include "tests/support/documents.h"
#include "tools/user_tools.h"

namespace zol::qttest {
namespace {

class HelpTest : public DesktopTest {
protected:
    void TearDown() override {
        userHelp() = UserHelp{};
        delete THelpWindow::instance();
        DesktopTest::TearDown();
    }
    // Opens a file holding text with the cursor on its first line at column col.
    void cursorOn(const std::string& name, const std::string& text, int16_t col) {
        ASSERT_NE(open(name, text), nullptr);
        setCursor(doc(), {col, 0});
    }
    QString selected() { return THelpWindow::instance()->browser()->textCursor().selectedText(); }
};

TEST_F(HelpTest, KeywordSearchFollowsTheIndexTheReferenceAndTheContextFile) {
    const std::string context = write("context.html", "<p>About <b>frobnicate</b> and its kin.</p>").string();
    userHelp().contextHelpFile = context;
    struct Row {
        const char* name;
        const char* word;
        const char* source;     // part of the page shown
        const char* selection;  // what the window selects, empty for an index entry
    } rows[] = {
        {"manual's index", "PrintInColor", "settings.html", ""},
        {"VEK C reference", "Zol_GetLine", "scripts.html", "int Zol_GetLine(HDOC doc, int line, char *buffer, int size)"},
        {"only in the context help file", "frobnicate", "context.html", "frobnicate"},
    };
    for (const Row& r : rows) {
        cursorOn(std::string(r.name) + ".txt", std::string("  ") + r.word + " x", 4);
        view()->runCommand(idOf(Cmd::HelpKeywordSearch));
        THelpWindow* help = THelpWindow::instance();
        EXPECT_TRUE(help->isVisible()) << r.name;
        EXPECT_TRUE(help->browser()->source().toString().contains(QString::fromUtf8(r.source))) << r.name;
        if (*r.selection) EXPECT_EQ(selected(), QString::fromUtf8(r.selection)) << r.name;
        else EXPECT_EQ(help->indexList()->currentItem()->text(), QString::fromUtf8(r.word)) << r.name;
    }
    EXPECT_TRUE(boxTexts_.empty());
    cursorOn("none.txt", "qwzxv", 1);
    view()->runCommand(idOf(Cmd::HelpKeywordSearch));
    ASSERT_EQ(boxTexts_.size(), 1u);
    EXPECT_NE(boxTexts_[0].find("No help was found for \"qwzxv\""), std::string::npos);
}

TEST_F(HelpTest, ThePrototypeShowsWhileTypingACall) {
    cursorOn("script.c", "   n = Zol_GetLine", 18);
    view()->runCommand(idOf(Cmd::InsertChar), '(');
    EXPECT_EQ(QToolTip::text(), QStringLiteral("int Zol_GetLine(HDOC doc, int line, char *buffer, int size)"));
    for (char c : std::string("hDoc, strlen(s)")) view()->runCommand(idOf(Cmd::InsertChar), static_cast<uint8_t>(c));
    // Back in Zol_GetLine's arguments after the inner call closed.
    EXPECT_EQ(QToolTip::text().left(15), QStringLiteral("int Zol_GetLine"));
    view()->runCommand(idOf(Cmd::ApiAssistanceOn));
    EXPECT_FALSE(apiAssistance());
    view()->runCommand(idOf(Cmd::ApiAssistanceOn));
    EXPECT_TRUE(apiAssistance());
}

TEST_F(HelpTest, PreviewShowsPagesAndRefusesAPageWithoutRoom) {
    ASSERT_NE(open("long.c", test::numberedLines(500)), nullptr);
    {
        TPrintPreviewDlg dlg(frame_.get(), doc());
        ASSERT_TRUE(dlg.planned());
        EXPECT_GT(dlg.pageCount(), 5u);
    }
    settings().printing.leftMargin = settings().printing.rightMargin = 1100;
    TPrintPreviewDlg narrow(frame_.get(), doc());
    EXPECT_FALSE(narrow.planned());
    ASSERT_EQ(boxTexts_.size(), 1u);
    EXPECT_NE(boxTexts_[0].find("too small for its margins"), std::string::npos);
    settings().printing.leftMargin = settings().printing.rightMargin = 254;
}

}  // namespace
}  // namespace zol::qttest
