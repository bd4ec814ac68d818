// Editing costs on a large document: typing at its end, long jumps, big pastes.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "engine/document.h"
#include "engine/edit.h"
#include "engine/executor.h"
#include "engine/shell.h"
#include "files/textfile.h"

namespace {

using namespace zol;

std::string inputPath(const char* name) {
    const char* dir = std::getenv("ZOLDER_BENCH_DATA");
    return std::string(dir ? dir : "/tmp/zbench/data") + "/" + name;
}

// The big C file, loaded once and shared by the benchmarks that only move around in it.
Document* bigDocument() {
    static std::unique_ptr<Document> doc = [] {
        auto d = std::make_unique<Document>();
        if (!readFile(*d, inputPath("big.c"), true)) d.reset();
        return d;
    }();
    return doc.get();
}

constexpr uint16_t kInsertChar = 2, kBackspace = 6, kNewLine = 15, kGoToLineNum = 436;
constexpr uint16_t kUndo = 120, kRedo = 121, kPaste = 125, kTextEnd = 41;

void BM_TypeAtLastLine(benchmark::State& state) {
    Document* doc = bigDocument();
    if (!doc) return state.SkipWithError("big.c missing: run bench/run.sh");
    execute(*doc, kTextEnd);
    for (auto _ : state) {
        execute(*doc, kInsertChar, 'x');
        execute(*doc, kNewLine);
        execute(*doc, kBackspace);
        execute(*doc, kBackspace);
    }
    state.SetLabel(std::to_string(doc->lines.count()) + " lines");
}
BENCHMARK(BM_TypeAtLastLine);

void BM_GoToLineMillionAway(benchmark::State& state) {
    Document* doc = bigDocument();
    if (!doc) return state.SkipWithError("big.c missing: run bench/run.sh");
    execute(*doc, kGoToLineNum, 1000000);
    uint32_t target = 2000000;
    for (auto _ : state) {
        execute(*doc, kGoToLineNum, target);
        target = target == 2000000 ? 1000000 : 2000000;
    }
}
BENCHMARK(BM_GoToLineMillionAway)->Unit(benchmark::kMillisecond);

void BM_PasteUndoRedo(benchmark::State& state) {
    const auto lines = static_cast<size_t>(state.range(0));
    ClipboardData clip;
    clip.text.reserve(lines * 24);
    for (size_t i = 0; i < lines; ++i) clip.text += "a pasted line of text\r\n";
    shell().setClipboard(clip);
    for (auto _ : state) {
        state.PauseTiming();
        auto doc = std::make_unique<Document>();
        state.ResumeTiming();
        execute(*doc, kPaste);
        execute(*doc, kUndo);
        execute(*doc, kRedo);
        state.PauseTiming();
        doc.reset();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_PasteUndoRedo)->Arg(250000)->Arg(500000)->Arg(1000000)->Complexity(benchmark::oN)->Unit(benchmark::kMillisecond);

}  // namespace
