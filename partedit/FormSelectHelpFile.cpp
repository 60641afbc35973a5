#include "partedit/FormSelectHelpFile.h"

#include "base/Messages.h"
#include "menu/MenuText.h"
#include "partedit/HelpFileChoice.h"
#include "platform/OpenFileDialog.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/NumericKeyFilter.h"
#include "widgets/UiTextFilter.h"
#include "widgets/UiUtilities.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk {

using modStringRes::LoadResString;
using modUtilities::FromWx;
using modUtilities::ToWx;

namespace {

constexpr std::int32_t HelpTopic = 33000;

TextFilter DigitsOnly() {
    const modUtilities::NumericKeyFilter filter;
    return {[filter](char32_t key, const std::string& text, std::size_t start, std::size_t end) {
                return filter.Accepts(key, text, start, end);
            },
            [filter](const std::string& text) { return filter.Clean(text); }, true};
}

} // namespace

FormSelectHelpFile::FormSelectHelpFile(wxWindow* parent)
    : FormDialog(parent, "FormSelectHelpFile", Message::HelpFileTitle, HelpTopic) {
    lblHelpFile = NewLabel(this, "lblHelpFile", Message::HelpFile);
    txtHelpFile = NewTextBox(this, "txtHelpFile");
    cmdBrowse = NewButton(this, "cmdBrowse", Message::BrowseLabel);
    lblHelpTopic = NewLabel(this, "lblHelpTopic", Message::HelpTopic);
    txtHelpTopic = NewTextBox(this, "txtHelpTopic");

    auto* file = new wxBoxSizer(wxHORIZONTAL);
    file->Add(txtHelpFile, wxSizerFlags(1).CentreVertical());
    file->Add(cmdBrowse, wxSizerFlags().CentreVertical().Border(wxLEFT, Gap()));
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(lblHelpFile);
    content->Add(file, wxSizerFlags().Expand().Border(wxBOTTOM, Gap()));
    content->Add(lblHelpTopic);
    content->Add(txtHelpTopic, wxSizerFlags().Expand());
    Finish(content);

    SelectAllOnFocus(*txtHelpFile);
    SelectAllOnFocus(*txtHelpTopic);
    ApplyTextFilter(*txtHelpTopic, DigitsOnly());
    cmdBrowse->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OnBrowse(); });
}

bool FormSelectHelpFile::Display(std::string& sFile, std::int32_t& nTopic) {
    m_file = m_before = sFile;
    m_topic = nTopic;
    m_defaultFolder = HelpFileChoice::DefaultFolder();
    m_shownFile.Show(*txtHelpFile, m_file);
    txtHelpTopic->ChangeValue(ToWx(std::to_string(m_topic)));
    txtHelpFile->SetFocus();
    CentreOnScreen();
    if (ShowModal() != wxID_OK) return false;
    sFile = m_file;
    nTopic = m_topic;
    return true;
}

void FormSelectHelpFile::OnBrowse() {
    const std::string chosen = platform::ShowOpenFileDialog(
        this, {LoadResString(Message::HelpFileChooseTitle),
               HelpFileChoice::BrowseFolder(m_shownFile.Of(*txtHelpFile), m_defaultFolder), m_chosen,
               LoadResString(Message::HelpFileFilter)});
    if (!chosen.empty()) m_chosen = chosen;
    // The last file chosen in the file dialog is used even when the dialog was cancelled. So cancelling
    // before any file was chosen clears the help file.
    m_file = m_chosen;
    m_shownFile.Show(*txtHelpFile, m_file);
}

void FormSelectHelpFile::OnOK() {
    const std::string file = m_shownFile.Of(*txtHelpFile);
    // An invalid text is reported here, where the user can correct it, and not when the menu is saved.
    MenuText::CheckChange(file, m_before, "FormSelectHelpFile.OnOK");
    m_file = file;
    m_topic = HelpFileChoice::Topic(FromWx(txtHelpTopic->GetValue()), m_topic);
    Accept();
}

} // namespace nesk
