// The tree as a screen reader sees it: by the messages of the native control.

#include "gui/GuiFixture.h"

#include <array>

#include <wx/menu.h>
// After wx, which prepares the headers of Windows.
#include <commctrl.h>

namespace nesk::testing {
namespace {

class TreeMessagesTest : public MainWindowTest {
protected:
    TreeMessagesTest() {
        WriteMenu(SmallMenu);
        OpenWindow();
        Press('O', wxMOD_CONTROL);
    }

    HWND Control() const { return static_cast<HWND>(Tree().Window().GetHandle()); }

    HTREEITEM Next(HTREEITEM item, UINT relation) const {
        return reinterpret_cast<HTREEITEM>(
            ::SendMessageW(Control(), TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
    }

    // A line for an item: its level, its text, and its states.
    std::string LineOf(HTREEITEM item, std::size_t level) const {
        std::array<wchar_t, 200> text{};
        TVITEMW asked{};
        asked.hItem = item;
        asked.mask = TVIF_TEXT | TVIF_STATE;
        asked.stateMask = TVIS_SELECTED | TVIS_EXPANDED;
        asked.pszText = text.data();
        asked.cchTextMax = static_cast<int>(text.size());
        if (::SendMessageW(Control(), TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&asked)) == 0)
            return "no answer\n";
        std::string line = std::string(level, ' ') + wxString(text.data()).utf8_string();
        if ((asked.state & TVIS_SELECTED) != 0) line += " selected";
        if ((asked.state & TVIS_EXPANDED) != 0) line += " expanded";
        return line + "\n";
    }

    // All items that the control knows, with their states.
    std::string Read(HTREEITEM item = nullptr, std::size_t level = 0) const {
        std::string text;
        for (HTREEITEM at = item != nullptr ? item : Next(nullptr, TVGN_ROOT); at != nullptr;
             at = Next(at, TVGN_NEXT)) {
            text += LineOf(at, level);
            if (HTREEITEM child = Next(at, TVGN_CHILD)) text += Read(child, level + 1);
        }
        return text;
    }
};

TEST_F(TreeMessagesTest, TheControlTellsTextsAndStatesAfterEdits) {
    EXPECT_EQ(Read(), "Main Menu selected expanded\n First\n Brackets\n Last\n");
    Press(WXK_DOWN);
    Press(WXK_F2);
    Type("Cover");
    Press(WXK_RETURN);
    EXPECT_EQ(Read(), "Main Menu expanded\n Cover selected\n Brackets\n Last\n");
    Press(WXK_DOWN, wxMOD_CONTROL);
    EXPECT_EQ(Read(), "Main Menu expanded\n Brackets\n Cover selected\n Last\n");
    Select("R.2");
    Press(WXK_RIGHT);
    EXPECT_EQ(Read(), "Main Menu expanded\n Brackets selected expanded\n  Angle\n Cover\n Last\n");
    Select("R.1");
    dialogs.Answer(wxID_YES);
    Press(WXK_DELETE);
    EXPECT_EQ(Read(), "Main Menu expanded\n Brackets expanded\n  Angle\n Last selected\n");
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(Read(), "Main Menu expanded\n Brackets expanded\n  Angle\n Cover selected\n Last\n");
}

} // namespace
} // namespace nesk::testing
