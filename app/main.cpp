// zolder: the desktop editor, or with --headless the runner without windows.
#include <cstdio>

#include "app/application.h"
#include "app/cli.h"
#include "app/headless_shell.h"
#include "app/qt/desktop.h"
#include "app/version.h"
#include "platform/paths.h"
#include "script/runner.h"

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
        std::vector<std::string> args{cl.script};
        args.insert(args.end(), cl.scriptArgs.begin(), cl.scriptArgs.end());
        zol::ScriptRunOptions opts;
        opts.includeDir = zol::homeDir() + "script/include";
        opts.catchInterrupt = true;
        const zol::ScriptRunResult r = zol::runScriptFile(cl.script, args, opts);
        if (r.error) {
            std::fprintf(stderr, "%s\n", r.message.c_str());
            status = kExitScriptError;
        } else {
            status = r.value & 0xff;
        }
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
    if (!cl.headless) return zol::runDesktop(argc, argv, cl);
    return runHeadless(cl);
}
