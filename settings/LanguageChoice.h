#pragma once

#include "platform/Languages.h"

#include <string>
#include <vector>

/// The language of the program as the settings name it.
namespace nesk::LanguageChoice {

/// True when this program chooses the language. Elsewhere other software of the station does.
bool MayChange();

/// The languages that have texts, sorted by their own names. The pseudo-language is not one of them.
std::vector<const platform::Language*> Offered();

/// Identifier of the language in the settings; 1033 when none is set, or no language has what is set.
int Stored();

/// Stores the language from which the next start takes its texts. Raises the run-time error of the settings.
void Store(int languageId);

/// The first library of a language that is not installed, without its folder; "" when all are.
std::string MissingLibrary(const platform::Language& language);

/// The name of a language for the user: its own one, and the English one where that is different.
std::string Name(const platform::Language& language);

} // namespace nesk::LanguageChoice
