#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Conversion between the UTF-8 text of the program and the bytes of the station's ANSI code page.
///
/// A byte of 0x80 or above that the code page cannot decode becomes the private character U+10FE00 + byte,
/// and encoding turns it back into the same byte. Text that is only passed through is therefore never
/// damaged.
namespace nesk::platform {

/// Selects the code page of a Windows language identifier (1252 for an unknown one). On Windows the code page
/// is always the system's own and the call has no effect.
void SelectCodePage(int languageId);

/// The number of the code page in use, for example 1252.
int CodePage();

/// The code page of a Windows language identifier, for example 932 for 1041; 1252 for an unknown one.
int CodePageOfLanguage(int languageId);

/// Decodes bytes of the code page. Never fails.
std::string FromAnsi(std::string_view bytes);

/// Encodes UTF-8 text. Empty when the code page lacks a character or the text is not valid UTF-8.
std::optional<std::string> ToAnsi(std::string_view text);

/// The first character of a text that ToAnsi cannot encode, for a message; "" when it can encode all of it.
std::string FirstNotEncodable(std::string_view text);

/// Upper-case form of UTF-8 text, converted character by character: the number of characters never changes
/// ("ß" stays).
std::string ToUpper(std::string_view text);

/// True when both texts are equal after ToUpper.
bool EqualNoCase(std::string_view a, std::string_view b);

} // namespace nesk::platform
