// Add parts from folders in the main window.

#include "gui/GuiFixture.h"

#include "gui/NextDialog.h"
#include "menu/MenuItem.h"
#include "partedit/FormAddParts.h"
#include "settings/RegEntry.h"
#include "widgets/UiRowList.h"
#include "widgets/UiUtilities.h"

#include <wx/menu.h>
#include <wx/stattext.h>

namespace nesk::testing {
namespace {

class FormMainAddPartsTest : public MainWindowTest {
protected:
    FormMainAddPartsTest() {
        RegEntry common;
        common.CreateKey("Common");
        common.SetString("RepositoryRoot", "D:\\Parts");
    }

    void MakeParts(int folders, int partsEach) {
        for (int i = 0; i < folders * partsEach; ++i)
            station.Write("D:\\Parts\\Folder " + std::to_string(i % folders) + "\\p" + std::to_string(i) +
                              "\\partinfo.ini",
                          "[Part]\r\nName=Part " + std::to_string(i) + "\r\n");
    }

    void OpenMenu() {
        WriteMenu(SmallMenu);
        OpenWindow();
        Press('O', wxMOD_CONTROL);
    }

    // Opens the dialog by a key, and does with it what the action does when it has read its folder.
    void AddByKey(const std::function<void(FormAddParts&)>& act) {
        const NextDialog<FormAddParts> next([&](FormAddParts& dialog) {
            EXPECT_TRUE(WaitUntil([&] { return !dialog.IsSearching(); }));
            act(dialog);
            EXPECT_TRUE(WaitUntil([&] { return !IsOpen(dialog); }));
        });
        dialogs.Answer(wxID_NONE); // the dialog is shown
        Press('P', wxMOD_CONTROL | wxMOD_SHIFT);
    }
};

TEST_F(FormMainAddPartsTest, ThreeHundredPartsWithTwoKeys) {
    MakeParts(10, 30);
    OpenMenu();
    Select("R");
    const std::string before = TreeText();
    const int children = window->Editor().OpenMenu()->ChildCount();
    AddByKey([](FormAddParts& dialog) {
        EXPECT_EQ(TextOf(dialog.lblCount), "Parts to add: 300. Submenus: 10, of them new: 10.");
        Press(WXK_RETURN);
    });
    EXPECT_EQ(window->Editor().OpenMenu()->ChildCount(), children + 10);
    EXPECT_EQ(Tree().Selection().size(), 310u) << "what was added is selected";
    EXPECT_EQ(TreeText().find("Part 299") != std::string::npos, true);
    EXPECT_TRUE(window->tvMain->Window().HasFocus());
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), before) << "one step";
    EXPECT_FALSE(window->Editor().IsDirty());
    Press('Y', wxMOD_CONTROL);
    EXPECT_EQ(Tree().Selection().size(), 310u);
}

TEST_F(FormMainAddPartsTest, CancelKeepsMenuAndSelection) {
    MakeParts(1, 2);
    OpenMenu();
    Select("R.2");
    AddByKey([](FormAddParts& dialog) {
        EXPECT_EQ(dialog.lstParts->GetItemCount(), 3);
        Press(WXK_ESCAPE);
    });
    EXPECT_FALSE(window->Editor().IsDirty());
    EXPECT_EQ(window->tvMain->SelectedKeys(), EntryIds{"R.2"});
}

TEST_F(FormMainAddPartsTest, WhatWasAddedDoesNotStandInTheWay) {
    MakeParts(2, 3);
    OpenMenu();
    Select("R");
    AddByKey([](FormAddParts&) { Press(WXK_RETURN); });
    EXPECT_EQ(Tree().Selection().size(), 8u);
    EXPECT_TRUE(window->mnuMenuAddParts->IsEnabled());
    AddByKey([](FormAddParts& dialog) {
        EXPECT_EQ(modUtilities::FromWx(dialog.GetTitle()), "Add Parts from Folders to \"Main Menu\"");
        Press(WXK_ESCAPE);
    });
}

TEST_F(FormMainAddPartsTest, OnAPartTheyAreAddedBesideIt) {
    MakeParts(1, 1);
    OpenMenu();
    window->tvMain->SelectKeys({"R.2.1"});
    Settle();
    EXPECT_FALSE(window->mnuMenuAddPart->IsEnabled());
    AddByKey([](FormAddParts&) { Press(WXK_RETURN); });
    EXPECT_EQ(window->tvMain->SelectedKeys(), (EntryIds{"R.2.2", "R.2.2.1"}));
}

} // namespace
} // namespace nesk::testing
