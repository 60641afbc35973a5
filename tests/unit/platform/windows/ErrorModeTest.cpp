#include "platform/ErrorMode.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace nesk::platform {
namespace {

TEST(ErrorModeTest, AFaultOfADriveShowsNoBoxOfTheSystem) {
    const UINT before = ::SetErrorMode(SEM_NOGPFAULTERRORBOX);
    SuppressSystemBoxes();
    EXPECT_EQ(::GetErrorMode() & (SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX | SEM_NOGPFAULTERRORBOX),
              static_cast<UINT>(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX | SEM_NOGPFAULTERRORBOX))
        << "and what was set before stays";
    ::SetErrorMode(before);
}

} // namespace
} // namespace nesk::platform
