// Undo and Redo in the main window.

#include "gui/GuiFixture.h"

#include "gui/NextDialog.h"
#include "partedit/FormEditPart.h"
#include "shell/FormUndoHistory.h"
#include "widgets/UiUtilities.h"

#include <wx/button.h>
#include <wx/menu.h>

namespace nesk::testing {
namespace {

using modUtilities::FromWx;

class FormMainUndoTest : public MainWindowTest {
protected:
    void Open(const std::string& bytes = SmallMenu) {
        WriteMenu(bytes);
        OpenWindow();
        Press('O', wxMOD_CONTROL);
        ASSERT_TRUE(window->Editor().IsOpen());
    }

    void RenameSelected(const std::string& caption) {
        Press(WXK_F2);
        Type(caption);
        Press(WXK_RETURN);
    }

    static std::string LabelOf(const wxMenuItem* item) { return FromWx(item->GetItemLabelText()); }
};

TEST_F(FormMainUndoTest, NothingToUndoAtFirst) {
    Open();
    EXPECT_FALSE(window->mnuEditUndo->IsEnabled());
    EXPECT_FALSE(window->mnuEditRedo->IsEnabled());
    EXPECT_FALSE(window->mnuEditUndoHistory->IsEnabled());
    EXPECT_EQ(LabelOf(window->mnuEditUndo), "Undo");
    const std::string before = TreeText();
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), before);
}

TEST_F(FormMainUndoTest, TheKeysUndoAndRedoARename) {
    Open();
    Select("R.1");
    RenameSelected("Cover & <lid>");
    EXPECT_EQ(Row("R.1").Text(), "Cover & <lid>");
    EXPECT_EQ(LabelOf(window->mnuEditUndo), "Undo rename of \"First\"");
    const wxString dirty = window->GetTitle();
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(Row("R.1").Text(), "First");
    EXPECT_NE(window->GetTitle(), dirty) << "the menu is as it was opened";
    EXPECT_FALSE(window->mnuEditUndo->IsEnabled());
    EXPECT_EQ(LabelOf(window->mnuEditRedo), "Redo rename of \"First\"");
    Press('Y', wxMOD_CONTROL);
    EXPECT_EQ(Row("R.1").Text(), "Cover & <lid>");
    Press('Z', wxMOD_CONTROL);
    Press('Z', wxMOD_CONTROL | wxMOD_SHIFT);
    EXPECT_EQ(Row("R.1").Text(), "Cover & <lid>");
    EXPECT_EQ(window->GetTitle(), dirty);
    // A second rename names a caption with a mark of an access key.
    RenameSelected("x");
    EXPECT_EQ(LabelOf(window->mnuEditUndo), "Undo rename of \"Cover & <lid>\"");
}

TEST_F(FormMainUndoTest, SavingKeepsTheHistoryAndMarksTheState) {
    Open();
    const wxString clean = window->GetTitle();
    Select("R.1");
    RenameSelected("Cover");
    Press('S', wxMOD_CONTROL);
    EXPECT_EQ(window->GetTitle(), clean);
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(Row("R.1").Text(), "First");
    EXPECT_NE(window->GetTitle(), clean) << "the file has the new name";
    Press('Y', wxMOD_CONTROL);
    EXPECT_EQ(window->GetTitle(), clean);
}

TEST_F(FormMainUndoTest, WhileACaptionIsTypedTheKeysBelongToTheText) {
    Open();
    Select("R.1");
    RenameSelected("Cover");
    Press(WXK_F2);
    ASSERT_NE(Tree().Edited(), nullptr);
    Type("Lid");
    Press('Z', wxMOD_CONTROL);
    Press('Y', wxMOD_CONTROL);
    EXPECT_EQ(window->Editor().History().UndoNames().size(), 1u) << "the rename before stays done";
    EXPECT_NE(Tree().Edited(), nullptr);
    Press(WXK_ESCAPE);
    EXPECT_TRUE(window->mnuEditUndo->IsEnabled());
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(Row("R.1").Text(), "First");
}

TEST_F(FormMainUndoTest, ARemovedSubmenuComesBackExpandedAndSelected) {
    Open();
    Tree().Expand(Row("R.2"));
    Select("R.2");
    const std::string before = TreeText();
    dialogs.Answer(wxID_YES);
    Press(WXK_DELETE);
    EXPECT_NE(TreeText(), before);
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.3");
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), before);
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.2");
    EXPECT_TRUE(Row("R.2").IsExpanded());
    Press('Y', wxMOD_CONTROL);
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.3");
    // A collapsed one stays collapsed.
    Press('Z', wxMOD_CONTROL);
    Tree().Collapse(Row("R.2"));
    dialogs.Answer(wxID_YES);
    Press(WXK_DELETE);
    Press('Z', wxMOD_CONTROL);
    EXPECT_FALSE(Row("R.2").IsExpanded());
    // So does one that was expanded only after the change.
    Press(WXK_UP, wxMOD_CONTROL);
    Tree().Expand(Row("R.2"));
    Press('Z', wxMOD_CONTROL);
    EXPECT_FALSE(Row("R.2").IsExpanded());
}

TEST_F(FormMainUndoTest, AddingAndNamingAreOneStep) {
    Open();
    const std::string before = TreeText();
    Select("R");
    Press('N', wxMOD_CONTROL);
    Type("Lid");
    Press(WXK_RETURN);
    EXPECT_EQ(LabelOf(window->mnuEditUndo), "Undo adding of \"Lid\"");
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), before);
    EXPECT_FALSE(window->mnuEditUndo->IsEnabled());
    Select("R.1");
    Press('Y', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), before + " Lid\n");
    EXPECT_EQ(window->tvMain->View().Selected()->Text(), "Lid");
    // A later name is a step of its own.
    RenameSelected("Cap");
    EXPECT_EQ(LabelOf(window->mnuEditUndo), "Undo rename of \"Lid\"");
}

TEST_F(FormMainUndoTest, ADialogConfirmedWithoutAChangeIsNoStep) {
    Open();
    const wxString clean = window->GetTitle();
    Select("R.1");
    RenameSelected("Cover");
    Press('Z', wxMOD_CONTROL);
    dialogs.Answer(wxID_NONE); // shows it
    const NextDialog<FormEditPart> part([](FormEditPart& dialog) { Click(dialog.cmdOK); });
    ASSERT_TRUE(Click(window->mnuMenuEdit));
    EXPECT_NE(window->GetTitle(), clean) << "confirming makes the menu dirty";
    EXPECT_FALSE(window->mnuEditUndo->IsEnabled());
    Press('Y', wxMOD_CONTROL);
    EXPECT_EQ(Row("R.1").Text(), "Cover") << "what was undone can still be redone";
}

TEST_F(FormMainUndoTest, AnEntryWithoutANameOfItsOwnCanBeTakenBack) {
    Open();
    const std::string before = TreeText();
    Select("R");
    Press('N', wxMOD_CONTROL);
    Press(WXK_ESCAPE);
    EXPECT_EQ(LabelOf(window->mnuEditUndo), "Undo adding of \"New part\"");
    RenameSelected("Lid");
    EXPECT_EQ(LabelOf(window->mnuEditUndo), "Undo rename of \"New part\"");
    Press('Z', wxMOD_CONTROL);
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), before);
}

TEST_F(FormMainUndoTest, AMovedSubmenuKeepsWhatIsExpanded) {
    Open("BLOCK MENU\r\nBLOCK SUBMENU\r\nCAPTION=a\r\nBLOCK SUBMENU\r\nCAPTION=a1\r\nEND\r\nEND\r\n"
         "BLOCK SUBMENU\r\nCAPTION=b\r\nBLOCK SUBMENU\r\nCAPTION=b1\r\nBLOCK SUBMENU\r\nCAPTION=b11\r\n"
         "END\r\nEND\r\nEND\r\nEND\r\n");
    Tree().ExpandBelow(Row("R.2"));
    Select("R.2");
    Press(WXK_RIGHT, wxMOD_CONTROL); // the rows of the target do not exist yet
    const std::string id = window->tvMain->SelectedKey();
    EXPECT_TRUE(id.starts_with("R.1."));
    EXPECT_TRUE(Row(id).IsExpanded());
    EXPECT_TRUE(Row(id + ".1").IsExpanded());
    Press('Z', wxMOD_CONTROL);
    EXPECT_TRUE(Row("R.2.1").IsExpanded());
    EXPECT_FALSE(Row("R.1").IsExpanded()) << "as before the move";
    Press('Y', wxMOD_CONTROL);
    EXPECT_TRUE(Row(id + ".1").IsExpanded());
}

TEST_F(FormMainUndoTest, TheSelectionComesBackThatWasThereBeforeTheChange) {
    Open();
    Select("R.3");
    Press(WXK_UP, wxMOD_CONTROL);
    Select("R.1");
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.3");
    Select("R.1");
    Press('Y', wxMOD_CONTROL);
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.3") << "Redo selects what it changed";
}

TEST_F(FormMainUndoTest, TheScrollPositionComesBack) {
    std::string children;
    for (int i = 1; i <= 300; ++i)
        children += "\tBLOCK SUBMENU\r\n\t\tCAPTION=part " + std::to_string(i) + "\r\n\tEND\r\n";
    Open("BLOCK MENU\r\n" + children + "END\r\n");
    Select("R.150");
    ASSERT_TRUE(WaitUntil([&] { return !Tree().RowRect(Row("R.150")).IsEmpty(); }));
    Tree().SetScrollPosition({&Row("R.148"), 0});
    ASSERT_TRUE(WaitUntil([&] { return Tree().ScrollPosition().top == &Row("R.148"); }));
    RenameSelected("changed");
    const platform::TreeView::Scroll before = Tree().ScrollPosition();
    Select("R.1");
    ASSERT_TRUE(WaitUntil([&] { return !Tree().RowRect(Row("R.1")).IsEmpty(); }));
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.150");
    EXPECT_TRUE(WaitUntil([&] {
        const platform::TreeView::Scroll now = Tree().ScrollPosition();
        return now.top == before.top && now.offset == before.offset;
    })) << Tree().ScrollPosition().top->Text()
        << " at the top, not " << before.top->Text();
}

TEST_F(FormMainUndoTest, SeveralStepsAtOnceFromTheHistory) {
    Open();
    Select("R.1");
    RenameSelected("one");
    RenameSelected("two");
    RenameSelected("three");
    dialogs.Answer(wxID_CANCEL);
    ASSERT_TRUE(Click(window->mnuEditUndoHistory));
    EXPECT_EQ(Row("R.1").Text(), "three") << "cancelled";
    dialogs.Answer(wxID_NONE); // shows it
    const NextDialog<FormUndoHistory> choice([](FormUndoHistory& dialog) {
        Press(WXK_DOWN);
        Click(dialog.cmdOK);
    });
    ASSERT_TRUE(Click(window->mnuEditUndoHistory));
    EXPECT_EQ(Row("R.1").Text(), "one");
}

TEST_F(FormMainUndoTest, ControlLeftAndRightChangeTheLevel) {
    Open();
    const std::string before = TreeText();
    Select("R.3");
    Press(WXK_RIGHT, wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n  Last\n");
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.2.2");
    EXPECT_TRUE(Row("R.2").IsExpanded());
    EXPECT_FALSE(window->mnuMenuMoveIn->IsEnabled()) << "after a part";
    Press(WXK_LEFT, wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), before);
    Press(WXK_LEFT, wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), before) << "the top level";
    Press('Z', wxMOD_CONTROL);
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), before);
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.3");
}

} // namespace
} // namespace nesk::testing
