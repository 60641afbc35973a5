// What the main window does with unsaved changes that a killed editor left, and with changes of its file by
// others.

#include "gui/GuiFixture.h"
#include "gui/NextDialog.h"
#include "unit/FileBytes.h"

#include "journal/MenuJournal.h"
#include "journal/OpenMark.h"
#include "journal/UnsavedChanges.h"
#include "platform/UiTreeView.h"
#include "shell/FormDifference.h"
#include "shell/FormMerge.h"
#include "shell/FormUnsaved.h"
#include "shell/modMessageBox.h"
#include "versions/VersionStore.h"
#include "widgets/UiRowList.h"
#include "widgets/UiUtilities.h"

#include <filesystem>
#include <functional>
#include <memory>

#include <wx/button.h>
#include <wx/infobar.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/stattext.h>

namespace nesk::testing {
namespace {

using modUtilities::FromWx;

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";

class FormMainRecoveryTest : public MainWindowTest {
protected:
    FormMainRecoveryTest() { WriteMenu(SmallMenu); }

    // Leaves unsaved changes behind, as an editor that is killed does.
    static void LeaveUnsaved(const std::function<void(MenuEditor&)>& edit, bool keepsBase = true) {
        MenuEditor editor;
        JournalOptions options;
        options.keepsBase = keepsBase;
        // Nothing of it may still run when the menu is opened again.
        options.inBackground = [](const std::function<void()>& work) {
            work();
            return true;
        };
        const MenuJournal journal(editor, options);
        editor.Open(Folder, Path);
        edit(editor);
        EXPECT_TRUE(editor.IsDirty());
        EXPECT_NE(journal.Path(), "");
    }

    // Changes the file as another editor does.
    static void ChangeFile(const std::function<void(MenuEditor&)>& edit) {
        MenuEditor editor;
        editor.Open(Folder, Path);
        edit(editor);
        editor.Save(Path);
    }

    // Opens the menu and answers the offer of unsaved changes.
    void OpenAndAnswer(std::function<void(FormUnsaved&)> act) {
        OpenWindow();
        const NextDialog<FormUnsaved> next(std::move(act));
        dialogs.Answer(wxID_NONE);
        Click(window->mnuFileOpen);
    }

    void OpenMenu() {
        OpenWindow();
        Click(window->mnuFileOpen);
    }

    // What happens when the user comes back to the window.
    void ComeBack() {
        wxActivateEvent event(wxEVT_ACTIVATE, true, window->GetId());
        window->ProcessWindowEvent(event);
        EXPECT_TRUE(WaitUntil([] { return !wxTheApp->HasPendingEvents(); }));
    }

    std::string FilesBeside() const { return FilesIn(Folder); }
};

void RenameFirst(MenuEditor& editor, const std::string& caption) {
    editor.SetCaption("R.1", caption);
}

// --- unsaved changes ---

TEST_F(FormMainRecoveryTest, RestoredChangesAreOneStep) {
    LeaveUnsaved([](MenuEditor& editor) {
        RenameFirst(editor, "Never saved");
        editor.AddPart("R.2", "New");
    });
    std::string question;
    OpenAndAnswer([&](FormUnsaved& dialog) {
        question = TextOf(dialog.lblQuestion);
        EXPECT_FALSE(dialog.lblNotes->IsShown());
        Press(WXK_RETURN);
    });
    EXPECT_NE(question.find("(2 changes). Restore,"), std::string::npos) << question;
    EXPECT_EQ(window->Editor().Find("R.1")->Caption(), "Never saved");
    EXPECT_TRUE(window->Editor().IsDirty());
    EXPECT_EQ(window->Editor().History().UndoNames().size(), 1u);
    EXPECT_EQ(MenuOnDisk(), SmallMenu);
    Press('S', wxMOD_CONTROL);
    EXPECT_FALSE(window->Editor().IsDirty());
    Press('Z', wxMOD_CONTROL);
    Press('S', wxMOD_CONTROL);
    EXPECT_EQ(MenuOnDisk(), SmallMenu);
    Click(window->mnuFileClose);
    EXPECT_TRUE(WaitUntil([&] { return FilesBeside() == "menu.cfg menu.cfg.bak menu.versions readme.txt"; }))
        << FilesBeside();
}

TEST_F(FormMainRecoveryTest, RestoredChangesAreOnDiskAgain) {
    LeaveUnsaved([](MenuEditor& editor) { RenameFirst(editor, "Never saved"); });
    OpenAndAnswer([](FormUnsaved&) { Press(WXK_RETURN); });
    MenuEditor other;
    EXPECT_FALSE(UnsavedChanges::Find(Path, {})) << "it is in use";
    window->Destroy();
    window = nullptr;
    EXPECT_TRUE(WaitUntil([] { return wxTopLevelWindows.IsEmpty(); }));
    const auto found = UnsavedChanges::Find(Path, {});
    ASSERT_TRUE(found);
    EXPECT_TRUE(found->isOfThisFile);
}

TEST_F(FormMainRecoveryTest, DiscardingAsksFirst) {
    LeaveUnsaved([](MenuEditor& editor) { RenameFirst(editor, "Never saved"); });
    OpenWindow();
    int asked = 0;
    const auto before = modMessageBox::SetHook([&](const std::string&, std::int16_t, const std::string&) {
        return ++asked == 1 ? modMessageBox::Result::No : modMessageBox::Result::Yes;
    });
    {
        // The dialog is shown again after "No".
        std::unique_ptr<NextDialog<FormUnsaved>> second;
        const NextDialog<FormUnsaved> first([&](FormUnsaved& dialog) {
            second =
                std::make_unique<NextDialog<FormUnsaved>>([](FormUnsaved& next) { Click(next.cmdDiscard); });
            Click(dialog.cmdDiscard);
        });
        dialogs.Answer(wxID_NONE);
        dialogs.Answer(wxID_NONE);
        Click(window->mnuFileOpen);
    }
    modMessageBox::SetHook(before);
    EXPECT_EQ(asked, 2);
    EXPECT_FALSE(window->Editor().IsDirty());
    EXPECT_FALSE(UnsavedChanges::Find(Path, {}));
}

TEST_F(FormMainRecoveryTest, EscapeKeepsThemForTheNextTime) {
    LeaveUnsaved([](MenuEditor& editor) { RenameFirst(editor, "Never saved"); });
    OpenAndAnswer([](FormUnsaved&) { Press(WXK_ESCAPE); });
    EXPECT_FALSE(window->Editor().IsDirty());
    EXPECT_TRUE(UnsavedChanges::Find(Path, {}));
}

TEST_F(FormMainRecoveryTest, LookingShowsTheDifference) {
    LeaveUnsaved([](MenuEditor& editor) {
        RenameFirst(editor, "Never saved");
        editor.Remove("R.3");
    });
    std::string summary;
    std::string rows;
    OpenAndAnswer([&](FormUnsaved& dialog) {
        const NextDialog<FormDifference> next([&](FormDifference& difference) {
            summary = TextOf(difference.lblSummary);
            for (const platform::TreeNode* node = difference.tvDifference->Root(); node != nullptr;
                 node = node->NextRow())
                rows += node->Text() + "\n";
            EXPECT_FALSE(difference.cmdOK->IsShown());
            Press(WXK_ESCAPE);
        });
        dialogs.Answer(wxID_NONE);
        Click(dialog.cmdLook);
        Press(WXK_ESCAPE);
    });
    EXPECT_EQ(summary, "1 removed, 1 changed");
    EXPECT_NE(rows.find("Never saved (changed)\nCaption: "), std::string::npos) << rows;
    EXPECT_NE(rows.find(" (removed)\n"), std::string::npos) << rows;
}

TEST_F(FormMainRecoveryTest, ChangesOfAnOtherVersionAreMerged) {
    LeaveUnsaved([](MenuEditor& editor) {
        RenameFirst(editor, "Never saved");
        editor.AddPart("R", "Added here");
    });
    ChangeFile([](MenuEditor& editor) {
        RenameFirst(editor, "By somebody else");
        editor.AddPart("R", "Added there");
    });
    std::string notes;
    OpenWindow();
    {
        const NextDialog<FormMerge> merge([&](FormMerge& dialog) {
            ASSERT_NE(dialog.lstConflicts, nullptr);
            EXPECT_EQ(dialog.lstConflicts->text(0, 3), "Never saved");
            EXPECT_EQ(dialog.lstConflicts->text(0, 4), "By somebody else");
            Press(WXK_SPACE);
            EXPECT_EQ(dialog.lstConflicts->text(0, 5), "In the file");
            Press(WXK_RETURN);
        });
        const NextDialog<FormUnsaved> next([&](FormUnsaved& dialog) {
            notes = TextOf(dialog.lblNotes);
            Press(WXK_RETURN);
        });
        dialogs.Answer(wxID_NONE);
        dialogs.Answer(wxID_NONE);
        Click(window->mnuFileOpen);
    }
    EXPECT_NE(notes.find("saved by somebody else"), std::string::npos) << notes;
    EXPECT_EQ(window->Editor().Find("R.1")->Caption(), "By somebody else");
    EXPECT_NE(TreeText().find("Added here"), std::string::npos) << TreeText();
    EXPECT_NE(TreeText().find("Added there"), std::string::npos) << TreeText();
    EXPECT_EQ(window->Editor().History().UndoNames().size(), 1u);
}

TEST_F(FormMainRecoveryTest, TheVersionOfTheChangesIsFoundAmongTheKeptOnes) {
    LeaveUnsaved([](MenuEditor& editor) { RenameFirst(editor, "Never saved"); }, false);
    ASSERT_TRUE(VersionStore(Path).Keep().isNew);
    ChangeFile([](MenuEditor& editor) { editor.AddPart("R", "Theirs"); });
    ChangeFile([](MenuEditor& editor) { editor.AddPart("R", "Theirs too"); });
    const NextDialog<FormMerge> merging([](FormMerge& dialog) { Click(dialog.cmdOK); });
    dialogs.Answer(wxID_NONE);
    OpenAndAnswer([](FormUnsaved&) { Press(WXK_RETURN); });
    EXPECT_EQ(window->Editor().Find("R.1")->Caption(), "Never saved");
    EXPECT_NE(TreeText().find("Theirs too"), std::string::npos) << TreeText();
    EXPECT_TRUE(window->Editor().IsDirty());
}

TEST_F(FormMainRecoveryTest, ChangesOfAVersionThatIsGoneAreKept) {
    LeaveUnsaved([](MenuEditor& editor) { RenameFirst(editor, "Never saved"); }, false);
    ChangeFile([](MenuEditor& editor) { editor.AddPart("R", "Theirs"); });
    ChangeFile([](MenuEditor& editor) { editor.AddPart("R", "Theirs too"); });
    std::string told;
    const auto before =
        modMessageBox::SetHook([&](const std::string& text, std::int16_t, const std::string&) {
            told = text;
            return modMessageBox::Result::Ok;
        });
    OpenAndAnswer([](FormUnsaved&) { Press(WXK_RETURN); });
    modMessageBox::SetHook(before);
    EXPECT_NE(told.find("menu.cfg.unsaved.damaged"), std::string::npos) << told;
    EXPECT_FALSE(window->Editor().IsDirty());
    EXPECT_NE(FilesBeside().find("menu.cfg.unsaved.damaged"), std::string::npos) << FilesBeside();
}

// --- the file is changed by others ---

TEST_F(FormMainRecoveryTest, AChangedFileIsLoadedWhenNothingWasChangedHere) {
    OpenMenu();
    Select("R.2");
    Tree().Expand(Row("R.2"));
    ChangeFile([](MenuEditor& editor) {
        RenameFirst(editor, "By somebody else");
        editor.AddPart("R.2", "More");
    });
    ComeBack();
    EXPECT_TRUE(WaitUntil([&] { return IsShown(window->ibFile); }));
    EXPECT_EQ(
        window->ibFile.text,
        "The menu file was saved by somebody else, and the new version was loaded: 1 added, 1 changed.");
    EXPECT_EQ(window->Editor().Find("R.1")->Caption(), "By somebody else");
    EXPECT_EQ(window->tvMain->SelectedKey(), "R.2");
    EXPECT_TRUE(Row("R.2").IsExpanded());
    EXPECT_FALSE(window->Editor().IsDirty());
    Press('S', wxMOD_CONTROL);
    EXPECT_FALSE(IsShown(window->ibFile));
}

TEST_F(FormMainRecoveryTest, ChangesOnBothSidesAreMerged) {
    OpenMenu();
    window->Editor().SetCaption("R.3", "Here");
    ChangeFile([](MenuEditor& editor) { RenameFirst(editor, "By somebody else"); });
    {
        const NextDialog<FormMerge> merge([&](FormMerge& dialog) {
            EXPECT_EQ(dialog.lstConflicts, nullptr);
            EXPECT_EQ(TextOf(dialog.lblConflicts), "The changes do not conflict. All of them are kept.");
            Press(WXK_RETURN);
        });
        dialogs.Answer(wxID_NONE);
        ComeBack();
    }
    EXPECT_EQ(window->Editor().Find("R.1")->Caption(), "By somebody else");
    EXPECT_EQ(window->Editor().Find("R.3")->Caption(), "Here");
    EXPECT_TRUE(window->Editor().IsDirty());
    EXPECT_EQ(window->Editor().History().UndoNames().size(), 2u);
    Press('S', wxMOD_CONTROL);
    EXPECT_FALSE(window->Editor().IsDirty()) << "no question is asked";
    ComeBack();
    EXPECT_EQ(MenuOnDisk().find("By somebody else") == std::string::npos, false);
}

TEST_F(FormMainRecoveryTest, AMergeThatIsPutOffIsProposedBeforeTheSave) {
    OpenMenu();
    window->Editor().SetCaption("R.3", "Here");
    ChangeFile([](MenuEditor& editor) { RenameFirst(editor, "By somebody else"); });
    const std::string changed = MenuOnDisk();
    {
        const NextDialog<FormMerge> merge([](FormMerge&) { Press(WXK_ESCAPE); });
        dialogs.Answer(wxID_NONE);
        ComeBack();
    }
    ComeBack(); // a dialog would fail the test
    EXPECT_NE(window->Editor().Find("R.1")->Caption(), "By somebody else");
    {
        const NextDialog<FormMerge> merge([](FormMerge&) { Press(WXK_ESCAPE); });
        dialogs.Answer(wxID_NONE);
        Press('S', wxMOD_CONTROL);
    }
    EXPECT_EQ(MenuOnDisk(), changed) << "the save was called off";
    {
        const NextDialog<FormMerge> merge([](FormMerge&) { Press(WXK_RETURN); });
        dialogs.Answer(wxID_NONE);
        Press('S', wxMOD_CONTROL);
    }
    EXPECT_FALSE(window->Editor().IsDirty());
    EXPECT_NE(MenuOnDisk().find("CAPTION=Here"), std::string::npos);
    EXPECT_NE(MenuOnDisk().find("CAPTION=By somebody else"), std::string::npos);
    EXPECT_EQ(FileBytes(Path + ".bak"), changed);
}

TEST_F(FormMainRecoveryTest, AFileThatCannotBeReadIsNotReplacedUnasked) {
    OpenMenu();
    window->Editor().SetCaption("R.3", "Here");
    WriteMenu("no menu at all");
    ComeBack();
    EXPECT_TRUE(WaitUntil([&] { return IsShown(window->ibFile); }));
    dialogs.Answer(wxID_NO);
    Press('S', wxMOD_CONTROL);
    EXPECT_EQ(MenuOnDisk(), "no menu at all");
    ASSERT_EQ(dialogs.shown.size(), 1u);
}

TEST_F(FormMainRecoveryTest, TheFileIsGone) {
    OpenMenu();
    std::filesystem::remove(TempStation::Host(Path));
    ComeBack();
    EXPECT_TRUE(WaitUntil([&] { return IsShown(window->ibFile); }));
    EXPECT_EQ(window->ibFile.text, "The menu file is gone. Saving writes it again.");
    Press('S', wxMOD_CONTROL);
    EXPECT_EQ(MenuOnDisk(), SmallMenu);
}

TEST_F(FormMainRecoveryTest, TheSecondEditorIsTold) {
    const OpenMark first(Path, "Smith on STATION3");
    OpenMenu();
    EXPECT_TRUE(IsShown(window->ibOthers));
    EXPECT_NE(window->ibOthers.text.find("Smith on STATION3"), std::string::npos);
    Click(window->mnuFileClose);
    EXPECT_FALSE(IsShown(window->ibOthers));
}

TEST_F(FormMainRecoveryTest, TheFirstEditorIsToldOfTheSecond) {
    OpenMenu();
    const OpenMark second(Path, "Smith on STATION3");
    ComeBack();
    EXPECT_TRUE(IsShown(window->ibOthers));
    EXPECT_NE(window->ibOthers.text.find("Smith"), std::string::npos) << window->ibOthers.text;
}

TEST_F(FormMainRecoveryTest, UndoingWhatOthersSavedAsksFirst) {
    OpenMenu();
    ChangeFile([](MenuEditor& editor) { RenameFirst(editor, "Theirs"); });
    ComeBack();
    ASSERT_EQ(window->Editor().Find("R.1")->Caption(), "Theirs");
    dialogs.Answer(wxID_NO);
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(window->Editor().Find("R.1")->Caption(), "Theirs");
    dialogs.Answer(wxID_YES);
    Press('Z', wxMOD_CONTROL);
    EXPECT_EQ(window->Editor().Find("R.1")->Caption(), "First");
    ASSERT_EQ(dialogs.shown.size(), 2u);
    EXPECT_NE(dialogs.shown[0].text.find("somebody else"), std::string::npos) << dialogs.shown[0].text;
}

TEST_F(FormMainRecoveryTest, AMenuWhoseFileIsGoneIsNotLeftUnasked) {
    OpenMenu();
    std::filesystem::remove(TempStation::Host(Path));
    dialogs.Answer(wxID_YES);
    Click(window->mnuFileClose);
    EXPECT_FALSE(window->Editor().IsOpen());
    EXPECT_EQ(MenuOnDisk(), SmallMenu);
    ASSERT_EQ(dialogs.shown.size(), 1u);
    EXPECT_NE(dialogs.shown[0].text.find("gone"), std::string::npos) << dialogs.shown[0].text;
}

TEST_F(FormMainRecoveryTest, OlderChangesAreOfferedAfterNewerOnes) {
    LeaveUnsaved([](MenuEditor& editor) { RenameFirst(editor, "Older"); });
    LeaveUnsaved([](MenuEditor& editor) { editor.AddPart("R", "Newer"); });
    OpenWindow();
    int offers = 0;
    std::unique_ptr<NextDialog<FormUnsaved>> second;
    const NextDialog<FormUnsaved> first([&](FormUnsaved&) {
        ++offers;
        Press(WXK_RETURN);
        // This dialog has ended, so the next one is meant.
        second = std::make_unique<NextDialog<FormUnsaved>>([&](FormUnsaved&) {
            ++offers;
            Press(WXK_RETURN);
        });
    });
    const NextDialog<FormMerge> merging([](FormMerge& dialog) { Click(dialog.cmdOK); });
    for (int i = 0; i < 3; ++i)
        dialogs.Answer(wxID_NONE);
    Click(window->mnuFileOpen);
    EXPECT_EQ(offers, 2);
    EXPECT_EQ(window->Editor().Find("R.1")->Caption(), "Older");
    EXPECT_NE(TreeText().find("Newer"), std::string::npos) << TreeText();
}

TEST_F(FormMainRecoveryTest, AnEntryThatOthersChangedIsNotRemovedUnasked) {
    OpenMenu();
    ASSERT_TRUE(window->Editor().Remove("R.1"));
    ChangeFile([](MenuEditor& editor) { RenameFirst(editor, "Theirs"); });
    const NextDialog<FormMerge> merging([](FormMerge& dialog) {
        EXPECT_EQ(dialog.lstConflicts->text(0, 5), "In the file");
        Press(WXK_RETURN);
    });
    dialogs.Answer(wxID_NONE);
    ComeBack();
    EXPECT_NE(TreeText().find("Theirs"), std::string::npos) << TreeText();
}

} // namespace
} // namespace nesk::testing
