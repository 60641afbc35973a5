#include "gui/GuiFixture.h"

#include "shell/modStringRes.h"

#include <deque>

#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

namespace nesk::testing {
namespace {

// The main window used with the keyboard alone, through real key events.
class FormMainKeysTest : public MainWindowTest {
protected:
    FormMainKeysTest() {
        WriteMenu(SmallMenu);
        OpenWindow();
        Press('O', wxMOD_CONTROL);
    }
};

TEST_F(FormMainKeysTest, OpenSaveAndClose) {
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n Last\n");
    ASSERT_TRUE(window->Editor().SetCaption("R.1", "Changed"));
    Press('S', wxMOD_CONTROL);
    EXPECT_FALSE(window->Editor().IsDirty());
    EXPECT_NE(MenuOnDisk().find("CAPTION=Changed"), std::string::npos);
    Press('W', wxMOD_CONTROL);
    EXPECT_FALSE(window->Editor().IsOpen());
}

TEST_F(FormMainKeysTest, RenameMoveAndRemove) {
    Press(WXK_DOWN);
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.1");
    Press(WXK_F2);
    Type("Housing");
    Press(WXK_RETURN);
    EXPECT_EQ(TreeText(), "Main Menu\n Housing\n Brackets\n  Angle\n Last\n");
    Press(WXK_DOWN, wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), "Main Menu\n Brackets\n  Angle\n Housing\n Last\n");
    Press(WXK_UP, wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), "Main Menu\n Housing\n Brackets\n  Angle\n Last\n");
    dialogs.Answer(wxID_YES);
    Press(WXK_DELETE);
    EXPECT_EQ(TreeText(), "Main Menu\n Brackets\n  Angle\n Last\n");
}

TEST_F(FormMainKeysTest, DelDeletesCharactersWhileACaptionIsTyped) {
    Press(WXK_DOWN);
    Press(WXK_F2);
    Press(WXK_HOME);
    Press(WXK_DELETE);
    Press(WXK_RETURN);
    EXPECT_EQ(window->Editor().Find("R.1")->Caption(), "irst");
    EXPECT_TRUE(window->mnuMenuRemove->IsEnabled());
}

TEST_F(FormMainKeysTest, AddPartAndSubmenu) {
    Press('N', wxMOD_CONTROL);
    Type("Plate");
    Press(WXK_RETURN);
    Press(WXK_HOME);
    Press('N', wxMOD_CONTROL | wxMOD_SHIFT);
    Type("Gears");
    Press(WXK_RETURN);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n Last\n Plate\n Gears\n");
}

TEST_F(FormMainKeysTest, SavingTakesTheCaptionBeingTyped) {
    Press(WXK_DOWN);
    Press(WXK_F2);
    Type("Half typed");
    Press('S', wxMOD_CONTROL);
    EXPECT_NE(MenuOnDisk().find("CAPTION=Half typed"), std::string::npos);
    EXPECT_FALSE(window->Editor().IsDirty());
}

TEST_F(FormMainKeysTest, ALineBreakCannotBePasted) {
    Press(WXK_DOWN);
    Press(WXK_F2);
    ASSERT_NE(Tree().Edited(), nullptr);
    Tree().SetEditText("one\r\ntwo\nthree\tfour");
    Settle();
    EXPECT_EQ(Tree().EditText(), "one two three four");
    Press(WXK_RETURN);
    EXPECT_EQ(window->Editor().Find("R.1")->Caption(), "one two three four");
}

// The message comes after what ended the edit, which therefore must not go on.
TEST_F(FormMainKeysTest, ARefusedCaptionStopsWhatEndedItsEdit) {
    const std::function<void()> ends[] = {[&] { window->Close(); }, [&] { Click(window->mnuFileClose); },
                                          [&] { Click(window->mnuFileSave); }};
    for (const auto& end : ends) {
        Press(WXK_DOWN);
        Press(WXK_F2);
        ASSERT_NE(Tree().Edited(), nullptr);
        Tree().SetEditText("日");
        dialogs.shown.clear();
        dialogs.Answer(wxID_OK);
        end();
        Settle();
        ASSERT_EQ(dialogs.shown.size(), 1u);
        EXPECT_NE(dialogs.shown[0].text.find("日"), std::string::npos);
        EXPECT_TRUE(window->IsShown());
        ASSERT_TRUE(window->Editor().IsOpen());
        ASSERT_NE(Tree().Edited(), nullptr);
        EXPECT_EQ(Tree().EditText(), "日");
        Press(WXK_ESCAPE);
    }
}

TEST_F(FormMainKeysTest, ACharacterOutsideTheCodePageIsRefusedAndComesBack) {
    Press(WXK_DOWN);
    Press(WXK_F2);
    ASSERT_NE(Tree().Edited(), nullptr);
    Tree().SetEditText("Gehäuse 日");
    dialogs.Answer(wxID_OK);
    Press(WXK_RETURN);
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_NE(dialogs.shown[0].text.find("日"), std::string::npos);
    EXPECT_NE(dialogs.shown[0].text.find("1252"), std::string::npos);
    EXPECT_EQ(window->Editor().Find("R.1")->Caption(), "First");
    ASSERT_NE(Tree().Edited(), nullptr) << "what was typed is there to be corrected";
    EXPECT_EQ(Tree().EditText(), "Gehäuse 日");
    Tree().SetEditText("Gehäuse");
    Press(WXK_RETURN);
    EXPECT_EQ(window->Editor().Find("R.1")->Caption(), "Gehäuse");
    EXPECT_EQ(Row("R.1").Text(), "Gehäuse");
}

TEST_F(FormMainKeysTest, TheContextMenuHasTheCommandsOfTheMenu) {
    // While the menu is open nothing returns from the click, so a timer chooses its second command.
    std::deque<int> keys{WXK_DOWN, WXK_DOWN, WXK_RETURN};
    wxTimer timer;
    timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
        wxUIActionSimulator simulator;
        if (keys.empty()) return timer.Stop();
        simulator.Char(keys.front());
        keys.pop_front();
    });
    timer.Start(200);
    ClickRow("R.2", wxMOUSE_BTN_RIGHT);
    ASSERT_TRUE(WaitUntil([&] { return Tree().Edited() != nullptr; }));
    Press(WXK_RETURN);
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.2.2") << "below the entry that was clicked";
    EXPECT_TRUE(window->Editor().CommandsFor("R.2.2").addPart) << "a submenu";
}

} // namespace
} // namespace nesk::testing
