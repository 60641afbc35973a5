#include "widgets/WrappedText.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

namespace nesk {
namespace {

// Every character is one unit wide.
int Characters(std::string_view text) {
    return static_cast<int>(
        std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

std::string Wrapped(std::string_view text, int width) {
    std::string result;
    for (const std::string_view line : WrappedLines(text, width, Characters))
        result.append(result.empty() ? "" : "|").append(line);
    return result;
}

TEST(WrappedTextTest, LinesEndBeforeAWordThatDoesNotFit) {
    EXPECT_EQ(Wrapped("one two three", 7), "one two|three");
    EXPECT_EQ(Wrapped("one two three", 8), "one two|three");
    EXPECT_EQ(Wrapped("one two three", 13), "one two three");
    EXPECT_EQ(Wrapped("one two three", 6), "one|two|three");
}

TEST(WrappedTextTest, AWordThatIsTooLongIsBrokenAnywhere) {
    EXPECT_EQ(Wrapped("C:\\Folder\\menu.cfg", 7), "C:\\Fold|er\\menu|.cfg");
    EXPECT_EQ(Wrapped("File C:\\Folder\\menu.cfg is gone", 8), "File|C:\\Folde|r\\menu.c|fg is|gone");
}

TEST(WrappedTextTest, LineBreaksAndEmptyLinesStay) {
    EXPECT_EQ(Wrapped("one\n\ntwo", 5), "one||two");
    EXPECT_EQ(WrappedLines("", 5, Characters).size(), 1u);
    EXPECT_EQ(WrappedLines("one\n", 5, Characters).size(), 2u);
}

TEST(WrappedTextTest, CharactersAreNotCut) {
    EXPECT_EQ(Wrapped("\xC3\xA4\xC3\xB6\xC3\xBC\xC3\x9F", 3), "\xC3\xA4\xC3\xB6\xC3\xBC|\xC3\x9F");
    EXPECT_EQ(Wrapped("\xE6\x97\xA5\xE6\x9C\xAC", 1), "\xE6\x97\xA5|\xE6\x9C\xAC");
    EXPECT_EQ(Wrapped("ab", 0), "a|b") << "a line holds one character at least";
}

TEST(WrappedTextTest, BrokenWordsAreMendedAgain) {
    const std::string text = "File C:\\Folder\\menu.cfg\n\nis gone";
    const std::string broken = WithWordsBroken(text, WrappedLines(text, 8, Characters));
    EXPECT_EQ(broken, "File C:\\Folde\xE2\x80\x8B\nr\\menu.c\xE2\x80\x8B\nfg\n\nis gone");
    EXPECT_EQ(WithoutWordBreaks(broken), text);
    EXPECT_EQ(WithoutWordBreaks("e\xE2\x80\x8B"), "e") << "a piece may end inside a break";
    const std::string plain = "one two three\n";
    EXPECT_EQ(WithWordsBroken(plain, WrappedLines(plain, 7, Characters)), plain);
    EXPECT_EQ(WithWordsBroken("", WrappedLines("", 7, Characters)), "");
}

TEST(WrappedTextTest, TheLinesAreJoinedByLineBreaks) {
    const auto oneEach = [](std::string_view piece) { return static_cast<int>(piece.size()); };
    EXPECT_EQ(WrappedText("one two\n\nthree", 5, oneEach), "one\ntwo\n\nthree");
    EXPECT_EQ(WrappedText("", 5, oneEach), "");
}

} // namespace
} // namespace nesk
