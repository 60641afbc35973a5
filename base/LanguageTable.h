#pragma once

#include <string>

namespace nesk {

/// Three-letter code of a Windows language identifier, as it stands in the names of language libraries and
/// help files. -1 is the pseudo-language "PIG"; every identifier without an entry, 1045 among them, is "ENU".
std::string LanguageCode(int languageId);

} // namespace nesk
