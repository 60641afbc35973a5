#pragma once

#include <cstdint>
#include <string>

/// Language resource libraries: modules that hold a table of numbered strings.
namespace nesk::platform {

/// Handle of a loaded library; 0 is none.
using ModuleHandle = std::uintptr_t;

/// Loads the library in the file `path` (a Windows path). 0 when it is missing or is no resource library.
ModuleHandle LoadModule(const std::string& path);

/// Copies string `id` into `buffer` as zero-terminated bytes of the code page, cut to `capacity` - 1 bytes at
/// a character boundary. Returns the number of bytes without the zero; 0 when there is no such string.
int ReadModuleString(ModuleHandle module, std::uint32_t id, char* buffer, int capacity);

/// Releases a library. 0 is ignored.
void FreeModule(ModuleHandle module);

} // namespace nesk::platform
