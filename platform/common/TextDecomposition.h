#pragma once

#include <string>
#include <string_view>

namespace nesk::platform {

/// The text with each letter with an accent replaced by the letter and combining marks.
/// @param text  well-formed UTF-8
std::string Decomposed(std::string_view text);

} // namespace nesk::platform
