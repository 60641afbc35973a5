#pragma once

#include "platform/LetterCase.h"
#include "platform/common/CodePageTable.h"

/// The text services that differ between Windows and the other systems.
namespace nesk::platform::common {

/// The code page in use.
const CodePageTable& SelectedCodePage();

/// Upper-case form of a character from U+0080 up; the character itself when it has no upper-case form.
char32_t UpperCase(char32_t character);

/// The character in a case, by the rules of a language; the character itself when it has no such form.
/// @param letters     Upper or Lower
/// @param languageId  Windows language identifier
char32_t InCase(char32_t character, LetterCase letters, int languageId);

} // namespace nesk::platform::common
