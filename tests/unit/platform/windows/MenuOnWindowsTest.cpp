#include "base/Messages.h"
#include "editing/MenuEditor.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "platform/ErrorCode.h"
#include "shell/modUtilities.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"
#include "unit/FileBytes.h"
#include "unit/platform/windows/HeldFile.h"
#include "unit/platform/windows/Security.h"

#include <algorithm>

namespace nesk {
namespace {

using nesk::testing::ErrorOf;
using nesk::testing::FileBytes;
using nesk::testing::FilesIn;
using nesk::testing::HeldFile;

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";

std::string MenuOf(const std::string& caption) {
    return "BLOCK MENU\r\n\tCAPTION=" + caption + "\r\n\tGRAPHIC=\r\nEND\r\n";
}

class MenuOnWindowsTest : public nesk::testing::CoreTest {
protected:
    void Open() {
        station.Write(Path, MenuOf("old"));
        m_editor.Open(Folder, Path);
        m_editor.SetCaption("R", "new");
    }

    // Makes a save that must fail, and checks that nothing is lost.
    NeskError FailedSave() {
        const std::string files = FilesIn(Folder);
        const NeskError error = ErrorOf([&] { m_editor.Save(Path); });
        EXPECT_EQ(files, FilesIn(Folder));
        EXPECT_TRUE(m_editor.IsOpen());
        EXPECT_TRUE(m_editor.IsDirty());
        EXPECT_EQ("new", m_editor.Find("R")->Caption());
        EXPECT_EQ(RuntimeError::PermissionDenied, error.number);
        EXPECT_EQ(std::vector<std::string>{Path}, error.arguments);
        EXPECT_NE(std::string::npos, modUtilities::MessageText(error).find(Path));
        return error;
    }

    void SaveNow() {
        m_editor.Save(Path);
        EXPECT_FALSE(m_editor.IsDirty());
        EXPECT_EQ(MenuOf("new"), FileBytes(Path));
        EXPECT_EQ(MenuOf("old"), FileBytes(Path + ".bak"));
        EXPECT_EQ("menu.cfg menu.cfg.bak", FilesIn(Folder));
    }

    MenuEditor m_editor;
};

TEST_F(MenuOnWindowsTest, EveryByteOfTheCodePageSurvives) {
    std::string all;
    for (int byte = 0x80; byte < 0x100; ++byte)
        all += static_cast<char>(byte);
    station.Write(Path, MenuOf("Geh\xE4use \x80 " + all));
    ASSERT_EQ(std::nullopt, m_editor.Open(Folder, Path));
    EXPECT_TRUE(m_editor.Find("R")->Caption().starts_with("Gehäuse € "));
    m_editor.Save(Path);
    EXPECT_EQ(MenuOf("Geh\xE4use \x80 " + all), FileBytes(Path));
    // Typed text is written to the file in the code page too.
    m_editor.SetCaption("R", "Prüfling „5“");
    m_editor.Save(Path);
    EXPECT_EQ(MenuOf("Pr\xFC"
                     "fling \x84"
                     "5\x93"),
              FileBytes(Path));
    const NeskError error = ErrorOf([&] { m_editor.SetCaption("R", "部品"); });
    EXPECT_EQ(Message::NotEncodable, error.messageId);
    EXPECT_EQ("Prüfling „5“", m_editor.Find("R")->Caption());
}

TEST_F(MenuOnWindowsTest, AWriteProtectedFileIsNotReplaced) {
    Open();
    const std::wstring file = TempStation::Host(Path).native();
    ASSERT_NE(0, ::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(Message::PermissionDenied, FailedSave().messageId);
    EXPECT_EQ(MenuOf("old"), FileBytes(Path));
    EXPECT_NE(0U, ::GetFileAttributesW(file.c_str()) & FILE_ATTRIBUTE_READONLY);
    ::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    SaveNow();
}

TEST_F(MenuOnWindowsTest, AFileThatAnotherProgramHoldsIsNotReplaced) {
    Open();
    for (const char* sharing : {"", "write", "delete"}) {
        const HeldFile held(Path, sharing);
        EXPECT_EQ(SaveHazard::ChangedByOther, m_editor.CheckSave(Path)) << "nobody can say what it holds";
        EXPECT_EQ(Message::FileInUse, FailedSave().messageId) << sharing;
    }
    EXPECT_EQ(MenuOf("old"), FileBytes(Path));
    SaveNow();
}

TEST_F(MenuOnWindowsTest, AFileThatAnotherProgramReadsIsNotReplaced) {
    Open();
    m_editor.SetCaption("R", "first");
    m_editor.Save(Path);
    m_editor.SetCaption("R", "new");
    {
        const HeldFile held(Path, "read");
        EXPECT_EQ(SaveHazard::None, m_editor.CheckSave(Path)) << "it can be read by both";
        EXPECT_EQ(Message::FileInUse, FailedSave().messageId);
        EXPECT_EQ(MenuOf("first"), FileBytes(Path));
    }
    m_editor.Save(Path);
    EXPECT_EQ(MenuOf("new"), FileBytes(Path));
}

TEST_F(MenuOnWindowsTest, ABackupThatAnotherProgramHoldsStopsTheSave) {
    Open();
    station.Write(Path + ".bak", "older");
    {
        const HeldFile held(Path + ".bak", "read");
        const NeskError error = ErrorOf([&] { m_editor.Save(Path); });
        EXPECT_EQ(Message::BackupFailed, error.messageId);
        EXPECT_EQ(Path + ".bak", error.arguments.at(0));
        EXPECT_TRUE(m_editor.IsDirty());
        EXPECT_EQ(MenuOf("old"), FileBytes(Path));
        EXPECT_EQ("menu.cfg menu.cfg.bak", FilesIn(Folder));
    }
    EXPECT_EQ("older", FileBytes(Path + ".bak"));
    SaveNow();
}

TEST_F(MenuOnWindowsTest, AFileThatIsHeldCannotBeOpened) {
    station.Write(Path, MenuOf("old"));
    {
        const HeldFile held(Path);
        const std::optional<NeskError> error = m_editor.Open(Folder, Path);
        ASSERT_TRUE(error);
        EXPECT_EQ(Message::FileInUse, error->messageId);
        EXPECT_TRUE(m_editor.IsIncomplete()) << "a save must not replace it unasked";
    }
    EXPECT_EQ(SaveHazard::Incomplete, m_editor.CheckSave(Path));
    EXPECT_EQ(std::nullopt, m_editor.Open(Folder, Path));
    EXPECT_EQ("old", m_editor.Find("R")->Caption());
}

TEST_F(MenuOnWindowsTest, AccessRightsStay) {
    Open();
    // Of an access list, Wine preserves only whether everybody may write.
    nesk::testing::SetAccessList(Path, "D:P(A;;FA;;;BA)(A;;FA;;;SY)(A;;FA;;;WD)");
    const std::string rights = nesk::testing::AccessListOf(Path);
    station.Write(Folder + "\\other", "");
    ASSERT_NE(rights, nesk::testing::AccessListOf(Folder + "\\other"));
    for (const char* caption : {"second", "third"}) {
        m_editor.SetCaption("R", caption);
        m_editor.Save(Path);
        EXPECT_EQ(MenuOf(caption), FileBytes(Path));
        EXPECT_EQ(rights, nesk::testing::AccessListOf(Path)) << caption;
    }
}

TEST_F(MenuOnWindowsTest, AFolderBeyondTheLengthOfOldPaths) {
    platform::FileSystem& files = platform::StationFiles();
    std::string folder = "C:\\Neskroot";
    while (folder.size() < 400) {
        ASSERT_TRUE(files.MakeFolder(folder) == platform::ErrorCode::Success || folder == Folder) << folder;
        folder += "\\a folder with a long name";
    }
    ASSERT_EQ(platform::ErrorCode::Success, files.MakeFolder(folder));
    const std::string path = folder + "\\menu.cfg";
    m_editor.Open(folder, path);
    m_editor.SetCaption("R", "first");
    m_editor.Save(path);
    m_editor.SetCaption("R", "second");
    m_editor.Save(path);
    EXPECT_EQ(SaveHazard::None, m_editor.CheckSave(path));

    for (const auto& [file, caption] : {std::pair(path, "second"), std::pair(path + ".bak", "first")}) {
        MenuEditor again;
        ASSERT_EQ(std::nullopt, again.Open(folder, file));
        EXPECT_EQ(caption, again.Find("R")->Caption());
    }
    EXPECT_TRUE(modUtilities::FileExists(path));
    EXPECT_TRUE(modUtilities::DirectoryExists(folder));
    std::uint32_t attributes = 0;
    EXPECT_EQ(platform::ErrorCode::Success, files.Attributes(folder + "\\", attributes));
    EXPECT_EQ(platform::FileAttribute::Directory, attributes & platform::FileAttribute::Directory);
    std::vector<std::string> names;
    std::unique_ptr<platform::DirectorySearch> search;
    platform::DirectoryEntry entry;
    ASSERT_EQ(platform::ErrorCode::Success, files.Search(folder + "\\m*.*", search, entry));
    do
        names.push_back(entry.name);
    while (search->Next(entry) == platform::ErrorCode::Success);
    std::sort(names.begin(), names.end());
    EXPECT_EQ((std::vector<std::string>{"menu.cfg", "menu.cfg.bak"}), names);
    EXPECT_EQ(platform::ErrorCode::Success, files.RemoveFile(path));
    EXPECT_EQ(platform::ErrorCode::FileNotFound, files.Attributes(path, attributes));
}

} // namespace
} // namespace nesk
