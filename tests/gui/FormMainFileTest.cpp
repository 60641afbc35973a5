// The main window's file commands, and the page that it shows while nothing is open.

#include "gui/GuiFixture.h"
#include "unit/FileBytes.h"

#include "base/Messages.h"
#include "platform/SaveFileDialog.h"
#include "settings/NeskRegistry.h"
#include "shell/FormStartPage.h"
#include "shell/modStringRes.h"
#include "widgets/UiUtilities.h"

#include <filesystem>

#include <wx/button.h>
#include <wx/display.h>
#include <wx/infobar.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/stattext.h>
#include <wx/statusbr.h>

namespace nesk::testing {
namespace {

using modStringRes::FormatResString;
using modStringRes::LoadResString;
using modUtilities::FromWx;
namespace fs = std::filesystem;

const std::string MenuPath = "C:\\Neskroot\\menu.cfg";

class FormMainFileTest : public MainWindowTest {
protected:
    ~FormMainFileTest() override { platform::SetSaveFileDialog({}); }

    void OpenSmallMenu() {
        WriteMenu(SmallMenu);
        OpenWindow();
        ASSERT_TRUE(Click(window->mnuFileOpen));
    }

    std::string StatusPath() const { return FromWx(window->sbMain->GetStatusText(0)); }

    // The text of the page without the line breaks of its wrapping.
    std::string PageText() const {
        std::string text = TextOf(window->pgStart->lblText);
        for (char& c : text)
            if (c == '\n') c = ' ';
        return text;
    }

    // Names of the visible buttons of the page.
    std::string Steps() const {
        std::string names;
        const FormStartPage& page = *window->pgStart;
        for (const wxButton* button :
             {page.cmdOpenMenu, page.cmdChooseRoot, page.cmdCreateStation, page.cmdOpenStation})
            if (button != nullptr && button->IsShown()) names += FromWx(button->GetName()) + " ";
        return names;
    }

    // Sets the answer of the dialog for a file name; the dialog's request is recorded.
    void NameFile(const std::string& path) {
        platform::SetSaveFileDialog([this, path](wxWindow*, const platform::OpenFileRequest& request) {
            m_request = request;
            return path;
        });
    }

    platform::OpenFileRequest m_request;
#ifdef NESK_PORTABLE_STATION
    const std::string m_stationSteps = "cmdCreateStation cmdOpenStation ";
#else
    const std::string m_stationSteps;
#endif
};

TEST_F(FormMainFileTest, TheWindowOpensInTheMiddleOfTheScreen) {
    OpenWindow();
    const wxRect screen = wxDisplay(window).GetClientArea();
    // Uses the position that the system reports, because wxWidgets may only assume that its window is where
    // it was placed. The menu bar and the status bar make the page lower than the window.
    constexpr int tolerance = 60;
    const auto isCentred = [&] {
        const wxPoint corner = window->pgStart->ClientToScreen(wxPoint(0, 0));
        const wxSize size = window->pgStart->GetSize();
        return size.x > 200 && std::abs(corner.x + size.x / 2 - screen.x - screen.width / 2) <= tolerance &&
               std::abs(corner.y + size.y / 2 - screen.y - screen.height / 2) <= tolerance;
    };
    EXPECT_TRUE(WaitUntil(isCentred)) << window->pgStart->ClientToScreen(wxPoint(0, 0)).x;
}

TEST_F(FormMainFileTest, TheNextStepOpensTheMenu) {
    WriteMenu(SmallMenu);
    OpenWindow();
    EXPECT_TRUE(window->pgStart->IsShown());
    EXPECT_FALSE(window->tvMain->Window().IsShownOnScreen());
    EXPECT_EQ(Steps(), "cmdOpenMenu " + m_stationSteps);
    EXPECT_EQ(TextOf(window->pgStart->lblHeading), LoadResString(Message::StartNothingOpen));
    EXPECT_NE(PageText().find(MenuPath), std::string::npos) << PageText();
    EXPECT_TRUE(WaitUntil([&] { return window->pgStart->cmdOpenMenu->HasFocus(); }));
    Press(WXK_RETURN);
    EXPECT_TRUE(WaitUntil([&] { return window->Editor().IsOpen(); }));
    EXPECT_FALSE(window->pgStart->IsShown());
    EXPECT_TRUE(window->tvMain->Window().IsShownOnScreen());
    EXPECT_TRUE(window->tvMain->Window().HasFocus());
    ASSERT_TRUE(Click(window->mnuFileClose));
    EXPECT_TRUE(window->pgStart->IsShown());
    EXPECT_TRUE(window->pgStart->cmdOpenMenu->HasFocus());
}

TEST_F(FormMainFileTest, WithoutARootFolderTheOptionsAreOffered) {
    NeskRegistry::Instance().NeskRoot = "";
    OpenWindow();
    EXPECT_EQ(Steps(), "cmdChooseRoot " + m_stationSteps);
    dialogs.Answer(wxID_CANCEL);
    Click(window->pgStart->cmdChooseRoot);
    EXPECT_EQ(dialogs.shown.at(0).title, LoadResString(32035));
}

TEST_F(FormMainFileTest, ARootFolderThatIsGoneIsNamedAndFoundAgain) {
    NeskRegistry::Instance().NeskRoot = "C:\\Elsewhere";
    OpenWindow();
    EXPECT_EQ(Steps(), "cmdChooseRoot " + m_stationSteps);
    EXPECT_NE(PageText().find("C:\\Elsewhere"), std::string::npos) << PageText();
    station.Write("C:\\Elsewhere\\x", "");
    // Simulates the user's return from another program.
    wxActivateEvent event(wxEVT_ACTIVATE, true, window->GetId());
    window->ProcessWindowEvent(event);
    EXPECT_EQ(Steps(), "cmdOpenMenu " + m_stationSteps);
    EXPECT_TRUE(window->mnuFileOpen->IsEnabled());
}

TEST_F(FormMainFileTest, TheNextStepKeepsTheFocusWhenTheOptionsAreConfirmed) {
    OpenWindow();
    EXPECT_TRUE(WaitUntil([&] { return window->pgStart->cmdOpenMenu->HasFocus(); }));
    station.Write("C:\\New\\menu.cfg", SmallMenu);
    NeskRegistry::Instance().NeskRoot = "C:\\New";
    dialogs.Answer(wxID_OK);
    ASSERT_TRUE(Click(window->mnuSettingsOptions));
    EXPECT_TRUE(window->pgStart->cmdOpenMenu->HasFocus());
    NeskRegistry::Instance().NeskRoot = "C:\\Elsewhere";
    dialogs.Answer(wxID_OK);
    ASSERT_TRUE(Click(window->mnuSettingsOptions));
    EXPECT_TRUE(window->pgStart->cmdChooseRoot->HasFocus()) << "the other one is gone";
}

TEST_F(FormMainFileTest, AFolderThatVanishedSinceIsToldAndNothingIsOpened) {
    OpenWindow();
    fs::remove_all(TempStation::Host("C:\\Neskroot"));
    dialogs.Answer(wxID_OK);
    ASSERT_TRUE(Click(window->mnuFileOpen));
    EXPECT_NE(dialogs.shown.at(0).text.find(
                  FormatResString(Message::StartRootGoneText, std::string("C:\\Neskroot"))),
              std::string::npos)
        << dialogs.shown[0].text;
    EXPECT_TRUE(window->pgStart->cmdChooseRoot->HasFocus());
    EXPECT_FALSE(window->Editor().IsOpen());
    EXPECT_FALSE(window->mnuFileOpen->IsEnabled());
    EXPECT_EQ(Steps(), "cmdChooseRoot " + m_stationSteps);
}

TEST_F(FormMainFileTest, ANewMenuSaysWhereTheFirstSavePutsIt) {
    OpenWindow();
    EXPECT_FALSE(IsShown(window->ibNew));
    ASSERT_TRUE(Click(window->mnuFileOpen));
    EXPECT_TRUE(IsShown(window->ibNew));
    EXPECT_EQ(StatusPath(), "");
    ASSERT_TRUE(window->Editor().SetCaption("R", "Cell 4"));
    EXPECT_TRUE(IsShown(window->ibNew));
    ASSERT_TRUE(Click(window->mnuFileSave));
    EXPECT_FALSE(IsShown(window->ibNew));
    ASSERT_TRUE(Click(window->mnuFileClose));
    ASSERT_TRUE(Click(window->mnuFileOpen));
    EXPECT_FALSE(IsShown(window->ibNew)) << "it has a file now";
}

TEST_F(FormMainFileTest, AnotherRootFolderIsShownAndAskedAbout) {
    OpenSmallMenu();
    ASSERT_TRUE(window->Editor().SetCaption("R.1", "Changed"));
    station.Write("C:\\New\\menu.cfg", "BLOCK MENU\nCAPTION=Another\nEND\n");
    NeskRegistry::Instance().NeskRoot = "C:\\New";
    dialogs.Answer(wxID_OK);
    ASSERT_TRUE(Click(window->mnuSettingsOptions));
    EXPECT_EQ(StatusPath(), FormatResString(Message::FromAndTo, MenuPath, "C:\\New\\menu.cfg"));

    dialogs.Answer(wxID_NO);
    ASSERT_TRUE(Click(window->mnuFileSave));
    const std::string question = dialogs.shown.at(1).text;
    const std::string copy = window->Editor().PlanSave("C:\\New\\menu.cfg").backup.path;
    EXPECT_EQ(question, FormatResString(Message::SaveElsewhereReplaces, MenuPath, "C:\\New\\menu.cfg", copy));
    EXPECT_TRUE(window->Editor().IsDirty());

    dialogs.Answer(wxID_YES);
    ASSERT_TRUE(Click(window->mnuFileSave));
    EXPECT_EQ(FileBytes(copy), "BLOCK MENU\nCAPTION=Another\nEND\n");
    EXPECT_NE(FileBytes("C:\\New\\menu.cfg").find("CAPTION=Changed"), std::string::npos);
    EXPECT_EQ(MenuOnDisk(), SmallMenu);
    EXPECT_EQ(StatusPath(), "C:\\New\\menu.cfg");
    ASSERT_TRUE(Click(window->mnuFileSave)) << "no further question";
}

TEST_F(FormMainFileTest, TheRootFolderVanishesWhileTheMenuIsOpen) {
    OpenSmallMenu();
    ASSERT_TRUE(window->Editor().SetCaption("R.1", "Changed"));
    const fs::path folder = TempStation::Host("C:\\Neskroot");
    const fs::path away = folder.parent_path() / "away";
    fs::rename(folder, away);
    dialogs.Answer(wxID_OK);
    ASSERT_TRUE(Click(window->mnuFileSave));
    EXPECT_NE(dialogs.shown.at(0).text.find("C:\\Neskroot"), std::string::npos) << dialogs.shown[0].text;
    EXPECT_TRUE(window->Editor().IsDirty());
    EXPECT_EQ(TreeText(), "Main Menu\n Changed\n Brackets\n  Angle\n Last\n");

    // Meanwhile the menu can be saved to another place.
    NameFile("C:\\copy.cfg");
    ASSERT_TRUE(Click(window->mnuFileSaveAs));
    EXPECT_NE(FileBytes("C:\\copy.cfg").find("CAPTION=Changed"), std::string::npos);
    EXPECT_TRUE(window->Editor().IsDirty());

    fs::rename(away, folder);
    ASSERT_TRUE(Click(window->mnuFileSave));
    EXPECT_FALSE(window->Editor().IsDirty());
    EXPECT_NE(MenuOnDisk().find("CAPTION=Changed"), std::string::npos);
}

TEST_F(FormMainFileTest, SaveAsWritesACopyAndChangesNothingElse) {
    OpenWindow();
    EXPECT_FALSE(window->mnuFileSaveAs->IsEnabled());
    WriteMenu(SmallMenu);
    ASSERT_TRUE(Click(window->mnuFileOpen));
    ASSERT_TRUE(window->Editor().SetCaption("R.1", "Changed"));
    NameFile("");
    ASSERT_TRUE(Click(window->mnuFileSaveAs));
    EXPECT_EQ(m_request.folder, "C:\\Neskroot\\");
    EXPECT_EQ(m_request.file, MenuPath);
    NameFile("C:\\Neskroot\\copy.cfg");
    ASSERT_TRUE(Click(window->mnuFileSaveAs));
    EXPECT_NE(FileBytes("C:\\Neskroot\\copy.cfg").find("CAPTION=Changed"), std::string::npos);
    EXPECT_EQ(MenuOnDisk(), SmallMenu);
    EXPECT_TRUE(window->Editor().IsDirty());
    EXPECT_EQ(StatusPath(), MenuPath);
    EXPECT_EQ(NeskRegistry::Instance().NeskRoot, "C:\\Neskroot");

    NameFile(MenuPath);
    ASSERT_TRUE(Click(window->mnuFileSaveAs));
    EXPECT_FALSE(window->Editor().IsDirty()) << "to its own file it is saved";

    NameFile("C:\\None\\copy.cfg");
    dialogs.Answer(wxID_OK);
    ASSERT_TRUE(Click(window->mnuFileSaveAs));
    EXPECT_NE(dialogs.shown.at(0).text.find("C:\\None"), std::string::npos) << dialogs.shown[0].text;
    EXPECT_TRUE(window->Editor().IsOpen());
}

TEST_F(FormMainFileTest, AboutIsShown) {
    OpenWindow();
    dialogs.Answer(wxID_OK);
    ASSERT_TRUE(Click(window->mnuHelpAbout));
    EXPECT_EQ(dialogs.shown.at(0).title, LoadResString(Message::AboutTitle));
}

} // namespace
} // namespace nesk::testing
