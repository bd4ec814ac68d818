// The usual C arithmetic on the interpreter's values, by type kind: shared by the tree
// evaluator and the compiled code so that both compute alike.
#pragma once
#include <cmath>
#include <cstdint>

#include "script/interp.h"

namespace zol {

inline bool kindFloating(TypeKind k) { return k == kTFloat || k == kTDouble; }
inline bool kindUnsigned(TypeKind k) {
    return k == kTUChar || k == kTUShort || k == kTUInt || k == kTULong || k == kTULLong || k == kTPtr;
}

// v cut to the width of kind k and extended again by its sign.
inline int64_t normKind(TypeKind k, int64_t v) {
    switch (k) {
        case kTChar: return static_cast<int8_t>(v);
        case kTUChar: return static_cast<uint8_t>(v);
        case kTShort: return static_cast<int16_t>(v);
        case kTUShort: return static_cast<uint16_t>(v);
        case kTInt: case kTLong: return static_cast<int32_t>(v);
        case kTUInt: case kTULong: case kTPtr: return static_cast<uint32_t>(v);
        default: return v;
    }
}

inline Val castKind(Engine& en, Val v, TypeKind from, TypeKind to) {
    Val r;
    if (to == kTVoid) return v;
    if (kindFloating(to)) {
        if (kindFloating(from)) r.d = v.d;
        else if (from == kTULLong) r.d = static_cast<double>(static_cast<uint64_t>(v.i));
        else r.d = static_cast<double>(v.i);
        if (to == kTFloat) r.d = static_cast<float>(r.d);
        return r;
    }
    if (kindFloating(from)) {
        const double d = std::trunc(v.d);
        if (!(d > -9.3e18 && d < 1.8e19)) en.fail(kErrFloat);
        if (d >= 9.2e18) r.i = static_cast<int64_t>(static_cast<uint64_t>(d));
        else r.i = static_cast<int64_t>(d);
        r.i = normKind(to, r.i);
        return r;
    }
    r.i = normKind(to, v.i);
    return r;
}

inline Val binopKind(Engine& en, Op op, TypeKind t, Val l, Val r) {
    Val v;
    if (kindFloating(t)) {
        switch (op) {
            case Op::Add: v.d = l.d + r.d; break;
            case Op::Sub: v.d = l.d - r.d; break;
            case Op::Mul: v.d = l.d * r.d; break;
            case Op::Div:
                if (r.d == 0) en.fail(kErrFloat);
                v.d = l.d / r.d;
                break;
            case Op::Lt: v.i = l.d < r.d; return v;
            case Op::Gt: v.i = l.d > r.d; return v;
            case Op::Le: v.i = l.d <= r.d; return v;
            case Op::Ge: v.i = l.d >= r.d; return v;
            case Op::Eq: v.i = l.d == r.d; return v;
            case Op::Ne: v.i = l.d != r.d; return v;
            default: en.fail(kErrNotNumeric);
        }
        if (t == kTFloat) v.d = static_cast<float>(v.d);
        return v;
    }
    const uint64_t a = static_cast<uint64_t>(l.i), b = static_cast<uint64_t>(r.i);
    const bool u64 = t == kTULLong;
    switch (op) {
        case Op::Add: v.i = static_cast<int64_t>(a + b); break;
        case Op::Sub: v.i = static_cast<int64_t>(a - b); break;
        case Op::Mul: v.i = static_cast<int64_t>(a * b); break;
        case Op::Div:
        case Op::Mod:
            if (r.i == 0) en.fail(kErrDivZero);
            if (u64) v.i = static_cast<int64_t>(op == Op::Div ? a / b : a % b);
            else if (l.i == INT64_MIN && r.i == -1) v.i = op == Op::Div ? l.i : 0;
            else v.i = op == Op::Div ? l.i / r.i : l.i % r.i;
            break;
        case Op::Shl: v.i = static_cast<int64_t>(a << (b & 63)); break;
        case Op::Shr:
            v.i = u64 || kindUnsigned(t) ? static_cast<int64_t>((u64 ? a : static_cast<uint64_t>(normKind(t, l.i))) >> (b & 63))
                                         : (l.i >> (b & 63));
            break;
        case Op::And: v.i = l.i & r.i; break;
        case Op::Or: v.i = l.i | r.i; break;
        case Op::Xor: v.i = l.i ^ r.i; break;
        case Op::Lt: v.i = u64 ? a < b : l.i < r.i; return v;
        case Op::Gt: v.i = u64 ? a > b : l.i > r.i; return v;
        case Op::Le: v.i = u64 ? a <= b : l.i <= r.i; return v;
        case Op::Ge: v.i = u64 ? a >= b : l.i >= r.i; return v;
        case Op::Eq: v.i = l.i == r.i; return v;
        case Op::Ne: v.i = l.i != r.i; return v;
        default: en.fail(kErrExpression);
    }
    v.i = normKind(t, v.i);
    return v;
}

// The value an assignment operator stores: old op r, computed in the operand kind and
// converted back; a pointer moves by r elements of scale bytes.
inline Val assignOpValue(Engine& en, Op sub, TypeKind lk, TypeKind opk, int64_t scale, Val old, Val r) {
    Val v;
    if (sub == Op::PtrAdd) {
        v.i = static_cast<uint32_t>(static_cast<uint64_t>(old.i) + static_cast<uint64_t>(r.i * scale));
    } else if (lk == kTInt && opk == kTInt && (sub == Op::Add || sub == Op::Sub)) {
        const uint32_t a = static_cast<uint32_t>(old.i), b = static_cast<uint32_t>(r.i);
        v.i = static_cast<int32_t>(sub == Op::Add ? a + b : a - b);
    } else {
        v = castKind(en, binopKind(en, sub, opk, castKind(en, old, lk, opk), r), opk, lk);
    }
    return v;
}

// The new value of ++ and --: step added in the l-value's kind.
inline Val incValue(TypeKind k, Val old, Val step) {
    Val nv;
    if (kindFloating(k)) {
        nv.d = old.d + step.d;
        if (k == kTFloat) nv.d = static_cast<float>(nv.d);
    } else {
        nv.i = normKind(k, static_cast<int64_t>(static_cast<uint64_t>(old.i) + static_cast<uint64_t>(step.i)));
    }
    return nv;
}

}  // namespace zol
