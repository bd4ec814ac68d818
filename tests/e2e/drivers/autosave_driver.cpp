// A stand-in for a user session that the auto-save test can kill: the start-up of
// `zolder --headless`, an edit through the engine, then the application's auto-save
// tick in a loop, on a clock that moves one auto-save interval per turn.
//
//   autosave_driver edit HOME FILE    edits FILE's document, prints "saved" once its
//                                     side file exists, and keeps ticking until killed
//   autosave_driver dump HOME OUTDIR  starts up (recovering what was left behind),
//                                     writes each document to OUTDIR under its own
//                                     name and prints its summary
#include <chrono>
#include <cstdio>
#include <string>
#include <string_view>
#include <thread>

#include "app/application.h"
#include "app/headless_shell.h"
#include "engine/executor.h"
#include "engine/options.h"
#include "files/textfile.h"
#include "platform/paths.h"

namespace {

// A driver that nobody kills ends by itself.
constexpr int kMaxTurns = 3000;
constexpr auto kTurn = std::chrono::milliseconds(20);
constexpr int64_t kMsPerMinute = 60 * 1000;

void type(zol::Document& doc, std::string_view text) {
    for (char c : text) zol::execute(doc, zol::commandId("InsertChar", false), static_cast<unsigned char>(c));
}

int edit(zol::Application& app) {
    if (!app.active) return 1;
    zol::Document& doc = *app.active;
    type(doc, "xyz");
    zol::execute(doc, zol::commandId("NewLine", false));
    bool told = false;
    int64_t now = 0;
    for (int turn = 0; turn < kMaxTurns; ++turn) {
        zol::autoSaveTick(app, now);
        now += zol::options().autoSaveEvery * kMsPerMinute;
        if (!told && !doc.autoSaveFile.empty()) {
            std::printf("saved %s\n", doc.autoSaveFile.c_str());
            std::fflush(stdout);
            told = true;
        }
        std::this_thread::sleep_for(kTurn);
    }
    return 2;
}

int dump(zol::Application& app, const std::string& outDir) {
    for (const auto& doc : app.documents) {
        const std::string out = zol::joinPath(outDir, zol::fileNamePart(doc->fileName));
        if (!zol::writeFile(*doc, out, doc->textFormat, -1, false, true)) return 1;
        std::printf("%s\n", zol::documentSummary(*doc).c_str());
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: autosave_driver edit|dump HOME FILE|OUTDIR\n");
        return 2;
    }
    const std::string mode = argv[1];
    zol::HeadlessShell shell;
    zol::setShell(&shell);
    zol::Application app;
    zol::StartupOptions opts{argv[2], {}};
    // "dump" stands for the next desktop start, the one that recovers side files.
    opts.desktop = mode == "dump";
    if (mode == "edit") opts.files.push_back(argv[3]);
    zol::startUp(app, opts);
    const int status = mode == "edit" ? edit(app) : dump(app, argv[3]);
    zol::shutDown(app);
    zol::setShell(nullptr);
    return status;
}
