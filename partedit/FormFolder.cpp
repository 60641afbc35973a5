#include "partedit/FormFolder.h"

#include "base/Messages.h"
#include "partedit/FolderName.h"
#include "shell/FieldMessage.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/UiTextFilter.h"
#include "widgets/UiUtilities.h"

#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk {

using modUtilities::FromWx;
using modUtilities::ToWx;

namespace {

// The caption of the button that opens the dialog. The access key in it has no effect in a title.

} // namespace

FormFolder::FormFolder(wxWindow* parent) : FormDialog(parent, "FormFolder", Message::NewFolder, 0) {
    SetTitle(modUtilities::ToWx(FieldMessage::PlainLabel(modStringRes::LoadResString(Message::NewFolder))));
    lblFolder = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                 wxST_ELLIPSIZE_MIDDLE | wxST_NO_AUTORESIZE, "lblFolder");
    lblName = NewLabel(this, "lblName", Message::FolderName);
    txtFolder = NewTextBox(this, "txtFolder");
    ApplyTextFilter(*txtFolder, {[](char32_t character, const std::string&, std::size_t, std::size_t) {
                                     return FolderName::Accepts(character);
                                 },
                                 &FolderName::WithoutRefused});
    SelectAllOnFocus(*txtFolder);

    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(lblFolder, wxSizerFlags().Expand());
    content->Add(lblName, wxSizerFlags().Border(wxTOP, Gap()));
    content->Add(txtFolder, wxSizerFlags().Expand());
    Finish(content);
}

std::string FormFolder::Invoke(const std::string& sPath) {
    m_base = sPath;
    modUtilities::AddTrailingBackslash(m_base);
    lblFolder->SetLabelText(ToWx(m_base));
    lblFolder->SetToolTip(ToWx(m_base));
    txtFolder->SetFocus();
    return ShowModal() == wxID_OK ? m_result : "";
}

void FormFolder::OnOK() {
    const std::string name = FolderName::Clean(FromWx(txtFolder->GetValue()));
    if (name.empty()) return;
    m_result = FolderName::PathIn(m_base, name);
    if (!modUtilities::DirectoryExists(m_result)) modUtilities::MakePath(m_result);
    Accept();
}

} // namespace nesk
