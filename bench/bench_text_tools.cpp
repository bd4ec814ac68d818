// "Sort" and "ExpandTabsToSpaces" over the whole big C file and over parts of it,
// to show how their cost grows with the size of the text.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "engine/document.h"
#include "engine/executor.h"
#include "engine/options.h"
#include "files/textfile.h"

namespace {

using namespace zol;

constexpr uint16_t kExpandTabs = 200, kSort = 208;

std::string dataPath(const char* name) {
    const char* dir = std::getenv("ZOLDER_BENCH_DATA");
    return std::string(dir ? dir : "/tmp/zbench/data") + "/" + name;
}

// The first tenths of big.c, cut at a line end, written next to it once.
std::string inputFor(int64_t tenths) {
    const std::string big = dataPath("big.c");
    if (tenths >= 10) return big;
    const std::string part = dataPath(("big_" + std::to_string(tenths) + "tenths.c").c_str());
    if (std::FILE* probe = std::fopen(part.c_str(), "rb")) {
        std::fclose(probe);
        return part;
    }
    std::FILE* in = std::fopen(big.c_str(), "rb");
    if (!in) return big;
    std::fseek(in, 0, SEEK_END);
    const long want = std::ftell(in) / 10 * static_cast<long>(tenths);
    std::fseek(in, 0, SEEK_SET);
    std::string text(static_cast<size_t>(want), '\0');
    const size_t got = std::fread(text.data(), 1, text.size(), in);
    std::fclose(in);
    text.resize(got);
    text.resize(text.rfind('\n') + 1);
    std::FILE* out = std::fopen(part.c_str(), "wb");
    if (!out) return big;
    std::fwrite(text.data(), 1, text.size(), out);
    std::fclose(out);
    return part;
}

void runOnFreshDocument(benchmark::State& state, uint16_t command) {
    const std::string path = inputFor(state.range(0));
    options().undoLevels = 20;
    int64_t bytes = 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto doc = std::make_unique<Document>();
        if (!readFile(*doc, path, true)) {
            state.SkipWithError("big.c missing: run bench/run.sh");
            break;
        }
        state.ResumeTiming();
        execute(*doc, command);
        state.PauseTiming();
        bytes = 0;
        for (LineRef r = doc->lines.first; r != kNoLine; r = doc->lines.next(r))
            bytes += static_cast<int64_t>(doc->lines.text(r).size()) + 1;
        doc.reset();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(bytes * static_cast<int64_t>(state.iterations()));
    state.SetComplexityN(bytes);
}

void BM_ExpandTabsToSpaces(benchmark::State& state) { runOnFreshDocument(state, kExpandTabs); }
void BM_Sort(benchmark::State& state) { runOnFreshDocument(state, kSort); }

// Argument: tenths of big.c (1 = 10 MB, 10 = 100 MB).
BENCHMARK(BM_ExpandTabsToSpaces)->Arg(1)->Arg(3)->Arg(10)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_Sort)->Arg(1)->Arg(3)->Arg(10)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
