#include "partedit/FormSelectDrive.h"

#include "base/Messages.h"
#include "partedit/DriveChoice.h"
#include "widgets/UiUtilities.h"

#include <wx/choice.h>
#include <wx/radiobut.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace nesk {

using modUtilities::FromWx;
using modUtilities::ResText;
using modUtilities::ToWx;

FormSelectDrive::FormSelectDrive(wxWindow* parent)
    : FormDialog(parent, "FormSelectDrive", Message::DriveTitle, 0) {
    optDrive[0] = new wxRadioButton(this, wxID_ANY, ResText(Message::DriveRepository), wxDefaultPosition,
                                    wxDefaultSize, wxRB_GROUP, wxDefaultValidator, "optDrive0");
    optDrive[1] = new wxRadioButton(this, wxID_ANY, ResText(Message::Drive), wxDefaultPosition, wxDefaultSize,
                                    0, wxDefaultValidator, "optDrive1");
    lblSelectDrive = NewLabel(this, "lblSelectDrive", Message::SelectDrive);
    drvSelect = new wxChoice(this, wxID_ANY);
    drvSelect->SetName("drvSelect");
    for (const std::string& drive : DriveChoice::Labels())
        drvSelect->Append(ToWx(drive));
    if (!drvSelect->IsEmpty()) drvSelect->SetSelection(0);

    auto* drive = new wxBoxSizer(wxHORIZONTAL);
    drive->Add(lblSelectDrive, wxSizerFlags().CentreVertical());
    drive->Add(drvSelect, wxSizerFlags(1).Border(wxLEFT, Gap()));
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(optDrive[0]);
    content->Add(optDrive[1], wxSizerFlags().Border(wxTOP, Gap()));
    content->Add(drive, wxSizerFlags().Expand().Border(wxTOP | wxLEFT, 2 * Gap()));
    Finish(content);

    for (std::size_t i = 0; i < optDrive.size(); ++i)
        optDrive[i]->Bind(wxEVT_RADIOBUTTON, [this, i](wxCommandEvent&) { ChooseOption(i); });
    drvSelect->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { m_result = CurrentDrive(); });
    optDrive[0]->SetValue(true);
    ChooseOption(0);
}

std::string FormSelectDrive::SelectDrive(const std::string& current) {
    const int drive = DriveChoice::IndexOf(DriveChoice::Labels(), DriveChoice::Letter(current));
    if (drive >= 0) drvSelect->SetSelection(drive);
    optDrive[0]->SetFocus();
    ShowModal();
    return m_result;
}

void FormSelectDrive::ChooseOption(std::size_t index) {
    const bool drive = index == 1;
    lblSelectDrive->Enable(drive);
    drvSelect->Enable(drive);
    drvSelect->SetForegroundColour(
        wxSystemSettings::GetColour(drive ? wxSYS_COLOUR_WINDOWTEXT : wxSYS_COLOUR_GRAYTEXT));
    m_result = drive ? CurrentDrive() : "*";
}

std::string FormSelectDrive::CurrentDrive() const {
    return DriveChoice::Root(FromWx(drvSelect->GetStringSelection()));
}

void FormSelectDrive::OnCancel() {
    m_result.clear();
    EndModal(wxID_CANCEL);
}

} // namespace nesk
