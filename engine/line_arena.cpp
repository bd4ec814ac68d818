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
            if (slabs_.size() == kMaxSlabs) throw std::bad_alloc();
            slabs_.push_back(newSlab(slabs_.empty()));
            // Offset 0 of slab 0 would be reference 0, which means "no line".
            used_ = slabs_.size() == 1 ? kGrain : 0;
        }
        ref = static_cast<LineRef>(((slabs_.size() - 1) << kOffsetBits) | (used_ / kGrain));
        used_ += size;
    }
    return initBlock(ref, len);
}

bool LineArena::nearDelta(LineRef ref, LineRef target, uint32_t& field) {
    if (target == kNoLine) {
        field = 0;
        return true;
    }
    if ((ref >> kOffsetBits) != (target >> kOffsetBits)) return false;
    const int32_t d = static_cast<int32_t>(target) - static_cast<int32_t>(ref);
    if (d > kMaxDelta || d < -kMaxDelta) return false;
    field = static_cast<uint32_t>(d) & ((1u << kDeltaBits) - 1);
    return true;
}

void LineArena::setLinks(LineRef ref, LineRef prev, LineRef next) {
    LineHeader* h = header(ref);
    uint32_t p = 0, n = 0;
    const uint32_t link = h->link();
    const bool wasFar = (link & kFarBit) != 0;
    if (nearDelta(ref, prev, p) && nearDelta(ref, next, n)) {
        if (wasFar) freeFar_.push_back(link & ~kFarBit);
        h->setLink(p | n << kDeltaBits);
        return;
    }
    if (wasFar) {
        far_[link & ~kFarBit] = {prev, next};
        return;
    }
    uint32_t slot;
    if (!freeFar_.empty()) {
        slot = freeFar_.back();
        freeFar_.pop_back();
        far_[slot] = {prev, next};
    } else {
        slot = static_cast<uint32_t>(far_.size());
        far_.push_back({prev, next});
    }
    h->setLink(slot | kFarBit);
}

void LineArena::release(LineRef ref) {
    if (ref == kNoLine) return;
    if (header(ref)->link() & kFarBit) freeFar_.push_back(header(ref)->link() & ~kFarBit);
    const uint32_t cls = blockSize(header(ref)->len) / kGrain;
    if (cls >= freeLists_.size()) freeLists_.resize(cls + 1, kNoLine);
    std::memcpy(address(ref), &freeLists_[cls], sizeof(LineRef));
    freeLists_[cls] = ref;
}

void LineArena::clear() {
    slabs_.clear();
    freeLists_.clear();
    far_.clear();
    freeFar_.clear();
    used_ = kSlabSize;
}

}  // namespace zol
