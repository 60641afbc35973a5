#include "base/Messages.h"
#include "editing/MenuEditor.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"
#include "unit/FileBytes.h"
#include "unit/editing/OpenMenu.h"

#include <filesystem>
#include <functional>

namespace nesk {
namespace {

using nesk::testing::ErrorOf;
using nesk::testing::FileBytes;
using nesk::testing::FilesIn;
namespace fs = std::filesystem;

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";
constexpr const char* Good = "BLOCK MENU\r\n\tCAPTION=good\r\n\tGRAPHIC=\r\nEND\r\n";
constexpr const char* Damaged = "BLOCK MENU\nCAPTION=damaged\nerror\nBLOCK SUBMENU\nEND\nEND\n";

class MenuEditorSaveTest : public nesk::testing::CoreTest, public MenuEditorListener {
protected:
    MenuEditorSaveTest() {
        fs::create_directories(Host(Folder));
        m_editor.AddListener(*this);
    }

    void OnMenuReplaced() override {}
    void OnMenuEvent(const MenuEvent&) override {}
    void OnStateChanged() override { ++m_stateChanges; }

    static fs::path Host(const std::string& path) { return TempStation::Host(path); }

    void OpenWith(const std::string& bytes) {
        station.Write(Path, bytes);
        m_editor.Open(Folder, Path);
    }

    MenuEditor m_editor;
    int m_stateChanges = 0;
};

TEST_F(MenuEditorSaveTest, SavingANewMenu) {
    m_editor.Open(Folder, Path);
    m_editor.SetCaption("R", "good");
    m_stateChanges = 0;
    m_editor.Save(Path);
    EXPECT_EQ(m_stateChanges, 1);
    EXPECT_FALSE(m_editor.IsDirty());
    EXPECT_EQ(m_editor.Path(), Path);
    EXPECT_EQ(FileBytes(Path), Good);
    EXPECT_EQ(FilesIn(Folder), "menu.cfg");
}

TEST_F(MenuEditorSaveTest, SavingToAnotherPlace) {
    OpenWith(Good);
    m_editor.SetCaption("R", "other");
    m_editor.Save(Folder + "\\other.cfg");
    EXPECT_EQ(m_editor.Path(), Folder + "\\other.cfg");
    EXPECT_EQ(FileBytes(Path), Good);
    EXPECT_NE(FileBytes(Folder + "\\other.cfg").find("CAPTION=other"), std::string::npos);
}

// A file without its last lines is read without an error, but it may be a truncated longer file.
TEST_F(MenuEditorSaveTest, AFileThatMayHaveBeenCutOffIsKept) {
    const std::string item = "BLOCK SUBMENU\r\nCAPTION=A\r\n";
    for (const std::string& cut : {"BLOCK MENU\r\n" + item, "BLOCK MENU\r\n" + item + "END\r\n",
                                   std::string("BLOCK MENU\r\nCAPTION=A\r\n")}) {
        station.Write(Path + ".bak", "the last good one");
        fs::remove(Host(Path + ".damaged"));
        station.Write(Path, cut);
        EXPECT_FALSE(m_editor.Open(Folder, Path).has_value());
        EXPECT_TRUE(m_editor.IsIncomplete());
        EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::Incomplete);
        m_editor.Save(Path);
        EXPECT_FALSE(m_editor.IsIncomplete());
        EXPECT_EQ(FileBytes(Path + ".bak"), "the last good one");
        EXPECT_EQ(FileBytes(Path + ".damaged"), cut);
        m_editor.Open(Folder, Path);
        EXPECT_FALSE(m_editor.IsIncomplete());
    }
    OpenWith("BLOCK MENU\r\n" + item + "END\r\nEND");
    EXPECT_FALSE(m_editor.IsIncomplete());
}

TEST_F(MenuEditorSaveTest, Hazards) {
    EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::None);
    OpenWith(Good);
    EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::None);
    m_editor.SetCaption("R", "changed here");
    EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::None);
    m_editor.Save(Path);
    EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::None) << "what was written is known";
    const std::string own = FileBytes(Path);
    std::string other = own;
    other[other.size() / 2] = '#';
    for (const std::string& bytes : {other, own + " ", std::string(), std::string(Good)}) {
        station.Write(Path, bytes);
        EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::ChangedByOther) << bytes;
    }
    station.Write(Path, own);
    EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::None) << "the same contents again";
    fs::remove(Host(Path));
    EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::None) << "deleted meanwhile: there is nothing to lose";
}

TEST_F(MenuEditorSaveTest, AFileThatAppearedMeanwhile) {
    m_editor.Open(Folder, Path);
    EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::None);
    for (const char* bytes : {"", Good}) {
        station.Write(Path, bytes);
        EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::ChangedByOther) << bytes;
    }
    m_editor.Save(Path);
    EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::None);
    EXPECT_EQ(FileBytes(Path + ".bak"), Good) << "the other version is kept";
}

TEST_F(MenuEditorSaveTest, BackupNames) {
    OpenWith(Good);
    EXPECT_EQ(m_editor.BackupFor(Path).path, Path + ".bak");
    EXPECT_TRUE(m_editor.BackupFor(Path).mayReplace);
    OpenWith(Damaged);
    for (const char* ending : {".damaged", ".damaged.2", ".damaged.3"}) {
        EXPECT_EQ(m_editor.BackupFor(Path).path, Path + ending);
        EXPECT_FALSE(m_editor.BackupFor(Path).mayReplace);
        station.Write(Path + ending, "older");
    }
}

TEST_F(MenuEditorSaveTest, AnIncompleteMenuKeepsItsOriginal) {
    station.Write(Path + ".bak", "the last good one");
    OpenWith(Damaged);
    EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::Incomplete);
    m_stateChanges = 0;
    m_editor.Save(Path);
    EXPECT_EQ(m_stateChanges, 1);
    EXPECT_FALSE(m_editor.IsIncomplete());
    EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::None);
    EXPECT_EQ(FileBytes(Path + ".damaged"), Damaged);
    EXPECT_EQ(FileBytes(Path + ".bak"), "the last good one");
    EXPECT_NE(FileBytes(Path).find("CAPTION=damaged"), std::string::npos);
    OpenWith(Good);
    EXPECT_FALSE(m_editor.IsIncomplete());
    OpenWith("garbage");
    m_editor.Save(Path);
    EXPECT_EQ(FileBytes(Path + ".damaged"), Damaged) << "an older one is never overwritten";
    EXPECT_EQ(FileBytes(Path + ".damaged.2"), "garbage");
    const std::string complete = FileBytes(Path);
    m_editor.SetCaption("R", "changed");
    m_editor.Save(Path);
    EXPECT_EQ(FileBytes(Path + ".bak"), complete) << "a complete menu is kept as usual";
    EXPECT_EQ(FilesIn(Folder), "menu.cfg menu.cfg.bak menu.cfg.damaged menu.cfg.damaged.2");
}

TEST_F(MenuEditorSaveTest, AnIncompleteMenuWhoseFileIsGone) {
    OpenWith(Damaged);
    fs::remove(Host(Path));
    EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::None);
    m_editor.Save(Path);
    EXPECT_EQ(FilesIn(Folder), "menu.cfg");
}

TEST_F(MenuEditorSaveTest, WithoutAMenuRoot) {
    m_editor.Open("", "");
    m_editor.AddPart("R", "x");
    const NeskError error = ErrorOf([&] { m_editor.Save(""); });
    EXPECT_EQ(error.number, RuntimeError::PathNotFound);
    EXPECT_EQ(error.messageId, Message::NoMenuRoot);
    EXPECT_TRUE(m_editor.IsOpen());
    EXPECT_TRUE(m_editor.IsDirty());
}

// Every save that fails here leaves the file, the menu and the flags unchanged.
TEST_F(MenuEditorSaveTest, AFailedSave) {
    const auto writeProtect = [] { fs::permissions(Host(Path), fs::perms::owner_read); };
    const auto blockBackup = [] { fs::create_directory(Host(Path + ".bak")); };
    const auto unencodable = [this] { nesk::testing::OpenMenuOf(m_editor).SetGraphic("日"); };
    const struct {
        const char* name;
        std::function<void()> prepare;
        int number;
        int messageId;
    } table[] = {
        {"write-protected", writeProtect, RuntimeError::PermissionDenied, Message::PermissionDenied},
        {"no backup", blockBackup, RuntimeError::PermissionDenied, Message::BackupFailed},
        {"no place in the code page", unencodable, 5000, Message::NotEncodable},
    };
    for (const auto& row : table) {
        fs::remove_all(Host(Folder));
        OpenWith(Good);
        m_editor.AddPart("R", "new");
        row.prepare();
        const std::string files = FilesIn(Folder);
        m_stateChanges = 0;
        const NeskError error = ErrorOf([&] { m_editor.Save(Path); });
        EXPECT_EQ(error.number, row.number) << row.name;
        EXPECT_EQ(error.messageId, row.messageId) << row.name;
        EXPECT_EQ(error.file, Path) << row.name;
        EXPECT_EQ(m_stateChanges, 0) << row.name;
        EXPECT_TRUE(m_editor.IsDirty()) << row.name;
        EXPECT_EQ(m_editor.Path(), Path);
        EXPECT_EQ(m_editor.Find("R.1")->Caption(), "new");
        EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::None) << row.name;
        EXPECT_EQ(FileBytes(Path), Good) << row.name;
        EXPECT_EQ(FilesIn(Folder), files) << row.name;
        // Windows refuses to remove the protected file before the next row.
        fs::permissions(Host(Path), fs::perms::owner_write, fs::perm_options::add);
    }
}

TEST_F(MenuEditorSaveTest, AnIncompleteMenuStaysSoWhenItsSaveFails) {
    OpenWith(Damaged);
    nesk::testing::OpenMenuOf(m_editor).SetGraphic("日");
    EXPECT_EQ(ErrorOf([&] { m_editor.Save(Path); }).messageId, Message::NotEncodable);
    EXPECT_TRUE(m_editor.IsIncomplete());
    EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::Incomplete);
    EXPECT_EQ(FilesIn(Folder), "menu.cfg");
}

TEST_F(MenuEditorSaveTest, AnAdoptedVersionIsReplacedWithoutAQuestion) {
    OpenWith(Good);
    m_editor.SetCaption("R", "here");
    station.Write(Path, "BLOCK MENU\r\nCAPTION=there\r\nEND\r\n");
    EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::ChangedByOther);
    m_editor.Adopt(FileHash::Of(Path), false);
    EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::None);
    EXPECT_TRUE(m_editor.IsDirty());
    m_editor.Undo();
    EXPECT_TRUE(m_editor.IsDirty()) << "the file does not contain that";
    m_editor.SetCaption("R", "there");
    m_stateChanges = 0;
    m_editor.Adopt(FileHash::Of(Path), true);
    EXPECT_EQ(m_stateChanges, 1);
    EXPECT_FALSE(m_editor.IsDirty());
}

} // namespace
} // namespace nesk
