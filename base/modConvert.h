#pragma once

#include <cstdint>
#include <string_view>

/// Conversions between numbers and text in the manner of the classic run-time library, independent of the
/// user's locale.
namespace nesk::modConvert {

/// Converts a text that is a number as a whole: optional surrounding spaces or tabs, a sign, digits with a
/// decimal point, an exponent ("E" or "D"), or an "&H" or "&O" number. Halves are rounded to even.
/// Raises TypeMismatch when the text is not a number or is empty, Overflow when the value does not fit in 16
/// bits.
std::int16_t CInt(std::string_view text);

/// Like CInt, for 32 bits.
std::int32_t CLng(std::string_view text);

/// Rounds halves to even. Raises Overflow when the value does not fit in 16 bits or is NaN.
std::int16_t CInt(double value);

/// The number at the start of the text. Spaces, tabs and line feeds are skipped anywhere in the text. 0 when
/// the text does not begin with a number. Raises Overflow when the number is too large for a double.
double Val(std::string_view text);

} // namespace nesk::modConvert
