// Statements and calls at run time.
#include <cstring>

#include "script/interp.h"
#include "script/vm.h"

namespace zol {
namespace {

inline bool truth(Engine& en, Expr* e) {
    const Val v = en.ev(e);
    return isFloating(e->type) ? v.d != 0 : v.i != 0;
}

uint32_t round4(uint32_t n) { return (n + 3) & ~3u; }

}  // namespace

Val Engine::call(Function* f, Expr* e) {
    prepareCall(f);
    ArgValues args;
    const Val* av = evalArgs(e, args);
    return enter(f, e, av);
}

Val Engine::enter(Function* f, Expr* e, const Val* av) {
    const size_t n = e ? e->args.size() : f->type->params.size();
    const size_t np = f->type->params.size();
    uint32_t extra = 0;
    for (size_t i = np; i < n; ++i) extra += round4(e->argTypes[i]->size);
    const uint32_t size = f->frameSize + extra;
    const uint32_t retTemp = e && e->temp ? fpv + e->temp : 0;

    struct Restore {
        Engine& en;
        Function* f;
        uint32_t size;
        uint8_t* fp;
        uint32_t fpv, retAddr;
        Function* fn;
        int cells, vars, file, line;
        bool pushed = false, objects = true;
        ~Restore() {
            if (pushed) en.popFrame(f, size, objects);
            en.fp = fp;
            en.fpv = fpv;
            en.curFn = fn;
            en.retAddr = retAddr;
            en.cells = cells;
            en.liveVars = vars;
            en.curFile = file;
            en.curLine = line;
        }
    } restore{*this, f, size, fp, fpv, retAddr, curFn, cells, liveVars, curFile, curLine};

    if (++cells > kStackCells) fail(kErrStackOverflow);
    liveVars += f->nVars;
    if (liveVars > kMaxVariables) fail(kErrTooManyVariables);
    // A body that might come near the cell limit runs in the tree evaluator, which
    // counts every cell and fails at the exact one.
    const Code* code =
        f->code && cells + f->code->maxHeld <= kStackCells && stackFits(*program, *f->code) ? f->code : nullptr;
    restore.objects = !code || code->framed;
    pushFrame(f, size, restore.objects);
    restore.pushed = true;
    // Compiled functions keep their parameters' kinds at hand: the common call, without
    // a walk through the types.
    const bool quick = code && !code->structParams && n >= np;
    if (quick) storeParams(fp, f, *code, av);
    for (size_t i = 0; !quick && i < np && i < n; ++i) {
        const Type* t = f->type->params[i];
        uint8_t* dst = fp + f->paramOffs[i];
        if (t->kind == kTStruct) std::memmove(dst, host(static_cast<uint32_t>(av[i].i), t->size), t->size);
        else store(dst, t, av[i]);
    }
    uint32_t off = f->frameSize;
    for (size_t i = np; i < n; ++i) {
        store(fp + off, e->argTypes[i], av[i]);
        off += round4(e->argTypes[i]->size);
    }
    curFn = f;
    retAddr = retTemp;
    retVal.i = 0;
    Flow fl;
    if (code) fl = runCode(*this, *code) ? Flow::Return : Flow::Normal;
    else fl = execBlock(f->body, 0);
    if (fl == Flow::Goto) fail(kErrUnknownLabel);
    Val result{};
    if (fl == Flow::Return) {
        result = retVal;
    } else if (f->type->base->kind != kTVoid && f->name != "main") {
        fail(kErrMustReturn);
    }
    if (code ? code->returnsStruct : f->type->base->kind == kTStruct) result.i = retTemp;
    return result;
}

// Where a block starts: at `from`, or at the statement holding the label or case being
// sought; false when the block does not hold it.
static bool blockStart(const Engine& en, const Stmt* s, size_t from, size_t& i) {
    i = from;
    if (!en.seekKey) return true;
    auto it = s->labels.find(en.seekKey);
    if (it == s->labels.end()) return false;
    i = it->second;
    return true;
}

// After statement i ended with f: true with i moved to the next statement to run (the
// following one, or the one holding a goto's label), false when f leaves the block.
static bool nextInBlock(Engine& en, const Stmt* s, Flow f, size_t& i) {
    if (f == Flow::Normal) {
        ++i;
        return true;
    }
    if (f != Flow::Goto) return false;
    // The label is in this list or somewhere inside one of its statements.
    auto it = s->labels.find(en.gotoLabel);
    if (it == s->labels.end()) return false;
    en.seekKey = en.gotoLabel;
    i = it->second;
    return true;
}

Flow Engine::execBlock(Stmt* s, size_t from) {
    if (s->jmpChild) return execJumpBlock(s, from);
    size_t i;
    if (!blockStart(*this, s, from, i)) return Flow::Normal;
    const size_t n = s->list.size();
    while (i < n) {
        const Flow f = exec(s->list[i]);
        if (!nextInBlock(*this, s, f, i)) return f;
    }
    return Flow::Normal;
}

// A block with a setjmp statement: a longjmp to it resumes at that statement, which
// runs again with setjmp answering the value passed.
Flow Engine::execJumpBlock(Stmt* s, size_t from) {
    const int64_t act = ++jmpCounter;
    struct Scope {
        Engine& en;
        size_t acts, targets;
        ~Scope() {
            en.jmpActs.resize(acts);
            en.jmpTargets.resize(targets);
        }
    } scope{*this, jmpActs.size(), jmpTargets.size()};
    jmpActs.push_back(act);
    const int savedCells = cells, savedVars = liveVars;
    size_t i;
    if (!blockStart(*this, s, from, i)) return Flow::Normal;
    const size_t n = s->list.size();
    for (;;) {
        try {
            while (i < n) {
                Stmt* c = s->list[i];
                Flow f;
                if (c->hasSetjmp) {
                    jmpTargets.emplace_back(act, i);
                    f = exec(c);
                    jmpTargets.pop_back();
                } else {
                    f = exec(c);
                }
                if (!nextInBlock(*this, s, f, i)) return f;
            }
            return Flow::Normal;
        } catch (const LongJump& j) {
            if (j.act != act) throw;
            jmpTargets.resize(scope.targets);
            cells = savedCells;
            liveVars = savedVars;
            setjmpValue = j.value;
            i = j.index;
        }
    }
}

Flow Engine::exec(Stmt* s) {
    curFile = s->file;
    curLine = s->line;
    switch (s->op) {
        case SOp::Expr:
            if (s->e) ev(s->e);
            return Flow::Normal;
        case SOp::Block:
            return execBlock(s, 0);
        case SOp::If:
            if (seekKey) {
                // Entering at a label: only the branch that holds it runs.
                for (int64_t k : s->body->keys)
                    if (k == seekKey) return exec(s->body);
                return s->els ? exec(s->els) : Flow::Normal;
            }
            if (truth(*this, s->e)) return exec(s->body);
            return s->els ? exec(s->els) : Flow::Normal;
        case SOp::While: {
            bool entering = seekKey != 0;  // a label inside the body: no test before it
            for (;;) {
                tick();
                if (!entering && !truth(*this, s->e)) return Flow::Normal;
                entering = false;
                const Flow f = exec(s->body);
                if (f == Flow::Break) return Flow::Normal;
                if (f == Flow::Return || f == Flow::Goto) return f;
            }
        }
        case SOp::Do:
            for (;;) {
                tick();
                const Flow f = exec(s->body);
                if (f == Flow::Break) return Flow::Normal;
                if (f == Flow::Return || f == Flow::Goto) return f;
                curFile = s->file;
                curLine = s->line;
                if (!truth(*this, s->e)) return Flow::Normal;
            }
        case SOp::For: {
            bool entering = seekKey != 0;
            if (entering) {
            } else if (s->els) {
                const Flow f = exec(s->els);
                if (f != Flow::Normal) return f;
            } else if (s->e) {
                eval(s->e);
            }
            for (;;) {
                tick();
                if (!entering && s->e2 && !truth(*this, s->e2)) return Flow::Normal;
                entering = false;
                const Flow f = exec(s->body);
                if (f == Flow::Break) return Flow::Normal;
                if (f == Flow::Return || f == Flow::Goto) return f;
                if (s->e3) ev(s->e3);
            }
        }
        case SOp::Switch: {
            if (!seekKey) {
                const int64_t v = eval(s->e).i;
                int64_t key = s->defaultKey;
                for (const auto& c : s->cases)
                    if (c.first == v) {
                        key = c.second;
                        break;
                    }
                if (!key) return Flow::Normal;
                seekKey = key;
            }
            const Flow f = execBlock(s->body, 0);
            return f == Flow::Break ? Flow::Normal : f;
        }
        case SOp::Case:
        case SOp::Label:
            if (seekKey == s->id) seekKey = 0;
            return Flow::Normal;
        case SOp::Goto:
            gotoLabel = static_cast<int>(s->id);
            return Flow::Goto;
        case SOp::Break:
            return Flow::Break;
        case SOp::Continue:
            return Flow::Continue;
        case SOp::Return:
            if (s->e) {
                const Val v = eval(s->e);
                if (s->e->type->kind == kTStruct) {
                    const uint32_t n = s->e->type->size;
                    std::memmove(host(retAddr, n), host(static_cast<uint32_t>(v.i), n), n);
                }
                retVal = v;
            } else {
                retVal.i = 0;
            }
            return Flow::Return;
        case SOp::Zero:
            std::memset(fp + s->id, 0, s->size);
            return Flow::Normal;
    }
    return Flow::Normal;
}

}  // namespace zol
