// The code generator's state while it turns one parsed function body into
// instructions (compile_expr.cpp, compile_stmt.cpp).
#pragma once
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

#include "script/interp.h"
#include "script/vm.h"

namespace zol {

// Jumps still to be pointed at their loop's or switch's end or a loop's next turn.
struct LoopJumps {
    std::vector<size_t> breaks, continues;
    bool isSwitch = false;  // takes break only; continue goes to the loop around it
};

struct CodeGen {
    Engine& en;
    Code& code;
    int depth = 0, maxDepth = 0;   // operand stack in use here, and at most
    int held = 0;                  // value cells the tree evaluator holds here
    size_t target = 0;             // where a jump lands last: a Line before it must stay
    std::vector<LoopJumps*> loops;
    std::unordered_map<int64_t, size_t> marks;  // label or case marker key -> its instruction
    std::vector<std::pair<size_t, int64_t>> gotos;  // jumps to labels, patched at the end
};

// Expressions of at most this height are translated; taller ones go to the tree
// evaluator whole, which keeps the operand stack of an activation small.
constexpr uint32_t kVmInlineDepth = 24;

size_t emit(CodeGen& g, VmOp op);
Ins& last(CodeGen& g);
size_t here(CodeGen& g);       // the next instruction's index, as a jump target
void patch(CodeGen& g, size_t jump, size_t to);
void hold(CodeGen& g, int n);  // the tree evaluator takes (n > 0) or gives back cells

void emitExpr(CodeGen& g, Expr* e);      // pushes e's value
void emitDiscard(CodeGen& g, Expr* e);   // e for its effects only
// Jumps when e's truth is the given one, after a loop's turn when tick; returns the
// jump to patch.
size_t emitJumpIf(CodeGen& g, Expr* e, bool truth, bool tick = false);
// followed: another statement of the same block comes next.
void emitStmt(CodeGen& g, Stmt* s, bool followed = false);

}  // namespace zol
