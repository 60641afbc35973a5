#include "platform/HugePages.h"

#include <cstdlib>
#include <new>
#include <sys/mman.h>

namespace nesk::platform {

namespace {

constexpr std::size_t Page = 4096;
// The size of a large page on nearly all processors.
constexpr std::size_t LargePage = std::size_t{1} << 21;
constexpr std::size_t WorthAsking = std::size_t{1} << 20;

} // namespace

void* AllocateHugePages(std::size_t size) {
    const std::size_t page = size % LargePage == 0 ? LargePage : Page;
    const std::size_t rounded = (size + page - 1) / page * page;
    void* const block = size < WorthAsking ? std::malloc(size) : std::aligned_alloc(page, rounded);
    if (block == nullptr) throw std::bad_alloc();
    // Without this call, the first write to each page would enter the kernel. A system that does not support
    // the call ignores it.
    if (size < WorthAsking) return block;
#ifdef MADV_HUGEPAGE
    if (page == LargePage) ::madvise(block, rounded, MADV_HUGEPAGE);
#endif
#ifdef MADV_POPULATE_WRITE
    ::madvise(block, rounded, MADV_POPULATE_WRITE);
#endif
    return block;
}

void FreeHugePages(void* block) noexcept {
    std::free(block);
}

} // namespace nesk::platform
