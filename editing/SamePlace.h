#pragma once

#include <string>

namespace nesk {

/// True when two Windows paths name the same file: their texts are equal without regard to case and doubled
/// separators, or both paths exist and lead to one file.
bool IsSamePlace(const std::string& one, const std::string& other);

} // namespace nesk
