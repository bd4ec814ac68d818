// Script functions compiled once into typed instructions for a stack machine. The
// locals stay where the tree evaluator keeps them, in the frame of the script's data
// space, so a compiled function and an evaluated one call each other freely; what the
// code generator does not translate is handed to the tree evaluator a piece at a time.
#pragma once
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "script/interp.h"

namespace zol {

enum class VmOp : uint8_t {
#define VM_OP(name, change, operands) name,
#include "script/opcodes.def"
#undef VM_OP
};

struct Ins {
    VmOp op;
    uint8_t k = 0;   // a type kind
    uint16_t x = 0;
    int32_t a = 0;
    union {
        Val v;
        Expr* e;
        Stmt* s;
        Function* f;
    };
    Ins() : op(VmOp::End), v{} {}
};

// The operand stack of one activation lives on the machine stack; an expression whose
// instructions would need more is left to the tree evaluator. Deeper trees are rare in
// scripts and the tree evaluator reports every limit of theirs itself.
constexpr int kVmStackCells = 48;

struct Code {
    std::vector<Ins> ins;
    int maxHeld = 0;   // value cells the tree evaluator would hold at most in this body
    bool framed = false;  // forms addresses in its frame (or lets the tree evaluator do so)
    std::vector<TypeKind> paramKinds;
    bool structParams = false, returnsStruct = false;
};

// The compiled program: one Code per function that compiles.
struct Program {
    std::deque<Code> codes;
};

// Compiles f's parsed body; null when it uses goto, labels or setjmp, which only the
// tree evaluator runs.
const Code* generateCode(Engine& en, Function* f);
// Runs one activation whose frame the caller has pushed; true when it returned by a
// return statement (the value in en.retVal), false when it ran off its end.
bool runCode(Engine& en, const Code& code);
// A readable listing, one instruction a line.
std::string listCode(const Code& code);

}  // namespace zol
