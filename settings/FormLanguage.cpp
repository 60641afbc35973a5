#include "settings/FormLanguage.h"

#include "base/LanguageMessages.h"
#include "base/NeskError.h"
#include "platform/TextEncoding.h"
#include "settings/LanguageChoice.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/UiUtilities.h"

#include <wx/listbox.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace nesk {

using modStringRes::FormatResString;
using modUtilities::ToWx;

namespace {

constexpr std::int32_t HelpTopic = 33012;
constexpr int ListWidth = 360;
constexpr int ListHeight = 280;

} // namespace

FormLanguage::FormLanguage(wxWindow* parent)
    : FormDialog(parent, "FormLanguage", Message::LanguageTitle, HelpTopic)
    , m_languages(LanguageChoice::Offered()) {
    lblLanguage = NewLabel(this, "lblLanguage", Message::LanguageLabel);
    lstLanguage = new wxListBox(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(ListWidth, ListHeight)), 0,
                                nullptr, wxLB_SINGLE | wxLB_NEEDED_SB, wxDefaultValidator, "lstLanguage");
    const int stored = LanguageChoice::Stored();
    for (const platform::Language* language : m_languages) {
        const int row = lstLanguage->Append(ToWx(LanguageChoice::Name(*language)));
        if (language->id == stored) lstLanguage->SetSelection(row);
    }
    lblNote = NewLabel(this, "lblNote", Message::LanguageNote);
    lblNote->Wrap(FromDIP(ListWidth));
    lblCodePage = NewLabel(this, "lblCodePage", Message::LanguageCodePage);
    lblCodePage->Wrap(FromDIP(ListWidth));
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(lblLanguage);
    content->Add(lstLanguage, wxSizerFlags(1).Expand());
    content->Add(lblNote, wxSizerFlags().Border(wxTOP, Gap()));
    // The place is kept while there is nothing to say, so that the controls do not move.
    content->Add(lblCodePage, wxSizerFlags().Border(wxTOP, Gap()).ReserveSpaceEvenIfHidden());
    Finish(content);
    ShowCodePage();

    lstLanguage->Bind(wxEVT_LISTBOX, [this](wxCommandEvent&) { ShowCodePage(); });
    lstLanguage->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) { OnOK(); });
}

bool FormLanguage::Invoke() {
    lstLanguage->SetFocus();
    return ShowModal() == wxID_OK;
}

const platform::Language* FormLanguage::Selected() const {
    const int row = lstLanguage->GetSelection();
    return row != wxNOT_FOUND ? m_languages[static_cast<std::size_t>(row)] : nullptr;
}

// The files of the station are read with the code page of the language.
void FormLanguage::ShowCodePage() {
    const platform::Language* language = Selected();
    const bool isOther = language != nullptr && language->codePage != platform::CodePage();
    if (isOther) {
        lblCodePage->SetLabelText(
            ToWx(FormatResString(Message::LanguageCodePage, platform::CodePage(), language->codePage)));
        lblCodePage->Wrap(FromDIP(ListWidth));
    }
    lblCodePage->Show(isOther);
}

void FormLanguage::OnOK() {
    const platform::Language* language = Selected();
    if (language == nullptr) return lstLanguage->SetFocus();
    if (const std::string missing = LanguageChoice::MissingLibrary(*language); !missing.empty()) {
        modMessageBox::ShowMessage(FormatResString(Message::LanguageMissing, missing),
                                   modMessageBox::Option::Exclamation);
        return lstLanguage->SetFocus();
    }
    try {
        LanguageChoice::Store(language->id);
    } catch (const NeskError& error) {
        modMessageBox::ShowMessage(
            FormatResString(Message::LanguageNotSaved, modUtilities::MessageText(error)),
            modMessageBox::Option::Exclamation);
        return;
    }
    Accept();
}

} // namespace nesk
