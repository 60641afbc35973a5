#pragma once

#include "platform/Libraries.h"

#include <string>

namespace nesk {

/// Version of the program, for example "0.1.0".
std::string ProgramVersion();

/// The text of Help, About: the version, the licence, and the libraries with their licences.
/// @param toolkit  the library that draws the windows
std::string AboutText(const platform::Library& toolkit);

} // namespace nesk
