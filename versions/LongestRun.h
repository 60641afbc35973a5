#pragma once

#include <vector>

namespace nesk {

/// The longest rising subsequence: the most numbers that can stay where they are when the others are moved so
/// that all rise. Of several longest ones always the same is returned.
/// @return for each number whether it belongs to it
std::vector<bool> LongestRun(const std::vector<int>& numbers);

} // namespace nesk
