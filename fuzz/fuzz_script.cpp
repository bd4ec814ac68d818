// Random script texts through the preprocessor, the tokenizer and the interpreter,
// with a step budget and no operating-system services.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

#include "script/runner.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static FILE* sink = std::fopen("/dev/null", "w");
    static FILE* empty = std::tmpfile();
    zol::ScriptRunOptions opts;
    opts.includeDir = "/nonexistent";
    opts.stepBudget = 20000;
    opts.sealed = true;
    opts.heapLimit = 64u << 20;
    opts.in = empty;
    opts.out = sink;
    opts.err = sink;
    const std::string text(reinterpret_cast<const char*>(data), size);
    zol::runScriptText("/fuzz/input.c", text, {"input.c"}, opts);
    return 0;
}
