#include "shell/FormVersions.h"

#include "gui/GuiFixture.h"
#include "gui/NextDialog.h"
#include "settings/RegEntry.h"
#include "shell/FormDifference.h"
#include "widgets/UiRowList.h"
#include "widgets/UiUtilities.h"

#include <filesystem>
#include <functional>
#include <string>

#include <wx/button.h>
#include <wx/menu.h>
#include <wx/stattext.h>

namespace nesk::testing {
namespace {

namespace fs = std::filesystem;

const std::string Versions = "C:\\Neskroot\\menu.versions";

class FormVersionsTest : public MainWindowTest {
protected:
    FormVersionsTest() {
        WriteMenu(SmallMenu);
        OpenWindow();
        Click(window->mnuFileOpen);
    }

    // Shows the dialog, does something with it when all versions are listed, and closes it if it is still
    // open.
    void WithVersions(const std::function<void(FormVersions&)>& act) {
        const NextDialog<FormVersions> next([&](FormVersions& dialog) {
            EXPECT_TRUE(WaitUntil([&] { return dialog.IsListed(); }));
            act(dialog);
            if (IsOpen(dialog)) Click(dialog.cmdCancel);
        });
        dialogs.Answer(wxID_NONE);
        Click(window->mnuFileVersions);
    }

    // Saves the menu with another caption of its first entry.
    void SaveAs(const std::string& caption) {
        window->Editor().SetCaption("R.1", caption);
        Press('S', wxMOD_CONTROL);
    }
};

TEST_F(FormVersionsTest, TheListIsEmptyAtFirst) {
    WithVersions([](FormVersions& dialog) {
        EXPECT_EQ(dialog.lstVersions->GetItemCount(), 0);
        EXPECT_FALSE(dialog.cmdOK->IsEnabled());
        EXPECT_FALSE(dialog.cmdCompare->IsEnabled());
        EXPECT_EQ(TextOf(dialog.lblHint),
                  "There are no earlier versions yet. Each save keeps the version before.");
    });
}

TEST_F(FormVersionsTest, EachSaveKeepsTheVersionBefore) {
    SaveAs("Second");
    window->Editor().AddPart("R", "More");
    SaveAs("Third");
    WithVersions([](FormVersions& dialog) {
        ASSERT_EQ(dialog.lstVersions->GetItemCount(), 2);
        EXPECT_EQ(dialog.lstVersions->text(0, 2), "4");
        EXPECT_EQ(dialog.lstVersions->text(0, 3), "1 added, 1 changed");
        EXPECT_EQ(dialog.lstVersions->text(1, 3), "1 changed");
        EXPECT_EQ(dialog.lstVersions->text(1, 1), "1 KB");
    });
}

TEST_F(FormVersionsTest, RestoringAVersionIsOneStep) {
    SaveAs("Second");
    window->Editor().AddPart("R.2", "More");
    WithVersions([](FormVersions& dialog) { Click(dialog.cmdOK); });
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Brackets\n  Angle\n Last\n");
    EXPECT_TRUE(window->Editor().IsDirty());
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(window->Editor().Find("R.1")->Caption(), "Second");
    EXPECT_EQ(window->Editor().Find("R.2")->ChildCount(), 2);
}

TEST_F(FormVersionsTest, OnlyTheChosenEntriesAreRestored) {
    window->Editor().Remove("R.3");
    SaveAs("Second");
    WithVersions([&](FormVersions&) {
        const NextDialog<FormDifference> next([](FormDifference& difference) {
            EXPECT_EQ(TextOf(difference.lblSummary), "1 removed, 1 changed");
            EXPECT_TRUE(difference.cmdOK->IsEnabled()) << "the menu itself is selected";
            Press(WXK_END);
            EXPECT_EQ(difference.tvDifference->Selected()->Text(), "Last (removed)");
            Click(difference.cmdOK);
        });
        dialogs.Answer(wxID_NONE);
        Press(WXK_RETURN);
    });
    EXPECT_EQ(TreeText(), "Main Menu\n Second\n Brackets\n  Angle\n Last\n");
    EXPECT_EQ(window->Editor().History().UndoNames(1).size(), 1u);
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(TreeText(), "Main Menu\n Second\n Brackets\n  Angle\n");
}

TEST_F(FormVersionsTest, TwoVersionsAreCompared) {
    SaveAs("Second");
    SaveAs("Third");
    WithVersions([&](FormVersions& dialog) {
        const NextDialog<FormDifference> next([](FormDifference& difference) {
            EXPECT_FALSE(difference.cmdOK->IsShown());
            ASSERT_NE(difference.tvDifference->Root(), nullptr);
            EXPECT_EQ(difference.tvDifference->Root()->Child(0).Text(), "Second (changed)");
            Press(WXK_ESCAPE);
        });
        Press(WXK_DOWN, wxMOD_SHIFT);
        EXPECT_EQ(dialog.lstVersions->SelectedRows(), (std::vector<long>{0, 1}));
        EXPECT_TRUE(WaitUntil([&] { return !dialog.cmdOK->IsEnabled(); })) << "two cannot be restored";
        dialogs.Answer(wxID_NONE);
        Click(dialog.cmdCompare);
    });
}

TEST_F(FormVersionsTest, AVersionThatCannotBeReadIsSaidSo) {
    SaveAs("Second");
    for (const auto& entry : fs::directory_iterator(TempStation::Host(Versions)))
        station.Write(Versions + "\\" + entry.path().filename().string(), "no menu");
    WithVersions([](FormVersions& dialog) {
        EXPECT_EQ(dialog.lstVersions->text(0, 3), "(cannot be read)");
        Click(dialog.cmdOK);
        EXPECT_TRUE(IsOpen(dialog));
        EXPECT_NE(TextOf(dialog.lblReason).find("This version cannot be read."), std::string::npos);
    });
    EXPECT_EQ(window->Editor().Find("R.1")->Caption(), "Second");
}

TEST_F(FormVersionsTest, AFolderThatCannotBeMadeStopsNoSave) {
    station.Write(Versions, "a file");
    SaveAs("Second");
    EXPECT_FALSE(window->Editor().IsDirty());
    EXPECT_TRUE(IsShown(window->ibFile));
    EXPECT_NE(window->ibFile.text.find("The menu is saved, but the version before could not be kept in " +
                                       Versions),
              std::string::npos)
        << window->ibFile.text;
    fs::remove(TempStation::Host(Versions));
    SaveAs("Third");
    EXPECT_FALSE(IsShown(window->ibFile));
}

TEST_F(FormVersionsTest, TheOptionsTellHowManyAreKept) {
    RegEntry options;
    options.CreateKey("Neskworks");
    options.SetString("MenuVersions", "2");
    options.SetString("MenuVersionDays", "0");
    for (const char* caption : {"Second", "Third", "Fourth", "Fifth"})
        SaveAs(caption);
    WithVersions([](FormVersions& dialog) { EXPECT_EQ(dialog.lstVersions->GetItemCount(), 2); });
}

} // namespace
} // namespace nesk::testing
