// Evaluation of expression trees. A struct or array valued expression yields its
// address; every other value is held in a Val by its type.
#include <cmath>
#include <cstring>

#include "script/arith.h"
#include "script/interp.h"

namespace zol {
namespace {

constexpr uint32_t kJmpMagic = 0x4a4d5042;
constexpr uint32_t kJmpBufUsed = 16;  // of the script's jmp_buf

inline int64_t norm(const Type* t, int64_t v) { return normKind(t->kind, v); }

}  // namespace

// The address a pointer expression yields; p[i] is taken in one step.
inline uint32_t pointerValue(Engine& en, Expr* a);

uint32_t Engine::addrOf(Expr* e) {
    switch (e->op) {
        case Op::GVar: return static_cast<uint32_t>(e->v.i);
        case Op::LVar: return fpv + static_cast<uint32_t>(e->v.i);
        case Op::Deref: return pointerValue(*this, e->a);
        case Op::Member: return static_cast<uint32_t>(eval(e->a).i + e->v.i);
        case Op::Const: return static_cast<uint32_t>(e->v.i);
        default: fail(kErrNeedLvalue);
    }
}

Val Engine::loadBits(const Expr* lv, const uint8_t* p) const {
    Val v = load(p, lv->type);
    const uint64_t unit = static_cast<uint64_t>(v.i) >> lv->bitOff;
    const unsigned w = lv->bitWidth;
    const uint64_t mask = w >= 64 ? ~0ull : ((1ull << w) - 1);
    uint64_t x = unit & mask;
    if (!isUnsigned(lv->type) && w < 64 && (x >> (w - 1)) & 1) x |= ~mask;  // sign of a signed field
    v.i = static_cast<int64_t>(x);
    return v;
}

Val Engine::storeBits(const Expr* lv, uint8_t* p, Val v) const {
    const unsigned w = lv->bitWidth;
    const uint64_t mask = (w >= 64 ? ~0ull : ((1ull << w) - 1)) << lv->bitOff;
    Val unit = load(p, lv->type);
    unit.i = static_cast<int64_t>((static_cast<uint64_t>(unit.i) & ~mask) | ((static_cast<uint64_t>(v.i) << lv->bitOff) & mask));
    store(p, lv->type, unit);
    return loadBits(lv, p);
}

uint8_t* Engine::lvalHost(Expr* e, uint32_t n) {
    switch (e->op) {
        case Op::LVar: return fp + e->v.i;
        case Op::GVar: return data.data() + (e->v.i - kDataBase);
        default: return host(addrOf(e), n);
    }
}

namespace {

struct CellHold {
    int& cells;
    CellHold(Engine& en, int& c) : cells(c) {
        if (++cells > kStackCells) en.fail(kErrStackOverflow);
    }
    ~CellHold() { --cells; }
};

inline bool truthOf(const Expr* e, Val v) { return isFloating(e->type) ? v.d != 0 : v.i != 0; }

}  // namespace

inline uint32_t pointerValue(Engine& en, Expr* a) {
    if (a->op != Op::PtrAdd) return static_cast<uint32_t>(en.ev(a).i);
    const Val l = en.ev(a->a);
    CellHold h(en, en.cells);
    const Val r = en.ev(a->b);
    return static_cast<uint32_t>(static_cast<uint64_t>(l.i) + static_cast<uint64_t>(r.i * a->v.i));
}

Val Engine::eval(Expr* e) {
    Val v;
    switch (e->op) {
        case Op::Const:
            return e->v;
        case Op::GVar:
            if (isAggregate(e->type)) return e->v;
            return load(data.data() + (e->v.i - kDataBase), e->type);
        case Op::LVar:
            if (isAggregate(e->type)) {
                v.i = fpv + e->v.i;
                return v;
            }
            return load(fp + e->v.i, e->type);
        case Op::Retype:
            return eval(e->a);
        case Op::Deref: {
            v.i = pointerValue(*this, e->a);
            if (isAggregate(e->type)) return v;  // checked where its bytes are used
            return load(host(static_cast<uint32_t>(v.i), e->type->size), e->type);
        }
        case Op::AddrOf:
            v.i = addrOf(e->a);
            return v;
        case Op::Member: {
            const uint32_t a = static_cast<uint32_t>(eval(e->a).i + e->v.i);
            if (isAggregate(e->type)) {
                v.i = a;
                return v;
            }
            return loadLv(e, host(a, e->type->size));
        }
        case Op::FuncAddr:
            v.i = e->fn ? kFuncAddrBase + 16u * static_cast<uint32_t>(e->fn->index) : 0;
            return v;
        case Op::Cast:
            return castKind(*this, eval(e->a), (e->opType ? e->opType : e->a->type)->kind, e->type->kind);
        case Op::Neg:
            v = eval(e->a);
            if (isFloating(e->type)) v.d = -v.d;
            else v.i = norm(e->type, static_cast<int64_t>(0 - static_cast<uint64_t>(v.i)));
            return v;
        case Op::BitNot:
            v = eval(e->a);
            v.i = norm(e->type, ~v.i);
            return v;
        case Op::Not:
            v.i = !truthOf(e->a, eval(e->a));
            return v;
        case Op::Add: case Op::Sub: case Op::Mul: case Op::Div: case Op::Mod: case Op::Shl: case Op::Shr:
        case Op::And: case Op::Or: case Op::Xor: case Op::Lt: case Op::Gt: case Op::Le: case Op::Ge:
        case Op::Eq: case Op::Ne: {
            const Val l = ev(e->a);
            Val r;
            {
                CellHold h(*this, cells);
                r = ev(e->b);
            }
            if (e->opType->kind == kTInt) {
                // The common case, without the general routine.
                const uint32_t a = static_cast<uint32_t>(l.i), b = static_cast<uint32_t>(r.i);
                switch (e->op) {
                    case Op::Add: v.i = static_cast<int32_t>(a + b); return v;
                    case Op::Sub: v.i = static_cast<int32_t>(a - b); return v;
                    case Op::Mul: v.i = static_cast<int32_t>(a * b); return v;
                    case Op::Lt: v.i = l.i < r.i; return v;
                    case Op::Gt: v.i = l.i > r.i; return v;
                    case Op::Le: v.i = l.i <= r.i; return v;
                    case Op::Ge: v.i = l.i >= r.i; return v;
                    case Op::Eq: v.i = l.i == r.i; return v;
                    case Op::Ne: v.i = l.i != r.i; return v;
                    default: break;
                }
            }
            return binopKind(*this, e->op, e->opType->kind, l, r);
        }
        case Op::PtrAdd: {
            const Val l = ev(e->a);
            CellHold h(*this, cells);
            const Val r = ev(e->b);
            v.i = static_cast<uint32_t>(static_cast<uint64_t>(l.i) + static_cast<uint64_t>(r.i * e->v.i));
            return v;
        }
        case Op::PtrDiff: {
            const Val l = eval(e->a);
            CellHold h(*this, cells);
            const Val r = eval(e->b);
            v.i = static_cast<int32_t>(static_cast<uint32_t>(l.i) - static_cast<uint32_t>(r.i)) / e->v.i;
            return v;
        }
        case Op::LAnd:
            v.i = truthOf(e->a, eval(e->a)) && truthOf(e->b, eval(e->b));
            return v;
        case Op::LOr:
            v.i = truthOf(e->a, eval(e->a)) || truthOf(e->b, eval(e->b));
            return v;
        case Op::Cond:
            return truthOf(e->a, eval(e->a)) ? eval(e->b) : eval(e->c);
        case Op::Comma:
            eval(e->a);
            return eval(e->b);
        case Op::Assign: {
            v = ev(e->b);
            CellHold h(*this, cells);
            uint8_t* p = lvalHost(e->a, e->type->size);
            if (e->a->bitWidth) return storeLv(e->a, p, v);
            store(p, e->type, v);
            return v;
        }
        case Op::AssignOp: {
            const Val r = ev(e->b);
            CellHold h(*this, cells);
            uint8_t* p = lvalHost(e->a, e->type->size);
            const Val old = loadLv(e->a, p);
            v = assignOpValue(*this, e->sub, e->type->kind, e->opType->kind, e->v.i, old, r);
            return storeLv(e->a, p, v);
        }
        case Op::CopyStruct: {
            const uint32_t src = static_cast<uint32_t>(eval(e->b).i);
            const uint32_t n = e->type->size;
            const uint32_t dst = addrOf(e->a);
            uint8_t* d = host(dst, n);
            std::memmove(d, host(src, n), n);
            v.i = dst;
            return v;
        }
        case Op::StrInit: {
            const std::string& s = ts.strings[static_cast<size_t>(e->v.i)];
            const uint32_t dst = addrOf(e->a);
            std::memcpy(host(dst, static_cast<uint32_t>(e->builtin)), s.c_str(), static_cast<size_t>(e->builtin));
            v.i = dst;
            return v;
        }
        case Op::PreInc:
        case Op::PostInc: {
            uint8_t* p = lvalHost(e->a, e->type->size);
            const Val old = loadLv(e->a, p);
            Val nv = incValue(e->type->kind, old, e->v);
            nv = storeLv(e->a, p, nv);
            return e->op == Op::PreInc ? nv : old;
        }
        case Op::Call:
            return call(e->fn, e);
        case Op::CallPtr: {
            const uint32_t a = static_cast<uint32_t>(eval(e->a).i);
            const uint32_t k = (a - kFuncAddrBase) / 16;
            if (a < kFuncAddrBase || (a - kFuncAddrBase) % 16 != 0 || k >= functions.size()) fail(kErrBadCall);
            Function* f = &functions[k];
            if (!f->defined) fail(kErrUndefinedFunction);
            return call(f, e);
        }
        case Op::Builtin:
            return callBuiltin(e);
        case Op::Setjmp: {
            const uint32_t buf = static_cast<uint32_t>(eval(e->a).i);
            uint8_t* p = host(buf, kJmpBufUsed);
            const uint32_t magic = kJmpMagic;
            const int64_t act = jmpTargets.empty() ? 0 : jmpTargets.back().first;
            const uint32_t index = jmpTargets.empty() ? 0 : static_cast<uint32_t>(jmpTargets.back().second);
            std::memcpy(p, &magic, 4);
            std::memcpy(p + 4, &act, 8);
            std::memcpy(p + 12, &index, 4);
            v.i = setjmpValue;
            setjmpValue = 0;
            return v;
        }
        case Op::Longjmp: {
            const uint32_t buf = static_cast<uint32_t>(eval(e->a).i);
            const uint8_t* p = host(buf, kJmpBufUsed);
            uint32_t magic = 0, index = 0;
            int64_t act = 0;
            std::memcpy(&magic, p, 4);
            std::memcpy(&act, p + 4, 8);
            std::memcpy(&index, p + 12, 4);
            bool alive = false;
            for (int64_t j : jmpActs) alive |= j == act;
            if (magic != kJmpMagic || act == 0 || !alive) fail(kErrLongjmp);
            const int val = static_cast<int>(eval(e->b).i);
            throw LongJump{act, index, val ? val : 1};
        }
        case Op::VaStart:
            v.i = fpv + curFn->frameSize;
            return v;
    }
    fail(kErrUnknown);
}

}  // namespace zol
