#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace nesk {

/// The lines in which a text is shown in a given width: lines end at line breaks and before a word that does
/// not fit. A word that is wider than a line, as a long path is, is broken anywhere.
/// @param text     UTF-8; lines separated by "\n"
/// @param width    largest width of a line, in the unit of `widthOf`. A single character may be wider
/// @param widthOf  width of a piece of text; it grows with the piece
/// @return views into `text`, without the blanks at which lines were broken
std::vector<std::string_view> WrappedLines(std::string_view text, int width,
                                           const std::function<int(std::string_view)>& widthOf);

/// The same lines as one text, with "\n" between them.
std::string WrappedText(std::string_view text, int width,
                        const std::function<int(std::string_view)>& widthOf);

/// The text with a line break wherever a word was broken, and nowhere else: text boxes break lines between
/// words by themselves, but some put a hyphen into a broken word, which is wrong in a path.
/// @param lines  what WrappedLines gave for `text`
std::string WithWordsBroken(std::string_view text, const std::vector<std::string_view>& lines);

/// A piece of such a text without the breaks that were put in.
std::string WithoutWordBreaks(std::string_view text);

} // namespace nesk
