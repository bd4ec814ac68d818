// Script functions compiled once into typed instructions for a stack machine. The
// locals stay where the tree evaluator keeps them, in the frame of the script's data
// space, so a compiled function and an evaluated one call each other freely; what the
// code generator does not translate is handed to the tree evaluator a piece at a time.
#pragma once
#include <cstdint>
#include <cstring>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "script/interp.h"

namespace zol {

enum class VmOp : uint8_t {
#define VM_OP(name, change, operands) name,
#include "script/opcodes.def"
#undef VM_OP
};

struct Code;
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
        const Code* c;
    };
    Ins() : op(VmOp::End), v{} {}
};

// The operand stacks of all activations share one array; a body whose stack would not
// fit above those of its callers runs in the tree evaluator. The total allows the 512
// nested calls that the value cells allow, each with a modest expression in flight;
// deeper recursion of bodies that need more goes on in the tree evaluator.
constexpr int kVmStackTotal = 16384;

struct Code {
    std::vector<Ins> ins;
    Function* fn = nullptr;
    int maxHeld = 0;   // value cells the tree evaluator would hold at most in this body
    int maxDepth = 0;  // operand stack cells the body uses at most
    bool framed = false;  // forms addresses in its frame (or lets the tree evaluator do so)
    std::vector<TypeKind> paramKinds;
    bool structParams = false, returnsStruct = false;
    bool mustReturn = false;  // running off the end is error 71
    // Every parameter a 32-bit integer or pointer: the arguments go into the frame's
    // first words one after the other.
    bool wordParams = false;
    // Calls from compiled code run it in line when it takes exactly its parameters and
    // the cells in use then, its own call's included, are at most cellsLimit; -1 when
    // it never runs in line (a struct parameter or result).
    int params = 0, cellsLimit = -1;
    // The frame as the dispatcher pushes it: size, the room it takes with its gap, and
    // the bytes that start zeroed (the parameters' and locals' words).
    uint32_t frameSize = 0, frameRoom = 0, zeroFrom = 0, zeroTo = 0;
    int nVars = 0;
};

// A compiled function called from compiled code, run in the caller's dispatch loop:
// the call it returns to and the line the caller stood at.
struct VmFrame {
    const Ins* call;
    const Code* code;
    int file, line;
};
// Every call run in line takes a value cell, so the cell limit bounds their nesting.
constexpr int kVmFrames = kStackCells + 1;

// The compiled program: a Code for every function that a compiled call names, kept
// from the first such call, filled when the function compiles; and the machine's stacks.
struct Program {
    std::deque<Code> codes;
    std::vector<Code*> byFunction;  // by Function::index; null until needed
    std::unique_ptr<Val[]> stack{new Val[kVmStackTotal]};
    Val* sp = stack.get();   // the first cell no activation uses
    std::unique_ptr<VmFrame[]> frames{new VmFrame[kVmFrames]};
    VmFrame* top = frames.get();  // the first frame not in use
};

// f's Code, empty (never run in line) until f compiles.
inline Code& codeOf(Program& p, Function* f) {
    const size_t k = static_cast<size_t>(f->index);
    if (p.byFunction.size() <= k) p.byFunction.resize(k + 1);
    if (!p.byFunction[k]) {
        p.byFunction[k] = &p.codes.emplace_back();
        p.byFunction[k]->fn = f;
    }
    return *p.byFunction[k];
}

// Whether code's operand stack fits above the activations running now.
inline bool stackFits(const Program& p, const Code& code) { return p.sp + code.maxDepth <= p.stack.get() + kVmStackTotal; }

// Arguments into the parameters of a compiled function's new frame.
inline void storeParams(uint8_t* fp, const Function* f, const Code& c, const Val* av) {
    if (c.wordParams) {
        for (const Val* end = av + c.params; av != end; ++av, fp += 4) {
            const uint32_t x = static_cast<uint32_t>(av->i);
            std::memcpy(fp, &x, 4);
        }
        return;
    }
    for (size_t i = 0; i < c.paramKinds.size(); ++i) storeKind(fp + f->paramOffs[i], c.paramKinds[i], av[i]);
}

// The frame of a call run in line, as Engine::pushFrame and popFrame keep it, with only
// its parameters' and locals' words cleared and the gap after them left alone.
inline void pushCodeFrame(Engine& en, const Code& c) {
    if (static_cast<uint64_t>(en.dataUsed) + c.frameSize > kDataSpaceSize ||
        static_cast<uint64_t>(en.globalTop) + en.frameTop + c.frameSize + 2 * kObjectGap > kDataHostSize)
        en.fail(kErrDataSpace);
    en.dataUsed += c.frameSize;
    en.frameTop += c.frameRoom;
    en.fpv -= c.frameRoom;
    en.fp -= c.frameRoom;
    for (uint32_t i = c.zeroFrom; i < c.zeroTo; i += 8) std::memset(en.fp + i, 0, 8);
    if (c.framed) en.pushFrameObjects(c.fn, c.frameSize);
}
inline void popCodeFrame(Engine& en, const Code& c) {
    en.dataUsed -= c.frameSize;
    en.frameTop -= c.frameRoom;
    en.fpv += c.frameRoom;
    en.fp += c.frameRoom;
    if (c.framed) en.popFrameObjects(c.fn, c.frameSize);
}

// Compiles f's parsed body; null when it calls setjmp or its expressions need more
// operand stack than there is, which only the tree evaluator runs.
const Code* generateCode(Engine& en, Function* f);
// Runs one activation whose frame the caller has pushed; true when it returned by a
// return statement (the value in en.retVal), false when it ran off its end.
bool runCode(Engine& en, const Code& code);
// A readable listing, one instruction a line.
std::string listCode(const Code& code);

}  // namespace zol
