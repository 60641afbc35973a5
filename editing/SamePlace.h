#pragma once

#include <string>

namespace nesk {

/// Whether two Windows paths name the same file: by their texts, without regard to case and doubled
/// separators, or because both exist and lead to one file.
bool IsSamePlace(const std::string& one, const std::string& other);

} // namespace nesk
