#include "shell/WindowPlace.h"

#include <array>
#include <gtest/gtest.h>
#include <vector>

namespace nesk {

static void PrintTo(const ScreenArea& area, std::ostream* out) {
    *out << area.width << "x" << area.height << " at " << area.x << "," << area.y;
}

namespace {

constexpr ScreenArea Primary{0, 0, 1280, 1000};
constexpr ScreenArea Left{-1920, 0, 1920, 1040};
constexpr std::array One{Primary};
constexpr std::array Two{Primary, Left};

TEST(WindowPlace, AWindowStaysWhereItCanBeReached) {
    for (const ScreenArea& area : {ScreenArea{100, 50, 720, 640}, ScreenArea{-8, -8, 720, 640},
                                   ScreenArea{1180, 500, 720, 640}, ScreenArea{-600, 20, 720, 640}})
        EXPECT_EQ(FitToScreens(area, One), area);
    EXPECT_EQ(FitToScreens({-1800, 30, 900, 700}, Two), (ScreenArea{-1800, 30, 900, 700}));
}

TEST(WindowPlace, AWindowOfAScreenThatIsGoneComesToOneThatIsThere) {
    EXPECT_EQ(FitToScreens({-1800, 30, 900, 700}, One), (ScreenArea{0, 30, 900, 700}));
    EXPECT_EQ(FitToScreens({2000, 1500, 900, 700}, One), (ScreenArea{380, 300, 900, 700}));
    EXPECT_EQ(FitToScreens({30000, -30000, 900, 700}, Two), (ScreenArea{380, 0, 900, 700}));
    EXPECT_EQ(FitToScreens({-5000, 100, 900, 700}, Two), (ScreenArea{-1920, 100, 900, 700})) << "the nearest";
}

TEST(WindowPlace, ATitleBarOutsideIsBroughtBack) {
    EXPECT_EQ(FitToScreens({100, -300, 720, 640}, One), (ScreenArea{100, 0, 720, 640})) << "above the screen";
    EXPECT_EQ(FitToScreens({100, 990, 720, 640}, One), (ScreenArea{100, 360, 720, 640}))
        << "at its lower edge";
    EXPECT_EQ(FitToScreens({1250, 100, 720, 640}, One), (ScreenArea{560, 100, 720, 640}))
        << "too little of it";
}

TEST(WindowPlace, AWindowIsNotLargerThanItsScreen) {
    const ScreenArea large = FitToScreens({-1000, -1000, 4000, 3000}, One);
    EXPECT_EQ(large, Primary);
    const ScreenArea wide = FitToScreens({0, 0, 4000, 500}, One);
    EXPECT_LE(wide.width, Primary.width + 16);
    EXPECT_EQ(wide.height, 500);
}

TEST(WindowPlace, IsRememberedAndFoundAgain) {
    WindowMemory memory;
    EXPECT_EQ(WindowPlace::In(memory), std::nullopt);
    const WindowPlace place{-100, 20, 800, 600};
    place.PutInto(memory);
    EXPECT_EQ(WindowPlace::In(memory), place);
}

TEST(WindowPlace, ValuesThatMakeNoSenseAreNoPlace) {
    const struct {
        const char* name;
        int value;
    } cases[] = {{"Width", 0},  {"Width", 20},     {"Width", -800},   {"Width", 100000},
                 {"Height", 3}, {"Height", 20000}, {"Left", 2000000}, {"Top", -2000000}};
    for (const auto& [name, value] : cases) {
        WindowMemory memory;
        WindowPlace{10, 20, 800, 600}.PutInto(memory);
        ASSERT_TRUE(WindowPlace::In(memory));
        memory.SetNumber(name, value);
        EXPECT_EQ(WindowPlace::In(memory), std::nullopt) << name << " " << value;
    }
}

} // namespace
} // namespace nesk
