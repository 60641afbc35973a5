#include "partedit/FormEditParts.h"

#include "base/Messages.h"
#include "menu/MenuText.h"
#include "partedit/FormBrowse.h"
#include "partedit/HistoryChoice.h"
#include "platform/AccessibleName.h"
#include "shell/FieldMessage.h"
#include "shell/modHelp.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/FormPicture.h"
#include "widgets/UiPictureButtons.h"
#include "widgets/UiUtilities.h"

#include <algorithm>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk {

using modStringRes::LoadResString;
using modUtilities::FromWx;
using modUtilities::ResText;
using modUtilities::ToWx;

namespace {

wxCheckBox* NewCheckBox(wxWindow* parent, const char* name, int textId) {
    return new wxCheckBox(parent, wxID_ANY, ResText(textId), wxDefaultPosition, wxDefaultSize, 0,
                          wxDefaultValidator, name);
}

wxStaticText* NewLine(wxWindow* parent, const char* name) {
    return new wxStaticText(parent, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                            wxST_ELLIPSIZE_MIDDLE | wxST_NO_AUTORESIZE, name);
}

// The value that all parts have; nothing when they differ.
std::optional<std::string> CommonValue(const std::vector<PartFields>& parts, std::string PartFields::*field) {
    const std::string& first = parts.front().*field;
    const bool isSame =
        std::all_of(parts.begin(), parts.end(), [&](const PartFields& part) { return part.*field == first; });
    return isSame ? std::optional(first) : std::nullopt;
}

// What the parts have now, for the line below a field.
wxString PresentText(const std::optional<std::string>& value) {
    if (!value) return ResText(Message::PartsDifferent);
    if (value->empty()) return ResText(Message::PartsNone);
    return ToWx(modStringRes::FormatResString(Message::PartsSame, *value));
}

} // namespace

FormEditParts::FormEditParts(wxWindow* parent)
    : FormDialog(parent, "FormEditParts", Message::PartsTitle, modHelp::Topic::MainWindow) {
    chkPicture = NewCheckBox(this, "chkPicture", Message::PartsPicture);
    lblPicture = NewLine(this, "lblPicture");
    picItemHost = new FormPicture(this, "picItemHost", "picItem", wxSize(165, 124));
    cmdMenuSelect = NewButton(this, "cmdMenuSelect", Message::SelectLabel);
    cmdMenuDelete = NewButton(this, "cmdMenuDelete", Message::DeleteLabel);
    chkHistory = NewCheckBox(this, "chkHistory", Message::PartsHistory);
    lblHistory = NewLine(this, "lblHistory");
    txtHistoryDir = NewTextBox(this, "txtHistoryDir");
    txtHistoryDir->SetMinSize(FromDIP(wxSize(320, -1)));
    platform::SetAccessibleName(*txtHistoryDir,
                                FieldMessage::PlainLabel(LoadResString(Message::HistoryFolder)));
    cmdBrowse = NewButton(this, "cmdBrowse", Message::BrowseLabel);

    auto* buttons = new wxBoxSizer(wxVERTICAL);
    buttons->Add(cmdMenuSelect, wxSizerFlags().Expand());
    buttons->Add(cmdMenuDelete, wxSizerFlags().Expand().Border(wxTOP, Gap()));
    auto* picture = new wxBoxSizer(wxHORIZONTAL);
    picture->Add(picItemHost, wxSizerFlags(1).Expand());
    picture->Add(buttons, wxSizerFlags().Border(wxLEFT, Gap()));
    auto* folder = new wxBoxSizer(wxHORIZONTAL);
    folder->Add(txtHistoryDir, wxSizerFlags(1).CentreVertical());
    folder->Add(cmdBrowse, wxSizerFlags().CentreVertical().Border(wxLEFT, Gap()));

    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(chkPicture);
    content->Add(lblPicture, wxSizerFlags().Expand().Border(wxTOP, Gap() / 2));
    content->Add(picture, wxSizerFlags(1).Expand().Border(wxTOP, Gap() / 2));
    content->Add(chkHistory, wxSizerFlags().Border(wxTOP, 2 * Gap()));
    content->Add(lblHistory, wxSizerFlags().Expand().Border(wxTOP, Gap() / 2));
    content->Add(folder, wxSizerFlags().Expand().Border(wxTOP, Gap() / 2));
    Finish(content);

    BindPictureButtons(*picItemHost, *cmdMenuSelect, *cmdMenuDelete);
    picItemHost->onChanged = [this] {
        m_hasPicture = true;
        UpdateControls();
    };
    cmdMenuDelete->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
        picItemHost->SetPath("");
        m_hasPicture = true;
        lblPicture->SetLabelText(ResText(Message::PartsNoPicture));
        cmdMenuSelect->SetFocus(); // the button is disabled now
        UpdateControls();
    });
    txtHistoryDir->SetHint(ResText(Message::PartDefaultHistory));
    for (wxCheckBox* box : {chkPicture, chkHistory})
        box->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { UpdateControls(); });
    cmdBrowse->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OnBrowse(); });
}

std::optional<CommonPartFields> FormEditParts::Edit(const std::vector<PartFields>& parts) {
    SetTitle(ToWx(modStringRes::FormatResString(Message::PartsTitle, std::to_string(parts.size()))));
    const auto graphic = CommonValue(parts, &PartFields::graphic);
    const auto history = CommonValue(parts, &PartFields::historyDir);
    lblPicture->SetLabelText(PresentText(graphic));
    lblHistory->SetLabelText(PresentText(history));
    picItemHost->SetPath(graphic.value_or(""));
    m_hasPicture = graphic.has_value();
    m_historyBefore = history.value_or("");
    txtHistoryDir->ChangeValue(ToWx(m_historyBefore));
    UpdateControls();
    chkPicture->SetFocus();
    if (ShowModal() != wxID_OK) return std::nullopt;
    CommonPartFields fields;
    if (chkPicture->GetValue()) fields.graphic = picItemHost->Path();
    if (chkHistory->GetValue()) fields.historyDir = modUtilities::Trim(FromWx(txtHistoryDir->GetValue()));
    return fields;
}

// A value can be chosen only for a field that is ticked.
void FormEditParts::UpdateControls() {
    const bool picture = chkPicture->GetValue();
    picItemHost->Enable(picture);
    cmdMenuSelect->Enable(picture);
    cmdMenuDelete->Enable(picture && (!m_hasPicture || !picItemHost->Path().empty()));
    txtHistoryDir->Enable(chkHistory->GetValue());
    cmdBrowse->Enable(chkHistory->GetValue());
    // Without a chosen picture, OK would remove those that the parts have.
    cmdOK->Enable((picture || chkHistory->GetValue()) && (!picture || m_hasPicture));
}

void FormEditParts::OnBrowse() {
    const std::string start = HistoryChoice::BrowseFolder(FromWx(txtHistoryDir->GetValue()));
    const std::string chosen = FormBrowse(this).Invoke(LoadResString(Message::HistoryBrowsePrompt), start);
    if (!chosen.empty()) txtHistoryDir->ChangeValue(ToWx(chosen));
}

// An empty history directory means the history of the options.
void FormEditParts::OnOK() {
    const std::string directory = modUtilities::Trim(FromWx(txtHistoryDir->GetValue()));
    if (chkHistory->GetValue() && !directory.empty()) {
        MenuText::CheckChange(directory, m_historyBefore, "FormEditParts.OnOK");
        if (!HistoryChoice::IsDirectory(directory)) {
            ShowReason(FieldMessage::FolderReason(directory));
            txtHistoryDir->SetFocus();
            return;
        }
    }
    Accept();
}

} // namespace nesk
