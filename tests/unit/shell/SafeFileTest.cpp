#include "shell/SafeFile.h"
#include "platform/ErrorCode.h"
#include "shell/Messages.h"
#include "shell/modUtilities.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"
#include "unit/FileBytes.h"

#include <filesystem>

namespace nesk {
namespace {

using nesk::testing::ErrorOf;
using nesk::testing::FileBytes;
using nesk::testing::FilesIn;
using platform::FileSystem;
namespace ErrorCode = platform::ErrorCode;
namespace fs = std::filesystem;

const std::string Folder = "C:\\Data";
const std::string Path = Folder + "\\menu.cfg";
const std::string BackupPath = Path + ".bak";

// The station's files, of which one operation fails. Writes down what is asked of them.
class FailingFiles final : public FileSystem {
public:
    // The operation with this 1-based number fails with `code`; 0 for none.
    explicit FailingFiles(int failing = 0, int code = ErrorCode::DiskFull)
        : m_failing(failing), m_code(code) {}

    const std::vector<std::string>& Operations() const { return m_operations; }

    int Attributes(const std::string& path, std::uint32_t& attributes) override {
        const int failure = Count("attributes");
        return failure != 0 ? failure : m_files.Attributes(path, attributes);
    }
    int Search(const std::string& pattern, std::unique_ptr<platform::DirectorySearch>& search,
               platform::DirectoryEntry& first) override {
        return m_files.Search(pattern, search, first);
    }
    int MakeFolder(const std::string& path) override { return m_files.MakeFolder(path); }
    int OpenForReading(const std::string& path, std::unique_ptr<platform::FileReader>& reader) override {
        return m_files.OpenForReading(path, reader);
    }
    int CreateNew(const std::string& path, std::unique_ptr<platform::FileWriter>& writer) override {
        if (const int failure = Count("create"); failure != 0) return failure;
        std::unique_ptr<platform::FileWriter> file;
        const int result = m_files.CreateNew(path, file);
        if (result == ErrorCode::Success) writer = std::make_unique<Writer>(*this, std::move(file));
        return result;
    }
    int RemoveFile(const std::string& path) override { return m_files.RemoveFile(path); }
    int CopyAccessRights(const std::string& from, const std::string& to) override {
        const int failure = Count("rights");
        return failure != 0 ? failure : m_files.CopyAccessRights(from, to);
    }
    int KeepCopy(const std::string& path, const std::string& copy, bool mayReplace) override {
        const int failure = Count("copy");
        return failure != 0 ? failure : m_files.KeepCopy(path, copy, mayReplace);
    }
    int Replace(const std::string& path, const std::string& replacement) override {
        const int failure = Count("replace");
        return failure != 0 ? failure : m_files.Replace(path, replacement);
    }

private:
    class Writer final : public platform::FileWriter {
    public:
        Writer(FailingFiles& owner, std::unique_ptr<platform::FileWriter> file)
            : m_owner(owner), m_file(std::move(file)) {}
        int Write(std::string_view bytes) override {
            const int failure = m_owner.Count("write");
            // A disk that is full takes a part of what it is given.
            const int result = m_file->Write(failure != 0 ? bytes.substr(0, bytes.size() / 2) : bytes);
            return failure != 0 ? failure : result;
        }
        int Flush() override {
            const int failure = m_owner.Count("flush");
            return failure != 0 ? failure : m_file->Flush();
        }
        int Close() override {
            const int failure = m_owner.Count("close");
            return failure != 0 ? failure : m_file->Close();
        }

    private:
        FailingFiles& m_owner;
        std::unique_ptr<platform::FileWriter> m_file;
    };

    int Count(const char* operation) {
        m_operations.push_back(operation);
        return static_cast<int>(m_operations.size()) == m_failing ? m_code : ErrorCode::Success;
    }

    FileSystem& m_files = platform::StationFiles();
    int m_failing;
    int m_code;
    std::vector<std::string> m_operations;
};

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
        FailingFiles files(static_cast<int>(step));
        const NeskError error = ErrorOf([&] { Save("new version", {BackupPath, true}, files); });
        EXPECT_EQ(files.Operations(),
                  std::vector<std::string>(steps.begin(), steps.begin() + static_cast<int>(step)));
        EXPECT_EQ(error.number, RuntimeError::DiskFull) << name;
        const bool copying = name == "copy";
        EXPECT_EQ(error.messageId, copying ? Message::BackupFailed : Message::DiskFull) << name;
        EXPECT_EQ(error.arguments.at(0), copying ? BackupPath : Path) << name;
        EXPECT_NE(modUtilities::MessageText(error).find(Path), std::string::npos) << name;
        EXPECT_EQ(FileBytes(Path), "old version") << name;
        // The copy is made just before the last step and then holds the version that stays.
        EXPECT_EQ(FileBytes(BackupPath), name == "replace" ? "old version" : "older version") << name;
        EXPECT_EQ(FilesIn(Folder), "menu.cfg menu.cfg.bak") << name;
    }
    FailingFiles files;
    Save("new version", {BackupPath, true}, files);
    EXPECT_EQ(files.Operations(), steps);
    EXPECT_EQ(FileBytes(Path), "new version");
}

TEST_F(SafeFileTest, AFailureOfTheFirstSaveLeavesNoFile) {
    for (int step = 1; step <= 7; ++step) {
        FailingFiles files(step);
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
        int code;
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
        FailingFiles files(2, row.code);
        const NeskError error = ErrorOf([&] { Save("contents", {}, files); });
        EXPECT_EQ(error.number, row.number) << row.code;
        EXPECT_EQ(error.messageId, row.messageId) << row.code;
        EXPECT_EQ(error.arguments.at(0), Path) << row.code;
    }
    station.Write(Path, "old");
    FailingFiles files(8, ErrorCode::AccessDenied);
    const NeskError error = ErrorOf([&] { Save("contents", {BackupPath, true}, files); });
    EXPECT_EQ(error.number, RuntimeError::PermissionDenied);
    EXPECT_EQ(error.arguments.at(1), modStringRes::FormatResString(Message::PermissionDenied, BackupPath));
}

TEST_F(SafeFileTest, WhatStandsThereAndCannotBeLookedAtIsNotReplaced) {
    station.Write(Path, "old");
    FailingFiles files(6, ErrorCode::AccessDenied);
    EXPECT_EQ(ErrorOf([&] { Save("new", {}, files); }).number, RuntimeError::PermissionDenied);
    EXPECT_EQ(FileBytes(Path), "old");
}

#ifdef NESK_PORTABLE_STATION
// Those of Windows are tested in platform/windows/MenuOnWindowsTest.cpp.
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
    station.Write(Path + ".new", "of another");
    Save("new version", {});
    EXPECT_EQ(FileBytes(Path), "new version");
    EXPECT_EQ(FileBytes(Path + ".new"), "of another");
    {
        SafeFile first(Path);
        SafeFile second(Path);
        EXPECT_EQ(FilesIn(Folder), "menu.cfg menu.cfg.new menu.cfg.new2 menu.cfg.new3");
        first.Write("first");
        second.Write("second");
        second.Commit({});
        EXPECT_EQ(FileBytes(Path), "second");
        first.Commit({});
        EXPECT_EQ(FileBytes(Path), "first");
    }
    EXPECT_EQ(FilesIn(Folder), "menu.cfg menu.cfg.new");
}

TEST_F(SafeFileTest, WhenAllNamesAreTaken) {
    station.Write(Path + ".new", "x");
    for (int i = 2; i <= 100; ++i)
        station.Write(Path + ".new" + std::to_string(i), "x");
    const NeskError error = ErrorOf([] { SafeFile file(Path); });
    EXPECT_EQ(error.number, RuntimeError::FileExists);
    EXPECT_EQ(error.arguments, std::vector<std::string>{Path});
    EXPECT_EQ(FileBytes(Path + ".new100"), "x");
}

} // namespace
} // namespace nesk
