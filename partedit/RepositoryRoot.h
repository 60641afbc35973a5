#pragma once

#include <string>

namespace nesk {

/// Folder of the part-program repository, without a trailing "\": the folder of the current user when it
/// exists, otherwise the folder of all users, which may be missing or "".
std::string RepositoryRoot();

} // namespace nesk
