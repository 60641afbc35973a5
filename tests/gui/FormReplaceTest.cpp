#include "checking/FormReplace.h"

#include "base/Messages.h"
#include "gui/ModalDriver.h"
#include "gui/UiDriver.h"
#include "menu/MenuItem.h"
#include "shell/Startup.h"
#include "unit/checking/CheckingFixture.h"
#include "widgets/UiRowList.h"
#include "widgets/UiUtilities.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

class FormReplaceTest : public CheckingTest {
protected:
    FormReplaceTest() {
        Startup::InitLanguage();
        PartFields fields;
        fields.graphic = "C:\\old\\a.bmp";
        Part("R", "old part", fields);
        Part("R", "Old lid");
        steps = editor.History().UndoNames().size();
    }

    // Shows the dialog and runs an action on it. Returns whether the changes were made.
    bool Show(const std::function<void(FormReplace&)>& act, const std::string& find = "old") {
        FormReplace dialog(nullptr, editor);
        const ModalDriver driver(dialog, [&] {
            EXPECT_TRUE(dialog.txtFind->HasFocus());
            act(dialog);
            EXPECT_TRUE(WaitUntil([&] { return !IsOpen(dialog); }));
        });
        return dialog.Invoke(find);
    }

    static std::string Cell(FormReplace& dialog, long row, int column) {
        return modUtilities::FromWx(dialog.lstChanges->GetItemText(row, column));
    }

    std::size_t steps = 0;
};

TEST_F(FormReplaceTest, ListsEveryChangeBeforeAndAfter) {
    EXPECT_TRUE(Show([](FormReplace& dialog) {
        EXPECT_EQ(TextOf(dialog.txtFind), "old");
        EXPECT_EQ(dialog.Changes().size(), 3u);
        Press(WXK_TAB);
        Type("new");
        EXPECT_EQ(TextOf(dialog.lblCount), "Changes chosen: 3 of 3");
        EXPECT_EQ(Cell(dialog, 1, 0), "old part");
        EXPECT_EQ(Cell(dialog, 1, 1), "Main Menu");
        EXPECT_EQ(Cell(dialog, 1, 2), "Picture");
        EXPECT_EQ(Cell(dialog, 1, 3), "C:\\old\\a.bmp");
        EXPECT_EQ(Cell(dialog, 1, 4), "C:\\new\\a.bmp");
        Press(WXK_RETURN);
    }));
    EXPECT_EQ(Item("R.1").Caption(), "new part");
    EXPECT_EQ(Item("R.1").Graphic(), "C:\\new\\a.bmp");
    EXPECT_EQ(Item("R.2").Caption(), "new lid");
    EXPECT_EQ(editor.History().UndoNames().size(), steps + 1);
    editor.Undo();
    EXPECT_EQ(Item("R.1").Caption(), "old part");
}

TEST_F(FormReplaceTest, FieldsAndCaseChooseWhatIsListed) {
    EXPECT_FALSE(Show([](FormReplace& dialog) {
        Click(dialog.chkMatchCase);
        EXPECT_EQ(dialog.Changes().size(), 2u);
        Click(dialog.chkField[static_cast<std::size_t>(TextField::Picture)]);
        EXPECT_EQ(dialog.Changes().size(), 1u);
        Fill(dialog.txtFind, "nowhere");
        EXPECT_EQ(dialog.Changes().size(), 0u);
        EXPECT_FALSE(dialog.cmdOK->IsEnabled());
        EXPECT_EQ(TextOf(dialog.lblCount), "Changes chosen: 0 of 0");
        Press(WXK_ESCAPE);
    }));
    EXPECT_EQ(editor.History().UndoNames().size(), steps);
}

TEST_F(FormReplaceTest, OnlyTickedChangesAreMade) {
    EXPECT_TRUE(Show([](FormReplace& dialog) {
        Fill(dialog.txtReplacement, "new");
        Click(dialog.cmdNone);
        EXPECT_EQ(TextOf(dialog.lblCount), "Changes chosen: 0 of 3");
        EXPECT_FALSE(dialog.cmdOK->IsEnabled());
        Click(dialog.cmdAll);
        EXPECT_EQ(TextOf(dialog.lblCount), "Changes chosen: 3 of 3");
        Focus(dialog.lstChanges);
        Press(WXK_SPACE); // the first row is selected
        EXPECT_EQ(TextOf(dialog.lblCount), "Changes chosen: 2 of 3");
        EXPECT_FALSE(dialog.Changes()[0].isChosen);
        Press(WXK_RETURN);
    }));
    EXPECT_EQ(Item("R.1").Caption(), "old part");
    EXPECT_EQ(Item("R.1").Graphic(), "C:\\new\\a.bmp");
    EXPECT_EQ(Item("R.2").Caption(), "new lid");
}

TEST_F(FormReplaceTest, TheFocusLeavesAButtonThatDisablesItself) {
    EXPECT_FALSE(Show([](FormReplace& dialog) {
        Focus(dialog.cmdNone);
        Press(WXK_SPACE);
        EXPECT_FALSE(dialog.cmdNone->IsEnabled());
        EXPECT_TRUE(WaitUntil([&] { return dialog.cmdAll->HasFocus(); }));
        Press(WXK_SPACE);
        EXPECT_FALSE(dialog.cmdAll->IsEnabled());
        EXPECT_TRUE(WaitUntil([&] { return dialog.cmdNone->HasFocus(); }));
        EXPECT_EQ(TextOf(dialog.lblCount), "Changes chosen: 3 of 3");
        Press(WXK_ESCAPE);
    }));
}

TEST_F(FormReplaceTest, AClickTicks) {
    EXPECT_TRUE(Show([](FormReplace& dialog) {
        Fill(dialog.txtReplacement, "new");
        WaitUntilSteady(*dialog.lstChanges);
        wxRect row;
        EXPECT_TRUE(dialog.lstChanges->GetItemRect(2, row));
        const int tick = row.height / 2;
        ClickPoint(dialog.lstChanges->ClientToScreen(wxPoint(row.x + tick, row.y + row.height / 2)));
        EXPECT_TRUE(WaitUntil([&] { return TextOf(dialog.lblCount) == "Changes chosen: 2 of 3"; }))
            << TextOf(dialog.lblCount);
        EXPECT_FALSE(dialog.Changes()[2].isChosen);
        EXPECT_EQ(dialog.lstChanges->SelectedRows(), std::vector<long>{2}) << "keys go on from there";
        Click(dialog.cmdOK);
    }));
    EXPECT_EQ(Item("R.2").Caption(), "Old lid");
    EXPECT_EQ(Item("R.1").Caption(), "new part");
}

TEST_F(FormReplaceTest, ARefusedTextChangesNothingAndSaysWhich) {
    EXPECT_FALSE(Show([](FormReplace& dialog) {
        Fill(dialog.txtReplacement, "日");
        Click(dialog.cmdOK);
        EXPECT_TRUE(IsOpen(dialog));
        ASSERT_TRUE(dialog.lblReason->IsShown());
        const std::string reason = TextOf(dialog.lblReason);
        for (const char* part : {"Nothing was changed", "old part", "Caption", "日 part"})
            EXPECT_NE(reason.find(part), std::string::npos) << reason;
        Press(WXK_ESCAPE);
    }));
    EXPECT_EQ(Item("R.1").Caption(), "old part");
    EXPECT_EQ(editor.History().UndoNames().size(), steps);
}

TEST_F(FormReplaceTest, ManyChanges) {
    for (int i = 0; i < 20'000; ++i)
        editor.AddPart("R", "old " + std::to_string(i));
    EXPECT_TRUE(Show([](FormReplace& dialog) {
        EXPECT_EQ(dialog.Changes().size(), 20'003u);
        const auto begin = std::chrono::steady_clock::now();
        Fill(dialog.txtReplacement, "x");
        EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(3));
        EXPECT_EQ(Cell(dialog, 20'000, 4), "x 19997");
        Click(dialog.cmdOK);
    }));
    EXPECT_EQ(Item("R.20002").Caption(), "x 19999");
}

} // namespace
} // namespace nesk::testing
