#include "script/runner.h"

#include <atomic>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <stdexcept>

#include "platform/file_io.h"
#include "platform/script_os.h"
#include "script/interp.h"
#include "script/preprocess.h"

namespace zol {
namespace {

std::atomic<bool> gRunning{false};
std::atomic<int> gStop{0};

// Holds the running slot for one run, unless the caller holds it for the run and
// gives it back itself.
struct RunningFlag {
    bool mayRun;
    bool taken = false;
    explicit RunningFlag(bool callerHolds) : mayRun(callerHolds) {
        if (!mayRun) mayRun = taken = takeScriptSlot();
    }
    ~RunningFlag() {
        if (taken) releaseScriptSlot();
    }
};

// Places argv in the data space: the strings, then the vector with its null end.
uint32_t placeArgs(Engine& en, const std::vector<std::string>& args) {
    std::vector<uint32_t> ptrs;
    for (const std::string& a : args) {
        const uint32_t p = en.allocGlobal(static_cast<uint32_t>(a.size() + 1), 1);
        std::memcpy(en.host(p, static_cast<uint32_t>(a.size() + 1)), a.c_str(), a.size() + 1);
        ptrs.push_back(p);
    }
    ptrs.push_back(0);
    const uint32_t v = en.allocGlobal(static_cast<uint32_t>(ptrs.size() * 4), 4);
    std::memcpy(en.host(v, static_cast<uint32_t>(ptrs.size() * 4)), ptrs.data(), ptrs.size() * 4);
    return v;
}

ScriptRunResult failure(int code, const std::string& name, int line) {
    ScriptRunResult r;
    r.error = code;
    r.value = -1;
    r.message = name + " Line " + std::to_string(line) + ": " + scriptErrorMessage(code);
    return r;
}

ScriptRunResult refusal() {
    ScriptRunResult r;
    r.refused = true;
    return r;
}

// The start line: return main(argc, (char**)argv);
int callMain(Engine& en, const std::vector<std::string>& args) {
    Function* mainFn = nullptr;
    for (Function& f : en.functions)
        if (f.name == "main" && f.defined) mainFn = &f;
    if (!mainFn) raiseScriptError(kErrNoMain, 0, 0);
    const uint32_t argv = placeArgs(en, args);
    Expr* call = en.newExpr(Op::Call, mainFn->type->base);
    call->fn = mainFn;
    const size_t np = mainFn->type->noProto ? mainFn->paramSyms.size() : mainFn->type->params.size();
    if (np >= 1) {
        Expr* c = en.newExpr(Op::Const, en.tInt);
        c->v.i = static_cast<int64_t>(args.size());
        call->args.push_back(c);
        call->argTypes.push_back(en.tInt);
    }
    if (np >= 2) {
        Expr* v = en.newExpr(Op::Const, en.ptrTo(en.tCharPtr));
        v->v.i = argv;
        call->args.push_back(v);
        call->argTypes.push_back(v->type);
    }
    if (np == 3) {
        // An environment vector, when main asks for one, is empty: the null that ends argv.
        Expr* env = en.newExpr(Op::Const, en.ptrTo(en.tCharPtr));
        env->v.i = argv + 4 * static_cast<uint32_t>(args.size());
        call->args.push_back(env);
        call->argTypes.push_back(env->type);
    }
    if (np > 3) raiseScriptError(kErrArgMismatch, 0, 0);
    if (mainFn->type->base->kind == kTStruct) raiseScriptError(kErrRedeclared, 0, 0);
    en.stackBase = reinterpret_cast<uintptr_t>(__builtin_frame_address(0));
    const Val v = en.call(mainFn, call);
    return isInteger(mainFn->type->base) ? static_cast<int>(v.i) : 0;
}

// One run, the running flag already held by the caller.
ScriptRunResult runHeld(const std::string& path, const std::string& text, const std::vector<std::string>& args,
                        const ScriptRunOptions& opts) {
    ScriptRunResult result;
    if (opts.catchInterrupt) scriptInstallInterrupt(&gStop);
    std::unique_ptr<ScriptConsole> streams;
    ScriptConsole* console = opts.console;
    if (!console) {
        streams = makeStreamConsole(opts.in, opts.out, opts.err);
        console = streams.get();
    }
    PreprocessOutput pp;
    auto en = std::make_unique<Engine>();
    en->console = console;
    en->files = {console->hostFile(ConsoleStream::In), console->hostFile(ConsoleStream::Out),
                 console->hostFile(ConsoleStream::Err)};
    en->ownFile = {false, false, false};
    en->editorGate = opts.editorGate ? &opts.editorGate : nullptr;
    en->stepBudget = opts.stepBudget;
    en->sealed = opts.sealed;
    en->heapLimit = opts.heapLimit;
    en->stopFlag = &gStop;
    en->args = args;
    auto mainName = [&] { return en->fileNames.empty() ? std::string("mainfile") : en->fileNames[0]; };
    try {
        preprocess(path, text, opts.includeDir, pp);
        tokenize(pp.text, en->ts);
        std::string().swap(pp.text);
        for (size_t i = 0; i < pp.fileNames.size(); ++i) en->fileNames.push_back(scriptFileNameOf(pp, static_cast<int>(i)));
        en->scanGlobals();
        result.value = callMain(*en, args);
    } catch (const ScriptFault& f) {
        const std::string name = f.file >= 0 && static_cast<size_t>(f.file) < en->fileNames.size()
                                     ? en->fileNames[static_cast<size_t>(f.file)]
                                     : scriptFileNameOf(pp, f.file);
        result = failure(f.code, name, f.line);
    } catch (const ScriptExit& x) {
        result.value = x.status;
    } catch (const LongJump&) {
        result = failure(kErrLongjmp, mainName(), en->curLine);
    } catch (const std::length_error&) {
        result = failure(kErrOutOfMemory, mainName(), en->curLine);
    } catch (const std::bad_alloc&) {
        result = failure(kErrOutOfMemory, mainName(), en->curLine);
    }
    console->flush();
    for (FILE* f : en->files)
        if (f) std::fflush(f);
    en.reset();
    console->release();
    if (opts.catchInterrupt) scriptRemoveInterrupt();
    return result;
}

// The report goes out while the run still holds the flag: a message box that waits
// for the user is part of the run.
void report(const ScriptRunResult& r, const ScriptRunOptions& opts) {
    if (r.error && opts.reportError) opts.reportError(r.message);
}

}  // namespace

bool isScriptRunning() { return gRunning; }

bool takeScriptSlot() {
    bool idle = false;
    if (!gRunning.compare_exchange_strong(idle, true)) return false;
    gStop = 0;
    return true;
}

void releaseScriptSlot() { gRunning = false; }

void requestScriptStop() { gStop = 1; }

bool scriptStopRequested() { return gStop != 0; }

ScriptRunResult runScriptText(const std::string& path, const std::string& text, const std::vector<std::string>& args,
                              const ScriptRunOptions& opts) {
    RunningFlag running(opts.slotHeld);
    if (!running.mayRun) return refusal();
    const ScriptRunResult r = runHeld(path, text, args, opts);
    report(r, opts);
    return r;
}

ScriptRunResult runScriptFile(const std::string& path, const std::vector<std::string>& args, const ScriptRunOptions& opts) {
    RunningFlag running(opts.slotHeld);
    if (!running.mayRun) return refusal();
    std::string text;
    ScriptRunResult r;
    if (readWholeFile(path, text)) {
        r = runHeld(path, text, args, opts);
    } else {
        PreprocessOutput pp;
        pp.fileNames.push_back(path);
        r = failure(kErrIncludeOpen, scriptFileNameOf(pp, 0), 0);
    }
    report(r, opts);
    return r;
}

}  // namespace zol
