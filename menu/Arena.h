#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace nesk {

/// Memory that is taken bit by bit and released all together: what is put into it lies one behind the other
/// in large blocks, stays where it is, and keeps its place, wanted or not, as long as the arena.
class Arena {
public:
    Arena() = default;
    ~Arena();
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

    /// Room for an object. Whoever makes one in it ends its life as well.
    /// @param alignment  a power of two, at most that of std::max_align_t
    void* Allocate(std::size_t size, std::size_t alignment) {
        const std::size_t gap = (alignment - reinterpret_cast<std::size_t>(m_at) % alignment) % alignment;
        if (size + gap > static_cast<std::size_t>(m_end - m_at)) return AllocateInNewBlock(size);
        char* const room = m_at + gap;
        m_at = room + size;
        return room;
    }

    /// Copies a text into the arena.
    std::string_view Keep(std::string_view text) {
        if (text.empty()) return {};
        auto* const room = static_cast<char*>(Allocate(text.size(), 1));
        std::memcpy(room, text.data(), text.size());
        return {room, text.size()};
    }

private:
    void* AllocateInNewBlock(std::size_t size);

    std::vector<void*> m_blocks;
    char* m_at = nullptr; // free part of the last block
    char* m_end = nullptr;
};

} // namespace nesk
