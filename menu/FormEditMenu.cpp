#include "menu/FormEditMenu.h"

#include "menu/FormPicture.h"
#include "menu/MenuItem.h"
#include "shell/FormUtilities.h"

#include <wx/button.h>
#include <wx/sizer.h>

namespace nesk {

namespace {

constexpr int TitleText = 32041;
constexpr int SelectText = 32066;
constexpr int DeleteText = 32065;
constexpr std::int32_t HelpTopic = 33003;

} // namespace

FormEditMenu::FormEditMenu(wxWindow* parent) : FormDialog(parent, "FormEditMenu", TitleText, HelpTopic) {
    picItemHost = new FormPicture(this, "picItemHost", "picItem");
    cmdPicture = NewButton(this, "cmdPicture", SelectText);
    cmdDelete = NewButton(this, "cmdDelete", DeleteText);
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    buttons->Add(cmdPicture);
    buttons->Add(cmdDelete, wxSizerFlags().Border(wxLEFT, Gap()));
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(picItemHost, wxSizerFlags(1).Expand());
    content->Add(buttons, wxSizerFlags().Border(wxTOP, Gap()));
    Finish(content);

    cmdPicture->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { picItemHost->Choose(); });
    cmdDelete->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { picItemHost->SetPath(""); });
}

bool FormEditMenu::Edit(MenuItem& objItem) {
    picItemHost->SetPath(std::string(objItem.Graphic()));
    SetTitle(modUtilities::ToWx(objItem.Caption()));
    cmdPicture->SetFocus();
    if (ShowModal() != wxID_OK) return false;
    objItem.SetGraphic(picItemHost->Path());
    return true;
}

} // namespace nesk
