#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace nesk {

/// A fast 64-bit hash of texts and numbers, to find equal entries. It is no protection against forgery.
class TextHash {
public:
    void Add(std::uint64_t word) {
        // The upper half of a product depends on all input bits, the lower half does not. The rotation swaps
        // them.
        m_value = std::rotl((m_value ^ word) * 0xD6E8FEB86659FD93, 32) + 0x2545F4914F6CDD1D;
    }

    /// Adds a text with its length, so that texts added one after another do not run together.
    void Add(std::string_view text) {
        Add(static_cast<std::uint64_t>(text.size()));
        for (; text.size() >= sizeof(std::uint64_t); text.remove_prefix(sizeof(std::uint64_t)))
            Add(Word(text, sizeof(std::uint64_t)));
        if (!text.empty()) Add(Word(text, text.size()));
    }

    std::uint64_t Value() const {
        const std::uint64_t mixed = (m_value ^ (m_value >> 29)) * 0xBF58476D1CE4E5B9;
        return mixed ^ (mixed >> 32);
    }

private:
    static std::uint64_t Word(std::string_view text, std::size_t bytes) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data(), bytes);
        return word;
    }

    std::uint64_t m_value = 0x9E3779B97F4A7C15;
};

} // namespace nesk
