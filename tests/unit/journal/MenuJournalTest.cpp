// What a journal contains after each kind of event, and when it is there.

#include "journal/MenuJournal.h"

#include "base/Messages.h"
#include "journal/JournalRecord.h"
#include "unit/journal/JournalFixture.h"

namespace nesk {
namespace {

using nesk::testing::FileBytes;
using nesk::testing::JournalTest;
using nesk::testing::TreeText;

class MenuJournalTest : public JournalTest {
protected:
    MenuJournalTest() {
        Open(m_editor);
        m_journal.onFailure = [](const NeskError& error) { ADD_FAILURE() << "failure " << error.number; };
    }

    // Checks that the journal leads to the open menu, and undoes and redoes the change, too.
    void CheckEvent() {
        const std::string after = TreeText(*m_editor.OpenMenu());
        EXPECT_EQ(Restored(Place), after);
        ASSERT_TRUE(m_editor.Undo());
        EXPECT_NE(TreeText(*m_editor.OpenMenu()), after);
        if (m_editor.IsDirty()) {
            EXPECT_EQ(Restored(Place), TreeText(*m_editor.OpenMenu()));
        }
        ASSERT_TRUE(m_editor.Redo());
        EXPECT_EQ(Restored(Place), after);
    }

    std::uint64_t LastChanges() {
        const std::string bytes = JournalBytes(Place);
        return Journal::Read(bytes).steps.back().changes;
    }

    MenuEditor m_editor;
    MenuJournal m_journal{m_editor, m_options, m_files};
};

TEST_F(MenuJournalTest, RecordsEveryKindOfChange) {
    PartFields fields;
    fields.graphic = "C:\\a.bmp";
    fields.preview = "p";
    fields.programId = "@C:\\x\\partinfo.ini@";
    fields.helpFile = "h";
    fields.helpTopic = -2147483647 - 1;
    fields.historyDir = "C:\\History";
    fields.historyTitle = "Geh\xC3\xA4use";
    const std::vector<std::function<void()>> edits = {
        [&] { m_editor.AddPart("R.1", "new"); },
        [&] { m_editor.AddPart("R", "with fields", fields); },
        [&] { m_editor.AddSubmenu("R.3", "sub"); },
        [&] { m_editor.SetCaption("R", "root"); },
        [&] { m_editor.SetGraphic("R", "C:\\root.bmp"); },
        [&] { m_editor.SetCaption("R.1.1", "other"); },
        [&] { m_editor.SetPart("R.1.2", fields); },
        [&] { m_editor.MoveUp("R.2"); },
        [&] { m_editor.MoveTo("R.1", "R.2", 1); },
        [&] { m_editor.MoveTo("R.2.1.2", "R", 2); },
        [&] { m_editor.Sort("R", true); },
        [&] {
            m_editor.Duplicate({"R.2", "R.3"});
        },
        [&] {
            m_editor.Remove(EntryIds{"R.2", "R.4"});
        },
        [&] {
            m_editor.MoveTo(EntryIds{"R.3", "R.5"}, "R.6", 0);
        },
    };
    for (std::size_t i = 0; i < edits.size(); ++i) {
        SCOPED_TRACE("edit " + std::to_string(i));
        edits[i]();
        CheckEvent();
    }
    EXPECT_EQ(FileBytes(Path), Menu1);
}

TEST_F(MenuJournalTest, IsThereWhileSomethingIsUnsaved) {
    EXPECT_EQ(Names(), "menu.cfg");
    m_editor.AddPart("R", "a");
    EXPECT_EQ(Names(), "menu.cfg menu.cfg.unsaved");
    EXPECT_EQ(m_journal.Path(), Place);
    m_editor.Undo();
    EXPECT_EQ(Names(), "menu.cfg");
    EXPECT_EQ(m_journal.Path(), "");
    m_editor.Redo();
    EXPECT_EQ(Restored(Place), TreeText(*m_editor.OpenMenu()));
    m_editor.Save(Path);
    EXPECT_EQ(Names(), "menu.cfg menu.cfg.bak");
    m_editor.SetCaption("R", "b");
    EXPECT_EQ(Names(), "menu.cfg menu.cfg.bak menu.cfg.unsaved");
    m_editor.Close();
    EXPECT_EQ(Names(), "menu.cfg menu.cfg.bak");
}

TEST_F(MenuJournalTest, AConfirmedDialogWithoutAChangeNeedsNone) {
    m_editor.SetGraphic("R", "");
    EXPECT_TRUE(m_editor.IsDirty());
    EXPECT_EQ(Names(), "menu.cfg");
    // The saved state cannot be reached any more: the changes since then are counted.
    m_editor.SetCaption("R", "a");
    EXPECT_EQ(LastChanges(), 1u);
    m_editor.SetCaption("R", "b");
    EXPECT_EQ(LastChanges(), 2u);
    m_editor.SetGraphic("R", "");
    EXPECT_EQ(LastChanges(), 2u);
}

TEST_F(MenuJournalTest, CountsTheUnsavedChanges) {
    m_editor.SetCaption("R", "a");
    m_editor.SetCaption("R", "b");
    m_editor.SetCaption("R", "c");
    EXPECT_EQ(LastChanges(), 3u);
    m_editor.Undo();
    EXPECT_EQ(LastChanges(), 2u);
    const std::string id = m_editor.AddSubmenu("R", "d");
    EXPECT_EQ(LastChanges(), 3u);
    m_editor.NameAdded(id, "e");
    EXPECT_EQ(LastChanges(), 3u) << "adding and naming are one change";
    m_editor.Save(Path);
    m_editor.Undo();
    EXPECT_EQ(LastChanges(), 1u);
}

TEST_F(MenuJournalTest, AGroupThatIsRolledBackChangesNothing) {
    m_editor.SetCaption("R", "a");
    {
        const MenuEditor::Group group(m_editor, {Message::ChangeAdd, {"x"}}, 2);
        m_editor.AddPart("R", "x");
        m_editor.Remove("R.1");
    }
    EXPECT_EQ(Restored(Place), TreeText(*m_editor.OpenMenu()));
    m_editor.AddPart("R.1", "after it");
    EXPECT_EQ(Restored(Place), TreeText(*m_editor.OpenMenu()));
}

TEST_F(MenuJournalTest, FollowsIdsThatAReaderWouldCountAnew) {
    m_editor.MoveTo("R.3", "R", 1);
    m_editor.Remove("R.1.1");
    m_editor.MoveTo("R.2", "R.1", 1);
    m_editor.Save(Path);
    m_editor.SetCaption("R.1.3", "was R.2");
    m_editor.MoveDown("R.3");
    EXPECT_EQ(Restored(Place), TreeText(*m_editor.OpenMenu()));
    m_editor.Undo();
    m_editor.Undo();
    EXPECT_EQ(Names(), "menu.cfg menu.cfg.bak");
    m_editor.Undo();
    EXPECT_EQ(Restored(Place), TreeText(*m_editor.OpenMenu()));
}

TEST_F(MenuJournalTest, ADestroyedJournalStaysOnDisk) {
    std::string tree;
    {
        MenuEditor editor;
        MenuJournal journal(editor, m_options, m_files);
        Open(editor);
        editor.SetCaption("R", "left behind");
        tree = TreeText(*editor.OpenMenu());
    }
    EXPECT_EQ(Restored(Place), tree);
}

TEST_F(MenuJournalTest, DiscardRemovesItAndALaterChangeIsRecordedWithAllBefore) {
    m_editor.SetCaption("R", "a");
    m_journal.Discard();
    EXPECT_EQ(Names(), "menu.cfg");
    m_editor.AddPart("R.2", "b");
    EXPECT_EQ(Restored(Place), TreeText(*m_editor.OpenMenu()));
    m_editor.MoveUp("R.2");
    EXPECT_EQ(Restored(Place), TreeText(*m_editor.OpenMenu()));
}

TEST_F(MenuJournalTest, ACopyToTheMenusOwnPlaceIsWhatTheChangesApplyTo) {
    m_editor.MoveTo("R.3", "R.1", 1);
    m_editor.SaveCopy(Path);
    EXPECT_EQ(Names(), "menu.cfg menu.cfg.bak") << "nothing is missing in the file";
    m_editor.SetCaption("R.1.3", "after the copy");
    EXPECT_EQ(Restored(Place), TreeText(*m_editor.OpenMenu()));
    m_editor.Undo();
    m_editor.Undo();
    EXPECT_FALSE(m_editor.IsDirty());
    EXPECT_EQ(Restored(Place), TreeText(*m_editor.OpenMenu())) << "the file contains the move";
    m_editor.Save(Path);
    EXPECT_EQ(Names(), "menu.cfg menu.cfg.bak");
}

TEST_F(MenuJournalTest, ACopyElsewhereChangesNothing) {
    m_editor.SetCaption("R", "a");
    m_editor.SaveCopy(Folder + "\\copy.cfg");
    EXPECT_EQ(Names(), "copy.cfg menu.cfg menu.cfg.unsaved");
    m_editor.SetCaption("R", "b");
    EXPECT_EQ(Restored(Place), TreeText(*m_editor.OpenMenu()));
}

TEST_F(MenuJournalTest, MovesWithAMenuThatIsSavedElsewhere) {
    m_editor.SetCaption("R", "a");
    const std::string other = Folder + "\\other.cfg";
    m_editor.Save(other);
    EXPECT_EQ(Names(), "menu.cfg other.cfg");
    m_editor.SetCaption("R", "b");
    EXPECT_EQ(Names(), "menu.cfg other.cfg other.cfg.unsaved");
}

TEST_F(MenuJournalTest, FlushesInTheBackgroundWhenSomethingWasWritten) {
    m_journal.Flush();
    EXPECT_EQ(m_background.size(), 0u) << "there is nothing to flush";
    m_editor.SetCaption("R", "a");
    m_journal.Flush();
    m_journal.Flush();
    EXPECT_EQ(m_background.size(), 1u) << "the first has not ended";
    RunBackground();
    m_journal.Flush();
    EXPECT_EQ(m_background.size(), 0u) << "nothing was written since";
    m_editor.SetCaption("R", "b");
    m_journal.Flush();
    EXPECT_EQ(m_background.size(), 1u);
}

TEST_F(MenuJournalTest, ASaveDuringAFlushRemovesTheJournalAfterIt) {
    m_editor.SetCaption("R", "a");
    m_journal.Flush();
    m_editor.Save(Path);
    EXPECT_EQ(Names(), "menu.cfg menu.cfg.bak menu.cfg.unsaved");
    const std::string bytes = JournalBytes(Place);
    EXPECT_TRUE(Journal::Read(bytes).isEnded);
    m_editor.SetCaption("R", "b");
    EXPECT_EQ(m_journal.Path(), Place + "-2");
    RunBackground();
    EXPECT_EQ(Names(), "menu.cfg menu.cfg.bak menu.cfg.unsaved-2");
    EXPECT_EQ(Restored(m_journal.Path()), TreeText(*m_editor.OpenMenu()));
}

TEST_F(MenuJournalTest, WorksWithoutThreads) {
    m_options.inBackground = [](const std::function<void()>&) { return false; };
    MenuEditor editor;
    MenuJournal journal(editor, m_options, m_files);
    Open(editor);
    editor.SetCaption("R", "a");
    journal.Flush();
    editor.SetCaption("R", "b");
    journal.Flush();
    EXPECT_EQ(Restored(journal.Path()), TreeText(*editor.OpenMenu()));
    editor.Save(Path);
    EXPECT_EQ(Names(), "menu.cfg menu.cfg.bak");
}

} // namespace
} // namespace nesk
