// Storage for line blocks. Each line is one block: a small header followed by its
// zero-terminated text. Blocks are carved from 2 MiB slabs and addressed by 32-bit
// references so that a document of millions of short lines stays close to its file size.
// Every slab after the first is a huge-page block: a big file loads with far fewer page
// faults, while a small document keeps to the pages it touches.
#pragma once
#include <cstdint>
#include <memory>
#include <vector>

namespace zol {

using LineRef = uint32_t;  // 0 = no line
constexpr LineRef kNoLine = 0;

struct LineHeader {
    LineRef prev;      // line before, or kNoLine for the first line
    LineRef next;      // line after, or kNoLine for the last line
    uint16_t len;      // bytes of text, without the terminating zero
    uint8_t comment;   // highlighting comment state carried with the line
    uint8_t bookmark;  // line bookmark carried with the line
};
static_assert(sizeof(LineHeader) == 12);

class LineArena {
public:
    // A block able to hold `len` bytes of text plus its zero; header zeroed except len.
    LineRef allocate(uint16_t len) {
        // Inline for the common case of loading a file: no freed block of the size,
        // and room left in the newest slab.
        const uint32_t size = blockSize(len);
        const uint32_t cls = size / kGrain;
        if ((cls < freeLists_.size() && freeLists_[cls] != kNoLine) || used_ + size > kSlabSize)
            return allocateSlow(len);
        const auto ref = static_cast<LineRef>(((slabs_.size() - 1) << kOffsetBits) | (used_ >> 2));
        used_ += size;
        return initBlock(ref, len);
    }
    void release(LineRef ref);
    // True when a block made for `oldLen` bytes can hold `newLen` bytes in place.
    static bool fitsInPlace(uint16_t oldLen, uint16_t newLen) { return blockSize(newLen) <= blockSize(oldLen); }

    LineHeader* header(LineRef ref) const { return reinterpret_cast<LineHeader*>(address(ref)); }
    char* text(LineRef ref) const { return address(ref) + sizeof(LineHeader); }
    void clear();

private:
    static constexpr unsigned kSlabShift = 21;                 // 2 MiB slabs
    static constexpr uint32_t kSlabSize = 1u << kSlabShift;
    static constexpr unsigned kGrain = 4;                      // block alignment
    // A reference holds slab index and offset / kGrain.
    static constexpr unsigned kOffsetBits = kSlabShift - 2;

    static uint32_t blockSize(uint16_t len) {
        return (static_cast<uint32_t>(sizeof(LineHeader)) + len + 1 + kGrain - 1) & ~(kGrain - 1);
    }
    char* address(LineRef ref) const {
        return slabs_[ref >> kOffsetBits].get() + ((ref & ((1u << kOffsetBits) - 1)) << 2);
    }

    struct SlabFree {
        bool big = false;  // from allocateBigBlock rather than new[]
        void operator()(char* p) const;
    };
    using Slab = std::unique_ptr<char[], SlabFree>;

    static Slab newSlab(bool first);
    LineRef allocateSlow(uint16_t len);
    LineRef initBlock(LineRef ref, uint16_t len) {
        *header(ref) = LineHeader{kNoLine, kNoLine, len, 0, 0};
        text(ref)[len] = '\0';
        return ref;
    }

    std::vector<Slab> slabs_;
    uint32_t used_ = kSlabSize;          // bytes used in the newest slab
    std::vector<LineRef> freeLists_;     // by blockSize / kGrain; link in the block's first word
};

}  // namespace zol
