// Search speed over the generated big.c (gen_inputs.py): compiling patterns, counting
// the lines that match, and replacing every "int" by "long" with its undo.
// The folder comes from ZOLDER_BENCH_DATA, default /tmp/zbench/data.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "engine/document.h"
#include "engine/undo.h"
#include "files/textfile.h"
#include "platform/fileinfo.h"
#include "search/find.h"
#include "search/regex.h"
#include "search/replace.h"

namespace {

std::string bigC() {
    const char* env = std::getenv("ZOLDER_BENCH_DATA");
    std::string dir = env && *env ? env : "/tmp/zbench/data";
    if (dir.back() != '/') dir += '/';
    return dir + "big.c";
}

// Loaded once: reading 100 MB is measured by bench_files.cpp.
zol::Document* bigDocument() {
    static std::unique_ptr<zol::Document> doc = [] {
        auto d = std::make_unique<zol::Document>();
        if (!zol::fileExists(bigC()) || !zol::readFile(*d, bigC(), true)) d.reset();
        return d;
    }();
    return doc.get();
}

void BM_Compile(benchmark::State& state, const char* pattern) {
    for (auto _ : state) {
        auto prog = zol::regexCompile(pattern, nullptr);
        benchmark::DoNotOptimize(prog.get());
    }
}

int64_t documentBytes(const zol::Document& doc) {
    int64_t n = 0;
    for (zol::LineRef r = doc.lines.first; r != zol::kNoLine; r = doc.lines.next(r)) n += doc.lines.header(r).len + 1;
    return n;
}

void BM_CountMatchingLines(benchmark::State& state, const char* pattern, bool regex) {
    zol::Document* doc = bigDocument();
    if (!doc) {
        state.SkipWithError("big.c is missing; generate it with gen_inputs.py");
        return;
    }
    zol::Searcher s;
    zol::prepareSearch(s, pattern, {false, true, regex, true});
    int64_t count = 0;
    for (auto _ : state) {
        count = 0;
        for (zol::LineRef r = doc->lines.first; r != zol::kNoLine; r = doc->lines.next(r)) {
            zol::LineHit h;
            if (zol::searchLine(s, doc->lines.text(r), 0, h) == zol::kSearchFound) ++count;
        }
        benchmark::DoNotOptimize(count);
    }
    state.counters["lines"] = static_cast<double>(count);
    state.SetBytesProcessed(state.iterations() * documentBytes(*doc));
}

void BM_ReplaceAllAndUndo(benchmark::State& state) {
    zol::Document* doc = bigDocument();
    if (!doc) {
        state.SkipWithError("big.c is missing; generate it with gen_inputs.py");
        return;
    }
    zol::Searcher s;
    zol::prepareSearch(s, "int", {false, true, false, true});
    zol::ReplaceAllResult result;
    for (auto _ : state) {
        zol::replaceAll(*doc, s, "long", result);
        state.PauseTiming();
        zol::undo(*doc);
        zol::clearRedo(*doc);
        state.ResumeTiming();
    }
    state.counters["replaced"] = result.replaced;
    state.SetBytesProcessed(state.iterations() * documentBytes(*doc));
}

BENCHMARK_CAPTURE(BM_Compile, literal, "int")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Compile, set_plus, "x[0-9]+y")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Compile, groups, "^{[a-zA-Z_][a-zA-Z0-9_]*} *= *{[0-9]+|\"[^\"]*\"};$")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_CountMatchingLines, int_plain, "int", false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_CountMatchingLines, int_regex, "int", true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_CountMatchingLines, x_digits_y, "x[0-9]+y", true)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReplaceAllAndUndo)->Unit(benchmark::kMillisecond)->Iterations(2);

}  // namespace
