#include "settings/FormSelectFromList.h"

#include "base/Messages.h"
#include "base/NeskError.h"
#include "settings/FormListName.h"
#include "settings/RegistryListEditor.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/UiUtilities.h"

#include <algorithm>

#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace nesk {

using modUtilities::ToWx;

FormSelectFromList::FormSelectFromList(wxWindow* parent, const char* name, int titleId,
                                       std::int32_t helpTopic, const std::string& parentKey, int emptyId,
                                       int addFirstId)
    : FormDialog(parent, name, titleId, helpTopic), m_parentKey(parentKey), m_entries(parentKey) {
    const bool mayEdit = RegistryListEditor::MayEdit();
    lstMain = new wxListBox(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(320, 200)), 0, nullptr,
                            wxLB_SINGLE | wxLB_NEEDED_SB | wxLB_HSCROLL, wxDefaultValidator, "lstMain");
    lblEmpty = NewLabel(this, "lblEmpty", mayEdit ? addFirstId : emptyId);
    lblEmpty->Wrap(FromDIP(320));
    auto* list = new wxBoxSizer(wxHORIZONTAL);
    list->Add(lstMain, wxSizerFlags(1).Expand());
    if (mayEdit) {
        cmdAdd = NewButton(this, "cmdAdd", Message::ListAdd);
        cmdRemove = NewButton(this, "cmdRemove", Message::ListRemove);
        auto* buttons = new wxBoxSizer(wxVERTICAL);
        buttons->Add(cmdAdd, wxSizerFlags().Expand());
        buttons->Add(cmdRemove, wxSizerFlags().Expand().Border(wxTOP, Gap()));
        list->Add(buttons, wxSizerFlags().Border(wxLEFT, Gap()));
        cmdAdd->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Guarded(&FormSelectFromList::OnAdd); });
        cmdRemove->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Guarded(&FormSelectFromList::OnRemove); });
    }
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(list, wxSizerFlags(1).Expand());
    content->Add(lblEmpty, wxSizerFlags().Border(wxTOP, Gap()));
    Finish(content);
    ShowEntries();

    lstMain->Bind(wxEVT_LISTBOX, [this](wxCommandEvent&) { UpdateButtons(); });
    lstMain->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) { OnOK(); });
}

void FormSelectFromList::ShowEntries() {
    lstMain->Clear();
    for (const std::string& displayName : m_entries.DisplayNames())
        lstMain->Append(ToWx(displayName));
    lstMain->SetSelection(wxNOT_FOUND);
    lblEmpty->Show(lstMain->IsEmpty());
    Layout();
}

// Runs an action on the list and reports its failure. Afterwards updates the buttons in any case.
void FormSelectFromList::Guarded(void (FormSelectFromList::*act)()) {
    try {
        (this->*act)();
    } catch (const NeskError& error) {
        modUtilities::ReportError(error);
    }
    UpdateButtons();
}

void FormSelectFromList::OnAdd() {
    FormListName dialog(this);
    std::string name;
    if (!dialog.Ask(name)) return;
    const std::string key = RegistryListEditor::Add(m_parentKey, name);
    m_entries = RegistryList(m_parentKey);
    ShowEntries();
    for (int i = 0; i < static_cast<int>(lstMain->GetCount()); ++i)
        if (m_entries.KeyAt(i) == key) lstMain->SetSelection(i);
    lstMain->SetFocus();
}

void FormSelectFromList::OnRemove() {
    const int position = lstMain->GetSelection();
    const std::string key = m_entries.KeyAt(position);
    if (key.empty()) return;
    const std::string question = modStringRes::FormatResString(
        Message::ListRemoveQuestion, modUtilities::FromWx(lstMain->GetStringSelection()));
    namespace Option = modMessageBox::Option;
    if (modMessageBox::ShowMessage(question, Option::YesNo | Option::Question | Option::SecondDefault) !=
        modMessageBox::Result::Yes)
        return;
    RegistryListEditor::Remove(key);
    m_entries = RegistryList(m_parentKey);
    lstMain->SetFocus();
    ShowEntries();
    if (!lstMain->IsEmpty())
        lstMain->SetSelection(std::min(position, static_cast<int>(lstMain->GetCount()) - 1));
}

std::string FormSelectFromList::Choose(const std::string& current, const std::string& stored) {
    m_result.clear();
    m_inUse = {current, stored};
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
    const bool isSelected = lstMain->GetSelection() != wxNOT_FOUND;
    cmdOK->Enable(isSelected);
    if (cmdRemove != nullptr)
        cmdRemove->Enable(RegistryListEditor::MayRemove(m_entries.KeyAt(lstMain->GetSelection()), m_inUse));
}

} // namespace nesk
