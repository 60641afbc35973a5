#include "partedit/FormBrowse.h"

#include "base/Messages.h"
#include "partedit/BrowseChoice.h"
#include "partedit/DriveChoice.h"
#include "partedit/FormFolder.h"
#include "partedit/FormFolderTree.h"
#include "shell/FieldMessage.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/UiTreeKeys.h"
#include "widgets/UiUtilities.h"

#include <optional>

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/msgdlg.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace nesk {

using modUtilities::ResText;
using modUtilities::ToWx;

namespace {

constexpr std::int32_t HelpTopic = 33002;

constexpr char FallbackDrive = 'C';
constexpr int PromptWidth = 360;

} // namespace

FormBrowse::FormBrowse(wxWindow* parent)
    : FormDialog(parent, "FormBrowse", Message::BrowseTitle, HelpTopic), m_drives(DriveChoice::Labels()) {
    lblPrompt = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lblPrompt");
    lblDrive = NewLabel(this, "lblDrive", Message::BrowseDrive);
    Drive1 = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr, 0, wxDefaultValidator,
                          "Drive1");
    for (const std::string& drive : m_drives)
        Drive1->Append(ToWx(drive));
    lblFolders = NewLabel(this, "lblFolders", Message::BrowseFolders);
    m_folders = std::make_unique<FormFolderTree>(this, "Dir1");
    Dir1 = m_folders.get();
    Dir1->View().SetAccessibleName(
        FieldMessage::PlainLabel(modStringRes::LoadResString(Message::BrowseFolders)));
    cmdFolder = NewButton(this, "cmdFolder", Message::NewFolder);

    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(lblPrompt, wxSizerFlags().Expand().Border(wxBOTTOM, Gap()));
    content->Add(lblDrive);
    content->Add(Drive1, wxSizerFlags().Expand().Border(wxBOTTOM, Gap()));
    content->Add(lblFolders);
    content->Add(&Dir1->Window(), wxSizerFlags(1).Expand());
    content->Add(cmdFolder, wxSizerFlags().Border(wxTOP, Gap()));
    Finish(content);

    Drive1->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { OnDrive(); });
    cmdFolder->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OnNewFolder(); });
    BindAccessKey(*this, *lblFolders, Dir1->Window());
    // A double click opens a folder; Enter chooses it.
    BindEnter(Dir1->Window(), [this] { OnOK(); });
}

FormBrowse::~FormBrowse() = default;

std::string FormBrowse::Invoke(const std::string& sPrompt, const std::string& sPath) {
    lblPrompt->SetLabelText(ToWx(sPrompt));
    lblPrompt->Wrap(FromDIP(PromptWidth));
    GetSizer()->SetSizeHints(this);
    GoTo(BrowseChoice::StartFolder(sPath));
    Dir1->Window().SetFocus();
    return ShowModal() == wxID_OK ? m_result : "";
}

void FormBrowse::GoTo(const std::string& path) {
    Dir1->SetPath(path);
    SelectDrive(DriveChoice::Letter(Dir1->Root()));
}

void FormBrowse::SelectDrive(char letter) {
    Drive1->SetSelection(DriveChoice::IndexOf(m_drives, letter));
}

void FormBrowse::OnDrive() {
    const std::string& drive = m_drives.at(static_cast<std::size_t>(Drive1->GetSelection()));
    const char letter = DriveChoice::Letter(drive);
    try {
        DriveChoice::RequireReady(letter);
        Dir1->SetPath(DriveChoice::Root(drive));
    } catch (const NeskError& error) {
        modUtilities::ReportError(error);
        SelectDrive(FallbackDrive);
        if (letter != FallbackDrive) Dir1->SetPath(DriveChoice::Root({FallbackDrive}));
    }
}

void FormBrowse::OnNewFolder() {
    const std::string made = FormFolder(this).Invoke(Dir1->Path());
    if (made.empty() || !modUtilities::DirectoryExists(made)) return;
    GoTo(made);
    Dir1->Window().SetFocus();
}

void FormBrowse::OnOK() {
    const std::optional<std::string> chosen = BrowseChoice::Accept(Dir1->Path());
    if (!chosen) {
        wxMessageDialog(this, ResText(Message::BrowseNoChoice), ResText(Message::NoticeTitle), wxOK)
            .ShowModal();
        return;
    }
    m_result = *chosen;
    Accept();
}

} // namespace nesk
