// Statements into instructions, and a function's body as a whole. Every statement
// first says where it stands, as the tree evaluator's exec does, so an error reports
// the same line. Labels and case markers are places in the code: goto and switch jump
// straight to them, into the middle of loops and blocks as C allows.
#include "script/compile.h"

namespace zol {
namespace {

void emitLine(CodeGen& g, const Stmt* s) {
    // A Line that no jump lands after is overwritten: only the newest one counts.
    const bool merge = !g.code.ins.empty() && g.code.ins.back().op == VmOp::Line && g.target != g.code.ins.size();
    if (!merge) emit(g, VmOp::Line);
    last(g).x = static_cast<uint16_t>(s->file);
    last(g).a = s->line;
}

// A loop's body, with break and continue pointed at the ends given.
void emitLoopBody(CodeGen& g, Stmt* body, LoopJumps& jumps) {
    g.loops.push_back(&jumps);
    emitStmt(g, body);
    g.loops.pop_back();
}

// A loop tests at its bottom, which it enters by a jump the first time.
void emitWhile(CodeGen& g, Stmt* s) {
    LoopJumps jumps;
    const size_t enter = emit(g, VmOp::Jump);
    const size_t top = here(g);
    emitLoopBody(g, s->body, jumps);
    const size_t test = here(g);
    patch(g, enter, test);
    patch(g, emitJumpIf(g, s->e, true, true), top);
    const size_t end = here(g);
    for (size_t j : jumps.breaks) patch(g, j, end);
    for (size_t j : jumps.continues) patch(g, j, test);
}

void emitDo(CodeGen& g, Stmt* s) {
    LoopJumps jumps;
    const size_t top = here(g);
    emit(g, VmOp::Tick);
    emitLoopBody(g, s->body, jumps);
    const size_t next = here(g);
    emitLine(g, s);
    patch(g, emitJumpIf(g, s->e, true), top);
    const size_t end = here(g);
    for (size_t j : jumps.breaks) patch(g, j, end);
    for (size_t j : jumps.continues) patch(g, j, next);
}

void emitFor(CodeGen& g, Stmt* s) {
    LoopJumps jumps;
    if (s->els) emitStmt(g, s->els);
    else if (s->e) emitDiscard(g, s->e);
    const size_t enter = emit(g, VmOp::Jump);
    const size_t top = here(g);
    emitLoopBody(g, s->body, jumps);
    const size_t next = here(g);
    if (s->e3) emitDiscard(g, s->e3);
    const size_t test = here(g);
    patch(g, enter, test);
    if (s->e2) {
        patch(g, emitJumpIf(g, s->e2, true, true), top);
    } else {
        emit(g, VmOp::Tick);
        patch(g, emit(g, VmOp::Jump), top);
    }
    const size_t end = here(g);
    for (size_t j : jumps.breaks) patch(g, j, end);
    for (size_t j : jumps.continues) patch(g, j, next);
}

void emitList(CodeGen& g, const std::vector<Stmt*>& list) {
    for (size_t i = 0; i < list.size(); ++i) emitStmt(g, list[i], i + 1 < list.size());
}

bool isJump(VmOp op) {
    switch (op) {
        case VmOp::Jump: case VmOp::JumpIfZero: case VmOp::JumpIfNonZero: case VmOp::JumpIfZeroF:
        case VmOp::JumpIfNonZeroF: case VmOp::CaseJump: case VmOp::JumpIfLtI32: case VmOp::JumpIfLeI32:
        case VmOp::JumpUnlessLtI32: case VmOp::JumpUnlessLeI32: case VmOp::JumpIfLtI32K: case VmOp::JumpIfLeI32K:
        case VmOp::JumpUnlessLtI32K: case VmOp::JumpUnlessLeI32K:
            return true;
        default:
            return false;
    }
}

bool isLocalCompareJump(VmOp op) {
    return op == VmOp::JumpIfLtI32 || op == VmOp::JumpIfLeI32 || op == VmOp::JumpUnlessLtI32 || op == VmOp::JumpUnlessLeI32 ||
           op == VmOp::JumpIfLtI32K || op == VmOp::JumpIfLeI32K || op == VmOp::JumpUnlessLtI32K || op == VmOp::JumpUnlessLeI32K;
}

void emitIf(CodeGen& g, Stmt* s, bool followed) {
    const size_t line = g.code.ins.size() - 1;
    size_t other = emitJumpIf(g, s->e, false);
    // A test of locals cannot fail, and both ways go on to a statement that says its own
    // line first: the if's own line is never reported.
    if ((s->els || followed) && isLocalCompareJump(g.code.ins[other].op) && other == line + 1 &&
        g.code.ins[line].op == VmOp::Line) {
        g.code.ins.erase(g.code.ins.begin() + static_cast<std::ptrdiff_t>(line));
        other = line;
    }
    emitStmt(g, s->body);
    if (!s->els) {
        patch(g, other, here(g));
        return;
    }
    const size_t end = emit(g, VmOp::Jump);
    patch(g, other, here(g));
    emitStmt(g, s->els);
    patch(g, end, here(g));
}

// Instructions that cannot raise an error, whatever their operands.
bool cannotFail(VmOp op) {
    switch (op) {
        case VmOp::Const: case VmOp::LoadLocal: case VmOp::LoadLocalI32: case VmOp::LoadLocalU32:
        case VmOp::LoadGlobal: case VmOp::AddrLocal: case VmOp::AddI32: case VmOp::SubI32: case VmOp::MulI32:
        case VmOp::LtI32: case VmOp::GtI32: case VmOp::LeI32: case VmOp::GeI32: case VmOp::EqI32: case VmOp::NeI32:
        case VmOp::AddConstI32: case VmOp::LoadLocalAddI32: case VmOp::Offset: case VmOp::Not: case VmOp::NotF:
        case VmOp::ToBool: case VmOp::ToBoolF:
            return true;
        default:
            return false;
    }
}

void emitReturn(CodeGen& g, Stmt* s) {
    if (!s->e) {
        emit(g, VmOp::ReturnVoid);
    } else if (s->e->type->kind == kTStruct) {
        emit(g, VmOp::Exec);
        last(g).s = s;
        last(g).a = -1;
    } else {
        const size_t from = g.code.ins.size();
        emitExpr(g, s->e);
        // Nothing can fail before the return, after which the caller's line holds again:
        // the return's own line is never reported.
        bool pure = from > 0 && g.code.ins[from - 1].op == VmOp::Line;
        for (size_t i = from; pure && i < g.code.ins.size(); ++i) pure = cannotFail(g.code.ins[i].op);
        if (pure) g.code.ins.erase(g.code.ins.begin() + static_cast<std::ptrdiff_t>(from - 1));
        emit(g, VmOp::Return);
    }
}

LoopJumps* innermostLoop(CodeGen& g) {
    for (size_t i = g.loops.size(); i > 0; --i)
        if (!g.loops[i - 1]->isSwitch) return g.loops[i - 1];
    return nullptr;
}

// The tree evaluator runs the statement; a continue that comes out of it goes on with
// the loop around it.
void emitExec(CodeGen& g, Stmt* s) {
    const size_t at = emit(g, VmOp::Exec);
    last(g).s = s;
    last(g).a = -1;
    if (LoopJumps* loop = innermostLoop(g)) loop->continues.push_back(at);
}

// The value picks a case marker anywhere in the body, which is entered there.
void emitSwitch(CodeGen& g, Stmt* s) {
    emitExpr(g, s->e);
    std::vector<std::pair<size_t, int64_t>> picks;
    for (const auto& c : s->cases) {
        picks.emplace_back(emit(g, VmOp::CaseJump), c.second);
        last(g).v.i = c.first;
    }
    emit(g, VmOp::Pop);
    const size_t other = emit(g, VmOp::Jump);
    LoopJumps jumps;
    jumps.isSwitch = true;
    g.loops.push_back(&jumps);
    emitList(g, s->body->list);
    g.loops.pop_back();
    const size_t end = here(g);
    for (const auto& p : picks) patch(g, p.first, g.marks.at(p.second));
    patch(g, other, s->defaultKey ? g.marks.at(s->defaultKey) : end);
    for (size_t j : jumps.breaks) patch(g, j, end);
}

// A longjmp comes back into the middle of a statement, which only the tree evaluator
// knows how to do.
bool translatable(const Stmt* s) {
    if (!s) return true;
    if (s->hasSetjmp || s->jmpChild) return false;
    for (const Stmt* c : s->list)
        if (!translatable(c)) return false;
    return translatable(s->body) && translatable(s->els);
}

}  // namespace

void emitStmt(CodeGen& g, Stmt* s, bool followed) {
    if (s->op == SOp::Case || s->op == SOp::Label) g.marks[s->id] = here(g);
    emitLine(g, s);
    switch (s->op) {
        case SOp::Expr:
            if (s->e) emitDiscard(g, s->e);
            return;
        case SOp::Block:
            emitList(g, s->list);
            return;
        case SOp::If: return emitIf(g, s, followed);
        case SOp::While: return emitWhile(g, s);
        case SOp::Do: return emitDo(g, s);
        case SOp::For: return emitFor(g, s);
        case SOp::Return: return emitReturn(g, s);
        case SOp::Break:
            g.loops.back()->breaks.push_back(emit(g, VmOp::Jump));
            return;
        case SOp::Continue:
            innermostLoop(g)->continues.push_back(emit(g, VmOp::Jump));
            return;
        case SOp::Switch: return emitSwitch(g, s);
        case SOp::Case:
        case SOp::Label:
            return;
        case SOp::Goto:
            g.gotos.emplace_back(emit(g, VmOp::Jump), s->id);
            return;
        case SOp::Zero:
            emit(g, VmOp::ZeroLocal);
            last(g).a = static_cast<int32_t>(s->id);
            last(g).v.i = s->size;
            return;
        default:
            return emitExec(g, s);
    }
}

const Code* generateCode(Engine& en, Function* f) {
    if (!translatable(f->body)) return nullptr;
    Code& code = codeOf(*en.program, f);
    CodeGen g{en, code, 0, 0, 0, 0, {}, {}, {}};
    code.wordParams = true;
    for (const Type* t : f->type->params) {
        code.paramKinds.push_back(t->kind);
        code.structParams |= t->kind == kTStruct;
        code.wordParams &= t->kind == kTInt || t->kind == kTUInt || t->kind == kTLong || t->kind == kTULong || t->kind == kTPtr;
    }
    code.returnsStruct = f->type->base->kind == kTStruct;
    code.mustReturn = f->type->base->kind != kTVoid && f->name != "main";
    emitList(g, f->body->list);
    emit(g, VmOp::End);
    for (const auto& j : g.gotos) patch(g, j.first, g.marks.at(j.second));
    for (size_t i = 0; i < code.ins.size(); ++i)
        if (isJump(code.ins[i].op)) code.ins[i].a -= static_cast<int32_t>(i);
    code.maxDepth = g.maxDepth;
    code.params = static_cast<int>(code.paramKinds.size());
    if (!code.structParams && !code.returnsStruct) code.cellsLimit = kStackCells - code.maxHeld;
    code.frameSize = f->frameSize;
    code.frameRoom = (f->frameSize + kObjectGap + 7) / 8 * 8;
    // Word parameters are all written and a gap that nothing reads follows them, so
    // clearing starts at the first whole word after them.
    code.zeroFrom = code.wordParams ? (f->paramBytes + 7) / 8 * 8 : 0;
    code.zeroTo = f->frameSize - kObjectGap;
    code.nVars = f->nVars;
    if (g.maxDepth > kVmStackTotal) {
        code = Code{};
        code.fn = f;
        return nullptr;
    }
    return &code;
}

}  // namespace zol
