#include "platform/Drives.h"
#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "unit/platform/TempStation.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>

namespace nesk::platform {
namespace {

namespace fs = std::filesystem;

class DrivesTest : public ::testing::Test {
protected:
    fs::path Drive(const char* name) const { return station.Folder() / "drives" / name; }

    TempStation station;
};

TEST_F(DrivesTest, LettersAreSortedAndEndWithTheHost) {
    EXPECT_EQ(DriveLetters(), (std::vector<char>{'C', 'Z'}));
    for (const char* name : {"e", "d", "x"})
        fs::create_directory(Drive(name));
    EXPECT_EQ(DriveLetters(), (std::vector<char>{'C', 'D', 'E', 'X', 'Z'}));
}

TEST_F(DrivesTest, WhatIsNoFolderOfOneLetterIsNoDrive) {
    for (const char* name : {"dd", "1", "z", "\xC3\xA4"})
        fs::create_directory(Drive(name));
    std::ofstream(Drive("f")) << "";
    fs::create_directory_symlink(Drive("c"), Drive("g"));
    EXPECT_EQ(DriveLetters(), (std::vector<char>{'C', 'G', 'Z'}));
}

TEST_F(DrivesTest, AStationWithoutDrivesHasTheHost) {
    fs::remove_all(station.Folder() / "drives");
    EXPECT_EQ(DriveLetters(), std::vector<char>{'Z'});
    EXPECT_EQ(CheckDrive('Z'), ErrorCode::Success);
}

TEST_F(DrivesTest, ADriveIsReadyWhenItCanBeRead) {
    EXPECT_EQ(CheckDrive('C'), ErrorCode::Success);
    EXPECT_EQ(CheckDrive('c'), ErrorCode::Success);
    EXPECT_EQ(CheckDrive('D'), ErrorCode::NotReady);
    EXPECT_EQ(CheckDrive('1'), ErrorCode::NotReady);
    std::ofstream(Drive("e")) << "a file";
    EXPECT_EQ(CheckDrive('E'), ErrorCode::NotReady);
}

TEST_F(DrivesTest, ADriveWithoutAMediumIsNotReady) {
    fs::create_directory(Drive("d"));
    EXPECT_EQ(CheckDrive('D'), ErrorCode::Success);
    std::ofstream(Drive("d") / ".notready") << "";
    EXPECT_EQ(CheckDrive('D'), ErrorCode::NotReady);
    fs::remove(Drive("d") / ".notready");
    EXPECT_EQ(CheckDrive('D'), ErrorCode::Success);
}

TEST_F(DrivesTest, NoDriveIsMadeByNamingIt) {
    FileSystem& files = StationFiles();
    for (const char* path : {"Q:", "Q:.", "Q:\\", "Q:\\a\\..", "Q:\\.."}) {
        std::unique_ptr<FileWriter> writer;
        EXPECT_EQ(files.MakeFolder(path), ErrorCode::PathNotFound) << path;
        EXPECT_EQ(files.CreateNew(path, writer), ErrorCode::PathNotFound) << path;
        EXPECT_FALSE(fs::exists(Drive("q"))) << path;
    }
}

} // namespace
} // namespace nesk::platform
