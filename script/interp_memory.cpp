// The script's address space. Objects in the data space (globals, constants, each
// local of a frame) and malloc blocks are separate ranges with gaps between them, so
// that an access is valid only inside the one object it starts in.
// Faults: an address inside no live object (null, wild, freed) is error 42; an access
// that starts inside an object but runs past its end is error 66.
#include <algorithm>
#include <cstring>

#include "script/interp.h"

namespace zol {
namespace {

const MemObject* findAscending(const std::vector<MemObject>& v, uint32_t a) {
    auto it = std::upper_bound(v.begin(), v.end(), a, [](uint32_t x, const MemObject& o) { return x < o.start; });
    if (it == v.begin()) return nullptr;
    --it;
    return a <= it->end ? &*it : nullptr;
}

}  // namespace

uint32_t Engine::allocGlobal(uint32_t size, uint32_t align) {
    if (data.empty()) data.assign(kDataHostSize, 0);
    if (align < 1) align = 1;
    uint32_t off = (globalTop + kObjectGap + align - 1) / align * align;
    if (static_cast<uint64_t>(dataUsed) + size > kDataSpaceSize ||
        static_cast<uint64_t>(off) + size + frameTop + kObjectGap > kDataHostSize)
        fail(kErrDataSpace);
    dataUsed += size;
    globalTop = off + size;
    const uint32_t addr = kDataBase + off;
    globalObjs.push_back(MemObject{addr, addr + size});
    return addr;
}

HeapBlock* Engine::heapBlock(uint32_t addr) {
    auto it = std::upper_bound(heap.begin(), heap.end(), addr, [](uint32_t x, const HeapBlock& b) { return x < b.start; });
    if (it == heap.begin()) return nullptr;
    --it;
    return addr <= it->start + it->size ? &*it : nullptr;
}

uint8_t* Engine::hostOrNull(uint32_t addr, uint32_t n, int* err) {
    if (addr >= kHeapBase) {
        HeapBlock* b = heapBlock(addr);
        if (!b || b->freed || (addr == b->start + b->size && n > 0)) {
            *err = b && !b->freed ? kErrIllegalPointer : kErrNotAddress;
            return nullptr;
        }
        if (static_cast<uint64_t>(addr) + n > static_cast<uint64_t>(b->start) + b->size) {
            *err = kErrIllegalPointer;
            return nullptr;
        }
        cacheStart = b->start;
        cacheEnd = b->start + b->size;
        cacheHost = b->bytes.get();
        return b->bytes.get() + (addr - b->start);
    }
    if (addr >= kDataBase && addr < kDataBase + kDataHostSize) {
        const MemObject* o = nullptr;
        if (addr < kDataBase + globalTop) {
            o = findAscending(globalObjs, addr);
        } else {
            // Newest frames lie lowest and are the likeliest to be used.
            for (auto it = frameObjs.rbegin(); it != frameObjs.rend(); ++it)
                if (addr >= it->start && addr <= it->end) {
                    o = &*it;
                    break;
                }
        }
        if (!o || (addr == o->end && n > 0 && o->end != o->start)) {
            *err = o ? kErrIllegalPointer : kErrNotAddress;
            return nullptr;
        }
        if (static_cast<uint64_t>(addr) + n > o->end) {
            *err = kErrIllegalPointer;
            return nullptr;
        }
        uint8_t* base = data.data() + (o->start - kDataBase);
        cacheStart = o->start;
        cacheEnd = o->end;
        cacheHost = base;
        return base + (addr - o->start);
    }
    *err = kErrNotAddress;
    return nullptr;
}

uint8_t* Engine::hostSlow(uint32_t addr, uint32_t n) {
    int err = 0;
    uint8_t* p = hostOrNull(addr, n, &err);
    if (!p) fail(err);
    return p;
}

uint8_t* Engine::span(uint32_t addr, uint32_t* avail) {
    uint8_t* p = host(addr, 1);
    *avail = cacheEnd - addr;
    return p;
}

std::string Engine::cstr(uint32_t addr) {
    uint32_t n = 0;
    const uint8_t* p = span(addr, &n);
    const void* z = std::memchr(p, 0, n);
    if (!z) fail(kErrIllegalPointer);
    return std::string(reinterpret_cast<const char*>(p), static_cast<const uint8_t*>(z) - p);
}

uint32_t Engine::stringConstant(int index) {
    if (stringAddr.size() < ts.strings.size()) stringAddr.resize(ts.strings.size(), 0);
    uint32_t& a = stringAddr[static_cast<size_t>(index)];
    if (!a) {
        const std::string& s = ts.strings[static_cast<size_t>(index)];
        a = allocGlobal(static_cast<uint32_t>(s.size() + 1), 1);
        std::memcpy(data.data() + (a - kDataBase), s.data(), s.size() + 1);
    }
    return a;
}

uint32_t Engine::heapAlloc(uint64_t size, bool zero) {
    if (size > 0x40000000ull || (heapLimit && heapBytes + size > heapLimit)) return 0;
    const uint64_t start = (heapNext + 15) / 16 * 16;
    if (start + size + kObjectGap > kHeapBase + kHeapLimit) return 0;
    HeapBlock b;
    b.start = static_cast<uint32_t>(start);
    b.size = static_cast<uint32_t>(size);
    b.bytes.reset(new (std::nothrow) uint8_t[size ? size : 1]);
    if (!b.bytes) return 0;
    if (zero) std::memset(b.bytes.get(), 0, size);
    heapNext = start + (size ? size : 1) + kObjectGap;
    heapBytes += size;
    heap.push_back(std::move(b));
    return static_cast<uint32_t>(start);
}

bool Engine::heapFree(uint32_t addr) {
    HeapBlock* b = heapBlock(addr);
    if (!b || b->freed || b->start != addr) return false;
    b->freed = true;
    b->bytes.reset();
    heapBytes -= b->size;
    cacheStart = 1;
    cacheEnd = 0;
    return true;
}

}  // namespace zol
