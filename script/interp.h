// The interpreter of one run. A declaration scan fills the globals and the function
// table; a function's body is parsed into a small tree the first time it is called,
// compiled into instructions where it can be (vm.h), and run from there. The state is
// kept by concern: the parser's (compile_context.h), the machine's (machine.h), the
// library's (library_state.h) and the compiled program.
#pragma once
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "script/compile_context.h"
#include "script/console.h"
#include "script/errors.h"
#include "script/lexer.h"
#include "script/library_state.h"
#include "script/machine.h"
#include "script/tree.h"
#include "script/values.h"

namespace zol {

enum class Flow : uint8_t { Normal, Break, Continue, Return, Goto };

// Thrown by longjmp to the statement that holds the matching setjmp.
struct LongJump {
    int64_t act;   // the block activation that holds the setjmp statement
    size_t index;  // that statement's index in the block
    int value;
};
// Thrown by exit().
struct ScriptExit {
    int status;
};

// One run's whole state: the parser's, the machine's and the library's, and the
// compiled program.
struct Engine : CompileContext, Machine, LibraryState {
    std::unique_ptr<Program> program;  // instructions of the functions compiled so far

    Engine();
    ~Engine();


    // types (interp_types.cpp)
    const Type* basic(TypeKind k, uint32_t size);
    const Type* ptrTo(const Type* t);
    const Type* arrayOf(const Type* t, int64_t n);
    const Type* funcType(const Type* ret, std::vector<const Type*> params, bool variadic, bool noProto);
    const Type* constOf(const Type* t);
    Record* newRecord(bool isUnion);
    const Type* recordType(Record* r);
    const Type* promote(const Type* t) const;
    const Type* commonType(const Type* a, const Type* b) const;
    const Type* decay(const Type* t);
    bool sameType(const Type* a, const Type* b) const;

    // memory (interp_memory.cpp)
    uint32_t allocGlobal(uint32_t size, uint32_t align);
    // Checked host address of n script bytes at addr; raises on a bad access.
    uint8_t* host(uint32_t addr, uint32_t n) {
        if (addr >= cacheStart && static_cast<uint64_t>(addr) + n <= cacheEnd) return cacheHost + (addr - cacheStart);
        return hostSlow(addr, n);
    }
    uint8_t* hostSlow(uint32_t addr, uint32_t n);
    uint8_t* hostOrNull(uint32_t addr, uint32_t n, int* err);
    // The readable bytes from addr to the end of its object; raises when there are none.
    uint8_t* span(uint32_t addr, uint32_t* avail);
    std::string cstr(uint32_t addr);                     // a script string; raises when unterminated
    uint32_t stringConstant(int index);
    uint32_t heapAlloc(uint64_t size, bool zero);        // 0 when refused
    bool heapFree(uint32_t addr);                        // false for an address no malloc gave
    HeapBlock* heapBlock(uint32_t addr);
    // In line: every script call makes one frame, and the call costs little else. A
    // frame whose address its body never forms needs no objects: no pointer can reach it.
    void pushFrame(Function* f, uint32_t size, bool objects) {
        if (data.empty()) data.assign(kDataHostSize, 0);
        if (static_cast<uint64_t>(dataUsed) + size > kDataSpaceSize ||
            static_cast<uint64_t>(globalTop) + frameTop + size + 2 * kObjectGap > kDataHostSize)
            fail(kErrDataSpace);
        dataUsed += size;
        frameTop += (size + kObjectGap + 7) / 8 * 8;
        fpv = kDataBase + kDataHostSize - frameTop;
        fp = data.data() + (kDataHostSize - frameTop);
        // The gap after the frame leaves room to clear it in whole words.
        if (size <= 64) {
            const uint64_t zero = 0;
            for (uint32_t i = 0; i < size; i += 8) std::memcpy(fp + i, &zero, 8);
        } else {
            std::memset(fp, 0, size);
        }
        if (objects) pushFrameObjects(f, size);
    }
    void popFrame(Function* f, uint32_t size, bool objects) {
        dataUsed -= size;
        frameTop -= (size + kObjectGap + 7) / 8 * 8;
        if (objects) popFrameObjects(f, size);
    }
    // The current frame's parameters, variable arguments and locals as objects that
    // pointers may reach.
    void pushFrameObjects(const Function* f, uint32_t size) {
        frameObjs.push_back(MemObject{fpv, fpv + f->paramBytes});
        if (size > f->frameSize) frameObjs.push_back(MemObject{fpv + f->frameSize, fpv + size});
        for (const MemObject& o : f->locals) frameObjs.push_back(MemObject{fpv + o.start, fpv + o.end});
    }
    void popFrameObjects(const Function* f, uint32_t size) {
        const size_t count = 1 + f->locals.size() + (size > f->frameSize ? 1 : 0);
        frameObjs.erase(frameObjs.end() - static_cast<std::ptrdiff_t>(count), frameObjs.end());
        cacheStart = 1;
        cacheEnd = 0;
    }
    static Val load(const uint8_t* p, const Type* t) { return loadKind(p, t->kind); }
    static void store(uint8_t* p, const Type* t, Val v) { storeKind(p, t->kind, v); }

    // declarations (interp_decl.cpp)
    const Token& tok() const { return ts.toks[pos]; }
    const Token& peek(int n = 1) const {
        const size_t k = pos + static_cast<size_t>(n);
        return ts.toks[k < ts.toks.size() ? k : ts.toks.size() - 1];
    }
    bool accept(uint8_t code) {
        if (tok().code != code) return false;
        ++pos;
        return true;
    }
    void expect(uint8_t code, int err) {
        if (!accept(code)) failAt(err);
    }
    Binding* lookup(int sym);
    const Type* lookupTag(int sym);
    bool isTypeStart();
    const Type* declSpecs(int* storage);
    // Whether the enum that the last declSpecs read (if any) has no negative constant:
    // a bit-field of it is then unsigned, so that it keeps every constant that fits.
    bool specEnumUnsigned = false;
    std::unordered_map<int, bool> enumTagUnsigned;  // by tag
    const Type* declarator(const Type* base, int* sym, std::vector<int>* paramSyms);
    const Type* typeName();
    void scanGlobals();
    void declareLocal(const Type* base, int storage, std::vector<Stmt*>& out);
    void initializer(const Type* t, uint32_t off, std::vector<std::pair<uint32_t, Expr*>>& out, const Type** completed);
    void compileFunction(Function* f);
    Function* functionBySym(int sym);
    void useFunctionRecord();

    // expressions (interp_expr.cpp)
    Expr* newExpr(Op op, const Type* t);
    // Sets e's height from its operands; a tree too tall to evaluate is error 92.
    Expr* sized(Expr* e) {
        uint32_t d = 0;
        for (const Expr* k : {e->a, e->b, e->c})
            if (k && k->depth > d) d = k->depth;
        for (const Expr* k : e->args)
            if (k->depth > d) d = k->depth;
        e->depth = d + 1;
        if (e->depth > static_cast<uint32_t>(kMaxExprDepth)) failAt(kErrStackOverflow);
        return e;
    }
    Expr* expr();
    Expr* assignExpr();
    Expr* condExpr();
    Expr* binaryExpr(int prec);
    Expr* unaryExpr();
    Expr* postfixExpr();
    Expr* primaryExpr();
    Expr* rvalue(Expr* e);
    Expr* convert(Expr* e, const Type* t);
    Expr* arith(Op op, Expr* l, Expr* r);
    Expr* makeAssign(Expr* l, Expr* r);
    Expr* callExpr(Expr* callee, int sym);
    int64_t constExpr();
    bool isLvalue(const Expr* e) const;

    // statements (interp_stmt.cpp)
    Stmt* newStmt(SOp op);
    Stmt* statement();
    Stmt* block(bool newScope);
    Stmt* caseMarker();
    void collectKeys(Stmt* s);

    // execution (interp_eval.cpp, interp_exec.cpp)
    Val eval(Expr* e);
    // eval with the two commonest leaves (constants and int locals) taken in line.
    Val ev(Expr* e) {
        if (e->op == Op::Const) return e->v;
        if (e->op == Op::LVar) {
            if (e->type->kind == kTInt) {
                int32_t x;
                std::memcpy(&x, fp + e->v.i, 4);
                Val v;
                v.i = x;
                return v;
            }
            if (e->type->kind == kTPtr) {
                uint32_t x;
                std::memcpy(&x, fp + e->v.i, 4);
                Val v;
                v.i = x;
                return v;
            }
        }
        return eval(e);
    }
    uint32_t addrOf(Expr* e);
    uint8_t* lvalHost(Expr* e, uint32_t n);
    // Reads and writes an l-value's bytes at p, bit-fields included.
    Val loadLv(const Expr* lv, const uint8_t* p) const {
        return lv->bitWidth ? loadBits(lv, p) : load(p, lv->type);
    }
    Val storeLv(const Expr* lv, uint8_t* p, Val v) const {  // the value as stored
        if (lv->bitWidth) return storeBits(lv, p, v);
        store(p, lv->type, v);
        return v;
    }
    Val loadBits(const Expr* lv, const uint8_t* p) const;
    Val storeBits(const Expr* lv, uint8_t* p, Val v) const;
    // A call's argument values, evaluated left to right; each holds a stack cell while
    // the next one is evaluated.
    struct ArgValues {
        Val small[8];
        std::vector<Val> big;
    };
    Val* evalArgs(Expr* e, ArgValues& store) {
        const size_t n = e->args.size();
        Val* av = store.small;
        if (n > 8) {
            store.big.resize(n);
            av = store.big.data();
        }
        const int before = cells;
        for (size_t i = 0; i < n; ++i) {
            av[i] = eval(e->args[i]);
            if (++cells > kStackCells) fail(kErrStackOverflow);
        }
        cells = before;
        return av;
    }
    Val call(Function* f, Expr* e);
    // Before a call's arguments: a step, the machine stack's bound, the body parsed.
    void prepareCall(Function* f) {
        tick();
        checkHostStack();
        if (!f->compiled) compileFunction(f);
    }
    // Unary chains do not hold stack cells, so deep recursion through them is bounded by
    // the machine stack it takes.
    void checkHostStack() {
        const uintptr_t here = reinterpret_cast<uintptr_t>(__builtin_frame_address(0));
        if (stackBase > here && stackBase - here > kMaxHostStack) fail(kErrStackOverflow);
    }
    // Runs f on the argument values av of the call e, in a frame of its own; without e,
    // on exactly its parameters, none of them or its result a struct.
    Val enter(Function* f, Expr* e, const Val* av);
    Flow exec(Stmt* s);
    Flow execBlock(Stmt* s, size_t from);
    Flow execJumpBlock(Stmt* s, size_t from);

    // library (builtins_dispatch.cpp)
    Val callBuiltin(Expr* e);
    Val callBuiltinWith(Expr* e, Val* av);  // on argument values already evaluated
};

}  // namespace zol
