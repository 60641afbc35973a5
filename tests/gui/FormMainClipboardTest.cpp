// Cut, copy, paste and duplicate in the main window.

#include "gui/GuiFixture.h"

#include "base/Messages.h"
#include "menu/MenuItemCollection.h"
#include "shell/modStringRes.h"

namespace nesk::testing {
namespace {

class FormMainClipboardTest : public MainWindowTest {
protected:
    FormMainClipboardTest() {
        WriteMenu(SmallMenu);
        OpenWindow();
        Press('O', wxMOD_CONTROL);
        Tree().Expand(Row("R.2"));
        Settle();
    }

    // Expects that pasting a text is refused with a message and changes nothing.
    void ExpectRefused(const std::string& text, const std::string& message) {
        SetClipboard(text);
        dialogs.Answer(wxID_OK);
        Press('V', wxMOD_CONTROL);
        ASSERT_FALSE(dialogs.shown.empty());
        EXPECT_EQ(dialogs.shown.back().text.find("Nothing was pasted.\n\n"), 0u);
        EXPECT_NE(dialogs.shown.back().text.find(message), std::string::npos) << dialogs.shown.back().text;
        EXPECT_EQ(TreeText(), Before);
        EXPECT_FALSE(window->Editor().IsDirty());
    }

    const std::string Before = "Main Menu\n First\n Brackets\n  Angle\n Last\n";
};

TEST_F(FormMainClipboardTest, CopiesAsTheBlocksOfAMenuFile) {
    Select("R.2");
    Press('C', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), Before);
    const std::string text = Clipboard();
    EXPECT_EQ(text.find("BLOCK SUBMENU"), 0u) << text;
    EXPECT_NE(text.find("CAPTION=Angle"), std::string::npos);
    Select("R.3");
    Press('V', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), Before + " Brackets\n  Angle\n");
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.4") << "what was pasted is selected";
}

TEST_F(FormMainClipboardTest, CutsAndPastesSeveralEntries) {
    window->tvMain->SelectKeys({"R.1", "R.3"});
    Press('X', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), "Main Menu\n Brackets\n  Angle\n");
    EXPECT_EQ(SelectedText(), "Brackets");
    Press('V', wxMOD_CONTROL | wxMOD_SHIFT);
    EXPECT_EQ(TreeText(), "Main Menu\n Brackets\n  First\n  Last\n  Angle\n");
    EXPECT_EQ(SelectedText(), "First Last");
    Press('Z', wxMOD_CONTROL);
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), Before);
    EXPECT_FALSE(window->Editor().IsDirty());
}

TEST_F(FormMainClipboardTest, PastesAtTheEndOfTheMenuOnItsRoot) {
    Select("R.1");
    Press('C', wxMOD_CONTROL);
    Select("R");
    Press('V', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), Before + " First\n");
}

TEST_F(FormMainClipboardTest, DuplicatesBehindTheSelection) {
    window->tvMain->SelectKeys({"R.1", "R.2"});
    Press('D', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n First\n Brackets\n  Angle\n Last\n");
    EXPECT_EQ(window->tvMain->SelectedKeys(), (EntryIds{"R.4", "R.5"})) << "the copies";
}

TEST_F(FormMainClipboardTest, TheRootIsNotCopied) {
    SetClipboard("before");
    Select("R");
    Press('C', wxMOD_CONTROL);
    Press('X', wxMOD_CONTROL);
    EXPECT_EQ(Clipboard(), "before");
    EXPECT_EQ(TreeText(), Before);
}

TEST_F(FormMainClipboardTest, TextThatIsNoEntryIsRefusedWithItsLine) {
    Select("R.1");
    ExpectRefused("Dear colleagues,", "Line 1 is neither");
    ExpectRefused("BLOCK SUBMENU\nCAPTION=x\nEND\nBLOCK SUBMENU\nHELPTOPIC=y\nEND\n",
                  "correct line 5 of the text");
    ExpectRefused("BLOCK SUBMENU\nCAPTION=\xD0\x96\nEND\n", "Line 2: the character \"\xD0\x96\"");
    ExpectRefused("BLOCK SUBMENU\nCAPTION=x\n", "Line 2: the text ends before");
}

TEST_F(FormMainClipboardTest, WithoutTextNothingIsPasted) {
    Select("R.1");
    SetClipboardWithoutText();
    dialogs.Answer(wxID_OK);
    Press('V', wxMOD_CONTROL);
    ASSERT_EQ(dialogs.shown.size(), 1u);
    const std::string reason = modStringRes::LoadResString(Message::ClipboardHasNoText);
    EXPECT_NE(dialogs.shown.back().text.find(reason), std::string::npos) << dialogs.shown.back().text;
    EXPECT_EQ(TreeText(), Before);
}

TEST_F(FormMainClipboardTest, MoreEntriesThanASubmenuHoldsAreRefused) {
    Select("R.1");
    std::string text;
    for (int i = 0; i < MenuItemCollection::MaxCount; ++i)
        text += "BLOCK SUBMENU\nEND\n";
    ExpectRefused(text, "A submenu holds at most 32,767 entries.");
}

TEST_F(FormMainClipboardTest, KeysEditTheTextWhileACaptionIsTyped) {
    SetClipboard("");
    Select("R.1");
    Press(WXK_F2);
    Press('A', wxMOD_CONTROL);
    Press('X', wxMOD_CONTROL);
    EXPECT_EQ(Clipboard(), "First");
    EXPECT_EQ(Tree().EditText(), "");
    Press('V', wxMOD_CONTROL);
    Press('V', wxMOD_CONTROL);
    Press(WXK_RETURN);
    EXPECT_EQ(Row("R.1").Text(), "FirstFirst");
    EXPECT_EQ(window->Editor().OpenMenu()->ChildCount(), 3);
}

} // namespace
} // namespace nesk::testing
