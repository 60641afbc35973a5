#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace nesk::platform {

/// Sorts texts in the order of the user's language, without regard to case where the texts differ otherwise.
/// @param texts  UTF-8
/// @return 0-based indices of the texts in their order; equal texts keep theirs
std::vector<std::size_t> SortedOrder(const std::vector<std::string>& texts);

} // namespace nesk::platform
