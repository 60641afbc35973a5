#include "gui/GuiFixture.h"

#include "shell/FormToolBar.h"
#include "shell/UiCommandIcons.h"
#include "widgets/UiUtilities.h"

#include <set>

#include <wx/menu.h>

namespace nesk::testing {
namespace {

using modUtilities::FromWx;

class FormToolBarTest : public MainWindowTest {
protected:
    FormToolBarTest() {
        WriteMenu(SmallMenu);
        OpenWindow();
    }

    // The tooltips of the buttons; "|" is a separator.
    std::string ToolTips() const {
        std::string texts;
        for (std::size_t i = 0; i < window->tbMain->GetToolsCount(); ++i) {
            const wxToolBarToolBase* tool = window->tbMain->GetToolByPos(static_cast<int>(i));
            if (tool->IsStretchable()) continue;
            if (tool->IsSeparator())
                texts += "|";
            else if (tool->IsButton())
                texts += FromWx(tool->GetShortHelp()) + "\n";
        }
        return texts;
    }

    // The labels of the buttons that are enabled. Each must agree with its menu item.
    std::string Enabled() const {
        std::string texts;
        for (const MainCommandInfo& info : MainCommandTable()) {
            if (!info.places.inToolBar) continue;
            const int id = CommandId(info.command);
            const bool enabled = window->tbMain->GetToolEnabled(id);
            EXPECT_EQ(enabled, window->GetMenuBar()->FindItem(id)->IsEnabled()) << info.name;
            if (enabled) texts += FromWx(window->tbMain->FindById(id)->GetLabel()) + "\n";
        }
        return texts;
    }

    void ClickButton(MainCommand command) { ClickTool(*window->tbMain, CommandId(command)); }
};

TEST_F(FormToolBarTest, AButtonTellsItsNameAndItsKey) {
    const std::string expected = "Open (Ctrl+O)\nSave (Ctrl+S)\n|Undo (Ctrl+Z)\nRedo (Ctrl+Y)\n"
                                 "|Cut (Ctrl+X)\nCopy (Ctrl+C)\nPaste (Ctrl+V)\n"
                                 "|Add part (Ctrl+N)\nAdd submenu (Ctrl+Shift+N)\n|Move up (Ctrl+Up)\n"
                                 "Move down (Ctrl+Down)\n|Edit (Ctrl+E)\nRemove (Del)\n";
    EXPECT_EQ(ToolTips(), expected);
}

TEST_F(FormToolBarTest, EveryButtonHasAPicture) {
    for (std::size_t i = 0; i < window->tbMain->GetToolsCount(); ++i) {
        const wxToolBarToolBase* tool = window->tbMain->GetToolByPos(static_cast<int>(i));
        if (tool->IsControl()) continue;
        EXPECT_TRUE(tool->IsSeparator() || tool->GetNormalBitmap().IsOk()) << tool->GetLabel();
    }
}

TEST_F(FormToolBarTest, ItsButtonsAreEnabledLikeTheMenuItems) {
    EXPECT_EQ(Enabled(), "Open\n");
    Press('O', wxMOD_CONTROL);
    EXPECT_EQ(Enabled(), "Save\nPaste\nAdd part\nAdd submenu\n");
    Select("R.1");
    EXPECT_EQ(Enabled(), "Save\nCut\nCopy\nPaste\nMove down\nEdit\nRemove\n");
    Press(WXK_F2);
    ASSERT_NE(Tree().Edited(), nullptr);
    EXPECT_EQ(Enabled(), "Save\nMove down\nEdit\n") << "while a caption is typed";
    Type("Cover");
    Press(WXK_RETURN);
    EXPECT_EQ(Enabled(), "Save\nUndo\nCut\nCopy\nPaste\nMove down\nEdit\nRemove\n");
}

TEST_F(FormToolBarTest, AClickRunsTheCommand) {
    // The first button, with the real mouse.
    ClickPoint(window->tbMain->GetScreenPosition() + window->FromDIP(wxPoint(16, 16)));
    ASSERT_TRUE(WaitUntil([&] { return window->Editor().IsOpen(); }));
    ClickButton(MainCommand::AddPart);
    ASSERT_NE(Tree().Edited(), nullptr);
    Type("Plate");
    ClickButton(MainCommand::FileSave);
    EXPECT_NE(MenuOnDisk().find("CAPTION=Plate"), std::string::npos);
    ClickButton(MainCommand::MoveUp);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n Plate\n Last\n");
    ClickButton(MainCommand::Undo);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n Last\n Plate\n");
}

TEST_F(FormToolBarTest, EveryCommandHasAnIdentifierOfItsOwn) {
    std::set<int> ids;
    for (const MainCommandInfo& info : MainCommandTable()) {
        ids.insert(CommandId(info.command));
        EXPECT_EQ(CommandOf(CommandId(info.command)), info.command) << info.name;
    }
    EXPECT_EQ(ids.size(), MainCommandCount);
    EXPECT_EQ(CommandId(MainCommand::FileSave), wxID_SAVE);
    EXPECT_EQ(CommandId(MainCommand::Undo), wxID_UNDO);
    EXPECT_EQ(CommandOf(wxID_ANY), std::nullopt);
}

} // namespace
} // namespace nesk::testing
