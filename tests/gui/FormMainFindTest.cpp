#include "gui/GuiFixture.h"

#include "gui/TreeIcons.h"
#include "menu/MenuItem.h"
#include "shell/FormToolBar.h"

#include <algorithm>

#include <wx/bmpbuttn.h>
#include <wx/checkbox.h>
#include <wx/image.h>
#include <wx/menu.h>
#include <wx/srchctrl.h>
#include <wx/stattext.h>

namespace nesk::testing {
namespace {

// Finds entries with the keyboard, through real key events, and with the mouse.
class FormMainFindTest : public MainWindowTest {
protected:
    FormMainFindTest() {
        WriteMenu(SmallMenu);
        OpenWindow();
        Press('O', wxMOD_CONTROL);
    }

    wxWindow* Bar() const { return wxWindow::FindWindowByName("FormFindBar", window); }
    bool BarIsShown() const { return Bar() != nullptr && Bar()->IsShown(); }
    std::string Found() const { return TextOf(testing::Find(*window, "lblFound")); }
    wxSearchCtrl& Box() const { return dynamic_cast<wxSearchCtrl&>(*testing::Find(*window, "txtFind")); }
    std::string Selected() const { return window->tvMain->SelectedKey(); }
    bool IsMarked(const std::string& id) const { return Tree().on.isMarked(Row(id)); }
    bool TreeHasFocus() const { return window->tvMain->Window().HasFocus(); }

    // The captions of the rows that exist, indented by level.
    std::string Rows() const {
        std::string text;
        for (const platform::TreeNode* row = Tree().Root(); row != nullptr; row = row->NextRow()) {
            for (const platform::TreeNode* at = row->Parent(); at != nullptr; at = at->Parent())
                text += ' ';
            text += row->Text() + "\n";
        }
        return text;
    }
};

TEST_F(FormMainFindTest, TypingGoesToTheFirstMatchAndMarksAll) {
    EXPECT_FALSE(BarIsShown());
    Press('F', wxMOD_CONTROL);
    ASSERT_TRUE(BarIsShown());
    Type("A");
    EXPECT_TRUE(WaitUntil([&] { return Found() == "1 of 4"; })) << Found();
    EXPECT_EQ(Selected(), "R") << "the main menu contains the letter";
    Type("st");
    EXPECT_TRUE(WaitUntil([&] { return Found() == "1 of 1"; })) << Found();
    EXPECT_EQ(Selected(), "R.3");
    EXPECT_TRUE(IsMarked("R.3"));
    EXPECT_FALSE(IsMarked("R.1"));
    Type("x");
    EXPECT_TRUE(WaitUntil([&] { return Found() == "Nothing found"; })) << Found();
    EXPECT_FALSE(IsMarked("R.3"));
    Press(WXK_ESCAPE);
    EXPECT_FALSE(BarIsShown());
    EXPECT_TRUE(TreeHasFocus());
    EXPECT_FALSE(IsMarked("R.3"));
}

TEST_F(FormMainFindTest, GoesThroughTheMatchesByKeys) {
    Press('F', wxMOD_CONTROL);
    Type("an"); // in "Angle" alone, which the tree has not shown yet
    EXPECT_EQ(Selected(), "R.2.1");
    Press('F', wxMOD_CONTROL);
    Type("st"); // replaces the selected text
    EXPECT_EQ(Box().GetValue(), "st");
    EXPECT_EQ(Selected(), "R.3") << "the next one after the selected entry";
    Press(WXK_F3);
    EXPECT_EQ(Selected(), "R.1");
    EXPECT_EQ(Found(), "1 of 2");
    Press(WXK_RETURN);
    EXPECT_EQ(Selected(), "R.3");
    Press(WXK_RETURN, wxMOD_SHIFT);
    EXPECT_EQ(Selected(), "R.1");
    Press(WXK_F3, wxMOD_SHIFT);
    EXPECT_EQ(Selected(), "R.3");
    EXPECT_EQ(Found(), "2 of 2");
}

TEST_F(FormMainFindTest, TellsTheFieldThatIsNotToBeSeen) {
    window->Editor().SetGraphic("R.2", "D:\\Pictures\\shelf.bmp");
    Press('F', wxMOD_CONTROL);
    Type("shel");
    EXPECT_EQ(Selected(), "R.2");
    EXPECT_EQ(Found(), "1 of 1 - Picture: D:\\Pictures\\shelf.bmp");
}

TEST_F(FormMainFindTest, GoesThroughTheMatchesFromTheTree) {
    Press('F', wxMOD_CONTROL);
    Type("st");
    window->tvMain->Window().SetFocus();
    Press(WXK_F3);
    EXPECT_EQ(Selected(), "R.3");
    EXPECT_TRUE(TreeHasFocus());
    Press(WXK_ESCAPE);
    EXPECT_FALSE(BarIsShown());
    EXPECT_EQ(Selected(), "R.3");
    Press(WXK_F3);
    EXPECT_TRUE(BarIsShown()) << "there is no text to find, so it is asked for";
}

TEST_F(FormMainFindTest, GoesThroughTheMatchesByMouse) {
    Click(window->mnuEditFind);
    Type("st");
    EXPECT_EQ(Selected(), "R.1");
    Click(*window, "cmdNext");
    EXPECT_EQ(Selected(), "R.3");
    Click(*window, "cmdPrevious");
    EXPECT_EQ(Selected(), "R.1");
    Click(*window, "cmdClose");
    EXPECT_FALSE(BarIsShown());
}

TEST_F(FormMainFindTest, KeysThatEditTextReachTheBox) {
    Press(WXK_DOWN);
    Press('F', wxMOD_CONTROL);
    Type("xst");
    Press(WXK_HOME);
    Press(WXK_DELETE);
    EXPECT_EQ(Box().GetValue(), "st");
    Press(WXK_END);
    Press(WXK_BACK);
    EXPECT_EQ(Box().GetValue(), "s");
    Press('A', wxMOD_CONTROL);
    Press('X', wxMOD_CONTROL);
    EXPECT_EQ(Box().GetValue(), "");
    Press('V', wxMOD_CONTROL);
    EXPECT_EQ(Box().GetValue(), "s");
    Type("t e");
    EXPECT_EQ(Box().GetValue(), "st e") << "a blank is a letter like others";
    for (const int key : {WXK_LEFT, WXK_RIGHT, WXK_UP, WXK_DOWN, WXK_DELETE, WXK_BACK})
        Press(key, wxMOD_CONTROL);
    Press(WXK_F2);
    Press('Z', wxMOD_CONTROL);
    Press('Y', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n Last\n");
    EXPECT_FALSE(window->Editor().IsDirty());
    EXPECT_EQ(Tree().Edited(), nullptr);
}

TEST_F(FormMainFindTest, WhatAShorterTextExpandedClosesAgain) {
    Press('F', wxMOD_CONTROL);
    Type("an"); // in "Angle"
    EXPECT_TRUE(Row("R.2").IsExpanded());
    Type("x");
    EXPECT_FALSE(Row("R.2").IsExpanded());
    EXPECT_EQ(Selected(), "R") << "where it began";
    Press(WXK_BACK);
    EXPECT_EQ(Selected(), "R.2.1");
    Press(WXK_ESCAPE);
    EXPECT_EQ(Selected(), "R.2.1");
    EXPECT_TRUE(Row("R.2").IsExpanded());
}

TEST_F(FormMainFindTest, AClickIntoTheBoxOfTheToolBarBegins) {
    Press(WXK_DOWN);
    const wxRect bar = window->tbMain->GetScreenRect(); // GTK does not know where in it the box is
    ClickPoint(wxPoint(bar.GetRight() - window->FromDIP(40), bar.y + bar.height / 2));
    Press(WXK_DELETE); // must not remove the selected entry
    EXPECT_TRUE(BarIsShown());
    Type("last");
    EXPECT_EQ(Selected(), "R.3");
    Press(WXK_ESCAPE);
    EXPECT_TRUE(TreeHasFocus());
    EXPECT_EQ(Box().GetValue(), "");
    EXPECT_EQ(window->Editor().OpenMenu()->ChildCount(), 3);
}

TEST_F(FormMainFindTest, WithoutAToolBarTheFindBarHasTheBox) {
    ASSERT_TRUE(Click(window->mnuViewToolBar));
    Press('F', wxMOD_CONTROL);
    const wxWindow* own = testing::Find(*window, "txtFindHere");
    EXPECT_TRUE(own->IsShownOnScreen());
    Type("last");
    EXPECT_EQ(Selected(), "R.3");
    ASSERT_TRUE(Click(window->mnuViewToolBar));
    Press('F', wxMOD_CONTROL);
    EXPECT_FALSE(own->IsShownOnScreen()) << "the tool bar has it again";
    EXPECT_EQ(Box().GetValue(), "last");
}

TEST_F(FormMainFindTest, AToolBarWithoutRoomLeavesTheBoxToTheFindBar) {
    window->SetSize(window->FromDIP(wxSize(360, 400)));
    ASSERT_TRUE(WaitUntil([&] { return window->GetSize().x == window->FromDIP(360); }));
    Press('F', wxMOD_CONTROL);
    EXPECT_TRUE(testing::Find(*window, "txtFindHere")->IsShownOnScreen());
}

TEST_F(FormMainFindTest, OtherControlsOfTheBarChangeNoEntry) {
    Press(WXK_DOWN);
    Press('F', wxMOD_CONTROL);
    Focus(testing::Find(*window, "chkMatchesOnly"));
    Press(WXK_DELETE);
    Press(WXK_F2);
    EXPECT_EQ(Tree().Edited(), nullptr);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n Last\n");
}

TEST_F(FormMainFindTest, TheFilterShowsMatchesAndTheirSubmenus) {
    Press('F', wxMOD_CONTROL);
    Type("an");
    Press('F', wxMOD_CONTROL | wxMOD_SHIFT);
    EXPECT_EQ(Rows(), "Main Menu\n Brackets\n  Angle\n");
    EXPECT_EQ(Selected(), "R.2.1");
    EXPECT_TRUE(TreeHasFocus());
    Press('F', wxMOD_CONTROL);
    Type("st");
    EXPECT_EQ(Rows(), "Main Menu\n First\n Last\n");
    Type("x");
    EXPECT_EQ(Rows(), "Main Menu\n");
    Press(WXK_BACK);
    EXPECT_EQ(Rows(), "Main Menu\n First\n Last\n");
    Press('F', wxMOD_CONTROL | wxMOD_SHIFT);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n Last\n");
    EXPECT_TRUE(BarIsShown());
    Press('F', wxMOD_CONTROL | wxMOD_SHIFT);
    Press(WXK_ESCAPE);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n Last\n");
    EXPECT_FALSE(BarIsShown());
}

TEST_F(FormMainFindTest, TheFilterByMouseKeepsWhatWasExpanded) {
    Tree().Expand(Row("R.2"));
    const std::string before = Rows();
    Click(window->mnuEditFind);
    Type("st");
    Click(*window, "chkMatchesOnly");
    EXPECT_EQ(Rows(), "Main Menu\n First\n Last\n");
    Click(*window, "chkMatchesOnly");
    EXPECT_EQ(Rows(), before);
}

TEST_F(FormMainFindTest, AFilteredTreeFollowsEdits) {
    Press('F', wxMOD_CONTROL);
    Type("st");
    Press('F', wxMOD_CONTROL | wxMOD_SHIFT);
    MenuEditor& editor = window->Editor();
    editor.AddPart("R", "Lid");
    EXPECT_EQ(Rows(), "Main Menu\n First\n Last\n Lid\n") << "an entry that was added stays shown";
    editor.MoveUp("R.4");
    EXPECT_EQ(Rows(), "Main Menu\n First\n Lid\n Last\n");
    editor.MoveUp("R.4"); // before the submenu that is not shown
    EXPECT_EQ(Rows(), "Main Menu\n First\n Lid\n Last\n");
    editor.MoveUp("R.4");
    EXPECT_EQ(Rows(), "Main Menu\n Lid\n First\n Last\n");
    editor.SetCaption("R.1", "Other");
    EXPECT_EQ(Rows(), "Main Menu\n Lid\n Other\n Last\n");
    editor.Remove("R.3");
    EXPECT_EQ(Rows(), "Main Menu\n Lid\n Other\n");
    editor.Undo();
    EXPECT_EQ(Rows(), "Main Menu\n Lid\n Other\n Last\n");
    editor.MoveTo("R.4", "R.2", 0); // into the submenu that is not shown
    EXPECT_EQ(Rows(), "Main Menu\n Brackets\n  Lid\n Last\n") << "built again";
    while (editor.History().ToUndo() != nullptr)
        editor.Undo();
    Press(WXK_ESCAPE);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n Last\n");
}

TEST_F(FormMainFindTest, AnEntryThatIsRenamedIsNoLongerFound) {
    Press('F', wxMOD_CONTROL);
    Type("st");
    EXPECT_EQ(Found(), "1 of 2");
    window->Editor().SetCaption("R.1", "Other");
    EXPECT_TRUE(WaitUntil([&] { return Found() == "1 found"; })) << Found();
    EXPECT_FALSE(IsMarked("R.1"));
    window->Editor().Undo();
    EXPECT_TRUE(WaitUntil([&] { return Found() == "1 of 2"; })) << Found();
}

TEST_F(FormMainFindTest, NamesOfPartsAreFoundInIdleTime) {
    station.Write("C:\\Parts\\A\\partinfo.ini", "[Part]\r\nName=Crankshaft\r\n");
    PartFields fields;
    fields.programId = "@C:\\Parts\\A\\partinfo.ini@";
    window->Editor().SetPart("R.3", fields);
    Press('F', wxMOD_CONTROL);
    Type("crank");
    EXPECT_TRUE(WaitUntil([&] { return Found() == "1 of 1 - Part name: Crankshaft"; })) << Found();
    EXPECT_EQ(Selected(), "R.3");
    EXPECT_TRUE(IsMarked("R.3"));
}

TEST_F(FormMainFindTest, AFoundRowLooksDifferent) {
    // Yellow: blue is much less than the other colours.
    const auto yellowPixels = [&](const std::string& id) {
        const wxImage drawn = Drawn(Tree().Window());
        const wxRect row = Tree().RowRect(Row(id));
        int count = 0;
        for (int y = row.y; y < std::min(row.GetBottom(), drawn.GetHeight()); ++y)
            for (int x = std::max(row.x, 0); x < std::min(row.GetRight(), drawn.GetWidth()); ++x)
                if (drawn.GetRed(x, y) > 200 && drawn.GetGreen(x, y) > 180 && drawn.GetBlue(x, y) < 180)
                    ++count;
        return count;
    };
    constexpr int Many = 120; // a short text on Windows, which colours only the text of a row
    const int before = yellowPixels("R.3"), other = yellowPixels("R.2");
    Press('F', wxMOD_CONTROL);
    Type("st"); // selects the first of two
    EXPECT_TRUE(WaitUntil([&] { return yellowPixels("R.3") > before + Many; }));
    EXPECT_LT(yellowPixels("R.2"), other + Many);
    Press(WXK_ESCAPE);
    EXPECT_TRUE(WaitUntil([&] { return yellowPixels("R.3") < before + Many; }));
}

TEST_F(FormMainFindTest, ClosingTheMenuEndsIt) {
    Press('F', wxMOD_CONTROL);
    Type("st");
    Press('F', wxMOD_CONTROL | wxMOD_SHIFT);
    Press('W', wxMOD_CONTROL);
    EXPECT_FALSE(BarIsShown());
    EXPECT_FALSE(window->mnuEditFind->IsEnabled());
    Press('O', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n Last\n");
    EXPECT_FALSE(BarIsShown());
}

TEST_F(FormMainFindTest, FindEndsTheCaptionBeingTyped) {
    Press(WXK_DOWN);
    Press(WXK_F2);
    Type("Housing");
    Press('F', wxMOD_CONTROL);
    EXPECT_EQ(window->Editor().Find("R.1")->Caption(), "Housing");
    Type("hous");
    EXPECT_EQ(Box().GetValue(), "hous");
    EXPECT_EQ(Found(), "1 of 1");
}

} // namespace
} // namespace nesk::testing
