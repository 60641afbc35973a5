// What the main window shows in the preview, and what it does for it.

#include "base/Messages.h"
#include "shell/FormChecker.h"
#include "shell/FormDetails.h"
#include "shell/FormMain.h"
#include "shell/FormMenuTree.h"
#include "shell/FormPanes.h"
#include "shell/FormPreview.h"
#include "shell/FormProblems.h"
#include "widgets/UiUtilities.h"

#include <algorithm>
#include <array>

#include <wx/splitter.h>

namespace nesk {

namespace {

// In device-independent pixels.
constexpr int DetailsHeight = 280;
constexpr int LargestHeight = 10000;

bool HasFocusWithin(const wxWindow& window) {
    const wxWindow* focus = wxWindow::FindFocus();
    while (focus != nullptr && focus != &window)
        focus = focus->GetParent();
    return focus != nullptr;
}

} // namespace

void FormMain::BuildPreview() {
    // The preview must hear of an event before the tree, which then selects something else.
    m_editor.RemoveListener(*this);
    spPreview = new wxSplitterWindow(spMain->Inner(), wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                     wxSP_LIVE_UPDATE | wxSP_NOBORDER, "spPreview");
    pnPreview = new FormPreview(spPreview, m_editor);
    BuildDetails();
    m_editor.AddListener(*this);
    FormPreview::Events& on = pnPreview->on;
    on.select = [this](const EntryIds& ids) {
        if (FinishLabelEdit()) tvMain->SelectKeys(ids);
    };
    on.edit = [this](const std::string&) { OnCommand(MainCommand::Edit); };
    on.contextMenu = [this](wxWindow& in, wxPoint at) { OnContextMenu(in, at); };
    on.dragged = [this] { return DraggedInTree(); };
    on.mayDrop = [this](const EntryIds& ids, const EntryDrop& drop) { return MayDrop(ids, drop); };
    on.dropped = [this](const EntryIds& ids, const EntryDrop& drop) { OnDropped(ids, drop); };
    on.droppedText = [this](const EntryDrop& drop, const std::string& text) {
        return OnDroppedText(text, drop, *pnPreview->grdButtons);
    };
    on.mayDropFiles = [this](const std::vector<std::string>& paths, const std::string& id) {
        return MayDropFiles(paths, {id, true});
    };
    on.droppedFiles = [this](const std::vector<std::string>& paths, const std::string& id) {
        OnDroppedFiles(paths, {id, true}, *pnPreview->grdButtons);
    };
    on.dragLeft = [this] { OnDragLeft(); };
    on.dragText = [this](const EntryIds& ids) {
        return m_editor.CopyText(Uppermost(*m_editor.OpenMenu(), ids));
    };
    on.dragTaken = [this](const EntryIds& ids) {
        RemoveEntries(Uppermost(*m_editor.OpenMenu(), ids), &MenuEditor::Remove);
    };
    on.isMarked = [this](const std::string& id) { return HasProblem(m_editor.Find(id)); };
    on.screenChanged = [this] { CheckForScreen(); };
    on.filesDue = [this] { pnDetails->CheckFiles(); };
    on.fileChanged = [this] { m_checker->RefreshFiles(); };
    tvMain->Window().Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
        if (pnPreview != nullptr) pnPreview->WorkElsewhere();
        event.Skip();
    });
    tvMain->View().on.clicked = [this](platform::TreeNode& node) {
        if (&node == tvMain->View().Selected()) pnPreview->FollowAgain();
    };
    pnPreview->SetScreenChoice(m_memory.Number(PreviewScreenName).value_or(-1));
    modUtilities::SetFormFont(*pnPreview);
}

// Below the preview, the selected entries are edited.
void FormMain::BuildDetails() {
    pnDetails = new FormDetails(spPreview, m_editor, StationPictureFiles());
    FormDetails::Events& on = pnDetails->on;
    on.dropText = [this](const std::string& text) { ShowDragText(text); };
    on.partName = [this](const std::string& path) {
        const FileFacts* facts = m_checker->Check().FactsOf(path, FileUse::Part);
        return facts != nullptr ? facts->partName : std::string();
    };
    on.focusChanged = [this] {
        UpdateFileMenus();
        UpdateUndoTexts();
    };
    on.select = [this](const EntryIds& ids) { tvMain->SelectKeys(ids); };
    on.undo = [this] { OnCommand(MainCommand::Undo); };
    on.redo = [this] { OnCommand(MainCommand::Redo); };
    on.leave = [this] { tvMain->Window().SetFocus(); };
    modUtilities::SetFormFont(*pnDetails);
    spPreview->SetMinimumPaneSize(FromDIP(SmallestSide / 2));
    spPreview->SetSashGravity(0.5);
    const int height = m_memory.Number(DetailsHeightName).value_or(DetailsHeight);
    spPreview->SplitHorizontally(pnPreview, pnDetails,
                                 -FromDIP(std::clamp(height, SmallestSide / 2, LargestHeight)));
}

// Looks whether the files of the pictures in the panes have changed.
void FormMain::CheckShownFiles() {
    if (pnPreview == nullptr) return;
    pnPreview->grdButtons->CheckFiles();
    pnDetails->CheckFiles();
}

bool FormMain::IsEditingDetails() const {
    return pnDetails != nullptr && pnDetails->IsTyping();
}

void FormMain::ShowPreview(bool show) {
    if (pnPreview == nullptr) {
        if (!show) return;
        BuildPreview();
    }
    if (show)
        spMain->ShowPane(FormPanes::Side::Beside, *spPreview);
    else
        spMain->HidePane(FormPanes::Side::Beside);
    ShowSelectionInPreview();
    UpdateViewMenu();
}

void FormMain::ViewPreview() {
    const bool show = !spMain->IsPaneShown(FormPanes::Side::Beside);
    // A hidden window cannot have the focus.
    if (!show && HasFocusWithin(*spPreview)) tvMain->Window().SetFocus();
    ShowPreview(show);
}

void FormMain::ShowSelectionInPreview() {
    if (pnPreview == nullptr || !spPreview->IsShown()) return;
    pnPreview->ShowSelection(tvMain->SelectedKeys(), tvMain->SelectedKey());
    pnDetails->ShowSelection(tvMain->SelectedKeys());
}

void FormMain::ClosePreview() {
    if (pnPreview == nullptr) return;
    tvMain->View().on.clicked = {};
    spMain->HidePane(FormPanes::Side::Beside);
    spPreview->Destroy();
    spPreview = nullptr;
    pnPreview = nullptr;
    pnDetails = nullptr;
}

// Gives the focus to the next pane, in a circle.
void FormMain::GoToNextPane() {
    if (!m_editor.IsOpen() || !FinishLabelEdit()) return;
    const bool hasPreview = spMain->IsPaneShown(FormPanes::Side::Beside);
    const bool hasProblems = spMain->IsPaneShown(FormPanes::Side::Below);
    const bool isInPreview = hasPreview && HasFocusWithin(*pnPreview);
    const bool isInDetails = hasPreview && HasFocusWithin(*pnDetails);
    const bool isInProblems = hasProblems && HasFocusWithin(*pnProblems);
    if (hasPreview && !isInPreview && !isInDetails && !isInProblems)
        pnPreview->grdButtons->SetFocus();
    else if (isInPreview && pnDetails->FocusField(DetailField::Caption))
        return;
    else if (hasProblems && !isInProblems)
        pnProblems->FocusList();
    else
        tvMain->Window().SetFocus();
}

} // namespace nesk
