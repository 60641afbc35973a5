#pragma once

#include <string>

/// The administrator's access code. An operator needs it to leave the operator interface.
namespace nesk::AccessCode {

/// Maximum length of the code in digits: a longer text could not be read back from the registry.
constexpr unsigned long MaxLength = 255;

/// A text that says whether a code is stored, and what happens when both fields are empty.
std::string StateText();

/// Puts the code into the settings record and saves the record. An empty code removes the stored one. When
/// the two entries differ, a message says so and nothing is stored.
/// @return true when the two entries are the same, even if saving failed; a failed save shows a message
bool Store(const std::string& code, const std::string& repeated);

} // namespace nesk::AccessCode
