#include "widgets/FormDialog.h"

#include "base/Messages.h"
#include "base/NeskError.h"
#include "shell/modHelp.h"
#include "shell/modUtilities.h"
#include "widgets/UiRowList.h"
#include "widgets/UiUtilities.h"

#include <vector>

#include <wx/button.h>
#include <wx/display.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk {

using modUtilities::ResText;

namespace {

// A list shows its heading and a few rows at least.
constexpr int LeastListWidth = 300;
constexpr int LeastListHeight = 90;

// The lists below a window.
void CollectLists(wxWindow& window, std::vector<UiRowList*>& lists) {
    for (wxWindow* child : window.GetChildren()) {
        if (auto* list = dynamic_cast<UiRowList*>(child)) lists.push_back(list);
        CollectLists(*child, lists);
    }
}

} // namespace

FormDialog::FormDialog(wxWindow* parent, const char* name, int titleId, std::int32_t helpTopic)
    : wxDialog(parent, wxID_ANY, ResText(titleId), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, name)
    , m_helpTopic(helpTopic) {
    // On Windows, a resizable window shows an icon, and does not use its owner's icon by default.
    if (const auto* owner = dynamic_cast<wxTopLevelWindow*>(wxGetTopLevelParent(parent)))
        SetIcons(owner->GetIcons());
    // Escape is handled here so that it does the same as cmdCancel, while the close box may behave
    // differently.
    SetEscapeId(wxID_NONE);
    Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
        const bool plain = !event.HasAnyModifiers();
        if (plain && event.GetKeyCode() == WXK_ESCAPE) {
            if (cmdCancel->IsEnabled()) OnCancel();
        } else if (plain && event.GetKeyCode() == WXK_F1 && m_helpTopic != 0) {
            ShowHelp();
        } else {
            event.Skip();
        }
    });
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { OnCloseBox(); });
}

void FormDialog::Finish(wxSizer* content) {
    cmdOK = NewButton(this, "cmdOK", Message::Ok);
    cmdCancel = NewButton(this, "cmdCancel", Message::Cancel);
    if (m_helpTopic != 0) cmdHelp = NewButton(this, "cmdHelp", Message::Help);
    cmdOK->SetDefault();
    cmdOK->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
        try {
            ShowReason("");
            OnOK();
        } catch (const NeskError& error) {
            // The dialog stays open and keeps the user's input.
            modUtilities::ReportError(error);
        }
    });
    cmdCancel->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OnCancel(); });
    if (cmdHelp != nullptr) cmdHelp->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { ShowHelp(); });

    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    buttons->AddStretchSpacer();
    buttons->Add(cmdOK);
    buttons->Add(cmdCancel, wxSizerFlags().Border(wxLEFT, Gap()));
    if (cmdHelp != nullptr) buttons->Add(cmdHelp, wxSizerFlags().Border(wxLEFT, Gap()));

    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(content, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(12)));
    lblReason = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lblReason");
    lblReason->Hide();
    all->Add(lblReason, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(12)));
    all->Add(buttons, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(12)));
    SetSizer(all);
    modUtilities::SetFormFont(*this);
    FitToContent();
    CentreOnParent();
}

void FormDialog::FitToContent() {
    wxSizer& sizer = *GetSizer();
    std::vector<UiRowList*> lists;
    CollectLists(*this, lists);
    for (UiRowList* list : lists)
        list->SetMinSize(list->PreferredSize());
    sizer.SetSizeHints(this);
    if (lists.empty()) return;
    const wxSize preferred = GetSize();
    for (UiRowList* list : lists)
        list->SetMinSize(FromDIP(wxSize(LeastListWidth, LeastListHeight)));
    sizer.SetSizeHints(this);
    const wxSize screen = wxDisplay(this).GetClientArea().GetSize();
    wxSize size = preferred;
    size.DecTo(screen);
    size.IncTo(GetMinSize());
    SetSize(size);
}

void FormDialog::ShowReason(const std::string& reason) {
    if (reason.empty() && !lblReason->IsShown()) return;
    lblReason->SetLabelText(modUtilities::ToWx(reason));
    lblReason->Wrap(GetClientSize().x - 2 * FromDIP(12));
    lblReason->Show(!reason.empty());
    const wxSize needed = GetSizer()->ComputeFittingClientSize(this);
    SetMinClientSize(needed);
    wxSize size = GetClientSize();
    size.IncTo(needed);
    SetClientSize(size);
    Layout();
}

wxButton* FormDialog::NewButton(wxWindow* parent, const char* name, int textId) {
    return new wxButton(parent, wxID_ANY, ResText(textId), wxDefaultPosition, wxDefaultSize, 0,
                        wxDefaultValidator, name);
}

wxStaticText* FormDialog::NewLabel(wxWindow* parent, const char* name, int textId) {
    return new wxStaticText(parent, wxID_ANY, ResText(textId), wxDefaultPosition, wxDefaultSize, 0, name);
}

wxTextCtrl* FormDialog::NewTextBox(wxWindow* parent, const char* name) {
    return new wxTextCtrl(parent, wxID_ANY, "", wxDefaultPosition, FromDIP(wxSize(280, -1)), 0,
                          wxDefaultValidator, name);
}

wxStaticBoxSizer* FormDialog::NewFrame(const char* name, int textId) {
    // wx uses a title as the label of the next control. A window of its own prevents that.
    auto* window = new wxPanel(this);
    auto* frame = new wxStaticBoxSizer(wxVERTICAL, window, ResText(textId));
    window->SetSizer(frame);
    wxStaticBox* box = frame->GetStaticBox();
    box->SetName(name);
    // wx ignores the title when it computes the minimum size of a frame.
    frame->SetMinSize(box->GetTextExtent(ResText(textId)).x + 4 * Gap(), -1);
    return frame;
}

wxWindow* FormDialog::FrameWindow(const wxStaticBoxSizer& frame) {
    return frame.GetStaticBox()->GetParent();
}

void FormDialog::ShowHelp() {
    modHelp::ShowHelpTopic(GetHandle(), m_helpTopic);
}

} // namespace nesk
