// Expressions into instructions. Operands are evaluated in the order the tree
// evaluator takes them, and the cells it would hold are counted alongside, so that
// errors, side effects and the cell limit come out the same either way.
#include <algorithm>

#include "script/compile.h"

namespace zol {
namespace {

constexpr int kVmChange[] = {
#define VM_OP(name, change, operands) change,
#include "script/opcodes.def"
#undef VM_OP
};

bool isInt32Kind(TypeKind k) { return k == kTInt || k == kTLong || k == kTUInt || k == kTULong || k == kTPtr; }
bool isByteKind(TypeKind k) { return k == kTChar || k == kTUChar; }

void emitConst(CodeGen& g, int64_t i) {
    emit(g, VmOp::Const);
    last(g).v.i = i;
}

void emitEval(CodeGen& g, Expr* e) {
    emit(g, VmOp::Eval);
    last(g).e = e;
    last(g).x = static_cast<uint16_t>(g.held);
}

void emitLoadLocal(CodeGen& g, TypeKind k, int64_t off) {
    const VmOp op = k == kTInt || k == kTLong ? VmOp::LoadLocalI32
                    : k == kTUInt || k == kTULong || k == kTPtr ? VmOp::LoadLocalU32
                                                                : VmOp::LoadLocal;
    emit(g, op);
    last(g).k = k;
    last(g).a = static_cast<int32_t>(off);
}

// The address of an l-value (Engine::addrOf); false for a form it does not know.
bool emitAddress(CodeGen& g, Expr* lv) {
    switch (lv->op) {
        case Op::GVar:
        case Op::Const:
            emitConst(g, static_cast<uint32_t>(lv->v.i));
            return true;
        case Op::LVar:
            emit(g, VmOp::AddrLocal);
            last(g).a = static_cast<int32_t>(lv->v.i);
            return true;
        case Op::Deref:
            emitExpr(g, lv->a);
            return true;
        case Op::Member:
            emitExpr(g, lv->a);
            emit(g, VmOp::Offset);
            last(g).v.i = lv->v.i;
            return true;
        default:
            return false;
    }
}

bool intLocal(const Expr* e) { return e->op == Op::LVar && e->type->kind == kTInt && e->v.i <= 0xffff; }

// p[i] with p a local pointer and i an int local: both read by the one instruction.
bool localByteIndex(const Expr* lv) {
    const Expr* p = lv->a->a;
    return p->op == Op::LVar && p->type->kind == kTPtr && p->v.i <= 0xffff && intLocal(lv->a->b);
}

bool directLvalue(const Expr* lv) { return lv->op == Op::LVar || lv->op == Op::GVar; }
bool knownLvalue(const Expr* lv) { return !lv->bitWidth && (directLvalue(lv) || lv->op == Op::Deref || lv->op == Op::Member); }

// p[i] on bytes: the pointer and the index taken in one step.
bool byteIndex(const Expr* lv) {
    return lv->op == Op::Deref && isByteKind(lv->type->kind) && lv->a->op == Op::PtrAdd && lv->a->v.i == 1;
}

// The value on the stack stored into lv; dup keeps it there as the result.
void emitStore(CodeGen& g, Expr* lv, bool dup) {
    const TypeKind k = lv->type->kind;
    if (dup) emit(g, VmOp::Dup);
    // The tree evaluator holds the value while it finds where it goes.
    hold(g, 1);
    hold(g, -1);
    if (lv->op == Op::LVar) {
        emit(g, isInt32Kind(k) ? VmOp::StoreLocal32 : VmOp::StoreLocal);
        last(g).k = k;
        last(g).a = static_cast<int32_t>(lv->v.i);
        return;
    }
    if (lv->op == Op::GVar) {
        emit(g, VmOp::StoreGlobal);
        last(g).k = k;
        last(g).a = static_cast<int32_t>(lv->v.i - kDataBase);
        return;
    }
    hold(g, 1);
    if (byteIndex(lv) && localByteIndex(lv)) {
        hold(g, 1);
        hold(g, -1);
        // A constant stored needs no operand: the one instruction replaces its push.
        const bool constant = !dup && !g.code.ins.empty() && g.code.ins.back().op == VmOp::Const && g.target != g.code.ins.size();
        if (constant) {
            const Val v = g.code.ins.back().v;
            g.code.ins.pop_back();
            --g.depth;
            emit(g, VmOp::StoreConstLocalIndex8);
            last(g).v = v;
        } else {
            emit(g, VmOp::StoreLocalIndex8);
        }
        last(g).x = static_cast<uint16_t>(lv->a->a->v.i);
        last(g).a = static_cast<int32_t>(lv->a->b->v.i);
    } else if (byteIndex(lv)) {
        emitExpr(g, lv->a->a);
        hold(g, 1);
        emitExpr(g, lv->a->b);
        hold(g, -1);
        emit(g, VmOp::StoreIndex8);
    } else {
        emitAddress(g, lv);
        emit(g, isByteKind(k) ? VmOp::Store8 : VmOp::Store);
        last(g).k = k;
    }
    hold(g, -1);
}

void emitAssignOp(CodeGen& g, Expr* e) {
    emitExpr(g, e->b);
    hold(g, 1);
    const VmOp op = e->a->op == Op::LVar ? VmOp::AssignOpLocal : e->a->op == Op::GVar ? VmOp::AssignOpGlobal : VmOp::AssignOp;
    if (op == VmOp::AssignOp) emitAddress(g, e->a);
    hold(g, -1);
    emit(g, op);
    Ins& in = last(g);
    in.k = e->type->kind;
    in.x = static_cast<uint16_t>(static_cast<unsigned>(e->sub) | static_cast<unsigned>(e->opType->kind) << 8);
    in.v.i = e->v.i;
    in.a = static_cast<int32_t>(e->a->op == Op::GVar ? e->a->v.i - kDataBase : e->a->v.i);
}

void emitInc(CodeGen& g, Expr* e) {
    const VmOp op = e->a->op == Op::LVar ? VmOp::IncLocal : e->a->op == Op::GVar ? VmOp::IncGlobal : VmOp::Inc;
    if (op == VmOp::Inc) emitAddress(g, e->a);
    emit(g, op);
    Ins& in = last(g);
    in.k = e->type->kind;
    in.x = e->op == Op::PostInc;
    in.v = e->v;
    in.a = static_cast<int32_t>(e->a->op == Op::GVar ? e->a->v.i - kDataBase : e->a->v.i);
}

// Arguments as the tree evaluator takes them: each one held while the next is evaluated.
void emitArgs(CodeGen& g, Expr* e) {
    for (Expr* a : e->args) {
        emitExpr(g, a);
        hold(g, 1);
    }
    hold(g, -static_cast<int>(e->args.size()));
}

// A call that passes exactly the parameters, none of them or the result a struct.
bool plainCall(const Expr* e) {
    const Type* t = e->fn->type;
    if (e->args.size() != t->params.size() || t->base->kind == kTStruct || e->temp) return false;
    for (const Type* p : t->params)
        if (p->kind == kTStruct) return false;
    return true;
}

void emitCall(CodeGen& g, Expr* e) {
    if (e->op == Op::Call) {
        if (!e->fn->compiled) {
            emit(g, VmOp::Prepare);
            last(g).f = e->fn;
        }
        emitArgs(g, e);
        if (plainCall(e)) {
            emit(g, VmOp::CallDirect);
            last(g).c = &codeOf(*g.en.program, e->fn);
        } else {
            emit(g, VmOp::Call);
            last(g).e = e;
        }
    } else {
        emitExpr(g, e->a);
        emit(g, VmOp::Resolve);
        emitArgs(g, e);
        emit(g, VmOp::CallPtr);
        last(g).e = e;
    }
    last(g).x = static_cast<uint16_t>(g.held);
    last(g).a = static_cast<int32_t>(e->args.size());
    g.depth -= static_cast<int>(e->args.size());
    if (e->temp) g.code.framed = true;
}

void emitBinary(CodeGen& g, Expr* e) {
    if ((e->op == Op::Add || e->op == Op::Sub) && e->opType->kind == kTInt && e->b->op == Op::Const) {
        const bool local = intLocal(e->a);
        if (!local) emitExpr(g, e->a);
        hold(g, 1);
        hold(g, -1);
        emit(g, local ? VmOp::LoadLocalAddI32 : VmOp::AddConstI32);
        last(g).v.i = e->op == Op::Add ? e->b->v.i : -e->b->v.i;
        if (local) last(g).a = static_cast<int32_t>(e->a->v.i);
        return;
    }
    emitExpr(g, e->a);
    hold(g, 1);
    emitExpr(g, e->b);
    hold(g, -1);
    if (e->op == Op::PtrAdd || e->op == Op::PtrDiff) {
        emit(g, e->op == Op::PtrAdd ? VmOp::PtrAdd : VmOp::PtrDiff);
        last(g).v.i = e->v.i;
        return;
    }
    if (e->opType->kind == kTInt) {
        switch (e->op) {
            case Op::Add: emit(g, VmOp::AddI32); return;
            case Op::Sub: emit(g, VmOp::SubI32); return;
            case Op::Mul: emit(g, VmOp::MulI32); return;
            case Op::Lt: emit(g, VmOp::LtI32); return;
            case Op::Gt: emit(g, VmOp::GtI32); return;
            case Op::Le: emit(g, VmOp::LeI32); return;
            case Op::Ge: emit(g, VmOp::GeI32); return;
            case Op::Eq: emit(g, VmOp::EqI32); return;
            case Op::Ne: emit(g, VmOp::NeI32); return;
            default: break;
        }
    }
    emit(g, VmOp::Binary);
    last(g).x = static_cast<uint16_t>(e->op);
    last(g).k = e->opType->kind;
}

// a && b, a || b: 0 or 1, b evaluated only when a does not decide.
void emitLogical(CodeGen& g, Expr* e) {
    const bool isAnd = e->op == Op::LAnd;
    const size_t decided = emitJumpIf(g, e->a, !isAnd);
    emitExpr(g, e->b);
    emit(g, isFloating(e->b->type) ? VmOp::ToBoolF : VmOp::ToBool);
    const size_t end = emit(g, VmOp::Jump);
    --g.depth;
    patch(g, decided, here(g));
    emitConst(g, isAnd ? 0 : 1);
    patch(g, end, here(g));
}

void emitConditional(CodeGen& g, Expr* e) {
    const size_t other = emitJumpIf(g, e->a, false);
    emitExpr(g, e->b);
    const size_t end = emit(g, VmOp::Jump);
    --g.depth;
    patch(g, other, here(g));
    emitExpr(g, e->c);
    patch(g, end, here(g));
}

}  // namespace

void emitExpr(CodeGen& g, Expr* e) {
    if (e->depth > kVmInlineDepth) return emitEval(g, e);
    const bool aggregate = e->type && isAggregate(e->type);
    switch (e->op) {
        case Op::Const:
            emit(g, VmOp::Const);
            last(g).v = e->v;
            return;
        case Op::LVar:
            if (aggregate) {
                emit(g, VmOp::AddrLocal);
                last(g).a = static_cast<int32_t>(e->v.i);
            } else {
                emitLoadLocal(g, e->type->kind, e->v.i);
            }
            return;
        case Op::GVar:
            if (aggregate) return emitConst(g, e->v.i);
            emit(g, VmOp::LoadGlobal);
            last(g).k = e->type->kind;
            last(g).a = static_cast<int32_t>(e->v.i - kDataBase);
            return;
        case Op::Retype:
            return emitExpr(g, e->a);
        case Op::Deref:
            if (aggregate) return emitExpr(g, e->a);
            if (byteIndex(e) && e->type->kind == kTChar && localByteIndex(e)) {
                hold(g, 1);
                hold(g, -1);
                emit(g, VmOp::LoadLocalIndexI8);
                last(g).x = static_cast<uint16_t>(e->a->a->v.i);
                last(g).a = static_cast<int32_t>(e->a->b->v.i);
                return;
            }
            if (byteIndex(e) && e->type->kind == kTChar) {
                emitExpr(g, e->a->a);
                hold(g, 1);
                emitExpr(g, e->a->b);
                hold(g, -1);
                emit(g, VmOp::LoadIndexI8);
                return;
            }
            emitExpr(g, e->a);
            emit(g, e->type->kind == kTChar ? VmOp::LoadI8 : VmOp::Load);
            last(g).k = e->type->kind;
            return;
        case Op::AddrOf:
            if (!emitAddress(g, e->a)) emitEval(g, e);
            return;
        case Op::Member:
            if (e->bitWidth) return emitEval(g, e);
            emitExpr(g, e->a);
            emit(g, VmOp::Offset);
            last(g).v.i = e->v.i;
            if (!aggregate) {
                emit(g, VmOp::Load);
                last(g).k = e->type->kind;
            }
            return;
        case Op::FuncAddr:
            return emitConst(g, e->fn ? kFuncAddrBase + 16u * static_cast<uint32_t>(e->fn->index) : 0);
        case Op::Cast:
            emitExpr(g, e->a);
            if (e->type->kind == kTVoid) return;
            emit(g, VmOp::Cast);
            last(g).k = (e->opType ? e->opType : e->a->type)->kind;
            last(g).x = e->type->kind;
            return;
        case Op::Neg:
        case Op::BitNot:
            emitExpr(g, e->a);
            emit(g, e->op == Op::Neg ? VmOp::Neg : VmOp::BitNot);
            last(g).k = e->type->kind;
            return;
        case Op::Not:
            emitExpr(g, e->a);
            emit(g, isFloating(e->a->type) ? VmOp::NotF : VmOp::Not);
            return;
        case Op::Add: case Op::Sub: case Op::Mul: case Op::Div: case Op::Mod: case Op::Shl: case Op::Shr:
        case Op::And: case Op::Or: case Op::Xor: case Op::Lt: case Op::Gt: case Op::Le: case Op::Ge:
        case Op::Eq: case Op::Ne: case Op::PtrAdd: case Op::PtrDiff:
            return emitBinary(g, e);
        case Op::LAnd:
        case Op::LOr:
            return emitLogical(g, e);
        case Op::Cond:
            return emitConditional(g, e);
        case Op::Comma:
            emitDiscard(g, e->a);
            return emitExpr(g, e->b);
        case Op::Assign:
            if (!knownLvalue(e->a)) return emitEval(g, e);
            emitExpr(g, e->b);
            return emitStore(g, e->a, true);
        case Op::AssignOp:
            if (!knownLvalue(e->a)) return emitEval(g, e);
            return emitAssignOp(g, e);
        case Op::PreInc:
        case Op::PostInc:
            if (!knownLvalue(e->a)) return emitEval(g, e);
            return emitInc(g, e);
        case Op::CopyStruct:
            // The source's address first, then the target's, with no cell held between.
            if (!knownLvalue(e->a)) return emitEval(g, e);
            emitExpr(g, e->b);
            emitAddress(g, e->a);
            emit(g, VmOp::CopyStruct);
            last(g).v.i = e->type->size;
            return;
        case Op::Call:
        case Op::CallPtr:
            return emitCall(g, e);
        case Op::Builtin:
            emitArgs(g, e);
            emit(g, VmOp::Builtin);
            last(g).e = e;
            last(g).x = static_cast<uint16_t>(g.held);
            last(g).a = static_cast<int32_t>(e->args.size());
            g.depth -= static_cast<int>(e->args.size());
            return;
        default:
            // String initialisers, setjmp, longjmp and the variable argument start:
            // the tree evaluator's own.
            return emitEval(g, e);
    }
}

void emitDiscard(CodeGen& g, Expr* e) {
    const bool changes = e->op == Op::Assign || e->op == Op::AssignOp || e->op == Op::PreInc || e->op == Op::PostInc;
    if (changes && e->depth <= kVmInlineDepth && knownLvalue(e->a)) {
        const bool toIntLocal = e->a->op == Op::LVar && e->a->type->kind == kTInt;
        const bool to32Local = e->a->op == Op::LVar && isInt32Kind(e->a->type->kind);
        if (e->op == Op::Assign) {
            emitExpr(g, e->b);
            return emitStore(g, e->a, false);
        }
        if (e->op == Op::AssignOp && toIntLocal && e->sub == Op::Add && e->opType->kind == kTInt) {
            const bool fromLocal = intLocal(e->b);
            if (!fromLocal) emitExpr(g, e->b);
            hold(g, 1);
            hold(g, -1);
            emit(g, fromLocal ? VmOp::AddLocalLocalI32 : VmOp::AddLocalI32);
            last(g).a = static_cast<int32_t>(e->a->v.i);
            if (fromLocal) last(g).x = static_cast<uint16_t>(e->b->v.i);
            return;
        }
        if (e->op != Op::AssignOp && to32Local) {
            emit(g, VmOp::IncLocalI32);
            last(g).a = static_cast<int32_t>(e->a->v.i);
            last(g).v = e->v;
            return;
        }
    }
    emitExpr(g, e);
    emit(g, VmOp::Pop);
}

// An int local against a constant or another int local, in one instruction that jumps
// on the outcome wanted; Gt and Ge are Le and Lt with the outcome turned round.
VmOp localCompareJump(const Expr* e, bool truth) {
    if (e->op != Op::Lt && e->op != Op::Le && e->op != Op::Gt && e->op != Op::Ge) return VmOp::End;
    const bool localRight = e->b->op == Op::LVar;
    if (e->opType->kind != kTInt || !intLocal(e->a) || (!localRight && e->b->op != Op::Const) ||
        (localRight && !intLocal(e->b)))
        return VmOp::End;
    switch (e->op) {
        case Op::Lt: return truth ? VmOp::JumpIfLtI32 : VmOp::JumpUnlessLtI32;
        case Op::Le: return truth ? VmOp::JumpIfLeI32 : VmOp::JumpUnlessLeI32;
        case Op::Gt: return truth ? VmOp::JumpUnlessLeI32 : VmOp::JumpIfLeI32;
        case Op::Ge: return truth ? VmOp::JumpUnlessLtI32 : VmOp::JumpIfLtI32;
        default: return VmOp::End;
    }
}

VmOp constantCompareJump(VmOp op) {
    switch (op) {
        case VmOp::JumpIfLtI32: return VmOp::JumpIfLtI32K;
        case VmOp::JumpIfLeI32: return VmOp::JumpIfLeI32K;
        case VmOp::JumpUnlessLtI32: return VmOp::JumpUnlessLtI32K;
        default: return VmOp::JumpUnlessLeI32K;
    }
}

size_t emitJumpIf(CodeGen& g, Expr* e, bool truth, bool tick) {
    const VmOp fused = e->depth <= kVmInlineDepth ? localCompareJump(e, truth) : VmOp::End;
    if (fused != VmOp::End) {
        hold(g, 1);
        hold(g, -1);
        const bool constant = !tick && e->b->op == Op::Const;
        const size_t j = emit(g, constant ? constantCompareJump(fused) : fused);
        Ins& in = last(g);
        in.x = static_cast<uint16_t>(e->a->v.i);
        in.v.i = e->b->v.i;
        in.k = static_cast<uint8_t>((tick ? 1 : 0) | (e->b->op == Op::LVar ? 2 : 0));
        return j;
    }
    if (tick) emit(g, VmOp::Tick);
    emitExpr(g, e);
    const bool f = isFloating(e->type);
    return emit(g, truth ? (f ? VmOp::JumpIfNonZeroF : VmOp::JumpIfNonZero) : (f ? VmOp::JumpIfZeroF : VmOp::JumpIfZero));
}

size_t emit(CodeGen& g, VmOp op) {
    if (op == VmOp::AddrLocal || op == VmOp::Eval || op == VmOp::Exec) g.code.framed = true;
    g.code.ins.emplace_back().op = op;
    g.depth += kVmChange[static_cast<size_t>(op)];
    g.maxDepth = std::max(g.maxDepth, g.depth);
    return g.code.ins.size() - 1;
}

Ins& last(CodeGen& g) { return g.code.ins.back(); }

size_t here(CodeGen& g) {
    g.target = g.code.ins.size();
    return g.target;
}

void patch(CodeGen& g, size_t jump, size_t to) { g.code.ins[jump].a = static_cast<int32_t>(to); }

void hold(CodeGen& g, int n) {
    g.held += n;
    g.code.maxHeld = std::max(g.code.maxHeld, g.held);
}

}  // namespace zol
