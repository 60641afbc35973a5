#pragma once

#include <string>

/// Parts of Windows paths.
namespace nesk::Paths {

/// The path up to and including the "\" before its last name, trailing separators skipped; "" when there is
/// none.
std::string ParentFolder(const std::string& path);

} // namespace nesk::Paths
