#include "partedit/FormAddParts.h"

#include "editing/MenuEditor.h"
#include "gui/PartDialogFixture.h"
#include "menu/MenuItem.h"
#include "partedit/FormBrowse.h"
#include "partedit/FormFolderTree.h"
#include "settings/RegEntry.h"
#include "settings/WindowMemory.h"
#include "shell/Startup.h"
#include "widgets/UiRowList.h"
#include "widgets/UiUtilities.h"

#include <filesystem>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

class FormAddPartsTest : public PartDialogTest {
protected:
    FormAddPartsTest() {
        Startup::InitLanguage();
        RegEntry common;
        common.CreateKey("Common");
        common.SetString("RepositoryRoot", "D:\\Parts\\");
        MakePart("Brackets\\b100", "Bracket, left");
        MakePart("Brackets\\b200", "Bracket, right");
        MakePart("Shaft", "Shaft 12");
        station.Write("D:\\Parts\\Brackets\\b100\\view.bmp", "");
        editor.Open("C:\\Neskroot", "C:\\Neskroot\\none.cfg");
        memory.Load();
    }

    void MakePart(const std::string& folder, const std::string& name) {
        station.Write("D:\\Parts\\" + folder + "\\partinfo.ini", "[Part]\r\nName=" + name + "\r\n");
    }

    // Shows the dialog and runs an action on it as soon as the folder is read and keys go to the dialog.
    EntryIds Show(std::function<void(FormAddParts&)> act, const std::string& folder = "",
                  const std::string& target = "R") {
        const auto whenActive = [act = std::move(act)](FormAddParts& form) {
            EXPECT_TRUE(WaitUntil([&] { return form.IsActive(); }));
            act(form);
        };
        WhenShown<FormAddParts>("FormAddParts", whenActive,
                                [](const FormAddParts& form) { return !form.IsSearching(); });
        return FormAddParts(nullptr, editor, memory).Invoke(target, folder);
    }

    static std::string Cell(const FormAddParts& form, long line, int column) {
        return modUtilities::FromWx(form.lstParts->GetItemText(line, column));
    }

    // The lines of the list, with "x" for a tick.
    static std::string Lines(const FormAddParts& form) {
        std::string text;
        for (long line = 0; line < form.lstParts->GetItemCount(); ++line)
            text += (form.lstParts->isTicked(line) ? "x" : "-") + Cell(form, line, 0) + "\n";
        return text;
    }

    const MenuItem& Item(const std::string& id) const {
        return dynamic_cast<const MenuItem&>(*editor.Find(id));
    }

    // Waits until the dialog has read its folder, which it does while it processes events.
    static void WaitForSearch(const FormAddParts& form) {
        EXPECT_TRUE(WaitUntil([&] { return !form.IsSearching(); }));
    }

    MenuEditor editor;
    WindowMemory memory;
};

TEST_F(FormAddPartsTest, ListsWhatIsAddedAndAddsItWithEnter) {
    const EntryIds added = Show([](FormAddParts& form) {
        EXPECT_EQ(modUtilities::FromWx(form.GetTitle()), "Add Parts from Folders to \"Main Menu\"");
        EXPECT_EQ(TextOf(form.txtFolder), "D:\\Parts");
        EXPECT_EQ(TextOf(form.lblStatus), "Part programs found: 3");
        EXPECT_EQ(Lines(form), "x▾ Brackets (2 of 2)\nx    b100\nx    b200\nxShaft\n");
        EXPECT_EQ(Cell(form, 1, PartImportList::CaptionColumn), "Bracket, left");
        EXPECT_EQ(Cell(form, 1, PartImportList::PictureColumn), "view.bmp");
        EXPECT_EQ(TextOf(form.lblCount), "Parts to add: 3. Submenus: 1, of them new: 1.");
        EXPECT_TRUE(form.lstParts->HasFocus());
        Press(WXK_RETURN);
        EXPECT_FALSE(IsOpen(form));
    });
    EXPECT_EQ(added, (EntryIds{"R.1", "R.1.1", "R.1.2", "R.2"}));
    EXPECT_EQ(Item("R.1.1").Caption(), "Bracket, left");
    EXPECT_EQ(Item("R.1.1").Graphic(), "D:\\Parts\\Brackets\\b100\\view.bmp");
    EXPECT_EQ(editor.History().UndoNames().size(), 1u);
}

TEST_F(FormAddPartsTest, EscapeAddsNothing) {
    EXPECT_TRUE(Show([](FormAddParts&) { Press(WXK_ESCAPE); }).empty());
    EXPECT_FALSE(editor.IsDirty());
    EXPECT_EQ(memory.Text("AddPartsPictures"), std::nullopt);
}

TEST_F(FormAddPartsTest, TheSpaceBarTicks) {
    const EntryIds added = Show([](FormAddParts& form) {
        Press(WXK_SPACE);
        EXPECT_EQ(Lines(form), "-▾ Brackets (0 of 2)\n-    b100\n-    b200\nxShaft\n");
        Press(WXK_DOWN);
        Press(WXK_SPACE);
        EXPECT_EQ(Lines(form), "-▾ Brackets (1 of 2)\nx    b100\n-    b200\nxShaft\n");
        EXPECT_EQ(TextOf(form.lblCount), "Parts to add: 2. Submenus: 1, of them new: 1.");
        Press(WXK_DOWN, wxMOD_SHIFT);
        Press(WXK_DOWN, wxMOD_SHIFT);
        EXPECT_EQ(form.lstParts->SelectedRows().size(), 3u);
        Press(WXK_SPACE);
        EXPECT_EQ(TextOf(form.lblCount), "Parts to add: 3. Submenus: 1, of them new: 1.") << "all of them";
        Press(WXK_SPACE);
        EXPECT_EQ(TextOf(form.lblCount), "Parts to add: 0. Submenus: 0, of them new: 0.");
        EXPECT_FALSE(form.cmdOK->IsEnabled());
        Press(WXK_RETURN);
        EXPECT_TRUE(IsOpen(form)) << "there is nothing to add";
        Click(form.cmdAll);
        Click(form.cmdNone);
        EXPECT_FALSE(form.cmdOK->IsEnabled());
        Click(form.cmdAll);
        EXPECT_TRUE(form.cmdOK->IsEnabled());
        Press(WXK_ESCAPE);
    });
    EXPECT_TRUE(added.empty());
}

TEST_F(FormAddPartsTest, TheAccessKeyOfTheListGoesThere) {
    Show([](FormAddParts& form) {
        Focus(form.txtHistory);
        Press('I', wxMOD_ALT);
        EXPECT_TRUE(WaitUntil([&] { return form.lstParts->HasFocus(); }));
        Press(WXK_ESCAPE);
    });
}

TEST_F(FormAddPartsTest, AClickTicks) {
    Show([](FormAddParts& form) {
        WaitUntilSteady(*form.lstParts);
        wxRect row;
        EXPECT_TRUE(form.lstParts->GetItemRect(0, row));
        const int tick = row.height / 2;
        ClickPoint(form.lstParts->ClientToScreen(wxPoint(row.x + tick, row.y + row.height / 2)));
        EXPECT_TRUE(WaitUntil([&] { return !form.lstParts->isTicked(1); })) << Lines(form);
        EXPECT_EQ(Lines(form), "-▾ Brackets (0 of 2)\n-    b100\n-    b200\nxShaft\n");
        Click(form.cmdCancel);
    });
}

TEST_F(FormAddPartsTest, ArrowKeysCloseFoldersAndLettersFindNames) {
    Show([](FormAddParts& form) {
        Press(WXK_LEFT);
        EXPECT_EQ(Lines(form), "x▸ Brackets (2 of 2)\nxShaft\n");
        Type("sh");
        EXPECT_EQ(form.lstParts->SelectedRows(), std::vector<long>{1});
        Press(WXK_UP);
        Press(WXK_RIGHT);
        EXPECT_EQ(form.lstParts->GetItemCount(), 4);
        Press(WXK_RIGHT);
        EXPECT_EQ(form.lstParts->SelectedRows(), std::vector<long>{1});
        Press(WXK_LEFT);
        EXPECT_EQ(form.lstParts->SelectedRows(), std::vector<long>{0});
        EXPECT_EQ(TextOf(form.lblCount), "Parts to add: 3. Submenus: 1, of them new: 1.") << "no key ticked";
        Press(WXK_ESCAPE);
    });
}

TEST_F(FormAddPartsTest, OptionsChangeTheListAtOnceAndAreRemembered) {
    station.Write("C:\\Pictures\\other.bmp", "");
    station.Write("D:\\History\\readme.txt", "");
    ChooseFile("C:\\Pictures\\other.bmp");
    Show([](FormAddParts& form) {
        Choose(form.choCaptions, "Name of the folder");
        Choose(form.choLetters, "UPPER CASE");
        Click(form.chkSubmenus);
        Fill(form.txtPictures, "");
        Click(form.cmdPicture);
        EXPECT_EQ(TextOf(form.txtPicture), "C:\\Pictures\\other.bmp");
        Fill(form.txtHistory, "D:\\History\\%part%");
        EXPECT_TRUE(WaitUntil([&] { return Cell(form, 1, PartImportList::CaptionColumn) == "B100"; }));
        EXPECT_EQ(Cell(form, 1, PartImportList::PictureColumn), "other.bmp");
        EXPECT_EQ(TextOf(form.lblCount), "Parts to add: 3.");
        Click(form.cmdOK);
        EXPECT_FALSE(IsOpen(form));
    });
    EXPECT_EQ(Item("R.1").Caption(), "B100");
    EXPECT_EQ(Item("R.1").Graphic(), "C:\\Pictures\\other.bmp");
    EXPECT_EQ(Item("R.1").HistoryDir(), "D:\\History\\b100");
    EXPECT_EQ(Item("R.1").HistoryTitle(), "B100");
    Show([](FormAddParts& form) {
        EXPECT_EQ(TextOf(form.choCaptions), "Name of the folder");
        EXPECT_EQ(TextOf(form.choLetters), "UPPER CASE");
        EXPECT_FALSE(form.chkSubmenus->GetValue());
        EXPECT_EQ(TextOf(form.txtPictures), "");
        EXPECT_EQ(TextOf(form.txtPicture), "C:\\Pictures\\other.bmp");
        EXPECT_EQ(TextOf(form.txtHistory), "D:\\History\\%part%");
        EXPECT_EQ(Cell(form, 1, PartImportList::ExistingColumn), "in Main Menu");
        EXPECT_EQ(TextOf(form.lblCount), "Parts to add: 0. Already in the menu: 3.");
        EXPECT_FALSE(form.cmdOK->IsEnabled());
        Press(WXK_ESCAPE);
    });
}

TEST_F(FormAddPartsTest, WhatDoesNotExistIsRefusedWithTheReason) {
    Show([](FormAddParts& form) {
        Fill(form.txtPicture, "C:\\missing.bmp");
        Click(form.cmdOK);
        ASSERT_TRUE(form.lblReason->IsShown());
        EXPECT_NE(TextOf(form.lblReason).find("C:\\missing.bmp"), std::string::npos);
        EXPECT_TRUE(form.txtPicture->HasFocus());
        Fill(form.txtPicture, "");
        Fill(form.txtHistory, "D:\\missing\\%part%");
        Click(form.cmdOK);
        EXPECT_NE(TextOf(form.lblReason).find("D:\\missing\\"), std::string::npos);
        EXPECT_TRUE(form.txtHistory->HasFocus());
        Press(WXK_ESCAPE);
    });
    EXPECT_FALSE(editor.IsDirty());
}

TEST_F(FormAddPartsTest, AProblemIsShownBeforeOk) {
    MakePart("a@b", "At");
    const EntryIds added = Show([](FormAddParts& form) {
        EXPECT_EQ(Lines(form), "x▾ Brackets (2 of 2)\nx    b100\nx    b200\n-a@b\nxShaft\n");
        EXPECT_NE(Cell(form, 3, PartImportList::NoteColumn).find("D:\\Parts\\a@b"), std::string::npos);
        EXPECT_EQ(TextOf(form.lblNote), "");
        Type("a");
        EXPECT_EQ(TextOf(form.lblNote), Cell(form, 3, PartImportList::NoteColumn));
        EXPECT_EQ(TextOf(form.lblCount), "Parts to add: 3. Submenus: 1, of them new: 1. "
                                         "Cannot be added: 1, see the notes.");
        Click(form.cmdOK);
    });
    EXPECT_EQ(added.size(), 4u);
}

TEST_F(FormAddPartsTest, AnotherFolderIsReadWithEnterOrTheButton) {
    station.Write("D:\\Other\\p1\\partinfo.ini", "[Part]\r\nName=One\r\n");
    Show([](FormAddParts& form) {
        Fill(form.txtFolder, "D:\\Other");
        EXPECT_EQ(TextOf(form.lblStatus), "Press Read to read this folder.");
        EXPECT_FALSE(form.cmdOK->IsEnabled()) << "the list is that of another folder";
        Focus(form.txtFolder);
        Press(WXK_RETURN);
        WaitForSearch(form);
        EXPECT_TRUE(IsOpen(form));
        EXPECT_EQ(Lines(form), "xp1\n");
        EXPECT_TRUE(form.cmdOK->IsEnabled());
        Fill(form.txtFolder, "D:\\Nowhere");
        Click(form.cmdRead);
        WaitForSearch(form);
        EXPECT_EQ(TextOf(form.lblStatus),
                  "The folder D:\\Nowhere does not exist. Enter another one, or choose one with Browse.");
        EXPECT_FALSE(form.cmdOK->IsEnabled());
        EXPECT_EQ(form.lstParts->GetItemCount(), 0);
        Fill(form.txtFolder, "D:\\Parts\\Brackets\\");
        Click(form.cmdRead);
        WaitForSearch(form);
        EXPECT_EQ(Lines(form), "xb100\nxb200\n");
        Press(WXK_ESCAPE);
    });
}

TEST_F(FormAddPartsTest, BrowseReadsTheChosenFolder) {
    WhenShown<FormAddParts>(
        "FormAddParts",
        [](FormAddParts& form) {
            Click(form.cmdBrowse);
            EXPECT_EQ(TextOf(form.txtFolder), "D:\\Parts\\Brackets\\");
            WaitForSearch(form);
            EXPECT_EQ(Lines(form), "xb100\nxb200\n");
            Click(form.cmdHistory);
            EXPECT_EQ(TextOf(form.txtHistory), "D:\\Parts\\Brackets\\%part%");
            Press(WXK_ESCAPE);
        },
        [](const FormAddParts& form) { return !form.IsSearching(); });
    const auto choose = [](FormBrowse& form) {
        form.Dir1->SetPath("D:\\Parts\\Brackets");
        Click(form.cmdOK);
    };
    WhenShown<FormBrowse>("FormBrowse", choose);
    WhenShown<FormBrowse>("FormBrowse", choose);
    FormAddParts(nullptr, editor, memory).Invoke("R");
}

// Folders that take longer to read than any wait of a test. On a station in a folder, each of them links to
// all others.
class FormAddPartsLongTest : public FormAddPartsTest {
protected:
    FormAddPartsLongTest() {
#ifdef NESK_PORTABLE_STATION
        constexpr int folders = 60;
#else
        constexpr int folders = 3000;
#endif
        for (int i = 0; i < folders; ++i)
            station.Write("D:\\Parts\\Zmany\\" + std::to_string(i) + "\\x", "");
#ifdef NESK_PORTABLE_STATION
        const std::filesystem::path many = TempStation::Host("D:\\Parts\\Zmany");
        for (int i = 0; i < folders; ++i)
            for (int j = 0; j < folders; ++j)
                if (i != j)
                    std::filesystem::create_directory_symlink(
                        many / std::to_string(j), many / std::to_string(i) / ("to" + std::to_string(j)));
#endif
    }

    // Runs an action on the dialog while it reads the folder.
    void ShowSearching(std::function<void(FormAddParts&)> act) {
        WhenShown<FormAddParts>("FormAddParts", std::move(act));
        EXPECT_TRUE(FormAddParts(nullptr, editor, memory).Invoke("R").empty());
    }
};

TEST_F(FormAddPartsLongTest, ReadingShowsHowFarItIsAndCanBeStopped) {
    ShowSearching([](FormAddParts& form) {
        ASSERT_TRUE(form.IsSearching());
        EXPECT_FALSE(form.cmdOK->IsEnabled());
        EXPECT_EQ(TextOf(form.cmdRead), "Stop");
        const std::string before = TextOf(form.lblStatus);
        EXPECT_EQ(before.find("Folders read: "), 0u) << before;
        EXPECT_TRUE(WaitUntil([&] { return TextOf(form.lblStatus) != before; })) << "it goes on";
        Choose(form.choLetters, "UPPER CASE"); // the window can be used meanwhile
        Click(form.cmdRead);
        WaitForSearch(form);
        EXPECT_EQ(TextOf(form.lblStatus).find("Stopped."), 0u) << TextOf(form.lblStatus);
        EXPECT_EQ(TextOf(form.cmdRead), "Read");
        EXPECT_TRUE(IsOpen(form));
        Press(WXK_ESCAPE);
    });
}

TEST_F(FormAddPartsLongTest, EscapeClosesAtOnce) {
    ShowSearching([](FormAddParts& form) {
        EXPECT_TRUE(form.IsSearching());
        Press(WXK_ESCAPE);
        EXPECT_FALSE(IsOpen(form));
    });
}

TEST_F(FormAddPartsTest, WithoutARepositoryTheFolderIsAskedFor) {
    RegEntry common;
    common.CreateKey("Common");
    common.SetString("RepositoryRoot", "");
    Show([](FormAddParts& form) {
        EXPECT_EQ(TextOf(form.lblStatus), "Enter the folder whose part programs are to be added.");
        EXPECT_TRUE(form.txtFolder->HasFocus());
        EXPECT_FALSE(form.cmdOK->IsEnabled());
        Press(WXK_ESCAPE);
    });
}

TEST_F(FormAddPartsTest, ADroppedPartinfoAddsThatPart) {
    editor.AddSubmenu("R", "Target");
    const EntryIds added = Show(
        [](FormAddParts& form) {
            EXPECT_EQ(modUtilities::FromWx(form.GetTitle()), "Add Parts from Folders to \"Target\"");
            EXPECT_EQ(Lines(form), "xb100\n");
            EXPECT_EQ(TextOf(form.lblStatus), "Part programs found: 1");
            Press(WXK_RETURN);
        },
        "D:\\Parts\\Brackets\\b100\\partinfo.ini", "R.1");
    EXPECT_EQ(added, (EntryIds{"R.1.1"}));
    EXPECT_EQ(Item("R.1.1").ProgramID(), "@D:\\Parts\\Brackets\\b100\\partinfo.ini@");
}

TEST_F(FormAddPartsTest, TabVisitsTheControlsInReadingOrder) {
    std::string order;
    Show([&](FormAddParts& form) {
        Focus(form.txtFolder);
        order = TabOrder();
        Press(WXK_ESCAPE);
    });
    const FormAddParts form(nullptr, editor, memory);
    EXPECT_EQ(order, "txtFolder cmdBrowse cmdRead " + FocusName(*form.choCaptions) + " " +
                         FocusName(*form.choLetters) +
                         " txtPictures txtPicture cmdPicture txtHistory cmdHistory chkSubmenus lstParts "
                         "cmdAll cmdNone cmdOK cmdCancel cmdHelp");
}

} // namespace
} // namespace nesk::testing
