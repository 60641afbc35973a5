#include "menu/FormEditMenu.h"

#include "base/LanguageMessages.h"
#include "base/Messages.h"
#include "menu/MenuItem.h"
#include "menu/MenuText.h"
#include "widgets/FormPicture.h"
#include "widgets/UiPictureButtons.h"
#include "widgets/UiUtilities.h"

#include <wx/button.h>
#include <wx/sizer.h>

namespace nesk {

namespace {

constexpr std::int32_t HelpTopic = 33003;

} // namespace

FormEditMenu::FormEditMenu(wxWindow* parent)
    : FormDialog(parent, "FormEditMenu", Message::SubmenuTitle, HelpTopic) {
    picItemHost = new FormPicture(this, "picItemHost", "picItem");
    cmdPicture = NewButton(this, "cmdPicture", Message::SelectLabel);
    cmdDelete = NewButton(this, "cmdDelete", Message::DeleteLabel);
    SetAccessKeys({cmdPicture, cmdDelete}, Message::PictureButtonKeys);
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    buttons->Add(cmdPicture);
    buttons->Add(cmdDelete, wxSizerFlags().Border(wxLEFT, Gap()));
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(picItemHost, wxSizerFlags(1).Expand());
    content->Add(buttons, wxSizerFlags().Border(wxTOP, Gap()));
    Finish(content);

    BindPictureButtons(*picItemHost, *cmdPicture, *cmdDelete);
}

std::optional<std::string> FormEditMenu::Edit(const MenuItem& objItem) {
    m_before = objItem.Graphic();
    picItemHost->SetPath(m_before);
    SetTitle(modUtilities::ToWx(objItem.Caption()));
    cmdPicture->SetFocus();
    if (ShowModal() != wxID_OK) return std::nullopt;
    return picItemHost->Path();
}

void FormEditMenu::OnOK() {
    // The file need not exist, but the menu file must be able to store its name.
    MenuText::CheckChange(picItemHost->Path(), m_before, "FormEditMenu.OK");
    Accept();
}

} // namespace nesk
