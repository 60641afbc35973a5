#pragma once

#include <string>

/// The administrator's access code, with which an operator leaves the operator interface.
namespace nesk::AccessCode {

/// Longest code in digits: a longer text could not be read back from the registry.
constexpr unsigned long MaxLength = 255;

/// Says whether a code is stored, and what two empty fields do.
std::string StateText();

/// Puts the code into the settings record and saves it. An empty code removes the stored one. When the two
/// entries differ, a message says so and nothing is stored.
/// @return true when the two entries are the same; a message tells of a code that could not be stored
bool Store(const std::string& code, const std::string& repeated);

} // namespace nesk::AccessCode
