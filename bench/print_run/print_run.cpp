// Print preview timing (offscreen): print_run preview HOME FILE prints the milliseconds
// from opening the preview of FILE to its first page painted, and the page count.
#include <QApplication>
#include <QImage>
#include <chrono>
#include <cstdio>
#include <cstring>

#include "app/application.h"
#include "bench/offscreen_desktop.h"
#include "app/qt/main_frame.h"
#include "app/qt/print_preview.h"
#include "app/qt/qt_shell.h"

int main(int argc, char** argv) {
    if (argc != 4 || std::strcmp(argv[1], "preview") != 0) {
        std::fprintf(stderr, "usage: print_run preview HOME FILE\n");
        return 2;
    }
    OffscreenDesktop desk(argc, argv, argv[2]);
    zol::Document* doc = desk.frame().openFile(argv[3]);
    if (!doc) return 1;
    const auto start = std::chrono::steady_clock::now();
    zol::TPrintPreviewDlg dlg(&desk.frame(), *doc);
    dlg.show();
    QImage shot(dlg.size(), QImage::Format_RGB32);
    dlg.render(&shot);
    const double ms = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    std::printf("print preview of %s: first page shown in %.1f ms (%zu pages; asked: at most 300 ms)\n",
                argv[3], ms, dlg.pageCount());
    return 0;
}
