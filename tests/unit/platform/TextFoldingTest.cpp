#include "platform/TextFolding.h"

#include <gtest/gtest.h>

namespace nesk::platform {
namespace {

TEST(TextFolding, CaseDoesNotMatter) {
    EXPECT_EQ(Folded("Housing 12_b"), "HOUSING 12_B");
    EXPECT_EQ(Folded("Ширина"), Folded("ШИРИНА"));
    EXPECT_EQ(Folded("ΟΔΟΣ"), Folded("οδος")); // the last letter has another lower case
    EXPECT_EQ(Folded(""), "");
}

TEST(TextFolding, AccentsDoNotMatter) {
    EXPECT_EQ(Folded("Gehäuse"), "GEHAUSE");
    EXPECT_EQ(Folded("Pièce forgée"), "PIECE FORGEE");
    EXPECT_EQ(Folded("e\xCC\x81"), "E"); // a letter and a combining mark
    EXPECT_EQ(Folded("Łożysko"), "LOZYSKO");
    EXPECT_EQ(Folded("Straße"), "STRASSE");
    EXPECT_EQ(Folded("Ærø"), "AERO");
}

TEST(TextFolding, OtherLettersStayDifferent) {
    EXPECT_NE(Folded("が"), Folded("か"));
    EXPECT_NE(Folded("а"), Folded("a")); // Cyrillic and Latin
    EXPECT_EQ(Folded("日本"), "日本");
}

TEST(TextFolding, BytesThatAreNoTextStay) {
    const std::string kept = "\xF4\x8F\xBB\xBF"; // an escaped byte
    EXPECT_EQ(Folded("a" + kept), "A" + kept);
    EXPECT_FALSE(Folded("ä\xFF").empty());
}

TEST(TextFolding, AppendsToWhatIsThere) {
    std::string text = "x";
    AppendFolded(text, "aB");
    AppendFolded(text, "é");
    EXPECT_EQ(text, "xABE");
}

} // namespace
} // namespace nesk::platform
