// The steps of the start page that replace the station in use with another.

#include "gui/GuiFixture.h"

#include "platform/StationFolder.h"
#include "settings/NeskRegistry.h"
#include "settings/RegEntry.h"
#include "shell/FormStartPage.h"
#include "shell/UiStationFolder.h"

#include <filesystem>
#include <fstream>

#include <gtk/gtk.h>
#include <wx/button.h>
#include <wx/menu.h>
#include <wx/toolbar.h>

namespace nesk::testing {
namespace {

class FirstStepsTest : public MainWindowTest {
protected:
    ~FirstStepsTest() override {
        SetStationFolderChooser({});
        NeskRegistry::Instance() = NeskRegistry();
    }

    // Makes the folder dialog return the folder that it starts with, or cancels it.
    static void AnswerFolder(bool confirm) {
        SetStationFolderChooser([confirm](wxWindow*, int, const std::string& folder) {
            return confirm ? folder : std::string();
        });
    }
};

TEST_F(FirstStepsTest, AStationThatIsOpenedBringsItsSettings) {
    NeskRegistry::Instance().NeskRoot = "";
    OpenWindow();
    EXPECT_TRUE(window->pgStart->cmdChooseRoot->IsShown());
    RegEntry entry;
    entry.CreateKey("Neskworks");
    entry.SetString("NeskRoot", "C:\\Neskroot");
    // The dialog starts with the station in use.
    AnswerFolder(true);
    Click(window->pgStart->cmdOpenStation);
    EXPECT_EQ(NeskRegistry::Instance().NeskRoot, "C:\\Neskroot");
    EXPECT_TRUE(window->pgStart->cmdOpenMenu->IsShown());
    EXPECT_FALSE(window->pgStart->cmdChooseRoot->IsShown());
    // The menu bar was recreated and works.
    ASSERT_TRUE(Click(window->mnuFileOpen));
    EXPECT_TRUE(window->Editor().IsOpen());
    EXPECT_EQ(window->GetMenuBar()->GetMenuCount(), 6u);
    // So was the tool bar.
    EXPECT_EQ(static_cast<wxWindow*>(window->GetToolBar()), window->FindWindow("tbMain"));
    ClickTool(*window->GetToolBar(), wxID_SAVE);
    EXPECT_FALSE(MenuOnDisk().empty());
    ASSERT_TRUE(Click(window->mnuFileClose));
}

// The text that the button draws, not the text that was set.
std::string DrawnText(const wxButton& button) {
    GtkWidget* const label = gtk_bin_get_child(GTK_BIN(button.GetHandle()));
    if (!GTK_IS_LABEL(label) || gtk_widget_get_mapped(label) == FALSE) return "";
    GtkAllocation room;
    gtk_widget_get_allocation(label, &room);
    int width = 0;
    gtk_widget_get_preferred_width(label, nullptr, &width);
    return room.width >= width ? gtk_label_get_text(GTK_LABEL(label)) : "";
}

TEST_F(FirstStepsTest, AStationWhoseSettingsAreDamagedLeavesTheButtonsTheirTexts) {
    NeskRegistry::Instance().NeskRoot = "";
    OpenWindow();
    EXPECT_TRUE(WaitUntil([&] { return !DrawnText(*window->pgStart->cmdOpenStation).empty(); }));
    const std::filesystem::path damaged = station.Folder() / "damaged";
    std::filesystem::create_directories(damaged / "drives" / "c");
    std::ofstream(damaged / "registry.db") << std::string(5000, 'x');
    SetStationFolderChooser([&](wxWindow*, int, const std::string&) { return damaged.string(); });
    dialogs.Answer(wxID_OK);
    Click(window->pgStart->cmdOpenStation);
    EXPECT_EQ(platform::StationFolderName(), damaged.string());
    // A changed label gets its place with the next frame.
    const auto shows = [](const wxButton* button, const std::string& text) {
        return WaitUntil([&] { return DrawnText(*button) == text; });
    };
    EXPECT_TRUE(shows(window->pgStart->cmdChooseRoot, "Choose the root folder..."));
    EXPECT_TRUE(shows(window->pgStart->cmdCreateStation, "Create a station..."));
    EXPECT_TRUE(shows(window->pgStart->cmdOpenStation, "Open another station..."));
}

TEST_F(FirstStepsTest, CallingOffChangesNothing) {
    OpenWindow();
    const wxMenuBar* bar = window->GetMenuBar();
    AnswerFolder(false);
    Click(window->pgStart->cmdOpenStation);
    dialogs.Answer(wxID_CANCEL);
    Click(window->pgStart->cmdCreateStation);
    EXPECT_EQ(window->GetMenuBar(), bar);
    EXPECT_EQ(NeskRegistry::Instance().NeskRoot, "C:\\Neskroot") << "the settings were not read anew";
    EXPECT_EQ(platform::StationFolderName(), station.Folder().string());
}

TEST_F(FirstStepsTest, AFolderWithoutAStationIsRefused) {
    OpenWindow();
    std::filesystem::remove_all(station.Folder() / "drives");
    std::filesystem::remove(station.Folder() / "registry.db");
    AnswerFolder(true);
    dialogs.Answer(wxID_OK);
    Click(window->pgStart->cmdOpenStation);
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_NE(dialogs.shown[0].text.find(station.Folder().string()), std::string::npos)
        << dialogs.shown[0].text;
    EXPECT_EQ(platform::StationFolderName(), station.Folder().string());
}

} // namespace
} // namespace nesk::testing
