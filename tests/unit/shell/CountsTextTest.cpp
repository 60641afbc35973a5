#include "shell/CountsText.h"

#include "unit/CoreFixture.h"

namespace nesk {
namespace {

class CountsTextTest : public testing::CoreTest {};

TEST_F(CountsTextTest, TellsTheNumbers) {
    EXPECT_EQ(CountsText({5, 28}, 1), "5 submenus, 28 parts");
    EXPECT_EQ(CountsText({1, 1}, 0), "1 submenu, 1 part");
    EXPECT_EQ(CountsText({0, 0}, 1), "0 submenus, 0 parts");
    EXPECT_EQ(CountsText({3000, 100000}, 1), "3000 submenus, 100000 parts");
}

TEST_F(CountsTextTest, TellsTheSelectedOnesFromTwoOn) {
    EXPECT_EQ(CountsText({5, 28}, 2), "5 submenus, 28 parts; 2 selected");
    EXPECT_EQ(CountsText({1, 30}, 31), "1 submenu, 30 parts; 31 selected");
}

} // namespace
} // namespace nesk
