#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace nesk::platform::portable {

/// An ANSI code page as Windows defines it: bytes below 0x80 are ASCII, every other character has one byte or
/// two. A table never changes once it is made, so any thread may use it.
class CodePageTable {
public:
    /// The table of a code page number: 874, 932, 936, 949, 950 or 1250 to 1258. Any other number gives 1252.
    /// Made on first use, it lives until the process ends.
    static const CodePageTable& Get(int codePage);

    int CodePage() const { return m_codePage; }

    /// Decodes the character at the front of `bytes`, which must not be empty, and sets `length` to its
    /// number of bytes. 0, with `length` 1, when the byte there is 0x80 or above and begins no character.
    char16_t Decode(std::string_view bytes, std::size_t& length) const;

    /// The bytes of a character, those of a two-byte one as first * 256 + second. 0 when the code page lacks
    /// the character, and for U+0000 to U+007F. A character with several codes has the one that Windows
    /// writes, and whatever Decode answers can be encoded.
    std::uint16_t Encode(char32_t character) const {
        return character < m_codes.size() ? m_codes[character] : std::uint16_t{0};
    }

private:
    explicit CodePageTable(int codePage);

    int m_codePage;
    std::array<char16_t, 256> m_singles{};
    std::vector<char16_t> m_doubles; // (first - 0x80) * 256 + second; empty in a single-byte code page
    std::vector<std::uint16_t> m_codes;
};

} // namespace nesk::platform::portable
