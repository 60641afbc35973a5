#include "platform/ResourceLibrary.h"

#include "platform/windows/ModuleFile.h"
#include "platform/windows/WideText.h"

#include <limits>
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
    const std::wstring file = windows::FilePath(path);
    if (!windows::IsWholeModule(file)) return 0;
    // Loads the file as data: no code of the library runs, and the 64-bit program can use a library made for
    // the operator interface, too.
    const HMODULE module =
        ::LoadLibraryExW(file.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE);
    return reinterpret_cast<ModuleHandle>(module);
}

int ReadModuleString(ModuleHandle module, std::uint32_t id, char* buffer, int capacity) {
    if (buffer == nullptr || capacity <= 0) return 0;
    buffer[0] = '\0';
    // Module 0 would be the program itself, and the system would use only the lower 16 bits of a larger
    // number.
    if (module == 0 || id > std::numeric_limits<std::uint16_t>::max()) return 0;
    return ::LoadStringA(ToSystem(module), id, buffer, capacity);
}

void FreeModule(ModuleHandle module) {
    if (module != 0) ::FreeLibrary(ToSystem(module));
}

} // namespace nesk::platform
