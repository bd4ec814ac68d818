#include "engine/line_arena.h"

#include <cstring>
#include <new>

#include "platform/big_block.h"

namespace zol {

void LineArena::SlabFree::operator()(char* p) const {
    if (big) freeBigBlock(p, kSlabSize);
    else delete[] p;
}

LineArena::Slab LineArena::newSlab(bool first) {
    static_assert(kSlabSize % kBigBlockAlign == 0);
    if (first) return Slab(new char[kSlabSize]);
    char* p = allocateBigBlock(kSlabSize);
    if (!p) throw std::bad_alloc();
    return Slab(p, SlabFree{true});
}

LineRef LineArena::allocateSlow(uint16_t len) {
    const uint32_t size = blockSize(len);
    const uint32_t cls = size / kGrain;
    LineRef ref = kNoLine;
    if (cls < freeLists_.size() && freeLists_[cls] != kNoLine) {
        ref = freeLists_[cls];
        std::memcpy(&freeLists_[cls], address(ref), sizeof(LineRef));
    } else {
        if (used_ + size > kSlabSize) {
            slabs_.push_back(newSlab(slabs_.empty()));
            // Offset 0 of slab 0 would be reference 0, which means "no line".
            used_ = slabs_.size() == 1 ? kGrain : 0;
        }
        ref = static_cast<LineRef>(((slabs_.size() - 1) << kOffsetBits) | (used_ >> 2));
        used_ += size;
    }
    return initBlock(ref, len);
}

void LineArena::release(LineRef ref) {
    if (ref == kNoLine) return;
    const uint32_t cls = blockSize(header(ref)->len) / kGrain;
    if (cls >= freeLists_.size()) freeLists_.resize(cls + 1, kNoLine);
    std::memcpy(address(ref), &freeLists_[cls], sizeof(LineRef));
    freeLists_[cls] = ref;
}

void LineArena::clear() {
    slabs_.clear();
    freeLists_.clear();
    used_ = kSlabSize;
}

}  // namespace zol
