#include "platform/windows/WideText.h"

#include <gtest/gtest.h>

namespace nesk::platform::windows {
namespace {

using namespace std::string_literals;

TEST(WideText, ConvertsEveryCharacter) {
    const struct {
        std::string narrow;
        std::wstring wide;
    } table[] = {
        {"", L""},
        {"Part 5", L"Part 5"},
        {"Geh\u00E4use \u20AC", L"Geh\u00E4use \u20AC"},
        {"\u90E8\u54C1", L"\u90E8\u54C1"},
        {"\U0001F527", L"\U0001F527"},
        {"\U0010FE81", L"\U0010FE81"},
        {"a\0b\0"s, L"a\0b\0"s},
    };
    for (const auto& row : table) {
        EXPECT_EQ(row.wide, ToWide(row.narrow)) << row.narrow;
        EXPECT_EQ(row.narrow, FromWide(row.wide)) << row.narrow;
    }
}

TEST(WideText, ReplacesWhatIsNoCharacter) {
    // After the first byte of a longer character Windows keeps the letter, but Wine treats it as part of that
    // character.
    EXPECT_EQ(L"a\uFFFDb", ToWide("a\xFF"
                                  "b"));
    EXPECT_EQ(L"\uFFFD", ToWide("\xFF"));
    EXPECT_EQ("a\uFFFDb", FromWide(L"a\xD83D"
                                   L"b"));
    EXPECT_EQ("\uFFFD", FromWide(L"\xDD27"));
}

TEST(WideText, MakesPathsThatTheSystemTakes) {
    EXPECT_EQ(L"C:\\Data\\file", FilePath("C:\\Data\\file"));
    EXPECT_EQ(L"C:\\Data\\file", FilePath("C:/Data//file"));
    EXPECT_EQ(L"C:\\file", FilePath("C:\\Data\\..\\.\\file"));
    EXPECT_EQ(L"C:\\", FilePath("C:\\"));
    EXPECT_EQ(L"\\\\server\\share\\file", FilePath("\\\\server\\share\\file"));
    EXPECT_EQ(L"\\\\?\\C:\\Data\\file", FilePath("\\\\?\\C:\\Data\\file"));
    EXPECT_EQ(L"\\\\.\\C:", FilePath("\\\\.\\C:"));
}

TEST(WideText, RefusesWhatIsNoPath) {
    EXPECT_EQ(L"", FilePath(""));
    EXPECT_EQ(L"", FilePath("C:\\Data\0x"s)) << "it would lead to another file";
}

TEST(WideText, LiftsTheLimitOfLongPathsOnly) {
    // The longest path without the prefix leaves room below it for a short name of eight and three
    // characters.
    const std::string plain = "C:\\" + std::string(244, 'x');
    EXPECT_EQ(ToWide(plain), FilePath(plain));
    EXPECT_EQ(L"\\\\?\\" + ToWide(plain) + L"x", FilePath(plain + "x"));
    const std::string far = "\\\\server\\share\\" + std::string(300, 'x');
    EXPECT_EQ(L"\\\\?\\UNC" + ToWide(far).substr(1), FilePath(far));
    // The prefix turns off the system's path normalisation, so the path must be normalised first.
    EXPECT_EQ(L"\\\\?\\C:\\" + std::wstring(300, L'x') + L"\\a",
              FilePath("C:/" + std::string(300, 'x') + "/b/..//a"));
    EXPECT_EQ(ToWide(plain), FilePath("C:\\" + std::string(300, 'y') + "\\..\\" + std::string(244, 'x')));
}

} // namespace
} // namespace nesk::platform::windows
