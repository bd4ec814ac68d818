// Real key events through the view change the document as a user expects.
#include <QClipboard>
#include <QMimeData>

#include "app/qt/key_words.h"
#include "config/keymap.h"
#include "engine/command_table.h"
#include "engine/selection.h"
#include "qt_fixture.h"

namespace zol::qttest {
namespace {

using EditingTest = DesktopTest;

// What an input method or a dead key delivers: text without a key of its own.
void typeUnicode(QWidget* w, const QString& text) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, text);
    QApplication::sendEvent(w, &press);
}

TEST_F(EditingTest, TypingNewLineAndUndo) {
    frame_->newFile();
    QTest::keyClicks(view(), "int x;");
    EXPECT_EQ(line(0), "int x;");
    QTest::keyClick(view(), Qt::Key_Return);
    QTest::keyClicks(view(), "y");
    EXPECT_EQ(lastLine(doc()), 1);
    EXPECT_EQ(line(1), "y");
    EXPECT_TRUE(doc().modified);
    EXPECT_EQ(doc().cursor, makePos(1, 1));
    // Home and Backspace are commands from the key map, not characters.
    QTest::keyClick(view(), Qt::Key_Home);
    QTest::keyClick(view(), Qt::Key_Backspace);
    EXPECT_EQ(lastLine(doc()), 0);
    EXPECT_EQ(line(0), "int x;y");
    QTest::keyClick(view(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(lastLine(doc()), 1);
    EXPECT_EQ(line(1), "y");
    EXPECT_NE(frame_->statusText().indexOf("Ln 2, Col 1"), -1) << frame_->statusText().toStdString();
}

TEST_F(EditingTest, CharactersGoInAsWindows1252Bytes) {
    frame_->newFile();
    typeUnicode(view(), QString::fromUtf8("\xE2\x82\xAC\xC3\xA9"));  // euro sign, e acute
    EXPECT_EQ(line(0), "\x80\xE9");
    // A character outside the code page is refused and the text stays as it was.
    typeUnicode(view(), QString::fromUtf8("\xCE\xA9"));
    EXPECT_EQ(line(0), "\x80\xE9");
    EXPECT_NE(frame_->statusText().indexOf("U+03A9"), -1) << frame_->statusText().toStdString();
}

TEST_F(EditingTest, PrefixKeyWaitsForItsSecondKey) {
    frame_->newFile();
    QTest::keyClicks(view(), "abc def");
    QTest::keyClick(view(), Qt::Key_Home);
    QTest::keyClick(view(), Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(view()->pendingPrefixKey(), parseKeyName("Ctrl+K"));
    EXPECT_NE(frame_->statusText().indexOf("Ctrl+K ..."), -1) << frame_->statusText().toStdString();
    // Ctrl+K N upper-cases the word; a plain letter is the second key, not text.
    QTest::keyClicks(view(), "t");
    EXPECT_EQ(view()->pendingPrefixKey(), 0);
    EXPECT_EQ(line(0), "abc def");
    EXPECT_TRUE(hasSelection(doc()));
    QTest::keyClick(view(), Qt::Key_K, Qt::ControlModifier);
    QTest::keyClick(view(), Qt::Key_N, Qt::ShiftModifier);
    EXPECT_EQ(line(0), "ABC def");
    // A second key the prefix table lacks ends the sequence and types nothing.
    QTest::keyClick(view(), Qt::Key_K, Qt::ControlModifier);
    QTest::keyClick(view(), Qt::Key_F9);
    EXPECT_EQ(view()->pendingPrefixKey(), 0);
    QTest::keyClicks(view(), "q");
    EXPECT_EQ(frame_->statusText().indexOf("Ctrl+K ..."), -1);
}

TEST_F(EditingTest, KeypadKeysTypeUnlessBound) {
    frame_->newFile();
    ASSERT_TRUE(bindKey(keyMap(), 0, parseKeyName("NumPad5"), findCommand(std::string_view("DupLine"))->id));
    QTest::keyClicks(view(), "ab");
    QTest::keyClick(view(), Qt::Key_6, Qt::KeypadModifier);
    QTest::keyClick(view(), Qt::Key_5);
    EXPECT_EQ(line(0), "ab65");
    QTest::keyClick(view(), Qt::Key_5, Qt::KeypadModifier);
    EXPECT_EQ(lastLine(doc()), 1);
    EXPECT_EQ(line(1), "ab65");
}

TEST_F(EditingTest, ColumnBlockCopiedAndPastedAsABlock) {
    frame_->newFile();
    QTest::keyClicks(view(), "abcd");
    QTest::keyClick(view(), Qt::Key_Return);
    QTest::keyClicks(view(), "efgh");
    QTest::keyClick(view(), Qt::Key_Up);
    QTest::keyClick(view(), Qt::Key_Home);
    QTest::keyClick(view(), Qt::Key_Right);
    QTest::keyClick(view(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);  // column mode
    QTest::keyClick(view(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(view(), Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(view(), Qt::Key_Right, Qt::ShiftModifier);
    ASSERT_TRUE(isColumnSelection(doc()));
    QTest::keyClick(view(), Qt::Key_C, Qt::ControlModifier);
    const QMimeData* mime = QApplication::clipboard()->mimeData();
    ASSERT_NE(mime, nullptr);
    EXPECT_EQ(mime->text(), QStringLiteral("bc\nfg"));
    EXPECT_TRUE(mime->hasFormat(kColumnBlockMime));

    QTest::keyClick(view(), Qt::Key_End);
    QTest::keyClick(view(), Qt::Key_Up);
    QTest::keyClick(view(), Qt::Key_End);
    QTest::keyClick(view(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(line(0), "abcdbc");
    EXPECT_EQ(line(1), "efghfg");
    EXPECT_EQ(lastLine(doc()), 1);
}

TEST_F(EditingTest, AltDragSelectsAColumnAndDoubleClickAWord) {
    open("cols.txt", "alpha beta\ngamma delta\n");
    view()->resize(600, 400);
    const QRect first = view()->caretRect();
    const QPoint origin = first.topLeft() + QPoint(1, first.height() / 2);
    QWidget* vp = view()->viewport();
    const int charWidth = view()->charWidth();
    QTest::mousePress(vp, Qt::LeftButton, Qt::AltModifier, origin + QPoint(charWidth, 0));
    QMouseEvent move(QEvent::MouseMove, QPointF(origin + QPoint(3 * charWidth, first.height())),
                     vp->mapToGlobal(QPointF(origin + QPoint(3 * charWidth, first.height()))), Qt::NoButton,
                     Qt::LeftButton, Qt::AltModifier);
    QApplication::sendEvent(vp, &move);
    QTest::mouseRelease(vp, Qt::LeftButton, Qt::AltModifier, origin + QPoint(3 * charWidth, first.height()));
    ASSERT_TRUE(isColumnSelection(doc()));
    EXPECT_EQ(selectedText(doc()), "lp\r\nam");

    QTest::mouseClick(vp, Qt::LeftButton, Qt::NoModifier, origin + QPoint(7 * charWidth, 0));
    QTest::mouseDClick(vp, Qt::LeftButton, Qt::NoModifier, origin + QPoint(7 * charWidth, 0));
    EXPECT_EQ(selectedText(doc()), "beta");
}

}  // namespace
}  // namespace zol::qttest
