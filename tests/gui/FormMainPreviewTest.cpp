// The preview in the main window.

#include "shell/FormDetails.h"
#include "shell/FormPreview.h"

#include "gui/GuiFixture.h"
#include "gui/MouseDrag.h"
#include "menu/MenuItem.h"
#include "shell/FormPanes.h"
#include "shell/FormStatusBar.h"
#include "widgets/UiUtilities.h"

#include <wx/menu.h>
#include <wx/tglbtn.h>

namespace nesk::testing {
namespace {

using platform::TreeDrop;
using platform::TreeNode;
using platform::TreeView;

// SmallMenu: part R.1 First, submenu R.2 Brackets (part R.2.1 Angle), part R.3 Last
class FormMainPreviewTest : public MainWindowTest {
protected:
    void Open() {
        WriteMenu(SmallMenu);
        OpenWindow();
        window->SetSize(0, 0, 900, 640);
        Press('O', wxMOD_CONTROL);
        Press(WXK_F8);
        Tree().Expand(Row("R.2"));
        Settle();
    }

    FormPreview& Preview() const { return *window->pnPreview; }
    FormButtonGrid& Grid() const { return *Preview().grdButtons; }
    bool IsPreviewShown() const { return window->pnPreview != nullptr && Preview().IsShownOnScreen(); }

    wxPoint MiddleOfButton(int button, double part = 0.5) const {
        const wxRect rect = Grid().ButtonRect(button);
        return Grid().ClientToScreen(
            wxPoint(rect.x + static_cast<int>(rect.width * part), rect.y + rect.height / 2));
    }
    void ClickButton(int button, int key = 0) { ClickPoint(MiddleOfButton(button), wxMOUSE_BTN_LEFT, key); }

    void DragButton(int button, wxPoint to, const std::function<void()>& held = nullptr, int key = 0) {
        DragMouse(MiddleOfButton(button), to, key, held, [this] { return Grid().Dragged().empty(); });
        Settle();
    }
    void DragRow(const std::string& id, wxPoint to, const std::function<void()>& held = nullptr,
                 int key = 0) {
        DragMouse(MiddleOf(id), to, key, held, [this] { return Tree().Dragged().empty(); });
        Settle();
    }

    std::string Hint() const {
        return modUtilities::FromWx(window->sbMain->GetStatusText(FormStatusBar::HelpPanel));
    }

    std::size_t Steps() const { return window->Editor().History().UndoNames().size(); }

    const std::string Before = "Main Menu\n First\n Brackets\n  Angle\n Last\n";
};

TEST_F(FormMainPreviewTest, TheCommandShowsAndHidesIt) {
    WriteMenu(SmallMenu);
    OpenWindow();
    EXPECT_FALSE(window->mnuViewPreview->IsEnabled());
    Press(WXK_F8);
    EXPECT_EQ(window->pnPreview, nullptr) << "there is nothing to show";
    Press('O', wxMOD_CONTROL);
    EXPECT_FALSE(window->mnuViewPreview->IsChecked());
    Press(WXK_F8);
    EXPECT_TRUE(IsPreviewShown());
    EXPECT_TRUE(window->mnuViewPreview->IsChecked());
    EXPECT_TRUE(Tree().Window().HasFocus()) << "the tree keeps the focus";
    EXPECT_EQ(Preview().Place().Id(), "R");
    Focus(&Grid());
    Press(WXK_F8);
    EXPECT_FALSE(IsPreviewShown());
    EXPECT_FALSE(window->mnuViewPreview->IsChecked());
    EXPECT_TRUE(Tree().Window().HasFocus());
    Select("R.2.1");
    Press(WXK_F8);
    EXPECT_EQ(Preview().Place().Id(), "R.2") << "what was selected meanwhile";
}

TEST_F(FormMainPreviewTest, ItComesBackInTheNextRun) {
    Open();
    Preview().SetScreenChoice(1);
    window->Close();
    Settle();
    window = nullptr;
    OpenWindow();
    Press('O', wxMOD_CONTROL);
    ASSERT_TRUE(IsPreviewShown());
    EXPECT_EQ(Preview().ScreenChoice(), 1);
    EXPECT_EQ(Grid().Screen(), (ScreenSize{800, 600}));
}

TEST_F(FormMainPreviewTest, TreeAndButtonsSelectTheSame) {
    Open();
    ClickButton(2);
    EXPECT_EQ(SelectedText(), "Last");
    ClickButton(1);
    EXPECT_EQ(SelectedText(), "Brackets");
    EXPECT_EQ(Preview().Place().Id(), "R") << "it is only selected";
    ClickButton(0, WXK_CONTROL);
    EXPECT_EQ(SelectedText(), "First Brackets");
    ClickRow("R.2.1");
    EXPECT_TRUE(WaitUntil([&] { return Preview().Place().Id() == "R.2"; }));
    EXPECT_EQ(Grid().Current(), 0);
    ClickRow("R.2");
    EXPECT_TRUE(WaitUntil([&] { return Preview().Place().Id() == "R.2"; }));
    ClickRow("R.1");
    EXPECT_TRUE(WaitUntil([&] { return Preview().Place().Id() == "R"; }));
    EXPECT_EQ(Grid().Current(), 0);
}

TEST_F(FormMainPreviewTest, AClickInTheTreeGoesIntoASelectedSubmenu) {
    Open();
    ClickButton(1);
    ASSERT_EQ(Preview().Place().Id(), "R");
    ClickRow("R.2");
    EXPECT_TRUE(WaitUntil([&] { return Preview().Place().Id() == "R.2"; }));
}

TEST_F(FormMainPreviewTest, SubmenusAreOpenedAndPartsEdited) {
    Open();
    DoubleClickPoint(MiddleOfButton(1));
    EXPECT_EQ(Preview().Place().Id(), "R.2");
    EXPECT_EQ(SelectedText(), "Brackets");
    dialogs.Answer(wxID_CANCEL);
    DoubleClickPoint(MiddleOfButton(0));
    ASSERT_EQ(dialogs.shown.size(), 1u);
    Press(WXK_BACK);
    EXPECT_EQ(Preview().Place().Id(), "R");
    EXPECT_EQ(SelectedText(), "Brackets");
}

TEST_F(FormMainPreviewTest, CommandsApplyToTheSelectedButtons) {
    Open();
    ClickButton(1);
    Press(WXK_DOWN, wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Last\n Brackets\n  Angle\n");
    EXPECT_EQ(Grid().Current(), 2);
    EXPECT_EQ(Preview().Place().Id(), "R");
    Press('C', wxMOD_CONTROL);
    EXPECT_NE(Clipboard().find("CAPTION=Brackets"), std::string::npos);
    dialogs.Answer(wxID_YES);
    Press(WXK_DELETE);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Last\n");
    EXPECT_EQ(Grid().Count(), 2);
    Press('Z', wxMOD_CONTROL);
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), Before);
    EXPECT_EQ(Preview().Place().Id(), "R");
    Press(WXK_F2);
    ASSERT_NE(Tree().Edited(), nullptr);
    Type("Angles");
    Press(WXK_RETURN);
    EXPECT_EQ(window->Editor().Find("R.2")->Caption(), "Angles");
}

TEST_F(FormMainPreviewTest, RemovingStaysWhereTheUserWorks) {
    Open();
    ClickButton(0);
    dialogs.Answer(wxID_YES);
    Press(WXK_DELETE);
    EXPECT_EQ(SelectedText(), "Brackets") << "the next one, which is a submenu";
    EXPECT_EQ(Preview().Place().Id(), "R");
}

TEST_F(FormMainPreviewTest, F6GoesFromPaneToPane) {
    Open();
    Focus(&Tree().Window());
    Press(WXK_F6);
    EXPECT_TRUE(Grid().HasFocus());
    Press(WXK_F6);
    EXPECT_TRUE(window->pnDetails->IsTyping());
    Press(WXK_F6);
    EXPECT_TRUE(Tree().Window().HasFocus());
    Press(WXK_F9);
    Focus(&Grid());
    Press(WXK_F6);
    Press(WXK_F6);
    EXPECT_FALSE(Grid().HasFocus()) << "the problems";
    EXPECT_FALSE(window->pnDetails->IsTyping());
    EXPECT_FALSE(Tree().Window().HasFocus());
    Press(WXK_F6);
    EXPECT_TRUE(Tree().Window().HasFocus());
    Press(WXK_F8);
    Press(WXK_F9);
    Press(WXK_F6);
    EXPECT_TRUE(Tree().Window().HasFocus()) << "no pane is shown";
}

TEST_F(FormMainPreviewTest, AButtonIsDraggedToAnotherPlace) {
    Open();
    std::string hint;
    DragButton(2, MiddleOfButton(0, 0.1), [&] { hint = Hint(); });
    EXPECT_EQ(hint, "Moves \"Last\" before \"First\"; Ctrl copies.");
    EXPECT_EQ(Hint(), "") << "after the drag";
    EXPECT_EQ(TreeText(), "Main Menu\n Last\n First\n Brackets\n  Angle\n");
    EXPECT_EQ(SelectedText(), "Last");
    EXPECT_EQ(Steps(), 1u);
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), Before);
}

TEST_F(FormMainPreviewTest, AButtonIsDraggedIntoASubmenu) {
    Open();
    DragButton(2, MiddleOfButton(1));
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n  Last\n");
    EXPECT_EQ(Preview().Place().Id(), "R") << "the user goes on here";
    EXPECT_EQ(Grid().Count(), 2);
}

TEST_F(FormMainPreviewTest, AButtonIsDraggedIntoTheTree) {
    Open();
    std::string hint;
    DragButton(0, PointIn("R.2.1", 0.9), [&] { hint = Hint(); });
    EXPECT_EQ(hint, "Moves \"First\" after \"Angle\"; Ctrl copies.");
    EXPECT_EQ(TreeText(), "Main Menu\n Brackets\n  Angle\n  First\n Last\n");
    EXPECT_EQ(Steps(), 1u) << "it is moved, not copied and removed";
    EXPECT_EQ(SelectedText(), "First");
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), Before);
}

TEST_F(FormMainPreviewTest, AButtonIsDraggedInTheTreeWithinItsSubmenu) {
    Open();
    DragButton(0, PointIn("R.3", 0.9));
    EXPECT_EQ(TreeText(), "Main Menu\n Brackets\n  Angle\n Last\n First\n") << "moved, and not removed";
    EXPECT_EQ(Steps(), 1u);
}

TEST_F(FormMainPreviewTest, ARowIsDraggedOntoTheButtonOfASubmenu) {
    Open();
    Focus(&Tree().Window());
    DragRow("R.3", MiddleOfButton(1));
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n  Last\n");
    EXPECT_EQ(Preview().Place().Id(), "R") << "a drop does not lead away";
}

TEST_F(FormMainPreviewTest, ARowIsDraggedIntoThePreview) {
    Open();
    std::string hint;
    DragRow("R.2.1", MiddleOfButton(0, 0.1), [&] { hint = Hint(); });
    EXPECT_EQ(hint, "Moves \"Angle\" before \"First\"; Ctrl copies.");
    EXPECT_EQ(TreeText(), "Main Menu\n Angle\n First\n Brackets\n Last\n");
    EXPECT_EQ(Steps(), 1u);
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), Before);
}

TEST_F(FormMainPreviewTest, APinnedPreviewTakesEntriesFromElsewhere) {
    Open();
    Select("R.2");
    Click(Preview().tglPin);
    Select("R.1");
    ASSERT_EQ(Preview().Place().Id(), "R.2");
    DragRow("R.1", MiddleOfButton(0, 0.1));
    EXPECT_EQ(TreeText(), "Main Menu\n Brackets\n  First\n  Angle\n Last\n");
    DragRow("R.3", MiddleOfButton(4)); // a free place
    EXPECT_EQ(TreeText(), "Main Menu\n Brackets\n  First\n  Angle\n  Last\n");
    EXPECT_EQ(Preview().Place().Id(), "R.2");
}

TEST_F(FormMainPreviewTest, TheStatusBarSaysWhyADropIsRefused) {
    Open();
    std::string hint;
    DragButton(1, MiddleOf("R.2.1"), [&] { hint = Hint(); });
    EXPECT_EQ(hint, "\"Brackets\" cannot be moved into itself or into one of its own submenus.");
    EXPECT_EQ(TreeText(), Before);
    EXPECT_EQ(Hint(), "");
}

#ifdef NESK_PORTABLE_STATION
// During a drag Wine does not notice a simulated key.
TEST_F(FormMainPreviewTest, ControlCopies) {
    Open();
    DragButton(2, MiddleOf("R.2"), nullptr, WXK_CONTROL);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n  Last\n Last\n");
    DragRow("R.2.1", MiddleOfButton(0, 0.1), nullptr, WXK_CONTROL);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n  Angle\n  Last\n Last\n")
        << "the preview shows where the copy went";
}
#endif

// Another window of the program, beside the main window.
class FormMainPreviewDragBetweenTest : public FormMainPreviewTest {
protected:
    FormMainPreviewDragBetweenTest() {
        Open();
        window->SetPosition(wxPoint(260, 0));
        frame = new wxFrame(nullptr, wxID_ANY, "Other", wxPoint(0, 0), wxSize(240, 160));
        other = TreeView::Create(frame, "other", {true, true, false, wxDefaultSize});
        other->on.mayDrop = [](const std::vector<TreeNode*>&, const TreeDrop&) { return true; };
        other->on.dragText = [](const std::vector<TreeNode*>&) {
            return std::string("BLOCK SUBMENU\nCAPTION=Guest\nMENUTYPE=Part Program\nEND\n");
        };
        other->on.droppedText = [this](const std::string& text, const TreeDrop&) {
            received = text;
            return accepts;
        };
        other->on.dragTaken = [this](const std::vector<TreeNode*>& nodes) { taken += nodes.size(); };
        auto& root = other->SetRoot(std::make_unique<TreeNode>("Other menu", 0, "R"));
        row = &other->Append(root, std::make_unique<TreeNode>("Other entry", 0, "R.1"));
        other->Expand(root);
        ShowActive(*frame);
        // What lies under the mouse has to be the main window everywhere else.
        ShowActive(*window);
    }
    ~FormMainPreviewDragBetweenTest() override {
        other->on = {};
        frame->Destroy();
        Settle();
    }

    wxPoint OtherRow() const {
        const wxRect place = other->RowRect(*row);
        return other->Window().ClientToScreen(wxPoint(place.x + 8, place.y + place.height / 2));
    }

    wxFrame* frame = nullptr;
    TreeView* other = nullptr;
    TreeNode* row = nullptr;
    std::string received;
    bool accepts = true;
    std::size_t taken = 0;
};

TEST_F(FormMainPreviewDragBetweenTest, WhatTheOtherWindowTakesIsRemovedHere) {
    DragButton(1, OtherRow());
    EXPECT_EQ(received.find("BLOCK SUBMENU"), 0u) << received;
    EXPECT_NE(received.find("CAPTION=Angle"), std::string::npos) << "with what is below it";
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Last\n");
    EXPECT_EQ(Steps(), 1u);
}

TEST_F(FormMainPreviewDragBetweenTest, WhatTheOtherWindowRefusesStays) {
    accepts = false;
    DragButton(0, OtherRow());
    EXPECT_NE(received, "");
    EXPECT_EQ(TreeText(), Before);
    EXPECT_FALSE(window->Editor().IsDirty());
}

TEST_F(FormMainPreviewDragBetweenTest, EntriesFromTheOtherWindowAreInserted) {
    DragMouse(OtherRow(), MiddleOfButton(0, 0.9), 0, nullptr, [this] { return other->Dragged().empty(); });
    Settle();
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Guest\n Brackets\n  Angle\n Last\n");
    EXPECT_EQ(SelectedText(), "Guest");
    EXPECT_EQ(Grid().Current(), 1);
    EXPECT_EQ(taken, 1u) << "the other window has to remove it";
}

} // namespace
} // namespace nesk::testing
