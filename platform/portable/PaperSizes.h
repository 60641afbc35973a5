#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Sizes of paper, by the paper codes of Windows and by their names in the standard PWG 5101.1.
namespace nesk::platform::portable {

/// Name of a paper code, as "iso_a4" for 9; "" when the standard has none for it.
std::string PaperName(int code);

/// The lowest code of a name.
std::optional<int> PaperCode(std::string_view name);

} // namespace nesk::platform::portable
