#include "platform/LargeBlock.h"

#include <cstdlib>
#include <new>
#include <sys/mman.h>

namespace nesk::platform {

namespace {

constexpr std::size_t Page = 4096;
constexpr std::size_t WorthAsking = std::size_t{1} << 20;

} // namespace

void* AllocateLargeBlock(std::size_t size) {
    const std::size_t rounded = (size + Page - 1) / Page * Page;
    void* const block = size < WorthAsking ? std::malloc(size) : std::aligned_alloc(Page, rounded);
    if (block == nullptr) throw std::bad_alloc();
#ifdef MADV_POPULATE_WRITE
    // Otherwise the system is entered anew for each page that is first written. A system that does not know
    // this does nothing.
    if (size >= WorthAsking) ::madvise(block, rounded, MADV_POPULATE_WRITE);
#endif
    return block;
}

void FreeLargeBlock(void* block) noexcept {
    std::free(block);
}

} // namespace nesk::platform
