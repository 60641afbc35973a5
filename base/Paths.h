#pragma once

#include <string>

/// Parts of Windows paths.
namespace nesk::Paths {

/// The path up to and including the "\" before its last name. Trailing separators are ignored. "" when there
/// is no such "\".
std::string ParentFolder(const std::string& path);

} // namespace nesk::Paths
