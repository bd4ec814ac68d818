// User tools in the desktop: the compile and jump-to-error loop on F4, output that
// shows while the tool runs, the Running Tool window's Stop, and the tool dialogs.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>

#include "app/qt/dialogs/tool_dialogs.h"
#include "app/qt/dialogs/tool_running.h"
#include "app/qt/menus.h"
#include "platform/profile.h"
#include "qt_fixture.h"
#include "tools/user_tools.h"

namespace zol::qttest {
namespace {

class ToolsTest : public DesktopTest {
protected:
    void TearDown() override {
        for (TRunningToolDlg* d : frame_->findChildren<TRunningToolDlg*>()) d->stop();
        EXPECT_TRUE(QTest::qWaitFor([this] { return frame_->findChildren<TRunningToolDlg*>().isEmpty(); }, 5000));
        userTools() = UserTools{};
        DesktopTest::TearDown();
    }
    static UserTool tool(std::string menu, std::string program, std::string arguments, bool capture = false) {
        UserTool t;
        t.menuText = std::move(menu);
        t.pathName = std::move(program);
        t.arguments = std::move(arguments);
        t.initialDir = "$(FileDir)";
        t.captureOutput = capture;
        return t;
    }
    void useTool(std::string program, std::string arguments) {
        userTools().tools = {tool("&Build", std::move(program), std::move(arguments), true)};
    }
    TRunningToolDlg* running() {
        const auto dlgs = frame_->findChildren<TRunningToolDlg*>();
        return dlgs.isEmpty() ? nullptr : dlgs.front();
    }
    bool waitForEnd() {
        return QTest::qWaitFor([this] { return running() == nullptr; }, 20000);
    }
    Document* output() {
        for (const auto& d : app_->documents)
            if (d->outputWindow) return d.get();
        return nullptr;
    }
};

TEST_F(ToolsTest, F4StepsThroughTheCompilerMessagesOfACapturedBuild) {
    open("two.c", "int f(void)\n{\n    return 1\n}\n\nvoid g(void)\n{\n    int *p = 5.0;\n    (void)p;\n}\n");
    useTool("cc", "-fno-diagnostics-show-caret -c $(FileName) -o /dev/null");
    frame_->runOnActive(idOf(Cmd::UserTool1));
    ASSERT_TRUE(waitForEnd());
    ASSERT_TRUE(output());
    EXPECT_EQ(view()->document(), output()) << "the output comes to the front";
    EXPECT_TRUE(frame_->statusText().startsWith("Build: ended with exit status 1")) << frame_->statusText().toStdString();
    const std::pair<Qt::KeyboardModifiers, int32_t> steps[] = {
        {Qt::NoModifier, 3}, {Qt::NoModifier, 8}, {Qt::ShiftModifier, 3}};
    for (const auto& [mods, line] : steps) {
        QTest::keyClick(view(), Qt::Key_F4, mods);
        ASSERT_EQ(doc().fileName, tmp_.path("two.c"));
        EXPECT_EQ(doc().cursor.line + 1, line);
    }
    EXPECT_TRUE(frame_->statusText().contains("two.c:3:")) << "the message shows";
    // Enter on a message line of the output does the same as F4.
    frame_->syncViews();
    setActiveDocument(*app_, output());
    frame_->syncViews();
    QTest::keyClick(view(), Qt::Key_End, Qt::ControlModifier);  // the second message
    QTest::keyClick(view(), Qt::Key_Return);
    EXPECT_EQ(doc().fileName, tmp_.path("two.c"));
    EXPECT_EQ(doc().cursor.line + 1, 8);
}

TEST_F(ToolsTest, ASlowToolShowsItsFirstLineAtOnceAndStopsFromItsWindow) {
    open("slow.txt", "x\n");
    useTool("sh", "-c 'echo first; exec sleep 100'");
    frame_->runOnActive(idOf(Cmd::UserTool1));
    TRunningToolDlg* dlg = running();
    ASSERT_TRUE(dlg);
    EXPECT_TRUE(QTest::qWaitFor([this] { return output() && lineText(*output(), 0) == "first"; }, 10000));
    EXPECT_EQ(view()->document(), output()) << "the output shows at once";
    EXPECT_TRUE(child<QLabel>(dlg, "command")->text().startsWith("sh -c ")) << child<QLabel>(dlg, "command")->text().toStdString();
    child<QPushButton>(dlg, "stop")->click();
    ASSERT_TRUE(waitForEnd());
    EXPECT_TRUE(frame_->statusText().startsWith("Build: stopped")) << frame_->statusText().toStdString();
}

TEST_F(ToolsTest, TheUserToolsDialogEditsTheListAndTheToolsMenuFollows) {
    open("d.txt", "x\n");
    userTools().tools = {tool("&One", "echo", "1"), tool("&Two", "echo", "2")};
    whenModal<TUserToolsDlg>([](TUserToolsDlg* d) {
        auto* list = child<QListWidget>(d, "tools");
        child<QPushButton>(d, "add")->click();
        EXPECT_EQ(list->currentRow(), 2);
        dlgtest::pressOk(d);  // the new tool has no program yet: said, and the dialog stays
        EXPECT_TRUE(d->isVisible());
        child<QLineEdit>(d, "program")->setText("true");
        QTest::keyClicks(child<QLineEdit>(d, "menuText"), "&Three");
        child<QLineEdit>(d, "arguments")->setText("$(FileName)");
        child<QCheckBox>(d, "capture")->setChecked(true);
        child<QComboBox>(d, "quoting")->setCurrentIndex(kQuoteAlways);
        child<QPushButton>(d, "up")->click();  // Three before Two
        list->setCurrentRow(0);
        child<QPushButton>(d, "remove")->click();  // One goes
        dlgtest::pressOk(d);
    });
    frame_->runFrameAction("UserTools");
    EXPECT_EQ(boxTexts_, std::vector<std::string>{"Tool 3 needs a menu text and a program."});
    const std::vector<UserTool>& tools = userTools().tools;
    ASSERT_EQ(tools.size(), 2u);
    EXPECT_EQ(tools[0].menuText, "New Tool&Three") << "typed after the suggested text";
    EXPECT_EQ(tools[0].arguments, "$(FileName)");
    EXPECT_TRUE(tools[0].captureOutput);
    EXPECT_EQ(tools[0].quoteMode, kQuoteAlways);
    EXPECT_EQ(tools[1].menuText, "&Two");
    flushProfileCache();
    EXPECT_EQ(getProfileString("UserTools", "PathName1", "", "zol.ini"), "true") << "written at once";
    EXPECT_FALSE(findProfileString("UserTools", "MenuText3", "zol.ini"));

    QMenu* menu = frame_->menu("Tools");
    Q_EMIT menu->aboutToShow();
    QStringList shown;
    for (QAction* a : menu->actions())
        if (menuCommand(a) && a->isVisible() && (a->text().startsWith("New") || a->text().startsWith("&Two")))
            shown << a->text();
    EXPECT_EQ(shown, (QStringList{"New Tool&Three", "&Two"}));
}

TEST_F(ToolsTest, TheArgumentQuestionShowsTheExpandedLine) {
    open("ask me.txt", "x\n");
    userTools().tools = {tool("&Ask", "echo", "$(FileName) $(CurLine)", true)};
    userTools().tools[0].askArguments = true;
    whenModal<TToolArgumentsDlg>([](TToolArgumentsDlg* d) {
        auto* edit = child<QLineEdit>(d, "arguments");
        EXPECT_EQ(edit->text(), "'ask me.txt' 1");
        edit->setText("changed");
        dlgtest::pressOk(d);
    });
    frame_->runOnActive(idOf(Cmd::UserTool1));
    ASSERT_TRUE(waitForEnd());
    ASSERT_TRUE(output());
    EXPECT_EQ(lineText(*output(), 0), "changed");
}

}  // namespace
}  // namespace zol::qttest
