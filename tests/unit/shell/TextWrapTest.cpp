#include "shell/TextWrap.h"

#include <gtest/gtest.h>

namespace nesk {
namespace {

// Each byte is one wide.
std::string Wrap(const std::string& text, int width) {
    return WrapText(text, width, [](const std::string& piece) { return static_cast<int>(piece.size()); });
}

TEST(TextWrapTest, BreaksAtBlanks) {
    EXPECT_EQ(Wrap("one two three", 7), "one two\nthree");
    EXPECT_EQ(Wrap("one two three", 13), "one two three");
    EXPECT_EQ(Wrap("one two three", 3), "one\ntwo\nthr\nee");
    EXPECT_EQ(Wrap("", 3), "");
}

TEST(TextWrapTest, KeepsTheLinesOfTheText) {
    EXPECT_EQ(Wrap("one\n\ntwo three\n", 5), "one\n\ntwo\nthree\n");
}

TEST(TextWrapTest, BreaksALongPathAnywhere) {
    EXPECT_EQ(Wrap("in C:\\Data\\menu.cfg now", 8), "in\nC:\\Data\\\nmenu.cfg\nnow");
}

TEST(TextWrapTest, NeverBreaksWithinACharacter) {
    EXPECT_EQ(Wrap("\u00e4\u00f6\u00fc", 5), "\u00e4\u00f6\n\u00fc");
    EXPECT_EQ(Wrap("\u00e4\u00f6", 1), "\u00e4\n\u00f6") << "no line is empty, however narrow";
}

} // namespace
} // namespace nesk
