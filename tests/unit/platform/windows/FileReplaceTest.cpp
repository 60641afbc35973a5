#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "platform/windows/Handle.h"
#include "platform/windows/WideText.h"
#include "unit/FileBytes.h"
#include "unit/platform/windows/HeldFile.h"
#include "unit/platform/windows/Security.h"

#include <cstdint>
#include <filesystem>
#include <gtest/gtest.h>

namespace nesk::platform {
namespace {

using namespace nesk::testing;

const std::string Folder = "C:\\Data";
const std::string Path = Folder + "\\file";
const std::string New = Folder + "\\file.new";
const std::string Copy = Folder + "\\file.bak";

// Wine stores access lists as the host's access rights, so only whether everybody may write is preserved.
constexpr const char* Readable = "D:P(A;;FA;;;BA)(A;;FA;;;SY)(A;;FR;;;WD)";
constexpr const char* Writable = "D:P(A;;FA;;;BA)(A;;FA;;;SY)(A;;FA;;;WD)";

class FileReplaceTest : public ::testing::Test {
protected:
    FileReplaceTest() {
        station.Write(Path, "old");
        station.Write(New, "new");
    }

    // Sets the times of creation and writing to 61 minutes ago.
    static void MakeOld(const std::string& path) {
        const windows::Handle file(::CreateFileW(TempStation::Host(path).c_str(), FILE_WRITE_ATTRIBUTES, 0,
                                                 nullptr, OPEN_EXISTING, 0, nullptr));
        FILETIME now{};
        ::GetSystemTimeAsFileTime(&now);
        ULARGE_INTEGER ticks{};
        ticks.LowPart = now.dwLowDateTime;
        ticks.HighPart = now.dwHighDateTime;
        ticks.QuadPart -= std::uint64_t{61} * 60 * 10'000'000;
        const FILETIME then{ticks.LowPart, ticks.HighPart};
        EXPECT_NE(0, ::SetFileTime(file.Get(), &then, nullptr, &then)) << path;
    }

    TempStation station;
    FileSystem& files = StationFiles();
};

TEST_F(FileReplaceTest, AccessRightsAreTakenOver) {
    for (const char* list : {Writable, Readable}) {
        SetAccessList(Path, list);
        SetAccessList(New, list == Readable ? Writable : Readable);
        const std::string rights = AccessListOf(Path);
        ASSERT_NE(rights, AccessListOf(New));
        EXPECT_EQ(ErrorCode::Success, files.CopyAccessRights(Path, New));
        EXPECT_EQ(rights, AccessListOf(New));
        EXPECT_EQ(rights, AccessListOf(Path));
    }
    EXPECT_EQ(ErrorCode::FileNotFound, files.CopyAccessRights("C:\\Data\\none", New));
    EXPECT_EQ(ErrorCode::FileNotFound, files.CopyAccessRights(Path, "C:\\Data\\none"));
}

TEST_F(FileReplaceTest, ABackupHasTheAccessRightsOfItsFile) {
    for (const char* list : {Writable, Readable, Writable}) {
        SetAccessList(Path, list);
        const std::string rights = AccessListOf(Path);
        EXPECT_EQ(ErrorCode::Success, files.KeepCopy(Path, Copy, true));
        EXPECT_EQ(rights, AccessListOf(Copy)) << list;
        EXPECT_EQ(rights, AccessListOf(Path)) << list;
    }
}

// A backup is first made under a temporary name. A file that someone placed there is neither written nor
// used.
TEST_F(FileReplaceTest, ABackupIsMadeInANewFile) {
    const std::string planted = Copy + "." + std::to_string(::GetCurrentProcessId());
    station.Write(planted + "~", "planted");
    station.Write(planted + "1~", "planted, too");
    EXPECT_EQ(ErrorCode::Success, files.KeepCopy(Path, Copy, true));
    EXPECT_EQ("old", FileBytes(Copy));
    EXPECT_EQ("planted", FileBytes(planted + "~"));
    EXPECT_EQ("planted, too", FileBytes(planted + "1~"));
}

TEST_F(FileReplaceTest, ReplacingLeavesNothingBehind) {
    EXPECT_EQ(ErrorCode::Success, files.Replace(Path, New));
    EXPECT_EQ("new", FileBytes(Path));
    EXPECT_EQ("file", FilesIn(Folder));
}

TEST_F(FileReplaceTest, WithoutItsReplacementAFileStays) {
    EXPECT_EQ(ErrorCode::FileNotFound, files.Replace(Path, "C:\\Data\\none"));
    EXPECT_EQ("old", FileBytes(Path));
    EXPECT_EQ("file file.new", FilesIn(Folder));
    EXPECT_EQ(ErrorCode::PathNotFound, files.Replace(Path, ""));
    EXPECT_EQ(ErrorCode::PathNotFound, files.Replace("", New));
    EXPECT_EQ("file file.new", FilesIn(Folder));
}

// A file that another process has open without sharing deletion cannot be replaced.
TEST_F(FileReplaceTest, AFileThatIsHeldIsNotReplaced) {
    for (const char* sharing : {"", "read", "read write"}) {
        const HeldFile held(Path, sharing);
        EXPECT_EQ(ErrorCode::SharingViolation, files.Replace(Path, New)) << sharing;
        EXPECT_EQ("file file.new", FilesIn(Folder)) << sharing;
    }
    EXPECT_EQ("old", FileBytes(Path));
    EXPECT_EQ(ErrorCode::Success, files.Replace(Path, New));
    EXPECT_EQ("new", FileBytes(Path));
}

TEST_F(FileReplaceTest, AFileThatIsReadMayBeReplacedWhenTheReaderLets) {
    const HeldFile held(Path, "read write delete");
    EXPECT_EQ(ErrorCode::Success, files.Replace(Path, New));
    EXPECT_EQ("new", FileBytes(Path));
}

TEST_F(FileReplaceTest, ACopyThatIsHeldStays) {
    station.Write(Copy, "older");
    {
        const HeldFile held(Copy, "read");
        EXPECT_EQ(ErrorCode::AccessDenied, files.KeepCopy(Path, Copy, true));
        EXPECT_EQ("file file.bak file.new", FilesIn(Folder));
    }
    EXPECT_EQ("older", FileBytes(Copy));
    const HeldFile held(Path);
    EXPECT_EQ(ErrorCode::SharingViolation, files.KeepCopy(Path, Copy, true)) << "what it is a copy of";
    EXPECT_EQ("older", FileBytes(Copy));
    EXPECT_EQ("file file.bak file.new", FilesIn(Folder));
}

TEST_F(FileReplaceTest, AHeldFileIsNotReadOrRemoved) {
    const HeldFile held(Path);
    std::unique_ptr<FileReader> reader;
    EXPECT_EQ(ErrorCode::SharingViolation, files.OpenForReading(Path, reader));
    EXPECT_EQ(nullptr, reader);
    EXPECT_EQ(ErrorCode::SharingViolation, files.RemoveFile(Path));
    std::uint32_t attributes = 0;
    EXPECT_EQ(ErrorCode::Success, files.Attributes(Path, attributes)) << "which anybody may ask for";
}

// A file that was not written for an hour and is not open was left by a program that has ended.
TEST_F(FileReplaceTest, OnlyWhatIsOldAndFreeIsAbandoned) {
    EXPECT_EQ(ErrorCode::SharingViolation, files.RemoveAbandoned(New)) << "it has just been written";
    EXPECT_EQ("new", FileBytes(New));
    MakeOld(New);
    {
        const HeldFile held(New);
        EXPECT_EQ(ErrorCode::SharingViolation, files.RemoveAbandoned(New));
    }
    EXPECT_EQ(ErrorCode::Success, files.RemoveAbandoned(New));
    EXPECT_EQ("file", FilesIn(Folder));
    EXPECT_EQ(ErrorCode::FileNotFound, files.RemoveAbandoned(New));
}

TEST_F(FileReplaceTest, WhatKilledProgramsLeftIsRemovedWithTheNextSave) {
    for (const char* left : {".old.1~", ".old.77~", ".old.mine~", ".bak.1~", ".bak.2~", ".bak.2", ".bak.~"})
        station.Write(Path + left, "left");
    for (const char* left : {".old.1~", ".old.mine~", ".bak.1~", ".bak.2", ".bak.~"})
        MakeOld(Path + left);
    EXPECT_EQ(ErrorCode::Success, files.KeepCopy(Path, Copy, true));
    EXPECT_EQ(
        "file file.bak file.bak.2 file.bak.2~ file.bak.~ file.new file.old.1~ file.old.77~ file.old.mine~",
        FilesIn(Folder));
    EXPECT_EQ(ErrorCode::Success, files.Replace(Path, New));
    EXPECT_EQ("file file.bak file.bak.2 file.bak.2~ file.bak.~ file.old.77~ file.old.mine~", FilesIn(Folder))
        << "what may be in use, and what other programs named, stays";
    EXPECT_EQ("old", FileBytes(Copy));
    EXPECT_EQ("new", FileBytes(Path));
}

// The system renames the old file and then gives its name to the new one. A program may be killed in between.
TEST_F(FileReplaceTest, AFileThatIsMissingSinceItsReplacementIsPutBack) {
    station.Write(Path + ".old.1~", "older");
    MakeOld(Path + ".old.1~");
    station.Write(Path + ".old.22~", "in the middle of a save");
    station.Write(Path + ".old.mine~", "another's");
    files.RestoreInterrupted(Path);
    EXPECT_EQ("old", FileBytes(Path)) << "it is there";
    ASSERT_EQ(ErrorCode::Success, files.RemoveFile(Path));
    files.RestoreInterrupted(Path);
    EXPECT_EQ("in the middle of a save", FileBytes(Path));
    EXPECT_EQ("file file.new file.old.1~ file.old.mine~", FilesIn(Folder));
    files.RestoreInterrupted("C:\\Data\\none");
    files.RestoreInterrupted("C:\\none\\file");
    files.RestoreInterrupted("");
    EXPECT_EQ("file file.new file.old.1~ file.old.mine~", FilesIn(Folder));
}

// A copy of an old file keeps that file's time of writing.
TEST_F(FileReplaceTest, AFreshCopyIsNotAbandoned) {
    MakeOld(Path);
    ASSERT_EQ(ErrorCode::Success, files.KeepCopy(Path, Copy, true));
    EXPECT_EQ(ErrorCode::SharingViolation, files.RemoveAbandoned(Copy));
    EXPECT_EQ("old", FileBytes(Copy));
}

TEST_F(FileReplaceTest, AFileThatIsWrittenBelongsToItsWriterAlone) {
    std::unique_ptr<FileWriter> writer;
    ASSERT_EQ(ErrorCode::Success, files.CreateNew(Copy, writer));
    ASSERT_EQ(ErrorCode::Success, writer->Write("half"));
    std::unique_ptr<FileReader> reader;
    EXPECT_EQ(ErrorCode::SharingViolation, files.OpenForReading(Copy, reader));
    ASSERT_EQ(ErrorCode::Success, writer->Close());
    EXPECT_EQ(ErrorCode::Success, files.OpenForReading(Copy, reader));
}

TEST_F(FileReplaceTest, DevicesAreNoFiles) {
    std::unique_ptr<FileReader> reader;
    for (const char* device : {"NUL", "C:\\Data\\NUL", "\\\\.\\NUL"})
        EXPECT_EQ(ErrorCode::AccessDenied, files.OpenForReading(device, reader)) << device;
    EXPECT_EQ(nullptr, reader);
}

TEST_F(FileReplaceTest, HiddenFilesAndThoseOfTheSystemAreFound) {
    const struct {
        DWORD given;
        std::uint32_t expected;
    } table[] = {
        {FILE_ATTRIBUTE_HIDDEN, FileAttribute::Hidden},
        {FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM, FileAttribute::Hidden | FileAttribute::System},
        {FILE_ATTRIBUTE_READONLY, FileAttribute::ReadOnly}};
    for (const auto& row : table) {
        ASSERT_NE(0, ::SetFileAttributesW(windows::ToWide(Path).c_str(), row.given));
        std::uint32_t attributes = 0;
        EXPECT_EQ(ErrorCode::Success, files.Attributes(Path, attributes));
        EXPECT_EQ(row.expected, attributes & ~FileAttribute::Archive);
        std::unique_ptr<DirectorySearch> search;
        DirectoryEntry entry;
        ASSERT_EQ(ErrorCode::Success, files.Search("C:\\Data\\f*e", search, entry));
        EXPECT_EQ("file", entry.name);
        EXPECT_EQ(row.expected, entry.attributes & ~FileAttribute::Archive);
    }
}

} // namespace
} // namespace nesk::platform
