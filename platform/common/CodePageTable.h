#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace nesk::platform::common {

/// The bytes of a character as one number: first * 256 + second for two bytes. 0 for no bytes and for more
/// than two.
constexpr std::uint16_t CodeOf(std::string_view bytes) {
    if (bytes.empty() || bytes.size() > 2) return 0;
    std::uint16_t code = 0;
    for (const char c : bytes)
        code = static_cast<std::uint16_t>(code * 256 + static_cast<unsigned char>(c));
    return code;
}

/// An ANSI code page as Windows defines it: bytes below 0x80 are ASCII, every other character takes one or
/// two bytes. Tables are immutable, so any thread may use them.
class CodePageTable {
public:
    /// Code page number of UTF-8, which a Windows PC may be set to. Its table is empty.
    static constexpr int Utf8 = 65001;

    /// The table of a code page: 874, 932, 936, 949, 950 or 1250 to 1258. Any other number gives 1252. A
    /// table is created on first use and exists until the process ends.
    static const CodePageTable& Get(int codePage);

    int CodePage() const { return m_codePage; }

    /// Decodes the first character of `bytes`, which must not be empty, and sets `length` to its number of
    /// bytes. Returns 0, with `length` 1, when the first byte is 0x80 or above and does not begin a
    /// character.
    char16_t Decode(std::string_view bytes, std::size_t& length) const {
        length = 1;
        const auto first = static_cast<unsigned char>(bytes[0]);
        if (first < 0x80) return first;
        if (m_singles[first] != 0 || m_doubles.empty() || bytes.size() < 2) return m_singles[first];
        const auto second = static_cast<unsigned char>(bytes[1]);
        const char16_t character = m_doubles[(first - 0x80U) * std::size_t{256} + second];
        if (character != 0) length = 2;
        return character;
    }

    /// The bytes of a character in the form of CodeOf. 0 when the code page lacks the
    /// character, and for U+0000 to U+007F. For a character with several codes this is the code that Windows
    /// writes. Every character returned by Decode can be encoded.
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

} // namespace nesk::platform::common
