#pragma once

#include <string>

namespace nesk {

/// Three-letter code of a Windows language identifier, used in the names of language libraries and help
/// files. -1 is the pseudo-language "PIG". Every identifier without an entry, for example 1045, gives "ENU".
std::string LanguageCode(int languageId);

} // namespace nesk
