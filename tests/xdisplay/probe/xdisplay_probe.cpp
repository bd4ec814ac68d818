// Reads the screen of the X display in $DISPLAY for the real-display test: within the
// rectangle X Y W H, the longest run of white pixels along its middle row and down its
// middle column. An editor's empty text area is white; a document that fills the tab
// area makes both runs nearly as long as the window.
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <cstdio>
#include <cstdlib>

namespace {

int longestRun(const QImage& img, bool alongRow) {
    const int length = alongRow ? img.width() : img.height();
    int best = 0, run = 0;
    for (int i = 0; i < length; ++i) {
        const QRgb p = alongRow ? img.pixel(i, img.height() / 2) : img.pixel(img.width() / 2, i);
        run = (p & 0xFFFFFF) == 0xFFFFFF ? run + 1 : 0;
        best = std::max(best, run);
    }
    return best;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 5) {
        std::fprintf(stderr, "usage: xdisplay_probe X Y W H\n");
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "xcb");
    QGuiApplication app(argc, argv);
    const int x = std::atoi(argv[1]), y = std::atoi(argv[2]), w = std::atoi(argv[3]), h = std::atoi(argv[4]);
    const QImage shot = QGuiApplication::primaryScreen()->grabWindow(0, x, y, w, h).toImage();
    if (shot.isNull()) return 1;
    std::printf("%d %d\n", longestRun(shot, true), longestRun(shot, false));
    return 0;
}
