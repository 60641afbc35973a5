#pragma once

#include <string>
#include <string_view>

namespace nesk::platform {

/// How the letters of a text are shown.
enum class LetterCase {
    Unchanged,
    Upper,
    Lower,
};

/// The text with all letters in a case, by the rules of a language: the upper case of "i" is "I", but in
/// Turkish "İ". Converts character by character, so "ß" stays. Bytes that are not UTF-8 stay.
/// @param languageId  Windows language identifier
std::string InCase(std::string_view text, LetterCase letters, int languageId);

} // namespace nesk::platform
