#pragma once

#include "platform/common/CodePageTable.h"

/// What the text services of the two kinds of station do not have in common.
namespace nesk::platform::common {

/// The code page in use.
const CodePageTable& SelectedCodePage();

/// Upper-case form of one character from U+0080 up; the character itself when it has none.
char32_t UpperCase(char32_t character);

} // namespace nesk::platform::common
