#pragma once

#include <cstdint>
#include <string>

/// Language resource libraries: modules with a table of numbered strings.
namespace nesk::platform {

/// Handle of a loaded library; 0 is no library.
using ModuleHandle = std::uintptr_t;

/// Loads the library at `path` (a Windows path). 0 when the file is missing or is not a resource library.
ModuleHandle LoadModule(const std::string& path);

/// Copies string `id` into `buffer` as zero-terminated bytes of the code page, truncated to `capacity` - 1
/// bytes at a character boundary. Returns the number of bytes without the zero; 0 when the string does not
/// exist.
int ReadModuleString(ModuleHandle module, std::uint32_t id, char* buffer, int capacity);

/// Releases a library. 0 is ignored.
void FreeModule(ModuleHandle module);

} // namespace nesk::platform
