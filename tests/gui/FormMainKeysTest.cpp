#include "gui/GuiFixture.h"

#include "shell/modStringRes.h"

#include <deque>
#include <functional>

#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/timer.h>

namespace nesk::testing {
namespace {

// Uses the main window with the keyboard alone, through real key events.
class FormMainKeysTest : public MainWindowTest {
protected:
    FormMainKeysTest() {
        WriteMenu(SmallMenu);
        OpenWindow();
        Press('O', wxMOD_CONTROL);
    }

    // Opens the context menu of the entry R.2 with the mouse and presses keys in it. Returns whether `isDone`
    // became true afterwards.
    bool ContextMenu(std::deque<int> keys, const std::function<bool()>& isDone) {
        // The click returns only after the menu is closed, so a timer presses the keys.
        // On a busy machine the menu takes a while to appear, and a key before that is lost.
        int pauses = 3;
        wxTimer timer;
        timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
            if (pauses-- > 0) return;
            if (keys.empty()) return timer.Stop();
            SendKey(keys.front());
            keys.pop_front();
        });
        timer.Start(200);
        ClickRow("R.2", wxMOUSE_BTN_RIGHT);
        return WaitUntil(isDone);
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

// The message appears after the command that ended the edit, so that command must not continue.
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

// Typing text searches the tree and must never change the menu file.
TEST_F(FormMainKeysTest, TypingInTheTreeSearchesAndChangesNothing) {
    ASSERT_TRUE(window->Editor().SetCaption("R.3", "Daily check of the machine"));
    ASSERT_TRUE(window->Editor().SetCaption("R.1", "Daily report"));
    Press('S', wxMOD_CONTROL);
    const std::string saved = MenuOnDisk();
    Press(WXK_HOME);
    Type("Daily check");
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.3");
    EXPECT_TRUE(dialogs.shown.empty()) << "no editor opens";
    EXPECT_FALSE(window->Editor().IsDirty());
    Press('S', wxMOD_CONTROL);
    EXPECT_EQ(MenuOnDisk(), saved);
}

TEST_F(FormMainKeysTest, SpaceOpensNothing) {
    for (const char* id : {"R.1", "R.2", "R"}) {
        Select(id);
        Press(WXK_SPACE);
        EXPECT_EQ(window->tvMain->SelectedKey(), id);
    }
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(FormMainKeysTest, ADisabledKeyDoesNothing) {
    Tree().Expand(Row("R.2"));
    const std::string before = TreeText();
    const struct {
        const char* id;
        int key;
    } cases[] = {{"R.1", WXK_UP},   {"R.1", WXK_NUMPAD_UP}, {"R.2.1", WXK_UP}, {"R.2.1", WXK_DOWN},
                 {"R.3", WXK_DOWN}, {"R", WXK_DOWN},        {"R", WXK_UP}};
    for (const auto& [id, key] : cases) {
        Select(id);
        for (int i = 0; i < 3; ++i)
            Press(key, wxMOD_CONTROL);
        EXPECT_EQ(window->tvMain->SelectedKey(), id) << key;
        EXPECT_EQ(TreeText(), before) << id << " " << key;
        // The control does not move its position unseen either: from here, Down is one step.
        const platform::TreeNode* next = Row(id).NextRow();
        Press(WXK_DOWN);
        EXPECT_EQ(Tree().Selected(), next != nullptr ? next : &Row(id)) << id << " " << key;
    }
    Select("R");
    Press(WXK_DELETE);
    Press('E', wxMOD_CONTROL);
    EXPECT_TRUE(dialogs.shown.empty());
    Select("R.1");
    Press('N', wxMOD_CONTROL);
    EXPECT_EQ(Tree().Edited(), nullptr);
    EXPECT_EQ(TreeText(), before);
    EXPECT_FALSE(window->Editor().IsDirty());
}

TEST_F(FormMainKeysTest, NothingOutOfSightIsRemoved) {
    for (int i = 0; i < 60; ++i)
        ASSERT_FALSE(window->Editor().AddPart("R.2", "Part " + std::to_string(i)).empty());
    Tree().Expand(Row("R.2"));
    Select("R.1");
    Press(WXK_PAGEDOWN);
    const std::string paged = window->tvMain->SelectedKey();
    EXPECT_NE(paged, "R.1") << "paging moves the selection";
    EXPECT_TRUE(WaitUntil([&] { return !Tree().RowRect(Row(paged)).IsEmpty(); }));
    Select("R.2.50");
    Tree().EnsureVisible(Row("R"));
    ASSERT_TRUE(WaitUntil([&] { return Tree().RowRect(Row("R.2.50")).IsEmpty(); }));
    dialogs.Answer(wxID_NO);
    Press(WXK_DELETE);
    EXPECT_TRUE(WaitUntil([&] { return !Tree().RowRect(Row("R.2.50")).IsEmpty(); })) << "it comes into view";
    EXPECT_NE(dialogs.shown.at(0).text.find("\"Part 48\""), std::string::npos) << dialogs.shown[0].text;
}

TEST_F(FormMainKeysTest, TheQuestionNamesWhatIsRemoved) {
    ASSERT_TRUE(window->Editor().SetCaption("R.1", "100%1% %0%"));
    Select("R.1");
    dialogs.Answer(wxID_NO);
    Press(WXK_DELETE);
    EXPECT_EQ(dialogs.shown.at(0).text, "Remove \"100%1% %0%\" from the menu?");
    Select("R.2");
    dialogs.Answer(wxID_NO);
    Press(WXK_DELETE);
    EXPECT_EQ(dialogs.shown.at(1).text,
              "Remove \"Brackets\" from the menu?\n\nEntries below it that are removed too: 1.");
    EXPECT_EQ(dialogs.shown.at(1).style & (wxYES | wxNO | wxCANCEL), wxYES_NO);
}

TEST_F(FormMainKeysTest, TheContextMenuHasTheCommandsOfTheMenu) {
    // The menu's second command.
    ASSERT_TRUE(ContextMenu({WXK_DOWN, WXK_DOWN, WXK_RETURN}, [&] { return Tree().Edited() != nullptr; }));
    Press(WXK_RETURN);
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.2.2") << "below the entry that was clicked";
    EXPECT_TRUE(window->Editor().CommandsFor("R.2.2").addPart) << "a submenu";
}

TEST_F(FormMainKeysTest, AnAccessKeyOfTheContextMenuIsThatOfOneCommand) {
    // That of Add part and of Paste in their own menus.
    ASSERT_TRUE(ContextMenu({'P'}, [&] { return Tree().Edited() != nullptr; }));
    Press(WXK_RETURN);
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.2.2");
}

TEST_F(FormMainKeysTest, TheContextMenuFindsInASubmenu) {
    EXPECT_TRUE(ContextMenu({WXK_UP, WXK_UP, WXK_UP, WXK_RIGHT, WXK_RETURN}, [&] {
        const wxWindow* bar = wxWindow::FindWindowByName("FormFindBar", window);
        return bar != nullptr && bar->IsShown();
    }));
}

} // namespace
} // namespace nesk::testing
