#pragma once

#include <functional>
#include <string>

namespace nesk {

/// Breaks a text into lines that fit a width: at blanks, and within a word that is longer than a line, as a
/// path may be. Line breaks of the text stay.
/// @param measure  width of a piece of the text, in the unit of `width`
std::string WrapText(const std::string& text, int width,
                     const std::function<int(const std::string&)>& measure);

} // namespace nesk
