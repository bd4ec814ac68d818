// Expressions: parsed once into typed trees, with the usual C conversions made explicit
// as Cast nodes and constant operands folded.
#include <cstring>

#include "script/builtin_table.h"
#include "script/builtins.h"
#include "script/interp.h"
#include "script/tokens.h"

namespace zol {

Expr* Engine::newExpr(Op op, const Type* t) {
    Expr& e = exprStore.emplace_back();
    e.op = op;
    e.type = t;
    const Token& k = ts.toks[pos < ts.toks.size() ? pos : ts.toks.size() - 1];
    e.file = k.file;
    e.line = k.line;
    return &e;
}

namespace {

bool allConst(const Expr* a, const Expr* b = nullptr) {
    return a && a->op == Op::Const && isScalar(a->type) && (!b || (b->op == Op::Const && isScalar(b->type)));
}

}  // namespace

bool Engine::isLvalue(const Expr* e) const {
    return e->op == Op::GVar || e->op == Op::LVar || e->op == Op::Deref ||
           (e->op == Op::Member && (isLvalue(e->a) || e->a->type->kind != kTStruct || e->a->op == Op::Deref));
}

// Folds a node whose operands are all constants.
static Expr* fold(Engine& en, Expr* e) {
    // An error while folding (1 / 0) is reported where the expression stands. Functions
    // are compiled at their first call, so the caller's position is put back after.
    const int file = en.curFile, line = en.curLine;
    en.curFile = e->file;
    en.curLine = e->line;
    Val v = en.eval(e);
    en.curFile = file;
    en.curLine = line;
    e->op = Op::Const;
    e->a = e->b = e->c = nullptr;
    e->v = v;
    return e;
}

Expr* Engine::rvalue(Expr* e) {
    if (e->type->kind == kTArray) {
        Expr* r = newExpr(Op::Retype, ptrTo(e->type->base));
        r->a = e;
        return sized(r);
    }
    if (e->type->kind == kTFunc) {
        Expr* r = newExpr(Op::Retype, ptrTo(e->type));
        r->a = e;
        return sized(r);
    }
    return e;
}

Expr* Engine::convert(Expr* e, const Type* t) {
    e = rvalue(e);
    const Type* f = e->type;
    if (f == t) return e;
    if (t->kind == kTStruct || f->kind == kTStruct) {
        if (t->kind == kTStruct && f->kind == kTStruct && t->rec == f->rec) return e;
        failAt(kErrIncompatible);
    }
    if (t->kind == kTVoid) {
        Expr* c = newExpr(Op::Cast, t);
        c->a = e;
        return sized(c);
    }
    if (f->kind == kTVoid) failAt(kErrVoidPointer);
    if (!isScalar(f) || !isScalar(t)) failAt(kErrIncompatible);
    if (isPtr(f) && isPtr(t)) {
        Expr* r = newExpr(Op::Retype, t);
        r->a = e;
        return sized(r);
    }
    if (isFloating(f) && isPtr(t)) failAt(kErrIllegalPointer);
    if (isPtr(f) && isFloating(t)) failAt(kErrIllegalPointer);
    if (f->kind == t->kind) {
        Expr* r = newExpr(Op::Retype, t);
        r->a = e;
        return sized(r);
    }
    Expr* c = newExpr(Op::Cast, t);
    c->a = e;
    c->opType = f;
    if (e->op == Op::Const) return fold(*this, c);
    return sized(c);
}

Expr* Engine::arith(Op op, Expr* l, Expr* r) {
    l = rvalue(l);
    r = rvalue(r);
    const Type* lt = l->type;
    const Type* rt = r->type;
    Expr* e = nullptr;
    switch (op) {
        case Op::Add:
        case Op::Sub:
            if (isPtr(lt) && isInteger(rt)) {
                e = newExpr(Op::PtrAdd, lt);
                const Type* el = lt->base;
                if (el->kind == kTVoid || el->kind == kTFunc) e->v.i = 1;
                else if (el->size == 0) failAt(kErrUndefinedStruct);
                else e->v.i = el->size;
                if (op == Op::Sub) e->v.i = -e->v.i;
                e->a = l;
                e->b = convert(r, rt->size > 4 ? tLLong : tInt);
                break;
            }
            if (op == Op::Add && isInteger(lt) && isPtr(rt)) return arith(Op::Add, r, l);
            if (op == Op::Sub && isPtr(lt) && isPtr(rt)) {
                e = newExpr(Op::PtrDiff, tInt);
                e->v.i = lt->base->size ? lt->base->size : 1;
                e->a = l;
                e->b = r;
                return sized(e);
            }
            [[fallthrough]];
        case Op::Mul:
        case Op::Div:
            if (!isArith(lt) || !isArith(rt)) failAt(isPtr(lt) || isPtr(rt) ? kErrIllegalPointer : kErrNotNumeric);
            e = newExpr(op, commonType(lt, rt));
            e->opType = e->type;
            e->a = convert(l, e->type);
            e->b = convert(r, e->type);
            break;
        case Op::Mod:
        case Op::And:
        case Op::Or:
        case Op::Xor:
            if (!isInteger(lt) || !isInteger(rt)) failAt(kErrIntegerRequired);
            e = newExpr(op, commonType(lt, rt));
            e->opType = e->type;
            e->a = convert(l, e->type);
            e->b = convert(r, e->type);
            break;
        case Op::Shl:
        case Op::Shr:
            if (!isInteger(lt) || !isInteger(rt)) failAt(kErrIntegerRequired);
            e = newExpr(op, promote(lt));
            e->opType = e->type;
            e->a = convert(l, e->type);
            e->b = convert(r, tInt);
            break;
        case Op::Lt: case Op::Gt: case Op::Le: case Op::Ge: case Op::Eq: case Op::Ne:
            e = newExpr(op, tInt);
            if (isArith(lt) && isArith(rt)) {
                e->opType = commonType(lt, rt);
            } else if ((isPtr(lt) || isInteger(lt)) && (isPtr(rt) || isInteger(rt))) {
                e->opType = tUInt;
            } else {
                failAt(isPtr(lt) || isPtr(rt) ? kErrPointerCompare : kErrNotNumeric);
            }
            e->a = convert(l, e->opType);
            e->b = convert(r, e->opType);
            break;
        case Op::LAnd:
        case Op::LOr:
            if (!isScalar(lt) || !isScalar(rt)) failAt(kErrNotNumeric);
            e = newExpr(op, tInt);
            e->a = l;
            e->b = r;
            break;
        default:
            failAt(kErrExpression);
    }
    if (allConst(e->a, e->b)) return fold(*this, e);
    return sized(e);
}

Expr* Engine::makeAssign(Expr* l, Expr* r) {
    if (!isLvalue(l) || l->type->kind == kTArray || l->type->kind == kTFunc) failAt(kErrNeedLvalue);
    if (l->type->kind == kTStruct) {
        r = rvalue(r);
        if (r->type->kind != kTStruct || r->type->rec != l->type->rec) failAt(kErrIncompatible);
        Expr* e = newExpr(Op::CopyStruct, l->type);
        e->a = l;
        e->b = r;
        return sized(e);
    }
    Expr* e = newExpr(Op::Assign, l->type);
    e->a = l;
    e->b = convert(r, l->type);
    return sized(e);
}

// expression: assignment-expression { "," assignment-expression }
Expr* Engine::expr() {
    Expr* e = assignExpr();
    while (accept(',')) {
        Expr* r = assignExpr();
        Expr* c = newExpr(Op::Comma, rvalue(r)->type);
        c->a = e;
        c->b = rvalue(r);
        e = sized(c);
    }
    return e;
}

// assignment-expression: conditional-expression [ assignment-operator assignment-expression ]
Expr* Engine::assignExpr() {
    Expr* l = condExpr();
    const uint8_t c = tok().code;
    Expr* result = l;
    if (++nesting > kMaxNesting) failAt(kErrStackOverflow);
    if (c == '=') {
        ++pos;
        result = makeAssign(l, assignExpr());
    } else if (c & kTokAssignBit) {
        const uint8_t base = c & 0x7f;
        Op op;
        switch (base) {
            case '+': op = Op::Add; break;
            case '-': op = Op::Sub; break;
            case '*': op = Op::Mul; break;
            case '/': op = Op::Div; break;
            case '%': op = Op::Mod; break;
            case '&': op = Op::And; break;
            case '|': op = Op::Or; break;
            case '^': op = Op::Xor; break;
            case kTokShl: op = Op::Shl; break;
            case kTokShr: op = Op::Shr; break;
            default: failAt(kErrSyntax);
        }
        ++pos;
        if (!isLvalue(l) || !isScalar(l->type)) failAt(kErrNeedLvalue);
        Expr* r = rvalue(assignExpr());
        Expr* e = newExpr(Op::AssignOp, l->type);
        e->a = l;
        e->sub = op;
        if (isPtr(l->type)) {
            if ((op != Op::Add && op != Op::Sub) || !isInteger(r->type)) failAt(kErrIllegalPointer);
            e->sub = Op::PtrAdd;
            e->v.i = l->type->base->size ? l->type->base->size : 1;
            if (op == Op::Sub) e->v.i = -e->v.i;
            e->b = convert(r, tInt);
            e->opType = l->type;
        } else {
            if (!isArith(r->type)) failAt(kErrNotNumeric);
            const bool intOnly = op == Op::Mod || op == Op::And || op == Op::Or || op == Op::Xor || op == Op::Shl || op == Op::Shr;
            if (intOnly && (!isInteger(l->type) || !isInteger(r->type))) failAt(kErrIntegerRequired);
            e->opType = (op == Op::Shl || op == Op::Shr) ? promote(l->type) : commonType(l->type, r->type);
            e->b = convert(r, (op == Op::Shl || op == Op::Shr) ? tInt : e->opType);
        }
        result = sized(e);
    }
    --nesting;
    return result;
}

// conditional-expression: binary-expression(1) [ "?" expression ":" conditional-expression ]
Expr* Engine::condExpr() {
    Expr* c = binaryExpr(1);
    if (!accept('?')) return c;
    c = rvalue(c);
    if (!isScalar(c->type)) failAt(kErrNotNumeric);
    if (++nesting > kMaxNesting) failAt(kErrStackOverflow);
    Expr* a = rvalue(expr());
    if (!accept(':')) failAt(kErrCondColon);
    Expr* b = rvalue(condExpr());
    --nesting;
    const Type* t;
    if (isArith(a->type) && isArith(b->type)) t = commonType(a->type, b->type);
    else if (isPtr(a->type) && isPtr(b->type)) t = a->type->base->kind == kTVoid ? b->type : a->type;
    else if (isPtr(a->type) && isInteger(b->type)) t = a->type;
    else if (isInteger(a->type) && isPtr(b->type)) t = b->type;
    else if (a->type->kind == kTStruct && b->type->kind == kTStruct && a->type->rec == b->type->rec) t = a->type;
    else if (a->type->kind == kTVoid || b->type->kind == kTVoid) t = tVoid;
    else failAt(kErrIncompatible);
    Expr* e = newExpr(Op::Cond, t);
    e->a = c;
    e->b = t->kind == kTVoid || t->kind == kTStruct ? a : convert(a, t);
    e->c = t->kind == kTVoid || t->kind == kTStruct ? b : convert(b, t);
    return sized(e);
}

// binary-expression(p): unary-expression { operator-of-precedence-q>=p binary-expression(q+1) }
Expr* Engine::binaryExpr(int prec) {
    Expr* l = unaryExpr();
    for (;;) {
        const uint8_t c = tok().code;
        int p;
        Op op;
        switch (c) {
            case kTokOrOr: p = 1; op = Op::LOr; break;
            case kTokAndAnd: p = 2; op = Op::LAnd; break;
            case '|': p = 3; op = Op::Or; break;
            case '^': p = 4; op = Op::Xor; break;
            case '&': p = 5; op = Op::And; break;
            case kTokEq: p = 6; op = Op::Eq; break;
            case kTokNe: p = 6; op = Op::Ne; break;
            case '<': p = 7; op = Op::Lt; break;
            case '>': p = 7; op = Op::Gt; break;
            case kTokLe: p = 7; op = Op::Le; break;
            case kTokGe: p = 7; op = Op::Ge; break;
            case kTokShl: p = 8; op = Op::Shl; break;
            case kTokShr: p = 8; op = Op::Shr; break;
            case '+': p = 9; op = Op::Add; break;
            case '-': p = 9; op = Op::Sub; break;
            case '*': p = 10; op = Op::Mul; break;
            case '/': p = 10; op = Op::Div; break;
            case '%': p = 10; op = Op::Mod; break;
            default: return l;
        }
        if (p < prec) return l;
        ++pos;
        Expr* r = binaryExpr(p + 1);
        l = arith(op, l, r);
    }
}

// unary-expression: ( "-" | "+" | "~" | "!" | "*" | "&" | "++" | "--" ) unary-expression
//     | "sizeof" ( "(" type-name ")" | unary-expression ) | "(" type-name ")" unary-expression
//     | postfix-expression
Expr* Engine::unaryExpr() {
    if (++nesting > kMaxNesting) failAt(kErrStackOverflow);
    const uint8_t c = tok().code;
    Expr* result = nullptr;
    switch (c) {
        case '-':
        case '+': {
            ++pos;
            Expr* a = rvalue(unaryExpr());
            if (!isArith(a->type)) failAt(kErrNotNumeric);
            a = convert(a, promote(a->type));
            if (c == '+') {
                result = a;
                break;
            }
            result = newExpr(Op::Neg, a->type);
            result->a = a;
            if (allConst(a)) result = fold(*this, result);
            break;
        }
        case '~': {
            ++pos;
            Expr* a = rvalue(unaryExpr());
            if (!isInteger(a->type)) failAt(kErrIntegerRequired);
            a = convert(a, promote(a->type));
            result = newExpr(Op::BitNot, a->type);
            result->a = a;
            if (allConst(a)) result = fold(*this, result);
            break;
        }
        case '!': {
            ++pos;
            Expr* a = rvalue(unaryExpr());
            if (!isScalar(a->type)) failAt(kErrNotNumeric);
            result = newExpr(Op::Not, tInt);
            result->a = a;
            if (allConst(a)) result = fold(*this, result);
            break;
        }
        case '*': {
            ++pos;
            Expr* a = rvalue(unaryExpr());
            if (!isPtr(a->type)) failAt(kErrNotPointer);
            if (a->type->base->kind == kTFunc) {
                result = a;  // calling through *fp is calling fp
                break;
            }
            if (a->type->base->kind == kTVoid) failAt(kErrVoidPointer);
            result = newExpr(Op::Deref, a->type->base);
            result->a = a;
            break;
        }
        case '&': {
            ++pos;
            Expr* a = unaryExpr();
            if (a->op == Op::FuncAddr) {
                result = rvalue(a);
                break;
            }
            if ((!isLvalue(a) && !(a->op == Op::Const && a->type->kind == kTArray)) || a->bitWidth) failAt(kErrNotAddress);
            result = newExpr(Op::AddrOf, ptrTo(a->type));
            result->a = a;
            break;
        }
        case kTokInc:
        case kTokDec: {
            ++pos;
            Expr* a = unaryExpr();
            if (!isLvalue(a) || !isScalar(a->type)) failAt(kErrNeedLvalue);
            result = newExpr(Op::PreInc, a->type);
            result->a = a;
            if (isPtr(a->type)) result->v.i = a->type->base->size ? a->type->base->size : 1;
            else if (isFloating(a->type)) result->v.d = 1;
            else result->v.i = 1;
            if (c == kTokDec) {
                if (isFloating(a->type)) result->v.d = -1;
                else result->v.i = -result->v.i;
            }
            break;
        }
        case kTokSizeof: {
            ++pos;
            const Type* t;
            if (tok().code == '(' && [&] { ++pos; const bool r = isTypeStart(); --pos; return r; }()) {
                ++pos;
                t = typeName();
                expect(')', kErrMissingRParen);
            } else {
                const int saveNest = nesting;
                t = unaryExpr()->type;
                nesting = saveNest;
            }
            if (t->kind == kTFunc || (t->kind == kTStruct && !t->rec->complete)) failAt(kErrUndefinedStruct);
            result = newExpr(Op::Const, tUInt);
            result->v.i = t->size;
            break;
        }
        case '(': {
            ++pos;
            if (isTypeStart()) {
                const Type* t = typeName();
                expect(')', kErrMissingRParen);
                if (tok().code == '{') failAt(kErrSyntax);
                Expr* a = unaryExpr();
                result = convert(a, t);
                break;
            }
            --pos;
            result = postfixExpr();
            break;
        }
        default:
            result = postfixExpr();
    }
    --nesting;
    return sized(result);
}

// postfix-expression: primary-expression
//     { "[" expression "]" | ( "." | "->" ) identifier | "(" argument-list | "++" | "--" }
Expr* Engine::postfixExpr() {
    Expr* e = primaryExpr();
    for (;;) {
        const uint8_t c = tok().code;
        if (c == '[') {
            ++pos;
            Expr* i = rvalue(expr());
            expect(']', kErrMissingRBracket);
            Expr* p = rvalue(e);
            if (!isPtr(p->type) && isPtr(i->type)) std::swap(p, i);
            if (!isPtr(p->type)) failAt(kErrSubscript);
            if (!isInteger(i->type)) failAt(kErrIntegerRequired);
            if (p->type->base->kind == kTVoid) failAt(kErrVoidPointer);
            Expr* sum = arith(Op::Add, p, i);
            e = newExpr(Op::Deref, p->type->base);
            e->a = sum;
            sized(e);
        } else if (c == '.' || c == kTokArrow) {
            ++pos;
            Expr* base = e;
            if (c == kTokArrow) {
                Expr* p = rvalue(e);
                if (!isPtr(p->type) || p->type->base->kind != kTStruct) {
                    failAt(e->type->kind == kTStruct ? kErrNotStructPointer : kErrNotPointer);
                }
                base = newExpr(Op::Deref, p->type->base);
                base->a = p;
            } else if (e->type->kind != kTStruct) {
                failAt(isPtr(e->type) ? kErrNotStructPointer : kErrNotStruct);
            }
            if (!base->type->rec->complete) failAt(kErrUndefinedStruct);
            if (tok().code != kTokIdent) failAt(kErrMissingIdent);
            const int sym = static_cast<int>(tok().i);
            ++pos;
            const Member* m = nullptr;
            for (const Member& mm : base->type->rec->members)
                if (mm.sym == sym) m = &mm;
            if (!m) failAt(kErrNotMember);
            e = newExpr(Op::Member, m->type);
            e->a = base;
            e->v.i = m->off;
            e->bitOff = m->bitOff;
            e->bitWidth = m->bitWidth;
            sized(e);
        } else if (c == '(') {
            ++pos;
            e = callExpr(e, 0);
        } else if (c == kTokInc || c == kTokDec) {
            ++pos;
            if (!isLvalue(e) || !isScalar(e->type)) failAt(kErrNeedLvalue);
            Expr* r = newExpr(Op::PostInc, e->type);
            r->a = e;
            if (isPtr(e->type)) r->v.i = e->type->base->size ? e->type->base->size : 1;
            else if (isFloating(e->type)) r->v.d = 1;
            else r->v.i = 1;
            if (c == kTokDec) {
                if (isFloating(e->type)) r->v.d = -1;
                else r->v.i = -r->v.i;
            }
            e = sized(r);
        } else {
            return e;
        }
    }
}

// primary-expression: number | string | "(" expression ")" | identifier [ "(" argument-list ]
Expr* Engine::primaryExpr() {
    const Token& t = tok();
    switch (t.code) {
        case kTokNumber: {
            static const TypeKind kinds[] = {kTInt, kTUInt, kTLong, kTULong, kTLLong, kTULLong};
            const Type* ty = tInt;
            switch (kinds[t.kind]) {
                case kTUInt: ty = tUInt; break;
                case kTLong: ty = tLong; break;
                case kTULong: ty = tULong; break;
                case kTLLong: ty = tLLong; break;
                case kTULLong: ty = tULLong; break;
                default: break;
            }
            Expr* e = newExpr(Op::Const, ty);
            e->v.i = t.i;
            if (ty->size == 4) e->v.i = isUnsigned(ty) ? static_cast<int64_t>(static_cast<uint32_t>(t.i)) : static_cast<int32_t>(t.i);
            ++pos;
            return e;
        }
        case kTokReal: {
            Expr* e = newExpr(Op::Const, t.kind == kNumFloat ? tFloat : tDouble);
            e->v.d = t.kind == kNumFloat ? static_cast<double>(static_cast<float>(t.d)) : t.d;
            ++pos;
            return e;
        }
        case kTokString: {
            const int idx = static_cast<int>(t.i);
            Expr* e = newExpr(Op::Const, arrayOf(tChar, static_cast<int64_t>(ts.strings[static_cast<size_t>(idx)].size() + 1)));
            e->v.i = stringConstant(idx);
            ++pos;
            return e;
        }
        case '(': {
            ++pos;
            Expr* e = expr();
            expect(')', kErrMissingRParen);
            return e;
        }
        case kTokIdent: {
            const int sym = static_cast<int>(t.i);
            ++pos;
            const Binding* b = lookup(sym);
            if (!b && ts.symbols.names[static_cast<size_t>(sym - 1)] == "__va_start") {
                if (!compiling || !compiling->type->variadic) failAt(kErrExpression);
                expect('(', kErrMissingLParen);
                expect(')', kErrMissingRParen);
                return newExpr(Op::VaStart, tCharPtr);
            }
            if (!b) {
                if (tok().code == '(') {
                    Expr* e = newExpr(Op::FuncAddr, nullptr);
                    e->builtin = sym;
                    ++pos;
                    return callExpr(e, sym);
                }
                --pos;
                failAt(kErrUnknownIdent);
            }
            switch (b->kind) {
                case BindKind::LocalVar: {
                    Expr* e = newExpr(Op::LVar, b->type);
                    e->v.i = b->value;
                    return e;
                }
                case BindKind::GlobalVar: {
                    Expr* e = newExpr(Op::GVar, b->type);
                    e->v.i = b->value;
                    return e;
                }
                case BindKind::EnumConst: {
                    Expr* e = newExpr(Op::Const, tInt);
                    e->v.i = b->value;
                    return e;
                }
                case BindKind::Func: {
                    Expr* e = newExpr(Op::FuncAddr, b->fn->type);
                    e->fn = b->fn;
                    e->builtin = sym;
                    return e;
                }
                default:
                    --pos;
                    failAt(kErrSyntax);
            }
        }
        case ')': failAt(kErrUnexpectedRParen);
        case ']': failAt(kErrUnexpectedRBracket);
        default: failAt(kErrExpression);
    }
}

namespace {

const Type* sigType(Engine& en, char c) {
    switch (c) {
        case 'i': return en.tInt;
        case 'u': return en.tUInt;
        case 'l': return en.tLong;
        case 'L': return en.tULong;
        case 'd': return en.tDouble;
        case 'c': return en.tCharPtr;
        case 'p': return en.tVoidPtr;
        default: return en.tVoid;
    }
}

}  // namespace

// argument-list: [ assignment-expression { "," assignment-expression } ] ")"
Expr* Engine::callExpr(Expr* callee, int) {
    std::vector<Expr*> args;
    if (!accept(')')) {
        for (;;) {
            args.push_back(assignExpr());
            if (accept(')')) break;
            if (!accept(',')) failAt(kErrMissingRParen);
        }
    }
    if (constContext) failAt(kErrConstantRequired);
    const Type* ft = nullptr;
    Function* fn = nullptr;
    Expr* e = nullptr;
    if (callee->op == Op::FuncAddr) {
        fn = callee->fn;
        const std::string& name = ts.symbols.names[static_cast<size_t>(callee->builtin - 1)];
        if (!fn || !fn->defined) {
            if (name == "setjmp" || name == "longjmp") {
                const bool isSet = name == "setjmp";
                if (args.size() != (isSet ? 1u : 2u)) failAt(kErrArgMismatch);
                e = newExpr(isSet ? Op::Setjmp : Op::Longjmp, isSet ? tInt : tVoid);
                e->a = convert(args[0], tVoidPtr);
                if (!isSet) e->b = convert(args[1], tInt);
                if (isSet && currentStmt) currentStmt->hasSetjmp = true;
                return sized(e);
            }
            const BuiltinEntry* be = findBuiltin(name);
            if (!be || !builtinCallable(be->number)) failAt(kErrCallUndefined);
            e = newExpr(Op::Builtin, sigType(*this, be->sig[0]));
            e->builtin = be->number;
            const Type* proto = fn && fn->type && !fn->type->noProto ? fn->type : nullptr;
            if (proto) e->type = proto->base;
            const char* sig = be->sig.data() + 1;
            for (size_t i = 0; i < args.size(); ++i) {
                Expr* a = rvalue(args[i]);
                const Type* want = nullptr;
                if (proto && i < proto->params.size()) {
                    want = proto->params[i];
                } else if (*sig && *sig != '.') {
                    want = sigType(*this, *sig);
                }
                if (*sig && *sig != '.') ++sig;
                if (want && isScalar(a->type)) {
                    if (isPtr(want) && isPtr(a->type)) want = a->type;
                    else if (isPtr(want) && isFloating(a->type)) failAt(kErrArgMismatch);
                    a = convert(a, want);
                } else if (a->type->kind == kTStruct || a->type->kind == kTVoid) {
                    failAt(kErrArgMismatch);
                } else if (a->type->kind == kTFloat) {
                    a = convert(a, tDouble);
                } else if (isInteger(a->type) && a->type->size < 4) {
                    a = convert(a, tInt);
                }
                e->args.push_back(a);
                e->argTypes.push_back(a->type);
            }
            if (*sig && *sig != '.') failAt(kErrArgMismatch);
            return sized(e);
        }
        ft = fn->type;
        e = newExpr(Op::Call, ft->base);
        e->fn = fn;
    } else {
        Expr* c = rvalue(callee);
        if (!isPtr(c->type) || c->type->base->kind != kTFunc) failAt(kErrBadCall);
        ft = c->type->base;
        e = newExpr(Op::CallPtr, ft->base);
        e->a = c;
    }
    if (!ft->noProto && (args.size() < ft->params.size() || (!ft->variadic && args.size() > ft->params.size())))
        failAt(kErrArgMismatch);
    for (size_t i = 0; i < args.size(); ++i) {
        Expr* a = rvalue(args[i]);
        if (i < ft->params.size()) {
            const Type* want = ft->params[i];
            if (isPtr(want) && isPtr(a->type)) {
                Expr* r = newExpr(Op::Retype, want);
                r->a = a;
                a = r;
            } else {
                a = convert(a, want);
            }
        } else if (a->type->kind == kTFloat) {
            a = convert(a, tDouble);
        } else if (isInteger(a->type) && a->type->size < 4) {
            a = convert(a, tInt);
        } else if (a->type->kind == kTVoid) {
            failAt(kErrArgMismatch);
        }
        e->args.push_back(a);
        e->argTypes.push_back(a->type);
    }
    if (e->type->kind == kTStruct) {
        if (!compiling) failAt(kErrConstantRequired);
        const uint32_t a = std::max<uint32_t>(e->type->align, 4);
        const uint32_t off = (frameOffset + kObjectGap + a - 1) / a * a;
        frameOffset = off + e->type->size;
        compiling->locals.push_back(MemObject{off, off + e->type->size});
        e->temp = off;
    }
    return sized(e);
}

// constant-expression: conditional-expression
int64_t Engine::constExpr() {
    const bool save = constContext;
    constContext = true;
    Expr* e = rvalue(condExpr());
    constContext = save;
    if (e->op != Op::Const || !isInteger(e->type)) failAt(kErrConstantRequired);
    return e->v.i;
}

}  // namespace zol
