#pragma once

#include <string>

namespace nesk::platform::windows {

/// True when a file is a module, program or library, and holds all that its headers say. The system maps what
/// is left of a file that was broken off, and reading what is missing would end the program.
/// @param path  as FilePath (WideText.h) answers it
bool IsWholeModule(const std::wstring& path);

} // namespace nesk::platform::windows
