#pragma once

#include <cstddef>

namespace nesk::platform {

/// A block of memory, aligned for any object; its contents are anything. Of blocks of 1 MB and more the
/// system is asked to provide all pages at once, which costs far less than one by one: they are meant to be
/// filled. It does so best when the size is a multiple of 2 MB. Raises std::bad_alloc.
void* AllocateHugePages(std::size_t size);

/// Releases a block. Null is none.
void FreeHugePages(void* block) noexcept;

} // namespace nesk::platform
