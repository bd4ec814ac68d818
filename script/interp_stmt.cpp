// Statements: parsed into a small tree per function body.
#include <cstdint>

#include "script/interp.h"
#include "script/tokens.h"

namespace zol {
namespace {

struct SwitchCtx {
    Stmt* sw;
};
thread_local std::vector<SwitchCtx>* tSwitches = nullptr;

}  // namespace

Stmt* Engine::newStmt(SOp op) {
    Stmt& s = stmtStore.emplace_back();
    s.op = op;
    const Token& k = ts.toks[pos < ts.toks.size() ? pos : ts.toks.size() - 1];
    s.file = k.file;
    s.line = k.line;
    return &s;
}

// compound-statement: "{" { declaration | identifier ":" | case-label | statement } "}"
Stmt* Engine::block(bool newScope) {
    std::vector<SwitchCtx> local;
    if (!tSwitches) tSwitches = &local;
    if (!accept('{')) failAt(kErrMissingLBrace);
    if (++nesting > kMaxNesting) failAt(kErrStackOverflow);
    if (newScope) scopes.emplace_back();
    Stmt* b = newStmt(SOp::Block);
    while (!accept('}')) {
        const uint8_t c = tok().code;
        if (c == kTokEnd) failAt(kErrMissingRBrace);
        if (c == kTokCase || c == kTokDefault) {
            b->list.push_back(caseMarker());
            continue;
        }
        if (c == kTokIdent && peek().code == ':') {
            const int sym = static_cast<int>(tok().i);
            pos += 2;
            for (int d : labelsDefined)
                if (d == sym) failAt(kErrAlreadyDeclared);
            labelsDefined.push_back(sym);
            Stmt* m = newStmt(SOp::Label);
            m->id = sym;
            b->list.push_back(m);
            continue;
        }
        if (c != kTokIdent || peek().code == kTokIdent || peek().code == '*' || isTypeStart()) {
            if (isTypeStart()) {
                int storage = 0;
                const Type* base = declSpecs(&storage);
                Stmt* decl = newStmt(SOp::Block);
                Stmt* save = currentStmt;
                currentStmt = decl;
                declareLocal(base, storage, decl->list);
                currentStmt = save;
                if (decl->hasSetjmp) {
                    b->jmpChild = true;
                    b->list.push_back(decl);
                } else {
                    b->list.insert(b->list.end(), decl->list.begin(), decl->list.end());
                }
                continue;
            }
        }
        b->list.push_back(statement());
        b->jmpChild |= b->list.back()->hasSetjmp;
    }
    if (newScope) scopes.pop_back();
    --nesting;
    if (tSwitches == &local) tSwitches = nullptr;
    return b;
}

// "case N:" or "default:" of the innermost switch, wherever in its body it stands.
//
// case-label: "case" constant-expression ":" | "default" ":"
Stmt* Engine::caseMarker() {
    if (!tSwitches || tSwitches->empty()) failAt(kErrSyntax);
    Stmt* sw = tSwitches->back().sw;
    const bool isCase = tok().code == kTokCase;
    ++pos;
    Stmt* m = newStmt(SOp::Case);
    m->id = -++caseKeys;
    if (isCase) {
        const int64_t v = constExpr();
        for (const auto& cs : sw->cases)
            if (cs.first == v) failAt(kErrSyntax);
        sw->cases.emplace_back(v, m->id);
    } else {
        if (sw->defaultKey) failAt(kErrSyntax);
        sw->defaultKey = m->id;
    }
    if (!accept(':')) failAt(kErrCaseColon);
    return m;
}

void Engine::collectKeys(Stmt* s) {
    if (!s) return;
    if (s->op == SOp::Case || s->op == SOp::Label) s->keys.push_back(s->id);
    auto take = [&](Stmt* c) {
        collectKeys(c);
        if (c) s->keys.insert(s->keys.end(), c->keys.begin(), c->keys.end());
    };
    if (s->op == SOp::Block) {
        for (size_t i = 0; i < s->list.size(); ++i) {
            take(s->list[i]);
            for (int64_t k : s->list[i]->keys) s->labels[k] = i;
        }
    } else {
        take(s->body);
        if (s->op != SOp::For) take(s->els);
    }
}

// statement: compound-statement | ";" | "if" "(" expression ")" statement [ "else" statement ]
//     | "while" "(" expression ")" statement | "do" statement "while" "(" expression ")" ";"
//     | "for" "(" [ declaration | expression ] ";" [ expression ] ";" [ expression ] ")" statement
//     | "switch" "(" expression ")" statement | case-label statement | "break" ";" | "continue" ";"
//     | "goto" identifier ";" | "return" [ expression ] ";" | identifier ":" statement | expression ";"
Stmt* Engine::statement() {
    if (++nesting > kMaxNesting) failAt(kErrStackOverflow);
    Stmt* result = nullptr;
    const uint8_t c = tok().code;
    switch (c) {
        case '{':
            result = block(true);
            break;
        case ';':
            ++pos;
            result = newStmt(SOp::Expr);
            break;
        case kTokIf: {
            result = newStmt(SOp::If);
            ++pos;
            if (!accept('(')) failAt(kErrIfLParen);
            Stmt* save = currentStmt;
            currentStmt = result;
            result->e = rvalue(expr());
            currentStmt = save;
            if (!isScalar(result->e->type)) failAt(kErrNotNumeric);
            if (!accept(')')) failAt(kErrIfRParen);
            result->body = statement();
            if (accept(kTokElse)) result->els = statement();
            break;
        }
        case kTokWhile: {
            result = newStmt(SOp::While);
            ++pos;
            if (!accept('(')) failAt(kErrWhileLParen);
            Stmt* save = currentStmt;
            currentStmt = result;
            result->e = rvalue(expr());
            currentStmt = save;
            if (!isScalar(result->e->type)) failAt(kErrNotNumeric);
            if (!accept(')')) failAt(kErrWhileRParen);
            ++loopDepth;
            result->body = statement();
            --loopDepth;
            break;
        }
        case kTokDo: {
            result = newStmt(SOp::Do);
            ++pos;
            ++loopDepth;
            result->body = statement();
            --loopDepth;
            if (!accept(kTokWhile)) failAt(kErrMissingWhile);
            if (!accept('(')) failAt(kErrDoLParen);
            Stmt* save = currentStmt;
            currentStmt = result;
            result->e = rvalue(expr());
            currentStmt = save;
            if (!isScalar(result->e->type)) failAt(kErrNotNumeric);
            if (!accept(')')) failAt(kErrDoRParen);
            if (!accept(';')) failAt(kErrMissingSemicolon);
            break;
        }
        case kTokFor: {
            result = newStmt(SOp::For);
            ++pos;
            if (!accept('(')) failAt(kErrForLParen);
            Stmt* save = currentStmt;
            currentStmt = result;
            scopes.emplace_back();
            Stmt* init = nullptr;
            if (isTypeStart()) {
                int storage = 0;
                const Type* base = declSpecs(&storage);
                init = newStmt(SOp::Block);
                declareLocal(base, storage, init->list);
            } else {
                if (tok().code != ';') result->e = expr();
                if (!accept(';')) failAt(kErrMissingSemicolon);
            }
            result->els = init;
            if (tok().code != ';') {
                result->e2 = rvalue(expr());
                if (!isScalar(result->e2->type)) failAt(kErrNotNumeric);
            }
            if (!accept(';')) failAt(kErrMissingSemicolon);
            if (tok().code != ')') result->e3 = expr();
            currentStmt = save;
            if (!accept(')')) failAt(kErrForRParen);
            ++loopDepth;
            result->body = statement();
            --loopDepth;
            scopes.pop_back();
            break;
        }
        case kTokSwitch: {
            result = newStmt(SOp::Switch);
            ++pos;
            if (!accept('(')) failAt(kErrSwitchLParen);
            Stmt* save = currentStmt;
            currentStmt = result;
            Expr* e = rvalue(expr());
            currentStmt = save;
            if (!isInteger(e->type)) failAt(kErrIntegerRequired);
            result->e = convert(e, e->type->size > 4 ? e->type : promote(e->type));
            if (!accept(')')) failAt(kErrSwitchRParen);
            std::vector<SwitchCtx> local;
            const bool own = !tSwitches;
            if (own) tSwitches = &local;
            tSwitches->push_back(SwitchCtx{result});
            ++switchDepth;
            if (tok().code == '{') {
                result->body = block(true);
            } else {
                Stmt* b = newStmt(SOp::Block);
                b->list.push_back(statement());
                result->body = b;
            }
            --switchDepth;
            tSwitches->pop_back();
            if (own) tSwitches = nullptr;
            break;
        }
        case kTokCase:
        case kTokDefault: {
            result = newStmt(SOp::Block);
            result->list.push_back(caseMarker());
            result->list.push_back(statement());
            break;
        }
        case kTokBreak:
            ++pos;
            if (loopDepth == 0 && switchDepth == 0) failAt(kErrBreak);
            if (!accept(';')) failAt(kErrMissingSemicolon);
            result = newStmt(SOp::Break);
            break;
        case kTokContinue:
            ++pos;
            if (loopDepth == 0) failAt(kErrContinue);
            if (!accept(';')) failAt(kErrMissingSemicolon);
            result = newStmt(SOp::Continue);
            break;
        case kTokGoto:
            ++pos;
            if (tok().code != kTokIdent) failAt(kErrMissingIdent);
            result = newStmt(SOp::Goto);
            result->id = tok().i;
            gotoTargets.push_back(static_cast<int>(tok().i));
            ++pos;
            if (!accept(';')) failAt(kErrMissingSemicolon);
            break;
        case kTokReturn: {
            result = newStmt(SOp::Return);
            ++pos;
            const Type* rt = compiling->type->base;
            if (tok().code != ';') {
                if (rt->kind == kTVoid) failAt(kErrRedeclared);  // the table's number for this case
                Stmt* save = currentStmt;
                currentStmt = result;
                Expr* e = rvalue(expr());
                currentStmt = save;
                if (rt->kind == kTStruct) {
                    if (e->type->kind != kTStruct || e->type->rec != rt->rec) failAt(kErrIncompatible);
                    result->e = e;
                } else {
                    result->e = convert(e, rt);
                }
            }
            if (!accept(';')) failAt(kErrMissingSemicolon);
            break;
        }
        case ')':
            failAt(kErrUnexpectedRParen);
        case ']':
            failAt(kErrUnexpectedRBracket);
        case '}':
            failAt(kErrSyntax);
        default: {
            if (c == kTokIdent && peek().code == ':') {
                Stmt* b = newStmt(SOp::Block);
                const int sym = static_cast<int>(tok().i);
                pos += 2;
                labelsDefined.push_back(sym);
                Stmt* m = newStmt(SOp::Label);
                m->id = sym;
                b->list.push_back(m);
                b->list.push_back(statement());
                result = b;
                break;
            }
            if (isTypeStart()) failAt(kErrMisplacedDecl);
            result = newStmt(SOp::Expr);
            Stmt* save = currentStmt;
            currentStmt = result;
            result->e = expr();
            currentStmt = save;
            if (!accept(';')) failAt(kErrMissingSemicolon);
        }
    }
    --nesting;
    return result;
}

}  // namespace zol
