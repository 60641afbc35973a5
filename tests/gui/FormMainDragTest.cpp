// Entries of the main window, dragged with the mouse.

#include "gui/GuiFixture.h"

#include "gui/MouseDrag.h"
#include "menu/MenuItemCollection.h"
#include "shell/FormStatusBar.h"
#include "widgets/UiUtilities.h"

#include <wx/menu.h>

namespace nesk::testing {
namespace {

using platform::TreeDrop;

class FormMainDragTest : public MainWindowTest {
protected:
    FormMainDragTest() {
        WriteMenu(SmallMenu);
        OpenWindow();
        Press('O', wxMOD_CONTROL);
        Tree().Expand(Row("R.2"));
        Settle();
    }

    void Drag(const std::string& from, wxPoint to, const std::function<void()>& held = nullptr, int key = 0) {
        DragMouse(MiddleOf(from), to, key, held, [this] { return Tree().Dragged().empty(); });
        Settle();
    }

    std::string Hint() const {
        return modUtilities::FromWx(window->sbMain->GetStatusText(FormStatusBar::HelpPanel));
    }

    const std::string Before = "Main Menu\n First\n Brackets\n  Angle\n Last\n";
};

TEST_F(FormMainDragTest, BetweenTwoEntries) {
    TreeDrop marked;
    Drag("R.3", PointIn("R.1", 0.1), [&] { marked = Tree().Marked(); });
    EXPECT_EQ(marked.where, TreeDrop::Where::Before);
    EXPECT_EQ(TreeText(), "Main Menu\n Last\n First\n Brackets\n  Angle\n");
    EXPECT_EQ(SelectedText(), "Last");
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), Before);
}

TEST_F(FormMainDragTest, TheSelectedEntry) {
    Select("R.1");
    Drag("R.1", PointIn("R.3", 0.9));
    EXPECT_EQ(TreeText(), "Main Menu\n Brackets\n  Angle\n Last\n First\n");
}

TEST_F(FormMainDragTest, AClickWithControlSelectsAndDeselects) {
    ClickRow("R.1");
    ClickRow("R.3", wxMOUSE_BTN_LEFT, WXK_CONTROL);
    EXPECT_EQ(SelectedText(), "First Last");
    ClickRow("R.1", wxMOUSE_BTN_LEFT, WXK_CONTROL);
    EXPECT_EQ(SelectedText(), "Last");
}

TEST_F(FormMainDragTest, SeveralIntoASubmenu) {
    window->tvMain->SelectKeys({"R.1", "R.3"});
    Drag("R.3", MiddleOf("R.2"));
    EXPECT_EQ(TreeText(), "Main Menu\n Brackets\n  Angle\n  First\n  Last\n");
    EXPECT_EQ(SelectedText(), "First Last");
}

TEST_F(FormMainDragTest, DownWithinTheSameSubmenu) {
    Drag("R.1", PointIn("R.3", 0.9));
    EXPECT_EQ(TreeText(), "Main Menu\n Brackets\n  Angle\n Last\n First\n");
}

TEST_F(FormMainDragTest, TheFreeAreaIsTheEndOfTheMenu) {
    const wxRect last = Tree().RowRect(Row("R.3"));
    Drag("R.2.1", Tree().Window().ClientToScreen(wxPoint(60, last.GetBottom() + 3 * last.height)));
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n Last\n Angle\n");
}

TEST_F(FormMainDragTest, IntoACollapsedSubmenuThatOpensUnderTheMouse) {
    Tree().Collapse(Row("R.2"));
    Settle();
    MouseDrag drag(MiddleOf("R.3"));
    drag.To(MiddleOf("R.2"));
    drag.RestUntil([&] { return Row("R.2").IsExpanded(); });
    drag.To([&] { return PointIn("R.2.1", 0.1); });
    drag.Make([&] { return Tree().Dragged().empty(); });
    Settle();
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Last\n  Angle\n");
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), Before);
}

TEST_F(FormMainDragTest, InAFilteredTreeTheEntryDecidesAboutThePlace) {
    Press('F', wxMOD_CONTROL);
    Type("st"); // First, Last: the submenu between them is hidden
    ASSERT_TRUE(Click(window->mnuEditShowMatches));
    ASSERT_EQ(Tree().Root()->ChildCount(), 2u);
    Drag("R.1", PointIn("R.3", 0.9));
    Press(WXK_ESCAPE);
    EXPECT_EQ(TreeText(), "Main Menu\n Brackets\n  Angle\n Last\n First\n");
}

TEST_F(FormMainDragTest, TheStatusBarSaysWhyADropIsRefused) {
    std::string intoItself;
    Drag("R.2", MiddleOf("R.2.1"), [&] { intoItself = Hint(); });
    EXPECT_EQ(intoItself, "\"Brackets\" cannot be moved into itself or into one of its own submenus.");
    EXPECT_EQ(TreeText(), Before);
    EXPECT_EQ(Hint(), "") << "after the drag";
}

TEST_F(FormMainDragTest, TheStatusBarSaysWhatADropDoes) {
    window->tvMain->SelectKeys({"R.2", "R.3"});
    std::string several;
    Drag("R.3", PointIn("R.1", 0.1), [&] { several = Hint(); });
    EXPECT_EQ(several, "Moves 2 entries before \"First\"; Ctrl copies.");
    Press('Z', wxMOD_CONTROL);
    Select("R.1");
    std::string before;
    Drag("R.3", PointIn("R.1", 0.1), [&] { before = Hint(); });
    EXPECT_EQ(before, "Moves \"Last\" before \"First\"; Ctrl copies.");
    EXPECT_EQ(Hint(), "");
    std::string after;
    Drag("R.3", PointIn("R.2.1", 0.9), [&] { after = Hint(); });
    EXPECT_EQ(after, "Moves \"Last\" after \"Angle\"; Ctrl copies.");
    std::string into;
    Drag("R.1", MiddleOf("R.2"), [&] { into = Hint(); });
    EXPECT_EQ(into, "Moves \"First\" to the end of \"Brackets\"; Ctrl copies.");
}

#ifdef NESK_PORTABLE_STATION
// During a drag Wine does not notice a simulated key.
TEST_F(FormMainDragTest, ControlCopies) {
    std::string hint;
    Drag(
        "R.3", MiddleOf("R.2"), [&] { hint = Hint(); }, WXK_CONTROL);
    EXPECT_EQ(hint, "Copies \"Last\" to the end of \"Brackets\".");
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n  Last\n Last\n");
    EXPECT_EQ(window->tvMain->SelectedKeys(), EntryIds{"R.2.2"}) << "the copy";
}

TEST_F(FormMainDragTest, AFullMenuTakesNoCopy) {
    std::string entries;
    for (int i = 0; i < MenuItemCollection::MaxCount; ++i)
        entries += "BLOCK SUBMENU\nMENUTYPE=Part Program\nEND\n";
    WriteMenu("BLOCK MENU\n" + entries + "END\n");
    Press('W', wxMOD_CONTROL);
    Press('O', wxMOD_CONTROL);
    ASSERT_EQ(window->Editor().OpenMenu()->ChildCount(), MenuItemCollection::MaxCount);
    std::string hint;
    TreeDrop marked;
    const auto look = [&] {
        hint = Hint();
        marked = Tree().Marked();
    };
    Drag("R.1", PointIn("R.3", 0.9), look, WXK_CONTROL);
    EXPECT_NE(hint.find("32,767"), std::string::npos) << hint;
    EXPECT_EQ(marked.node, nullptr);
    Drag("R.1", PointIn("R.3", 0.9), look);
    EXPECT_EQ(hint.rfind("Moves ", 0), 0u) << "moving needs no room: " << hint;
    EXPECT_NE(marked.node, nullptr);
}
#endif

TEST_F(FormMainDragTest, EscapeCallsItOff) {
    Drag("R.3", MiddleOf("R.2"), [] { SendKey(WXK_ESCAPE); });
    EXPECT_EQ(TreeText(), Before);
    EXPECT_FALSE(window->Editor().IsDirty());
}

} // namespace
} // namespace nesk::testing
