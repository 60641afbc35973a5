#include "base/Messages.h"
#include "editing/MenuEditor.h"
#include "platform/FileTime.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"
#include "unit/FileBytes.h"

#include <chrono>
#include <ctime>
#include <filesystem>

namespace nesk {
namespace {

using nesk::testing::ErrorOf;
using nesk::testing::FileBytes;
using nesk::testing::FilesIn;
namespace fs = std::filesystem;

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";
const std::string Other = "C:\\Other\\menu.cfg";
constexpr const char* Good = "BLOCK MENU\r\n\tCAPTION=good\r\n\tGRAPHIC=\r\nEND\r\n";
constexpr const char* Theirs = "BLOCK MENU\r\n\tCAPTION=theirs\r\nEND\r\n";
constexpr const char* Damaged = "BLOCK MENU\nCAPTION=damaged\nerror\nEND\n";

// Where a menu is saved, and what happens to the previous version.
class MenuEditorPlacesTest : public nesk::testing::CoreTest {
protected:
    MenuEditorPlacesTest() {
        fs::create_directories(TempStation::Host(Folder));
        fs::create_directories(TempStation::Host("C:\\Other"));
    }

    void OpenWith(const std::string& bytes) {
        station.Write(Path, bytes);
        m_editor.Open(Folder, Path);
    }

    // Writes a file as another program would, at 14:32:05 on 22 November 2026 of local time.
    void WriteTheirs(const std::string& path, const std::string& bytes) {
        station.Write(path, bytes);
        std::tm local{};
        local.tm_year = 126;
        local.tm_mon = 10;
        local.tm_mday = 22;
        local.tm_hour = 14;
        local.tm_min = 32;
        local.tm_sec = 5;
        local.tm_isdst = -1;
        const auto time = std::chrono::system_clock::from_time_t(std::mktime(&local));
        fs::last_write_time(TempStation::Host(path), std::chrono::file_clock::from_sys(time));
    }

    // Saves as the main window does if the user agrees to everything.
    void SavePlanned(const std::string& path) { m_editor.Save(path, m_editor.PlanSave(path)); }

    MenuEditor m_editor;
};

TEST_F(MenuEditorPlacesTest, TheLocalTimeOfAFile) {
    WriteTheirs(Path, Good);
    std::tm local{};
    ASSERT_TRUE(platform::LastWriteTime(Path, local));
    EXPECT_EQ(local.tm_year, 126);
    EXPECT_EQ(local.tm_mon, 10);
    EXPECT_EQ(local.tm_mday, 22);
    EXPECT_EQ(local.tm_hour, 14);
    EXPECT_EQ(local.tm_min, 32);
    EXPECT_EQ(local.tm_sec, 5);
    EXPECT_FALSE(platform::LastWriteTime(Folder + "\\none.cfg", local));
}

TEST_F(MenuEditorPlacesTest, AnotherPlaceIsNoChangeByAnotherProgram) {
    OpenWith(Good);
    EXPECT_EQ(m_editor.Place(), Path);
    EXPECT_EQ(m_editor.CheckSave(Other), SaveHazard::OtherPlace);
    EXPECT_EQ(m_editor.CheckSave("C:\\None\\menu.cfg"), SaveHazard::OtherPlace);
    station.Write(Other, Theirs);
    const SavePlan plan = m_editor.PlanSave(Other);
    EXPECT_EQ(plan.hazard, SaveHazard::OtherPlaceReplaces);
    EXPECT_FALSE(plan.backup.mayReplace);
    m_editor.SetCaption("R", "changed");
    m_editor.Save(Other, plan);
    EXPECT_EQ(FileBytes(plan.backup.path), Theirs) << plan.backup.path;
    EXPECT_EQ(FileBytes(Path), Good) << "the menu stays where it came from";
    EXPECT_EQ(m_editor.Place(), Other);
    EXPECT_EQ(m_editor.CheckSave(Other), SaveHazard::None);
    EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::OtherPlaceReplaces) << "and back again";
}

TEST_F(MenuEditorPlacesTest, AnIncompleteMenuInAnotherPlaceKeepsThatPlacesMenuUnderItsDate) {
    OpenWith(Damaged);
    WriteTheirs(Other, Good);
    EXPECT_EQ(m_editor.CheckSave(Other), SaveHazard::OtherPlaceReplaces);
    SavePlanned(Other);
    EXPECT_EQ(FilesIn("C:\\Other"), "menu.cfg menu.cfg.2026-11-22 14.32.05.bak") << "what was there is good";
    EXPECT_EQ(FileBytes(Path), Damaged);
}

TEST_F(MenuEditorPlacesTest, OneFileByOtherNamesIsOnePlace) {
    OpenWith(Good);
    for (const char* same :
         {"c:\\NESKROOT\\Menu.cfg", "C:\\Neskroot\\\\menu.cfg", "C:\\Other\\..\\Neskroot\\menu.cfg"})
        EXPECT_EQ(m_editor.CheckSave(same), SaveHazard::None) << same;
}

TEST_F(MenuEditorPlacesTest, ANewMenuHasAPlaceButNoFile) {
    EXPECT_FALSE(m_editor.IsNew());
    m_editor.Open(Folder, Path);
    EXPECT_TRUE(m_editor.IsNew());
    EXPECT_EQ(m_editor.Place(), Path);
    EXPECT_EQ(m_editor.Path(), "");
    EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::None);
    EXPECT_EQ(m_editor.CheckSave(Other), SaveHazard::OtherPlace);
    SavePlanned(Path);
    EXPECT_FALSE(m_editor.IsNew());
    m_editor.Close();
    EXPECT_EQ(m_editor.Place(), "");
    EXPECT_FALSE(m_editor.IsNew());
}

TEST_F(MenuEditorPlacesTest, AVersionOfSomebodyElseIsKeptForGood) {
    OpenWith(Good);
    station.Write(Path + ".bak", "older");
    m_editor.SetCaption("R", "mine");
    WriteTheirs(Path, Theirs);
    const SavePlan plan = m_editor.PlanSave(Path);
    EXPECT_EQ(plan.hazard, SaveHazard::ChangedByOther);
    EXPECT_EQ(plan.backup.path, Path + ".2026-11-22 14.32.05.bak");
    m_editor.Save(Path, plan);
    EXPECT_EQ(FileBytes(plan.backup.path), Theirs);
    EXPECT_EQ(FileBytes(Path + ".bak"), "older") << "the last own version stays";
    const std::string mine = FileBytes(Path);

    m_editor.SetCaption("R", "mine again");
    SavePlanned(Path);
    EXPECT_EQ(FileBytes(Path + ".bak"), mine) << "as usual again";
    EXPECT_EQ(FileBytes(plan.backup.path), Theirs);

    // A second copy made in the same second gets a number.
    WriteTheirs(Path, "another one of theirs");
    SavePlanned(Path);
    EXPECT_EQ(FileBytes(plan.backup.path), Theirs);
    EXPECT_EQ(FileBytes(Path + ".2026-11-22 14.32.05.2.bak"), "another one of theirs");
    EXPECT_EQ(FileBytes(Path + ".bak"), mine);
}

TEST_F(MenuEditorPlacesTest, AVersionThatCameDuringTheQuestionIsKeptToo) {
    OpenWith(Good);
    m_editor.SetCaption("R", "mine");
    const SavePlan plan = m_editor.PlanSave(Path);
    ASSERT_EQ(plan.hazard, SaveHazard::None);
    WriteTheirs(Path, Theirs);
    m_editor.Save(Path, plan);
    EXPECT_EQ(FileBytes(Path + ".2026-11-22 14.32.05.bak"), Theirs);
    EXPECT_FALSE(fs::exists(TempStation::Host(Path + ".bak")));
}

TEST_F(MenuEditorPlacesTest, EqualBytesKeepTheOlderBackup) {
    OpenWith(Good);
    m_editor.SetCaption("R", "first");
    SavePlanned(Path);
    ASSERT_EQ(FileBytes(Path + ".bak"), Good);
    const std::string first = FileBytes(Path);
    SavePlanned(Path);
    m_editor.Save(Path);
    EXPECT_EQ(FileBytes(Path + ".bak"), Good) << "two saves without a change";
    EXPECT_EQ(FileBytes(Path), first);
    // A change and its reversal write nothing either, but leave the menu clean.
    m_editor.SetCaption("R", "second");
    m_editor.SetCaption("R", "first");
    ASSERT_TRUE(m_editor.IsDirty());
    SavePlanned(Path);
    EXPECT_FALSE(m_editor.IsDirty());
    EXPECT_EQ(FileBytes(Path + ".bak"), Good);
    // A version that is no longer on the disk must be written nevertheless.
    WriteTheirs(Path, Theirs);
    m_editor.Save(Path);
    EXPECT_EQ(FileBytes(Path), first);
    EXPECT_EQ(FileBytes(Path + ".bak"), Theirs) << "this version is not ours";
    fs::remove(TempStation::Host(Path));
    SavePlanned(Path);
    EXPECT_EQ(FileBytes(Path), first);
}

TEST_F(MenuEditorPlacesTest, TheFirstBackupIsMadeOfEqualBytesToo) {
    OpenWith(Good);
    SavePlanned(Path);
    EXPECT_EQ(FilesIn(Folder), "menu.cfg menu.cfg.bak");
    EXPECT_EQ(FileBytes(Path + ".bak"), Good);
}

TEST_F(MenuEditorPlacesTest, SomebodyElsesEqualVersionIsNoVersionToKeep) {
    m_editor.Open(Folder, Path);
    m_editor.SetCaption("R", "good");
    station.Write(Path, Good);
    ASSERT_EQ(m_editor.CheckSave(Path), SaveHazard::ChangedByOther);
    SavePlanned(Path);
    EXPECT_EQ(FilesIn(Folder), "menu.cfg");
}

TEST_F(MenuEditorPlacesTest, ACopyChangesNothingElse) {
    OpenWith(Good);
    m_editor.SetCaption("R", "changed");
    m_editor.SaveCopy(Other);
    EXPECT_NE(FileBytes(Other).find("CAPTION=changed"), std::string::npos);
    EXPECT_EQ(FilesIn("C:\\Other"), "menu.cfg");
    EXPECT_TRUE(m_editor.IsDirty());
    EXPECT_EQ(m_editor.Path(), Path);
    EXPECT_EQ(m_editor.Place(), Path);
    EXPECT_EQ(FileBytes(Path), Good);
    EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::None);
}

TEST_F(MenuEditorPlacesTest, ACopyKeepsTheFileThatItReplaces) {
    OpenWith(Good);
    WriteTheirs(Other, Theirs);
    station.Write(Other + ".bak", "older");
    m_editor.SaveCopy(Other);
    EXPECT_EQ(FileBytes(Other), Good);
    EXPECT_EQ(FileBytes(Other + ".2026-11-22 14.32.05.bak"), Theirs);
    EXPECT_EQ(FileBytes(Other + ".bak"), "older");
}

TEST_F(MenuEditorPlacesTest, ACopyInTheMenusOwnPlace) {
    OpenWith(Good);
    m_editor.SetCaption("R", "changed");
    m_editor.SaveCopy(Path);
    EXPECT_TRUE(m_editor.IsDirty());
    EXPECT_EQ(FileBytes(Path + ".bak"), Good);
    EXPECT_EQ(m_editor.CheckSave(Path), SaveHazard::None) << "no other program wrote it";
}

TEST_F(MenuEditorPlacesTest, ACopyThatFails) {
    OpenWith(Good);
    m_editor.SetCaption("R", "changed");
    const NeskError error = ErrorOf([&] { m_editor.SaveCopy("C:\\None\\menu.cfg"); });
    EXPECT_EQ(error.number, RuntimeError::PathNotFound);
    EXPECT_EQ(error.file, "C:\\None\\menu.cfg");
    EXPECT_TRUE(m_editor.IsDirty());
    EXPECT_EQ(FileBytes(Path), Good);
}

} // namespace
} // namespace nesk
