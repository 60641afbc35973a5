#include "gui/GuiFixture.h"

#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"

namespace nesk::testing {
namespace {

// Menus in the main window that are much larger than any station's menu.
class FormMainHugeTest : public MainWindowTest {
protected:
    static std::string Repeat(const std::string& text, int times) {
        std::string result;
        for (int i = 0; i < times; ++i)
            result += text;
        return result;
    }

    void Open(const std::string& bytes) {
        WriteMenu(bytes);
        OpenWindow();
        Press('O', wxMOD_CONTROL);
        ASSERT_TRUE(window->Editor().IsOpen());
    }
};

TEST_F(FormMainHugeTest, AMillionLevels) {
    constexpr int Levels = 1'000'000;
    Open("BLOCK MENU\n" + Repeat("BLOCK SUBMENU\n", Levels));
    EXPECT_EQ(window->Editor().Find("R" + Repeat(".1", Levels))->ChildCount(), 0);
    FormMenuTree& tree = *window->tvMain;
    Tree().Collapse(*Tree().Root());
    Press(WXK_NUMPAD_MULTIPLY); // expands all nodes below
    EXPECT_TRUE(tree.NodeOf("R" + Repeat(".1", 100))->IsExpanded());
    EXPECT_FALSE(tree.NodeOf("R" + Repeat(".1", 1000))->IsExpanded()) << "what nobody could look at";
    Press(WXK_END);
    EXPECT_TRUE(tree.SelectedKey().starts_with("R" + Repeat(".1", 100)));
    dialogs.Answer(wxID_YES);
    Select("R.1");
    Press(WXK_DELETE);
    EXPECT_EQ(TreeText(), "Main Menu\n");
    EXPECT_EQ(window->Editor().Find("R")->ChildCount(), 0);
}

TEST_F(FormMainHugeTest, ASubmenuThatIsFull) {
    constexpr int Most = MenuItemCollection::MaxCount;
    Open("BLOCK MENU\n" + Repeat("BLOCK SUBMENU\nCAPTION=child\nEND\n", Most) + "END\n");
    FormMenuTree& tree = *window->tvMain;
    EXPECT_EQ(Tree().Root()->ChildCount(), static_cast<std::size_t>(Most));
    Press(WXK_END);
    EXPECT_EQ(tree.SelectedKey(), "R." + std::to_string(Most));
    Press(WXK_UP, wxMOD_CONTROL);
    EXPECT_EQ(window->Editor().Find("R")->Children()->PositionOf(
                  static_cast<const MenuItem&>(*window->Editor().Find("R." + std::to_string(Most)))),
              Most - 1);
    EXPECT_EQ(tree.SelectedKey(), "R." + std::to_string(Most));
}

} // namespace
} // namespace nesk::testing
