#include "settings/FormSelectFromList.h"

#include "shell/FormUtilities.h"

#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/sizer.h>

namespace nesk {

using modUtilities::ToWx;

FormSelectFromList::FormSelectFromList(wxWindow* parent, const char* name, int titleId,
                                       std::int32_t helpTopic, const std::string& parentKey)
    : FormDialog(parent, name, titleId, helpTopic), m_entries(parentKey) {
    lstMain = new wxListBox(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(320, 200)), 0, nullptr,
                            wxLB_SINGLE | wxLB_NEEDED_SB | wxLB_HSCROLL, wxDefaultValidator, "lstMain");
    for (const std::string& displayName : m_entries.DisplayNames())
        lstMain->Append(ToWx(displayName));
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(lstMain, wxSizerFlags(1).Expand());
    Finish(content);

    lstMain->Bind(wxEVT_LISTBOX, [this](wxCommandEvent&) { UpdateButtons(); });
    lstMain->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) { OnOK(); });
}

std::string FormSelectFromList::Choose(const std::string& current) {
    m_result.clear();
    lstMain->SetSelection(m_entries.PositionOf(current));
    if (lstMain->GetSelection() != wxNOT_FOUND) lstMain->EnsureVisible(lstMain->GetSelection());
    UpdateButtons();
    lstMain->SetFocus();
    ShowModal();
    return m_result;
}

void FormSelectFromList::OnOK() {
    const std::string key = m_entries.KeyAt(lstMain->GetSelection());
    if (key.empty()) return;
    m_result = key;
    Accept();
}

void FormSelectFromList::UpdateButtons() {
    cmdOK->Enable(lstMain->GetSelection() != wxNOT_FOUND);
}

} // namespace nesk
