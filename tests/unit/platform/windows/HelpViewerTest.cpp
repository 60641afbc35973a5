#include "platform/HelpViewer.h"

#include "platform/FileSystem.h"
#include "platform/windows/HtmlHelpLibrary.h"
#include "platform/windows/WideText.h"
#include "unit/FileBytes.h"

#include <gtest/gtest.h>

namespace nesk::platform {
namespace {

using nesk::testing::FileBytes;
using windows::HtmlHelpLibrary;

constexpr const char* File = "C:\\Help\\OVENU.chm";
const std::string Log = "C:\\log";

std::wstring BesideTheTests(const std::string& name) {
    return windows::ToWide(ProgramFolder() + "\\" + name);
}

// Uses the viewer's stand-in, which records "command|topic|file|", followed by "owner" if it has an owner.
class HelpViewerTest : public ::testing::Test {
protected:
    HelpViewerTest() {
        station.Write(File, "ITSF");
        ::SetEnvironmentVariableW(L"NESK_TEST_HELP_LOG", windows::ToWide(Log).c_str());
    }
    ~HelpViewerTest() override { ::SetEnvironmentVariableW(L"NESK_TEST_HELP_LOG", nullptr); }

    TempStation station;
    HtmlHelpLibrary viewer{BesideTheTests("FakeHelpViewer.dll")};
};

TEST_F(HelpViewerTest, ShowsTheContentsAndATopic) {
    EXPECT_EQ(HelpResult::Shown, viewer.Show(nullptr, File, HtmlHelpCommand::Contents, 0));
    EXPECT_EQ(std::string("1|0|") + File + "|\n", FileBytes(Log));
    EXPECT_EQ(HelpResult::Shown, viewer.Show(::GetDesktopWindow(), File, HtmlHelpCommand::Topic, 4000000001));
    EXPECT_EQ(std::string("1|0|") + File + "|\n15|4000000001|" + File + "|owner\n", FileBytes(Log))
        << "the topic's number stays positive";
}

TEST_F(HelpViewerTest, TellsThatTheViewerCannotShowAFile) {
    EXPECT_EQ(HelpResult::Failed, viewer.Show(nullptr, "C:\\Help\\broken.chm", HtmlHelpCommand::Contents, 0));
    EXPECT_EQ(HelpResult::Shown, viewer.Show(nullptr, File, HtmlHelpCommand::Contents, 0));
}

TEST_F(HelpViewerTest, TellsThatTheViewerIsMissing) {
    for (const std::wstring& name :
         {std::wstring(L"neskmanager-no-such-viewer.ocx"), BesideTheTests("NoSuchViewer.dll"),
          BesideTheTests("ENU32000.DLL"), std::wstring(L"kernel32.dll")}) {
        HtmlHelpLibrary missing(name);
        EXPECT_EQ(HelpResult::ViewerMissing, missing.Show(nullptr, File, HtmlHelpCommand::Contents, 0))
            << windows::FromWide(name);
    }
}

TEST_F(HelpViewerTest, FindsAViewerThatIsInstalledMeanwhile) {
    const std::wstring path = windows::ToWide("C:\\Help\\viewer.dll");
    {
        HtmlHelpLibrary later(path);
        EXPECT_EQ(HelpResult::ViewerMissing, later.Show(nullptr, File, HtmlHelpCommand::Contents, 0));
        ASSERT_NE(0, ::CopyFileW(BesideTheTests("FakeHelpViewer.dll").c_str(), path.c_str(), FALSE));
        EXPECT_EQ(HelpResult::Shown, later.Show(nullptr, File, HtmlHelpCommand::Contents, 0));
    }
    // The library stays loaded in the program. Only the test knows that none of its windows is open and that
    // the file must be removed.
    ::FreeLibrary(::GetModuleHandleW(path.c_str()));
}

TEST_F(HelpViewerTest, TellsThatTheFileIsMissing) {
    for (const char* file : {"C:\\Help\\None.chm", "C:\\Help", "C:\\None\\OVENU.chm", "Q:\\OVENU.chm", ""}) {
        EXPECT_EQ(HelpResult::FileMissing, ShowHtmlHelp(nullptr, file, HtmlHelpCommand::Contents, 0)) << file;
        EXPECT_EQ(HelpResult::FileMissing, ShowClassicHelp(nullptr, file, ClassicHelpCommand::Index, 0))
            << file;
    }
    EXPECT_EQ("", FileBytes(Log));
}

TEST_F(HelpViewerTest, AFileWhoseNameTheCodePageLacksCannotBeShown) {
    // The viewers accept names only in the code page, and the name must not be converted to another file's
    // name.
    station.Write("C:\\Help\\部品.chm", "ITSF");
    EXPECT_EQ(HelpResult::Failed, ShowHtmlHelp(nullptr, "C:\\Help\\部品.chm", HtmlHelpCommand::Contents, 0));
    EXPECT_EQ(HelpResult::Failed,
              ShowClassicHelp(nullptr, "C:\\Help\\部品.chm", ClassicHelpCommand::Index, 0));
}

} // namespace
} // namespace nesk::platform
