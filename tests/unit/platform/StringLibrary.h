#pragma once

#include "unit/platform/TempStation.h"

#include <cstdint>
#include <map>
#include <string>

namespace nesk::testing {

/// Writes a language library in the format that this kind of station loads.
/// @param strings  the strings of the library, in UTF-8
void WriteStringLibrary(TempStation& station, const std::string& windowsPath,
                        const std::map<std::uint16_t, std::string>& strings);

} // namespace nesk::testing
