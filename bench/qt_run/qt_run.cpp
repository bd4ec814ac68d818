// Whole-process timings of the desktop editor (offscreen platform):
//   qt_run firstpaint HOME FILE   milliseconds from main() to the first painted view
//   qt_run repaint HOME FILE      a key press at the end of FILE and page scrolls,
//                                 each with its repaint: median and worst milliseconds
//   qt_run palette HOME -         the command palette narrowing its list as words are
//                                 typed into it, one key at a time
//   qt_run scriptkey HOME FILE    a key press at the end of FILE until its repaint, while
//                                 a script loops without end and with no script
//   qt_run script HOME SCRIPT [FILE]  SCRIPT (with FILE open) run as the desktop runs it,
//                                 on its thread with its console, and beside that run on
//                                 the window thread with its output to /dev/null
#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <vector>

#include "app/application.h"
#include "bench/offscreen_desktop.h"
#include "app/qt/command_palette.h"
#include "app/qt/editor_view.h"
#include "app/qt/main_frame.h"
#include "app/qt/messages.h"
#include "app/qt/qt_shell.h"
#include "app/qt/script_host.h"
#include "engine/command_table.h"
#include "platform/paths.h"
#include "script/run_script.h"

namespace {

using Clock = std::chrono::steady_clock;

double msSince(Clock::time_point t) {
    return std::chrono::duration<double, std::milli>(Clock::now() - t).count();
}

// Quits the event loop at the first paint of a document view.
class FirstPaint : public QObject {
public:
    Clock::time_point start;
    double ms = -1;
    bool eventFilter(QObject* o, QEvent* e) override {
        if (ms < 0 && e->type() == QEvent::Paint && o->parent() && qobject_cast<zol::TVekWinEditor*>(o->parent())) {
            ms = msSince(start);
            QMetaObject::invokeMethod(qApp, &QApplication::quit, Qt::QueuedConnection);
        }
        return false;
    }
};

void report(const char* what, std::vector<double> v) {
    std::sort(v.begin(), v.end());
    std::printf("%s: median %.2f ms, 99th percentile %.2f ms, worst %.2f ms over %zu\n", what, v[v.size() / 2],
                v[v.size() * 99 / 100], v.back(), v.size());
}

// A key press posted to the view, until the view has painted it.
class PaintWait : public QObject {
public:
    bool painted = false;
    bool eventFilter(QObject*, QEvent* e) override {
        if (e->type() == QEvent::Paint) painted = true;
        return false;
    }
};

std::vector<double> postedKeys(zol::TVekWinEditor* view, int count) {
    PaintWait wait;
    view->viewport()->installEventFilter(&wait);
    std::vector<double> ms;
    for (int i = 0; i < count; ++i) {
        QApplication::processEvents();
        wait.painted = false;
        const Clock::time_point t = Clock::now();
        QApplication::postEvent(view, new QKeyEvent(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x")));
        while (!wait.painted) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        ms.push_back(msSince(t));
    }
    view->viewport()->removeEventFilter(&wait);
    return ms;
}

void waitForRunEnd(zol::TScriptHost& host) {
    QEventLoop loop;
    QObject::connect(&host, &zol::TScriptHost::runEnded, &loop, &QEventLoop::quit);
    if (host.running()) loop.exec();
}

int scriptKeys(zol::TMainFrame& frame, const char* file) {
    if (!frame.openFile(file)) return 1;
    frame.show();
    QApplication::processEvents();
    zol::TVekWinEditor* view = frame.activeView();
    view->runCommand(zol::findCommand(std::string_view("TextEnd"))->id);
    const std::string loop = zol::homeDir() + "bench_loop.c";
    if (FILE* f = std::fopen(loop.c_str(), "w")) {
        std::fputs("int main(void) { long n = 0; for (;;) n++; }\n", f);
        std::fclose(f);
    }
    zol::runScript(loop, {}, "bench_loop.c", zol::ScriptStarter::User);
    while (!frame.scriptHost().running()) QApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    report("key press while a script loops, posted until painted", postedKeys(view, 100));
    frame.scriptHost().stop();
    waitForRunEnd(frame.scriptHost());
    std::printf("the loop ended: %s\n", frame.scriptHost().lastResult().message.c_str());
    report("key press with no script, posted until painted", postedKeys(view, 100));
    return 0;
}

// Best of five runs each way, taken in turn.
int scriptRuns(zol::TMainFrame& frame, const char* script, const char* file) {
    if (file && !frame.openFile(file)) return 1;
    frame.show();
    QApplication::processEvents();
    zol::TScriptHost& host = frame.scriptHost();
    double directMs = 1e9, desktopMs = 1e9;
    for (int round = 0; round < 5; ++round) {
        zol::ScriptRunOptions direct;
        direct.includeDir = zol::homeDir() + "script/include";
        direct.out = std::fopen("/dev/null", "w");
        Clock::time_point t = Clock::now();
        const zol::ScriptRunResult d = zol::runScriptFile(script, {script}, direct);
        directMs = std::min(directMs, msSince(t));
        std::fclose(direct.out);
        t = Clock::now();
        zol::runScript(script, {}, "bench", zol::ScriptStarter::PlugIn);
        waitForRunEnd(host);
        desktopMs = std::min(desktopMs, msSince(t));
        if (d.error || host.lastResult().error)
            std::printf("errors: %s / %s\n", d.message.c_str(), host.lastResult().message.c_str());
    }
    std::printf("%s, best of five:\n", script);
    std::printf("  on the window thread, output to /dev/null: %.1f ms\n", directMs);
    std::printf("  desktop run, own thread and console:       %.1f ms (ratio %.2f)\n", desktopMs, desktopMs / directMs);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const Clock::time_point start = Clock::now();
    if (argc != 4 && argc != 5) {
        std::fprintf(stderr, "usage: qt_run firstpaint|repaint HOME FILE\n");
        return 2;
    }
    OffscreenDesktop desk(argc, argv, argv[2]);
    zol::Application& app = desk.app();
    zol::TMainFrame& frame = desk.frame();

    if (std::strcmp(argv[1], "scriptkey") == 0 || std::strcmp(argv[1], "script") == 0) {
        // The stopped script's error report must not wait for someone to close its box.
        zol::setShell(nullptr);
        const int status = argv[1][6] == 'k' ? scriptKeys(frame, argv[3]) : scriptRuns(frame, argv[3], argc == 5 ? argv[4] : nullptr);
        for (const auto& d : app.documents) d->modified = false;
        return status;
    }
    if (std::strcmp(argv[1], "palette") == 0) {
        zol::TCommandPalette palette(&frame, zol::paletteEntries(zol::qtmsg::kMenuBar));
        palette.show();
        QApplication::processEvents();
        std::vector<double> keys;
        for (int round = 0; round < 20; ++round) {
            for (const char* words : {"select all", "go to line", "bookmark next", "upper case", "zzz"}) {
                QString typed;
                for (const char* c = words; *c; ++c) {
                    typed += QLatin1Char(*c);
                    const Clock::time_point t = Clock::now();
                    palette.setFilter(typed);
                    palette.repaint();
                    keys.push_back(msSince(t));
                }
                palette.setFilter(QString());
            }
        }
        std::printf("palette: %d entries\n", palette.shownCount());
        report("palette, one key typed, list narrowed and painted", keys);
    } else if (std::strcmp(argv[1], "firstpaint") == 0) {
        FirstPaint probe;
        probe.start = start;
        desk.qapp().installEventFilter(&probe);
        if (!frame.openFile(argv[3])) return 1;
        frame.show();
        QApplication::exec();
        std::printf("launch to first paint: %.1f ms\n", probe.ms);
    } else {
        if (!frame.openFile(argv[3])) return 1;
        frame.show();
        QApplication::processEvents();
        zol::TVekWinEditor* view = frame.activeView();
        std::printf("document: %d lines\n", static_cast<int>(view->document()->lines.count()));
        view->runCommand(zol::findCommand(std::string_view("TextEnd"))->id);
        view->viewport()->repaint();
        auto timed = [&](int key, const QString& text) {
            const Clock::time_point t = Clock::now();
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
            QApplication::sendEvent(view, &press);
            view->viewport()->repaint();
            return msSince(t);
        };
        std::vector<double> keys, pages;
        for (int i = 0; i < 50; ++i) keys.push_back(timed(Qt::Key_X, QStringLiteral("x")));
        for (int i = 0; i < 50; ++i) pages.push_back(timed(Qt::Key_PageUp, QString()));
        report("key press at the end, painted", keys);
        report("page scroll, painted", pages);
        for (const auto& d : app.documents) d->modified = false;
    }
    return 0;
}
