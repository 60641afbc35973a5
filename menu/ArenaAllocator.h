#pragma once

#include "menu/Arena.h"

#include <cstddef>

namespace nesk {

/// A container allocator that takes memory from an arena. The arena must outlive the containers. Memory that
/// a container releases is not reused.
template <typename T>
class ArenaAllocator {
public:
    using value_type = T;

    explicit ArenaAllocator(Arena& arena) noexcept : m_arena(&arena) {}
    template <typename Other>
    explicit ArenaAllocator(const ArenaAllocator<Other>& other) noexcept : m_arena(&other.Source()) {}

    T* allocate(std::size_t count) {
        // NOLINTNEXTLINE(bugprone-sizeof-expression): the size of a pointer is meant where T is one
        return static_cast<T*>(m_arena->Allocate(count * sizeof(T), alignof(T)));
    }
    void deallocate(T*, std::size_t) noexcept {}

    Arena& Source() const noexcept { return *m_arena; }

    friend bool operator==(const ArenaAllocator& a, const ArenaAllocator& b) noexcept {
        return a.m_arena == b.m_arena;
    }

private:
    Arena* m_arena;
};

} // namespace nesk
