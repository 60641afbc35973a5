// The View menu of the main window.

#include "gui/GuiFixture.h"

#include "shell/FormToolBar.h"
#include "widgets/UiUtilities.h"

#include <wx/menu.h>

namespace nesk::testing {
namespace {

class FormMainViewTest : public MainWindowTest {
protected:
    FormMainViewTest() {
        WriteMenu(SmallMenu);
        OpenWindow();
        Press('O', wxMOD_CONTROL);
    }

    int TreeHeight() const { return Tree().Window().GetSize().y; }

    // Ids of the expanded entries of the example, with those inside collapsed ones.
    std::string Expanded() const {
        std::string ids;
        for (const char* id : {"R", "R.2", "R.2.2"})
            if (Row(id).IsExpanded()) ids += ids.empty() ? id : std::string(" ") + id;
        return ids;
    }

    // Adds a submenu with a part below "Brackets", and shows the root only.
    void AddLevel() {
        ASSERT_EQ(window->Editor().AddSubmenu("R.2", "Small"), "R.2.2");
        ASSERT_EQ(window->Editor().AddPart("R.2.2", "Clip"), "R.2.2.1");
        Tree().Collapse(Row("R.2"));
        Select("R");
    }
};

TEST_F(FormMainViewTest, TheToolBarIsHiddenAndShown) {
    EXPECT_TRUE(window->mnuViewToolBar->IsChecked());
    const int before = TreeHeight();
    ASSERT_TRUE(Click(window->mnuViewToolBar));
    EXPECT_FALSE(window->tbMain->IsShown());
    EXPECT_FALSE(window->mnuViewToolBar->IsChecked());
    EXPECT_TRUE(WaitUntil([&] { return TreeHeight() > before + 10; })) << "the tree gets its room";
    ASSERT_TRUE(Click(window->mnuViewToolBar));
    EXPECT_TRUE(window->tbMain->IsShown());
    EXPECT_TRUE(window->mnuViewToolBar->IsChecked());
    EXPECT_TRUE(WaitUntil([&] { return TreeHeight() == before; }));
}

TEST_F(FormMainViewTest, TheStatusBarIsHiddenAndShown) {
    EXPECT_TRUE(window->mnuViewStatusBar->IsChecked());
    const int before = TreeHeight();
    ASSERT_TRUE(Click(window->mnuViewStatusBar));
    EXPECT_FALSE(window->sbMain->IsShown());
    EXPECT_FALSE(window->mnuViewStatusBar->IsChecked());
    EXPECT_TRUE(WaitUntil([&] { return TreeHeight() > before + 10; }));
    ASSERT_TRUE(Click(window->mnuViewStatusBar));
    EXPECT_TRUE(window->sbMain->IsShown());
    EXPECT_TRUE(WaitUntil([&] { return TreeHeight() == before; }));
}

TEST_F(FormMainViewTest, AHiddenToolBarStaysHiddenWhenAMenuIsClosedAndOpened) {
    ASSERT_TRUE(Click(window->mnuViewToolBar));
    Press('W', wxMOD_CONTROL);
    Press('O', wxMOD_CONTROL);
    EXPECT_FALSE(window->tbMain->IsShown());
}

TEST_F(FormMainViewTest, TheStatusBarTellsTheNumbers) {
    // The problems come some time later.
    const auto counts = [&] {
        const std::string text = modUtilities::FromWx(window->sbMain->Counts());
        return text.find("problem") == std::string::npos ? text : text.substr(0, text.rfind(';'));
    };
    EXPECT_EQ(counts(), "1 submenu, 3 parts");
    Select("R.2");
    dialogs.Answer(wxID_YES);
    Press(WXK_DELETE);
    EXPECT_EQ(counts(), "0 submenus, 2 parts");
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(counts(), "1 submenu, 3 parts");
    window->tvMain->SelectKeys({"R.1", "R.2", "R.2.1"});
    Settle();
    EXPECT_EQ(counts(), "1 submenu, 3 parts; 3 selected") << "each selected row counts";
    Press('W', wxMOD_CONTROL);
    EXPECT_EQ(counts(), "");
}

TEST_F(FormMainViewTest, ExpandAllBelowShowsEveryLevel) {
    AddLevel();
    EXPECT_EQ(Expanded(), "R");
    Select("R.2");
    ASSERT_TRUE(Click(window->mnuViewExpandBelow));
    EXPECT_EQ(Expanded(), "R R.2 R.2.2");
    EXPECT_FALSE(Tree().RowRect(Row("R.2.2.1")).IsEmpty());
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.2");
    EXPECT_FALSE(window->Editor().History().ToRedo() != nullptr);
}

TEST_F(FormMainViewTest, CollapseAllShowsTheMainMenuAlone) {
    AddLevel();
    ASSERT_TRUE(Click(window->mnuViewExpandBelow));
    Select("R.2.2.1");
    ASSERT_TRUE(Click(window->mnuViewCollapseAll));
    EXPECT_EQ(Expanded(), "R");
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.2") << "the submenu in which the selected entry is";
    Tree().Expand(Row("R.2"));
    EXPECT_EQ(Expanded(), "R R.2") << "what is inside was collapsed too";
    Select("R.3");
    ASSERT_TRUE(Click(window->mnuViewCollapseAll));
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.3") << "an entry that stays in view stays selected";
}

} // namespace
} // namespace nesk::testing
