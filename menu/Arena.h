#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace nesk {

/// A text in an arena. It is as large as an address: the text's length stands in front of the text.
class KeptText {
public:
    /// The empty text.
    constexpr KeptText() = default;

    /// A text that lies in no arena.
    /// @param counted  its length as one byte below LongLength, and the text
    static constexpr KeptText Counted(const char* counted) { return KeptText(counted); }

    constexpr operator std::string_view() const {
        if (m_at == nullptr) return {};
        const auto length = static_cast<unsigned char>(*m_at);
        if (length < LongLength) return {m_at + 1, length};
        std::size_t longer = 0;
        std::memcpy(&longer, m_at + 1, sizeof longer);
        return {m_at + 1 + sizeof longer, longer};
    }

private:
    friend class Arena;

    // This in the place of the length: the length follows in full.
    static constexpr unsigned char LongLength = 255;

    explicit constexpr KeptText(const char* at) : m_at(at) {}

    const char* m_at = nullptr; // at the length
};

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
    KeptText Keep(std::string_view text) {
        if (text.empty()) return {};
        const bool isLong = text.size() >= KeptText::LongLength;
        const std::size_t front = isLong ? 1 + sizeof(std::size_t) : 1;
        auto* const room = static_cast<char*>(Allocate(front + text.size(), 1));
        const std::size_t length = text.size();
        *room = static_cast<char>(isLong ? KeptText::LongLength : length);
        if (isLong) std::memcpy(room + 1, &length, sizeof length);
        std::memcpy(room + front, text.data(), length);
        return KeptText(room);
    }

    /// Bytes taken from the system, used or not.
    std::size_t Bytes() const { return m_bytes; }

private:
    void* AllocateInNewBlock(std::size_t size);

    std::vector<void*> m_blocks;
    std::size_t m_bytes = 0; // of all blocks
    char* m_at = nullptr;    // free part of the last block
    char* m_end = nullptr;
};

} // namespace nesk
