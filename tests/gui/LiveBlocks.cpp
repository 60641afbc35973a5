#include "gui/LiveBlocks.h"

#ifdef __SANITIZE_ADDRESS__

std::size_t nesk::testing::LiveBlocks() {
    return 0;
}

bool nesk::testing::CountsLiveBlocks() {
    return false;
}

#else

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> live{0};

void* Take(std::size_t size) {
    void* block = std::malloc(size > 0 ? size : 1);
    if (block == nullptr) throw std::bad_alloc();
    ++live;
    return block;
}

void Release(void* block) {
    if (block == nullptr) return;
    --live;
    std::free(block);
}

} // namespace

// The other forms of these operators call these, except the forms for aligned memory.
void* operator new(std::size_t size) {
    return Take(size);
}

void operator delete(void* block) noexcept {
    Release(block);
}

void operator delete(void* block, std::size_t) noexcept {
    Release(block);
}

std::size_t nesk::testing::LiveBlocks() {
    return live;
}

bool nesk::testing::CountsLiveBlocks() {
    return true;
}

#endif
