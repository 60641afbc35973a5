#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace nesk {

/// Wraps a text to a given width. Lines end at line breaks and before a word that does not fit. A word that
/// is wider than a line, for example a long path, is broken at any character.
/// @param text     UTF-8; lines separated by "\n"
/// @param width    maximum width of a line, in the unit of `widthOf`. A single character may be wider
/// @param widthOf  width of a piece of text; a longer piece must not be narrower
/// @return views into `text`, without the spaces at which lines were broken
std::vector<std::string_view> WrappedLines(std::string_view text, int width,
                                           const std::function<int(std::string_view)>& widthOf);

/// Does the same as WrappedLines, but returns one text with "\n" between the lines.
std::string WrappedText(std::string_view text, int width,
                        const std::function<int(std::string_view)>& widthOf);

/// The text with line breaks only inside words that must be broken. Text boxes wrap lines between words
/// themselves, but some insert a hyphen into a broken word, which would be wrong in a path.
/// @param lines  the result of WrappedLines for `text`
std::string WithWordsBroken(std::string_view text, const std::vector<std::string_view>& lines);

/// Removes the inserted breaks from a text of WithWordsBroken, or from a part of it.
std::string WithoutWordBreaks(std::string_view text);

} // namespace nesk
