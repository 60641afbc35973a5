#pragma once

#include <cstddef>

namespace nesk::platform {

/// Allocates a block of memory, aligned for any object and not initialised. For blocks of 1 MB and more it
/// asks the system to provide all pages at once, which costs far less than page by page; the caller should
/// therefore use the whole block. Works best when the size is a multiple of 2 MB. Raises std::bad_alloc.
void* AllocateHugePages(std::size_t size);

/// Releases a block. Null is ignored.
void FreeHugePages(void* block) noexcept;

} // namespace nesk::platform
