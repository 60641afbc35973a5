// Several entries at once in the main window: selection, moving, sorting, removing, editing.

#include "gui/GuiFixture.h"

#include "gui/NextDialog.h"
#include "menu/MenuItem.h"
#include "partedit/FormEditParts.h"
#include "shell/FormMoveTo.h"
#include "widgets/FormPicture.h"
#include "widgets/UiUtilities.h"

#include <algorithm>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/menu.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

class FormMainEntriesTest : public MainWindowTest {
protected:
    FormMainEntriesTest() {
        WriteMenu(SmallMenu);
        OpenWindow();
        Press('O', wxMOD_CONTROL);
        Tree().Expand(Row("R.2"));
        Settle();
    }

    const MenuItem& Item(const std::string& id) const {
        return dynamic_cast<const MenuItem&>(*window->Editor().Find(id));
    }

    const std::string Before = "Main Menu\n First\n Brackets\n  Angle\n Last\n";
};

TEST_F(FormMainEntriesTest, ShiftAndControlSelectSeveral) {
    Press(WXK_DOWN);
    Press(WXK_DOWN, wxMOD_SHIFT);
    EXPECT_EQ(SelectedText(), "First Brackets");
    Press(WXK_DOWN, wxMOD_SHIFT);
    EXPECT_EQ(SelectedText(), "First Brackets Angle");
    Press(WXK_UP, wxMOD_SHIFT);
    EXPECT_EQ(SelectedText(), "First Brackets");
    ClickRow("R.3", wxMOUSE_BTN_LEFT, WXK_CONTROL);
    EXPECT_EQ(SelectedText(), "First Brackets Last");
    ClickRow("R.1");
    ClickRow("R.2.1", wxMOUSE_BTN_LEFT, WXK_SHIFT);
    EXPECT_EQ(SelectedText(), "First Brackets Angle");
}

TEST_F(FormMainEntriesTest, SelectAllTakesTheSiblingsThenAllRows) {
    Select("R.2");
    Press('A', wxMOD_CONTROL);
    EXPECT_EQ(SelectedText(), "First Brackets Last");
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.2") << "the focus stays";
    Press('A', wxMOD_CONTROL);
    EXPECT_EQ(SelectedText(), "First Brackets Angle Last");
}

TEST_F(FormMainEntriesTest, SelectAllOnTheRootTakesAllBelowIt) {
    Select("R");
    Press('A', wxMOD_CONTROL);
    EXPECT_EQ(SelectedText(), "First Brackets Angle Last");
}

TEST_F(FormMainEntriesTest, SeveralEntriesAreRemovedAfterOneQuestion) {
    window->tvMain->SelectKeys({"R.1", "R.2", "R.2.1"});
    dialogs.Answer(wxID_YES);
    Press(WXK_DELETE);
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.shown.back().text,
              "Remove the 2 selected entries from the menu?\n\nEntries below them that are removed too: 1.");
    EXPECT_EQ(TreeText(), "Main Menu\n Last\n");
    EXPECT_EQ(SelectedText(), "Last") << "the entry after them";
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), Before);
    EXPECT_EQ(SelectedText(), "First Brackets Angle");
    EXPECT_FALSE(window->Editor().IsDirty());
}

TEST_F(FormMainEntriesTest, NoKeepsAllEntries) {
    window->tvMain->SelectKeys({"R.1", "R.3"});
    dialogs.Answer(wxID_NO);
    Press(WXK_DELETE);
    EXPECT_EQ(dialogs.shown.back().text, "Remove the 2 selected entries from the menu?");
    EXPECT_EQ(TreeText(), Before);
    EXPECT_EQ(SelectedText(), "First Last");
}

TEST_F(FormMainEntriesTest, ABlockMovesUpAndStaysSelected) {
    window->tvMain->SelectKeys({"R.2", "R.3"});
    Press(WXK_UP, wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), "Main Menu\n Brackets\n  Angle\n Last\n First\n");
    EXPECT_EQ(SelectedText(), "Brackets Last");
    Press(WXK_UP, wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), "Main Menu\n Brackets\n  Angle\n Last\n First\n") << "it is at the top";
    Press(WXK_DOWN, wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), Before);
}

TEST_F(FormMainEntriesTest, EntriesMoveIntoAndOutOfASubmenu) {
    window->tvMain->SelectKeys({"R.1", "R.3"});
    Press(WXK_RIGHT, wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), Before) << "there is no submenu before the first";
    Select("R.3");
    Press(WXK_RIGHT, wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n  Last\n");
    window->tvMain->SelectKeys({"R.2.1", "R.2.2"});
    Press(WXK_LEFT, wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n Angle\n Last\n");
    EXPECT_EQ(SelectedText(), "Angle Last");
}

TEST_F(FormMainEntriesTest, MoveToOffersTheSubmenus) {
    window->tvMain->SelectKeys({"R.1", "R.3"});
    const NextDialog<FormMoveTo> choice([](FormMoveTo& dialog) {
        const platform::TreeNode& root = *dialog.tvSubmenus->Root();
        ASSERT_EQ(root.ChildCount(), 1u) << "part buttons are left out";
        EXPECT_EQ(dialog.tvSubmenus->Selected(), &root) << "where the entries are now";
        Type("br");
        EXPECT_EQ(dialog.tvSubmenus->Selected()->Text(), "Brackets");
        Press(WXK_RETURN);
    });
    dialogs.Answer(wxID_NONE);
    Press('M', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), "Main Menu\n Brackets\n  Angle\n  First\n  Last\n");
    EXPECT_EQ(SelectedText(), "First Last");
}

TEST_F(FormMainEntriesTest, MoveToSaysWhyATargetIsRefused) {
    Select("R.2");
    const NextDialog<FormMoveTo> choice([](FormMoveTo& dialog) {
        dialog.tvSubmenus->Select(&dialog.tvSubmenus->Root()->Child(0));
        Click(dialog.cmdOK);
        std::string reason = TextOf(dialog.lblReason); // wrapped to the width of the dialog
        std::replace(reason.begin(), reason.end(), '\n', ' ');
        EXPECT_EQ(reason, "\"Brackets\" cannot be moved into itself or into one of its own submenus.");
        Press(WXK_ESCAPE);
    });
    dialogs.Answer(wxID_NONE);
    Press('M', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), Before);
    EXPECT_FALSE(window->Editor().IsDirty());
}

TEST_F(FormMainEntriesTest, SortsTheSelectedSubmenu) {
    Select("R");
    EXPECT_TRUE(Click(window->mnuMenuSortSubmenusFirst));
    EXPECT_EQ(TreeText(), Before.substr(0, 10) + " Brackets\n  Angle\n First\n Last\n");
    EXPECT_EQ(SelectedText(), "Main Menu");
    EXPECT_TRUE(Row("R.2").IsExpanded());
    window->Editor().SetCaption("R.2", "Gears");
    EXPECT_TRUE(Click(window->mnuMenuSortMixed));
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Gears\n  Angle\n Last\n");
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), "Main Menu\n Gears\n  Angle\n First\n Last\n");
    Select("R.1");
    EXPECT_TRUE(Click(window->mnuMenuSortMixed)) << "of a part button: its siblings";
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Gears\n  Angle\n Last\n");
    EXPECT_EQ(SelectedText(), "First");
    Select("R.2");
    EXPECT_FALSE(window->mnuMenuSortMixed->IsEnabled()) << "a submenu with one entry";
}

TEST_F(FormMainEntriesTest, AHundredEntriesAreRemovedAndBroughtBack) {
    EntryIds ids;
    for (int i = 0; i < 150; ++i)
        ids.push_back(window->Editor().AddPart("R.2", "p" + std::to_string(i)));
    window->Editor().SetCaption("R.1", "Top");
    const std::string before = TreeText();
    window->tvMain->SelectKeys(ids);
    dialogs.Answer(wxID_YES);
    Press(WXK_DELETE);
    EXPECT_EQ(TreeText(), "Main Menu\n Top\n Brackets\n  Angle\n Last\n");
    EXPECT_EQ(SelectedText(), "Angle");
    EXPECT_TRUE(Row("R.2").IsExpanded());
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), before);
    EXPECT_EQ(Tree().Selection().size(), 150u);
    EXPECT_EQ(window->tvMain->SelectedKey(), ids.front());
    Press('Y', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), "Main Menu\n Top\n Brackets\n  Angle\n Last\n");
}

TEST_F(FormMainEntriesTest, ManyEntriesKeepTheirExpandedSubmenuWhereTheyGo) {
    EntryIds ids{"R.2"};
    for (int i = 0; i < 150; ++i)
        ids.push_back(window->Editor().AddPart("R", "p"));
    const std::string target = window->Editor().AddSubmenu("R", "Target");
    window->Editor().AddPart(target, "here before");
    Tree().Expand(Row(target));
    window->Editor().MoveTo(ids, target, 0);
    EXPECT_EQ(Row(target + ".2").Text(), "Brackets");
    EXPECT_TRUE(Row(target + ".2").IsExpanded());
}

TEST_F(FormMainEntriesTest, PartsGetTheSamePictureAndKeepTheirHistories) {
    window->Editor().SetPart("R.1", {"a.bmp", "", "", "", 0, "C:\\One", ""});
    window->Editor().SetPart("R.3", {"b.bmp", "", "", "", 0, "C:\\Two", ""});
    window->tvMain->SelectKeys({"R.1", "R.2", "R.3"});
    const NextDialog<FormEditParts> edit([](FormEditParts& dialog) {
        EXPECT_EQ(modUtilities::FromWx(dialog.GetTitle()), "Edit the Selected Parts (2)");
        EXPECT_EQ(TextOf(dialog.lblPicture), "Now: different values. They are kept unless you tick the box.");
        EXPECT_FALSE(dialog.cmdOK->IsEnabled()) << "nothing would change";
        EXPECT_FALSE(dialog.txtHistoryDir->IsEnabled());
        Click(dialog.chkPicture);
        EXPECT_FALSE(dialog.cmdOK->IsEnabled()) << "it would remove the pictures";
        dialog.picItemHost->SetPath("C:\\new.bmp");
        Click(dialog.cmdOK);
    });
    dialogs.Answer(wxID_NONE);
    Press(WXK_RETURN); // edits all of them, like Ctrl+E
    EXPECT_EQ(Item("R.1").Graphic(), "C:\\new.bmp");
    EXPECT_EQ(Item("R.3").Graphic(), "C:\\new.bmp");
    EXPECT_EQ(Item("R.3").HistoryDir(), "C:\\Two");
    EXPECT_EQ(Item("R.2").Graphic(), "");
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(Item("R.1").Graphic(), "a.bmp");
}

TEST_F(FormMainEntriesTest, ThePicturesOfAllPartsAreRemoved) {
    window->Editor().SetPart("R.1", {"a.bmp", "", "", "", 0, "", ""});
    window->Editor().SetPart("R.3", {"b.bmp", "", "", "", 0, "", ""});
    window->tvMain->SelectKeys({"R.1", "R.3"});
    const NextDialog<FormEditParts> edit([](FormEditParts& dialog) {
        Click(dialog.chkPicture);
        Click(dialog.cmdMenuDelete);
        EXPECT_EQ(TextOf(dialog.lblPicture), "The parts will have no picture.");
        Click(dialog.cmdOK);
    });
    dialogs.Answer(wxID_NONE);
    Press('E', wxMOD_CONTROL);
    EXPECT_EQ(Item("R.1").Graphic(), "");
    EXPECT_EQ(Item("R.3").Graphic(), "");
}

TEST_F(FormMainEntriesTest, AHistoryFolderForAllPartsMustExist) {
    station.Write("C:\\Histories\\readme.txt", "");
    window->Editor().SetPart("R.1", {"", "", "", "", 0, "C:\\Same", ""});
    window->Editor().SetPart("R.3", {"", "", "", "", 0, "C:\\Same", ""});
    window->tvMain->SelectKeys({"R.1", "R.3"});
    const NextDialog<FormEditParts> edit([](FormEditParts& dialog) {
        EXPECT_EQ(TextOf(dialog.lblHistory), "Now: C:\\Same");
        EXPECT_EQ(TextOf(dialog.lblPicture), "Now: none");
        Click(dialog.chkHistory);
        Fill(dialog.txtHistoryDir, "C:\\None");
        Click(dialog.cmdOK);
        EXPECT_EQ(TextOf(dialog.lblReason), "The folder C:\\None does not exist.");
        Fill(dialog.txtHistoryDir, "C:\\Histories");
        Click(dialog.cmdOK);
    });
    dialogs.Answer(wxID_NONE);
    Press('E', wxMOD_CONTROL);
    EXPECT_EQ(Item("R.1").HistoryDir(), "C:\\Histories");
    EXPECT_EQ(Item("R.3").HistoryDir(), "C:\\Histories");
}

TEST_F(FormMainEntriesTest, TheContextMenuKeepsTheSelectionThatWasClicked) {
    window->tvMain->SelectKeys({"R.1", "R.3"});
    std::string selected;
    Tree().on.contextMenu = [&](platform::TreeNode*, wxPoint) { selected = SelectedText(); };
    ClickRow("R.3", wxMOUSE_BTN_RIGHT);
    EXPECT_EQ(selected, "First Last");
    ClickRow("R.2", wxMOUSE_BTN_RIGHT);
    EXPECT_EQ(selected, "Brackets");
}

} // namespace
} // namespace nesk::testing
