#include "widgets/NumericKeyFilter.h"

#include <gtest/gtest.h>

namespace nesk {
namespace {

using modUtilities::NumericKeyFilter;

TEST(NumericKeyFilter, DigitsAndEditingKeysPass) {
    const NumericKeyFilter filter(false, false);
    for (char32_t key = U'0'; key <= U'9'; ++key)
        EXPECT_TRUE(filter.Accepts(key, "12", 1, 1));
    for (const char32_t key : {U'\b', U'\t', U'\r', char32_t{3}, char32_t{22}, char32_t{127}})
        EXPECT_TRUE(filter.Accepts(key, "", 0, 0));
    for (const char32_t key : {U'-', U'+', U'.', U',', U'a', U' ', U'ä', U'٣'})
        EXPECT_FALSE(filter.Accepts(key, "", 0, 0));
}

TEST(NumericKeyFilter, ASignStandsAtTheFrontOnly) {
    const NumericKeyFilter filter(true, false);
    EXPECT_TRUE(filter.Accepts(U'-', "12", 0, 0));
    EXPECT_FALSE(filter.Accepts(U'-', "12", 1, 1));
    EXPECT_FALSE(filter.Accepts(U'-', "-12", 0, 0));
    EXPECT_TRUE(filter.Accepts(U'-', "-12", 0, 1));
    EXPECT_FALSE(filter.Accepts(U'5', "-12", 0, 0));
}

TEST(NumericKeyFilter, OneDecimalPoint) {
    const NumericKeyFilter filter(false, true);
    EXPECT_TRUE(filter.Accepts(U'.', "12", 1, 1));
    EXPECT_FALSE(filter.Accepts(U'.', "1.2", 3, 3));
    EXPECT_TRUE(filter.Accepts(U'.', "1.2", 0, 3));
}

TEST(NumericKeyFilter, PastedTextIsCleaned) {
    EXPECT_EQ(NumericKeyFilter(false, false).Clean("-1 2.3\nab4"), "1234");
    EXPECT_EQ(NumericKeyFilter(true, true).Clean("-1-2.3.4"), "-12.34");
    EXPECT_EQ(NumericKeyFilter(false, false).Clean("äöü"), "");
}

} // namespace
} // namespace nesk
