// Storage for line blocks. Each line is one block: an 8-byte header followed by its
// zero-terminated text. Blocks are carved from 2 MiB slabs and addressed by 32-bit
// references so that a document of millions of short lines stays close to its file size.
// Every slab after the first is a huge-page block: a big file loads with far fewer page
// faults, while a small document keeps to the pages it touches.
//
// The links to the lines before and after are held in the header's one link word as
// two short distances when both neighbours lie near in the same slab, which is how a
// file's lines are laid down when it is read; a line whose neighbours lie farther
// away (after edits that moved its text, or across a slab boundary) keeps its two
// links in a side table instead. Either way a block never moves to change its links,
// so references stay valid.
#pragma once
#include <cstdint>
#include <memory>
#include <vector>

namespace zol {

using LineRef = uint32_t;  // 0 = no line
constexpr LineRef kNoLine = 0;

struct LineHeader {
    uint16_t len;      // bytes of text, without the terminating zero
    uint8_t comment;   // highlighting comment state carried with the line
    uint8_t bookmark;  // line bookmark carried with the line
    // The links to the neighbours, encoded by LineArena, in two halves: blocks are
    // only 2-byte aligned.
    uint16_t linkLow, linkHigh;

    uint32_t link() const { return linkLow | static_cast<uint32_t>(linkHigh) << 16; }
    void setLink(uint32_t l) {
        linkLow = static_cast<uint16_t>(l);
        linkHigh = static_cast<uint16_t>(l >> 16);
    }
};
static_assert(sizeof(LineHeader) == 8 && alignof(LineHeader) == 2);

class LineArena {
public:
    // A block able to hold `len` bytes of text plus its zero; header zeroed except len,
    // so it starts with no neighbours.
    LineRef allocate(uint16_t len) {
        // Inline for the common case of loading a file: no freed block of the size,
        // and room left in the newest slab.
        const uint32_t size = blockSize(len);
        const uint32_t cls = size / kGrain;
        if ((cls < freeLists_.size() && freeLists_[cls] != kNoLine) || used_ + size > kSlabSize)
            return allocateSlow(len);
        const auto ref = static_cast<LineRef>(((slabs_.size() - 1) << kOffsetBits) | (used_ / kGrain));
        used_ += size;
        return initBlock(ref, len);
    }
    void release(LineRef ref);
    // True when a block made for `oldLen` bytes can hold `newLen` bytes in place.
    static bool fitsInPlace(uint16_t oldLen, uint16_t newLen) { return blockSize(newLen) <= blockSize(oldLen); }

    LineHeader* header(LineRef ref) const { return reinterpret_cast<LineHeader*>(address(ref)); }
    char* text(LineRef ref) const { return address(ref) + sizeof(LineHeader); }

    LineRef prev(LineRef ref) const {
        const uint32_t l = header(ref)->link();
        if (l & kFarBit) return far_[l & ~kFarBit].prev;
        const int32_t d = static_cast<int32_t>(l << (32 - kDeltaBits)) >> (32 - kDeltaBits);
        return d ? ref + static_cast<uint32_t>(d) : kNoLine;
    }
    LineRef next(LineRef ref) const {
        const uint32_t l = header(ref)->link();
        if (l & kFarBit) return far_[l & ~kFarBit].next;
        const int32_t d = static_cast<int32_t>(l << (32 - 2 * kDeltaBits)) >> (32 - kDeltaBits);
        return d ? ref + static_cast<uint32_t>(d) : kNoLine;
    }
    void setLinks(LineRef ref, LineRef prev, LineRef next);
    void setPrev(LineRef ref, LineRef prev) { setLinks(ref, prev, next(ref)); }
    void setNext(LineRef ref, LineRef next) { setLinks(ref, prev(ref), next); }
    void clear();
    // Lines whose links are in the side table; for tests and benchmarks.
    size_t farLinkCount() const { return far_.size() - freeFar_.size(); }

private:
    static constexpr unsigned kSlabShift = 21;                 // 2 MiB slabs
    static constexpr uint32_t kSlabSize = 1u << kSlabShift;
    // Block alignment. 2 rather than 4 saves a byte of padding a line on average,
    // some 2.5 MB in a 100 MB file of short lines.
    static constexpr unsigned kGrain = 2;
    // A reference holds slab index and offset / kGrain: 12 bits of slab index, so a
    // document's lines take at most 8 GiB.
    static constexpr unsigned kOffsetBits = kSlabShift - 1;
    static constexpr size_t kMaxSlabs = size_t{1} << (32 - kOffsetBits);
    // A near link word holds the distances to prev (low bits) and next, in grains,
    // signed, 0 meaning none. 15 bits reach 32 KiB either way: far more than the
    // largest block, so a file's lines read one after another are always near.
    static constexpr unsigned kDeltaBits = 15;
    static constexpr int32_t kMaxDelta = (1 << (kDeltaBits - 1)) - 1;
    static constexpr uint32_t kFarBit = 1u << 31;  // the rest is an index into far_
    static_assert(2 * kDeltaBits < 32);

    static uint32_t blockSize(uint16_t len) {
        return (static_cast<uint32_t>(sizeof(LineHeader)) + len + 1 + kGrain - 1) & ~(kGrain - 1);
    }
    char* address(LineRef ref) const {
        return slabs_[ref >> kOffsetBits].get() + (ref & ((1u << kOffsetBits) - 1)) * kGrain;
    }
    // The distance from ref to target as a near link, or false when it has none.
    static bool nearDelta(LineRef ref, LineRef target, uint32_t& field);

    struct SlabFree {
        bool big = false;  // from allocateBigBlock rather than new[]
        void operator()(char* p) const;
    };
    using Slab = std::unique_ptr<char[], SlabFree>;
    struct FarLink {
        LineRef prev, next;
    };

    static Slab newSlab(bool first);
    LineRef allocateSlow(uint16_t len);
    LineRef initBlock(LineRef ref, uint16_t len) {
        *header(ref) = LineHeader{len, 0, 0, 0, 0};
        text(ref)[len] = '\0';
        return ref;
    }

    std::vector<Slab> slabs_;
    uint32_t used_ = kSlabSize;          // bytes used in the newest slab
    std::vector<LineRef> freeLists_;     // by blockSize / kGrain; link in the block's first word
    std::vector<FarLink> far_;           // links of the lines whose link word has kFarBit
    std::vector<uint32_t> freeFar_;      // unused entries of far_
};

}  // namespace zol
