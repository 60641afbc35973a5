#include "gui/GuiFixture.h"
#include "gui/LiveBlocks.h"

#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"

#include <algorithm>
#include <memory>
#include <vector>

#include <wx/menu.h>
#include <wx/msgdlg.h>

namespace nesk::testing {
namespace {

constexpr int Submenus = 6;
constexpr int PartsEach = 8;
constexpr int WarmUp = 10;
constexpr int Cycles = 50;

// A menu like those on stations: several submenus full of parts.
std::string StationMenu() {
    std::string text = "BLOCK MENU\r\n\tCAPTION=Cell 4\r\n\tGRAPHIC=\r\n";
    const auto item = [&text](const std::string& caption, const std::string& type) {
        text += "BLOCK SUBMENU\r\nCAPTION=" + caption + "\r\nGRAPHIC=C:\\Pictures\\" + caption +
                ".bmp\r\nPREVIEW=\r\nHELPFILE=\r\nHELPTOPIC=0\r\nMENUTYPE=" + type +
                "\r\nPROGRAMID=@D:\\Parts\\" + caption +
                "\\partinfo.ini@\r\nHISTORY_DIR=\r\nHISTORY_TITLE=\r\n";
    };
    for (int i = 0; i < Submenus; ++i) {
        item("Submenu " + std::to_string(i), "Menu");
        for (int j = 0; j < PartsEach; ++j) {
            item("A part with a long caption, number " + std::to_string(j), "Part Program");
            text += "END\r\n";
        }
        text += "END\r\n";
    }
    return text + "END\r\n";
}

class FormMainCyclesTest : public MainWindowTest {
protected:
    FormMainCyclesTest() {
        WriteMenu(StationMenu());
        OpenWindow();
    }

    // Opens the menu, makes every kind of change, undoes half of the changes, and closes the menu without
    // saving.
    void Cycle() {
        MenuEditor& editor = window->Editor();
        ASSERT_TRUE(Click(window->mnuFileOpen));
        EXPECT_EQ(Entries(), std::size_t{Submenus + Submenus * PartsEach});
        // The changes that stay: one of each kind.
        ASSERT_TRUE(editor.Remove("R.6.1"));
        ASSERT_NE(editor.AddSubmenu("R", "A new submenu with a long caption"), "");
        ASSERT_TRUE(editor.SetCaption("R.1", "Another caption, long enough to need memory of its own"));
        PartFields fields = PartFieldsOf(dynamic_cast<const MenuItem&>(*editor.Find("R.1.1")));
        fields.programId = "@D:\\Parts\\Another part altogether\\partinfo.ini@";
        ASSERT_TRUE(editor.SetPart("R.1.1", fields));
        ASSERT_TRUE(editor.MoveDown("R.1"));
        // The changes that are undone: the same number again, one of them by a command of the window.
        Select("R.4");
        dialogs.Answer(wxID_YES);
        ASSERT_TRUE(Click(window->mnuMenuRemove));
        ASSERT_NE(editor.AddPart("R.2", "A new part with a long caption"), "");
        ASSERT_TRUE(editor.SetGraphic("R.2", "C:\\Pictures\\Another picture altogether.bmp"));
        ASSERT_TRUE(editor.MoveUp("R.3"));
        ASSERT_TRUE(editor.SetCaption("R.3", "One more caption, long enough to need memory of its own"));
        for (std::size_t left = editor.History().UndoNames().size() / 2; left > 0; --left)
            ASSERT_TRUE(editor.Undo());
        ASSERT_TRUE(editor.IsDirty());
        dialogs.Answer(wxID_NO);
        ASSERT_TRUE(Click(window->mnuFileClose));
        ASSERT_FALSE(editor.IsOpen());
        dialogs.shown.clear();
        dialogs.shown.shrink_to_fit();
        Settle();
    }

    std::size_t Entries() const { return static_cast<std::size_t>(std::ranges::count(TreeText(), '\n')) - 1; }
};

TEST_F(FormMainCyclesTest, NothingStaysAliveOfAMenuThatWasClosed) {
    for (int i = 0; i < WarmUp; ++i)
        ASSERT_NO_FATAL_FAILURE(Cycle());
    const std::size_t before = LiveBlocks();
    EXPECT_EQ(before > 0, CountsLiveBlocks());
    for (int i = 0; i < Cycles; ++i)
        ASSERT_NO_FATAL_FAILURE(Cycle());
    // Less than one object per cycle: wxWidgets may keep some objects for later use, but objects of a menu
    // must not stay alive.
    EXPECT_LT(LiveBlocks(), before + Cycles);
    RecordProperty("growth", static_cast<int>(LiveBlocks() - before));
    EXPECT_EQ(TreeText(), "");
    EXPECT_EQ(MenuOnDisk(), StationMenu());
}

} // namespace
} // namespace nesk::testing
