#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Encoding and decoding of UTF-8.
namespace nesk::platform {

/// A byte of 0x80 or above that is not part of a valid character is kept as the private character EscapeBase
/// + byte.
constexpr char32_t EscapeBase = 0x10FE00;

/// Length in bytes of the well-formed character at the start of `text`, which must not be empty; 0 when the
/// text does not start with a well-formed character.
std::size_t Utf8Length(std::string_view text);

/// True when the whole text is well-formed.
bool IsUtf8(std::string_view text);

/// True for a byte that continues a character, false for the first byte of a character.
constexpr bool ContinuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// The code point of one well-formed character.
char32_t Utf8Decode(std::string_view character);

/// Appends a code point.
void Utf8Append(std::string& text, char32_t character);

/// Makes well-formed UTF-8 of bytes that should be UTF-8. Invalid bytes are escaped with EscapeBase; so are
/// the bytes of characters that would look like escaped bytes.
std::string Utf8FromBytes(std::string_view bytes);

} // namespace nesk::platform
