#include "gui/GuiFixture.h"
#include "gui/TreeIcons.h"

#include "settings/NeskRegistry.h"
#include "settings/RegEntry.h"
#include "shell/FormPanes.h"
#include "shell/modStringRes.h"
#include "widgets/UiUtilities.h"

#include <filesystem>

#include <wx/infobar.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/statusbr.h>

namespace nesk::testing {
namespace {

using modStringRes::LoadResString;
using modUtilities::FromWx;

class FormMainTest : public MainWindowTest {
protected:
    // Opens a window with the small menu.
    void OpenSmallMenu() {
        WriteMenu(SmallMenu);
        OpenWindow();
        ASSERT_TRUE(Click(window->mnuFileOpen));
    }

    std::string Title() const { return FromWx(window->GetTitle()); }
    std::string StatusPath() const { return FromWx(window->sbMain->GetStatusText(0)); }

    // Short names of the enabled commands of the Menu menu.
    std::string Enabled() const {
        std::string names;
        const auto add = [&](const wxMenuItem* item, const char* name) {
            if (item->IsEnabled()) names += names.empty() ? name : std::string(" ") + name;
        };
        add(window->mnuMenuAddPart, "part");
        add(window->mnuMenuAddSubmenu, "submenu");
        add(window->mnuMenuUp, "up");
        add(window->mnuMenuDown, "down");
        add(window->mnuMenuRename, "rename");
        add(window->mnuMenuRemove, "remove");
        return names;
    }
};

TEST_F(FormMainTest, StartsWithoutAFile) {
    OpenWindow();
    EXPECT_EQ(Title(), LoadResString(32049));
    EXPECT_TRUE(window->mnuFileOpen->IsEnabled());
    EXPECT_FALSE(window->mnuFileSave->IsEnabled());
    EXPECT_FALSE(window->mnuFileClose->IsEnabled());
    EXPECT_TRUE(window->mnuFileExit->IsEnabled());
    EXPECT_TRUE(window->mnuHelpContents->IsEnabled());
    EXPECT_FALSE(window->GetMenuBar()->IsEnabledTop(2)) << "the Menu menu";
    EXPECT_EQ(Enabled(), "");
    EXPECT_EQ(TreeText(), "");
    EXPECT_EQ(StatusPath(), "");
    EXPECT_FALSE(IsShown(window->ibIncomplete));
}

TEST_F(FormMainTest, OpenNeedsTheMenuRoot) {
    NeskRegistry::Instance().NeskRoot = "C:\\Elsewhere";
    OpenWindow();
    EXPECT_FALSE(window->mnuFileOpen->IsEnabled());
    station.Write("C:\\Elsewhere\\x", "");
    window->UpdateFileMenus();
    EXPECT_TRUE(window->mnuFileOpen->IsEnabled());
}

TEST_F(FormMainTest, OpenShowsTheTree) {
    OpenSmallMenu();
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n Last\n");
    EXPECT_EQ(StatusPath(), "C:\\Neskroot\\menu.cfg");
    EXPECT_EQ(Title(), LoadResString(32049));
    EXPECT_FALSE(window->mnuFileOpen->IsEnabled());
    EXPECT_TRUE(window->mnuFileSave->IsEnabled());
    EXPECT_TRUE(window->mnuFileClose->IsEnabled());
    EXPECT_TRUE(window->GetMenuBar()->IsEnabledTop(1));
    EXPECT_TRUE(Tree().Root()->IsExpanded());
    EXPECT_EQ(window->tvMain->SelectedKey(), "R");
    Select("R.3");
    EXPECT_TRUE(HasIcon(Tree(), *Tree().Root(), "folder"));
    EXPECT_TRUE(HasIcon(Tree(), Row("R.2"), "folder"));
    EXPECT_TRUE(HasIcon(Tree(), Row("R.1"), "part+warning")) << "it has no program";
    Tree().Expand(Row("R.2"));
    Settle();
    EXPECT_TRUE(HasIcon(Tree(), Row("R.2.1"), "part+warning")) << "it has no program";
}

TEST_F(FormMainTest, ThePictureOfAPartTellsWhetherItHasAProgram) {
    OpenSmallMenu();
    Select("R.3");
    PartFields fields;
    fields.programId = "cover";
    ASSERT_TRUE(window->Editor().SetPart("R.1", fields));
    Settle();
    EXPECT_TRUE(HasIcon(Tree(), Row("R.1"), "part"));
    EXPECT_FALSE(HasIcon(Tree(), Row("R.1"), "part+warning"));
    ASSERT_TRUE(Click(window->mnuEditUndo));
    Select("R.3");
    EXPECT_TRUE(HasIcon(Tree(), Row("R.1"), "part+warning"));
}

TEST_F(FormMainTest, AMissingFileOpensAnEmptyMenu) {
    OpenWindow();
    ASSERT_TRUE(Click(window->mnuFileOpen));
    EXPECT_EQ(TreeText(), "Main Menu\n");
    EXPECT_EQ(StatusPath(), "");
    EXPECT_FALSE(window->Editor().IsDirty());
    ASSERT_TRUE(Click(window->mnuFileSave));
    EXPECT_EQ(MenuOnDisk(), "BLOCK MENU\r\n\tCAPTION=Main Menu\r\n\tGRAPHIC=\r\nEND\r\n");
    EXPECT_EQ(StatusPath(), "C:\\Neskroot\\menu.cfg");
}

TEST_F(FormMainTest, CommandsFollowTheSelection) {
    OpenSmallMenu();
    EXPECT_EQ(Enabled(), "part submenu rename");
    Select("R.1");
    EXPECT_EQ(Enabled(), "down rename remove");
    Select("R.2");
    EXPECT_EQ(Enabled(), "part submenu up down rename remove");
    Select("R.2.1");
    EXPECT_EQ(Enabled(), "rename remove");
    Select("R.3");
    EXPECT_EQ(Enabled(), "up rename remove");
}

TEST_F(FormMainTest, SavedAgainTheFileIsTheSame) {
    OpenSmallMenu();
    ASSERT_TRUE(Click(window->mnuFileSave));
    EXPECT_EQ(MenuOnDisk(), SmallMenu);
}

TEST_F(FormMainTest, ANewPartIsSelectedAndItsCaptionTyped) {
    OpenSmallMenu();
    Select("R.2");
    ASSERT_TRUE(Click(window->mnuMenuAddPart));
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.2.2");
    ASSERT_NE(Tree().Edited(), nullptr) << "its label is being edited";
    EXPECT_EQ(Tree().EditText(), LoadResString(32018));
    Type("Plate");
    Press(WXK_RETURN);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n  Plate\n Last\n");
    EXPECT_EQ(Title(), LoadResString(32049) + " *");
    ASSERT_TRUE(Click(window->mnuFileSave));
    EXPECT_NE(MenuOnDisk().find("\t\t\tCAPTION=Plate\r\n"), std::string::npos);
    EXPECT_NE(MenuOnDisk().find("\t\t\tMENUTYPE=Part Program\r\n"), std::string::npos);
    EXPECT_EQ(Title(), LoadResString(32049));
}

TEST_F(FormMainTest, ANewSubmenuKeepsItsCaptionWhenTypingIsCalledOff) {
    OpenSmallMenu();
    ASSERT_TRUE(Click(window->mnuMenuAddSubmenu));
    Type("Gone");
    Press(WXK_ESCAPE);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n Last\n " + LoadResString(32019) + "\n");
    EXPECT_EQ(Tree().Edited(), nullptr);
    EXPECT_TRUE(window->Editor().IsDirty());
    EXPECT_EQ(Enabled(), "part submenu up rename remove");
}

TEST_F(FormMainTest, MovingKeepsTheSubtreeAndTheSelection) {
    OpenSmallMenu();
    Select("R.2");
    ASSERT_TRUE(Click(window->mnuMenuUp));
    EXPECT_EQ(TreeText(), "Main Menu\n Brackets\n  Angle\n First\n Last\n");
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.2");
    EXPECT_FALSE(window->mnuMenuUp->IsEnabled()) << "it is the first now";
    ASSERT_TRUE(Click(window->mnuMenuDown));
    ASSERT_TRUE(Click(window->mnuMenuDown));
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Last\n Brackets\n  Angle\n");
    EXPECT_FALSE(window->mnuMenuDown->IsEnabled());
    EXPECT_TRUE(window->Editor().IsDirty());
}

TEST_F(FormMainTest, AMoveToAnotherSubmenuIsFollowed) {
    OpenSmallMenu();
    MenuEditor& editor = window->Editor();
    // Moves into a submenu whose rows were never created, and into one whose rows were.
    for (const bool shown : {false, true}) {
        SCOPED_TRACE(shown);
        if (shown) Row("R.2.1");
        Select("R.1");
        const std::string id = editor.MoveTo("R.1", "R.2", 1);
        EXPECT_EQ(window->tvMain->SelectedKey(), id);
        EXPECT_EQ(Row(id).Text(), "First");
        EXPECT_EQ(TreeText(), "Main Menu\n Brackets\n  First\n  Angle\n Last\n");
        EXPECT_TRUE(editor.SetCaption(id, "Other"));
        EXPECT_EQ(Row(id).Text(), "Other") << "the row is known by its new id";
        EXPECT_TRUE(editor.Undo());
        EXPECT_TRUE(editor.Undo());
        EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n Last\n");
        EXPECT_EQ(window->tvMain->SelectedKey(), "R.1");
        EXPECT_FALSE(editor.IsDirty());
        EXPECT_EQ(Title(), LoadResString(32049)) << "the saved state is clean";
    }
    const std::string id = editor.MoveTo("R.2", "R", 3);
    EXPECT_EQ(id, "R.2") << "among its siblings it keeps its id";
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Last\n Brackets\n  Angle\n");
}

TEST_F(FormMainTest, RemovingAsksFirst) {
    OpenSmallMenu();
    Select("R.2");
    dialogs.Answer(wxID_NO);
    ASSERT_TRUE(Click(window->mnuMenuRemove));
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n Last\n");
    EXPECT_FALSE(window->Editor().IsDirty());
    dialogs.Answer(wxID_YES);
    ASSERT_TRUE(Click(window->mnuMenuRemove));
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Last\n");
    EXPECT_TRUE(window->Editor().IsDirty());
    EXPECT_EQ(dialogs.shown.at(1).text,
              "Remove \"Brackets\" from the menu?\n\nEntries below it that are removed too: 1.");
    EXPECT_EQ(dialogs.shown.at(1).title, LoadResString(32017));
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.3") << "the selection falls on another entry";
}

TEST_F(FormMainTest, TheRootIsNotRemoved) {
    OpenSmallMenu();
    EXPECT_FALSE(window->mnuMenuRemove->IsEnabled());
    dialogs.Answer(wxID_OK);
    ClickDisabled(window->mnuMenuRemove);
    EXPECT_EQ(dialogs.shown.at(0).text, LoadResString(32020));
    EXPECT_EQ(dialogs.shown.at(0).title, LoadResString(32015));
    EXPECT_NE(dialogs.shown.at(0).style & wxICON_INFORMATION, 0);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n Last\n");
}

TEST_F(FormMainTest, RenamingTypesACaption) {
    OpenSmallMenu();
    Select("R.1");
    ASSERT_TRUE(Click(window->mnuMenuRename));
    Type("Housing");
    Press(WXK_RETURN);
    EXPECT_EQ(window->Editor().Find("R.1")->Caption(), "Housing");
    EXPECT_EQ(TreeText(), "Main Menu\n Housing\n Brackets\n  Angle\n Last\n");
    EXPECT_TRUE(window->Editor().IsDirty());
    Select("R");
    ASSERT_TRUE(Click(window->mnuMenuRename));
    Type("Cell 4");
    Press(WXK_RETURN);
    EXPECT_EQ(window->Editor().OpenMenu()->Caption(), "Cell 4") << "the root has a caption too";
}

TEST_F(FormMainTest, CloseAsksWhetherToSave) {
    OpenSmallMenu();
    ASSERT_TRUE(window->Editor().SetCaption("R.1", "Changed"));
    dialogs.Answer(wxID_NO);
    ASSERT_TRUE(Click(window->mnuFileClose));
    EXPECT_EQ(dialogs.shown.at(0).text, LoadResString(32016));
    EXPECT_EQ(dialogs.shown.at(0).title, LoadResString(32017));
    EXPECT_EQ(dialogs.shown.at(0).style & (wxYES_NO | wxCANCEL), wxYES_NO) << "closing offers no Cancel";
    EXPECT_FALSE(window->Editor().IsOpen());
    EXPECT_EQ(TreeText(), "");
    EXPECT_EQ(StatusPath(), "");
    EXPECT_TRUE(window->mnuFileOpen->IsEnabled());
    EXPECT_EQ(MenuOnDisk(), SmallMenu);
}

TEST_F(FormMainTest, CloseSavesOnYes) {
    OpenSmallMenu();
    ASSERT_TRUE(window->Editor().SetCaption("R.1", "Changed"));
    dialogs.Answer(wxID_YES);
    ASSERT_TRUE(Click(window->mnuFileClose));
    EXPECT_FALSE(window->Editor().IsOpen());
    EXPECT_NE(MenuOnDisk().find("CAPTION=Changed\r\n"), std::string::npos);
}

TEST_F(FormMainTest, CloseWithoutChangesAsksNothing) {
    OpenSmallMenu();
    ASSERT_TRUE(Click(window->mnuFileClose));
    EXPECT_FALSE(window->Editor().IsOpen());
    ASSERT_TRUE(Click(window->mnuFileOpen)) << "and the file can be opened again";
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n Last\n");
}

TEST_F(FormMainTest, ExitCanBeCalledOff) {
    OpenSmallMenu();
    ASSERT_TRUE(window->Editor().SetCaption("R.1", "Changed"));
    dialogs.Answer(wxID_CANCEL);
    ASSERT_TRUE(Click(window->mnuFileExit));
    EXPECT_EQ(dialogs.shown.at(0).style & (wxYES_NO | wxCANCEL), wxYES_NO | wxCANCEL);
    EXPECT_TRUE(window->Editor().IsDirty());
    EXPECT_EQ(MenuOnDisk(), SmallMenu);
    EXPECT_FALSE(window->IsBeingDeleted());
}

TEST_F(FormMainTest, ExitSavesOnYesAndCloses) {
    OpenSmallMenu();
    ASSERT_TRUE(window->Editor().SetCaption("R.1", "Changed"));
    dialogs.Answer(wxID_YES);
    ASSERT_TRUE(window->Close());
    window = nullptr;
    Settle();
    EXPECT_NE(MenuOnDisk().find("CAPTION=Changed\r\n"), std::string::npos);
}

TEST_F(FormMainTest, ExitWithNoClosesWithoutSaving) {
    OpenSmallMenu();
    ASSERT_TRUE(window->Editor().SetCaption("R.1", "Changed"));
    dialogs.Answer(wxID_NO);
    ASSERT_TRUE(window->Close());
    window = nullptr;
    Settle();
    EXPECT_EQ(MenuOnDisk(), SmallMenu);
}

TEST_F(FormMainTest, NoSettingsAreStoredByEditingAMenu) {
    OpenSmallMenu();
    ASSERT_TRUE(window->Editor().SetCaption("R.1", "Changed"));
    ASSERT_TRUE(Click(window->mnuFileSave));
    ASSERT_TRUE(Click(window->mnuFileClose));
    ASSERT_TRUE(window->Close());
    window = nullptr;
    Settle();
    EXPECT_FALSE(RegEntry().TestKey("Neskworks"));
}

TEST_F(FormMainTest, AFailedSaveKeepsTheWindowOpen) {
    OpenSmallMenu();
    ASSERT_TRUE(window->Editor().SetCaption("R.1", "Changed"));
    // A backup cannot replace a folder of this name.
    std::filesystem::create_directories(TempStation::Host("C:\\Neskroot\\menu.cfg.bak\\x"));
    dialogs.Answer(wxID_OK);
    ASSERT_TRUE(Click(window->mnuFileSave));
    EXPECT_NE(dialogs.shown.at(0).text.find("C:\\Neskroot\\menu.cfg.bak"), std::string::npos);
    EXPECT_NE(dialogs.shown.at(0).style & wxICON_ERROR, 0);
    EXPECT_TRUE(window->Editor().IsDirty());
    for (wxMenuItem* item : {window->mnuFileClose, window->mnuFileExit}) {
        dialogs.Answer(wxID_YES);
        dialogs.Answer(wxID_OK);
        ASSERT_TRUE(Click(item));
        EXPECT_TRUE(window->Editor().IsOpen());
        EXPECT_TRUE(window->Editor().IsDirty());
    }
    EXPECT_EQ(MenuOnDisk(), SmallMenu);
}

TEST_F(FormMainTest, ADamagedFileIsShownAsFarAsItGoes) {
    const std::string damaged =
        SmallMenu.substr(0, SmallMenu.find("\tBLOCK SUBMENU\r\n\t\tCAPTION=Last")) + "oops\r\n";
    WriteMenu(damaged);
    OpenWindow();
    dialogs.Answer(wxID_OK);
    ASSERT_TRUE(Click(window->mnuFileOpen));
    for (const char* part : {"5000", "C:\\Neskroot\\menu.cfg", "37"})
        EXPECT_NE(dialogs.shown.at(0).text.find(part), std::string::npos) << dialogs.shown[0].text;
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n");
    EXPECT_TRUE(IsShown(window->ibIncomplete));

    dialogs.Answer(wxID_NO);
    ASSERT_TRUE(Click(window->mnuFileSave));
    EXPECT_EQ(MenuOnDisk(), damaged) << "not saved without consent";
    dialogs.Answer(wxID_YES);
    ASSERT_TRUE(Click(window->mnuFileSave));
    EXPECT_NE(dialogs.shown.at(2).text.find("menu.cfg.damaged"), std::string::npos);
    EXPECT_TRUE(std::filesystem::exists(TempStation::Host("C:\\Neskroot\\menu.cfg.damaged")));
    EXPECT_FALSE(IsShown(window->ibIncomplete));
    EXPECT_NE(MenuOnDisk(), damaged);
}

TEST_F(FormMainTest, AFileChangedByAnotherProgramIsNotOverwrittenUnasked) {
    OpenSmallMenu();
    ASSERT_TRUE(window->Editor().SetCaption("R.1", "Mine"));
    WriteMenu("BLOCK MENU\nCAPTION=Theirs\nEND\n");
    // Without the version that was opened, the changes of both cannot be merged.
    ASSERT_TRUE(WaitUntil([] {
        std::error_code error;
        return std::filesystem::remove(TempStation::Host("C:\\Neskroot\\menu.cfg.unsaved.base"), error);
    }));
    dialogs.Answer(wxID_NO);
    ASSERT_TRUE(Click(window->mnuFileSave));
    const std::string copy = window->Editor().PlanSave("C:\\Neskroot\\menu.cfg").backup.path;
    EXPECT_NE(dialogs.shown.at(0).text.find(copy), std::string::npos) << dialogs.shown[0].text;
    EXPECT_EQ(MenuOnDisk(), "BLOCK MENU\nCAPTION=Theirs\nEND\n");
    EXPECT_TRUE(window->Editor().IsDirty());
    dialogs.Answer(wxID_YES);
    ASSERT_TRUE(Click(window->mnuFileSave));
    EXPECT_NE(MenuOnDisk().find("CAPTION=Mine"), std::string::npos);
    EXPECT_TRUE(std::filesystem::exists(TempStation::Host(copy))) << copy;
}

TEST_F(FormMainTest, SavingWithoutAMenuRootSaysSo) {
    OpenSmallMenu();
    ASSERT_TRUE(window->Editor().SetCaption("R.1", "Changed"));
    NeskRegistry::Instance().NeskRoot = "";
    dialogs.Answer(wxID_OK);
    ASSERT_TRUE(Click(window->mnuFileSave));
    EXPECT_NE(dialogs.shown.at(0).text.find(LoadResString(34135)), std::string::npos);
    EXPECT_TRUE(window->Editor().IsDirty());
}

TEST_F(FormMainTest, EditOpensTheEditorOfTheEntry) {
    OpenSmallMenu();
    EXPECT_FALSE(window->mnuMenuEdit->IsEnabled()) << "the root has nothing to edit";
    Select("R.2");
    dialogs.Answer(wxID_CANCEL);
    ASSERT_TRUE(Click(window->mnuMenuEdit));
    EXPECT_EQ(dialogs.shown.at(0).title, LoadResString(32081));
    EXPECT_FALSE(window->Editor().IsDirty());
    Select("R.1");
    dialogs.Answer(wxID_CANCEL);
    ASSERT_TRUE(Click(window->mnuMenuEdit));
    EXPECT_EQ(dialogs.shown.at(1).title, modStringRes::FormatResString(32029, "First"));
    EXPECT_FALSE(window->Editor().IsDirty());
    dialogs.Answer(wxID_OK);
    ASSERT_TRUE(Click(window->mnuMenuEdit));
    EXPECT_TRUE(window->Editor().IsDirty()) << "a dialog was confirmed";
}

TEST_F(FormMainTest, ADoubleClickEdits) {
    OpenSmallMenu();
    DoubleClickRow("R");
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_FALSE(Tree().Root()->IsExpanded()) << "the root has nothing to edit: it closes";
    DoubleClickRow("R");
    dialogs.Answer(wxID_OK);
    DoubleClickRow("R.2");
    EXPECT_EQ(dialogs.shown.at(0).title, LoadResString(32081));
    EXPECT_TRUE(window->Editor().IsDirty());
    EXPECT_FALSE(Row("R.2").IsExpanded());
    dialogs.Answer(wxID_CANCEL);
    DoubleClickRow("R.1");
    EXPECT_EQ(dialogs.shown.at(1).title, modStringRes::FormatResString(32029, "First"));
}

TEST_F(FormMainTest, SettingsOpenTheirDialogs) {
    OpenWindow();
    dialogs.Answer(wxID_CANCEL);
    ASSERT_TRUE(Click(window->mnuSettingsAccess));
    EXPECT_EQ(dialogs.shown.at(0).title, LoadResString(32030));
    dialogs.Answer(wxID_CANCEL);
    ASSERT_TRUE(Click(window->mnuSettingsOptions));
    EXPECT_EQ(dialogs.shown.at(1).title, LoadResString(32035));
}

TEST_F(FormMainTest, ConfirmedOptionsDecideWhetherThereIsAMenuToOpen) {
    NeskRegistry::Instance().NeskRoot = "C:\\Gone";
    OpenWindow();
    EXPECT_FALSE(window->mnuFileOpen->IsEnabled());
    // The dialog is answered without being shown, so the test sets the root folder that the dialog would have
    // stored.
    NeskRegistry::Instance().NeskRoot = "C:\\Neskroot";
    dialogs.Answer(wxID_CANCEL);
    ASSERT_TRUE(Click(window->mnuSettingsOptions));
    EXPECT_FALSE(window->mnuFileOpen->IsEnabled()) << "nothing was confirmed";
    dialogs.Answer(wxID_OK);
    ASSERT_TRUE(Click(window->mnuSettingsOptions));
    EXPECT_TRUE(window->mnuFileOpen->IsEnabled());
}

TEST_F(FormMainTest, TheWindowFitsTheScreenAndShrinksOnlySoFar) {
    OpenSmallMenu();
    const wxSize screen = wxGetDisplaySize();
    EXPECT_LE(window->GetSize().x, screen.x);
    EXPECT_LE(window->GetSize().y, screen.y);
    window->SetClientSize(400, 300);
    ASSERT_TRUE(WaitUntil([&] { return window->GetClientSize() == wxSize(400, 300); }));
    EXPECT_EQ(Tree().Window().GetPosition(), wxPoint(0, 0));
    EXPECT_EQ(Tree().Window().GetSize(), wxSize(400, 300));
    // 2,000 twips in pixels at normal screen resolution.
    EXPECT_GE(window->GetMinSize().x, 2000 / 15);
    EXPECT_GE(window->GetMinSize().y, 2000 / 15);
    EXPECT_GE(window->spMain->GetMinSize().x, 2000 / 15);
    EXPECT_GE(window->spMain->GetMinSize().y, 2000 / 15);
}

TEST_F(FormMainTest, ControlsAreFoundByName) {
    OpenWindow();
    for (const char* name : {"tvMain", "sbMain", "pgStart"})
        Find(*window, name);
}

} // namespace
} // namespace nesk::testing
