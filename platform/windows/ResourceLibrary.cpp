#include "platform/ResourceLibrary.h"

#include "platform/windows/WideText.h"

#include <windows.h>
// The system defines this name as a macro.
#undef FreeModule

namespace nesk::platform {

namespace {

HMODULE ToSystem(ModuleHandle module) {
    return reinterpret_cast<HMODULE>(module);
}

} // namespace

ModuleHandle LoadModule(const std::string& path) {
    // Loaded for its strings alone: no code of the library runs, and a library made for the operator
    // interface serves the 64-bit program as well.
    const HMODULE module = ::LoadLibraryExW(windows::FilePath(path).c_str(), nullptr,
                                            LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE);
    return reinterpret_cast<ModuleHandle>(module);
}

int ReadModuleString(ModuleHandle module, std::uint32_t id, char* buffer, int capacity) {
    if (buffer == nullptr || capacity <= 0) return 0;
    buffer[0] = '\0';
    // Module 0 would be the program itself.
    return module != 0 ? ::LoadStringA(ToSystem(module), id, buffer, capacity) : 0;
}

void FreeModule(ModuleHandle module) {
    if (module != 0) ::FreeLibrary(ToSystem(module));
}

} // namespace nesk::platform
