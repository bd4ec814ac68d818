// "ConvertText" from the frame's menu, answered in its two dialogs.
#include <QAction>
#include <QCheckBox>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>

#include "app/qt/dialogs/convert_dialogs.h"
#include "app/qt/menus.h"
#include "engine/command_table.h"
#include "engine/undo.h"
#include "files/codepage.h"
#include "files/messages.h"
#include "platform/profile.h"
#include "qt_fixture.h"

namespace zol::qttest {
namespace {

class ConvertDialogTest : public DesktopTest {
protected:
    std::string tablesPath() const { return (home_ / kConvertTableFile).string(); }
    void tables(const std::string& text) {
        write(kConvertTableFile, text);  // the home is the test's folder
        flushProfileCache();
    }
    // Through the menu, as the user would.
    void menu(Cmd c) {
        for (QAction* m : frame_->menuBar()->actions())
            if (QAction* a = itemIn(m->menu(), idOf(c))) return a->trigger();
        ADD_FAILURE() << "no menu item for command " << idOf(c);
    }
    static QAction* itemIn(QMenu* menu, uint16_t id) {
        if (!menu) return nullptr;
        for (QAction* a : menu->actions()) {
            if (menuCommand(a) == id) return a;
            if (QAction* inner = itemIn(a->menu(), id)) return inner;
        }
        return nullptr;
    }
};

// Picks kind (1..3) and scope in "Convert Text", then, for kind 1, table in "Convert Table".
void answer(int kind, bool selectedOnly, const QString& table = {}) {
    whenModal<TConvertTextDlg>([=](TConvertTextDlg* d) {
        child<QRadioButton>(d, QStringLiteral("kind%1").arg(kind).toLatin1())->setChecked(true);
        child<QCheckBox>(d, "selectedOnly")->setChecked(selectedOnly);
        if (!table.isEmpty()) {
            whenModal<TConvertTableDlg>([table](TConvertTableDlg* t) {
                QListWidget* list = child<QListWidget>(t, "tables");
                list->setCurrentItem(list->findItems(table, Qt::MatchExactly).value(0));
                pressOk(t);
            });
        }
        pressOk(d);
    });
}

TEST_F(ConvertDialogTest, SelectionThroughAUserTableUndoesInOneStepAndTheChoiceIsKept) {
    tables("[Other]\n97=65\n[Swap]\n97=98\n98=97\n");
    open("a.txt", "abba\nabba\n");
    QTest::keyClick(view(), Qt::Key_Right);
    QTest::keyClick(view(), Qt::Key_Down, Qt::ShiftModifier);
    answer(1, true, "Swap");
    menu(Cmd::ConvertText);
    EXPECT_EQ(line(0), "aaab");
    EXPECT_EQ(line(1), "bbba");
    EXPECT_STREQ(undoLabel(doc().undo), "&Undo Convert Text");
    menu(Cmd::Undo);
    EXPECT_EQ(line(1), "abba");

    whenModal<TConvertTextDlg>([](TConvertTextDlg* d) {
        EXPECT_TRUE(child<QRadioButton>(d, "kind1")->isChecked());
        EXPECT_TRUE(child<QCheckBox>(d, "selectedOnly")->isChecked());
        child<QCheckBox>(d, "selectedOnly")->setChecked(false);
        whenModal<TConvertTableDlg>([](TConvertTableDlg* t) {
            EXPECT_EQ(child<QListWidget>(t, "tables")->currentItem()->text(), "Swap");
            pressOk(t);
        });
        pressOk(d);
    });
    menu(Cmd::ConvertText);
    EXPECT_EQ(line(1), "baab");
    EXPECT_TRUE(boxTexts_.empty());
}

TEST_F(ConvertDialogTest, MissingTablesAreNamedAndEditTablesOpensTheFile) {
    open("a.txt", "\x82t\n");
    std::filesystem::remove(tablesPath());
    flushProfileCache();
    answer(1, false);
    menu(Cmd::ConvertText);
    EXPECT_EQ(boxTexts_, std::vector<std::string>{filemsg::withFileName(filemsg::kCannotOpenTables, tablesPath())});
    EXPECT_EQ(line(0), "\x82t");

    answer(2, false);
    menu(Cmd::ConvertText);
    EXPECT_EQ(line(0), "\xE9t");

    tables("[Swap]\n97=98\n");
    whenModal<TConvertTextDlg>([](TConvertTextDlg* d) {
        child<QRadioButton>(d, "kind1")->setChecked(true);
        whenModal<TConvertTableDlg>([](TConvertTableDlg* t) { child<QPushButton>(t, "editTables")->click(); });
        pressOk(d);
    });
    menu(Cmd::ConvertText);
    QApplication::processEvents();
    EXPECT_EQ(std::filesystem::path(doc().fileName), std::filesystem::path(tablesPath()));
    EXPECT_EQ(line(0), "[Swap]");
    EXPECT_EQ(app_->documents.size(), 2u);
}

}  // namespace
}  // namespace zol::qttest
