#include "shell/ScreenRes.h"
#include "unit/Errors.h"

#include <gtest/gtest.h>

namespace nesk {
namespace {

using testing::ErrorOf;

struct Expected {
    std::int16_t width;
    std::int16_t sizes[7];
};

class ScreenResTest : public ::testing::TestWithParam<Expected> {};

TEST_P(ScreenResTest, SizesFollowTheWidthClass) {
    const Expected& expected = GetParam();
    ScreenRes screen;
    screen.Initialize(static_cast<std::int16_t>(expected.width * 15), 15);
    EXPECT_EQ(screen.ScreenWidthPix(), expected.width);
    EXPECT_EQ(screen.PicButtonHeight(), expected.sizes[0]);
    EXPECT_EQ(screen.PicButtonWidth(), expected.sizes[1]);
    EXPECT_EQ(screen.CmdButtonHeight(), expected.sizes[2]);
    EXPECT_EQ(screen.CmdButtonWidth(), expected.sizes[3]);
    EXPECT_EQ(screen.CmdButtonFontSize(), expected.sizes[4]);
    EXPECT_EQ(screen.LabelFontSize(), expected.sizes[5]);
    EXPECT_EQ(screen.TitleFontSize(), expected.sizes[6]);
}

INSTANTIATE_TEST_SUITE_P(Widths, ScreenResTest,
                         ::testing::Values(Expected{640, {840, 2400, 540, 825, 8, 10, 18}},
                                           Expected{800, {1092, 3120, 702, 1072, 12, 10, 24}},
                                           Expected{639, {1344, 3840, 864, 1320, 14, 12, 24}},
                                           Expected{801, {1344, 3840, 864, 1320, 14, 12, 24}},
                                           Expected{1024, {1344, 3840, 864, 1320, 14, 12, 24}},
                                           Expected{1280, {1344, 3840, 864, 1320, 14, 12, 24}}));

TEST(ScreenRes, TheWidthIsTruncated) {
    ScreenRes screen;
    screen.Initialize(9614, 15);
    EXPECT_EQ(screen.ScreenWidthPix(), 640);
    EXPECT_EQ(screen.PicButtonHeight(), 840);
}

TEST(ScreenRes, ImpossibleDivisionsAreErrors) {
    ScreenRes screen;
    EXPECT_EQ(ErrorOf([&] { screen.Initialize(9600, 0); }).number, RuntimeError::DivisionByZero);
    EXPECT_EQ(ErrorOf([&] { screen.Initialize(-32768, -1); }).number, RuntimeError::Overflow);
}

} // namespace
} // namespace nesk
