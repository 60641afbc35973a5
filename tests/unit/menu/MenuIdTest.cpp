#include "menu/MenuId.h"

#include <gtest/gtest.h>
#include <limits>

namespace nesk {
namespace {

TEST(MenuIdTest, IsMadeOfItsParts) {
    EXPECT_EQ(MenuId::OfChild("R.4", 12), "R.4.12");
    EXPECT_EQ(MenuId::Join(MenuId::Parts("R.4.12")), "R.4.12");
    EXPECT_EQ(MenuId::Parts("R.4.12"), (std::vector<std::string_view>{"R", "4", "12"}));
    EXPECT_EQ(MenuId::Parts("R"), std::vector<std::string_view>{"R"});
    EXPECT_EQ(MenuId::LastPart(7), "7");
}

TEST(MenuIdTest, CountersAreTakenFromTheFront) {
    std::string_view rest = ".5.2147483647";
    EXPECT_EQ(MenuId::TakeCounter(rest), 5);
    EXPECT_EQ(MenuId::TakeCounter(rest), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(rest, "");
    for (std::string_view bad : {"", ".", "5", ".0", ".05", ".-1", ".x", ".2147483648", ". 1"}) {
        const std::string_view before = bad;
        EXPECT_EQ(MenuId::TakeCounter(bad), std::nullopt) << before;
        EXPECT_EQ(bad, before) << "nothing is taken";
    }
}

} // namespace
} // namespace nesk
