#pragma once

#include <string>

namespace nesk {

/// Folder of the part-program repository, without trailing "\": that of the current user where it exists,
/// otherwise that of all users, which may be missing or "".
std::string RepositoryRoot();

} // namespace nesk
