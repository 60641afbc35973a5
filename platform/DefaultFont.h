#pragma once

#include <string>

namespace nesk::platform {

/// Face name of the system's default user-interface font, in UTF-8. Needs a running user interface.
std::string DefaultGuiFontFace();

/// Starts loading the list of fonts in the background where the first text of a window would otherwise wait
/// for it. Needs a running user interface.
void PrepareFonts();

} // namespace nesk::platform
