// The view keeps the cursor on screen whether lines are wrapped or scrolled, and the
// frame takes files dropped on it.
#include <QMimeData>
#include <QScrollBar>
#include <QUrl>
#include <QWheelEvent>

#include "qt_fixture.h"

namespace zol::qttest {
namespace {

using ViewTest = DesktopTest;

std::string numberedLines(int count, int width) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        std::string line = "l" + std::to_string(i);
        while (static_cast<int>(line.size()) < width) line += line.size() % 6 == 5 ? ' ' : 'w';
        text += line + "\n";
    }
    return text;
}

bool onScreen(TVekWinEditor* v) {
    const QRect caret = v->caretRect();
    return !caret.isEmpty() && v->viewport()->rect().contains(caret.topLeft());
}

TEST_F(ViewTest, WrappedLinesKeepTheCursorOnScreen) {
    open("wrap.txt", numberedLines(60, 300));
    doc().wordWrap = true;
    view()->resize(420, 300);
    view()->redraw();
    EXPECT_EQ(view()->horizontalScrollBar()->maximum(), 0);
    QTest::keyClick(view(), Qt::Key_End);
    EXPECT_EQ(doc().cursor.line, 0);
    ASSERT_TRUE(onScreen(view()));
    // The end of a 300-column line lies several rows down in a narrow window.
    EXPECT_GT(view()->caretRect().top(), 2 * view()->lineHeight());
    EXPECT_LT(view()->caretRect().right(), view()->viewport()->width());

    QTest::keyClick(view(), Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(doc().cursor.line, lastLine(doc()));
    EXPECT_TRUE(onScreen(view()));
    EXPECT_GT(view()->firstVisibleLine(), 50);
    QTest::keyClick(view(), Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(view()->firstVisibleLine(), 0);
    EXPECT_TRUE(onScreen(view()));
}

TEST_F(ViewTest, ScrollingFollowsKeysAndTheWheel) {
    open("long.txt", numberedLines(1000, 20));
    view()->resize(500, 300);
    const int page = view()->pageLines();
    ASSERT_GT(page, 3);
    QTest::keyClick(view(), Qt::Key_PageDown);
    EXPECT_TRUE(onScreen(view()));
    EXPECT_GE(view()->firstVisibleLine(), page - 1);

    QTest::keyClick(view(), Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(view()->firstVisibleLine(), lastLine(doc()) - page + 1);
    EXPECT_TRUE(onScreen(view()));

    // The wheel scrolls the text without moving the cursor.
    const int before = view()->firstVisibleLine();
    QWheelEvent wheel(QPointF(50, 50), view()->viewport()->mapToGlobal(QPointF(50, 50)), QPoint(), QPoint(0, 120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view()->viewport(), &wheel);
    EXPECT_LT(view()->firstVisibleLine(), before);
    EXPECT_EQ(doc().cursor.line, lastLine(doc()));

    // A long line scrolls sideways to keep the cursor in view, and back.
    QTest::keyClick(view(), Qt::Key_Home, Qt::ControlModifier);
    for (int i = 0; i < 120; ++i) QTest::keyClicks(view(), "x");
    EXPECT_GT(view()->horizontalScrollBar()->value(), 0);
    EXPECT_TRUE(onScreen(view()));
    QTest::keyClick(view(), Qt::Key_Home);
    EXPECT_EQ(view()->horizontalScrollBar()->value(), 0);
}

TEST_F(ViewTest, DroppedFilesOpen) {
    const std::filesystem::path file = write("dropped.txt", "dropped");
    frame_->newFile();
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(QString::fromStdString(file.string())),
                  QUrl::fromLocalFile(QString::fromStdString((home_ / "missing.txt").string()))});
    QDragEnterEvent enter(QPoint(100, 100), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(frame_.get(), &enter);
    ASSERT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(100, 100), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(frame_.get(), &drop);
    // The missing file is reported and leaves the documents as they were.
    ASSERT_EQ(app_->documents.size(), 2u);
    EXPECT_EQ(line(0), "dropped");
    EXPECT_EQ(boxTexts_.size(), 1u);
}

}  // namespace
}  // namespace zol::qttest
