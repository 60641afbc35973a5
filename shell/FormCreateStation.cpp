#include "shell/FormCreateStation.h"

#include "base/Messages.h"
#include "platform/StationFolder.h"
#include "shell/UiStationFolder.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "widgets/UiUtilities.h"
#include "widgets/WrappedText.h"

#include <wx/button.h>
#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

namespace nesk {

using modUtilities::FromWx;
using modUtilities::ResText;
using modUtilities::ToWx;

namespace {

constexpr std::int32_t HelpTopic = 33011;
constexpr int MaxTextWidth = 460;

} // namespace

FormCreateStation::FormCreateStation(wxWindow* parent)
    : FormDialog(parent, "FormCreateStation", Message::StationTitle, HelpTopic) {
    wxStaticBoxSizer* kind = NewFrame("fraContent", Message::StationContent);
    const auto newChoice = [&](const char* name, int textId, long style) {
        auto* choice = new wxRadioButton(kind->GetStaticBox(), wxID_ANY, ResText(textId), wxDefaultPosition,
                                         wxDefaultSize, style, wxDefaultValidator, name);
        kind->Add(choice, wxSizerFlags().Border(wxALL, Gap() / 2));
        return choice;
    };
    optExample = newChoice("optExample", Message::StationExample, wxRB_GROUP);
    optEmpty = newChoice("optEmpty", Message::StationEmpty, 0);
    lblFolder = NewLabel(this, "lblFolder", Message::StationFolder);
    txtFolder = NewTextBox(this, "txtFolder");
    cmdFolder = NewButton(this, "cmdFolder", Message::StationBrowse);
    lblMachine = NewLabel(this, "lblMachine", Message::StationMachine);
    txtMachine = NewTextBox(this, "txtMachine");
    lblUser = NewLabel(this, "lblUser", Message::StationUser);
    txtUser = NewTextBox(this, "txtUser");
    lblUsual = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lblUsual");
    const std::string usual =
        modStringRes::FormatResString(Message::StationUsual, platform::UsualStationFolder());
    lblUsual->SetLabelText(ToWx(WrappedText(usual, FromDIP(MaxTextWidth), [this](std::string_view piece) {
        return lblUsual->GetTextExtent(ToWx(piece)).x;
    })));

    constexpr int columns = 3;
    auto* rows = new wxFlexGridSizer(columns, Gap(), Gap());
    rows->AddGrowableCol(1);
    const auto add = [&](wxWindow* label, wxWindow* box, wxWindow* button) {
        rows->Add(label, wxSizerFlags().CentreVertical());
        rows->Add(box, wxSizerFlags(1).Expand().CentreVertical());
        if (button != nullptr)
            rows->Add(button, wxSizerFlags().Expand());
        else
            rows->AddSpacer(0);
    };
    add(lblFolder, txtFolder, cmdFolder);
    add(lblMachine, txtMachine, nullptr);
    add(lblUser, txtUser, nullptr);
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(FrameWindow(*kind), wxSizerFlags().Expand());
    content->Add(rows, wxSizerFlags().Expand().Border(wxTOP, Gap()));
    content->Add(lblUsual, wxSizerFlags().Border(wxTOP, Gap()));
    Finish(content);
    cmdFolder->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OnFolder(); });
}

bool FormCreateStation::Invoke() {
    const bool hasExample = platform::HasExampleStation();
    const StationCreation::Wishes wishes = StationCreation::Proposal(hasExample);
    optExample->Enable(hasExample);
    (wishes.example ? optExample : optEmpty)->SetValue(true);
    txtFolder->SetValue(ToWx(wishes.folder));
    txtMachine->SetValue(ToWx(wishes.machine));
    txtUser->SetValue(ToWx(wishes.user));
    (wishes.example ? optExample : optEmpty)->SetFocus();
    return ShowModal() == wxID_OK;
}

void FormCreateStation::OnFolder() {
    const std::string folder =
        ChooseStationFolder(this, Message::StationFolderPrompt, FromWx(txtFolder->GetValue()));
    if (!folder.empty()) txtFolder->SetValue(ToWx(folder));
}

wxTextCtrl& FormCreateStation::BoxOf(StationCreation::Field field) {
    switch (field) {
    case StationCreation::Field::Folder: return *txtFolder;
    case StationCreation::Field::Machine: return *txtMachine;
    case StationCreation::Field::User: break;
    }
    return *txtUser;
}

void FormCreateStation::OnOK() {
    const StationCreation::Wishes wishes{optExample->GetValue(), FromWx(txtFolder->GetValue()),
                                         FromWx(txtMachine->GetValue()), FromWx(txtUser->GetValue())};
    if (const auto fault = StationCreation::Check(wishes)) {
        modMessageBox::ShowMessage(fault->message, modMessageBox::Option::Exclamation, FromWx(GetTitle()));
        wxTextCtrl& box = BoxOf(fault->field);
        box.SetFocus();
        modUtilities::SelectAllText(box, true);
        return;
    }
    {
        const wxBusyCursor busy;
        StationCreation::Create(wishes);
    }
    Accept();
}

} // namespace nesk
