#pragma once

#include "platform/Libraries.h"

#include <string>

namespace nesk {

/// Version of the program, as "0.1.0".
std::string ProgramVersion();

/// What Help, About tells: version, licence, and the libraries with theirs.
/// @param toolkit  library of the windows
std::string AboutText(const platform::Library& toolkit);

} // namespace nesk
