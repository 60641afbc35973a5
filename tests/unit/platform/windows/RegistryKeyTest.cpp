#include "platform/Registry.h"

#include "platform/ErrorCode.h"
#include "unit/platform/TempStation.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace nesk::platform {
namespace {

TEST(RegistryKeyTest, KeysHaveNoClassAndStay) {
    const TempStation station;
    RegKey key = 0;
    ASSERT_EQ(ErrorCode::Success, StationRegistry().CreateKey(LocalMachine, "SOFTWARE\\Quarndale\\Kept",
                                                              RegAccess::ReadWrite, key));
    const HKEY handle = reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(key));
    char name[8] = "#";
    DWORD size = sizeof name;
    EXPECT_EQ(ERROR_SUCCESS, ::RegQueryInfoKeyA(handle, name, &size, nullptr, nullptr, nullptr, nullptr,
                                                nullptr, nullptr, nullptr, nullptr, nullptr));
    EXPECT_EQ(0U, size);
    // The system does not report whether a key is volatile, but refuses to create a permanent key below a
    // volatile one.
    HKEY child = nullptr;
    EXPECT_EQ(ERROR_SUCCESS, ::RegCreateKeyExA(handle, "Child", 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_READ,
                                               nullptr, &child, nullptr));
    ::RegCloseKey(child);
    EXPECT_EQ(ErrorCode::Success, StationRegistry().CloseKey(key));
}

} // namespace
} // namespace nesk::platform
