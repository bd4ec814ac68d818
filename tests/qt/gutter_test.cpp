// The gutter shows line bookmarks and numbered marks while a document has any, and a
// thin line marks the word-wrap column when rows break there.
#include <QImage>

#include "qt_fixture.h"

namespace zol::qttest {
namespace {

using GutterTest = DesktopTest;

// Pixels of r in the picture of the view's text area that differ from the background
// at the given point.
int inked(TVekWinEditor* v, const QRect& r, QPoint background) {
    const QImage shot = v->viewport()->grab().toImage();
    const QRgb paper = shot.pixel(background);
    int n = 0;
    for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x) n += shot.pixel(x, y) != paper;
    return n;
}

// The same, against the bottom of the area's first column, below the text.
int inked(TVekWinEditor* v, const QRect& r) {
    return inked(v, r, QPoint(r.left(), v->viewport()->height() - 2));
}

TEST_F(GutterTest, BookmarksAndMarksBringTheGutterAndTakeItAway) {
    open("g.txt", "first\nsecond\nthird\n");
    ASSERT_FALSE(options().lineNumbers);
    EXPECT_EQ(view()->gutterWidth(), 0);
    const int textLeft = view()->caretRect().left();

    QTest::keyClick(view(), Qt::Key_F2, Qt::ControlModifier);  // BookmarkToggle
    const int gutter = view()->gutterWidth();
    ASSERT_GT(gutter, 0);
    EXPECT_EQ(view()->caretRect().left(), textLeft + gutter);
    const QRect caret = view()->caretRect();
    const QRect firstRow(1, caret.top() + 2, gutter - 3, caret.height() - 4);
    const QRect secondRow = firstRow.translated(0, view()->lineHeight());
    EXPECT_GT(inked(view(), firstRow), firstRow.width() * firstRow.height() / 2);
    EXPECT_EQ(inked(view(), secondRow), 0);

    // Numbered mark 2 on the second line: its digit, and the gutter stays without the
    // bookmark.
    QTest::keyClick(view(), Qt::Key_Down);
    QTest::keyClick(view(), Qt::Key_K, Qt::ControlModifier);
    QTest::keyClick(view(), Qt::Key_2);
    QTest::keyClick(view(), Qt::Key_Up);
    QTest::keyClick(view(), Qt::Key_F2, Qt::ControlModifier);
    EXPECT_EQ(view()->gutterWidth(), gutter);
    EXPECT_EQ(inked(view(), firstRow), 0);
    const int digit = inked(view(), secondRow);
    EXPECT_GT(digit, 0);
    EXPECT_LT(digit, secondRow.width() * secondRow.height() / 2);

    // Marks set from outside the view (scripts, plug-ins) show once the frame redraws.
    doc().marks.numbered[2].set = false;
    view()->refreshMarks();
    EXPECT_EQ(view()->gutterWidth(), 0);

    // The last bookmark goes with its line.
    QTest::keyClick(view(), Qt::Key_F2, Qt::ControlModifier);
    EXPECT_EQ(view()->gutterWidth(), gutter);
    QTest::keyClick(view(), Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);  // DeleteLine
    EXPECT_EQ(line(0), "second");
    EXPECT_EQ(view()->gutterWidth(), 0);
}

TEST_F(GutterTest, WrapColumnShowsWhereRowsBreak) {
    open("w.txt", "short\n");
    options().wordWrapMethod = WrapMethod::ColumnWords;
    options().wordWrapColumn = 20;
    doc().wordWrap = true;
    view()->redraw();
    const int x = view()->caretRect().left() + 20 * view()->charWidth();
    const QRect column(x, view()->caretRect().bottom() + 1, 1, view()->viewport()->height() / 2);
    const QPoint paper(x - 3, column.top());
    EXPECT_EQ(inked(view(), column, paper), column.height());

    options().wordWrapVisible = false;
    view()->redraw();
    EXPECT_EQ(inked(view(), column, paper), 0);
    options().wordWrapVisible = true;
    options().wordWrapMethod = WrapMethod::WindowWords;  // rows break at the window's edge
    view()->redraw();
    EXPECT_EQ(inked(view(), column, paper), 0);
}

}  // namespace
}  // namespace zol::qttest
