#include "platform/Drives.h"

#include "platform/ErrorCode.h"
#include "unit/platform/TempStation.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

namespace nesk::platform {
namespace {

// A drive that the test adds is a folder.
class DrivesTest : public ::testing::Test {
protected:
    static bool Has(char letter) {
        const std::vector<char> letters = DriveLetters();
        return std::find(letters.begin(), letters.end(), letter) != letters.end();
    }

    TempStation station;
};

TEST_F(DrivesTest, LettersAreSortedCapitals) {
    station.AddDrive('x');
    station.AddDrive('E');
    const std::vector<char> letters = DriveLetters();
    EXPECT_TRUE(std::is_sorted(letters.begin(), letters.end()));
    EXPECT_TRUE(std::all_of(letters.begin(), letters.end(), [](char c) { return c >= 'A' && c <= 'Z'; }));
    for (const char letter : {'C', 'E', 'X'})
        EXPECT_EQ(1, std::count(letters.begin(), letters.end(), letter)) << letter;
    EXPECT_FALSE(Has('Q'));
}

TEST_F(DrivesTest, ADriveIsReadyWhenItCanBeRead) {
    station.AddDrive('E');
    EXPECT_EQ(CheckDrive('C'), ErrorCode::Success);
    EXPECT_EQ(CheckDrive('c'), ErrorCode::Success);
    EXPECT_EQ(CheckDrive('E'), ErrorCode::Success) << "it holds nothing";
    station.Write("E:\\file", "");
    EXPECT_EQ(CheckDrive('e'), ErrorCode::Success);
    EXPECT_EQ(CheckDrive('Q'), ErrorCode::NotReady);
    for (const char letter : {'1', '?', '*', ' ', '\\', '\xE4', '\0'})
        EXPECT_EQ(CheckDrive(letter), ErrorCode::NotReady) << static_cast<int>(letter);
}

TEST_F(DrivesTest, ADriveWhoseContentsAreGoneIsNotReady) {
    station.AddDrive('E');
    ASSERT_EQ(CheckDrive('E'), ErrorCode::Success);
    std::filesystem::remove(station.Folder() / "E");
    EXPECT_TRUE(Has('E'));
    EXPECT_EQ(CheckDrive('E'), ErrorCode::NotReady);
}

} // namespace
} // namespace nesk::platform
