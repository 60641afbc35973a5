#include "platform/HugePages.h"

#include <new>

namespace nesk::platform {

// Large pages need a privilege that the program's users do not have.
void* AllocateHugePages(std::size_t size) {
    return ::operator new(size);
}

void FreeHugePages(void* block) noexcept {
    ::operator delete(block);
}

} // namespace nesk::platform
