// The main window with a C file open (colours, a selection, line numbers, a bookmark
// and a numbered mark in the gutter) and the Find
// dialog look as they did when the reference pictures in tests/qt/reference/ were made.
// The new pictures go to BUILD/screenshots/; docs/desktop.md says how to refresh the
// references.
#include <QImage>
#include <filesystem>
#include <optional>

#include "app/qt/dialogs/find_dialog.h"
#include "engine/bookmarks.h"
#include "qt_fixture.h"
#include "search/history.h"

namespace zol::qttest {
namespace {

namespace fs = std::filesystem;

// Share of the pixels whose colour moved further than tolerance on some channel; a
// picture of another size differs everywhere.
double changedShare(const QImage& a, const QImage& b, int tolerance) {
    if (a.size() != b.size()) return 1.0;
    const QImage x = a.convertToFormat(QImage::Format_RGB32), y = b.convertToFormat(QImage::Format_RGB32);
    qint64 changed = 0;
    for (int row = 0; row < x.height(); ++row) {
        const auto* p = reinterpret_cast<const QRgb*>(x.constScanLine(row));
        const auto* q = reinterpret_cast<const QRgb*>(y.constScanLine(row));
        for (int col = 0; col < x.width(); ++col) {
            const int d = std::max({std::abs(qRed(p[col]) - qRed(q[col])), std::abs(qGreen(p[col]) - qGreen(q[col])),
                                    std::abs(qBlue(p[col]) - qBlue(q[col]))});
            if (d > tolerance) ++changed;
        }
    }
    return static_cast<double>(changed) / (static_cast<double>(x.width()) * x.height());
}

// Saves shot as BUILD/screenshots/NAME.png and compares it with the reference of that
// name; nothing when there is no reference.
std::optional<double> changedFromReference(const QImage& shot, const std::string& name, int tolerance) {
    const fs::path outDir = fs::path(ZOLDER_BUILD_DIR) / "screenshots";
    fs::create_directories(outDir);
    EXPECT_TRUE(shot.save(QString::fromStdString((outDir / (name + ".png")).string())));
    const fs::path reference = fs::path(ZOLDER_SOURCE_DIR) / "tests/qt/reference" / (name + ".png");
    if (!fs::exists(reference)) return std::nullopt;
    return changedShare(shot, QImage(QString::fromStdString(reference.string())), tolerance);
}

using ScreenshotTest = DesktopTest;

// Font hinting, anti-aliasing and the caret differ slightly between machines.
TEST_F(ScreenshotTest, MainWindowWithACFile) {
    fs::copy_file(fs::path(ZOLDER_SOURCE_DIR) / "data/samples/hello.c", home_ / "hello.c");
    options().lineNumbers = true;
    ASSERT_NE(frame_->openFile((home_ / "hello.c").string()), nullptr);
    frame_->resize(800, 560);
    for (int i = 0; i < 4; ++i) QTest::keyClick(view(), Qt::Key_Down);
    QTest::keyClick(view(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(view(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(view(), Qt::Key_End, Qt::ShiftModifier);
    setBookmark(doc(), 8, true);
    doc().marks.numbered[1] = NumberedMark{makePos(8, 12), true};
    view()->refreshMarks();
    QApplication::processEvents();
    const std::optional<double> changed = changedFromReference(frame_->grab().toImage(), "main_window", 64);
    if (!changed) GTEST_SKIP() << "no reference picture; see docs/desktop.md";
    EXPECT_LE(*changed, 0.02) << "compare with BUILD/screenshots/main_window.png";
}

TEST(DialogScreenshot, FindDialog) {
    dlgtest::ensureApp();
    std::vector<std::string> finds, replaces;
    setSearchHistoryLists(&finds, &replaces);
    FindDialogData data{"while", "", false, true, false, true};
    TFindDialog dlg(nullptr, data, false);
    dlg.adjustSize();
    dlg.show();
    QApplication::processEvents();
    const std::optional<double> changed = changedFromReference(dlg.grab().toImage(), "find_dialog", 32);
    setSearchHistoryLists(nullptr, nullptr);
    ASSERT_TRUE(changed) << "no reference; the new shot is BUILD/screenshots/find_dialog.png";
    EXPECT_LE(*changed, 0.01) << "compare with BUILD/screenshots/find_dialog.png";
}

}  // namespace
}  // namespace zol::qttest
