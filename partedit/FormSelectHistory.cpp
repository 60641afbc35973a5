#include "partedit/FormSelectHistory.h"

#include "menu/MenuText.h"
#include "partedit/FormBrowse.h"
#include "partedit/FormTextFilter.h"
#include "partedit/HistoryChoice.h"
#include "shell/FormUtilities.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk {

using modStringRes::LoadResString;
using modUtilities::FromWx;
using modUtilities::ResText;
using modUtilities::ToWx;

namespace {

constexpr int TitleText = 32091;
constexpr int DirectoryText = 32037;
constexpr int HistoryTitleText = 32092;
constexpr int BrowsePrompt = 32022;
constexpr int UseDefaultText = 32093;
constexpr int NoHistoryText = 32094;
constexpr int CheckFieldText = 32067;
constexpr int BrowseText = 34200;
constexpr std::int32_t HelpTopic = 33005;

void Refuse(int label, wxTextCtrl& field) {
    modMessageBox::ShowMessage(HistoryChoice::RefusalText(LoadResString(label)),
                               modMessageBox::Option::Exclamation, LoadResString(CheckFieldText));
    field.SetFocus();
}

std::string TrimField(wxTextCtrl& field) {
    std::string text = modUtilities::Trim(FromWx(field.GetValue()));
    field.ChangeValue(ToWx(text));
    return text;
}

} // namespace

FormSelectHistory::FormSelectHistory(wxWindow* parent)
    : FormDialog(parent, "FormSelectHistory", TitleText, HelpTopic) {
    lblHistoryDir = NewLabel(this, "lblHistoryDir", DirectoryText);
    txtHistoryDir = NewTextBox(this, "txtHistoryDir");
    cmdBrowse = NewButton(this, "cmdBrowse", BrowseText);
    lblHistoryTitle = NewLabel(this, "lblHistoryTitle", HistoryTitleText);
    txtHistoryTitle = NewTextBox(this, "txtHistoryTitle");
    cmdDefault = NewButton(this, "cmdDefault", UseDefaultText);

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

bool FormSelectHistory::Display(std::string& directory, std::string& title, bool defaultCaption) {
    m_directory = directory;
    m_title = title;
    txtHistoryDir->ChangeValue(ToWx(m_directory));
    txtHistoryTitle->ChangeValue(ToWx(m_title));
    cmdDefault->SetLabel(ResText(defaultCaption ? UseDefaultText : NoHistoryText));
    GetSizer()->SetSizeHints(this);
    txtHistoryDir->SetFocus();
    if (ShowModal() == wxID_CANCEL) return false;
    directory = m_directory;
    title = m_title;
    return true;
}

void FormSelectHistory::OnBrowse() {
    const std::string start = HistoryChoice::BrowseFolder(FromWx(txtHistoryDir->GetValue()));
    const std::string chosen = FormBrowse(this).Invoke(LoadResString(BrowsePrompt), start);
    if (!chosen.empty()) txtHistoryDir->ChangeValue(ToWx(chosen));
}

void FormSelectHistory::OnDefault() {
    m_directory.clear();
    m_title.clear();
    Accept();
}

void FormSelectHistory::OnOK() {
    const std::string directory = TrimField(*txtHistoryDir);
    if (!HistoryChoice::IsDirectory(directory)) return Refuse(DirectoryText, *txtHistoryDir);
    const std::string title = TrimField(*txtHistoryTitle);
    if (!HistoryChoice::IsTitle(title)) return Refuse(HistoryTitleText, *txtHistoryTitle);
    // Refused while they can still be corrected, rather than when the menu is saved.
    MenuText::Check(directory, "FormSelectHistory.OnOK");
    MenuText::Check(title, "FormSelectHistory.OnOK");
    m_directory = directory;
    m_title = title;
    Accept();
}

} // namespace nesk
