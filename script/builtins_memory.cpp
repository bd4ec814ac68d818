// Memory: the mem functions over script objects and the malloc family over the
// script's heap. Every pointer is checked against the object it points into.
#include <algorithm>
#include <cstring>

#include "script/builtins.h"

namespace zol {
namespace {

// The readable bytes at p up to n (or up to the end of its object).
const uint8_t* bytes(Engine& en, uint32_t p, uint32_t n) {
    if (p == 0) en.fail(kErrNotAddress);
    return en.host(p, n);
}

// memcpy and memmove: the source is read whole before the destination is written.
Val copyBytes(BArgs& a) {
    const int64_t n = static_cast<int32_t>(a.i(2));
    if (n < 0) a.en.fail(kErrArgMismatch);
    if (n > 0) {
        const uint8_t* src = bytes(a.en, a.p(1), static_cast<uint32_t>(n));
        std::string tmp(reinterpret_cast<const char*>(src), static_cast<size_t>(n));
        if (a.p(0) == 0) a.en.fail(kErrNotAddress);
        putBytes(a.en, a.p(0), tmp.data(), tmp.size());
    }
    return intVal(a.p(0));
}

}  // namespace

Val bi_memchr(BArgs& a) {
    const uint32_t n = static_cast<uint32_t>(a.i(2));
    if (n == 0) return intVal(0);
    const uint8_t* h = bytes(a.en, a.p(0), n);
    const void* hit = std::memchr(h, static_cast<unsigned char>(a.i(1)), n);
    return intVal(hit ? a.p(0) + static_cast<uint32_t>(static_cast<const uint8_t*>(hit) - h) : 0);
}

Val bi_memcmp(BArgs& a) {
    const uint32_t n = static_cast<uint32_t>(a.i(2));
    if (n == 0) return intVal(0);
    const std::string x(reinterpret_cast<const char*>(bytes(a.en, a.p(0), n)), n);
    return intVal(signOf(std::memcmp(x.data(), bytes(a.en, a.p(1), n), n)));
}

Val bi_memcpy(BArgs& a) { return copyBytes(a); }

Val bi_memmove(BArgs& a) { return copyBytes(a); }

Val bi_memset(BArgs& a) {
    const int64_t n = static_cast<int32_t>(a.i(2));
    if (n < 0) a.en.fail(kErrArgMismatch);
    if (n > 0) {
        std::memset(a.en.host(a.p(0), static_cast<uint32_t>(n)), static_cast<int>(a.i(1) & 0xff),
                    static_cast<size_t>(n));
    } else if (a.p(0) == 0) {
        a.en.fail(kErrNotAddress);
    }
    return intVal(a.p(0));
}

Val bi_malloc(BArgs& a) { return intVal(a.en.heapAlloc(static_cast<uint32_t>(a.i(0)), false)); }

Val bi_calloc(BArgs& a) {
    const uint64_t total = static_cast<uint64_t>(static_cast<uint32_t>(a.i(0))) * static_cast<uint32_t>(a.i(1));
    return intVal(a.en.heapAlloc(total, true));
}

Val bi_realloc(BArgs& a) {
    Engine& en = a.en;
    const uint32_t p = a.p(0);
    const uint32_t n = static_cast<uint32_t>(a.i(1));
    if (p == 0) return intVal(en.heapAlloc(n, false));
    HeapBlock* b = en.heapBlock(p);
    if (!b || b->freed || b->start != p) en.fail(kErrIllegalPointer);
    if (n == 0) {
        en.heapFree(p);
        return intVal(0);
    }
    const uint32_t oldSize = b->size;
    const uint32_t q = en.heapAlloc(n, false);
    if (!q) return intVal(0);
    const uint32_t keep = std::min(oldSize, n);
    if (keep) std::memcpy(en.host(q, keep), en.host(p, keep), keep);
    en.heapFree(p);
    return intVal(q);
}

Val bi_free(BArgs& a) {
    if (a.p(0) && !a.en.heapFree(a.p(0))) a.en.fail(kErrIllegalPointer);
    return Val{};
}

}  // namespace zol
