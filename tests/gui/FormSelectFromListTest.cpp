#include "settings/FormSelectMachine.h"
#include "settings/FormSelectUser.h"

#include "gui/NextDialog.h"
#include "gui/SettingsDialogFixture.h"
#include "settings/FormListName.h"
#include "settings/RegEntry.h"
#include "widgets/UiUtilities.h"

#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

using modStringRes::LoadResString;
using modUtilities::FromWx;

class FormSelectFromListTest : public SettingsDialogTest {
protected:
    static void Add(const std::string& key, const std::string& displayName) {
        RegEntry entry;
        entry.CreateKey(key);
        entry.SetString("Name", displayName);
    }

    // Shows the dialog, runs an action on it, closes it if the action did not, and returns its answer.
    static std::string Machine(const std::function<void(FormSelectMachine&)>& act) {
        FormSelectMachine dialog(nullptr);
        const ModalDriver driver(dialog, [&] {
            act(dialog);
            if (IsOpen(dialog)) Click(dialog.cmdCancel);
        });
        return dialog.SelectMachine();
    }

    // Clicks on the line of an entry.
    static void ClickLine(wxListBox& list, int line, bool twice = false) {
        // Finds the line by the list's own hit test.
        const int height = list.GetCharHeight();
        int y = height / 2;
        while (list.HitTest(wxPoint(20, y)) != line && y < list.GetClientSize().y)
            ++y;
        bool arrived = false;
        const auto note = [&](wxMouseEvent& event) {
            arrived = true;
            event.Skip();
        };
        list.Bind(wxEVT_LEFT_DOWN, note);
        // Under Wine a click occasionally does not reach the list, for an unknown reason, so a click that did
        // not arrive is repeated.
        for (int tries = 0; tries < 3 && !arrived; ++tries) {
            const wxPoint point = list.ClientToScreen(wxPoint(20, y + height / 3));
            if (twice)
                DoubleClickPoint(point);
            else
                ClickPoint(point);
            arrived = WaitUntil([&] { return arrived; }, std::chrono::milliseconds(800));
        }
        list.Unbind(wxEVT_LEFT_DOWN, note);
        const wxWindow* ok = Find(*list.GetParent(), "cmdOK");
        EXPECT_TRUE(arrived);
        EXPECT_TRUE(WaitUntil([&] { return list.GetSelection() == line && ok->IsEnabled(); }));
    }
};

TEST_F(FormSelectFromListTest, ShowsTheMachines) {
    Add("Machines\\M1", "Bridge & Arm");
    Add("Machines\\M2", "");
    const std::string key = Machine([](FormSelectMachine& dialog) {
        EXPECT_EQ(FromWx(dialog.GetTitle()), LoadResString(32046));
        EXPECT_EQ(FromWx(dialog.cmdOK->GetLabel()), LoadResString(32004));
        EXPECT_EQ(FromWx(dialog.cmdCancel->GetLabel()), LoadResString(32005));
        EXPECT_EQ(FromWx(dialog.cmdHelp->GetLabel()), LoadResString(32008));
        ASSERT_EQ(dialog.lstMain->GetCount(), 2u);
        EXPECT_EQ(dialog.lstMain->GetString(0), "Bridge & Arm");
        EXPECT_EQ(dialog.lstMain->GetString(1), "");
        Settle();
        EXPECT_EQ(dialog.lstMain->GetSelection(), wxNOT_FOUND);
        EXPECT_FALSE(dialog.cmdOK->IsEnabled());
        EXPECT_EQ(Find(dialog, "lstMain"), dialog.lstMain);
    });
    EXPECT_EQ(key, "");
}

TEST_F(FormSelectFromListTest, TheSecondOfTwoEqualNames) {
    Add("Machines\\A", "Bridge");
    Add("Machines\\B", "Bridge");
    const std::string key = Machine([](FormSelectMachine& dialog) {
        ClickLine(*dialog.lstMain, 1);
        EXPECT_EQ(dialog.lstMain->GetSelection(), 1);
        EXPECT_TRUE(IsOpen(dialog)) << "one click chooses nothing yet";
        Click(dialog.cmdOK);
    });
    EXPECT_EQ(key, "Machines\\B");
}

TEST_F(FormSelectFromListTest, ADoubleClickChooses) {
    Add("Machines\\A", "Bridge");
    Add("Machines\\B", "Arm");
    const std::string key = Machine([](FormSelectMachine& dialog) {
        ClickLine(*dialog.lstMain, 1, true);
        EXPECT_TRUE(WaitUntil([&] { return !IsOpen(dialog); }));
    });
    EXPECT_EQ(key, "Machines\\B");
}

TEST_F(FormSelectFromListTest, ArrowKeysAndEnterChoose) {
    Add("Machines\\A", "Bridge");
    Add("Machines\\B", "Arm");
    const std::string key = Machine([](FormSelectMachine& dialog) {
        EXPECT_TRUE(dialog.lstMain->HasFocus());
        for (int tries = 0; tries < 3 && dialog.lstMain->GetSelection() != 1; ++tries)
            Press(WXK_DOWN);
        EXPECT_EQ(dialog.lstMain->GetSelection(), 1);
        EXPECT_TRUE(dialog.cmdOK->IsEnabled());
        Press(WXK_RETURN);
        EXPECT_TRUE(WaitUntil([&] { return !IsOpen(dialog); }));
    });
    EXPECT_EQ(key, "Machines\\B");
}

TEST_F(FormSelectFromListTest, EnterWithoutASelectionDoesNothing) {
    Add("Machines\\A", "Bridge");
    const std::string key = Machine([](FormSelectMachine& dialog) {
        EXPECT_FALSE(dialog.cmdOK->IsEnabled());
        Press(WXK_RETURN);
        EXPECT_FALSE(WaitUntil([&] { return !IsOpen(dialog); }, std::chrono::milliseconds(300)));
        // Neither a double click outside the lines nor OK, if it came through, closes the dialog.
        Send(dialog.lstMain, wxEVT_LISTBOX_DCLICK);
        ASSERT_TRUE(IsOpen(dialog));
        ClickDisabled(dialog.cmdOK);
        EXPECT_TRUE(IsOpen(dialog));
    });
    EXPECT_EQ(key, "");
}

TEST_F(FormSelectFromListTest, EscapeForgetsTheSelection) {
    Add("Machines\\A", "Bridge");
    FormSelectMachine dialog(nullptr);
    {
        const ModalDriver driver(dialog, [&] {
            ClickLine(*dialog.lstMain, 0);
            EXPECT_TRUE(dialog.cmdOK->IsEnabled());
            Press(WXK_ESCAPE);
            EXPECT_FALSE(IsOpen(dialog));
        });
        EXPECT_EQ(dialog.SelectMachine(), "");
    }
    // The dialog is empty again when it is shown a second time.
    const ModalDriver driver(dialog, [&] {
        EXPECT_EQ(dialog.lstMain->GetSelection(), wxNOT_FOUND);
        EXPECT_FALSE(dialog.cmdOK->IsEnabled());
        Click(dialog.cmdCancel);
    });
    EXPECT_EQ(dialog.SelectMachine(), "");
}

TEST_F(FormSelectFromListTest, TheEntryThatIsSetIsSelected) {
    Add("Machines\\A", "Bridge");
    Add("Machines\\B", "Arm");
    FormSelectMachine dialog(nullptr);
    const ModalDriver driver(dialog, [&] {
        EXPECT_EQ(dialog.lstMain->GetSelection(), 1);
        EXPECT_TRUE(dialog.cmdOK->IsEnabled());
        Click(dialog.cmdOK);
    });
    EXPECT_EQ(dialog.SelectMachine("Machines\\B"), "Machines\\B");
    Add("Users\\U1", "Smith");
    FormSelectUser users(nullptr);
    const ModalDriver second(users, [&] {
        EXPECT_EQ(users.lstMain->GetSelection(), wxNOT_FOUND);
        EXPECT_FALSE(users.cmdOK->IsEnabled());
        Click(users.cmdCancel);
    });
    EXPECT_EQ(users.SelectUser("Users\\Gone"), "");
}

TEST_F(FormSelectFromListTest, WithoutMachinesOnlyCancelLeadsOut) {
    RegEntry().CreateKey("Machines");
    const std::string key = Machine([](FormSelectMachine& dialog) {
        EXPECT_EQ(dialog.lstMain->GetCount(), 0u);
        EXPECT_FALSE(dialog.cmdOK->IsEnabled());
        EXPECT_TRUE(dialog.cmdCancel->IsEnabled());
    });
    EXPECT_EQ(key, "");
}

#ifdef NESK_PORTABLE_STATION
TEST_F(FormSelectFromListTest, AnEmptyListSaysWhereItsEntriesComeFromAndGetsOne) {
    const std::string key = Machine([this](FormSelectMachine& dialog) {
        EXPECT_TRUE(messages.empty()) << "a list that was never made is no fault";
        EXPECT_EQ(FromWx(dialog.lblEmpty->GetLabel()), LoadResString(34427));
        EXPECT_TRUE(dialog.lblEmpty->IsShown());
        EXPECT_FALSE(dialog.cmdRemove->IsEnabled());
        const NextDialog<FormListName> next([this](FormListName& name) {
            EXPECT_TRUE(name.txtName->HasFocus());
            Expect();
            Click(name.cmdOK);
            EXPECT_EQ(messages.back().text, LoadResString(34420));
            EXPECT_TRUE(IsOpen(name)) << "a name is needed";
            Fill(name.txtName, "Bridge");
            Click(name.cmdOK);
        });
        Click(dialog.cmdAdd);
        ASSERT_EQ(dialog.lstMain->GetCount(), 1u);
        EXPECT_EQ(dialog.lstMain->GetSelection(), 0) << "the new one is chosen";
        EXPECT_FALSE(dialog.lblEmpty->IsShown());
        EXPECT_TRUE(dialog.cmdOK->IsEnabled());
        Click(dialog.cmdOK);
    });
    EXPECT_EQ(key, "Machines\\M1");
    RegEntry entry;
    entry.OpenKey(key);
    EXPECT_EQ(entry.GetString("Name"), "Bridge");
}

TEST_F(FormSelectFromListTest, AnEntryIsRemovedAfterAQuestion) {
    Add("Machines\\A", "Bridge");
    Add("Machines\\B", "Arm");
    Machine([this](FormSelectMachine& dialog) {
        ClickLine(*dialog.lstMain, 1);
        Expect(modMessageBox::Result::No);
        Click(dialog.cmdRemove);
        EXPECT_NE(messages.back().text.find("\"Arm\""), std::string::npos);
        EXPECT_EQ(dialog.lstMain->GetCount(), 2u);
        Expect(modMessageBox::Result::Yes);
        Click(dialog.cmdRemove);
        ASSERT_EQ(dialog.lstMain->GetCount(), 1u);
        EXPECT_EQ(dialog.lstMain->GetString(0), "Bridge");
        EXPECT_EQ(dialog.lstMain->GetSelection(), 0) << "the selection falls on the next entry";
        Expect(modMessageBox::Result::Yes);
        Click(dialog.cmdRemove);
        EXPECT_FALSE(dialog.cmdOK->IsEnabled());
        EXPECT_FALSE(dialog.cmdRemove->IsEnabled());
    });
    EXPECT_FALSE(RegEntry().TestKey("Machines\\B"));
    EXPECT_FALSE(RegEntry().TestKey("Machines\\A"));
}

TEST_F(FormSelectFromListTest, TheEntryThatIsSetCannotBeRemoved) {
    Add("Machines\\A", "Bridge");
    Add("Machines\\B", "Arm");
    FormSelectMachine dialog(nullptr);
    ModalDriver driver(dialog, [&] {
        EXPECT_FALSE(dialog.cmdRemove->IsEnabled()) << "the settings name it";
        ClickLine(*dialog.lstMain, 0);
        EXPECT_TRUE(dialog.cmdRemove->IsEnabled());
        Click(dialog.cmdCancel);
    });
    EXPECT_EQ(dialog.SelectMachine("Machines\\B"), "");
}
#else
TEST_F(FormSelectFromListTest, AnEmptyListSaysWhereItsEntriesComeFrom) {
    RegEntry().CreateKey("Machines");
    Machine([](FormSelectMachine& dialog) {
        EXPECT_TRUE(dialog.lblEmpty->IsShown());
        EXPECT_EQ(FromWx(dialog.lblEmpty->GetLabel()).substr(0, 22), LoadResString(34425).substr(0, 22));
        EXPECT_EQ(dialog.cmdAdd, nullptr) << "other software makes the list";
    });
}

TEST_F(FormSelectFromListTest, AMissingListIsReportedAndEmpty) {
    Expect();
    const std::string key = Machine([this](FormSelectMachine& dialog) {
        EXPECT_EQ(messages.size(), 1u);
        EXPECT_EQ(dialog.lstMain->GetCount(), 0u);
        EXPECT_FALSE(dialog.cmdOK->IsEnabled());
    });
    EXPECT_EQ(key, "");
}
#endif

TEST_F(FormSelectFromListTest, UsersAreAListOfTheirOwn) {
    Add("Machines\\M1", "Bridge");
    Add("Users\\U7", "Smith");
    FormSelectUser dialog(nullptr);
    const ModalDriver driver(dialog, [&] {
        EXPECT_EQ(FromWx(dialog.GetTitle()), LoadResString(32048));
        ASSERT_EQ(dialog.lstMain->GetCount(), 1u);
        EXPECT_EQ(dialog.lstMain->GetString(0), "Smith");
        ClickLine(*dialog.lstMain, 0);
        Click(dialog.cmdOK);
    });
    EXPECT_EQ(dialog.SelectUser(), "Users\\U7");
}

} // namespace
} // namespace nesk::testing
