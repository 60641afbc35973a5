#include "platform/portable/PaperSizes.h"

#include <gtest/gtest.h>

namespace nesk::platform::portable {
namespace {

TEST(PaperSizes, Names) {
    EXPECT_EQ(PaperName(1), "na_letter");
    EXPECT_EQ(PaperName(8), "iso_a3");
    EXPECT_EQ(PaperName(9), "iso_a4");
    EXPECT_EQ(PaperName(27), "iso_dl");
    EXPECT_EQ(PaperName(105), "prc_10");
    for (const int code : {-1, 0, 48, 49, 106, 256, 257})
        EXPECT_EQ(PaperName(code), "") << code;
}

TEST(PaperSizes, Codes) {
    EXPECT_EQ(PaperCode("iso_a4"), 9);
    EXPECT_EQ(PaperCode("jis_b6"), 88);
    EXPECT_EQ(PaperCode("na_ledger"), 3) << "the lowest of its codes";
    EXPECT_EQ(PaperCode("ISO_A4"), std::nullopt);
    EXPECT_EQ(PaperCode(""), std::nullopt);
}

TEST(PaperSizes, EveryNameHasACodeOfThatName) {
    int named = 0;
    for (int code = 1; code <= 118; ++code) {
        const std::string name = PaperName(code);
        if (name.empty()) continue;
        ++named;
        const std::optional<int> first = PaperCode(name);
        ASSERT_TRUE(first) << name;
        EXPECT_LE(*first, code);
        EXPECT_EQ(PaperName(*first), name);
    }
    EXPECT_EQ(named, 86);
}

} // namespace
} // namespace nesk::platform::portable
