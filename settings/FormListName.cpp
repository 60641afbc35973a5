#include "settings/FormListName.h"

#include "base/Messages.h"
#include "settings/RegistryListEditor.h"
#include "shell/modMessageBox.h"
#include "widgets/UiUtilities.h"

#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk {

FormListName::FormListName(wxWindow* parent) : FormDialog(parent, "FormListName", Message::ListNameTitle, 0) {
    lblName = NewLabel(this, "lblName", Message::ListName);
    txtName = NewTextBox(this, "txtName");
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(lblName);
    content->Add(txtName, wxSizerFlags().Expand());
    Finish(content);
}

bool FormListName::Ask(std::string& name) {
    txtName->SetFocus();
    if (ShowModal() != wxID_OK) return false;
    name = modUtilities::FromWx(txtName->GetValue());
    return true;
}

void FormListName::OnOK() {
    const std::string problem = RegistryListEditor::NameProblem(modUtilities::FromWx(txtName->GetValue()));
    if (problem.empty()) return Accept();
    modMessageBox::ShowMessage(problem, modMessageBox::Option::Exclamation);
    txtName->SetFocus();
}

} // namespace nesk
