#include "base/SafeFile.h"
#include "base/Messages.h"
#include "platform/ErrorCode.h"
#include "shell/modUtilities.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"
#include "unit/FaultyFiles.h"
#include "unit/FileBytes.h"

#include <filesystem>

#ifdef NESK_PORTABLE_STATION
#include <sys/stat.h>
#endif

namespace nesk {
namespace {

using nesk::testing::ErrorOf;
using nesk::testing::FaultyFiles;
using nesk::testing::FileBytes;
using nesk::testing::FilesIn;
using platform::ErrorCode;
using platform::FileSystem;
namespace fs = std::filesystem;

const std::string Folder = "C:\\Data";
const std::string Path = Folder + "\\menu.cfg";
const std::string BackupPath = Path + ".bak";

class SafeFileTest : public nesk::testing::CoreTest {
protected:
    SafeFileTest() { fs::create_directories(Host(Folder)); }

    static fs::path Host(const std::string& path) { return TempStation::Host(path); }

    static void Save(const std::string& bytes, const Backup& backup = {BackupPath, true},
                     FileSystem& files = platform::StationFiles()) {
        SafeFile file(Path, files);
        file.Write(bytes.substr(0, 3));
        file.Write(bytes.substr(3));
        file.Commit(backup);
    }
};

TEST_F(SafeFileTest, ANewFile) {
    Save("contents");
    EXPECT_EQ(FileBytes(Path), "contents");
    EXPECT_EQ(FilesIn(Folder), "menu.cfg");
}

TEST_F(SafeFileTest, ReplacingKeepsTheVersionBefore) {
    station.Write(Path, "one");
    Save("second");
    EXPECT_EQ(FileBytes(Path), "second");
    EXPECT_EQ(FileBytes(BackupPath), "one");
    Save("third");
    EXPECT_EQ(FileBytes(Path), "third");
    EXPECT_EQ(FileBytes(BackupPath), "second");
    EXPECT_EQ(FilesIn(Folder), "menu.cfg menu.cfg.bak");
}

TEST_F(SafeFileTest, WithoutABackup) {
    station.Write(Path, "one");
    Save("second", {});
    EXPECT_EQ(FileBytes(Path), "second");
    EXPECT_EQ(FilesIn(Folder), "menu.cfg");
}

TEST_F(SafeFileTest, ABackupThatMayNotBeReplaced) {
    station.Write(Path, "one");
    station.Write(BackupPath, "older");
    const NeskError error = ErrorOf([] { Save("second", {BackupPath, false}); });
    EXPECT_EQ(error.number, RuntimeError::FileExists);
    EXPECT_EQ(error.messageId, Message::BackupFailed);
    EXPECT_EQ(FileBytes(Path), "one");
    EXPECT_EQ(FileBytes(BackupPath), "older");
    EXPECT_EQ(FilesIn(Folder), "menu.cfg menu.cfg.bak");
    fs::remove(Host(BackupPath));
    Save("second", {BackupPath, false});
    EXPECT_EQ(FileBytes(BackupPath), "one");
}

TEST_F(SafeFileTest, WithoutCommitNothingHappens) {
    station.Write(Path, "one");
    {
        SafeFile file(Path);
        file.Write("second");
        EXPECT_EQ(FileBytes(Path), "one");
    }
    EXPECT_EQ(FileBytes(Path), "one");
    EXPECT_EQ(FilesIn(Folder), "menu.cfg");
}

TEST_F(SafeFileTest, AFailureAtAnyStep) {
    const std::vector<std::string> steps = {"create",     "write",  "write", "flush",  "close",
                                            "attributes", "rights", "copy",  "replace"};
    for (std::size_t step = 1; step <= steps.size(); ++step) {
        const std::string& name = steps[step - 1];
        station.Write(Path, "old version");
        station.Write(BackupPath, "older version");
        FaultyFiles files({static_cast<int>(step)});
        const NeskError error = ErrorOf([&] { Save("new version", {BackupPath, true}, files); });
        std::vector<std::string> asked(steps.begin(), steps.begin() + static_cast<int>(step));
        // After a failed copy the file is opened to check whether it can be read, because that decides which
        // name the message contains.
        if (name == "copy") asked.push_back("open");
        if (name == "write" || name == "flush") asked.push_back("close");
        if (name != "create") asked.push_back("remove");
        EXPECT_EQ(files.Operations(), asked);
        EXPECT_EQ(error.number, RuntimeError::DiskFull) << name;
        const bool copying = name == "copy";
        EXPECT_EQ(error.messageId, copying ? Message::BackupFailed : Message::DiskFull) << name;
        EXPECT_EQ(error.arguments.at(0), copying ? BackupPath : Path) << name;
        EXPECT_NE(modUtilities::MessageText(error).find(Path), std::string::npos) << name;
        EXPECT_EQ(FileBytes(Path), "old version") << name;
        // The backup is made just before the last step and then contains the version that stays.
        EXPECT_EQ(FileBytes(BackupPath), name == "replace" ? "old version" : "older version") << name;
        EXPECT_EQ(FilesIn(Folder), "menu.cfg menu.cfg.bak") << name;
    }
    FaultyFiles files;
    Save("new version", {BackupPath, true}, files);
    EXPECT_EQ(files.Operations(), steps);
    EXPECT_EQ(FileBytes(Path), "new version");
}

TEST_F(SafeFileTest, AFailureOfTheFirstSaveLeavesNoFile) {
    for (int step = 1; step <= 7; ++step) {
        FaultyFiles files({step});
        EXPECT_EQ(ErrorOf([&] {
                      Save("contents", {BackupPath, true}, files);
                  }).number,
                  RuntimeError::DiskFull)
            << step;
        EXPECT_EQ(FilesIn(Folder), "") << step;
    }
}

TEST_F(SafeFileTest, WhatTheErrorsSay) {
    const struct {
        ErrorCode code;
        int number;
        int messageId;
    } table[] = {
        {ErrorCode::AccessDenied, RuntimeError::PermissionDenied, Message::PermissionDenied},
        {ErrorCode::SharingViolation, RuntimeError::PermissionDenied, Message::FileInUse},
        {ErrorCode::DiskFull, RuntimeError::DiskFull, Message::DiskFull},
        {ErrorCode::WriteFault, RuntimeError::DeviceError, Message::DeviceError},
        {ErrorCode::InvalidName, RuntimeError::PathAccess, Message::InvalidName},
        {ErrorCode::PathNotFound, RuntimeError::PathNotFound, Message::PathNotFound},
    };
    for (const auto& row : table) {
        FaultyFiles files({2, row.code});
        const NeskError error = ErrorOf([&] { Save("contents", {}, files); });
        EXPECT_EQ(error.number, row.number) << Number(row.code);
        EXPECT_EQ(error.messageId, row.messageId) << Number(row.code);
        const bool folder = row.code == ErrorCode::PathNotFound;
        EXPECT_EQ(error.arguments.at(0), folder ? Folder + "\\" : Path) << Number(row.code);
    }
    station.Write(Path, "old");
    FaultyFiles files({8, ErrorCode::AccessDenied});
    const NeskError error = ErrorOf([&] { Save("contents", {BackupPath, true}, files); });
    EXPECT_EQ(error.number, RuntimeError::PermissionDenied);
    EXPECT_EQ(
        modUtilities::MessageText(error),
        modStringRes::FormatResString(Message::BackupFailed, BackupPath,
                                      modStringRes::FormatResString(Message::PermissionDenied, BackupPath)));
}

TEST_F(SafeFileTest, WhatStandsThereAndCannotBeLookedAtIsNotReplaced) {
    station.Write(Path, "old");
    FaultyFiles files({6, ErrorCode::AccessDenied});
    EXPECT_EQ(ErrorOf([&] { Save("new", {}, files); }).number, RuntimeError::PermissionDenied);
    EXPECT_EQ(FileBytes(Path), "old");
}

#ifdef NESK_PORTABLE_STATION
// The operator interface may run as another user, who must be able to read a new menu.
TEST_F(SafeFileTest, ANewFileHasTheUsualRightsOnceItIsWhole) {
    using fs::perms;
    constexpr perms own = perms::owner_read | perms::owner_write;
    const mode_t before = ::umask(S_IRWXO | S_IWGRP);
    {
        SafeFile file(Path);
        file.Write("contents");
        EXPECT_EQ(fs::status(Host(Path + ".nesk~")).permissions(), own) << "while it is written";
        file.Commit({});
    }
    const mode_t after = ::umask(before);
    EXPECT_EQ(after, static_cast<mode_t>(S_IRWXO | S_IWGRP)) << "the mask is as it was";
    EXPECT_EQ(fs::status(Host(Path)).permissions(), own | perms::group_read);
}

// The rights on Windows are tested in platform/windows/MenuOnWindowsTest.cpp.
TEST_F(SafeFileTest, AccessRightsSurvive) {
    using fs::perms;
    const auto rights = perms::owner_read | perms::owner_write | perms::group_read;
    station.Write(Path, "old");
    fs::permissions(Host(Path), rights);
    Save("new");
    EXPECT_EQ(FileBytes(Path), "new");
    EXPECT_EQ(fs::status(Host(Path)).permissions(), rights);
    EXPECT_EQ(fs::status(Host(BackupPath)).permissions(), rights);
}
#endif

TEST_F(SafeFileTest, AWriteProtectedFileIsRefused) {
    station.Write(Path, "old");
    fs::permissions(Host(Path), fs::perms::owner_read | fs::perms::group_read);
    const NeskError error = ErrorOf([] { Save("new"); });
    EXPECT_EQ(error.number, RuntimeError::PermissionDenied);
    EXPECT_EQ(error.messageId, Message::PermissionDenied);
    EXPECT_EQ(error.arguments, std::vector<std::string>{Path});
    EXPECT_EQ(FileBytes(Path), "old");
    EXPECT_EQ(FilesIn(Folder), "menu.cfg");
}

TEST_F(SafeFileTest, AFolderOfThatNameIsRefused) {
    fs::create_directory(Host(Path));
    EXPECT_EQ(ErrorOf([] { Save("new"); }).number, RuntimeError::PermissionDenied);
    EXPECT_TRUE(fs::is_directory(Host(Path)));
    EXPECT_EQ(FilesIn(Folder), "menu.cfg");
}

TEST_F(SafeFileTest, TheNewFileOfAnotherSaveIsLeftAlone) {
    station.Write(Path, "old");
    {
        SafeFile first(Path);
        SafeFile second(Path);
        EXPECT_EQ(FilesIn(Folder), "menu.cfg menu.cfg.nesk2~ menu.cfg.nesk~");
        first.Write("first");
        second.Write("second");
        second.Commit({});
        EXPECT_EQ(FileBytes(Path), "second");
        first.Commit({});
        EXPECT_EQ(FileBytes(Path), "first");
    }
    EXPECT_EQ(FilesIn(Folder), "menu.cfg");
}

TEST_F(SafeFileTest, ASaveThatIsGivenUpLeavesThatOfAnotherAlone) {
    station.Write(Path, "old");
    auto first = std::make_unique<SafeFile>(Path);
    SafeFile second(Path);
    first->Write("first");
    first.reset();
    EXPECT_EQ(FilesIn(Folder), "menu.cfg menu.cfg.nesk2~");
    second.Write("second");
    second.Commit({});
    EXPECT_EQ(FileBytes(Path), "second");
    EXPECT_EQ(FilesIn(Folder), "menu.cfg");
}

TEST_F(SafeFileTest, FilesOfOtherNamesAreLeftAlone) {
    const std::string names[] = {Path + ".new", Path + "~", Path + ".nesk", Path + ".nesk0~"};
    for (const std::string& name : names)
        station.Write(name, "of the user");
    Save("new");
    Save("newer");
    for (const std::string& name : names)
        EXPECT_EQ(FileBytes(name), "of the user") << name;
}

TEST_F(SafeFileTest, WhatMayStillBeInUseIsLeftAlone) {
    std::vector<std::unique_ptr<SafeFile>> others;
    for (int i = 1; i <= 100; ++i)
        others.push_back(std::make_unique<SafeFile>(Path));
    others.back()->Write("of the last");
    const std::string names = FilesIn(Folder);
    const NeskError error = ErrorOf([] { SafeFile file(Path); });
    EXPECT_EQ(error.number, RuntimeError::FileExists);
    EXPECT_EQ(error.arguments, std::vector<std::string>{Path});
    EXPECT_EQ(FilesIn(Folder), names) << "all names are taken and stay so";
    others.back()->Commit({});
    EXPECT_EQ(FileBytes(Path), "of the last");
    others.clear();
    EXPECT_EQ(FilesIn(Folder), "menu.cfg");
}

#ifdef NESK_PORTABLE_STATION
// Windows does not report which process made a file. Removing files older than an hour is tested in
// platform/windows/FileReplaceTest.cpp.
TEST_F(SafeFileTest, WhatAKilledSaveLeftIsRemoved) {
    station.Write(Path, "old");
    const auto leave = [&] {
        station.Write(Path + ".nesk~", "half of a ver");
        station.Write(BackupPath + ".nesk~", "ol");
    };
    leave();
    Save("new version");
    EXPECT_EQ(FileBytes(Path), "new version");
    EXPECT_EQ(FileBytes(BackupPath), "old");
    EXPECT_EQ(FilesIn(Folder), "menu.cfg menu.cfg.bak");
    leave();
    FaultyFiles files({1});
    EXPECT_EQ(ErrorOf([&] { Save("newer", {BackupPath, true}, files); }).number, RuntimeError::DiskFull);
    EXPECT_EQ(FileBytes(Path), "new version");
}
#endif

} // namespace
} // namespace nesk
