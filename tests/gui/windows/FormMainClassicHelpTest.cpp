#include "gui/GuiFixture.h"

#include "platform/windows/WinHelp.h"
#include "settings/RegEntry.h"
#include "shell/modHelp.h"

namespace nesk::testing {
namespace {

std::string asked; // "command|data" of each call, one per line

BOOL WINAPI Note(HWND, LPCSTR, UINT command, ULONG_PTR data) {
    asked += std::to_string(command) + "|" + std::to_string(data) + "\n";
    return TRUE;
}

TEST_F(MainWindowTest, ContentsOfClassicHelpIsItsGeneralTopic) {
    RegEntry settings;
    settings.CreateKey("Orvane\\Settings");
    settings.SetString("InstallDirectory", "C:\\Orvane");
    station.Write("C:\\Orvane\\Bin\\TENU.hlp", "help");
    modHelp::SetHelpFile(1033, "T");
    asked.clear();
    const platform::windows::WinHelpFunction before = platform::windows::SetWinHelp(Note);
    OpenWindow();
    EXPECT_TRUE(Click(window->mnuHelpContents));
    platform::windows::SetWinHelp(before);
    modHelp::SetHelpFile(1033, "OV");
    EXPECT_EQ(asked, "1|33000\n");
}

} // namespace
} // namespace nesk::testing
