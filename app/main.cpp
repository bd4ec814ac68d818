// zolder: the desktop editor, or with --headless the runner without windows.
#include <cstdio>

#include "app/application.h"
#include "app/cli.h"
#include "app/headless_shell.h"
#include "app/version.h"
#include "platform/dynlib.h"
#include "platform/paths.h"
#include "printing/pdf_writer.h"
#include "script/run_script.h"

namespace {

constexpr int kExitUsage = 2;
constexpr const char* kDesktopModule = "libzolderdesktop.so";
constexpr int kExitScriptError = 255;

// Without a window there is nothing to press Cancel on: interrupting the process stops
// the printing, and the output file is then as it was.
int printPdf(const zol::Application& app, const zol::CommandLine& cl) {
    if (app.failedOpens || !app.active || !app.active->hasFile) {
        std::fprintf(stderr, "zolder: cannot print '%s': there is no such file\n", cl.files.front().c_str());
        return 1;
    }
    std::string message;
    if (zol::printDocumentToPdf(*app.active, false, cl.printPdf, {}, message) == zol::PrintOutcome::Done) return 0;
    std::fprintf(stderr, "zolder: %s\n", message.c_str());
    return 1;
}

int runHeadless(const zol::CommandLine& cl) {
    zol::HeadlessShell shell;
    zol::setShell(&shell);
    zol::Application app;
    shell.attach(&app);
    zol::startUp(app, zol::StartupOptions{cl.home, cl.files, {}});
    int status = app.failedOpens ? 1 : 0;
    if (!cl.printPdf.empty()) {
        status = printPdf(app, cl);
    } else if (!cl.script.empty()) {
        const std::string title(zol::fileNamePart(cl.script));
        const zol::ScriptRunResult r = zol::runScript(cl.script, cl.scriptArgs, title, zol::ScriptStarter::User);
        status = r.error ? kExitScriptError : r.value & 0xff;
    } else {
        for (const auto& doc : app.documents) std::printf("%s\n", zol::documentSummary(*doc).c_str());
    }
    zol::shutDown(app);
    zol::setShell(nullptr);
    return status;
}

// The desktop front end lives in a module beside the program (build tree) or in the
// library folder (installed), so that the headless runner never loads Qt.
int runDesktop(int argc, char** argv, const zol::CommandLine& cl) {
    using Entry = int (*)(int, char**, const zol::CommandLine*);
    const std::string dir = zol::executablePath().substr(0, zol::executablePath().rfind('/') + 1);
    std::string why;
    for (const std::string& path : {dir + kDesktopModule, dir + "../lib/zolder/" + kDesktopModule}) {
        zol::LibraryHandle lib = zol::openLibrary(path, &why);
        if (!lib) continue;
        if (auto entry = reinterpret_cast<Entry>(zol::librarySymbol(lib, "zolder_run_desktop")))
            return entry(argc, argv, &cl);
        zol::closeLibrary(lib);
    }
    std::fprintf(stderr, "zolder: the desktop editor cannot start (%s); use --headless\n",
                 why.empty() ? kDesktopModule : why.c_str());
    return kExitUsage;
}

}  // namespace

int main(int argc, char** argv) {
    zol::CommandLine cl;
    std::string error;
    if (!zol::parseCommandLine(argc, argv, cl, error)) {
        std::fprintf(stderr, "zolder: %s\nTry 'zolder --help' for more information.\n", error.c_str());
        return kExitUsage;
    }
    if (cl.help) {
        std::fputs(zol::usageText(), stdout);
        return 0;
    }
    if (cl.version) {
        std::printf("zolder %s\n", zol::programVersion());
        return 0;
    }
    if (!cl.headless) return runDesktop(argc, argv, cl);
    return runHeadless(cl);
}
