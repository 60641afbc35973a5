#include "partedit/FolderName.h"

#include <gtest/gtest.h>

namespace nesk::FolderName {
namespace {

TEST(FolderNameTest, OnlyTheColonIsRefused) {
    EXPECT_FALSE(Accepts(U':'));
    for (const char32_t character : {U'\\', U'/', U'*', U'?', U' ', U'a', U'\u00E9', char32_t{13}})
        EXPECT_TRUE(Accepts(character)) << static_cast<unsigned>(character);
    EXPECT_EQ(WithoutRefused(":C:\\Da:ta:"), "C\\Data");
    EXPECT_EQ(WithoutRefused("\xC3\xA9*"), "\xC3\xA9*");
}

TEST(FolderNameTest, BlanksAndSeparatorsAroundTheNameGo) {
    EXPECT_EQ(Clean("New"), "New");
    EXPECT_EQ(Clean("  New  "), "New");
    EXPECT_EQ(Clean("\\New\\"), "New");
    EXPECT_EQ(Clean(" \\\\A\\B\\\\ "), "A\\B");
    EXPECT_EQ(Clean("My parts"), "My parts");
}

TEST(FolderNameTest, NothingButBlanksAndSeparatorsIsNoName) {
    for (const char* text : {"", "   ", "\\", "\\\\\\", "  \\\\ "})
        EXPECT_EQ(Clean(text), "") << text;
}

TEST(FolderNameTest, ThePathEndsInASeparator) {
    EXPECT_EQ(PathIn("C:\\Data\\", "New"), "C:\\Data\\New\\");
    EXPECT_EQ(PathIn("C:\\Data", "A\\B"), "C:\\Data\\A\\B\\");
    EXPECT_EQ(PathIn("C:\\Data\\", "..\\Other"), "C:\\Other\\");
}

} // namespace
} // namespace nesk::FolderName
