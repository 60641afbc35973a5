// Random edits: after each, the journal leads to the open menu.

#include "unit/journal/JournalFixture.h"
#include "unit/journal/RandomEdits.h"
#include "unit/menu/QuickFiles.h"

namespace nesk {
namespace {

using nesk::testing::JournalTest;
using nesk::testing::QuickFiles;
using nesk::testing::RandomEdits;
using nesk::testing::TreeText;
using nesk::testing::TreeTextWithoutIds;

class JournalEditsTest : public JournalTest {
protected:
    // @param saveEvery  one edit in so many is followed by a save
    void RunSequence(unsigned seed, int edits, std::size_t saveEvery) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        station.Write(Path, Menu1);
        QuickFiles files;
        MenuEditor editor(files);
        MenuJournal journal(editor, m_options, m_files);
        Open(editor);
        RandomEdits random(editor, seed);
        for (int i = 0; i < edits && !HasFailure(); ++i) {
            random.Make();
            if (!journal.Path().empty()) {
                ++m_compared;
                ASSERT_EQ(Restored(journal.Path()), TreeText(*editor.OpenMenu())) << "edit " << i;
            } else {
                ASSERT_EQ(TreeTextWithoutIds(*ReadMenuQuietly(Path, Folder).menu),
                          TreeTextWithoutIds(*editor.OpenMenu()))
                    << "without a journal, the file has it all; edit " << i;
            }
            if (random.Below(saveEvery) == 0) editor.Save(Path);
        }
        editor.Close();
    }

    int m_compared = 0;
};

TEST_F(JournalEditsTest, LeadToTheOpenMenu) {
    for (unsigned seed = 1; seed <= 40 && !HasFailure(); ++seed)
        RunSequence(seed, 150, 1000000);
    EXPECT_GT(m_compared, 40 * 100);
}

TEST_F(JournalEditsTest, LeadToTheOpenMenuAfterSaves) {
    for (unsigned seed = 1001; seed <= 1060 && !HasFailure(); ++seed)
        RunSequence(seed, 150, 8);
    EXPECT_GT(m_compared, 60 * 80);
}

// The ids of an entry far down and of what is moved are as long as the tree is deep.
TEST_F(JournalEditsTest, OfAVeryDeepMenu) {
    constexpr int Depth = 100000;
    std::string file = "BLOCK MENU\r\n";
    for (int i = 0; i < Depth; ++i)
        file += "BLOCK SUBMENU\r\nMENUTYPE=Menu\r\n";
    for (int i = 0; i <= Depth; ++i)
        file += "END\r\n";
    station.Write(Path, file);
    MenuEditor editor;
    MenuJournal journal(editor, m_options, m_files);
    Open(editor);
    std::string last = editor.OpenMenu()->ID();
    for (int i = 0; i < Depth; ++i)
        last += ".1";
    editor.SetCaption(last, "last");
    editor.Remove("R.1");
    editor.Undo();
    FoundJournal found;
    found.path = journal.Path();
    const RestoredMenu restored =
        UnsavedChanges::RestoreInto(found, *ReadMenuQuietly(Path, Folder).menu, m_files);
    EXPECT_FALSE(restored.isDamaged);
    ASSERT_NE(restored.menu->Find(last), nullptr);
    EXPECT_EQ(restored.menu->Find(last)->Caption(), "last");
    EXPECT_EQ(restored.menu->CountBelow(), Depth);
}

} // namespace
} // namespace nesk
