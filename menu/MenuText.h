#pragma once

#include <string>
#include <string_view>

/// What a text of a menu may hold.
namespace nesk::MenuText {

/// True when a text is printable ASCII alone: it is the same in every code page and ends no line.
bool IsPlain(std::string_view text);

/// The text as bytes of the station's code page. Raises 5000 when a character has no place in it.
/// @param source  class and operation for the error
std::string Encode(std::string_view text, const std::string& source);

/// Raises 5000 for a text that could not be stored: one that holds a line break or a zero, or a character
/// that has no place in the station's code page.
void Check(std::string_view text, const std::string& source);

/// The same for a text that may take the place of another. One that stays as it was is not checked: it came
/// from a file, and saving writes it back byte by byte.
void CheckChange(std::string_view text, std::string_view before, const std::string& source);

/// The text on one line: line breaks and tabs become blanks, other control characters are dropped.
std::string OnOneLine(std::string_view text);

} // namespace nesk::MenuText
