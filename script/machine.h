// The machine a script runs on: its address space (data space with globals below and
// frames above, heap blocks), the current frame, value cells, line and stop request.
#pragma once
#include <atomic>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "script/errors.h"
#include "script/values.h"

namespace zol {

struct Function;

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

struct Machine {
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
    // Ticks left before the Stop request and the budget are looked at again; steps
    // counts only the ticks before the current stretch.
    int64_t ticksLeft = 1, stretch = 1;

    [[noreturn]] void fail(int code) { raiseScriptError(code, curFile, curLine); }
    // A loop's turn or a call. Stop is looked at every kStopPoll ticks, a few
    // microseconds of running; the budget ends the run at its exact tick.
    void tick() {
        if (--ticksLeft <= 0) tickStretch();
    }
    static constexpr int64_t kStopPoll = 1024;
    void tickStretch() {
        steps += static_cast<uint64_t>(stretch);
        checkStop();
        if (stepBudget && steps > stepBudget) fail(kErrTerminated);
        stretch = kStopPoll;
        if (stepBudget && stepBudget + 1 - steps < static_cast<uint64_t>(stretch))
            stretch = static_cast<int64_t>(stepBudget + 1 - steps);
        ticksLeft = stretch;
    }
    void checkStop() {
        if (stopFlag && stopFlag->load(std::memory_order_relaxed)) fail(kErrTerminated);
    }
};

}  // namespace zol
