// What one call of an editor built-in costs a script: the same script loop calling
// Zol_GetTabSize() and Zol_GetLineLen(h, n, 1), calling script functions of the same
// arity instead, and calling nothing; beside it the C call of Zol_GetLineLen that the
// built-in wraps. Each reports the time of one pass of the loop ("per_call").
#include <benchmark/benchmark.h>

#include <string>

#include "app/application.h"
#include "engine/edit.h"
#include "plugin/script_bindings.h"
#include "plugin/zolder_api.h"
#include "script/runner.h"

namespace {

using namespace zol;

constexpr int kCalls = 200000;
constexpr int kLines = 1024;

// An application with one document of kLines lines, its editor built-ins registered.
struct Editor {
    Application app;
    Document* doc = nullptr;
    Editor() {
        setDocumentList(&app.list);
        registerScriptBindings();
        doc = newDocument(app);
        std::string text;
        for (int i = 0; i < kLines; ++i) text += "line " + std::to_string(i) + " of the document\n";
        insertText(*doc, text);
    }
    ~Editor() {
        while (!app.documents.empty()) destroyDocument(app, app.documents.back().get());
        setDocumentList(nullptr);
    }
};

Editor& editor() {
    static Editor e;
    return e;
}

std::string loop(const std::string& call) {
    return "int f0(void) { return 8; }\n"
           "int f3(void *h, int n, int raw) { return n + raw; }\n"
           "int main(void) {\n"
           "    void *h = Zol_GetActiveDocument();\n"
           "    int i, s = 0;\n"
           "    for (i = 0; i < " + std::to_string(kCalls) + "; i++) s += " + call + ";\n"
           "    return s & 1;\n"
           "}\n";
}

void perCall(benchmark::State& state) {
    state.counters["per_call"] =
        benchmark::Counter(kCalls, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_ScriptLoop(benchmark::State& state, const char* call) {
    editor();
    const std::string text = loop(call);
    for (auto _ : state) {
        const ScriptRunResult r = runScriptText("bench.c", text, {"bench.c"}, ScriptRunOptions{});
        if (r.error) {
            state.SkipWithError(r.message.c_str());
            break;
        }
        benchmark::DoNotOptimize(r.value);
    }
    perCall(state);
}
BENCHMARK_CAPTURE(BM_ScriptLoop, nothing, "i")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_ScriptLoop, script_function_0, "f0()")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_ScriptLoop, Zol_GetTabSize, "Zol_GetTabSize()")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_ScriptLoop, script_function_3, "f3(h, (i & 1023) + 1, 1)")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_ScriptLoop, Zol_GetLineLen, "Zol_GetLineLen(h, (i & 1023) + 1, 1)")
    ->Unit(benchmark::kMillisecond);

void BM_CallLoop_Zol_GetLineLen(benchmark::State& state) {
    HDOC h = editor().doc;
    for (auto _ : state) {
        int s = 0;
        for (int i = 0; i < kCalls; ++i) s += Zol_GetLineLen(h, (i & (kLines - 1)) + 1, 1);
        benchmark::DoNotOptimize(s);
    }
    perCall(state);
}
BENCHMARK(BM_CallLoop_Zol_GetLineLen)->Unit(benchmark::kMillisecond);

}  // namespace
