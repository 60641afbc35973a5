#include "settings/FormAccess.h"

#include "base/Messages.h"
#include "settings/AccessCode.h"
#include "widgets/NumericKeyFilter.h"
#include "widgets/UiTextFilter.h"
#include "widgets/UiUtilities.h"

#include <wx/checkbox.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk {

using modUtilities::FromWx;
using modUtilities::NumericKeyFilter;
using modUtilities::ResText;
using modUtilities::ToWx;

namespace {

constexpr std::int32_t HelpTopic = 33009;

} // namespace

FormAccess::FormAccess(wxWindow* parent) : FormDialog(parent, "FormAccess", Message::AccessTitle, HelpTopic) {
    // Created before the other labels, because wx uses the last label before a control as that control's
    // label.
    lblState = new wxStaticText(this, wxID_ANY, ToWx(AccessCode::StateText()), wxDefaultPosition,
                                wxDefaultSize, 0, "lblState");
    lblAccessCode = NewLabel(this, "lblAccessCode", Message::AccessCode);
    txtCode1 = NewCodeBox("txtCode1", true);
    lblReenter = NewLabel(this, "lblReenter", Message::AccessRepeat);
    txtCode2 = NewCodeBox("txtCode2", true);
    chkShow = new wxCheckBox(this, wxID_ANY, ResText(Message::AccessShow), wxDefaultPosition, wxDefaultSize,
                             0, wxDefaultValidator, "chkShow");

    auto* fields = new wxFlexGridSizer(2, Gap(), Gap());
    fields->AddGrowableCol(1);
    fields->Add(lblAccessCode, wxSizerFlags().CentreVertical());
    fields->Add(txtCode1, wxSizerFlags().Expand());
    fields->Add(lblReenter, wxSizerFlags().CentreVertical());
    fields->Add(txtCode2, wxSizerFlags().Expand());
    fields->AddStretchSpacer();
    fields->Add(chkShow);
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(lblState, wxSizerFlags().Border(wxBOTTOM, Gap()));
    content->Add(fields, wxSizerFlags(1).Expand());
    Finish(content);

    chkShow->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent& event) {
        ReplaceBox(txtCode1, lblAccessCode, !event.IsChecked());
        ReplaceBox(txtCode2, lblReenter, !event.IsChecked());
        Layout();
    });
}

void FormAccess::Invoke() {
    txtCode1->SetFocus();
    ShowModal();
}

void FormAccess::OnOK() {
    if (AccessCode::Store(FromWx(txtCode1->GetValue()), FromWx(txtCode2->GetValue()))) return Accept();
    txtCode2->SetFocus();
    modUtilities::SelectAllText(*txtCode2, true);
}

wxTextCtrl* FormAccess::NewCodeBox(const char* name, bool masked) {
    auto* box = new wxTextCtrl(this, wxID_ANY, "", wxDefaultPosition, FromDIP(wxSize(200, -1)),
                               masked ? wxTE_PASSWORD : 0, wxDefaultValidator, name);
    box->SetMaxLength(AccessCode::MaxLength);
    const NumericKeyFilter digits;
    ApplyTextFilter(*box, {[digits](char32_t character, const std::string& text, std::size_t start,
                                    std::size_t end) { return digits.Accepts(character, text, start, end); },
                           [digits](const std::string& text) { return digits.Clean(text); }});
    return box;
}

// The box is replaced because not every system can change the mask of an existing box.
void FormAccess::ReplaceBox(wxTextCtrl*& box, wxWindow* label, bool masked) {
    wxTextCtrl* old = box;
    box = NewCodeBox(old->GetName().utf8_str(), masked);
    box->SetFont(old->GetFont());
    box->ChangeValue(old->GetValue());
    box->SetInsertionPointEnd();
    box->MoveAfterInTabOrder(label);
    old->GetContainingSizer()->Replace(old, box);
    old->Destroy();
    // Windows finds the box for an access key by the z-order, in which a new box is last.
    for (wxWindow* child : GetChildren())
        child->Lower();
}

} // namespace nesk
