#include "app/qt/desktop.h"

#include <QApplication>
#include <QSocketNotifier>

#include "app/application.h"
#include "app/qt/main_frame.h"
#include "app/qt/qt_shell.h"
#include "app/qt/single_instance.h"
#include "config/settings.h"
#include "platform/paths.h"
#include "platform/profile.h"
#include "platform/termination.h"

namespace zol {

namespace {

// Ended from outside (the terminal closed, the session logs out, a kill): there is no
// one left to answer questions, so the modified documents go to their side files and
// the program ends at once, to be offered them back at the next start.
void watchTermination(Application& app) {
    const int fd = terminationSignalPipe();
    if (fd < 0) return;
    auto* notifier = new QSocketNotifier(fd, QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, [&app] {
        const int sig = takeTerminationSignal();
        autoSaveNow(app);
        exitAtOnce(kSignalExitBase + sig);
    });
}

}  // namespace

int runDesktop(int argc, char** argv, const CommandLine& cl) {
    QApplication qapp(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Zolder"));

    // A second instance only passes its files on; it must not touch the home first.
    initHomeDir(cl.home);
    const bool multi = getProfileInt("Settings", "AllowMultiInst", 0, kSettingsFile) & 1;
    if (!multi && !cl.files.empty() && handOverFiles(homeDir(), cl.files)) return 0;

    Application app;
    TMainFrame frame(app);
    setShell(&frame.qtShell());
    startUp(app, StartupOptions{cl.home, cl.files, {}, true});
    guardAgainstAbruptEnd(app);
    watchTermination(app);
    frame.applySettings();
    TInstanceServer server;
    if (!settings().allowMultiInst && server.listen(homeDir())) {
        QObject::connect(&server, &TInstanceServer::filesReceived, &frame, [&frame](const QStringList& files) {
            for (const QString& f : files) frame.openCommandLineFile(f.toLocal8Bit().toStdString());
            frame.raise();
            frame.activateWindow();
        });
    }
    // Start-up opened the command line's files (its scripts may work on them); here they
    // get their windows, their remembered cursor and their place in the recent-files
    // menu, and the last one comes back to the front after the last session's files.
    Document* front = nullptr;
    for (const std::string& f : cl.files)
        if (findDocument(app, f)) front = frame.openCommandLineFile(f);
    frame.syncViews();  // documents of start-up scripts and those recovered from side files
    frame.restoreDesktop();
    if (isDocument(app, front)) {
        setActiveDocument(app, front);
        frame.syncViews();
    }
    if (app.documents.empty()) frame.newFile();
    frame.show();
    const int status = QApplication::exec();
    shutDown(app);
    setShell(nullptr);
    return status;
}

}  // namespace zol
