// The main window with a C file open (colours, a selection, line numbers) looks as
// it did when the reference pictures were made. The new pictures go to the build
// folder; docs/desktop.md says how to refresh the references.
#include <QImage>
#include <QTest>
#include <filesystem>

#include "qt_fixture.h"

namespace zol::qttest {
namespace {

// Pixels whose colour moved further than this on any channel count as changed.
constexpr int kChannelTolerance = 64;
// A picture passes when at most this share of its pixels changed (font hinting,
// anti-aliasing and the caret differ slightly between machines).
constexpr double kChangedShare = 0.02;

double changedShare(const QImage& a, const QImage& b) {
    if (a.size() != b.size()) return 1.0;
    const QImage x = a.convertToFormat(QImage::Format_RGB32), y = b.convertToFormat(QImage::Format_RGB32);
    qint64 changed = 0;
    for (int row = 0; row < x.height(); ++row) {
        const auto* p = reinterpret_cast<const QRgb*>(x.constScanLine(row));
        const auto* q = reinterpret_cast<const QRgb*>(y.constScanLine(row));
        for (int col = 0; col < x.width(); ++col) {
            const int d = std::max({std::abs(qRed(p[col]) - qRed(q[col])), std::abs(qGreen(p[col]) - qGreen(q[col])),
                                    std::abs(qBlue(p[col]) - qBlue(q[col]))});
            if (d > kChannelTolerance) ++changed;
        }
    }
    return static_cast<double>(changed) / (static_cast<double>(x.width()) * x.height());
}

using ScreenshotTest = DesktopTest;

TEST_F(ScreenshotTest, MainWindowWithACFile) {
    namespace fs = std::filesystem;
    fs::copy_file(fs::path(ZOLDER_SOURCE_DIR) / "data/samples/hello.c", home_ / "hello.c");
    options().lineNumbers = true;
    ASSERT_NE(frame_->openFile((home_ / "hello.c").string()), nullptr);
    frame_->resize(800, 560);
    for (int i = 0; i < 4; ++i) QTest::keyClick(view(), Qt::Key_Down);
    QTest::keyClick(view(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(view(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(view(), Qt::Key_End, Qt::ShiftModifier);
    QApplication::processEvents();
    const QImage shot = frame_->grab().toImage();

    const fs::path outDir = fs::path(ZOLDER_BUILD_DIR) / "screenshots";
    fs::create_directories(outDir);
    ASSERT_TRUE(shot.save(QString::fromStdString((outDir / "main_window.png").string())));
    const fs::path reference = fs::path(ZOLDER_SOURCE_DIR) / "tests/qt/reference/main_window.png";
    if (!fs::exists(reference)) GTEST_SKIP() << "no reference picture; see docs/desktop.md";
    const QImage expected(QString::fromStdString(reference.string()));
    EXPECT_LE(changedShare(shot, expected), kChangedShare)
        << "compare " << (outDir / "main_window.png") << " with " << reference;
}

}  // namespace
}  // namespace zol::qttest
