#include "platform/common/FileFilter.h"

#include <gtest/gtest.h>

namespace nesk::platform::common {
namespace {

TEST(FileFilterTest, PatternsMatchInEitherCaseAndAllNamesAreAll) {
    EXPECT_EQ(NativeFilter("Help (*.chm;*.Hlp)|*.chm;*.Hlp|All files (*.*)|*.*"),
              "Help (*.chm;*.Hlp)|*.[cC][hH][mM];*.[hH][lL][pP]|All files (*.*)|*");
    EXPECT_EQ(NativeFilter("Numbers|*.00?"), "Numbers|*.00?");
    EXPECT_EQ(NativeFilter(""), "");
}

} // namespace
} // namespace nesk::platform::common
