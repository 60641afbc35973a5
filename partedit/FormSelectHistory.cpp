#include "partedit/FormSelectHistory.h"

#include "base/Messages.h"
#include "menu/MenuText.h"
#include "partedit/FormBrowse.h"
#include "partedit/HistoryChoice.h"
#include "shell/FieldMessage.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/UiTextFilter.h"
#include "widgets/UiUtilities.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk {

using modStringRes::LoadResString;
using modUtilities::ResText;
using modUtilities::ToWx;

namespace {

constexpr std::int32_t HelpTopic = 33005;

// Returns the text of a field without leading and trailing spaces, and updates the field.
std::string TrimField(wxTextCtrl& field, ShownText& shown) {
    std::string text = modUtilities::Trim(shown.Of(field));
    shown.Show(field, text);
    return text;
}

} // namespace

FormSelectHistory::FormSelectHistory(wxWindow* parent)
    : FormDialog(parent, "FormSelectHistory", Message::HistoryDialogTitle, HelpTopic) {
    lblHistoryDir = NewLabel(this, "lblHistoryDir", Message::HistoryFolder);
    txtHistoryDir = NewTextBox(this, "txtHistoryDir");
    cmdBrowse = NewButton(this, "cmdBrowse", Message::BrowseLabel);
    lblHistoryTitle = NewLabel(this, "lblHistoryTitle", Message::HistoryTitle);
    txtHistoryTitle = NewTextBox(this, "txtHistoryTitle");
    cmdDefault = NewButton(this, "cmdDefault", Message::HistoryUseDefault);

    auto* folder = new wxBoxSizer(wxHORIZONTAL);
    folder->Add(txtHistoryDir, wxSizerFlags(1).CentreVertical());
    folder->Add(cmdBrowse, wxSizerFlags().CentreVertical().Border(wxLEFT, Gap()));
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(lblHistoryDir);
    content->Add(folder, wxSizerFlags().Expand().Border(wxBOTTOM, Gap()));
    content->Add(lblHistoryTitle);
    content->Add(txtHistoryTitle, wxSizerFlags().Expand());
    content->Add(cmdDefault, wxSizerFlags().Border(wxTOP, Gap()));
    Finish(content);

    SelectAllOnFocus(*txtHistoryTitle);
    cmdBrowse->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OnBrowse(); });
    cmdDefault->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OnDefault(); });
}

bool FormSelectHistory::Display(std::string& directory, std::string& title, bool defaultCaption,
                                const std::string& proposedTitle) {
    m_directory = directory;
    m_title = title;
    m_shownDirectory.Show(*txtHistoryDir, m_directory);
    m_shownTitle.Show(*txtHistoryTitle, HistoryChoice::TitleToShow(m_title, proposedTitle));
    cmdDefault->SetLabel(ResText(defaultCaption ? Message::HistoryUseDefault : Message::HistoryNoHistory));
    GetSizer()->SetSizeHints(this);
    txtHistoryDir->SetFocus();
    if (ShowModal() == wxID_CANCEL) return false;
    directory = m_directory;
    title = m_title;
    return true;
}

void FormSelectHistory::OnBrowse() {
    const std::string start = HistoryChoice::BrowseFolder(m_shownDirectory.Of(*txtHistoryDir));
    const std::string chosen = FormBrowse(this).Invoke(LoadResString(Message::HistoryBrowsePrompt), start);
    if (!chosen.empty()) txtHistoryDir->ChangeValue(ToWx(chosen));
}

void FormSelectHistory::OnDefault() {
    m_directory.clear();
    m_title.clear();
    Accept();
}

void FormSelectHistory::Refuse(int label, const std::string& reason, wxTextCtrl& field) {
    ShowReason(reason);
    modMessageBox::ShowMessage(FieldMessage::Text(label), modMessageBox::Option::Exclamation,
                               FieldMessage::Title());
    field.SetFocus();
}

void FormSelectHistory::OnOK() {
    const std::string directory = TrimField(*txtHistoryDir, m_shownDirectory);
    if (!HistoryChoice::IsDirectory(directory))
        return Refuse(Message::HistoryFolder, FieldMessage::FolderReason(directory), *txtHistoryDir);
    const std::string title = TrimField(*txtHistoryTitle, m_shownTitle);
    if (!HistoryChoice::IsTitle(title))
        return Refuse(Message::HistoryTitle, LoadResString(Message::HistoryNoTitle), *txtHistoryTitle);
    // Invalid texts are reported here, where the user can correct them, and not when the menu is saved.
    MenuText::CheckChange(directory, m_directory, "FormSelectHistory.OnOK");
    MenuText::CheckChange(title, m_title, "FormSelectHistory.OnOK");
    m_directory = directory;
    m_title = title;
    Accept();
}

} // namespace nesk
