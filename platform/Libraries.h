#pragma once

#include <string>
#include <vector>

namespace nesk::platform {

/// A library used by the program.
struct Library {
    std::string name;
    std::string version;
    std::string licence;
};

/// The libraries used by the platform services, with the versions at run time; empty where the system itself
/// provides everything.
std::vector<Library> LinkedLibraries();

} // namespace nesk::platform
