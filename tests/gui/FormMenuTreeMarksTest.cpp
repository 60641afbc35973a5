// The marks of problems in the tree of the main window.

#include "gui/GuiFixture.h"

namespace nesk::testing {
namespace {

class FormMenuTreeMarksTest : public MainWindowTest {
protected:
    // Marks all entries or none.
    void Mark(bool all) {
        window->tvMain->SetProblems([all](const MenuEntry&) { return all; });
        window->tvMain->UpdateMarks();
    }
};

TEST_F(FormMenuTreeMarksTest, ACaptionCanBeTypedWhileMarksChange) {
    WriteMenu(SmallMenu);
    OpenWindow();
    Press('O', wxMOD_CONTROL);
    Mark(false);
    Select("R.2");
    const int unmarked = Row("R.2").Image();
    Press(WXK_F2);
    ASSERT_NE(Tree().Edited(), nullptr);
    Type("Angles");
    Mark(true);
    EXPECT_NE(Tree().Edited(), nullptr) << "the edit goes on";
    Press(WXK_RETURN);
    EXPECT_EQ(Row("R.2").Text(), "Angles");
    EXPECT_TRUE(WaitUntil([&] { return Row("R.2").Image() != unmarked; })) << "the mark comes after the edit";
}

} // namespace
} // namespace nesk::testing
