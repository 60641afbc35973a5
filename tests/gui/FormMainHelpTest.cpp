#include "gui/GuiFixture.h"
#include "gui/Recorders.h"

#include "settings/RegEntry.h"
#include "shell/modHelp.h"
#include "shell/modStringRes.h"

#include <filesystem>

#include <wx/defs.h>

namespace nesk::testing {
namespace {

// Help is installed with the measuring application; OVENU.chm is next to the program.
class FormMainHelpTest : public MainWindowTest {
protected:
    FormMainHelpTest() {
        RegEntry settings;
        settings.CreateKey("Orvane\\Settings");
        settings.SetString("InstallDirectory", "C:\\Orvane");
    }
    ~FormMainHelpTest() override { modHelp::SetHelpFile(1033, "OV"); }
};

TEST_F(FormMainHelpTest, ContentsShowsTheContentsAndThenTheOverview) {
    const HelpRecorder help(station);
    modHelp::SetHelpFile(1033, "OV");
    OpenWindow();
    ASSERT_TRUE(Click(window->mnuHelpContents));
#ifdef NESK_PORTABLE_STATION
    EXPECT_TRUE(WaitUntil([&] { return help.WasCalled() && help.Shown() == "906"; })) << help.Shown();
#else
    EXPECT_EQ(help.Calls(), (std::vector<std::string>{"contents", "906"}));
#endif
}

TEST_F(FormMainHelpTest, AHelpFileThatIsMissingIsSaidOnce) {
    OpenWindow();
    modHelp::SetHelpFile(1033, "T");
    ASSERT_FALSE(modHelp::IsHtmlHelp());
    dialogs.Answer(wxID_OK);
    ASSERT_TRUE(Click(window->mnuHelpContents));
    EXPECT_EQ(dialogs.shown.size(), 1u);
    station.Write("C:\\Orvane\\Bin\\TENU.chm", "help");
    modHelp::SetHelpFile(1033, "T");
    ASSERT_TRUE(modHelp::IsHtmlHelp());
    std::filesystem::remove(TempStation::Host("C:\\Orvane\\Bin\\TENU.chm"));
    dialogs.Answer(wxID_OK);
    ASSERT_TRUE(Click(window->mnuHelpContents));
    EXPECT_EQ(dialogs.shown.size(), 2u);
    for (const ShownDialog& dialog : dialogs.shown)
        EXPECT_EQ(dialog.title, modStringRes::LoadResString(34164));
}

} // namespace
} // namespace nesk::testing
