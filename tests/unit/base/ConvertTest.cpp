#include "base/modConvert.h"
#include "unit/Errors.h"

#include <gtest/gtest.h>

namespace nesk {
namespace {

using modConvert::CInt;
using modConvert::CLng;
using modConvert::Val;
using testing::ErrorOf;

TEST(Convert, WholeNumbersWithBlanks) {
    EXPECT_EQ(CInt(" 12 "), 12);
    EXPECT_EQ(CLng("\t-7"), -7);
    EXPECT_EQ(CLng("+3"), 3);
    EXPECT_EQ(CLng("2147483647"), 2147483647);
    EXPECT_EQ(CLng("-2147483648"), -2147483647 - 1);
}

TEST(Convert, HalvesGoToEven) {
    EXPECT_EQ(CInt("0.5"), 0);
    EXPECT_EQ(CInt("1.5"), 2);
    EXPECT_EQ(CInt("2.5"), 2);
    EXPECT_EQ(CInt("-1.5"), -2);
    EXPECT_EQ(CInt("2.51"), 3);
    EXPECT_EQ(CInt(0.6), 1);
    EXPECT_EQ(CInt(999.5), 1000);
}

TEST(Convert, ExponentsAndRadixes) {
    EXPECT_EQ(CLng("1e3"), 1000);
    EXPECT_EQ(CLng("1D3"), 1000);
    EXPECT_EQ(CLng(".5e1"), 5);
    EXPECT_EQ(CLng("&H10"), 16);
    EXPECT_EQ(CLng("&o17"), 15);
    EXPECT_EQ(CInt("&HFFFF"), -1);
    EXPECT_EQ(CLng("&HFFFF"), 65535);
    EXPECT_EQ(CLng("&HFFFFFFFF"), -1);
}

TEST(Convert, WhatIsNoNumberIsATypeMismatch) {
    for (const char* text : {"", " ", "abc", "12abc", "1 2", "-", ".", "1e", "&H", "&HG", "1,5", "0x10"}) {
        EXPECT_EQ(ErrorOf([&] { CLng(text); }).number, RuntimeError::TypeMismatch) << '"' << text << '"';
        EXPECT_EQ(ErrorOf([&] { CInt(text); }).number, RuntimeError::TypeMismatch) << '"' << text << '"';
    }
}

TEST(Convert, WhatIsTooLargeIsAnOverflow) {
    for (const char* text : {"32768", "-32769", "40000", "32767.5", "&H10000", "1e400"})
        EXPECT_EQ(ErrorOf([&] { CInt(text); }).number, RuntimeError::Overflow) << text;
    for (const char* text : {"2147483648", "-2147483649", "1e10", "&H100000000"})
        EXPECT_EQ(ErrorOf([&] { CLng(text); }).number, RuntimeError::Overflow) << text;
    EXPECT_EQ(ErrorOf([] { CInt(1e9); }).number, RuntimeError::Overflow);
    EXPECT_EQ(CInt("32767.4"), 32767);
    EXPECT_EQ(CInt("1e-400"), 0);
}

TEST(Convert, ValTakesTheLeadingNumber) {
    EXPECT_EQ(Val("12 parts"), 12);
    EXPECT_EQ(Val("  3.5mm"), 3.5);
    EXPECT_EQ(Val("1 2 3x"), 123);
    EXPECT_EQ(Val("-4-5"), -4);
    EXPECT_EQ(Val("2e2x"), 200);
    EXPECT_EQ(Val("2e"), 2);
    EXPECT_EQ(Val("1,5"), 1);
    EXPECT_EQ(Val(""), 0);
    EXPECT_EQ(Val("x1"), 0);
    EXPECT_EQ(Val("&HFFFF"), -1);
    EXPECT_EQ(Val("&HFFFF&"), 65535);
    EXPECT_EQ(ErrorOf([] { Val("1e999"); }).number, RuntimeError::Overflow);
}

} // namespace
} // namespace nesk
