// Large zero-filled memory blocks for the line storage of big documents. Where the
// system offers it, a block is aligned and backed by huge pages: loading a 100 MB file
// then takes a few hundred page faults instead of tens of thousands.
#pragma once
#include <cstddef>

namespace zol {

// Huge-page size the blocks are aligned to; a block size should be a multiple of it.
constexpr size_t kBigBlockAlign = size_t{2} << 20;

// A block of `size` bytes, or null when the memory is not there.
char* allocateBigBlock(size_t size);
// Gives back a block of allocateBigBlock(size); null is ignored.
void freeBigBlock(char* block, size_t size);

}  // namespace zol
