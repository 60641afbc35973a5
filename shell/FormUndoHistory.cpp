#include "shell/FormUndoHistory.h"

#include "base/Messages.h"
#include "editing/ChangeText.h"
#include "shell/modHelp.h"
#include "shell/modStringRes.h"
#include "widgets/UiUtilities.h"

#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace nesk {

using modUtilities::ResText;
using modUtilities::ToWx;

FormUndoHistory::FormUndoHistory(wxWindow* parent)
    : FormDialog(parent, "FormUndoHistory", Message::UndoHistoryTitle, modHelp::Topic::MainWindow) {
    lblChanges = NewLabel(this, "lblChanges", Message::UndoHistoryList);
    lstChanges = new wxListBox(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(360, 240)), 0, nullptr,
                               wxLB_SINGLE | wxLB_NEEDED_SB | wxLB_HSCROLL, wxDefaultValidator, "lstChanges");
    lblCount = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE,
                                "lblCount");
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(lblChanges);
    content->Add(lstChanges, wxSizerFlags(1).Expand().Border(wxTOP, Gap() / 2));
    content->Add(lblCount, wxSizerFlags().Expand().Border(wxTOP, Gap()));
    Finish(content);
    cmdOK->SetLabel(ResText(Message::UndoHistoryUndo));
    lstChanges->Bind(wxEVT_LISTBOX, [this](wxCommandEvent&) { ShowCount(); });
    lstChanges->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) { OnOK(); });
}

// All changes down to the selected one are undone.
void FormUndoHistory::ShowCount() {
    lblCount->SetLabelText(
        ToWx(modStringRes::FormatResString(Message::UndoHistoryCount, lstChanges->GetSelection() + 1)));
    cmdOK->Enable(lstChanges->GetSelection() != wxNOT_FOUND);
}

std::size_t FormUndoHistory::Choose(const std::vector<ChangeName>& names) {
    wxArrayString texts;
    for (const ChangeName& name : names)
        texts.push_back(ToWx(ChangeText(name)));
    lstChanges->Set(texts);
    if (!names.empty()) lstChanges->SetSelection(0);
    ShowCount();
    lstChanges->SetFocus();
    if (ShowModal() != wxID_OK) return 0;
    return static_cast<std::size_t>(lstChanges->GetSelection()) + 1;
}

void FormUndoHistory::OnOK() {
    if (lstChanges->GetSelection() != wxNOT_FOUND) Accept();
}

} // namespace nesk
