// The fields of the selected entries, edited beside the tree.

#include "gui/GuiFixture.h"

#include "base/Messages.h"
#include "gui/NextDialog.h"
#include "gui/UiDriver.h"
#include "menu/MenuItem.h"
#include "partedit/FormSelectHelpFile.h"
#include "partedit/FormSelectHistory.h"
#include "platform/OpenFileDialog.h"
#include "shell/FieldMessage.h"
#include "shell/FormDetails.h"
#include "shell/FormMessageBox.h"
#include "shell/FormProblems.h"
#include "shell/FormStatusBar.h"
#include "shell/FormToolBar.h"
#include "shell/UiCommandIcons.h"
#include "widgets/UiRowList.h"
#include "widgets/UiUtilities.h"

#include <wx/button.h>
#include <wx/menu.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

class FormMainDetailsTest : public MainWindowTest {
protected:
    FormMainDetailsTest() {
        station.Write("C:\\Parts\\A\\partinfo.ini", "[Part]\r\nName=Part of A\r\n");
        station.Write("C:\\History\\readme.txt", "");
        station.Write("C:\\Pictures\\new.bmp", "x");
        WriteMenu("BLOCK MENU\r\nCAPTION=Main Menu\r\n"
                  "BLOCK SUBMENU\r\nCAPTION=Housing\r\nMENUTYPE=Menu\r\n"
                  "BLOCK SUBMENU\r\nCAPTION=First\r\nMENUTYPE=Part Program\r\n"
                  "PROGRAMID=@C:\\Parts\\A\\partinfo.ini@\r\nGRAPHIC=C:\\a.bmp\r\nEND\r\n"
                  "BLOCK SUBMENU\r\nCAPTION=Second\r\nMENUTYPE=Part Program\r\nPROGRAMID=P7\r\n"
                  "GRAPHIC=C:\\b.bmp\r\nEND\r\n"
                  "END\r\nEND\r\n");
        OpenWindow();
        window->SetSize(1000, 800);
        Press('O', wxMOD_CONTROL);
        Press(WXK_F8);
        Select("R.1.1");
    }

    FormDetails& Details() const { return *window->pnDetails; }
    wxTextCtrl& Box(DetailField field) const { return *Details().TextBox(field); }

    std::string Shown(DetailField field) const {
        return Box(field).IsEnabled() ? "'" + TextOf(&Box(field)) + "'" : "disabled";
    }

    // Types a text into a field, over what is there.
    void TypeInto(DetailField field, const std::string& text) const {
        Focus(&Box(field));
        Press('A', wxMOD_CONTROL);
        Type(text);
    }

    const MenuItem& Item(const std::string& id) const {
        return dynamic_cast<const MenuItem&>(*window->Editor().Find(id));
    }

    std::size_t Steps() const { return window->Editor().History().UndoNames().size(); }
};

TEST_F(FormMainDetailsTest, TheFieldsOfTheSelectedEntryAreShown) {
    EXPECT_EQ(Shown(DetailField::Caption), "'First'");
    EXPECT_EQ(Shown(DetailField::Program), "'@C:\\Parts\\A\\partinfo.ini@'");
    EXPECT_EQ(Shown(DetailField::Picture), "'C:\\a.bmp'");
    EXPECT_EQ(Shown(DetailField::HelpTopic), "'0'");
    EXPECT_TRUE(WaitUntil([&] { return TextOf(Details().lblPart).find("Part of A") != std::string::npos; }));
    Select("R.1.2");
    EXPECT_EQ(Shown(DetailField::Caption), "'Second'");
    Select("R.1");
    EXPECT_EQ(Shown(DetailField::Caption), "'Housing'");
    EXPECT_EQ(Shown(DetailField::Program), "disabled");
    EXPECT_FALSE(Details().Button(DetailField::HelpFile)->IsEnabled());
}

TEST_F(FormMainDetailsTest, EnterMakesOneStep) {
    TypeInto(DetailField::Caption, "Better");
    EXPECT_EQ(Steps(), 0u);
    Press(WXK_RETURN);
    EXPECT_EQ(Item("R.1.1").Caption(), "Better");
    EXPECT_EQ(Row("R.1.1").Text(), "Better");
    EXPECT_EQ(Steps(), 1u);
    Press(WXK_RETURN);
    EXPECT_EQ(Steps(), 1u);
    // Without typing, the key undoes the last change of the menu.
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(Item("R.1.1").Caption(), "First");
    EXPECT_EQ(Shown(DetailField::Caption), "'First'");
}

TEST_F(FormMainDetailsTest, LeavingAFieldMakesOneStep) {
    TypeInto(DetailField::HelpFile, "C:\\h.chm");
    Press(WXK_TAB);
    EXPECT_EQ(Item("R.1.1").HelpFile(), "C:\\h.chm");
    TypeInto(DetailField::HelpTopic, "1x2");
    ClickRow("R.1.2");
    EXPECT_EQ(Item("R.1.1").HelpTopic(), 12);
    EXPECT_EQ(Item("R.1.2").HelpTopic(), 0);
    EXPECT_EQ(Shown(DetailField::Caption), "'Second'");
    EXPECT_EQ(Steps(), 2u);
}

TEST_F(FormMainDetailsTest, EscapeTakesTheTypingBack) {
    TypeInto(DetailField::Caption, "Other");
    Press(WXK_ESCAPE);
    EXPECT_EQ(Shown(DetailField::Caption), "'First'");
    EXPECT_TRUE(Box(DetailField::Caption).HasFocus());
    Press(WXK_ESCAPE);
    EXPECT_TRUE(Tree().Window().HasFocus());
    EXPECT_EQ(Steps(), 0u);
}

TEST_F(FormMainDetailsTest, ACommandSetsTheTypedTextFirst) {
    TypeInto(DetailField::Caption, "Saved");
    Press('S', wxMOD_CONTROL);
    EXPECT_NE(MenuOnDisk().find("CAPTION=Saved"), std::string::npos);
    EXPECT_FALSE(window->Editor().IsDirty());
}

TEST_F(FormMainDetailsTest, KeysOfTheTextDoNotChangeTheEntry) {
    TypeInto(DetailField::Caption, "abc");
    Press(WXK_HOME);
    Press(WXK_DELETE);
    Press('D', wxMOD_CONTROL);
    Press(WXK_F2);
    EXPECT_EQ(TextOf(&Box(DetailField::Caption)), "bc");
    Press('A', wxMOD_CONTROL);
    Press('X', wxMOD_CONTROL);
    EXPECT_EQ(Clipboard(), "bc");
    EXPECT_EQ(Steps(), 0u);
    EXPECT_NE(window->Editor().Find("R.1.1"), nullptr);
}

TEST_F(FormMainDetailsTest, AHistoryDirectoryThatIsMissingIsRefused) {
    TypeInto(DetailField::HistoryDir, "C:\\Nowhere");
    {
        std::string text;
        const NextDialog<FormMessageBox> next([&](FormMessageBox& dialog) {
            text = TextOf(dialog.lblMsg);
            Press(WXK_RETURN);
            EXPECT_TRUE(WaitUntil([&] { return !IsOpen(dialog); }));
        });
        dialogs.Answer(wxID_NONE);
        Press(WXK_RETURN);
        EXPECT_EQ(text, FieldMessage::Text(Message::HistoryFolder));
    }
    EXPECT_TRUE(Box(DetailField::HistoryDir).HasFocus());
    EXPECT_EQ(TextOf(&Box(DetailField::HistoryDir)), "C:\\Nowhere");
    EXPECT_TRUE(Details().lblReason->IsShown());
    EXPECT_EQ(Steps(), 0u);
    TypeInto(DetailField::HistoryDir, "C:\\History");
    Press(WXK_RETURN);
    EXPECT_EQ(Item("R.1.1").HistoryDir(), "C:\\History");
    EXPECT_EQ(Item("R.1.1").HistoryTitle(), "First");
    EXPECT_FALSE(Details().lblReason->IsShown());
    EXPECT_EQ(Steps(), 1u);
}

TEST_F(FormMainDetailsTest, ARefusedTextComesBackAfterAClickElsewhere) {
    TypeInto(DetailField::HistoryDir, "C:\\Nowhere");
    {
        const NextDialog<FormMessageBox> next([&](FormMessageBox& dialog) {
            Press(WXK_RETURN);
            EXPECT_TRUE(WaitUntil([&] { return !IsOpen(dialog); }));
        });
        dialogs.Answer(wxID_NONE);
        ClickRow("R.1.2");
        EXPECT_TRUE(WaitUntil([&] { return Box(DetailField::HistoryDir).HasFocus(); }));
    }
    EXPECT_EQ(SelectedText(), "First");
    EXPECT_EQ(TextOf(&Box(DetailField::HistoryDir)), "C:\\Nowhere");
    Press(WXK_ESCAPE);
    EXPECT_EQ(Shown(DetailField::HistoryDir), "''");
    EXPECT_EQ(Steps(), 0u);
}

TEST_F(FormMainDetailsTest, SeveralPartsShowWhatTheyShare) {
    ClickRow("R.1.2", wxMOUSE_BTN_LEFT, WXK_SHIFT);
    EXPECT_EQ(SelectedText(), "First Second");
    EXPECT_EQ(Shown(DetailField::Caption), "disabled");
    EXPECT_EQ(Shown(DetailField::Picture), "''");
    EXPECT_EQ(Shown(DetailField::Preview), "''");
    EXPECT_TRUE(Details().lblAbout->IsShown());
    TypeInto(DetailField::Preview, "C:\\p.bmp");
    Press(WXK_RETURN);
    EXPECT_EQ(Item("R.1.1").Preview(), "C:\\p.bmp");
    EXPECT_EQ(Item("R.1.2").Preview(), "C:\\p.bmp");
    EXPECT_EQ(Item("R.1.1").Graphic(), "C:\\a.bmp");
    EXPECT_EQ(Steps(), 1u);
}

TEST_F(FormMainDetailsTest, APictureIsChosen) {
    const auto before = platform::SetOpenFileDialog(
        [](wxWindow*, const platform::OpenFileRequest&) { return std::string("C:\\Pictures\\new.bmp"); });
    Click(Details().Button(DetailField::Picture));
    platform::SetOpenFileDialog(before);
    EXPECT_EQ(Item("R.1.1").Graphic(), "C:\\Pictures\\new.bmp");
    EXPECT_EQ(Shown(DetailField::Picture), "'C:\\Pictures\\new.bmp'");
    EXPECT_EQ(Steps(), 1u);
}

TEST_F(FormMainDetailsTest, HelpAndHistoryHaveTheirDialogs) {
    {
        const NextDialog<FormSelectHelpFile> next([](FormSelectHelpFile& dialog) {
            Fill(dialog.txtHelpFile, "C:\\h.chm");
            Fill(dialog.txtHelpTopic, "5");
            Press(WXK_RETURN);
        });
        dialogs.Answer(wxID_NONE);
        Click(Details().Button(DetailField::HelpFile));
    }
    EXPECT_EQ(Item("R.1.1").HelpFile(), "C:\\h.chm");
    EXPECT_EQ(Item("R.1.1").HelpTopic(), 5);
    EXPECT_EQ(Steps(), 1u);
    {
        const NextDialog<FormSelectHistory> next([](FormSelectHistory& dialog) {
            EXPECT_EQ(TextOf(dialog.txtHistoryTitle), "First");
            Fill(dialog.txtHistoryDir, "C:\\History");
            Press(WXK_RETURN);
        });
        dialogs.Answer(wxID_NONE);
        Click(Details().Button(DetailField::HistoryDir));
    }
    EXPECT_EQ(Item("R.1.1").HistoryDir(), "C:\\History");
    EXPECT_EQ(Shown(DetailField::HistoryTitle), "'First'");
    EXPECT_EQ(Steps(), 2u);
}

TEST_F(FormMainDetailsTest, ASmallPictureTakesNoFocus) {
    Focus(&Box(DetailField::Picture));
    Press(WXK_TAB);
    EXPECT_TRUE(Details().Button(DetailField::Picture)->HasFocus());
    Press(WXK_TAB);
    EXPECT_TRUE(Box(DetailField::Preview).HasFocus());
    Press(WXK_TAB);
    EXPECT_TRUE(Details().Button(DetailField::Preview)->HasFocus());
    Press(WXK_TAB, wxMOD_SHIFT);
    EXPECT_TRUE(Box(DetailField::Preview).HasFocus());
    ClickMiddle(Details().View(DetailField::Picture));
    EXPECT_TRUE(WaitUntil([&] { return Box(DetailField::Picture).HasFocus(); })) << "the box beside it";
    Type("C:\\x.bmp");
    Press(WXK_RETURN);
    EXPECT_EQ(Item("R.1.1").Graphic(), "C:\\x.bmp");
}

TEST_F(FormMainDetailsTest, TheMouseUndoesInAFieldAsTheKeyDoes) {
    const auto isEnabled = [&](MainCommand command, const wxMenuItem* item) {
        const bool inToolBar = window->tbMain->GetToolEnabled(CommandId(command));
        EXPECT_EQ(item->IsEnabled(), inToolBar);
        return item->IsEnabled();
    };
    const auto canUndo = [&] { return isEnabled(MainCommand::Undo, window->mnuEditUndo); };
    const auto canRedo = [&] { return isEnabled(MainCommand::Redo, window->mnuEditRedo); };
    Focus(&Box(DetailField::Caption));
    Settle();
    EXPECT_FALSE(canUndo());
    TypeInto(DetailField::Caption, "Better");
    EXPECT_TRUE(WaitUntil(canUndo)) << "the typing";
    ClickTool(*window->tbMain, CommandId(MainCommand::Undo));
    EXPECT_EQ(Shown(DetailField::Caption), "'First'");
    EXPECT_FALSE(window->Editor().History().ToRedo()) << "the typing was no change of the menu";
    EXPECT_TRUE(WaitUntil([&] { return !canUndo(); }));

    TypeInto(DetailField::Caption, "Better");
    Press(WXK_RETURN);
    EXPECT_TRUE(Box(DetailField::Caption).HasFocus());
    EXPECT_TRUE(WaitUntil(canUndo));
    EXPECT_FALSE(canRedo());
    EXPECT_EQ(window->mnuEditUndo->GetItemLabelText(), "Undo rename of \"First\"");
    Type("Best");
    EXPECT_TRUE(WaitUntil([&] { return window->mnuEditUndo->GetItemLabelText() == "Undo"; }))
        << "of the typing";
    ASSERT_TRUE(Click(window->mnuEditUndo));
    EXPECT_EQ(Shown(DetailField::Caption), "'Better'");
    ASSERT_TRUE(Click(window->mnuEditUndo));
    EXPECT_EQ(Item("R.1.1").Caption(), "First");
    EXPECT_EQ(Shown(DetailField::Caption), "'First'");
    Focus(&Box(DetailField::Caption));
    EXPECT_TRUE(WaitUntil(canRedo));
    ClickTool(*window->tbMain, CommandId(MainCommand::Redo));
    EXPECT_EQ(Item("R.1.1").Caption(), "Better");
    Focus(&Box(DetailField::Caption));
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(Item("R.1.1").Caption(), "First");
    Focus(&Box(DetailField::Caption));
    Press('Y', wxMOD_CONTROL);
    EXPECT_EQ(Item("R.1.1").Caption(), "Better");
    Focus(&Box(DetailField::Caption));
    Press('Z', wxMOD_CONTROL);
    Focus(&Box(DetailField::Caption));
    Type("x");
    Press('Y', wxMOD_CONTROL);
    EXPECT_EQ(Item("R.1.1").Caption(), "First") << "a redo would throw the typing away";
    EXPECT_TRUE(WaitUntil([&] { return !canRedo(); }));
    EXPECT_TRUE(window->Editor().History().ToRedo());
}

TEST_F(FormMainDetailsTest, AHelpTopicThatIsNoNumberStaysAndSaysSo) {
    TypeInto(DetailField::HelpTopic, "7");
    Press(WXK_RETURN);
    TypeInto(DetailField::HelpTopic, "99999999999");
    Press(WXK_RETURN);
    EXPECT_EQ(Item("R.1.1").HelpTopic(), 7);
    EXPECT_EQ(Shown(DetailField::HelpTopic), "'7'") << "at once";
    EXPECT_TRUE(Details().lblReason->IsShown());
    EXPECT_NE(TextOf(Details().lblReason).find("2147483647"), std::string::npos)
        << TextOf(Details().lblReason);
    TypeInto(DetailField::HelpTopic, "8");
    Press(WXK_RETURN);
    EXPECT_FALSE(Details().lblReason->IsShown());
    TypeInto(DetailField::HelpTopic, "abc");
    EXPECT_EQ(Shown(DetailField::HelpTopic), "'8'") << "letters are not taken";
    Press(WXK_DELETE);
    Press(WXK_TAB);
    EXPECT_EQ(Item("R.1.1").HelpTopic(), 8);
    EXPECT_EQ(Shown(DetailField::HelpTopic), "'8'") << "an empty field too";
    EXPECT_TRUE(Details().lblReason->IsShown());
    EXPECT_EQ(Steps(), 2u);
}

TEST_F(FormMainDetailsTest, StatusBarAndDetailsCountTheSameEntries) {
    window->tvMain->SelectKeys({"R.1", "R.1.1", "R.1.2"});
    Settle();
    EXPECT_NE(TextOf(Details().lblAbout).find("3 entries are selected"), std::string::npos);
    const std::string counts = modUtilities::FromWx(window->sbMain->Counts());
    EXPECT_NE(counts.find("3 selected"), std::string::npos) << counts;
}

TEST_F(FormMainDetailsTest, TheFieldsStayWhereTheyAre) {
    const auto places = [&] {
        std::vector<int> lines;
        for (std::size_t i = 0; i < DetailFieldCount; ++i) {
            const wxPoint place = Box(static_cast<DetailField>(i)).GetScreenPosition();
            lines.push_back(Details().ScreenToClient(place).y);
        }
        return lines;
    };
    const std::vector<int> one = places();
    for (const int height : {800, 420}) {
        window->SetSize(1000, height);
        Select("R.1.1");
        EXPECT_TRUE(WaitUntil([&] { return window->GetSize().y == height && places() == one; })) << height;
        window->tvMain->SelectKeys({"R.1.1", "R.1.2"});
        Settle();
        EXPECT_EQ(places(), one) << height;
        Select("R");
        EXPECT_EQ(places(), one) << height;
        Select("R.1");
        EXPECT_EQ(places(), one) << height;
    }
}

TEST_F(FormMainDetailsTest, TheLineAboveTheFieldsTellsTheSubmenu) {
    EXPECT_EQ(TextOf(Details().lblAbout), "In Housing");
    Select("R.1");
    EXPECT_EQ(TextOf(Details().lblAbout), "In Main Menu");
    Select("R");
    EXPECT_EQ(TextOf(Details().lblAbout), "The menu itself");
}

TEST_F(FormMainDetailsTest, ATypedPathOfAPartBecomesItsReference) {
    TypeInto(DetailField::Program, "C:\\Parts\\A\\PartInfo.INI");
    Press(WXK_RETURN);
    EXPECT_EQ(Item("R.1.1").ProgramID(), "@C:\\Parts\\A\\PartInfo.INI@");
    EXPECT_EQ(Shown(DetailField::Program), "'@C:\\Parts\\A\\PartInfo.INI@'");
}

TEST_F(FormMainDetailsTest, AProblemLeadsToItsField) {
    Press(WXK_F9);
    ASSERT_TRUE(WaitUntil([&] { return window->pnProblems->lstProblems->GetItemCount() == 2; }));
    Select("R");
    window->pnProblems->FocusList();
    Settle();
    Press(WXK_RETURN);
    EXPECT_EQ(SelectedText(), "First");
    EXPECT_TRUE(Box(DetailField::Picture).HasFocus());
}

TEST_F(FormMainDetailsTest, ClosingTheMenuEmptiesTheFields) {
    ASSERT_TRUE(Click(window->mnuFileClose));
    for (std::size_t i = 0; i < DetailFieldCount; ++i)
        EXPECT_EQ(Shown(static_cast<DetailField>(i)), "disabled") << i;
}

} // namespace
} // namespace nesk::testing
