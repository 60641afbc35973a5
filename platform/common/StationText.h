#pragma once

#include "platform/common/CodePageTable.h"

/// The text services that differ between Windows and the other systems.
namespace nesk::platform::common {

/// The code page in use.
const CodePageTable& SelectedCodePage();

/// Upper-case form of a character from U+0080 up; the character itself when it has no upper-case form.
char32_t UpperCase(char32_t character);

} // namespace nesk::platform::common
