// The pane of problems, the marks in the tree and the number in the status bar.

#include "gui/GuiFixture.h"

#include "checking/FormChangeFolder.h"
#include "gui/NextDialog.h"
#include "gui/PictureSamples.h"
#include "gui/UiDriver.h"
#include "menu/MenuItem.h"
#include "partedit/FormEditPart.h"
#include "platform/OpenFileDialog.h"
#include "shell/FormPanes.h"
#include "shell/FormProblems.h"
#include "shell/modUtilities.h"
#include "widgets/UiRowList.h"
#include "widgets/UiUtilities.h"

#include <algorithm>
#include <chrono>
#include <filesystem>

#include <wx/bmpbuttn.h>
#include <wx/button.h>
#include <wx/menu.h>
#include <wx/splitter.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

using modUtilities::FromWx;

class FormMainProblemsTest : public MainWindowTest {
protected:
    // A submenu with a part that has everything, and one whose files are missing.
    FormMainProblemsTest() {
        station.Write("C:\\Parts\\A\\partinfo.ini", "[Part]\r\nName=A\r\n");
        WriteMenu("BLOCK MENU\r\n"
                  "CAPTION=Main Menu\r\n"
                  "BLOCK SUBMENU\r\nCAPTION=Housing\r\nMENUTYPE=Menu\r\n"
                  "BLOCK SUBMENU\r\nCAPTION=Good\r\nMENUTYPE=Part Program\r\n"
                  "PROGRAMID=@C:\\Parts\\A\\partinfo.ini@\r\nEND\r\n"
                  "BLOCK SUBMENU\r\nCAPTION=Bad\r\nMENUTYPE=Part Program\r\n"
                  "GRAPHIC=C:\\Pictures\\gone.bmp\r\nPROGRAMID=@C:\\Parts\\A\\partinfo.ini@\r\n"
                  "HISTORY_DIR=C:\\History\\Bad\r\nHISTORY_TITLE=Bad\r\nEND\r\n"
                  "END\r\n"
                  "BLOCK SUBMENU\r\nCAPTION=Other\r\nMENUTYPE=Menu\r\n"
                  "BLOCK SUBMENU\r\nCAPTION=Plain\r\nMENUTYPE=Part Program\r\nPROGRAMID=P7\r\nEND\r\n"
                  "END\r\n"
                  "END\r\n");
        OpenWindow();
        Press('O', wxMOD_CONTROL);
    }

    void OpenPane() { OpenWith(2); }

    // Opens the pane, which will list a number of problems.
    void OpenWith(int count) {
        Press(WXK_F9);
        ASSERT_NE(window->pnProblems, nullptr);
        EXPECT_TRUE(WaitForCount(count));
    }

    // Waits until the list has a number of rows.
    bool WaitForCount(int count) const {
        return WaitUntil([&] { return window->pnProblems->lstProblems->GetItemCount() == count; });
    }

    bool WaitForStatus(const std::string& end) const {
        return WaitUntil([&] { return FromWx(window->sbMain->Counts()).ends_with(end); });
    }

    // The rows of the list; columns are separated by "|".
    std::string ListText() const {
        std::string text;
        const UiRowList& list = *window->pnProblems->lstProblems;
        for (long row = 0; row < list.GetItemCount(); ++row) {
            for (int column = 0; column < list.GetColumnCount(); ++column)
                text += (column > 0 ? "|" : "") + FromWx(list.GetItemText(row, column));
            text += "\n";
        }
        return text;
    }

    const MenuItem& Item(const std::string& id) const {
        return dynamic_cast<const MenuItem&>(*window->Editor().Find(id));
    }

    std::size_t Steps() const { return window->Editor().History().UndoNames().size(); }

    void SelectProblem(long row) {
        window->pnProblems->lstProblems->SelectRow(row);
        Settle();
    }

    void Apply(Fix fix) {
        window->pnProblems->onFix(fix, window->pnProblems->Selected());
        Settle();
    }

    // Does what a drag of the line between the panes does.
    void MoveSash(int position) {
        wxSplitterEvent moves(wxEVT_SPLITTER_SASH_POS_CHANGING, window->spMain);
        window->spMain->ProcessWindowEvent(moves);
        window->spMain->SetSashPosition(position);
        wxSplitterEvent moved(wxEVT_SPLITTER_SASH_POS_CHANGED, window->spMain);
        window->spMain->ProcessWindowEvent(moved);
        Settle();
    }

    const std::string Both = "Warning|Bad|Housing|Picture|Missing file: C:\\Pictures\\gone.bmp\n"
                             "Warning|Bad|Housing|History directory|Missing folder: C:\\History\\Bad\n";
};

TEST_F(FormMainProblemsTest, TheStatusBarCountsWithoutThePane) {
    EXPECT_TRUE(WaitForStatus("; 2 problems"));
    window->Editor().SetGraphic("R.1.2", "");
    EXPECT_TRUE(WaitForStatus("; 1 problem"));
    window->Editor().Undo();
    EXPECT_TRUE(WaitForStatus("; 2 problems"));
    window->Editor().Remove("R.1.2");
    EXPECT_TRUE(WaitForStatus("parts"));
}

TEST_F(FormMainProblemsTest, ThePaneListsTheProblems) {
    OpenPane();
    EXPECT_EQ(ListText(), Both);
    EXPECT_EQ(TextOf(window->pnProblems->lblProblems), "Errors: 0, warnings: 2, hints: 0");
    EXPECT_TRUE(window->pnProblems->lstProblems->HasFocus());
    EXPECT_TRUE(window->mnuViewProblems->IsChecked());
    window->Editor().SetCaption("R.2.1", "");
    EXPECT_TRUE(WaitForCount(3));
    EXPECT_EQ(ListText(), Both + "Error||Other|Caption|The caption is empty\n");
    EXPECT_EQ(TextOf(window->pnProblems->lblProblems), "Errors: 1, warnings: 2, hints: 0");
    Press(WXK_F9);
    EXPECT_FALSE(window->pnProblems->IsShown());
    EXPECT_FALSE(window->mnuViewProblems->IsChecked());
    EXPECT_TRUE(Tree().Window().HasFocus());
}

TEST_F(FormMainProblemsTest, EnterGoesToTheEntry) {
    OpenPane();
    Press(WXK_DOWN);
    Press(WXK_RETURN);
    EXPECT_EQ(SelectedText(), "Bad");
    EXPECT_TRUE(Tree().Window().HasFocus());
}

TEST_F(FormMainProblemsTest, ADoubleClickGoesToTheEntry) {
    OpenPane();
    UiRowList& list = *window->pnProblems->lstProblems;
    wxRect row;
    ASSERT_TRUE(list.GetItemRect(1, row));
    DoubleClickPoint(list.ClientToScreen(wxPoint(row.x + 30, row.y + row.height / 2)));
    EXPECT_TRUE(WaitUntil([&] { return SelectedText() == "Bad"; }));
}

TEST_F(FormMainProblemsTest, KeysInTheListDoNotEditTheTree) {
    OpenPane();
    Select("R.2");
    Focus(window->pnProblems->lstProblems);
    Press(WXK_DELETE);
    EXPECT_NE(window->Editor().Find("R.2"), nullptr);
    EXPECT_EQ(Tree().Edited(), nullptr);
    Press(WXK_ESCAPE);
    EXPECT_TRUE(Tree().Window().HasFocus());
    EXPECT_TRUE(window->pnProblems->IsShown());
}

TEST_F(FormMainProblemsTest, EntriesAndTheSubmenusAboveThemAreMarked) {
    ASSERT_TRUE(WaitForStatus("; 2 problems"));
    const int plainFolder = Row("R.2").Image();
    EXPECT_NE(Row("R").Image(), plainFolder);
    EXPECT_EQ(Row("R.1").Image(), Row("R").Image());
    EXPECT_NE(Row("R.1.2").Image(), Row("R.1.1").Image());
    window->Editor().Remove("R.1.2");
    EXPECT_TRUE(WaitUntil([&] { return Row("R.1").Image() == plainFolder; }));
    EXPECT_EQ(Row("R").Image(), plainFolder);
}

TEST_F(FormMainProblemsTest, AnotherFileIsChosen) {
    station.Write("C:\\Pictures\\new.bmp", "no picture, but a file");
    OpenPane();
    SelectProblem(0);
    platform::OpenFileRequest asked;
    const auto before = platform::SetOpenFileDialog([&](wxWindow*, const platform::OpenFileRequest& request) {
        asked = request;
        return std::string("C:\\Pictures\\new.bmp");
    });
    Apply(Fix::ChooseFile);
    platform::SetOpenFileDialog(before);
    EXPECT_EQ(asked.folder, "C:\\Pictures\\");
    EXPECT_EQ(asked.file, "C:\\Pictures\\gone.bmp");
    EXPECT_EQ(Item("R.1.2").Graphic(), "C:\\Pictures\\new.bmp");
    EXPECT_EQ(Steps(), 1u);
    EXPECT_TRUE(WaitUntil([&] { return ListText().find("Not a picture") != std::string::npos; }));
}

TEST_F(FormMainProblemsTest, AFileThatIsNotChosenChangesNothing) {
    OpenPane();
    SelectProblem(0);
    const auto before = platform::SetOpenFileDialog(
        [](wxWindow*, const platform::OpenFileRequest&) { return std::string(); });
    Apply(Fix::ChooseFile);
    platform::SetOpenFileDialog(before);
    EXPECT_EQ(Steps(), 0u);
}

TEST_F(FormMainProblemsTest, SeveralFieldsAreClearedAtOnce) {
    OpenPane();
    SelectProblem(0);
    window->pnProblems->lstProblems->Select(1);
    Settle();
    EXPECT_FALSE(window->pnProblems->cmdGoTo->IsEnabled());
    EXPECT_TRUE(window->pnProblems->cmdFix->IsEnabled());
    Apply(Fix::Clear);
    EXPECT_TRUE(WaitForCount(0));
    EXPECT_EQ(TextOf(window->pnProblems->lblProblems), "No problems were found.");
    EXPECT_EQ(Steps(), 1u);
    EXPECT_FALSE(window->pnProblems->cmdFix->IsEnabled());
    Press('Z', wxMOD_CONTROL);
    EXPECT_TRUE(WaitForCount(2));
}

TEST_F(FormMainProblemsTest, TheHistoryDirectoryIsMade) {
    OpenPane();
    SelectProblem(1);
    Apply(Fix::MakeFolder);
    EXPECT_TRUE(modUtilities::DirectoryExists("C:\\History\\Bad"));
    EXPECT_TRUE(WaitForCount(1));
    EXPECT_EQ(Steps(), 0u);
}

TEST_F(FormMainProblemsTest, AHistoryDirectoryThatCannotBeMade) {
    station.Write("C:\\History", "a file");
    OpenPane();
    SelectProblem(1);
    dialogs.Answer(wxID_OK);
    Apply(Fix::MakeFolder);
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(dialogs.shown[0].text.find("The folder could not be made."), 0u) << dialogs.shown[0].text;
}

TEST_F(FormMainProblemsTest, TheFolderOfAllItsFilesIsChanged) {
    station.Write("D:\\Pictures\\gone.bmp", "x");
    OpenPane();
    SelectProblem(0);
    {
        const NextDialog<FormChangeFolder> next([&](FormChangeFolder& dialog) {
            EXPECT_EQ(TextOf(dialog.txtPlace), "C:\\Pictures");
            EXPECT_TRUE(dialog.txtPlace->HasFocus());
            Fill(dialog.txtPlace, "D:\\Pictures");
            Press(WXK_RETURN);
        });
        dialogs.Answer(wxID_NONE);
        Apply(Fix::ChangeFolder);
    }
    EXPECT_EQ(Item("R.1.2").Graphic(), "D:\\Pictures\\gone.bmp");
}

TEST_F(FormMainProblemsTest, TheDialogOfTheEntryIsOpened) {
    OpenPane();
    SelectProblem(1);
    {
        const NextDialog<FormEditPart> next([](FormEditPart& dialog) { Click(dialog, "cmdCancel"); });
        dialogs.Answer(wxID_NONE);
        Apply(Fix::Edit);
    }
    EXPECT_EQ(SelectedText(), "Bad");
}

TEST_F(FormMainProblemsTest, F2RenamesTheEntryOfTheProblem) {
    OpenPane();
    window->Editor().SetCaption("R.1.1", "Bad");
    EXPECT_TRUE(WaitForCount(4));
    Select("R.2");
    Focus(window->pnProblems->lstProblems);
    SelectProblem(0);
    EXPECT_EQ(window->pnProblems->Selected().at(0).kind, FindingKind::DoubledCaption);
    Press(WXK_F2);
    ASSERT_NE(Tree().Edited(), nullptr);
    Type("Better");
    Press(WXK_RETURN);
    EXPECT_EQ(Item("R.1.1").Caption(), "Better");
    EXPECT_TRUE(WaitForCount(2));
    EXPECT_TRUE(window->pnProblems->lstProblems->HasFocus()) << "the user goes on in the list";
}

TEST_F(FormMainProblemsTest, ARenamedEntryIsVisibleInALongTree) {
    window->SetSize(0, 0, 500, 500);
    for (int i = 0; i < 40; ++i)
        window->Editor().AddPart("R", "Part " + std::to_string(i));
    window->Editor().SetCaption("R.42", "");
    Tree().EnsureVisible(Row("R"));
    Press(WXK_F9);
    ASSERT_TRUE(WaitUntil([&] { return ListText().find("The caption is empty") != std::string::npos; }));
    const std::string before = ListText().substr(0, ListText().find("The caption is empty"));
    SelectProblem(static_cast<long>(std::count(before.begin(), before.end(), '\n')));
    ASSERT_EQ(window->pnProblems->Selected().at(0).kind, FindingKind::NoCaption);
    Press(WXK_F2);
    ASSERT_TRUE(WaitUntil([&] { return Tree().Edited() != nullptr; }));
    const wxRect row = Tree().RowRect(Row("R.42"));
    EXPECT_GE(row.y, 0);
    EXPECT_LE(row.GetBottom(), Tree().Window().GetClientSize().y);
    Type("Named");
    Press(WXK_RETURN);
    EXPECT_EQ(Item("R.42").Caption(), "Named");
}

TEST_F(FormMainProblemsTest, TheSelectionStaysAtItsProblem) {
    OpenPane();
    SelectProblem(1);
    window->Editor().AddPart("R", "New");
    EXPECT_TRUE(WaitForCount(3));
    ASSERT_EQ(window->pnProblems->Selected().size(), 1u);
    EXPECT_EQ(window->pnProblems->Selected()[0].kind, FindingKind::FolderMissing);
    // When it is solved, the next one is selected.
    Apply(Fix::Clear);
    EXPECT_TRUE(WaitForCount(2));
    ASSERT_EQ(window->pnProblems->Selected().size(), 1u);
    EXPECT_EQ(window->pnProblems->Selected()[0].kind, FindingKind::NoProgram);
}

TEST_F(FormMainProblemsTest, ThePaneIsRememberedWithItsHeight) {
    OpenPane();
    MoveSash(window->spMain->GetSashPosition() - 40);
    const int height = window->pnProblems->GetSize().y;
    window->Close();
    Settle();
    OpenWindow();
    Press('O', wxMOD_CONTROL);
    ASSERT_NE(window->pnProblems, nullptr);
    EXPECT_TRUE(window->pnProblems->IsShown());
    EXPECT_TRUE(window->mnuViewProblems->IsChecked());
    EXPECT_TRUE(WaitUntil([&] { return std::abs(window->pnProblems->GetSize().y - height) <= 2; }))
        << window->pnProblems->GetSize().y << " " << height;
    EXPECT_TRUE(WaitForCount(2));
}

TEST_F(FormMainProblemsTest, ThePaneGetsItsHeightBackAfterASmallWindow) {
    window->SetSize(0, 0, 800, 700);
    Settle();
    OpenPane();
    MoveSash(-250);
    const int height = window->pnProblems->GetSize().y;
    EXPECT_GT(height, 200);
    for (int round = 0; round < 3; ++round) {
        window->SetSize(0, 0, 400, 300);
        EXPECT_TRUE(WaitUntil([&] { return window->pnProblems->GetSize().y < height; }));
        window->SetSize(0, 0, 800, 700);
        EXPECT_TRUE(WaitUntil([&] { return window->pnProblems->GetSize().y == height; }))
            << window->pnProblems->GetSize().y << " instead of " << height << " in round " << round;
    }
}

TEST_F(FormMainProblemsTest, AllProblemsAreSelected) {
    OpenPane();
    Press('A', wxMOD_CONTROL);
    EXPECT_EQ(window->pnProblems->Selected().size(), 2u);
    EXPECT_EQ(SelectedText(), "Main Menu") << "the selection of the tree stays";
    // What fits one of them only is done there.
    Apply(Fix::MakeFolder);
    EXPECT_TRUE(WaitForCount(1));
    EXPECT_TRUE(std::filesystem::is_directory(TempStation::Host("C:\\History\\Bad")));
}

TEST_F(FormMainProblemsTest, APictureThatGoesAwayIsNoticed) {
    station.Write("C:\\Pictures\\gone.bmp", PictureSample(8, 8));
    window->SetSize(0, 0, 900, 800);
    Press(WXK_F8);
    Select("R.1.2");
    OpenWith(1); // the history directory
    std::filesystem::remove(TempStation::Host("C:\\Pictures\\gone.bmp"));
    EXPECT_TRUE(WaitUntil([&] { return window->pnProblems->lstProblems->GetItemCount() == 2; },
                          std::chrono::seconds(20)));
    EXPECT_EQ(ListText(), Both);
}

TEST_F(FormMainProblemsTest, TheListIsSorted) {
    window->Editor().SetCaption("R.2.1", "");
    OpenWith(3);
    const std::string error = "Error||Other|Caption|The caption is empty\n";
    const auto clickColumn = [&](int column) {
        wxListEvent click(wxEVT_LIST_COL_CLICK, window->pnProblems->lstProblems->GetId());
        click.SetEventObject(window->pnProblems->lstProblems);
        click.m_col = column;
        window->pnProblems->lstProblems->ProcessWindowEvent(click);
        Settle();
    };
    EXPECT_EQ(ListText(), Both + error);
    SelectProblem(0);
    clickColumn(0);
    EXPECT_EQ(ListText(), error + Both);
    ASSERT_EQ(window->pnProblems->Selected().size(), 1u);
    EXPECT_EQ(window->pnProblems->Selected()[0].kind, FindingKind::FileMissing) << "it stays selected";
    clickColumn(0);
    EXPECT_TRUE(ListText().ends_with(error)) << "the other way round";
    clickColumn(0);
    EXPECT_EQ(ListText(), Both + error) << "as at first";
    clickColumn(3);
    EXPECT_TRUE(ListText().starts_with(error)) << "Caption, History directory, Picture: " << ListText();
}

TEST_F(FormMainProblemsTest, FilesAreLookedUpAgain) {
    OpenPane();
    station.Write("C:\\History\\Bad\\file.txt", "");
    Press(WXK_F5);
    EXPECT_TRUE(WaitForCount(1));
}

TEST_F(FormMainProblemsTest, TheCloseButtonHidesThePane) {
    OpenPane();
    Click(window->pnProblems->cmdCloseProblems);
    EXPECT_FALSE(window->pnProblems->IsShown());
    EXPECT_TRUE(Tree().Window().HasFocus());
}

} // namespace
} // namespace nesk::testing
