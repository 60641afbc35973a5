#pragma once

#include <cstdint>
#include <string_view>

/// Conversions between numbers and text as the classic run-time makes them, whatever the user's locale.
namespace nesk::modConvert {

/// Converts a text that is a number as a whole: blanks around it, a sign, digits with a decimal point, an
/// exponent
/// ("E" or "D"), or "&H" and "&O" numbers. Halves are rounded to even.
/// Raises TypeMismatch when the text is no number (the empty one included), Overflow outside 16 bits.
std::int16_t CInt(std::string_view text);

/// As CInt, for 32 bits.
std::int32_t CLng(std::string_view text);

/// Rounds halves to even. Raises Overflow outside 16 bits and for what is not a number.
std::int16_t CInt(double value);

/// The number at the front of the text; blanks, tabs and line feeds are skipped wherever they stand. 0 when
/// the text does not begin with a number. Raises Overflow when the number is too large for a double.
double Val(std::string_view text);

} // namespace nesk::modConvert
