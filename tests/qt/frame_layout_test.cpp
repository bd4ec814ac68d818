// The main window as a user first meets it: where it opens, each document filling the
// area below its tab with the keyboard in it, the title, a file named on the command
// line that does not exist yet, and what a save does to undo.
#include <QGuiApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>

#include "config/settings.h"
#include "platform/profile.h"
#include "qt_fixture.h"
#include "tests/support/files.h"

namespace zol::qttest {
namespace {

using FrameLayoutTest = DesktopTest;

QRect available() { return QGuiApplication::primaryScreen()->availableGeometry(); }

TEST_F(FrameLayoutTest, FirstStartTakesTwoThirdsThenTheSavedPlaceComesBackOnScreen) {
    ASSERT_TRUE(getProfileString("Settings", "Window", "", kSettingsFile).empty());
    frame_->placeWindow();
    const QRect screen = available();
    EXPECT_EQ(frame_->geometry().size(), QSize(screen.width() * 2 / 3, screen.height() * 2 / 3));
    EXPECT_LE(std::abs(frame_->geometry().center().x() - screen.center().x()), 1);
    EXPECT_LE(std::abs(frame_->geometry().center().y() - screen.center().y()), 1);

    writeProfileString("Settings", "Window", "60 70 400 300 0", kSettingsFile);
    frame_->placeWindow();
    EXPECT_EQ(frame_->geometry(), QRect(60, 70, 400, 300));

    // Left of and above every screen, and larger than any: pulled back whole.
    writeProfileString("Settings", "Window", "-3000 -2000 5000 4000 0", kSettingsFile);
    frame_->placeWindow();
    EXPECT_TRUE(screen.contains(frame_->geometry())) << frame_->geometry().x() << "," << frame_->geometry().y();
    EXPECT_GT(frame_->width(), screen.width() / 2);
}

TEST_F(FrameLayoutTest, EachDocumentFillsTheTabAreaWithTheKeyboardInIt) {
    QApplication::setActiveWindow(frame_.get());
    Document* a = open("a.txt", "alpha");
    open("b.txt", "beta");
    QApplication::processEvents();
    QMdiArea* area = frame_->mdiArea();
    // No frame of its own: a title strip would take the top of the area.
    auto fills = [area](TVekWinEditor* v) {
        return QRect(v->mapTo(area->viewport(), QPoint(0, 0)), v->size()) == area->viewport()->rect() &&
               v->parentWidget()->windowFlags().testFlag(Qt::FramelessWindowHint);
    };
    EXPECT_TRUE(fills(view()));
    EXPECT_EQ(QApplication::focusWidget(), view());
    EXPECT_EQ(line(0), "beta");

    area->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(frame_->viewOf(a)->parentWidget()));
    QApplication::processEvents();
    EXPECT_EQ(QApplication::focusWidget(), frame_->viewOf(a));
    EXPECT_TRUE(fills(frame_->viewOf(a)));

    // Tiled, the documents are windows of their own; back in tabs, they fill again.
    frame_->runOnActive(idOf(Cmd::WindowTileVert));
    QApplication::processEvents();
    EXPECT_FALSE(frame_->tabbed());
    EXPECT_FALSE(fills(view()));
    frame_->setTabbed(true);
    QApplication::processEvents();
    EXPECT_TRUE(fills(view()));
    EXPECT_EQ(QApplication::focusWidget(), view());
}

TEST_F(FrameLayoutTest, AFileThatDoesNotExistYetIsCreatedByTheFirstSaveAndTheTitleFollows) {
    const std::string path = (home_ / "fresh.c").string();
    Document* d = frame_->openCommandLineFile(path);
    ASSERT_NE(d, nullptr);
    EXPECT_TRUE(boxTexts_.empty());
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(frame_->windowTitle(), "fresh.c - Zolder");
    EXPECT_NE(d->syntaxSlot, 0);  // coloured as its name says
    QTest::keyClicks(view(), "int x;");
    EXPECT_EQ(frame_->windowTitle(), "fresh.c* - Zolder");
    QTest::keyClick(view(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(test::readBytes(path), "int x;");
    EXPECT_EQ(frame_->windowTitle(), "fresh.c - Zolder");

    // A folder that is not there: told so, and nothing opens.
    EXPECT_EQ(frame_->openCommandLineFile((home_ / "no-such-dir" / "x.c").string()), nullptr);
    ASSERT_EQ(boxTexts_.size(), 1u);
    EXPECT_NE(boxTexts_[0].find("Cannot open"), std::string::npos);
    EXPECT_EQ(app_->documents.size(), 1u);
}

TEST_F(FrameLayoutTest, SavingClearsUndoUnlessUndoAfterSaveKeepsIt) {
    open("u.txt", "");
    QTest::keyClicks(view(), "ab");
    QTest::keyClick(view(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(doc().undo.undo.empty());
    QTest::keyClick(view(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(line(0), "ab");

    options().undoAfterSave = true;
    QTest::keyClicks(view(), "c");
    QTest::keyClick(view(), Qt::Key_S, Qt::ControlModifier);
    QTest::keyClick(view(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(line(0), "ab");
    QTest::keyClick(view(), Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(line(0), "abc");
}

}  // namespace
}  // namespace zol::qttest
