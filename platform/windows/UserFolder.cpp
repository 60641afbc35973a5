#include "platform/UserFolder.h"

#include "platform/windows/WideText.h"

#include <objbase.h>
#include <shlobj.h>
#include <windows.h>

namespace nesk::platform {

namespace {

// FOLDERID_LocalAppData. The library that defines it is not linked.
constexpr GUID LocalAppData{0xF1B32785, 0x6FBA, 0x4FCF, {0x9D, 0x55, 0x7B, 0x8E, 0x7F, 0x15, 0x70, 0x91}};

} // namespace

std::string UserDataFolder() {
    wchar_t* found = nullptr;
    const HRESULT result = ::SHGetKnownFolderPath(LocalAppData, 0, nullptr, &found);
    std::string folder = SUCCEEDED(result) && found != nullptr ? windows::FromWide(found) : "";
    // The memory must be freed even after a failure.
    ::CoTaskMemFree(found);
    return folder.empty() ? folder : folder.append("\\NeskManager");
}

} // namespace nesk::platform
