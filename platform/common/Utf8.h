#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Characters of UTF-8 text.
namespace nesk::platform::common {

/// A byte from 80 that is no character's is kept as the private character of this number and the byte.
constexpr char32_t EscapeBase = 0x10FE00;

/// Length in bytes of the well-formed character at the front of `text`, which is not empty; 0 when there is
/// none.
std::size_t Utf8Length(std::string_view text);

/// The code point of a well-formed character, given its bytes.
char32_t Utf8Decode(std::string_view character);

/// Appends a code point.
void Utf8Append(std::string& text, char32_t character);

/// Well-formed text of bytes that should be UTF-8: those that are not, and those of characters that would be
/// taken for kept bytes, are kept as EscapeBase says.
std::string Utf8FromBytes(std::string_view bytes);

} // namespace nesk::platform::common
