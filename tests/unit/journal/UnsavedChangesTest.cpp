// What is found after an editor was killed, or while another one is running.

#include "journal/UnsavedChanges.h"

#include "journal/JournalPlaces.h"
#include "platform/ErrorCode.h"
#include "unit/journal/JournalFixture.h"

#include <filesystem>

namespace nesk {
namespace {

using nesk::testing::FileBytes;
using nesk::testing::FilesIn;
using nesk::testing::JournalTest;
using nesk::testing::TreeText;
using platform::ErrorCode;
namespace fs = std::filesystem;

class UnsavedChangesTest : public JournalTest {
protected:
    // An editor that makes changes and is gone without an end, as if it was killed.
    void KillAfter(const std::function<void(MenuEditor&)>& edit, const std::string& path = Path) {
        MenuEditor editor;
        MenuJournal journal(editor, m_options, m_files);
        editor.Open(Folder, path);
        edit(editor);
        journal.Flush();
        RunBackground();
    }

    std::string FoundTree(const FoundJournal& found) {
        const RestoredMenu restored =
            UnsavedChanges::RestoreInto(found, *UnsavedChanges::ReadBase(found, Folder));
        return TreeText(*restored.menu);
    }

    static void Rename(const std::string& caption, MenuEditor& editor) { editor.SetCaption("R", caption); }
};

TEST_F(UnsavedChangesTest, NothingIsFoundWhereNothingWasLeft) {
    EXPECT_FALSE(Find().has_value());
    KillAfter([](MenuEditor&) {});
    KillAfter([](MenuEditor& editor) {
        Rename("a", editor);
        editor.Save(Path);
    });
    EXPECT_FALSE(Find().has_value());
}

TEST_F(UnsavedChangesTest, DescribesWhatWasLeft) {
    std::string tree;
    KillAfter([&](MenuEditor& editor) {
        Rename("a", editor);
        Rename("b", editor);
        tree = TreeText(*editor.OpenMenu());
    });
    const std::optional<FoundJournal> found = Find();
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->path, Place);
    EXPECT_TRUE(found->isOfThisFile);
    EXPECT_EQ(found->changes, 2u);
    EXPECT_EQ(found->owner, "meier on STATION4");
    EXPECT_FALSE(found->isDamaged);
    EXPECT_EQ(found->basePath, Path);
    EXPECT_GE(found->time.tm_year, 100);
    EXPECT_GE(found->time.tm_mday, 1);
    EXPECT_EQ(FoundTree(*found), tree);
    EXPECT_EQ(FileBytes(Path), Menu1);
    EXPECT_EQ(UnsavedChanges::Remove(*found), ErrorCode::Success);
    EXPECT_FALSE(Find().has_value());
    EXPECT_EQ(Names(), "menu.cfg");
}

TEST_F(UnsavedChangesTest, AMenuWithoutAFileIsFoundAgain) {
    const std::string path = Folder + "\\new.cfg";
    std::string tree;
    KillAfter(
        [&](MenuEditor& editor) {
            editor.AddPart("R", "first");
            tree = TreeText(*editor.OpenMenu());
        },
        path);
    const std::optional<FoundJournal> found = UnsavedChanges::Find(path, m_options);
    ASSERT_TRUE(found.has_value());
    EXPECT_TRUE(found->isOfThisFile);
    EXPECT_EQ(found->basePath, "");
    EXPECT_EQ(FoundTree(*found), tree);
    WriteBytes(path, Menu1);
    const std::optional<FoundJournal> later = UnsavedChanges::Find(path, m_options);
    ASSERT_TRUE(later.has_value());
    EXPECT_FALSE(later->isOfThisFile);
}

TEST_F(UnsavedChangesTest, AFileThatAnotherProgramChangedIsNotTheOne) {
    m_options.keepsBase = true;
    KillAfter([](MenuEditor& editor) { Rename("a", editor); });
    EXPECT_EQ(Names(), "menu.cfg menu.cfg.unsaved menu.cfg.unsaved.base");
    WriteBytes(Path, "BLOCK MENU\r\nEND\r\n");
    const std::optional<FoundJournal> found = Find();
    ASSERT_TRUE(found.has_value());
    EXPECT_FALSE(found->isOfThisFile);
    EXPECT_EQ(found->basePath, Place + ".base");
    EXPECT_EQ(FileBytes(found->basePath), Menu1);
    EXPECT_NE(FoundTree(*found).find("R a|"), std::string::npos);
    std::string kept;
    EXPECT_EQ(UnsavedChanges::SetAside(*found, kept), ErrorCode::Success);
    EXPECT_EQ(kept, Place + ".damaged");
    EXPECT_EQ(Names(), "menu.cfg menu.cfg.unsaved.damaged");
    EXPECT_FALSE(Find().has_value());
}

TEST_F(UnsavedChangesTest, TheCopyOfTheMenuFileGoesWithItsJournal) {
    m_options.keepsBase = true;
    MenuEditor editor;
    MenuJournal journal(editor, m_options, m_files);
    Open(editor);
    Rename("a", editor);
    RunBackground();
    EXPECT_EQ(FileBytes(Place + ".base"), Menu1);
    editor.Save(Path);
    EXPECT_EQ(Names(), "menu.cfg menu.cfg.bak");
    // It is still being made while the journal is removed.
    Rename("b", editor);
    editor.Save(Path);
    EXPECT_NE(Names(), "menu.cfg menu.cfg.bak");
    RunBackground();
    EXPECT_EQ(Names(), "menu.cfg menu.cfg.bak");
}

TEST_F(UnsavedChangesTest, TheCopyIsThatOfTheVersionThatWasOpened) {
    m_options.keepsBase = true;
    MenuEditor editor;
    MenuJournal journal(editor, m_options, m_files);
    Open(editor);
    RunBackground();
    WriteBytes(Path, "BLOCK MENU\r\nEND\r\n");
    Rename("a", editor);
    RunBackground();
    EXPECT_EQ(FileBytes(Place + ".base"), Menu1);
}

TEST_F(UnsavedChangesTest, TheCopyIsNeverThatOfAnotherVersion) {
    m_options.keepsBase = true;
    MenuEditor editor;
    MenuJournal journal(editor, m_options, m_files);
    Open(editor);
    WriteBytes(Path, "BLOCK MENU\r\nEND\r\n");
    Rename("a", editor);
    RunBackground();
    EXPECT_EQ(Names(), "menu.cfg menu.cfg.unsaved");
}

TEST_F(UnsavedChangesTest, ACopyOfAnEmptyJournalIsRemovedWithIt) {
    WriteBytes(Place, "");
    WriteBytes(Place + ".base", Menu1);
    EXPECT_FALSE(Find().has_value());
    EXPECT_EQ(Names(), "menu.cfg");
}

// An editor is killed between writing the menu and removing the journal.
TEST_F(UnsavedChangesTest, ChangesThatAreInTheFileAreDroppedSilently) {
    KillAfter([](MenuEditor& editor) { Rename("a", editor); });
    const std::string journal = FileBytes(Place);
    KillAfter([](MenuEditor& editor) {
        Rename("a", editor);
        editor.Save(Path);
    });
    WriteBytes(Place, journal);
    EXPECT_FALSE(Find().has_value());
    EXPECT_EQ(Names(), "menu.cfg menu.cfg.bak");
    // With other changes in the file, the journal stays.
    KillAfter([](MenuEditor& editor) {
        Rename("c", editor);
        editor.Save(Path);
    });
    WriteBytes(Place, journal);
    EXPECT_TRUE(Find().has_value());
}

TEST_F(UnsavedChangesTest, ChangesThatLeaveTheSameFileAreDroppedSilently) {
    // The menu as this program writes it.
    KillAfter([](MenuEditor& editor) {
        Rename("a", editor);
        editor.Save(Path);
    });
    KillAfter([](MenuEditor& editor) {
        Rename("b", editor);
        Rename("a", editor);
    });
    EXPECT_FALSE(Find().has_value());
    EXPECT_EQ(Names(), "menu.cfg menu.cfg.bak");
}

TEST_F(UnsavedChangesTest, AJournalWithoutAChangeIsDropped) {
    for (const char* begun : {"", "NeskManager unsav"}) {
        WriteBytes(Place, begun);
        EXPECT_FALSE(Find().has_value());
        EXPECT_EQ(Names(), "menu.cfg");
    }
    WriteBytes(Place, "something of the user");
    EXPECT_FALSE(Find().has_value());
    EXPECT_EQ(Names(), "menu.cfg menu.cfg.unsaved");
}

TEST_F(UnsavedChangesTest, AJournalThatIsDamagedFromTheBeginningIsReported) {
    KillAfter([](MenuEditor& editor) { Rename("a", editor); });
    std::string bytes = FileBytes(Place);
    bytes[60] = static_cast<char>(bytes[60] ^ 1);
    WriteBytes(Place, bytes);
    const std::optional<FoundJournal> found = Find();
    ASSERT_TRUE(found.has_value());
    EXPECT_TRUE(found->isDamaged);
    EXPECT_EQ(found->changes, 0u);
    EXPECT_FALSE(found->isOfThisFile);
}

TEST_F(UnsavedChangesTest, TwoEditorsHaveAJournalEach) {
    MenuEditor first;
    MenuJournal firstJournal(first, m_options, m_files);
    Open(first);
    Rename("first", first);
    MenuEditor second;
    MenuJournal secondJournal(second, m_options, m_files);
    Open(second);
    Rename("second", second);
    EXPECT_EQ(firstJournal.Path(), Place);
    EXPECT_EQ(secondJournal.Path(), Place + "-2");
    EXPECT_EQ(Restored(Place), TreeText(*first.OpenMenu()));
    EXPECT_EQ(Restored(Place + "-2"), TreeText(*second.OpenMenu()));
    EXPECT_FALSE(Find().has_value()) << "both are running";
}

TEST_F(UnsavedChangesTest, TheJournalOfADeadEditorIsNeverOverwritten) {
    KillAfter([](MenuEditor& editor) { Rename("dead", editor); });
    const std::string bytes = FileBytes(Place);
    KillAfter([](MenuEditor& editor) { Rename("dead, too", editor); });
    EXPECT_EQ(FileBytes(Place), bytes);
    std::optional<FoundJournal> found = Find();
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->path, Place + "-2") << "the newest first";
    EXPECT_EQ(UnsavedChanges::Remove(*found), ErrorCode::Success);
    found = Find();
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->path, Place);
}

// The folder of the menu is missing, as good as one that cannot be written.
TEST_F(UnsavedChangesTest, IsInTheUsersFolderWhenTheMenusCannotBeWritten) {
    const std::string path = "C:\\None\\menu.cfg";
    const std::string other = "C:\\None\\other.cfg";
    KillAfter([](MenuEditor& editor) { Rename("a", editor); }, path);
    KillAfter([](MenuEditor& editor) { Rename("b", editor); }, other);
    KillAfter([](MenuEditor& editor) { Rename("c", editor); }, other);
    const std::optional<FoundJournal> found = UnsavedChanges::Find("c:\\none\\MENU.cfg", m_options);
    ASSERT_TRUE(found.has_value());
    EXPECT_TRUE(found->path.starts_with(m_options.folder + "\\menu-")) << found->path;
    EXPECT_NE(FoundTree(*found).find("R a|"), std::string::npos);
    EXPECT_FALSE(UnsavedChanges::Find("C:\\None\\third.cfg", m_options).has_value());
    const std::optional<FoundJournal> second = UnsavedChanges::Find(other, m_options);
    ASSERT_TRUE(second.has_value());
    EXPECT_TRUE(second->path.ends_with("-2")) << second->path;
    EXPECT_FALSE(fs::exists(TempStation::Host("C:\\None")));
}

// A hash of the path gives the name, and different paths may have the same.
TEST_F(UnsavedChangesTest, AJournalOfAnotherMenuInTheUsersFolderIsNotTaken) {
    const std::string path = "C:\\None\\menu.cfg";
    KillAfter([](MenuEditor& editor) { Rename("a", editor); }, "C:\\None\\other.cfg");
    const std::string name = FilesIn(m_options.folder);
    fs::rename(TempStation::Host(m_options.folder + "\\" + name),
               TempStation::Host(JournalPlaces::InFolder(m_options.folder, path).front()));
    EXPECT_FALSE(UnsavedChanges::Find(path, m_options).has_value());
    EXPECT_NE(FilesIn(m_options.folder), "") << "it is somebody's";
}

TEST_F(UnsavedChangesTest, ChangesApplyToTheVersionThatWasAdopted) {
    std::string tree;
    KillAfter([&](MenuEditor& editor) {
        Rename("a", editor);
        editor.Remove("R.1.1");
        station.Write(Path, "BLOCK MENU\r\n\tCAPTION=of somebody else\r\n\tGRAPHIC=\r\nEND\r\n");
        editor.Adopt(FileHash::Of(Path), false);
        editor.AddPart("R.2", "after that");
        tree = TreeText(*editor.OpenMenu());
    });
    const std::optional<FoundJournal> found = Find();
    ASSERT_TRUE(found.has_value());
    EXPECT_TRUE(found->isOfThisFile);
    EXPECT_EQ(FoundTree(*found), tree);
    EXPECT_EQ(Names(), "menu.cfg menu.cfg.unsaved-2") << "the former journal is gone";
}

TEST_F(UnsavedChangesTest, AnAdoptedVersionThatIsTheMenuLeavesNothingToRestore) {
    std::string tree;
    KillAfter([&](MenuEditor& editor) {
        editor.Remove("R.1.1");
        editor.SaveCopy("C:\\Neskroot\\other.cfg");
        WriteBytes(Path, FileBytes("C:\\Neskroot\\other.cfg"));
        editor.Adopt(FileHash::Of(Path), true);
        EXPECT_EQ(Names(), "menu.cfg other.cfg");
        Rename("a", editor);
        tree = TreeText(*editor.OpenMenu());
    });
    const std::optional<FoundJournal> found = Find();
    ASSERT_TRUE(found.has_value());
    EXPECT_TRUE(found->isOfThisFile);
    EXPECT_EQ(FoundTree(*found), tree) << "the ids are those of the running editor";
}

TEST_F(UnsavedChangesTest, RestoringDoesNotDependOnTheIdsOfTheBase) {
    std::string tree;
    KillAfter([&](MenuEditor& editor) {
        editor.MoveTo("R.1.2", "R.3", 1);
        editor.SetCaption("R.2", "a");
        tree = TreeText(*editor.OpenMenu());
    });
    MenuEditor editor;
    Open(editor);
    // The same entries with other ids.
    editor.MoveTo("R.1", "R.2", 1);
    editor.MoveTo("R.2.1", "R", 1);
    ASSERT_NE(editor.Find("R.4"), nullptr);
    const RestoredMenu restored = UnsavedChanges::RestoreInto(*Find(), *editor.OpenMenu());
    EXPECT_FALSE(restored.isDamaged);
    EXPECT_EQ(TreeText(*restored.menu), tree);
}

} // namespace
} // namespace nesk
