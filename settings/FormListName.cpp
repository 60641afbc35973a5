#include "settings/FormListName.h"

#include "settings/RegistryListEditor.h"
#include "shell/modMessageBox.h"
#include "widgets/UiUtilities.h"

#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk {

namespace {

constexpr int TitleText = 34429;
constexpr int NameText = 34430;

} // namespace

FormListName::FormListName(wxWindow* parent) : FormDialog(parent, "FormListName", TitleText, 0) {
    lblName = NewLabel(this, "lblName", NameText);
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
