#include "platform/UserLocale.h"

#include <array>
#include <gtest/gtest.h>
#include <string>
#include <windows.h>

namespace nesk::platform {
namespace {

TEST(UserLocale, IsTheOneOfTheRegionalSettings) {
    // The system stores it as eight hexadecimal digits.
    std::array<wchar_t, 20> stored{};
    DWORD size = sizeof stored;
    ASSERT_EQ(ERROR_SUCCESS, ::RegGetValueW(HKEY_CURRENT_USER, L"Control Panel\\International", L"Locale",
                                            RRF_RT_REG_SZ, nullptr, stored.data(), &size));
    EXPECT_EQ(std::stoul(stored.data(), nullptr, 16), UserDefaultLocale());
    EXPECT_NE(0U, UserDefaultLocale());
}

} // namespace
} // namespace nesk::platform
