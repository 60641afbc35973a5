#pragma once

#include <string>

namespace nesk::platform {

/// Face name of the system's default font for windows, in UTF-8. Needs a running user interface.
std::string DefaultGuiFontFace();

} // namespace nesk::platform
