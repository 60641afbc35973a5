#pragma once

#include <cstdint>

namespace nesk::platform {

/// Windows locale identifier of the user's regional settings, for example 1033 or 1041; 1033 when unknown.
std::uint32_t UserDefaultLocale();

} // namespace nesk::platform
