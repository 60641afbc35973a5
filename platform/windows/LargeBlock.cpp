#include "platform/LargeBlock.h"

#include <new>

namespace nesk::platform {

// Large pages need a privilege that the program's users do not have.
void* AllocateLargeBlock(std::size_t size) {
    return ::operator new(size);
}

void FreeLargeBlock(void* block) noexcept {
    ::operator delete(block);
}

} // namespace nesk::platform
