// The interpreter's state for one run: types, the script's address space, the
// compiled form of expressions and statements, functions and the evaluator.
// A declaration scan fills the globals and the function table; a function's body is
// compiled into a small tree the first time it is called and run from there.
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

#include "script/console.h"
#include "script/errors.h"
#include "script/lexer.h"

namespace zol {

enum TypeKind : uint8_t {
    kTVoid, kTChar, kTUChar, kTShort, kTUShort, kTInt, kTUInt, kTLong, kTULong, kTLLong, kTULLong,
    kTFloat, kTDouble, kTPtr, kTArray, kTStruct, kTFunc,
};

struct Type;
struct Member {
    int sym;
    const Type* type;
    uint32_t off;
    uint8_t bitOff = 0, bitWidth = 0;  // a bit-field: bits [bitOff, bitOff+bitWidth) of the unit at off
};
struct Record {
    bool isUnion = false;
    bool complete = false;
    uint32_t size = 0, align = 1;
    std::vector<Member> members;
};

// A type; built once and shared, never changed after it is complete.
struct Type {
    TypeKind kind = kTVoid;
    bool isConst = false;
    uint32_t size = 0, align = 1;
    const Type* base = nullptr;          // pointee, element or return type
    int64_t count = 0;                   // array length, -1 while unknown
    Record* rec = nullptr;               // struct or union
    std::vector<const Type*> params;     // function parameters
    bool variadic = false;
    bool noProto = false;                // declared with "()": any arguments
    mutable const Type* ptrCache = nullptr;
};

inline bool isInteger(const Type* t) { return t->kind >= kTChar && t->kind <= kTULLong; }
inline bool isFloating(const Type* t) { return t->kind == kTFloat || t->kind == kTDouble; }
inline bool isArith(const Type* t) { return t->kind >= kTChar && t->kind <= kTDouble; }
inline bool isPtr(const Type* t) { return t->kind == kTPtr; }
inline bool isScalar(const Type* t) { return isArith(t) || isPtr(t); }
inline bool isAggregate(const Type* t) { return t->kind == kTStruct || t->kind == kTArray; }
inline bool isUnsigned(const Type* t) {
    return t->kind == kTUChar || t->kind == kTUShort || t->kind == kTUInt || t->kind == kTULong ||
           t->kind == kTULLong || t->kind == kTPtr;
}

union Val {
    int64_t i;
    double d;
};

// A scalar of kind k read from or written to the script's bytes at p.
inline Val loadKind(const uint8_t* p, TypeKind k) {
    Val v;
    switch (k) {
        case kTChar: v.i = static_cast<int8_t>(*p); break;
        case kTUChar: v.i = *p; break;
        case kTShort: { int16_t x; std::memcpy(&x, p, 2); v.i = x; break; }
        case kTUShort: { uint16_t x; std::memcpy(&x, p, 2); v.i = x; break; }
        case kTInt: case kTLong: { int32_t x; std::memcpy(&x, p, 4); v.i = x; break; }
        case kTUInt: case kTULong: case kTPtr: { uint32_t x; std::memcpy(&x, p, 4); v.i = x; break; }
        case kTLLong: case kTULLong: std::memcpy(&v.i, p, 8); break;
        case kTFloat: { float x; std::memcpy(&x, p, 4); v.d = x; break; }
        case kTDouble: std::memcpy(&v.d, p, 8); break;
        default: v.i = 0; break;
    }
    return v;
}
inline void storeKind(uint8_t* p, TypeKind k, Val v) {
    switch (k) {
        case kTChar: case kTUChar: *p = static_cast<uint8_t>(v.i); break;
        case kTShort: case kTUShort: { const uint16_t x = static_cast<uint16_t>(v.i); std::memcpy(p, &x, 2); break; }
        case kTInt: case kTLong: case kTUInt: case kTULong: case kTPtr: {
            const uint32_t x = static_cast<uint32_t>(v.i);
            std::memcpy(p, &x, 4);
            break;
        }
        case kTLLong: case kTULLong: std::memcpy(p, &v.i, 8); break;
        case kTFloat: { const float x = static_cast<float>(v.d); std::memcpy(p, &x, 4); break; }
        case kTDouble: std::memcpy(p, &v.d, 8); break;
        default: break;
    }
}
inline uint32_t kindSize(TypeKind k) {
    switch (k) {
        case kTChar: case kTUChar: return 1;
        case kTShort: case kTUShort: return 2;
        case kTLLong: case kTULLong: case kTDouble: return 8;
        default: return 4;
    }
}

// ---- the script's address space ----
// Every address a script can form lies in one of these ranges; anything else is wild.
constexpr uint32_t kFileHandleBase = 0x100;   // FILE handles, never readable
constexpr uint32_t kFileHandleStep = 16;
constexpr int kMaxOpenFiles = 64;
constexpr uint32_t kFuncAddrBase = 0x1000;    // function designators
constexpr uint32_t kBuiltinAddrBase = 0x8000; // built-in function designators
constexpr uint32_t kDataBase = 0x10000;       // data space: globals and constants up, frames down
constexpr uint32_t kDataHostSize = 0x30000;   // room for the gaps between objects
constexpr uint32_t kHeapBase = 0x1000000;
constexpr uint64_t kHeapLimit = 0xE0000000ull - kHeapBase;  // malloc answers NULL beyond
constexpr uint32_t kObjectGap = 8;            // so that running off one object never reaches the next

struct MemObject {
    uint32_t start, end;
};
struct HeapBlock {
    uint32_t start = 0, size = 0;
    std::unique_ptr<uint8_t[]> bytes;
    bool freed = false;
};

// ---- compiled code ----
enum class Op : uint8_t {
    Const, GVar, LVar, Retype, Deref, AddrOf, Member, Cast,
    Neg, BitNot, Not,
    Add, Sub, Mul, Div, Mod, Shl, Shr, And, Or, Xor, Lt, Gt, Le, Ge, Eq, Ne,
    PtrAdd, PtrDiff, LAnd, LOr, Cond, Comma,
    Assign, AssignOp, CopyStruct, PreInc, PostInc,
    Call, CallPtr, Builtin, Setjmp, Longjmp, FuncAddr, VaStart, StrInit,
};

struct Function;
struct Code;
struct Program;
struct Expr {
    Op op;
    Op sub = Op::Const;            // AssignOp: the arithmetic operator
    const Type* type = nullptr;    // result type
    const Type* opType = nullptr;  // type the operands are computed in
    Expr* a = nullptr;
    Expr* b = nullptr;
    Expr* c = nullptr;
    Val v{};                       // constant, address, offset, scale or step
    int file = 0, line = 0;
    uint32_t depth = 1;            // height of the tree below, bounded by kMaxExprDepth
    uint8_t bitOff = 0, bitWidth = 0;  // an l-value that is a bit-field
    Function* fn = nullptr;
    int builtin = 0;
    uint32_t temp = 0;             // frame offset of a struct result
    std::vector<Expr*> args;
    std::vector<const Type*> argTypes;  // built-ins: the promoted type of each argument
};

enum class SOp : uint8_t { Expr, Block, If, While, Do, For, Switch, Case, Label, Goto, Break, Continue, Return, Zero };

struct Stmt {
    SOp op;
    bool hasSetjmp = false;   // the statement calls setjmp: longjmp comes back to it
    bool jmpChild = false;    // block: some statement of the list calls setjmp
    int file = 0, line = 0;
    Expr* e = nullptr;
    Expr* e2 = nullptr;
    Expr* e3 = nullptr;
    Stmt* body = nullptr;
    Stmt* els = nullptr;
    std::vector<Stmt*> list;                          // block
    // Labels and case markers are keys: a label its symbol number, a case marker a
    // negative number of its own. keys lists those in the statement's subtree; a
    // block maps each to the index of the statement of its list that holds it.
    std::vector<int64_t> keys;
    std::unordered_map<int64_t, size_t> labels;
    std::vector<std::pair<int64_t, int64_t>> cases;   // switch: value -> case key
    int64_t defaultKey = 0;
    int64_t id = 0;                                   // label or case key, goto target; zero offset
    uint32_t size = 0;                                // zero: bytes
};

struct Function {
    int sym = 0;
    std::string name;
    const Type* type = nullptr;
    std::vector<int> paramSyms;
    size_t bodyPos = 0;        // token index of "{"
    bool defined = false;
    bool compiled = false;
    int builtin = 0;           // built-in standing in when the script gives no body
    bool libraryDecl = false;  // only a header's prototype of a built-in so far: no record used
    Stmt* body = nullptr;
    uint32_t frameSize = 0;
    uint32_t paramBytes = 0;
    std::vector<uint32_t> paramOffs;
    std::vector<MemObject> locals;  // offset ranges in the frame, each its own object
    int nVars = 0;
    int index = 0;
    const Code* code = nullptr;  // the body as instructions; null: the tree evaluator runs it
};

enum class BindKind : uint8_t { GlobalVar, LocalVar, Typedef, EnumConst, Func };
struct Binding {
    BindKind kind;
    const Type* type = nullptr;
    int64_t value = 0;  // address, frame offset or enumerator value
    Function* fn = nullptr;
    bool hasInit = false;
};
struct Scope {
    std::unordered_map<int, Binding> names;
    std::unordered_map<int, const Type*> tags;
};

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

struct Engine {
    // ---- source ----
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
    std::unique_ptr<Program> program;  // instructions of the functions compiled so far
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

    // ---- memory ----
    std::vector<uint8_t> data;
    uint32_t globalTop = 0, frameTop = 0, dataUsed = 0;
    std::vector<MemObject> globalObjs, frameObjs;
    std::vector<HeapBlock> heap;
    uint64_t heapNext = kHeapBase;
    uint32_t cacheStart = 1, cacheEnd = 0;
    uint8_t* cacheHost = nullptr;
    std::vector<uint32_t> stringAddr;        // per string constant, 0 until placed

    // ---- execution ----
    uint8_t* fp = nullptr;   // host address of the current frame
    uint32_t fpv = 0;        // its script address
    int cells = 0;           // evaluation stack cells in use
    uintptr_t stackBase = 0; // machine stack address where the run began; 0: unchecked
    int liveVars = 0;
    int curFile = 0, curLine = 0;
    Function* curFn = nullptr;
    Val retVal{};
    uint32_t retAddr = 0;
    int64_t gotoLabel = 0;
    int64_t seekKey = 0;     // entering statements to reach this label or case; 0 when not
    std::vector<int64_t> jmpActs;    // block activations that setjmp may come back to
    std::vector<std::pair<int64_t, size_t>> jmpTargets;  // statement running setjmp: (activation, index)
    int64_t jmpCounter = 0;
    int setjmpValue = 0;
    uint64_t steps = 0, stepBudget = 0;  // 0: no budget
    const std::atomic<int>* stopFlag = nullptr;

    // ---- library ----
    ScriptConsole* console = nullptr;  // the standard streams and the conio calls
    bool consoleAtEnd = false;         // standard input read to its end (feof without a host stream)
    // Carries a call of the editor's to the thread that owns the editor and waits for
    // it; null when the script runs on that thread.
    const std::function<void(const std::function<void()>&)>* editorGate = nullptr;
    std::vector<FILE*> files;        // by handle index; [0..2] the console's host streams, or null
    std::vector<bool> ownFile;
    uint32_t strtokNext = 0;
    uint32_t tmBuf = 0, asctimeBuf = 0, tmpnamBuf = 0, strerrorBuf = 0, lconvBuf = 0, envBuf = 0;
    uint32_t envBufSize = 0;
    unsigned randState = 1;
    int lastErrno = 0;
    bool sealed = false;             // the library refuses every operating-system service
    uint64_t heapLimit = 0, heapBytes = 0;  // live malloc bytes; malloc answers NULL past the limit
    std::vector<std::string> fileNames;  // for __File
    std::vector<std::pair<std::vector<std::string>, size_t>> finds;  // findfirst searches: paths, next
    std::vector<std::string> args;       // the run's argument vector

    Engine();
    ~Engine();

    [[noreturn]] void fail(int code) { raiseScriptError(code, curFile, curLine); }
    [[noreturn]] void failAt(int code) {
        const Token& t = ts.toks[pos < ts.toks.size() ? pos : ts.toks.size() - 1];
        raiseScriptError(code, t.file, t.line);
    }

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
        if (!objects) return;
        frameObjs.push_back(MemObject{fpv, fpv + f->paramBytes});
        if (size > f->frameSize) frameObjs.push_back(MemObject{fpv + f->frameSize, fpv + size});
        for (const MemObject& o : f->locals) frameObjs.push_back(MemObject{fpv + o.start, fpv + o.end});
    }
    void popFrame(Function* f, uint32_t size, bool objects) {
        dataUsed -= size;
        frameTop -= (size + kObjectGap + 7) / 8 * 8;
        if (!objects) return;
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
    int64_t caseKeys = 0;

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
        // Unary chains do not hold stack cells, so deep recursion through them is bounded
        // by the machine stack it takes.
        const uintptr_t here = reinterpret_cast<uintptr_t>(__builtin_frame_address(0));
        if (stackBase > here && stackBase - here > kMaxHostStack) fail(kErrStackOverflow);
        if (!f->compiled) compileFunction(f);
    }
    // Runs f on the argument values av of the call e, in a frame of its own.
    Val enter(Function* f, Expr* e, const Val* av);
    Flow exec(Stmt* s);
    Flow execBlock(Stmt* s, size_t from);
    Flow execJumpBlock(Stmt* s, size_t from);
    void tick() {
        checkStop();
        if (stepBudget && ++steps > stepBudget) fail(kErrTerminated);
    }
    void checkStop() {
        if (stopFlag && stopFlag->load(std::memory_order_relaxed)) fail(kErrTerminated);
    }

    // library (builtins_dispatch.cpp)
    Val callBuiltin(Expr* e);
};

}  // namespace zol
