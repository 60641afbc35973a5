#include "menu/FormSelectMenuPicture.h"

#include "base/LanguageMessages.h"
#include "base/Messages.h"
#include "menu/MenuText.h"
#include "widgets/FormPicture.h"
#include "widgets/UiPictureButtons.h"
#include "widgets/UiUtilities.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

namespace nesk {

using modUtilities::ToWx;

namespace {

constexpr std::int32_t HelpTopic = 33003;

} // namespace

FormSelectMenuPicture::FormSelectMenuPicture(wxWindow* parent)
    : FormDialog(parent, "FormSelectMenuPicture", Message::PictureTitle, HelpTopic) {
    wxStaticBoxSizer* frame = NewFrame("Frame1", Message::MenuPictureFrame);
    wxStaticBox* box = frame->GetStaticBox();
    picItemHost = new FormPicture(box, "picItemHost", "picItem");
    lblFile = new wxStaticText(box, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                               wxST_ELLIPSIZE_MIDDLE | wxST_NO_AUTORESIZE, "lblFile");
    cmdMenuSelect = NewButton(box, "cmdMenuSelect", Message::SelectLabel);
    cmdMenuDelete = NewButton(box, "cmdMenuDelete", Message::DeleteLabel);
    SetAccessKeys({cmdMenuSelect, cmdMenuDelete}, Message::PictureButtonKeys);

    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    buttons->Add(cmdMenuSelect);
    buttons->Add(cmdMenuDelete, wxSizerFlags().Border(wxLEFT, Gap()));
    frame->Add(picItemHost, wxSizerFlags(1).Expand().Border(wxALL, Gap()));
    frame->Add(lblFile, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, Gap()));
    frame->Add(buttons, wxSizerFlags().Border(wxALL, Gap()));
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(FrameWindow(*frame), wxSizerFlags(1).Expand());
    Finish(content);

    picItemHost->onChanged = [this] { ShowPath(); };
    BindPictureButtons(*picItemHost, *cmdMenuSelect, *cmdMenuDelete);
}

bool FormSelectMenuPicture::Display(std::string& sFile) {
    m_before = sFile;
    picItemHost->SetPath(sFile);
    cmdMenuSelect->SetFocus();
    if (ShowModal() != wxID_OK) return false;
    sFile = picItemHost->Path();
    return true;
}

void FormSelectMenuPicture::OnOK() {
    // The file need not exist, but the menu file must be able to store its name.
    MenuText::CheckChange(picItemHost->Path(), m_before, "FormSelectMenuPicture.OK");
    Accept();
}

void FormSelectMenuPicture::ShowPath() {
    const wxString path = ToWx(picItemHost->Path());
    lblFile->SetLabelText(path);
    lblFile->SetToolTip(path);
}

} // namespace nesk
