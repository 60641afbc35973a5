#pragma once

#include <string>
#include <vector>

namespace nesk::platform {

/// A library that the program uses.
struct Library {
    std::string name;
    std::string version;
    std::string licence;
};

/// The libraries that the platform services use, with the versions that run; none where the system itself
/// provides all.
std::vector<Library> LinkedLibraries();

} // namespace nesk::platform
