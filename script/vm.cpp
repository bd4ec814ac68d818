// The dispatcher of compiled functions. Each entry from the tree evaluator runs one
// loop, in which calls between compiled functions run too, remembered in
// Program::frames; operand stacks share Program::stack; locals live in the script's
// frame (en.fp), where the tree evaluator keeps them as well.
#include <cstdio>
#include <cstring>

#include "script/arith.h"
#include "script/vm.h"

namespace zol {
namespace {

inline uint32_t u32(Val v) { return static_cast<uint32_t>(v.i); }
inline Val intVal(int64_t i) {
    Val v;
    v.i = i;
    return v;
}
inline Val wrap32(uint32_t x) { return intVal(static_cast<int32_t>(x)); }

Function* resolveFunction(Engine& en, Val v) {
    const uint32_t a = u32(v);
    const uint32_t k = (a - kFuncAddrBase) / 16;
    if (a < kFuncAddrBase || (a - kFuncAddrBase) % 16 != 0 || k >= en.functions.size()) en.fail(kErrBadCall);
    Function* f = &en.functions[k];
    if (!f->defined) en.fail(kErrUndefinedFunction);
    return f;
}

inline int32_t localInt(const uint8_t* fp, int64_t off) {
    int32_t x;
    std::memcpy(&x, fp + off, 4);
    return x;
}

// The int local at in.x against in's other operand: negative, zero or positive.
inline int localCompare(Engine& en, const uint8_t* fp, const Ins& in) {
    if (in.k & 1) en.tick();
    const int64_t l = localInt(fp, in.x);
    const int64_t r = in.k & 2 ? localInt(fp, in.v.i) : in.v.i;
    return l < r ? -1 : l > r;
}

inline uint32_t indexAddress(const uint8_t* fp, const Ins& in) {
    uint32_t p;
    std::memcpy(&p, fp + in.x, 4);
    return static_cast<uint32_t>(static_cast<int64_t>(p) + localInt(fp, in.a));
}

}  // namespace

bool runCode(Engine& en, const Code& entry) {
    Program& prog = *en.program;
    Val* const stackBase = prog.sp;
    // The frames of calls run in line; the one at frameBase is this loop's first.
    VmFrame* const frameBase = prog.top;
    VmFrame* top = frameBase;
    Val* sp = stackBase;
    const Code* code = &entry;
    const Ins* in = code->ins.data();
    uint8_t* fp = en.fp;
    uint8_t* const globals = en.data.data();
    const Val* const stackEnd = prog.stack.get() + kVmStackTotal;
    int cellsBase = en.cells;
    // The calls this loop made in line end with it when an error or a longjmp leaves;
    // the activation that called runCode puts back the rest. Each frame remembers its
    // caller, so the callee of one is the caller remembered by the next.
    struct Unwind {
        Engine& en;
        Program& prog;
        Val* sp;
        VmFrame*& top;
        VmFrame* base;
        const Code*& running;
        ~Unwind() {
            for (; top > base; --top) {
                popCodeFrame(en, *running);
                running = top[-1].code;
            }
            prog.top = base;
            prog.sp = sp;
        }
    } unwind{en, prog, stackBase, top, frameBase, code};
    // What runs outside this loop (the tree evaluator, built-ins, calls not run in line)
    // may start a loop of its own above this one's frames and operand stack.
#define HAND_OVER(cells_, sp_) \
    do {                       \
        en.cells = (cells_);   \
        prog.sp = (sp_);       \
        prog.top = top;        \
    } while (0)
    // Each instruction jumps to the next one's code itself (a GNU extension), which
    // the processor predicts far better than the one shared jump of a switch.
    static const void* const labels[] = {
#define VM_OP(name, change, operands) &&op_##name,
#include "script/opcodes.def"
#undef VM_OP
    };
#define DISPATCH() goto* labels[static_cast<size_t>(in->op)]
#define NEXT()      \
    do {            \
        ++in;       \
        DISPATCH(); \
    } while (0)
    // To the jump's target when cond holds, else on to the next instruction.
#define JUMP_IF(cond)                    \
    do {                                 \
        in += (cond) ? in->a : 1;        \
        DISPATCH();                      \
    } while (0)
    DISPATCH();
    op_Line:
        en.curFile = in->x;
        en.curLine = in->a;
        NEXT();
    op_Tick:
        en.tick();
        NEXT();
    op_Jump:
        in += in->a;
        DISPATCH();
    op_JumpIfZero:
        JUMP_IF((--sp)->i == 0);
    op_JumpIfNonZero:
        JUMP_IF((--sp)->i != 0);
    op_JumpIfZeroF:
        JUMP_IF((--sp)->d == 0);
    op_JumpIfNonZeroF:
        JUMP_IF((--sp)->d != 0);
    op_CaseJump:
        if (sp[-1].i == in->v.i) {
            --sp;
            in += in->a;
            DISPATCH();
        }
        NEXT();
    op_Pop:
        --sp;
        NEXT();
    op_Dup:
        sp[0] = sp[-1];
        ++sp;
        NEXT();
    op_Const:
        *sp++ = in->v;
        NEXT();

    op_LoadLocal:
        *sp++ = loadKind(fp + in->a, static_cast<TypeKind>(in->k));
        NEXT();
    op_LoadLocalI32: {
        int32_t x;
        std::memcpy(&x, fp + in->a, 4);
        *sp++ = intVal(x);
        NEXT();
    }
    op_LoadLocalU32: {
        uint32_t x;
        std::memcpy(&x, fp + in->a, 4);
        *sp++ = intVal(x);
        NEXT();
    }
    op_StoreLocal:
        storeKind(fp + in->a, static_cast<TypeKind>(in->k), *--sp);
        NEXT();
    op_StoreLocal32: {
        const uint32_t x = u32(*--sp);
        std::memcpy(fp + in->a, &x, 4);
        NEXT();
    }
    op_LoadGlobal:
        *sp++ = loadKind(globals + in->a, static_cast<TypeKind>(in->k));
        NEXT();
    op_StoreGlobal:
        storeKind(globals + in->a, static_cast<TypeKind>(in->k), *--sp);
        NEXT();
    op_AddrLocal:
        *sp++ = intVal(en.fpv + static_cast<uint32_t>(in->a));
        NEXT();
    op_Load: {
        const TypeKind k = static_cast<TypeKind>(in->k);
        sp[-1] = loadKind(en.host(u32(sp[-1]), kindSize(k)), k);
        NEXT();
    }
    op_LoadI8:
        sp[-1] = intVal(static_cast<int8_t>(*en.host(u32(sp[-1]), 1)));
        NEXT();
    op_LoadIndexI8: {
        --sp;
        const uint32_t a = static_cast<uint32_t>(static_cast<uint64_t>(sp[-1].i) + static_cast<uint64_t>(sp[0].i));
        sp[-1] = intVal(static_cast<int8_t>(*en.host(a, 1)));
        NEXT();
    }
    op_LoadLocalIndexI8:
        *sp++ = intVal(static_cast<int8_t>(*en.host(indexAddress(fp, *in), 1)));
        NEXT();
    op_StoreConstLocalIndex8:
        *en.host(indexAddress(fp, *in), 1) = static_cast<uint8_t>(in->v.i);
        NEXT();
    op_StoreLocalIndex8:
        *en.host(indexAddress(fp, *in), 1) = static_cast<uint8_t>((--sp)->i);
        NEXT();
    op_Store: {
        const TypeKind k = static_cast<TypeKind>(in->k);
        sp -= 2;
        storeKind(en.host(u32(sp[1]), kindSize(k)), k, sp[0]);
        NEXT();
    }
    op_Store8:
        sp -= 2;
        *en.host(u32(sp[1]), 1) = static_cast<uint8_t>(sp[0].i);
        NEXT();
    op_StoreIndex8: {
        sp -= 3;
        const uint32_t a = static_cast<uint32_t>(static_cast<uint64_t>(sp[1].i) + static_cast<uint64_t>(sp[2].i));
        *en.host(a, 1) = static_cast<uint8_t>(sp[0].i);
        NEXT();
    }
    op_CopyStruct: {
        const uint32_t n = static_cast<uint32_t>(in->v.i);
        --sp;
        uint8_t* d = en.host(u32(sp[0]), n);
        std::memmove(d, en.host(u32(sp[-1]), n), n);
        sp[-1] = sp[0];
        NEXT();
    }
    op_ZeroLocal:
        std::memset(fp + in->a, 0, static_cast<size_t>(in->v.i));
        NEXT();

    op_AddI32: --sp; sp[-1] = wrap32(u32(sp[-1]) + u32(sp[0])); NEXT();
    op_SubI32: --sp; sp[-1] = wrap32(u32(sp[-1]) - u32(sp[0])); NEXT();
    op_MulI32: --sp; sp[-1] = wrap32(u32(sp[-1]) * u32(sp[0])); NEXT();
    op_LtI32: --sp; sp[-1].i = sp[-1].i < sp[0].i; NEXT();
    op_GtI32: --sp; sp[-1].i = sp[-1].i > sp[0].i; NEXT();
    op_LeI32: --sp; sp[-1].i = sp[-1].i <= sp[0].i; NEXT();
    op_GeI32: --sp; sp[-1].i = sp[-1].i >= sp[0].i; NEXT();
    op_EqI32: --sp; sp[-1].i = sp[-1].i == sp[0].i; NEXT();
    op_NeI32: --sp; sp[-1].i = sp[-1].i != sp[0].i; NEXT();
    op_LoadLocalAddI32:
        *sp++ = wrap32(static_cast<uint32_t>(localInt(fp, in->a)) + static_cast<uint32_t>(in->v.i));
        NEXT();
    op_AddConstI32: sp[-1] = wrap32(u32(sp[-1]) + static_cast<uint32_t>(in->v.i)); NEXT();
    op_Offset: sp[-1].i = static_cast<uint32_t>(sp[-1].i + in->v.i); NEXT();
    op_Binary:
        --sp;
        sp[-1] = binopKind(en, static_cast<Op>(in->x), static_cast<TypeKind>(in->k), sp[-1], sp[0]);
        NEXT();
    op_PtrAdd:
        --sp;
        sp[-1].i = static_cast<uint32_t>(static_cast<uint64_t>(sp[-1].i) + static_cast<uint64_t>(sp[0].i * in->v.i));
        NEXT();
    op_PtrDiff:
        --sp;
        sp[-1].i = static_cast<int32_t>(u32(sp[-1]) - u32(sp[0])) / in->v.i;
        NEXT();
    op_Neg:
        if (kindFloating(static_cast<TypeKind>(in->k))) sp[-1].d = -sp[-1].d;
        else sp[-1].i = normKind(static_cast<TypeKind>(in->k), static_cast<int64_t>(0 - static_cast<uint64_t>(sp[-1].i)));
        NEXT();
    op_BitNot:
        sp[-1].i = normKind(static_cast<TypeKind>(in->k), ~sp[-1].i);
        NEXT();
    op_Not: sp[-1].i = sp[-1].i == 0; NEXT();
    op_NotF: sp[-1].i = sp[-1].d == 0; NEXT();
    op_ToBool: sp[-1].i = sp[-1].i != 0; NEXT();
    op_ToBoolF: sp[-1].i = sp[-1].d != 0; NEXT();
    op_Cast:
        sp[-1] = castKind(en, sp[-1], static_cast<TypeKind>(in->k), static_cast<TypeKind>(in->x));
        NEXT();

    op_AssignOpLocal:
    op_AssignOpGlobal:
    op_AssignOp: {
        const TypeKind k = static_cast<TypeKind>(in->k);
        uint8_t* p;
        if (in->op == VmOp::AssignOpLocal) p = fp + in->a;
        else if (in->op == VmOp::AssignOpGlobal) p = globals + in->a;
        else p = en.host(u32(*--sp), kindSize(k));
        const Val v = assignOpValue(en, static_cast<Op>(in->x & 0xff), k, static_cast<TypeKind>(in->x >> 8), in->v.i,
                                    loadKind(p, k), sp[-1]);
        storeKind(p, k, v);
        sp[-1] = v;
        NEXT();
    }
    op_AddLocalI32: {
        int32_t x;
        std::memcpy(&x, fp + in->a, 4);
        const uint32_t r = static_cast<uint32_t>(x) + u32(*--sp);
        std::memcpy(fp + in->a, &r, 4);
        NEXT();
    }
    op_AddLocalLocalI32: {
        const uint32_t r = static_cast<uint32_t>(localInt(fp, in->a)) + static_cast<uint32_t>(localInt(fp, in->x));
        std::memcpy(fp + in->a, &r, 4);
        NEXT();
    }
    op_IncLocal:
    op_IncGlobal:
    op_Inc: {
        const TypeKind k = static_cast<TypeKind>(in->k);
        uint8_t* p;
        if (in->op == VmOp::IncLocal) p = fp + in->a;
        else if (in->op == VmOp::IncGlobal) p = globals + in->a;
        else p = en.host(u32(*--sp), kindSize(k));
        const Val old = loadKind(p, k);
        const Val nv = incValue(k, old, in->v);
        storeKind(p, k, nv);
        *sp++ = in->x ? old : nv;
        NEXT();
    }
    op_IncLocalI32: {
        uint32_t x;
        std::memcpy(&x, fp + in->a, 4);
        x += static_cast<uint32_t>(in->v.i);
        std::memcpy(fp + in->a, &x, 4);
        NEXT();
    }

    op_JumpIfLtI32:
        JUMP_IF(localCompare(en, fp, *in) < 0);
    op_JumpIfLeI32:
        JUMP_IF(localCompare(en, fp, *in) <= 0);
    op_JumpUnlessLtI32:
        JUMP_IF(!(localCompare(en, fp, *in) < 0));
    op_JumpUnlessLeI32:
        JUMP_IF(!(localCompare(en, fp, *in) <= 0));

    op_JumpIfLtI32K:
        JUMP_IF(localInt(fp, in->x) < in->v.i);
    op_JumpIfLeI32K:
        JUMP_IF(localInt(fp, in->x) <= in->v.i);
    op_JumpUnlessLtI32K:
        JUMP_IF(!(localInt(fp, in->x) < in->v.i));
    op_JumpUnlessLeI32K:
        JUMP_IF(!(localInt(fp, in->x) <= in->v.i));

    op_Prepare:
        if (!in->f->compiled) en.compileFunction(in->f);
        NEXT();
    op_Call: {
        // Struct arguments or results, or arguments beyond the parameters: the tree
        // evaluator's frame.
        sp -= in->a;
        Function* f = in->e->fn;
        en.tick();
        if (!f->compiled) en.compileFunction(f);
        en.checkHostStack();
        HAND_OVER(cellsBase + in->x, sp + in->a);
        sp[0] = en.enter(f, in->e, sp);
        ++sp;
        NEXT();
    }
    {
        Function* f;
        const Code* c;
        int calleeCells;
    op_CallDirect:
        sp -= in->a;
        c = in->c;
        en.tick();
        calleeCells = cellsBase + in->x + 1;
        f = c->fn;
        if (calleeCells <= c->cellsLimit && sp + c->maxDepth <= stackEnd) goto inlineCall;
        en.checkHostStack();
        HAND_OVER(calleeCells - 1, sp + in->a);
        sp[0] = en.enter(f, nullptr, sp);
        ++sp;
        NEXT();
    op_CallPtr:
        sp -= in->a;
        f = &en.functions[static_cast<size_t>(sp[-1].i)];
        en.tick();
        if (!f->compiled) en.compileFunction(f);
        c = f->code;
        calleeCells = cellsBase + in->x + 1;
        if (c && in->a == c->params && calleeCells <= c->cellsLimit && sp + c->maxDepth <= stackEnd) {
            // The arguments go into the frame; the callee's stack starts where the
            // function was, which is where its result will be.
            en.liveVars += c->nVars;
            if (en.liveVars > kMaxVariables) en.fail(kErrTooManyVariables);
            pushCodeFrame(en, *c);
            storeParams(en.fp, f, *c, sp);
            --sp;
            goto framed;
        }
        en.checkHostStack();
        HAND_OVER(cellsBase + in->x, sp + in->a);
        sp[-1] = en.enter(f, in->e, sp);
        NEXT();
    inlineCall:
        // The callee runs in this loop, its caller remembered to come back to.
        en.liveVars += c->nVars;
        if (en.liveVars > kMaxVariables) en.fail(kErrTooManyVariables);
        pushCodeFrame(en, *c);
        storeParams(en.fp, f, *c, sp);
    framed:
        *top++ = VmFrame{in, code, en.curFile, en.curLine};
        en.curFn = f;
        code = c;
        in = c->ins.data();
        fp = en.fp;
        cellsBase = calleeCells;
        DISPATCH();
    }
    op_Resolve:
        sp[-1].i = resolveFunction(en, sp[-1])->index;
        NEXT();
    op_Builtin:
        sp -= in->a;
        HAND_OVER(cellsBase + in->x, sp + in->a);
        sp[0] = en.callBuiltinWith(in->e, sp);
        ++sp;
        NEXT();
    op_Eval:
        HAND_OVER(cellsBase + in->x, sp);
        *sp++ = en.eval(in->e);
        NEXT();
    op_Exec: {
        HAND_OVER(cellsBase, sp);
        const Flow f = en.exec(in->s);
        if (f == Flow::Return) {
            if (top == frameBase) return true;
            *sp++ = en.retVal;
            goto leave;
        }
        if (f == Flow::Continue) {
            in = code->ins.data() + in->a;
            DISPATCH();
        }
        NEXT();
    }
    // A call run in line leaves its result where its arguments began, which is where
    // the callee's operand stack began too: the value stays where it is.
    op_Return:
        if (top == frameBase) {
            en.retVal = sp[-1];
            return true;
        }
        goto leave;
    op_ReturnVoid:
        if (top == frameBase) {
            en.retVal.i = 0;
            return true;
        }
        *sp++ = intVal(0);
        goto leave;
    op_End:
        if (top == frameBase) return false;
        if (code->mustReturn) en.fail(kErrMustReturn);
        *sp++ = intVal(0);
leave:
    --top;
    popCodeFrame(en, *code);
    en.liveVars -= code->nVars;
    in = top->call;
    cellsBase -= in->x + 1;
    code = top->code;
    en.curFn = code->fn;
    en.curFile = top->file;
    en.curLine = top->line;
    fp = en.fp;
    NEXT();
#undef NEXT
#undef DISPATCH
#undef JUMP_IF
#undef HAND_OVER
}

std::string listCode(const Code& code) {
    static const char* const names[] = {
#define VM_OP(name, change, operands) #name,
#include "script/opcodes.def"
#undef VM_OP
    };
    std::string out;
    char buf[96];
    for (size_t i = 0; i < code.ins.size(); ++i) {
        const Ins& in = code.ins[i];
        std::snprintf(buf, sizeof buf, "%4zu %-22s k=%u x=%u a=%d v=%lld\n", i, names[static_cast<size_t>(in.op)], in.k,
                      in.x, in.a, static_cast<long long>(in.v.i));
        out += buf;
    }
    return out;
}

}  // namespace zol
