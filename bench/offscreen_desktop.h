// The desktop editor on Qt's offscreen platform, for the whole-process benchmarks: a
// main frame over HOME with its settings applied, at a fixed size so that runs compare,
// shut down when it goes out of scope.
#pragma once
#include <QApplication>
#include <QByteArray>

#include "app/application.h"
#include "app/qt/main_frame.h"
#include "app/qt/qt_shell.h"

class OffscreenDesktop {
public:
    OffscreenDesktop(int& argc, char** argv, const char* home)
        : offscreen_(qputenv("QT_QPA_PLATFORM", QByteArrayLiteral("offscreen"))), qapp_(argc, argv), frame_(app_) {
        zol::setShell(&frame_.qtShell());
        zol::startUp(app_, zol::StartupOptions{home, {}, {}});
        frame_.applySettings();
        frame_.resize(1000, 720);
    }
    ~OffscreenDesktop() {
        zol::shutDown(app_);
        zol::setShell(nullptr);
    }
    OffscreenDesktop(const OffscreenDesktop&) = delete;
    OffscreenDesktop& operator=(const OffscreenDesktop&) = delete;

    QApplication& qapp() { return qapp_; }
    zol::Application& app() { return app_; }
    zol::TMainFrame& frame() { return frame_; }

private:
    bool offscreen_;  // set before the QApplication, which reads it
    QApplication qapp_;
    zol::Application app_;
    zol::TMainFrame frame_;
};
