// Loading and saving the generated inputs (gen_inputs.py): big.c (~100 MB, ~2.5 M
// lines), big1m.txt (1 M short lines) and long.txt (lines far over the capacity).
// The folder comes from ZOLDER_BENCH_DATA, default /tmp/zbench/data.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "engine/document.h"
#include "engine/edit.h"
#include "files/autosave.h"
#include "files/textfile.h"
#include "platform/fileinfo.h"
#include "platform/tempfile.h"

namespace {

std::string benchInput(const char* name) {
    const char* env = std::getenv("ZOLDER_BENCH_DATA");
    std::string dir = env && *env ? env : "/tmp/zbench/data";
    if (dir.back() != '/') dir += '/';
    return dir + name;
}

bool haveInput(benchmark::State& state, const std::string& path) {
    if (zol::fileExists(path)) return true;
    state.SkipWithError((path + " is missing; generate it with gen_inputs.py").c_str());
    return false;
}

void BM_Load(benchmark::State& state, const char* name) {
    const std::string path = benchInput(name);
    if (!haveInput(state, path)) return;
    for (auto _ : state) {
        zol::Document doc;
        if (!zol::readFile(doc, path, true)) {
            state.SkipWithError("reading failed");
            break;
        }
        benchmark::DoNotOptimize(doc.lines.lastIndex);
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                            static_cast<int64_t>(zol::fileAttributes(path).size));
}

void BM_Write(benchmark::State& state, const char* name) {
    const std::string path = benchInput(name);
    if (!haveInput(state, path)) return;
    zol::Document doc;
    const std::string dir = zol::createTempDir("zolbench");
    if (dir.empty() || !zol::readFile(doc, path, true)) {
        state.SkipWithError("cannot prepare the document");
        return;
    }
    const std::string out = dir + name;
    for (auto _ : state) {
        if (!zol::writeFile(doc, out, doc.textFormat, -1, false, false)) {
            state.SkipWithError("writing failed");
            break;
        }
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                            static_cast<int64_t>(zol::fileAttributes(path).size));
    std::error_code ec;
    std::filesystem::remove_all(dir, ec);
}

// One auto-save interval with ten modified documents of 1 MB each: every side file is
// rewritten and flushed to disk. Side files go to $TMPDIR's folder, so point it at the
// disk to be measured.
void BM_AutoSaveTen(benchmark::State& state) {
    constexpr int kDocs = 10;
    const std::string dir = zol::createTempDir("zolbench");
    std::vector<std::unique_ptr<zol::Document>> docs;
    const std::string line(63, 'x');
    for (int i = 0; i < kDocs; ++i) {
        docs.push_back(std::make_unique<zol::Document>());
        for (int n = 0; n < (1 << 20) / 64; ++n) zol::insertText(*docs.back(), line + "\n");
        zol::setModified(*docs.back(), true);
    }
    std::vector<zol::Document*> all;
    for (auto& d : docs) all.push_back(d.get());
    for (auto _ : state)
        if (zol::autoSaveDocuments(all, dir) != kDocs) state.SkipWithError("auto-save failed");
    for (auto& d : docs) zol::removeAutoSaveFile(*d);
    std::error_code ec;
    std::filesystem::remove_all(dir, ec);
}

BENCHMARK(BM_AutoSaveTen)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(BM_Load, big_c, "big.c")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Write, big_c, "big.c")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(BM_Load, big1m_txt, "big1m.txt")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Load, long_txt, "long.txt")->Unit(benchmark::kMillisecond);

}  // namespace
