#pragma once

#include <array>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

/// Access to texts by number, from the language resource libraries.
namespace nesk::modStringRes {

/// Values of the placeholders "%0%" to "%9%". A placeholder without a value stays in the text.
using Arguments = std::array<std::optional<std::string>, 10>;

/// Selects the language of all texts and unloads the libraries of the previous language.
void InitStringRes(int languageId);

/// The language set by InitStringRes; 1033 before the first call.
int LanguageID();

/// Unloads every library. The loader stays enabled and loads libraries again on demand.
void FreeStringRes();

/// Three-letter code of a language identifier; "ENU" for an unknown identifier.
std::string LanguageCode(int languageId);

/// The text with a number. Returns "" before InitStringRes, and "Error: Resource File Not Found" when the
/// library is missing. When the library does not contain the text, returns the base text of the number's
/// block with the number inserted.
std::string LoadResString(int id);

/// The text with a number, with its placeholders replaced in the order "%0%" to "%9%". In an inserted value,
/// only placeholders with higher numbers are replaced.
std::string FormatResStringArray(int id, const Arguments& arguments);

/// Converts an argument to text: a text stays unchanged, a whole number becomes decimal.
template <typename T>
std::string ArgumentText(T&& value) {
    if constexpr (std::is_constructible_v<std::string, T&&>) {
        return std::string(std::forward<T>(value));
    } else {
        using Number = std::decay_t<T>;
        // Other types would appear as a character code, as 1 or with six decimals.
        static_assert(std::is_integral_v<Number> && !std::is_same_v<Number, char> &&
                          !std::is_same_v<Number, bool>,
                      "an argument is a text or a whole number");
        return std::to_string(value);
    }
}

/// Does the same as FormatResStringArray for up to ten texts or whole numbers.
template <typename... Args>
std::string FormatResString(int id, Args&&... args) {
    static_assert(sizeof...(Args) <= 10, "a text has ten placeholders");
    return FormatResStringArray(id, Arguments{ArgumentText(std::forward<Args>(args))...});
}

} // namespace nesk::modStringRes
