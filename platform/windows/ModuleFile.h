#pragma once

#include <string>

namespace nesk::platform::windows {

/// True when a file is a module (program or library) and contains everything that its headers describe. The
/// system also maps truncated files, and reading a missing part would end the program.
/// @param path  in the form returned by FilePath (WideText.h)
bool IsWholeModule(const std::wstring& path);

} // namespace nesk::platform::windows
