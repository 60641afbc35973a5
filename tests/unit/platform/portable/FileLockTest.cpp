#include "platform/portable/FileLock.h"
#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "unit/FileBytes.h"
#include "unit/platform/portable/ChildProcess.h"

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace nesk::platform {
namespace {

using namespace nesk::testing;
namespace fs = std::filesystem;

const std::string Folder = "C:\\Data";
const std::string Path = Folder + "\\file~";

class FileLockTest : public ::testing::Test {
protected:
    FileLockTest() { fs::create_directories(TempStation::Host(Folder)); }

    TempStation station;
    FileSystem& files = StationFiles();
};

TEST_F(FileLockTest, IsHeldUntilItsWriterIsGone) {
    std::unique_ptr<FileWriter> writer;
    ASSERT_EQ(ErrorCode::Success, files.CreateNew(Path, writer));
    EXPECT_EQ(ErrorCode::SharingViolation, files.RemoveAbandoned(Path));
    ASSERT_EQ(ErrorCode::Success, writer->Write("half"));
    ASSERT_EQ(ErrorCode::Success, writer->Close());
    EXPECT_EQ(ErrorCode::SharingViolation, files.RemoveAbandoned(Path)) << "closed, but not in its place yet";
    EXPECT_EQ("half", FileBytes(Path));
    writer.reset();
    EXPECT_EQ(ErrorCode::Success, files.RemoveAbandoned(Path));
    EXPECT_EQ("", FilesIn(Folder));
    EXPECT_EQ(ErrorCode::FileNotFound, files.RemoveAbandoned(Path));
    EXPECT_EQ(ErrorCode::PathNotFound, files.RemoveAbandoned("C:\\None\\file~"));
}

TEST_F(FileLockTest, TellsWhetherAWriterIsThere) {
    EXPECT_FALSE(files.IsHeld(Path)) << "there is no file";
    std::unique_ptr<FileWriter> writer;
    ASSERT_EQ(ErrorCode::Success, files.CreateNew(Path, writer));
    EXPECT_TRUE(files.IsHeld(Path));
    EXPECT_TRUE(files.IsHeld(Path)) << "asking does not change the answer";
    ASSERT_EQ(ErrorCode::Success, writer->Close());
    EXPECT_TRUE(files.IsHeld(Path));
    writer.reset();
    EXPECT_FALSE(files.IsHeld(Path));
    std::unique_ptr<FileReader> reader;
    ASSERT_EQ(ErrorCode::Success, files.OpenForReading(Path, reader));
    EXPECT_FALSE(files.IsHeld(Path)) << "it is only read";
}

TEST_F(FileLockTest, IsHeldAgainstOtherProcesses) {
    std::unique_ptr<FileWriter> writer;
    ASSERT_EQ(ErrorCode::Success, files.CreateNew(Path, writer));
    EXPECT_EQ(ChildEnd::Good, InChildProcess([&] {
                  // A child process inherits the lock, so it releases its copy to act like an unrelated
                  // process.
                  writer.reset();
                  EXPECT_EQ(ErrorCode::SharingViolation, files.RemoveAbandoned(Path));
                  return true;
              }))
        << "see above";
    EXPECT_EQ("file~", FilesIn(Folder));
}

TEST_F(FileLockTest, IsAbandonedWhenItsProgramIsKilled) {
    const pid_t child = ::fork();
    if (child == 0) {
        std::unique_ptr<FileWriter> writer;
        if (files.CreateNew(Path, writer) == ErrorCode::Success &&
            writer->Write("half") == ErrorCode::Success)
            ::raise(SIGKILL);
        ::_exit(1);
    }
    int status = 0;
    ASSERT_EQ(child, ::waitpid(child, &status, 0));
    ASSERT_TRUE(WIFSIGNALED(status));
    ASSERT_EQ("half", FileBytes(Path));
    EXPECT_EQ(ErrorCode::Success, files.RemoveAbandoned(Path));
    EXPECT_EQ("", FilesIn(Folder));
}

TEST_F(FileLockTest, WhatHasTakenItsPlaceIsNotHeldByItsOldName) {
    std::unique_ptr<FileWriter> writer;
    ASSERT_EQ(ErrorCode::Success, files.CreateNew(Path, writer));
    ASSERT_EQ(ErrorCode::Success, writer->Close());
    ASSERT_EQ(ErrorCode::Success, files.Replace("C:\\Data\\file", Path));
    station.Write(Path, "of another");
    EXPECT_EQ(ErrorCode::Success, files.RemoveAbandoned(Path));
    EXPECT_EQ("file", FilesIn(Folder));
}

TEST_F(FileLockTest, OnlyFilesAreRemoved) {
    fs::create_directory(TempStation::Host(Path));
    EXPECT_NE(ErrorCode::Success, files.RemoveAbandoned(Path));
    EXPECT_TRUE(fs::is_directory(TempStation::Host(Path)));
    fs::remove(TempStation::Host(Path));
    station.Write("C:\\Data\\file", "linked");
    fs::create_symlink("file", TempStation::Host(Path));
    EXPECT_NE(ErrorCode::Success, files.RemoveAbandoned(Path));
    EXPECT_EQ("file file~", FilesIn(Folder));
    fs::remove(TempStation::Host(Path));
    ASSERT_EQ(0, ::mkfifo(TempStation::Host(Path).c_str(), 0600));
    EXPECT_NE(ErrorCode::Success, files.RemoveAbandoned(Path)) << "and it must not wait for anybody";
}

} // namespace
} // namespace nesk::platform
