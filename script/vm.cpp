// The dispatcher of compiled functions: one activation per call, its operand stack on
// the machine stack, its locals in the script's frame (en.fp).
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

bool runCode(Engine& en, const Code& code) {
    Val stack[kVmStackCells];
    Val* sp = stack;
    const Ins* const start = code.ins.data();
    const Ins* pc = start;
    uint8_t* const fp = en.fp;
    uint8_t* const globals = en.data.data();
    const int cellsBase = en.cells;
    for (;;) {
        const Ins& in = *pc++;
        switch (in.op) {
            case VmOp::Line:
                en.curFile = in.x;
                en.curLine = in.a;
                break;
            case VmOp::Tick:
                en.tick();
                break;
            case VmOp::Jump:
                pc = start + in.a;
                break;
            case VmOp::JumpIfZero:
                if ((--sp)->i == 0) pc = start + in.a;
                break;
            case VmOp::JumpIfNonZero:
                if ((--sp)->i != 0) pc = start + in.a;
                break;
            case VmOp::JumpIfZeroF:
                if ((--sp)->d == 0) pc = start + in.a;
                break;
            case VmOp::JumpIfNonZeroF:
                if ((--sp)->d != 0) pc = start + in.a;
                break;
            case VmOp::Pop:
                --sp;
                break;
            case VmOp::Dup:
                sp[0] = sp[-1];
                ++sp;
                break;
            case VmOp::Const:
                *sp++ = in.v;
                break;

            case VmOp::LoadLocal:
                *sp++ = loadKind(fp + in.a, static_cast<TypeKind>(in.k));
                break;
            case VmOp::LoadLocalI32: {
                int32_t x;
                std::memcpy(&x, fp + in.a, 4);
                *sp++ = intVal(x);
                break;
            }
            case VmOp::LoadLocalU32: {
                uint32_t x;
                std::memcpy(&x, fp + in.a, 4);
                *sp++ = intVal(x);
                break;
            }
            case VmOp::StoreLocal:
                storeKind(fp + in.a, static_cast<TypeKind>(in.k), *--sp);
                break;
            case VmOp::StoreLocal32: {
                const uint32_t x = u32(*--sp);
                std::memcpy(fp + in.a, &x, 4);
                break;
            }
            case VmOp::LoadGlobal:
                *sp++ = loadKind(globals + in.a, static_cast<TypeKind>(in.k));
                break;
            case VmOp::StoreGlobal:
                storeKind(globals + in.a, static_cast<TypeKind>(in.k), *--sp);
                break;
            case VmOp::AddrLocal:
                *sp++ = intVal(en.fpv + static_cast<uint32_t>(in.a));
                break;
            case VmOp::Load: {
                const TypeKind k = static_cast<TypeKind>(in.k);
                sp[-1] = loadKind(en.host(u32(sp[-1]), kindSize(k)), k);
                break;
            }
            case VmOp::LoadI8:
                sp[-1] = intVal(static_cast<int8_t>(*en.host(u32(sp[-1]), 1)));
                break;
            case VmOp::LoadIndexI8: {
                --sp;
                const uint32_t a = static_cast<uint32_t>(static_cast<uint64_t>(sp[-1].i) + static_cast<uint64_t>(sp[0].i));
                sp[-1] = intVal(static_cast<int8_t>(*en.host(a, 1)));
                break;
            }
            case VmOp::LoadLocalIndexI8:
                *sp++ = intVal(static_cast<int8_t>(*en.host(indexAddress(fp, in), 1)));
                break;
            case VmOp::StoreLocalIndex8:
                *en.host(indexAddress(fp, in), 1) = static_cast<uint8_t>((--sp)->i);
                break;
            case VmOp::Store: {
                const TypeKind k = static_cast<TypeKind>(in.k);
                sp -= 2;
                storeKind(en.host(u32(sp[1]), kindSize(k)), k, sp[0]);
                break;
            }
            case VmOp::Store8:
                sp -= 2;
                *en.host(u32(sp[1]), 1) = static_cast<uint8_t>(sp[0].i);
                break;
            case VmOp::StoreIndex8: {
                sp -= 3;
                const uint32_t a = static_cast<uint32_t>(static_cast<uint64_t>(sp[1].i) + static_cast<uint64_t>(sp[2].i));
                *en.host(a, 1) = static_cast<uint8_t>(sp[0].i);
                break;
            }
            case VmOp::ZeroLocal:
                std::memset(fp + in.a, 0, static_cast<size_t>(in.v.i));
                break;

            case VmOp::AddI32: --sp; sp[-1] = wrap32(u32(sp[-1]) + u32(sp[0])); break;
            case VmOp::SubI32: --sp; sp[-1] = wrap32(u32(sp[-1]) - u32(sp[0])); break;
            case VmOp::MulI32: --sp; sp[-1] = wrap32(u32(sp[-1]) * u32(sp[0])); break;
            case VmOp::LtI32: --sp; sp[-1].i = sp[-1].i < sp[0].i; break;
            case VmOp::GtI32: --sp; sp[-1].i = sp[-1].i > sp[0].i; break;
            case VmOp::LeI32: --sp; sp[-1].i = sp[-1].i <= sp[0].i; break;
            case VmOp::GeI32: --sp; sp[-1].i = sp[-1].i >= sp[0].i; break;
            case VmOp::EqI32: --sp; sp[-1].i = sp[-1].i == sp[0].i; break;
            case VmOp::NeI32: --sp; sp[-1].i = sp[-1].i != sp[0].i; break;
            case VmOp::AddConstI32: sp[-1] = wrap32(u32(sp[-1]) + static_cast<uint32_t>(in.v.i)); break;
            case VmOp::Offset: sp[-1].i = static_cast<uint32_t>(sp[-1].i + in.v.i); break;
            case VmOp::Binary:
                --sp;
                sp[-1] = binopKind(en, static_cast<Op>(in.x), static_cast<TypeKind>(in.k), sp[-1], sp[0]);
                break;
            case VmOp::PtrAdd:
                --sp;
                sp[-1].i = static_cast<uint32_t>(static_cast<uint64_t>(sp[-1].i) + static_cast<uint64_t>(sp[0].i * in.v.i));
                break;
            case VmOp::PtrDiff:
                --sp;
                sp[-1].i = static_cast<int32_t>(u32(sp[-1]) - u32(sp[0])) / in.v.i;
                break;
            case VmOp::Neg:
                if (kindFloating(static_cast<TypeKind>(in.k))) sp[-1].d = -sp[-1].d;
                else sp[-1].i = normKind(static_cast<TypeKind>(in.k), static_cast<int64_t>(0 - static_cast<uint64_t>(sp[-1].i)));
                break;
            case VmOp::BitNot:
                sp[-1].i = normKind(static_cast<TypeKind>(in.k), ~sp[-1].i);
                break;
            case VmOp::Not: sp[-1].i = sp[-1].i == 0; break;
            case VmOp::NotF: sp[-1].i = sp[-1].d == 0; break;
            case VmOp::ToBool: sp[-1].i = sp[-1].i != 0; break;
            case VmOp::ToBoolF: sp[-1].i = sp[-1].d != 0; break;
            case VmOp::Cast:
                sp[-1] = castKind(en, sp[-1], static_cast<TypeKind>(in.k), static_cast<TypeKind>(in.x));
                break;

            case VmOp::AssignOpLocal:
            case VmOp::AssignOpGlobal:
            case VmOp::AssignOp: {
                const TypeKind k = static_cast<TypeKind>(in.k);
                uint8_t* p;
                if (in.op == VmOp::AssignOpLocal) p = fp + in.a;
                else if (in.op == VmOp::AssignOpGlobal) p = globals + in.a;
                else p = en.host(u32(*--sp), kindSize(k));
                const Val v = assignOpValue(en, static_cast<Op>(in.x & 0xff), k, static_cast<TypeKind>(in.x >> 8), in.v.i,
                                            loadKind(p, k), sp[-1]);
                storeKind(p, k, v);
                sp[-1] = v;
                break;
            }
            case VmOp::AddLocalI32: {
                int32_t x;
                std::memcpy(&x, fp + in.a, 4);
                const uint32_t r = static_cast<uint32_t>(x) + u32(*--sp);
                std::memcpy(fp + in.a, &r, 4);
                break;
            }
            case VmOp::AddLocalLocalI32: {
                const uint32_t r = static_cast<uint32_t>(localInt(fp, in.a)) + static_cast<uint32_t>(localInt(fp, in.x));
                std::memcpy(fp + in.a, &r, 4);
                break;
            }
            case VmOp::IncLocal:
            case VmOp::IncGlobal:
            case VmOp::Inc: {
                const TypeKind k = static_cast<TypeKind>(in.k);
                uint8_t* p;
                if (in.op == VmOp::IncLocal) p = fp + in.a;
                else if (in.op == VmOp::IncGlobal) p = globals + in.a;
                else p = en.host(u32(*--sp), kindSize(k));
                const Val old = loadKind(p, k);
                const Val nv = incValue(k, old, in.v);
                storeKind(p, k, nv);
                *sp++ = in.x ? old : nv;
                break;
            }
            case VmOp::IncLocalI32: {
                uint32_t x;
                std::memcpy(&x, fp + in.a, 4);
                x += static_cast<uint32_t>(in.v.i);
                std::memcpy(fp + in.a, &x, 4);
                break;
            }

            case VmOp::JumpIfLtI32:
                if (localCompare(en, fp, in) < 0) pc = start + in.a;
                break;
            case VmOp::JumpIfLeI32:
                if (localCompare(en, fp, in) <= 0) pc = start + in.a;
                break;
            case VmOp::JumpUnlessLtI32:
                if (!(localCompare(en, fp, in) < 0)) pc = start + in.a;
                break;
            case VmOp::JumpUnlessLeI32:
                if (!(localCompare(en, fp, in) <= 0)) pc = start + in.a;
                break;

            case VmOp::Prepare:
                if (!in.f->compiled) en.compileFunction(in.f);
                break;
            case VmOp::Call:
            case VmOp::CallPtr: {
                const size_t n = in.e->args.size();
                sp -= n;
                Function* f = in.op == VmOp::Call ? in.e->fn : &en.functions[static_cast<size_t>(sp[-1].i)];
                en.cells = cellsBase + in.x;
                en.prepareCall(f);
                const Val r = en.enter(f, in.e, sp);
                if (in.op == VmOp::CallPtr) --sp;
                *sp++ = r;
                break;
            }
            case VmOp::Resolve:
                sp[-1].i = resolveFunction(en, sp[-1])->index;
                break;
            case VmOp::Eval:
                en.cells = cellsBase + in.x;
                *sp++ = en.eval(in.e);
                break;
            case VmOp::Exec: {
                en.cells = cellsBase;
                const Flow f = en.exec(in.s);
                if (f == Flow::Return) return true;
                if (f == Flow::Continue) pc = start + in.a;
                break;
            }
            case VmOp::Return:
                en.retVal = *--sp;
                return true;
            case VmOp::ReturnVoid:
                en.retVal.i = 0;
                return true;
            case VmOp::End:
                return false;
        }
    }
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
