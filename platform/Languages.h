#pragma once

#include <span>
#include <string_view>

namespace nesk::platform {

/// A language of the operating system that the program knows. The list is languages/languages.txt.
struct Language {
    int id;                   ///< its Windows identifier; -1 for the pseudo-language
    std::string_view code;    ///< names its libraries and its help file; "" when it has no texts
    std::string_view base;    ///< code of the language whose texts it shares; "" when it has all texts itself
    int codePage;             ///< ANSI code page of its stations
    std::string_view locales; ///< names of the user's locales that mean it, with commas between them
    std::string_view englishName; ///< UTF-8
    std::string_view ownName;     ///< UTF-8
};

/// All languages, sorted by their identifiers.
std::span<const Language> Languages();

/// The language with an identifier; null when it is not in the list.
const Language* FindLanguage(int id);

} // namespace nesk::platform
