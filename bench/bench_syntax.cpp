// Colouring speed over the generated big.c (~100 MB) with the shipped C definition: the
// scanner, the comment-state routine alone, and what an edit costs the comment bits of
// a 2.5-million-line document.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "engine/document.h"
#include "engine/edit.h"
#include "files/textfile.h"
#include "syntax/commands.h"
#include "syntax/doc_syntax.h"
#include "syntax/scanner.h"

namespace {

using namespace zol;

std::string inputPath(const char* name) {
    const char* dir = std::getenv("ZOLDER_BENCH_DATA");
    return std::string(dir && *dir ? dir : "/tmp/zbench/data") + "/" + name;
}

int cSlot() {
    static const int slot = [] {
        loadDefinitions(syntaxTable(), std::string(ZOLDER_BUILD_DATA_DIR) + "/syntax.hgl");
        return findDefinitionForFile(syntaxTable(), "big.c");
    }();
    return slot;
}

struct Lines {
    std::string bytes;
    std::vector<std::string_view> lines;
};

const Lines& bigLines() {
    static const Lines l = [] {
        Lines out;
        std::ifstream in(inputPath("big.c"), std::ios::binary);
        out.bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
        std::string_view all(out.bytes);
        while (!all.empty()) {
            const size_t nl = all.find('\n');
            std::string_view line = all.substr(0, nl);
            if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
            out.lines.push_back(line);
            if (nl == std::string_view::npos) break;
            all.remove_prefix(nl + 1);
        }
        return out;
    }();
    return l;
}

void BM_ScanBigC(benchmark::State& state) {
    const Lines& in = bigLines();
    const SyntaxHighlight* d = definitionAt(syntaxTable(), cSlot());
    if (in.lines.empty() || !d) return state.SkipWithError("big.c or the C definition is missing");
    std::vector<uint8_t> out(70000);
    for (auto _ : state) {
        int bit = 0;
        for (std::string_view l : in.lines) bit = scanLine(*d, l, out.data(), bit);
        benchmark::DoNotOptimize(bit);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(in.bytes.size()));
}
BENCHMARK(BM_ScanBigC)->Unit(benchmark::kMillisecond);

void BM_CommentStateBigC(benchmark::State& state) {
    const Lines& in = bigLines();
    const SyntaxHighlight* d = definitionAt(syntaxTable(), cSlot());
    if (in.lines.empty() || !d) return state.SkipWithError("big.c or the C definition is missing");
    int carried = 0;
    for (auto _ : state) {
        int bit = 0;
        for (std::string_view l : in.lines) bit = commentState(*d, l, bit);
        carried += bit;
        benchmark::DoNotOptimize(carried);
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(in.bytes.size()));
}
BENCHMARK(BM_CommentStateBigC)->Unit(benchmark::kMillisecond);

Document* bigDocument() {
    static std::unique_ptr<Document> doc = [] {
        initSyntax(nullptr);
        auto d = std::make_unique<Document>();
        if (!readFile(*d, inputPath("big.c"), true)) return std::unique_ptr<Document>();
        setDocumentSyntax(*d, cSlot());
        return d;
    }();
    return doc.get();
}

// Typing and deleting a character in the middle of the document; the comment bits of
// one line are recomputed and the next line is found unchanged.
void BM_TypeInsideLine(benchmark::State& state) {
    Document* doc = bigDocument();
    if (!doc) return state.SkipWithError("big.c missing");
    const int32_t line = doc->lines.lastIndex / 2;
    for (auto _ : state) {
        setCursor(*doc, makePos(0, line));
        insertText(*doc, "x");
        deleteRange(*doc, makePos(0, line), makePos(1, line));
    }
    state.SetLabel(std::to_string(doc->lines.count()) + " lines");
}
BENCHMARK(BM_TypeInsideLine);

// Opening a comment in the middle: the bits change until the next comment opener or
// closer that restores them. Reports how many lines that took.
void BM_OpenAndCloseComment(benchmark::State& state) {
    Document* doc = bigDocument();
    if (!doc) return state.SkipWithError("big.c missing");
    const int32_t line = doc->lines.lastIndex / 2;
    int32_t recomputed = 0;
    for (auto _ : state) {
        LineRef r = doc->lines.find(line);
        const std::string old(doc->lines.text(r));
        doc->lines.setText(r, "/* " + old);
        recomputed = updateCommentStates(*doc, line, 1);
        doc->lines.setText(doc->lines.find(line), old);
        updateCommentStates(*doc, line, 1);
    }
    state.counters["lines_recomputed"] = recomputed;
}
BENCHMARK(BM_OpenAndCloseComment)->Unit(benchmark::kMicrosecond);

}  // namespace
