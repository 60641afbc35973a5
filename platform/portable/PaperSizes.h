#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Conversion of paper sizes between the paper codes of Windows and the names of the standard PWG 5101.1.
namespace nesk::platform::portable {

/// Name of a paper code, for example "iso_a4" for 9; "" when the standard has no name for it.
std::string PaperName(int code);

/// The lowest code with a name; empty when no code has it.
std::optional<int> PaperCode(std::string_view name);

} // namespace nesk::platform::portable
