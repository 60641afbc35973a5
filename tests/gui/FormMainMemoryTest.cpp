// What the main window remembers from one run to the next.

#include "gui/GuiFixture.h"

#include "checking/FormReplace.h"
#include "gui/NextDialog.h"
#include "settings/RegEntry.h"
#include "shell/FormToolBar.h"
#include "widgets/UiRowList.h"

#include <wx/display.h>
#include <wx/menu.h>

namespace nesk::testing {
namespace {

class FormMainMemoryTest : public MainWindowTest {
protected:
    // Opens a window and waits until its place does not change any more.
    void OpenAndSettle() {
        OpenWindow();
        wxRect before;
        int same = 0;
        ASSERT_TRUE(WaitUntil([&] {
            same = window->GetRect() == before ? same + 1 : 0;
            before = window->GetRect();
            wxMilliSleep(20);
            return same > 25;
        }));
    }

    // Closes the window as the user does.
    void CloseWindow() {
        window->Close();
        window = nullptr;
        Settle();
    }

    static void Store(const char* name, const std::string& value) {
        RegEntry entry;
        entry.CreateKey("NeskManager");
        entry.SetString(name, value);
    }

    static std::string Stored(const char* name) {
        RegEntry entry;
        if (!entry.TestKey("NeskManager")) return "";
        entry.OpenKey("NeskManager");
        return entry.GetString(name);
    }

    static void StorePlace(const wxRect& place) {
        Store("Left", std::to_string(place.x));
        Store("Top", std::to_string(place.y));
        Store("Width", std::to_string(place.width));
        Store("Height", std::to_string(place.height));
    }
};

TEST_F(FormMainMemoryTest, AWindowThatIsOnlyOpenedWritesNothing) {
    OpenAndSettle();
    CloseWindow();
    RegEntry entry;
    EXPECT_FALSE(entry.TestKey("NeskManager"));
}

TEST_F(FormMainMemoryTest, SizeAndPlaceComeBack) {
    OpenAndSettle();
    window->SetSize(150, 120, 600, 500);
    const wxRect wanted(150, 120, 600, 500);
    ASSERT_TRUE(WaitUntil([&] { return window->GetSize() == wanted.GetSize(); }));
    CloseWindow();
    EXPECT_EQ(Stored("Width"), "600");
    OpenAndSettle();
    EXPECT_EQ(window->GetSize(), wanted.GetSize());
    EXPECT_LE(std::abs(window->GetPosition().x - wanted.x), 2);
    EXPECT_LE(std::abs(window->GetPosition().y - wanted.y), 2);
}

TEST_F(FormMainMemoryTest, ColumnWidthsComeBack) {
    WriteMenu(SmallMenu);
    OpenWindow();
    Press('O', wxMOD_CONTROL);
    {
        const NextDialog<FormReplace> first([](FormReplace& dialog) {
            EXPECT_TRUE(dialog.lstChanges->SetColumnWidth(1, dialog.FromDIP(177)));
            Press(WXK_ESCAPE);
        });
        dialogs.Answer(wxID_NONE);
        Press('H', wxMOD_CONTROL);
    }
    CloseWindow();
    EXPECT_EQ(Stored("ReplaceColumn2"), "177");
    EXPECT_EQ(Stored("ReplaceColumn1"), "") << "was not changed";
    OpenWindow();
    Press('O', wxMOD_CONTROL);
    const NextDialog<FormReplace> second([](FormReplace& dialog) {
        EXPECT_EQ(dialog.lstChanges->ColumnWidths().at(1), 177);
        Press(WXK_ESCAPE);
    });
    dialogs.Answer(wxID_NONE);
    Press('H', wxMOD_CONTROL);
}

TEST_F(FormMainMemoryTest, HiddenBarsStayHidden) {
    OpenWindow();
    ASSERT_TRUE(Click(window->mnuViewToolBar));
    ASSERT_TRUE(Click(window->mnuViewStatusBar));
    CloseWindow();
    OpenWindow();
    EXPECT_FALSE(window->tbMain->IsShown());
    EXPECT_FALSE(window->sbMain->IsShown());
    EXPECT_FALSE(window->mnuViewToolBar->IsChecked());
    EXPECT_FALSE(window->mnuViewStatusBar->IsChecked());
    ASSERT_TRUE(Click(window->mnuViewToolBar));
    CloseWindow();
    OpenWindow();
    EXPECT_TRUE(window->tbMain->IsShown());
    EXPECT_FALSE(window->sbMain->IsShown());
}

TEST_F(FormMainMemoryTest, AMaximizedWindowIsMaximizedAgain) {
    StorePlace({100, 80, 640, 480});
    OpenAndSettle();
    window->Maximize();
    ASSERT_TRUE(WaitUntil([&] { return window->IsMaximized() && window->GetSize().x > 700; }));
    CloseWindow();
    EXPECT_EQ(Stored("Maximized"), "true");
    EXPECT_EQ(Stored("Width"), "640") << "the size that it had before";
    OpenWindow();
    ASSERT_TRUE(WaitUntil([&] { return window->IsMaximized() && window->GetSize().x > 700; }));
    window->Maximize(false);
    EXPECT_TRUE(WaitUntil([&] { return !window->IsMaximized() && window->GetSize().x < 700; }));
}

TEST_F(FormMainMemoryTest, AScreenThatIsGoneDoesNotHideTheWindow) {
    StorePlace({-30000, 20000, 640, 480});
    OpenAndSettle();
    EXPECT_NE(wxDisplay::GetFromWindow(window), wxNOT_FOUND);
    EXPECT_TRUE(wxDisplay(window).GetClientArea().Contains(window->GetPosition()));
    CloseWindow();
    EXPECT_EQ(Stored("Left"), "-30000") << "the screen may come back";
}

TEST_F(FormMainMemoryTest, ValuesThatMakeNoSenseAreIgnored) {
    OpenAndSettle();
    const wxRect usual = window->GetRect();
    CloseWindow();
    StorePlace({100, 100, -5, 1000000});
    Store("Maximized", "perhaps");
    Store("ToolBar", "17");
    OpenAndSettle();
    EXPECT_EQ(window->GetRect(), usual);
    EXPECT_FALSE(window->IsMaximized());
    EXPECT_TRUE(window->tbMain->IsShown());
}

// A message would be a dialog that nobody announced.
TEST_F(FormMainMemoryTest, ARegistryThatDoesNotWorkDoesNotStopTheWindow) {
    OpenWindow();
    ASSERT_TRUE(Click(window->mnuViewToolBar));
    station.BreakSettings();
    CloseWindow();
    EXPECT_TRUE(dialogs.shown.empty());
}

} // namespace
} // namespace nesk::testing
