#include "platform/windows/WinHelp.h"
#include "settings/RegEntry.h"
#include "shell/modHelp.h"
#include "unit/CoreFixture.h"

namespace nesk {
namespace {

// "command|data|file|" of each call, followed by "owner" if there is one; one call per line.
std::string asked;
BOOL answer = TRUE;

BOOL WINAPI Note(HWND owner, LPCSTR file, UINT command, ULONG_PTR data) {
    asked += std::to_string(command) + "|" + std::to_string(data) + "|" + file + "|" +
             (owner != nullptr ? "owner" : "") + "\n";
    return answer;
}

// The system's viewer of classic help is another program, so the calls to it are recorded instead.
class ClassicHelpTest : public testing::CoreTest {
protected:
    ClassicHelpTest() {
        asked.clear();
        answer = TRUE;
        RegEntry settings;
        settings.CreateKey("Orvane\\Settings");
        settings.SetString("InstallDirectory", "C:\\Orvane");
        station.Write("C:\\Orvane\\Bin\\TENU.hlp", "help");
        modHelp::SetHelpFile(1033, "T");
    }
    ~ClassicHelpTest() override {
        platform::windows::SetWinHelp(m_before);
        modHelp::SetHelpFile(1033, "OV");
    }

private:
    platform::windows::WinHelpFunction m_before = platform::windows::SetWinHelp(Note);
};

TEST_F(ClassicHelpTest, ATopicAndTheIndex) {
    modHelp::ShowHelpTopic(nullptr, 33001);
    modHelp::ShowHelpContents(::GetDesktopWindow());
    EXPECT_EQ(asked, "1|33001|C:\\Orvane\\Bin\\TENU.hlp|\n3|0|C:\\Orvane\\Bin\\TENU.hlp|owner\n");
}

TEST_F(ClassicHelpTest, AViewerThatFailsIsSaid) {
    answer = FALSE;
    Expect();
    modHelp::ShowHelpTopic(nullptr, 33001);
    EXPECT_EQ(messages.at(0).text, modStringRes::FormatResString(34163, modHelp::HelpFile()));
}

} // namespace
} // namespace nesk
