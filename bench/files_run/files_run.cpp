// Whole-process counterpart of "grep -rn PATTERN DIR > out" for bench/run.sh:
//   zolder_files_run [-E] PATTERN DIR
// writes the output lines of find in files (hits, then the summary) to standard output,
// searching with regard to case (as grep does) on a worker thread as the desktop does,
// and prints on standard error how long after the start the first batch of hits
// reached the waiting thread. -E: PATTERN is a regular expression.
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <string>
#include <vector>

#include "platform/worker_thread.h"
#include "search/find_in_files.h"

int main(int argc, char** argv) {
    const bool regex = argc > 1 && std::strcmp(argv[1], "-E") == 0;
    if (argc != (regex ? 4 : 3)) {
        std::fprintf(stderr, "usage: %s [-E] PATTERN DIR\n", argv[0]);
        return 2;
    }
    zol::FileSearchQuery q{argv[regex ? 2 : 1], {false, true, regex, true}, argv[regex ? 3 : 2], "", true};
    const std::string problem = zol::fileSearchProblem(q);
    if (!problem.empty()) {
        std::fprintf(stderr, "%s\n", problem.c_str());
        return 2;
    }
    const auto start = std::chrono::steady_clock::now();
    double firstMs = -1;
    std::mutex m;
    std::vector<std::string> lines;
    std::atomic<bool> stop{false};
    zol::FileSearchTotals totals;
    zol::WorkerThread worker;
    worker.start([&] {
        totals = zol::findInFiles(q, {}, stop, [&](std::vector<std::string>& batch) {
            std::lock_guard<std::mutex> lock(m);
            if (firstMs < 0)
                firstMs = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
            for (std::string& l : batch) lines.push_back(std::move(l));
        });
    });
    worker.join();
    for (const std::string& l : lines) std::fputs((l + "\n").c_str(), stdout);
    for (const std::string& l : zol::summaryLines(totals)) std::fputs((l + "\n").c_str(), stdout);
    std::fprintf(stderr, "first hit after %.1f ms\n", firstMs);
    return 0;
}
