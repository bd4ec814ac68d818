// The parser's state: the token stream and position, the types, the trees built so far,
// the function table and the scopes and counters of the body being parsed.
#pragma once
#include <cstdint>
#include <deque>
#include <unordered_map>
#include <vector>

#include "script/errors.h"
#include "script/lexer.h"
#include "script/tree.h"

namespace zol {

struct CompileContext {
    TokenStream ts;
    size_t pos = 0;

    // ---- types ----
    std::deque<Type> typeStore;
    std::deque<Record> recordStore;
    const Type *tVoid, *tChar, *tUChar, *tShort, *tUShort, *tInt, *tUInt, *tLong, *tULong, *tLLong, *tULLong,
        *tFloat, *tDouble, *tCharPtr, *tVoidPtr;

    // ---- code ----
    std::deque<Expr> exprStore;
    std::deque<Stmt> stmtStore;
    std::deque<Function> functions;
    int functionRecords = 0;     // functions counted against kMaxFunctions
    std::vector<Scope> scopes;
    Function* compiling = nullptr;   // function whose body is being compiled
    uint32_t frameOffset = 0;        // next free frame offset while compiling
    int loopDepth = 0, switchDepth = 0;
    Stmt* currentStmt = nullptr;     // statement being compiled (setjmp marks it)
    bool constContext = false;       // global initialisers: no calls
    int nesting = 0;
    std::unordered_map<int, int> labelIds;   // label symbol -> id, per function
    std::vector<int> gotoTargets;
    std::vector<int> labelsDefined;

    int64_t caseKeys = 0;

    [[noreturn]] void failAt(int code) {
        const Token& t = ts.toks[pos < ts.toks.size() ? pos : ts.toks.size() - 1];
        raiseScriptError(code, t.file, t.line);
    }
};

}  // namespace zol
