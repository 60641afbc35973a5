#include "unit/platform/windows/Security.h"

#include "platform/windows/WideText.h"

#include <aclapi.h>
#include <sddl.h>
#include <stdexcept>
#include <windows.h>

namespace nesk::testing {

namespace {

using platform::windows::FilePath;
using platform::windows::FromWide;
using platform::windows::ToWide;

std::string Get(std::wstring name, SE_OBJECT_TYPE type) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    LPWSTR text = nullptr;
    if (::GetNamedSecurityInfoW(name.data(), type, DACL_SECURITY_INFORMATION, nullptr, nullptr, nullptr,
                                nullptr, &descriptor) != ERROR_SUCCESS ||
        ::ConvertSecurityDescriptorToStringSecurityDescriptorW(
            descriptor, SDDL_REVISION_1, DACL_SECURITY_INFORMATION, &text, nullptr) == 0)
        throw std::runtime_error("the test cannot read an access list");
    const std::string list = FromWide(text);
    ::LocalFree(text);
    ::LocalFree(descriptor);
    return list;
}

void Set(std::wstring name, SE_OBJECT_TYPE type, const std::string& list) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    BOOL hasList = FALSE;
    BOOL isDefault = FALSE;
    PACL entries = nullptr;
    const bool read = ::ConvertStringSecurityDescriptorToSecurityDescriptorW(
                          ToWide(list).c_str(), SDDL_REVISION_1, &descriptor, nullptr) != 0 &&
                      ::GetSecurityDescriptorDacl(descriptor, &hasList, &entries, &isDefault) != 0;
    const DWORD result =
        read ? ::SetNamedSecurityInfoW(name.data(), type,
                                       DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION,
                                       nullptr, nullptr, entries, nullptr)
             : ::GetLastError();
    ::LocalFree(descriptor);
    if (result != ERROR_SUCCESS) throw std::runtime_error("the test cannot set an access list");
}

} // namespace

std::string AccessListOf(const std::string& windowsPath) {
    return Get(FilePath(windowsPath), SE_FILE_OBJECT);
}

void SetAccessList(const std::string& windowsPath, const std::string& list) {
    Set(FilePath(windowsPath), SE_FILE_OBJECT, list);
}

std::string KeyAccessListOf(const std::string& key) {
    return Get(ToWide("MACHINE\\" + key), SE_REGISTRY_KEY);
}

void SetKeyAccessList(const std::string& key, const std::string& list) {
    Set(ToWide("MACHINE\\" + key), SE_REGISTRY_KEY, list);
}

} // namespace nesk::testing
