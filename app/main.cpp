// zolder: the desktop editor, or with --headless the runner without windows.
#include <cstdio>

#include "app/application.h"
#include "app/cli.h"
#include "app/headless_shell.h"
#include "app/version.h"

namespace {

constexpr int kExitUsage = 2;
constexpr int kExitScriptError = 255;

int runHeadless(const zol::CommandLine& cl) {
    zol::HeadlessShell shell;
    zol::setShell(&shell);
    zol::Application app;
    shell.attach(&app);
    zol::startUp(app, zol::StartupOptions{cl.home, cl.files, {}});
    int status = app.failedOpens ? 1 : 0;
    if (!cl.script.empty()) {
        std::fprintf(stderr, "zolder: %s: scripts cannot run in this build\n", cl.script.c_str());
        status = kExitScriptError;
    } else {
        for (const auto& doc : app.documents) std::printf("%s\n", zol::documentSummary(*doc).c_str());
    }
    zol::shutDown(app);
    zol::setShell(nullptr);
    return status;
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
    if (!cl.headless) {
        std::fprintf(stderr, "zolder: the desktop shell is not part of this build; use --headless\n");
        return kExitUsage;
    }
    return runHeadless(cl);
}
