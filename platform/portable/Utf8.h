#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Characters of UTF-8 text.
namespace nesk::platform::portable {

/// Length in bytes of the well-formed character at the front of `text`, which is not empty; 0 when there is
/// none.
std::size_t Utf8Length(std::string_view text);

/// The code point of a well-formed character, given its bytes.
char32_t Utf8Decode(std::string_view character);

/// Appends a code point.
void Utf8Append(std::string& text, char32_t character);

} // namespace nesk::platform::portable
