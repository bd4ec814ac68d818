#include "script/runner.h"

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

bool gRunning = false;
volatile int gStop = 0;

struct RunningFlag {
    RunningFlag() { gRunning = true; }
    ~RunningFlag() { gRunning = false; }
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

}  // namespace

bool isScriptRunning() { return gRunning; }

ScriptRunResult runScriptText(const std::string& path, const std::string& text, const std::vector<std::string>& args,
                              const ScriptRunOptions& opts) {
    ScriptRunResult result;
    if (gRunning) {
        result.refused = true;
        return result;
    }
    RunningFlag running;
    gStop = 0;
    if (opts.catchInterrupt) scriptInstallInterrupt(&gStop);
    PreprocessOutput pp;
    auto en = std::make_unique<Engine>();
    en->files = {opts.in, opts.out, opts.err};
    en->ownFile = {false, false, false};
    en->stepBudget = opts.stepBudget;
    en->sealed = opts.sealed;
    en->heapLimit = opts.heapLimit;
    en->stopFlag = &gStop;
    en->args = args;
    try {
        preprocess(path, text, opts.includeDir, pp);
        tokenize(pp.text, en->ts);
        std::string().swap(pp.text);
        for (size_t i = 0; i < pp.fileNames.size(); ++i) en->fileNames.push_back(scriptFileNameOf(pp, static_cast<int>(i)));
        en->scanGlobals();
        Function* mainFn = nullptr;
        for (Function& f : en->functions)
            if (f.name == "main" && f.defined) mainFn = &f;
        if (!mainFn) raiseScriptError(kErrNoMain, 0, 0);
        const uint32_t argv = placeArgs(*en, args);
        // The start line: return main(argc, (char**)argv);
        Expr* call = en->newExpr(Op::Call, mainFn->type->base);
        call->fn = mainFn;
        const size_t np = mainFn->type->noProto ? mainFn->paramSyms.size() : mainFn->type->params.size();
        if (np >= 1) {
            Expr* c = en->newExpr(Op::Const, en->tInt);
            c->v.i = static_cast<int64_t>(args.size());
            call->args.push_back(c);
            call->argTypes.push_back(en->tInt);
        }
        if (np >= 2) {
            Expr* v = en->newExpr(Op::Const, en->ptrTo(en->tCharPtr));
            v->v.i = argv;
            call->args.push_back(v);
            call->argTypes.push_back(v->type);
        }
        if (np == 3) {
            // An environment vector, when main asks for one, is empty: the null that ends argv.
            Expr* env = en->newExpr(Op::Const, en->ptrTo(en->tCharPtr));
            env->v.i = argv + 4 * static_cast<uint32_t>(args.size());
            call->args.push_back(env);
            call->argTypes.push_back(env->type);
        }
        if (np > 3) raiseScriptError(kErrArgMismatch, 0, 0);
        if (mainFn->type->base->kind == kTStruct) raiseScriptError(kErrRedeclared, 0, 0);
        en->stackBase = reinterpret_cast<uintptr_t>(__builtin_frame_address(0));
        const Val v = en->call(mainFn, call);
        result.value = isInteger(mainFn->type->base) ? static_cast<int>(v.i) : 0;
    } catch (const ScriptFault& f) {
        result.error = f.code;
        result.value = -1;
        const std::string name = f.file >= 0 && static_cast<size_t>(f.file) < en->fileNames.size()
                                     ? en->fileNames[static_cast<size_t>(f.file)]
                                     : scriptFileNameOf(pp, f.file);
        result.message = name + " Line " + std::to_string(f.line) + ": " + scriptErrorMessage(f.code);
    } catch (const ScriptExit& x) {
        result.value = x.status;
    } catch (const LongJump&) {
        result.error = kErrLongjmp;
        result.value = -1;
        result.message = en->fileNames.empty() ? std::string() : en->fileNames[0];
        result.message += " Line " + std::to_string(en->curLine) + ": " + scriptErrorMessage(kErrLongjmp);
    } catch (const std::length_error&) {
        result.error = kErrOutOfMemory;
        result.value = -1;
        result.message = (en->fileNames.empty() ? std::string("mainfile") : en->fileNames[0]) + " Line " +
                         std::to_string(en->curLine) + ": " + scriptErrorMessage(kErrOutOfMemory);
    } catch (const std::bad_alloc&) {
        result.error = kErrOutOfMemory;
        result.value = -1;
        result.message = (en->fileNames.empty() ? std::string("mainfile") : en->fileNames[0]) + " Line " +
                         std::to_string(en->curLine) + ": " + scriptErrorMessage(kErrOutOfMemory);
    }
    for (FILE* f : en->files)
        if (f) std::fflush(f);
    en.reset();
    if (opts.catchInterrupt) scriptRemoveInterrupt();
    return result;
}

ScriptRunResult runScriptFile(const std::string& path, const std::vector<std::string>& args, const ScriptRunOptions& opts) {
    if (gRunning) {
        ScriptRunResult r;
        r.refused = true;
        return r;
    }
    std::string text;
    if (!readWholeFile(path, text)) {
        PreprocessOutput pp;
        pp.fileNames.push_back(path);
        ScriptRunResult r;
        r.error = kErrIncludeOpen;
        r.value = -1;
        r.message = scriptFileNameOf(pp, 0) + " Line 0: " + scriptErrorMessage(kErrIncludeOpen);
        return r;
    }
    return runScriptText(path, text, args, opts);
}

}  // namespace zol
