// The main window's file commands, and the display of the menu's path.

#include "shell/FormMain.h"

#include "base/Messages.h"
#include "base/UnsavedMessages.h"
#include "editing/SamePlace.h"
#include "editing/SavePlace.h"
#include "platform/SaveFileDialog.h"
#include "platform/SystemQuestion.h"
#include "settings/FormDirectories.h"
#include "settings/FormLanguage.h"
#include "settings/NeskRegistry.h"
#include "shell/FormAbout.h"
#include "shell/FormChecker.h"
#include "shell/FormCreateStation.h"
#include "shell/FormDetails.h"
#include "shell/FormFileNews.h"
#include "shell/FormMenuTree.h"
#include "shell/FormPanes.h"
#include "shell/FormPreview.h"
#include "shell/FormProblems.h"
#include "shell/FormRecovery.h"
#include "shell/FormStartPage.h"
#include "shell/Startup.h"
#include "shell/StationCreation.h"
#include "shell/UiStationFolder.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/UiUtilities.h"

#include <optional>

#include <wx/infobar.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/sizer.h>
#include <wx/statusbr.h>
#include <wx/utils.h>

namespace nesk {

using modStringRes::LoadResString;
using modUtilities::ToWx;

void FormMain::OnMenuReplaced() {
    tvMain->BuildTree();
    OnStateChanged();
    const bool isOpen = m_editor.IsOpen();
    spMain->Show(isOpen);
    pgStart->Show(!isOpen);
    // The page wraps its text to the width that it gets from the layout.
    Layout();
    UpdateStartPage();
    if (isOpen)
        tvMain->Window().SetFocus();
    else
        pgStart->FocusNextStep();
}

void FormMain::OnStateChanged() {
    tvMain->Settle();
    UpdateBars();
    UpdateTitle();
    UpdateUndoTexts();
    UpdateFileMenus();
}

// Updates the status bar and the bars above the tree.
void FormMain::UpdateBars() {
    const NeskRegistry& settings = NeskRegistry::Instance();
    const wxString place = ToWx(SavePlace::StatusText(m_editor, settings));
    if (sbMain->GetStatusText() != place) sbMain->ShowPath(place);
    ShowBar(ibIncomplete, m_editor.IsIncomplete() ? LoadResString(Message::IncompleteBar) : "",
            wxICON_WARNING);
    ShowBar(ibNew, SavePlace::NewMenuText(m_editor, settings), wxICON_INFORMATION);
}

// Shows a text in a bar above the tree; an empty text hides the bar.
void FormMain::ShowBar(InfoBar& bar, const std::string& text, int icon) {
    if (text == bar.text) return;
    bar.text = text;
    if (text.empty()) return bar.window->Dismiss();
    if (bar.window == nullptr) {
        bar.window = new wxInfoBar(this);
        bar.window->SetName(bar.name);
        GetSizer()->Prepend(bar.window, wxSizerFlags().Expand());
    }
    bar.window->ShowMessage(ToWx(text), icon);
}

void FormMain::FileOpen() {
    if (m_editor.IsOpen()) return;
    const NeskRegistry& settings = NeskRegistry::Instance();
    std::optional<NeskError> failure;
    try {
        const std::string path = SavePlace::Origin(settings);
        const wxBusyCursor busy;
        failure = m_editor.Open(settings.NeskRoot, path);
    } catch (const NeskError& error) {
        // The folder was removed after the command was enabled.
        ShowError(Message::OpenNotPossible, error);
        UpdateFileMenus();
        return UpdateStartPage();
    }
    if (failure) ShowError(Message::OpenFailed, *failure);
    m_recovery->Offer();
}

bool FormMain::SaveMenu() {
    if (!FinishLabelEdit()) return false;
    if (!m_editor.IsOpen()) return true;
    try {
        const std::string path = SavePlace::Target(NeskRegistry::Instance());
        if (IsSamePlace(path, m_editor.Place()) && !m_fileNews->MayBeSaved()) return false;
        const SavePlan plan = m_editor.PlanSave(path);
        if (const auto question = SavePlace::Question(m_editor, path, plan);
            question &&
            Ask(*question, Message::SaveQuestionTitle, wxYES_NO | wxNO_DEFAULT | wxICON_WARNING) != wxID_YES)
            return false;
        const wxBusyCursor busy;
        SaveWithVersion(path, plan);
        m_checker->RefreshFiles();
        return true;
    } catch (const NeskError& error) {
        ShowError(Message::SaveFailed, error);
        return false;
    }
}

// Writes a copy. The settings determine where the menu itself is saved, so the settings and the menu's path
// stay, and unsaved changes stay unsaved.
void FormMain::FileSaveAs() {
    if (!FinishLabelEdit() || !m_editor.IsOpen()) return;
    const std::string own = NeskRegistry::Instance().MenuPath();
    const std::string path = platform::ShowSaveFileDialog(this, {LoadResString(Message::SaveAsTitle),
                                                                 modUtilities::ParentFolder(own), own,
                                                                 LoadResString(Message::MenuFileFilter)});
    if (path.empty()) return;
    // A save to the menu's own file is an ordinary save, not a copy.
    if (IsSamePlace(path, own)) {
        SaveMenu();
        return;
    }
    try {
        const wxBusyCursor busy;
        m_editor.SaveCopy(path);
    } catch (const NeskError& error) {
        ShowError(Message::SaveAsFailed, error);
    }
}

void FormMain::FileClose() {
    if (!FinishLabelEdit()) return;
    if (!m_editor.IsOpen() || !ConfirmClose(false)) return;
    ShowBar(ibFile, "", wxICON_INFORMATION);
    m_editor.Close();
}

// Asks about unsaved changes. Returns false when the menu must stay open, because the user cancelled or
// saving failed.
bool FormMain::ConfirmClose(bool mayCancel) {
    const bool isGone = m_editor.IsOpen() && m_fileNews->IsGone();
    if (!m_editor.IsOpen() || !(m_editor.IsDirty() || isGone)) return true;
    const std::string question = LoadResString(isGone ? Message::OtherGoneSave : Message::SaveChanges);
    if (!mayCancel) {
        const auto answer = platform::AskYesOrNo(this, question, LoadResString(Message::ConfirmTitle));
        // If the question was closed without an answer, the changes must not be lost.
        if (!answer) return false;
        if (*answer) return SaveMenu();
        m_recovery->Discard();
        return true;
    }
    switch (Ask(question, Message::ConfirmTitle, wxYES_NO | wxCANCEL | wxICON_QUESTION)) {
    case wxID_YES: return SaveMenu();
    case wxID_NO: m_recovery->Discard(); return true;
    default: return false;
    }
}

void FormMain::OnClose(wxCloseEvent& event) {
    const bool mayClose = FinishLabelEdit() && ConfirmClose(true);
    if (!mayClose && event.CanVeto()) return event.Veto();
    RememberView();
    // Drops pending events, for example a message about a refused caption.
    DeletePendingEvents();
    Destroy();
}

void FormMain::SettingsLanguage() {
    FormLanguage(this).Invoke();
}

void FormMain::SettingsOptions() {
    if (!FormDirectories(this).Invoke(true)) return;
    // The new root folder may exist where the old one did not, or the reverse. An open menu may now be saved
    // to another path.
    OnStateChanged();
    UpdateStartPage();
}

void FormMain::HelpAbout() {
    FormAbout(this).ShowModal();
}

void FormMain::UpdateStartPage() {
    if (m_editor.IsOpen()) return;
    const StartState state = StartChoices::LookUp(NeskRegistry::Instance());
    m_shownRoot = state.root;
    pgStart->ShowChoices(StartChoices::For(state));
}

void FormMain::OnActivate(wxActivateEvent& event) {
    event.Skip();
    if (!event.GetActive() || IsBeingDeleted()) return;
    // A window manager may move a window when it appears. wx knows the position of the window, and can
    // move it, only after that.
    if (!m_wasActive && !m_place.WasMaximized() && !IsMaximized()) PlaceOnScreen();
    m_wasActive = true;
    m_checker->RefreshFiles();
    CheckShownFiles();
    CallAfter([this] { LookAtFile(); });
    // Folders may have been created or removed while the user worked with another program. Changed settings
    // are shown when the user confirms them.
    if (m_editor.IsOpen() || m_shownRoot != NeskRegistry::Instance().NeskRoot) return;
    UpdateFileMenus();
    UpdateStartPage();
    wxWindow* focus = FindFocus();
    if (focus == nullptr || !pgStart->IsDescendant(focus)) pgStart->FocusNextStep();
}

void FormMain::TakeStep(StartStep step) {
    switch (step) {
    case StartStep::OpenMenu: OnCommand(MainCommand::FileOpen); break;
    case StartStep::ChooseRoot: OnCommand(MainCommand::SettingsOptions); break;
    case StartStep::CreateStation:
        if (FormCreateStation(this).Invoke()) StationChanged();
        break;
    case StartStep::OpenStation: OpenStation(); break;
    }
}

void FormMain::OpenStation() {
    const std::string folder =
        ChooseStationFolder(this, Message::OpenStationPrompt, platform::StationFolderName());
    if (folder.empty()) return;
    try {
        StationCreation::Open(folder);
    } catch (const NeskError& error) {
        return ShowError(Message::StationFailed, error);
    }
    StationChanged();
}

// Rebuilds the menu bar and the tool bar, because the new station may have another language.
void FormMain::StationChanged() {
    wxMenuBar* former = GetMenuBar();
    SetMenuBar(nullptr);
    delete former;
    BuildMenuBar();
    BuildToolBar();
    if (pnPreview != nullptr) {
        pnPreview->ShowTexts();
        pnDetails->ShowTexts();
    }
    if (pnProblems != nullptr) pnProblems->ShowTexts();
    UpdateViewMenu();
    m_memory.Load();
    OnMenuReplaced();
    Startup::ReportProblems();
}

} // namespace nesk
