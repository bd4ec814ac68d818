// The parsed form of a function body: typed expression and statement trees, which the
// tree evaluator runs and the code generator translates; functions and name bindings.
#pragma once
#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "script/machine.h"
#include "script/values.h"

namespace zol {

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
    int64_t value = 0;  // address, frame offset or enumerator value; for a typedef, 1
                        // when it names an enum without negative constants
    Function* fn = nullptr;
    bool hasInit = false;
};
struct Scope {
    std::unordered_map<int, Binding> names;
    std::unordered_map<int, const Type*> tags;
};

}  // namespace zol
