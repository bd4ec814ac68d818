#include "platform/big_block.h"

#include <sys/mman.h>

#include <cstdint>

namespace zol {

char* allocateBigBlock(size_t size) {
    // Map one alignment more than asked and trim both ends to an aligned block.
    const size_t span = size + kBigBlockAlign;
    void* raw = mmap(nullptr, span, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (raw == MAP_FAILED) return nullptr;
    const auto base = reinterpret_cast<uintptr_t>(raw);
    const uintptr_t start = (base + kBigBlockAlign - 1) & ~(uintptr_t{kBigBlockAlign} - 1);
    if (start > base) munmap(raw, start - base);
    const uintptr_t tail = base + span - (start + size);
    if (tail > 0) munmap(reinterpret_cast<void*>(start + size), tail);
#ifdef MADV_HUGEPAGE
    madvise(reinterpret_cast<void*>(start), size, MADV_HUGEPAGE);  // advice only: failure is harmless
#endif
    return reinterpret_cast<char*>(start);
}

void freeBigBlock(char* block, size_t size) {
    if (block) munmap(block, size);
}

}  // namespace zol
