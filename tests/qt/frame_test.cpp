// The frame around the views: files on disk, the session, a second instance, and the
// conversions between the desktop and the editor's bytes.
#include <QMimeData>
#include <QDir>
#include <atomic>
#include <chrono>
#include <thread>

#include "app/qt/key_words.h"
#include "app/qt/single_instance.h"
#include "config/keymap.h"
#include "config/recent_views.h"
#include "engine/command_table.h"
#include "qt_fixture.h"
#include "tests/support/files.h"

namespace zol::qttest {
namespace {

using FrameTest = DesktopTest;

TEST_F(FrameTest, SaveKeepsFormatAndReloadAsksOnOutsideChange) {
    Document* d = open("unix.txt", "one\ntwo\n");
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(d->textFormat, TextFormat::Unix);
    QTest::keyClick(view(), Qt::Key_End);
    QTest::keyClicks(view(), "!");
    QTest::keyClick(view(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(d->modified);
    EXPECT_EQ(test::readBytes(home_ / "unix.txt"), "one!\ntwo\n");

    // Another program rewrites the file; the next activation offers a reload.
    std::filesystem::last_write_time(home_ / "unix.txt",
                                     std::filesystem::last_write_time(home_ / "unix.txt") + std::chrono::seconds(5));
    write("unix.txt", "changed\n");
    std::filesystem::last_write_time(home_ / "unix.txt",
                                     std::filesystem::file_time_type::clock::now() + std::chrono::seconds(10));
    answer_ = QMessageBox::Yes;
    frame_->checkExternalChanges();
    ASSERT_EQ(boxTexts_.size(), 1u);
    EXPECT_NE(boxTexts_[0].find("Another application has updated file"), std::string::npos);
    EXPECT_EQ(line(0), "changed");
    // Asked once per change.
    frame_->checkExternalChanges();
    EXPECT_EQ(boxTexts_.size(), 1u);
}

TEST_F(FrameTest, ClosingAModifiedDocumentAsksAndCancelKeepsIt) {
    open("keep.txt", "text");
    QTest::keyClicks(view(), "x");
    answer_ = QMessageBox::Cancel;
    EXPECT_FALSE(frame_->closeDocumentWindow(&doc()));
    ASSERT_EQ(app_->documents.size(), 1u);
    EXPECT_EQ(line(0), "xtext");
    ASSERT_EQ(boxTexts_.size(), 1u);
    EXPECT_NE(boxTexts_[0].find("has changed. Do you want to save changes?"), std::string::npos);
    answer_ = QMessageBox::No;
    EXPECT_TRUE(frame_->closeDocumentWindow(app_->documents.front().get()));
    EXPECT_TRUE(app_->documents.empty());
    QApplication::processEvents();
    EXPECT_EQ(frame_->activeView(), nullptr);
    EXPECT_EQ(test::readBytes(home_ / "keep.txt"), "text");
}

TEST_F(FrameTest, ReopenedFileComesBackWhereItsCursorWas) {
    std::string text;
    for (int i = 0; i < 200; ++i) text += "line " + std::to_string(i) + "\n";
    Document* d = open("long.txt", text);
    for (int i = 0; i < 120; ++i) QTest::keyClick(view(), Qt::Key_Down);
    QTest::keyClick(view(), Qt::Key_End);
    EXPECT_EQ(d->cursor, makePos(8, 120));
    EXPECT_GT(view()->firstVisibleLine(), 0);
    ASSERT_TRUE(frame_->closeDocumentWindow(d));
    d = frame_->openFile((home_ / "long.txt").string());
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(d->cursor, makePos(8, 120));
    EXPECT_LE(view()->firstVisibleLine(), 120);
    EXPECT_GT(view()->firstVisibleLine() + view()->pageLines(), 120);
}

TEST_F(FrameTest, SessionDocumentsComeBackNextTime) {
    open("a.txt", "a");
    open("b.txt", "b");
    frame_->newFile();  // without a file: nothing to reopen
    frame_->saveDesktop();
    while (!app_->documents.empty()) ASSERT_TRUE(frame_->closeDocumentWindow(app_->documents.back().get()));
    std::filesystem::remove(home_ / "b.txt");  // gone meanwhile: skipped without a word
    frame_->restoreDesktop();
    ASSERT_EQ(app_->documents.size(), 1u);
    EXPECT_EQ(line(0), "a");
    EXPECT_TRUE(boxTexts_.empty());
}

TEST_F(FrameTest, SecondInstanceHandsItsFilesOver) {
    TInstanceServer server;
    ASSERT_TRUE(server.listen(home_.string()));
    QStringList received;
    QObject::connect(&server, &TInstanceServer::filesReceived, [&](const QStringList& f) { received = f; });
    std::atomic<int> result{-1};
    std::thread second([&] { result = handOverFiles(home_.string(), {"/tmp/x.c", "rel.txt"}) ? 1 : 0; });
    for (int i = 0; i < 500 && result < 0; ++i) {
        QApplication::processEvents();
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    second.join();
    EXPECT_EQ(result, 1);
    ASSERT_EQ(received.size(), 2);
    EXPECT_EQ(received[0], QStringLiteral("/tmp/x.c"));
    EXPECT_EQ(received[1], QDir::current().absoluteFilePath(QStringLiteral("rel.txt")));
    // No instance of another home answers.
    EXPECT_FALSE(handOverFiles((home_ / "other").string(), {"/tmp/x.c"}));
}

TEST(DesktopText, ClipboardLineEndsAndBytes) {
    dlgtest::ensureApp();
    // Column blocks go through the desktop clipboard in the editing tests.
    ClipboardData out;
    out.text = "a\x80\r\nb";
    std::unique_ptr<QMimeData> mime(toMimeData(out));
    EXPECT_EQ(mime->text(), QString::fromUtf8("a\xE2\x82\xAC\nb"));
    EXPECT_EQ(fromMimeData(mime.get()).text, out.text);

    // Text from other programs: any line end becomes CR LF, foreign characters "?".
    QMimeData plain;
    plain.setText(QString::fromUtf8("x\ry\r\nz\n\xCE\xA9"));
    const ClipboardData in = fromMimeData(&plain);
    EXPECT_EQ(in.text, "x\r\ny\r\nz\r\n?");
    EXPECT_FALSE(in.hasColumnBlock);
    EXPECT_TRUE(fromMimeData(nullptr).text.empty());
}

TEST(DesktopText, KeyWordsCarryVirtualKeysAndModifiers) {
    EXPECT_EQ(keyName(keyWordOf(Qt::Key_F5, Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier)),
              "Alt+Ctrl+Shift+F5");
    EXPECT_EQ(keyName(keyWordOf(Qt::Key_Backtab, Qt::ShiftModifier)), "Shift+Tab");
    EXPECT_EQ(keyName(keyWordOf(Qt::Key_7, Qt::KeypadModifier)), "NumPad7");
    EXPECT_EQ(keyName(keyWordOf(Qt::Key_Slash, Qt::KeypadModifier)), "NumPadDiv");
    EXPECT_EQ(keyWordOf(Qt::Key_Shift, Qt::ShiftModifier), 0);
    EXPECT_EQ(ansiByteOf(U'\u00FF'), 0xFF);
    EXPECT_EQ(ansiByteOf(U'\u0081'), -1);  // an unused byte of the page is no character
    EXPECT_EQ(ansiByteOf(U'\n'), -1);
    EXPECT_EQ(ansiChar(0x9F), QChar(0x0178));
}

}  // namespace
}  // namespace zol::qttest
