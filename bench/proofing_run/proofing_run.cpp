// Proofing timings:
//   proofing_run spell HOME FILE   checks FILE's spelling from the top to the end as a
//                                  user pressing Ignore All at every stop would: MB/s,
//                                  and the longest slice (how long Close may wait)
//   proofing_run popup HOME        offscreen desktop: Ctrl+Space with 50,000 distinct
//                                  words in an open document, until the popup is painted
#include <QApplication>
#include <QKeyEvent>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <string>
#include <vector>

#include "app/application.h"
#include "bench/offscreen_desktop.h"
#include "app/qt/completion_popup.h"
#include "app/qt/editor_view.h"
#include "app/qt/main_frame.h"
#include "app/qt/qt_shell.h"
#include "engine/edit.h"
#include "files/textfile.h"
#include "platform/paths.h"
#include "proofing/spell_session.h"
#include "proofing/speller.h"

namespace {

using Clock = std::chrono::steady_clock;
double msSince(Clock::time_point t) { return std::chrono::duration<double, std::milli>(Clock::now() - t).count(); }
// Processor time: on a machine busy with other work the wall clock says more about the others.
double cpuMsSince(std::clock_t t) { return 1000.0 * static_cast<double>(std::clock() - t) / CLOCKS_PER_SEC; }

int spell(const char* file) {
    zol::Document doc;
    doc.fileName = file;
    if (!zol::readFile(doc, file, true)) return 1;
    std::string error;
    zol::Speller* sp = zol::speller(&error);
    if (!sp) {
        std::fprintf(stderr, "%s\n", error.c_str());
        return 1;
    }
    size_t bytes = 0;
    for (int32_t i = 0; i <= zol::lastLine(doc); ++i) bytes += zol::lineText(doc, i).size() + 1;
    zol::SpellSession s(doc, *sp);
    zol::Misspelling m;
    double longest = 0;
    size_t stops = 0;
    const Clock::time_point start = Clock::now();
    for (;;) {
        const Clock::time_point t = Clock::now();
        const zol::SpellStep step = s.next(m);
        longest = std::max(longest, msSince(t));
        if (step == zol::SpellStep::Finished) break;
        if (step == zol::SpellStep::Found) ++stops, s.ignoreAll(m);
    }
    const double ms = msSince(start);
    std::printf("spelling of %zu bytes: %.2f s = %.1f MB/s, %zu distinct unknown words, longest slice %.1f ms\n", bytes,
                ms / 1000, bytes / 1e6 / (ms / 1000), stops, longest);
    return 0;
}

int popup(zol::TMainFrame& frame, zol::Application& app) {
    frame.newFile();
    zol::Document* words = app.active;
    std::string text;
    for (int i = 0; i < 50000; ++i) text += "word" + std::to_string(i * 7919 % 1000003) + (i % 10 == 9 ? "\n" : " ");
    zol::insertText(*words, text);
    frame.newFile();
    frame.show();
    zol::TVekWinEditor* view = frame.activeView();
    QApplication::processEvents();
    std::vector<double> ms, cpu;
    for (int round = 0; round < 30; ++round) {
        zol::insertText(*view->document(), round % 2 ? "wo" : "word1");
        QApplication::processEvents();
        const Clock::time_point t = Clock::now();
        const std::clock_t c = std::clock();
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Space, Qt::ControlModifier);
        QApplication::sendEvent(view, &key);
        zol::TCompletionPopup* p = zol::TCompletionPopup::of(view);
        if (!p) return 1;
        p->repaint();
        ms.push_back(msSince(t));
        cpu.push_back(cpuMsSince(c));
        p->dismiss();
        zol::insertText(*view->document(), "\n");
    }
    std::vector<double> gather;
    for (int round = 0; round < 10; ++round) {
        const Clock::time_point t = Clock::now();
        const std::vector<zol::Candidate> all = zol::gatherCandidates(*view->document(), {words});
        zol::filterCandidates(all, "wo", zol::TCompletionPopup::kMaxShown);
        gather.push_back(msSince(t));
    }
    std::sort(gather.begin(), gather.end());
    std::printf("of which gathering and narrowing the candidates: median %.1f ms\n", gather[gather.size() / 2]);
    std::sort(ms.begin(), ms.end());
    std::sort(cpu.begin(), cpu.end());
    std::printf("completion popup, 50,000 words open: median %.1f ms, worst %.1f ms over %zu; processor time median %.1f ms\n",
                ms[ms.size() / 2], ms.back(), ms.size(), cpu[cpu.size() / 2]);
    for (const auto& d : app.documents) d->modified = false;
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: proofing_run spell HOME FILE | popup HOME\n");
        return 2;
    }
    OffscreenDesktop desk(argc, argv, argv[2]);
    const int status = std::strcmp(argv[1], "spell") == 0 && argc == 4 ? spell(argv[3]) : popup(desk.frame(), desk.app());
    return status;
}
