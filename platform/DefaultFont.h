#pragma once

#include <string>

namespace nesk::platform {

/// Face name of the system's default font for windows, in UTF-8. Needs a running user interface.
std::string DefaultGuiFontFace();

/// Begins to find out which fonts there are, beside what the program does next, where the first text of a
/// window would have to wait for it. Needs a running user interface.
void PrepareFonts();

} // namespace nesk::platform
