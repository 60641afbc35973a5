#include "platform/LetterCase.h"

#include <gtest/gtest.h>

namespace nesk::platform {
namespace {

constexpr int English = 1033;
constexpr int Turkish = 1055;

TEST(LetterCase, AllLettersGetTheCase) {
    EXPECT_EQ(InCase("Gehäuse 12_b", LetterCase::Upper, English), "GEHÄUSE 12_B");
    EXPECT_EQ(InCase("GEHÄUSE 12_B", LetterCase::Lower, English), "gehäuse 12_b");
    EXPECT_EQ(InCase("Ширина", LetterCase::Upper, English), "ШИРИНА");
    EXPECT_EQ(InCase("ШИРИНА", LetterCase::Lower, English), "ширина");
    EXPECT_EQ(InCase("Mixed Ä", LetterCase::Unchanged, English), "Mixed Ä");
    EXPECT_EQ(InCase("", LetterCase::Upper, English), "");
}

TEST(LetterCase, ALanguageMayHaveItsOwnRules) {
    EXPECT_EQ(InCase("iı", LetterCase::Upper, Turkish), "İI");
    EXPECT_EQ(InCase("İI", LetterCase::Lower, Turkish), "iı");
    EXPECT_EQ(InCase("i", LetterCase::Upper, English), "I");
    EXPECT_EQ(InCase("I", LetterCase::Lower, English), "i");
}

TEST(LetterCase, OtherCharactersStay) {
    EXPECT_EQ(InCase("日本 😀 ß", LetterCase::Upper, English), "日本 😀 ß");
    EXPECT_EQ(InCase("a\xFF", LetterCase::Upper, English), "A\xFF");
    const std::string kept = "\xF4\x8F\xBB\xBF"; // a byte that the code page cannot decode
    EXPECT_EQ(InCase("a" + kept, LetterCase::Upper, English), "A" + kept);
}

} // namespace
} // namespace nesk::platform
