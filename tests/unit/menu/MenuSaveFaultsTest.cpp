#include "base/Messages.h"
#include "editing/MenuEditor.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"
#include "unit/FaultyFiles.h"
#include "unit/FileBytes.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

namespace nesk {
namespace {

using nesk::testing::ErrorOf;
using nesk::testing::Fault;
using nesk::testing::FaultyFiles;
using nesk::testing::FileBytes;
using nesk::testing::FilesIn;
using platform::ErrorCode;
namespace fs = std::filesystem;

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";
const std::string Kept = "BLOCK MENU\r\n\tCAPTION=older\r\nEND\r\n";

// The files on the disk before a save.
struct Before {
    std::string menu;   // "" for no file
    std::string backup; // "" for no file
    const char* copy;   // extension under which a save keeps the previous version
};

// A menu with many entries, so that it is written in several pieces.
std::string LargeMenu(const std::string& caption) {
    std::string bytes = "BLOCK MENU\r\n\tCAPTION=" + caption + "\r\n";
    for (int i = 0; i < 1000; ++i)
        bytes += "BLOCK SUBMENU\r\nCAPTION=" + std::to_string(i) + std::string(250, 'x') + "\r\nEND\r\n";
    return bytes + "END\r\n";
}

// The error that reports an operation which failed with a code.
struct Told {
    int number;
    int message;
};

Told ToldOf(ErrorCode code) {
    switch (code) {
    case ErrorCode::DiskFull: return {RuntimeError::DiskFull, Message::DiskFull};
    case ErrorCode::AccessDenied: return {RuntimeError::PermissionDenied, Message::PermissionDenied};
    case ErrorCode::SharingViolation: return {RuntimeError::PermissionDenied, Message::FileInUse};
    case ErrorCode::PathNotFound: return {RuntimeError::PathNotFound, Message::PathNotFound};
    case ErrorCode::WriteFault:
    case ErrorCode::NotReady: return {RuntimeError::DeviceError, Message::DeviceError};
    default: ADD_FAILURE() << "no error is known for code " << Number(code); return {0, 0};
    }
}

class MenuSaveFaultsTest : public nesk::testing::CoreTest {
protected:
    // Restores the files as they were before a save.
    void Prepare(const Before& before) {
        fs::remove_all(TempStation::Host(Folder));
        fs::create_directories(TempStation::Host(Folder));
        if (!before.menu.empty()) station.Write(Path, before.menu);
        if (!before.backup.empty()) station.Write(Path + ".bak", before.backup);
    }

    // Opens the menu and changes it so that every version has a different length.
    static void OpenAndEdit(MenuEditor& editor) {
        editor.Open(Folder, Path);
        editor.SetCaption("R", "the new version");
        for (int i = 0; i < 900; ++i)
            editor.AddPart("R", std::string(255, 'n'));
        ASSERT_TRUE(editor.IsDirty());
    }

    // The file that an undisturbed save writes, and the operations that it needs.
    std::string NewVersion(const Before& before, std::vector<std::string>& operations) {
        Prepare(before);
        FaultyFiles files;
        MenuEditor editor(files);
        OpenAndEdit(editor);
        files.Restart();
        editor.Save(Path);
        operations = files.Operations();
        return FileBytes(Path);
    }

    void SaveWith(const Before& before, const Fault& fault, const std::string& newVersion);

    void SaveWithEveryFault(const Before& before);

    int m_faults = 0;
    int m_leftovers = 0;
};

void MenuSaveFaultsTest::SaveWith(const Before& before, const Fault& fault, const std::string& newVersion) {
    Prepare(before);
    const std::string filesBefore = FilesIn(Folder);
    FaultyFiles files;
    MenuEditor editor(files);
    OpenAndEdit(editor);
    files.Restart(fault);
    const bool incomplete = editor.IsIncomplete();
    const NeskError error = ErrorOf([&] { editor.Save(Path); });
    m_faults += static_cast<int>(files.Failed().size());
    ASSERT_FALSE(files.Failed().empty());

    // The file is one of the two versions, and complete. It is the new one only if the replacement was made
    // but reported as failed.
    const std::string& failed = files.Failed().front();
    const bool replaced = fault.done && failed == "replace";
    EXPECT_TRUE(FileBytes(Path) == (replaced ? newVersion : before.menu)) << FileBytes(Path).size();
    EXPECT_EQ(fs::exists(TempStation::Host(Path)), replaced || !before.menu.empty());
    const std::string kept = FileBytes(Path + ".bak");
    EXPECT_TRUE(kept == before.backup || kept == before.menu);
    // The backup is overwritten only when nothing but the last step remains.
    const bool copied = failed == "replace" || (fault.done && failed == "copy");
    if (!copied) {
        EXPECT_TRUE(kept == before.backup);
    }

    EXPECT_TRUE(editor.IsOpen());
    EXPECT_TRUE(editor.IsDirty());
    EXPECT_EQ(editor.IsIncomplete(), incomplete);
    EXPECT_EQ(editor.Find("R")->Caption(), "the new version");

    EXPECT_EQ(error.file, Path);
    const Told told = ToldOf(fault.code);
    // If only the copy fails and the file itself can be read, the message names the copy and then the cause.
    const bool copyAlone = failed == "copy" && !fault.lasting;
    EXPECT_EQ(error.number, told.number);
    EXPECT_EQ(error.messageId, copyAlone ? Message::BackupFailed : told.message);
    if (copyAlone) {
        const std::string copy = Path + before.copy;
        const NeskError cause(told.number, error.source, told.message,
                              {fault.code == ErrorCode::PathNotFound ? Folder + "\\" : copy,
                               std::to_string(Number(fault.code))});
        EXPECT_EQ(modUtilities::MessageText(error),
                  modStringRes::FormatResString(error.messageId, copy, modUtilities::MessageText(cause)));
    }
    const std::string text = modUtilities::MessageText(error);
    EXPECT_NE(text.find(fault.code == ErrorCode::PathNotFound ? Folder : Path), std::string::npos) << text;
    EXPECT_EQ(text.find("~"), std::string::npos) << "a name that the user has never heard: " << text;

    const bool removed = std::count(files.Failed().begin(), files.Failed().end(), "remove") == 0;
    const bool left = FilesIn(Folder).find('~') != std::string::npos;
    m_leftovers += left ? 1 : 0;
    if (removed) {
        EXPECT_FALSE(left) << FilesIn(Folder);
    }
    if (removed && !copied && !replaced) {
        EXPECT_EQ(FilesIn(Folder), filesBefore);
    }

    files.Mend();
    editor.Save(Path);
    EXPECT_FALSE(editor.IsDirty());
    EXPECT_TRUE(FileBytes(Path) == newVersion);
#ifdef NESK_PORTABLE_STATION
    // On other systems a file that cannot be removed stays until it is old enough to count as abandoned.
    EXPECT_EQ(FilesIn(Folder).find('~'), std::string::npos) << FilesIn(Folder);
#endif
    if (!before.menu.empty() && !replaced) {
        EXPECT_TRUE(FileBytes(Path + before.copy) == before.menu);
    }
}

// Makes every operation of a save fail in turn, in every way.
void MenuSaveFaultsTest::SaveWithEveryFault(const Before& before) {
    const ErrorCode codes[] = {ErrorCode::DiskFull,     ErrorCode::AccessDenied, ErrorCode::SharingViolation,
                               ErrorCode::PathNotFound, ErrorCode::WriteFault,   ErrorCode::NotReady};
    std::vector<Fault> faults;
    for (const ErrorCode code : codes) {
        faults.push_back({0, code});
        faults.push_back({0, code, true});
    }
    faults.push_back({0, ErrorCode::NotReady, false, true});
    std::vector<std::string> operations;
    const std::string newVersion = NewVersion(before, operations);
    ASSERT_GT(std::count(operations.begin(), operations.end(), "write"), 1);
    int saves = 0;
    for (int number = 1; number <= static_cast<int>(operations.size()); ++number) {
        const std::string& operation = operations[static_cast<std::size_t>(number) - 1];
        for (Fault fault : faults) {
            // If creating a file is reported as failed, the program cannot know that the file was created.
            if (fault.done && operation == "create") continue;
            fault.first = number;
            SCOPED_TRACE("operation " + std::to_string(number) + " " + operation + ", code " +
                         std::to_string(Number(fault.code)) + (fault.lasting ? ", lasting" : "") +
                         (fault.done ? ", done all the same" : ""));
            SaveWith(before, fault, newVersion);
            ++saves;
            if (HasFailure()) return;
        }
    }
    std::cout << saves << " saves disturbed at " << operations.size() << " operations, " << m_faults
              << " failures, " << m_leftovers << " files left because removing them failed as well\n";
    EXPECT_GT(m_leftovers, 0) << "nothing was to be removed in any of the saves";
}

TEST_F(MenuSaveFaultsTest, OfAMenuAndItsBackup) {
    SaveWithEveryFault({LargeMenu("old"), Kept, ".bak"});
}

TEST_F(MenuSaveFaultsTest, OfAMenuWithoutABackup) {
    SaveWithEveryFault({LargeMenu("old"), "", ".bak"});
}

TEST_F(MenuSaveFaultsTest, OfANewMenu) {
    SaveWithEveryFault({"", "", ".bak"});
}

TEST_F(MenuSaveFaultsTest, OfAMenuThatCouldNotBeReadToItsEnd) {
    SaveWithEveryFault({LargeMenu("old") + "BLOCK MENU", Kept, ".damaged"});
}

} // namespace
} // namespace nesk
