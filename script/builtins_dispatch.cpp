// The built-in dispatcher: one slot per built-in number, filled from script/builtins.def
// and by registerBuiltin; and the helpers by which implementations reach script memory.
#include <algorithm>
#include <array>
#include <cstring>
#include <exception>
#include <iterator>
#include <string_view>

#include "script/builtin_table.h"
#include "script/builtins.h"

namespace zol {
namespace {

// Whether a row is implemented is said by its macro, not read from fn: a function's
// address is no constant where symbols may be interposed (a sanitizer build).
struct Row {
    int number;
    BuiltinFn fn;
    bool implemented;
    std::string_view prototype;
    unsigned flags;
};
constexpr Row kRows[] = {
#define BUILTIN(header, number, prototype, impl, flags) {number, impl, true, prototype, flags},
#define BUILTIN_DECLARED(header, number, prototype, flags) {number, nullptr, false, prototype, flags},
#include "script/builtins.def"
#undef BUILTIN
#undef BUILTIN_DECLARED
};

struct Slot {
    BuiltinFn fn = nullptr;
    bool named = false;          // some name carries the number
    bool library = false;        // implemented here; registration cannot replace it
    bool system = false;         // kBuiltinSystem: a sealed run refuses the call
    bool pointerResult = false;  // what a refused call answers: NULL, else -1
    bool window = false;         // kBuiltinWindow or kBuiltinEditor: runs where the editor lives
};

constexpr size_t slotCount() {
    int top = 0;
    for (const Row& r : kRows) top = std::max(top, r.number);
    return static_cast<size_t>(top) + 1;
}
constexpr size_t kSlots = slotCount();

constexpr std::array<Slot, kSlots> makeSlots() {
    std::array<Slot, kSlots> slots{};
    for (const Row& r : kRows) {
        Slot& s = slots[static_cast<size_t>(r.number)];
        const char result = builtinSignature(r.prototype)[0];
        s = Slot{r.fn, true, r.implemented, (r.flags & kBuiltinSystem) != 0, result == 'c' || result == 'p',
                 (r.flags & (kBuiltinWindow | kBuiltinEditor)) != 0};
    }
    return slots;
}

constexpr bool sharedNumbersShareImplementation() {
    for (const Row& a : kRows)
        for (const Row& b : kRows)
            if (a.number == b.number && a.fn != b.fn) return false;
    return true;
}
static_assert(sharedNumbersShareImplementation(), "names that share a number name different implementations");

constinit std::array<Slot, kSlots> gSlots = makeSlots();

// Runs the call on the editor's thread and waits for it; a script error raised there
// is raised again here, on the script's own thread.
Val throughGate(Engine& en, BuiltinFn fn, BArgs& a) {
    Val result{};
    std::exception_ptr thrown;
    (*en.editorGate)([&] {
        try {
            result = fn(a);
        } catch (...) {
            thrown = std::current_exception();
        }
    });
    if (thrown) std::rethrow_exception(thrown);
    // The gate lets a call go when the editor closes under the run.
    en.checkStop();
    return result;
}

}  // namespace

bool registerBuiltin(int number, BuiltinFn fn) {
    if (number < 0 || static_cast<size_t>(number) >= kSlots) return false;
    Slot& s = gSlots[static_cast<size_t>(number)];
    if (!s.named || s.library) return false;
    s.fn = fn;
    return true;
}

bool builtinCallable(int number) {
    return number >= 0 && static_cast<size_t>(number) < kSlots && gSlots[static_cast<size_t>(number)].fn;
}

Val Engine::callBuiltin(Expr* e) {
    ArgValues args;
    return callBuiltinWith(e, evalArgs(e, args));
}

Val Engine::callBuiltinWith(Expr* e, Val* av) {
    curFile = e->file;
    curLine = e->line;
    const Slot& slot = gSlots[static_cast<size_t>(e->builtin)];
    if (sealed && slot.system) return intVal(slot.pointerResult ? 0 : -1);
    if (!slot.fn) fail(kErrCallUndefined);
    BArgs a{*this, e, av, e->args.size(), e->builtin};
    if (slot.window && editorGate) return throughGate(*this, slot.fn, a);
    return slot.fn(a);
}

std::string BArgs::s(size_t k) const {
    const uint32_t a = p(k);
    if (a == 0) en.fail(kErrNotAddress);
    return en.cstr(a);
}

void putBytes(Engine& en, uint32_t dst, const void* src, size_t n) {
    if (n == 0) return;
    if (n > 0xffffffffu) en.fail(kErrIllegalPointer);
    std::memmove(en.host(dst, static_cast<uint32_t>(n)), src, n);
}

void putString(Engine& en, uint32_t dst, const std::string& s) { putBytes(en, dst, s.c_str(), s.size() + 1); }

uint32_t libBuffer(Engine& en, uint32_t& slot, uint32_t size) {
    if (!slot) slot = en.allocGlobal(size, 8);
    return slot;
}

}  // namespace zol
