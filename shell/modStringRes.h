#pragma once

#include <array>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

/// Texts by number, from the language resource libraries.
namespace nesk::modStringRes {

/// What fills the placeholders "%0%" to "%9%"; nothing leaves a placeholder as it stands.
using Arguments = std::array<std::optional<std::string>, 10>;

/// Selects the language of all texts and releases the libraries of the one before.
void InitStringRes(int languageId);

/// The language of all texts, as InitStringRes was told; 1033 before.
int LanguageID();

/// Releases every loaded library. The loader stays enabled and loads them again when they are asked for.
void FreeStringRes();

/// Three-letter code of a language identifier; "ENU" for one without an entry.
std::string LanguageCode(int languageId);

/// The text of a number. "" before InitStringRes; "Error: Resource File Not Found" when the library is
/// missing; the base text of the number's block, filled with the number, when the library has no such text.
std::string LoadResString(int id);

/// The text of a number with its placeholders replaced, "%0%" first and "%9%" last. Text that was put in for
/// one placeholder is searched for the later ones only.
std::string FormatResStringArray(int id, const Arguments& arguments);

/// The form in which an argument appears in a text: a text as it stands, a whole number in decimal.
template <typename T>
std::string ArgumentText(T&& value) {
    if constexpr (std::is_constructible_v<std::string, T&&>) {
        return std::string(std::forward<T>(value));
    } else {
        using Number = std::decay_t<T>;
        // Of others the library would show a code, a 1 or six decimals.
        static_assert(std::is_integral_v<Number> && !std::is_same_v<Number, char> &&
                          !std::is_same_v<Number, bool>,
                      "an argument is a text or a whole number");
        return std::to_string(value);
    }
}

/// As FormatResStringArray, for up to ten texts or whole numbers.
template <typename... Args>
std::string FormatResString(int id, Args&&... args) {
    static_assert(sizeof...(Args) <= 10, "a text has ten placeholders");
    return FormatResStringArray(id, Arguments{ArgumentText(std::forward<Args>(args))...});
}

} // namespace nesk::modStringRes
