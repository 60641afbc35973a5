#pragma once

#include <string>
#include <string_view>

/// Rules for the texts of a menu.
namespace nesk::MenuText {

/// True when a text contains only printable ASCII. Such a text is the same in every code page and contains no
/// line end.
bool IsPlain(std::string_view text);

/// Encodes a text in the station's code page. Raises 5000 when the code page does not contain one of its
/// characters.
/// @param source  class and operation for the error
std::string Encode(std::string_view text, const std::string& source);

/// Raises 5000 for a text that cannot be stored, because it contains a line break, a zero or a character that
/// is not in the station's code page.
void Check(std::string_view text, const std::string& source);

/// Does the same as Check for a text that may replace another. An unchanged text is not checked: it came from
/// a file, and saving writes it back byte for byte.
void CheckChange(std::string_view text, std::string_view before, const std::string& source);

/// Puts the text on one line: line breaks and tabs become spaces, other control characters are removed.
std::string OnOneLine(std::string_view text);

} // namespace nesk::MenuText
