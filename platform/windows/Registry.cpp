#include "platform/Registry.h"

#include "platform/ErrorCode.h"
#include "platform/windows/SystemError.h"

#include <windows.h>

namespace nesk::platform {

namespace {

using windows::ErrorFromSystem;

HKEY ToSystem(RegKey key) {
    if (key == LocalMachine) return HKEY_LOCAL_MACHINE;
    return reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(key));
}

RegKey FromSystem(HKEY key) {
    return static_cast<RegKey>(reinterpret_cast<ULONG_PTR>(key));
}

// The registry of the system, whose functions mostly have the contract of this interface.
class SystemRegistry final : public Registry {
public:
    ErrorCode OpenKey(RegKey parent, const std::string& path, std::uint32_t access, RegKey& key) override {
        key = 0;
        if (path.starts_with('\\')) return ErrorCode::BadPathName;
        HKEY opened = nullptr;
        const LONG result = ::RegOpenKeyExA(ToSystem(parent), path.c_str(), 0, access, &opened);
        if (result == ERROR_SUCCESS) key = FromSystem(opened);
        return ErrorFromSystem(result);
    }

    ErrorCode CreateKey(RegKey parent, const std::string& path, std::uint32_t access, RegKey& key) override {
        key = 0;
        if (path.starts_with('\\')) return ErrorCode::BadPathName;
        HKEY opened = nullptr;
        char noClass = '\0';
        const LONG result = ::RegCreateKeyExA(ToSystem(parent), path.c_str(), 0, &noClass,
                                              REG_OPTION_NON_VOLATILE, access, nullptr, &opened, nullptr);
        if (result == ERROR_SUCCESS) key = FromSystem(opened);
        return ErrorFromSystem(result);
    }

    ErrorCode CloseKey(RegKey key) override {
        if (key == LocalMachine) return ErrorCode::Success;
        return ErrorFromSystem(::RegCloseKey(ToSystem(key)));
    }

    ErrorCode QueryValue(RegKey key, const std::string& name, std::uint32_t* type, char* data,
                         std::uint32_t* size) override {
        DWORD found = 0;
        DWORD length = size != nullptr ? *size : 0;
        const LONG result =
            ::RegQueryValueExA(ToSystem(key), name.c_str(), nullptr, &found, reinterpret_cast<BYTE*>(data),
                               size != nullptr ? &length : nullptr);
        return Answer(result, found, type, length, size);
    }

    ErrorCode SetValue(RegKey key, const std::string& name, std::uint32_t type,
                       std::string_view data) override {
        // The system also reads the byte after a text and, if it is zero, stores it as part of the text. A
        // byte other than zero keeps the stored value independent of the memory after `data`.
        const std::string bytes = std::string(data) + '#';
        return ErrorFromSystem(::RegSetValueExA(ToSystem(key), name.c_str(), 0, type,
                                                reinterpret_cast<const BYTE*>(bytes.data()),
                                                static_cast<DWORD>(data.size())));
    }

    ErrorCode DeleteValue(RegKey key, const std::string& name) override {
        return ErrorFromSystem(::RegDeleteValueA(ToSystem(key), name.c_str()));
    }

    ErrorCode DeleteKey(RegKey parent, const std::string& subKey) override {
        if (subKey.empty()) return ErrorCode::InvalidParameter;
        if (subKey.starts_with('\\')) return ErrorCode::BadPathName;
        return ErrorFromSystem(::RegDeleteKeyA(ToSystem(parent), subKey.c_str()));
    }

    ErrorCode EnumKey(RegKey key, std::uint32_t index, char* name, std::uint32_t capacity) override {
        return ErrorFromSystem(::RegEnumKeyA(ToSystem(key), index, name, capacity));
    }

    ErrorCode EnumValue(RegKey key, std::uint32_t index, char* name, std::uint32_t* nameSize,
                        std::uint32_t* type, char* data, std::uint32_t* size) override {
        DWORD nameLength = *nameSize;
        DWORD found = 0;
        DWORD length = size != nullptr ? *size : 0;
        const LONG result =
            ::RegEnumValueA(ToSystem(key), index, name, &nameLength, nullptr, &found,
                            reinterpret_cast<BYTE*>(data), size != nullptr ? &length : nullptr);
        if (result == ERROR_SUCCESS) *nameSize = nameLength;
        return Answer(result, found, type, length, size);
    }

    std::string Location() const override { return "HKEY_LOCAL_MACHINE"; }

private:
    // Copies type and size to the caller for those results with which the system sets them.
    static ErrorCode Answer(LONG result, DWORD found, std::uint32_t* type, DWORD length,
                            std::uint32_t* size) {
        if (result == ERROR_SUCCESS && type != nullptr) *type = found;
        if ((result == ERROR_SUCCESS || result == ERROR_MORE_DATA) && size != nullptr) *size = length;
        return ErrorFromSystem(result);
    }
};

} // namespace

Registry& StationRegistry() {
    static SystemRegistry registry;
    return registry;
}

} // namespace nesk::platform
