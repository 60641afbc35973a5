#include "shell/FormMessageBox.h"

#include "shell/FormIcons.h"
#include "shell/FormUtilities.h"
#include "shell/modMessageBox.h"

#include <algorithm>

#include <wx/button.h>
#include <wx/display.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

namespace nesk {

using modUtilities::ToWx;

namespace {

// Widths of the text in device-independent pixels: what is easy to read, and the least that looks like a
// window.
constexpr int LongestLine = 480;
constexpr int ShortestLine = 160;
constexpr int IconSize = 32;

} // namespace

FormMessageBox::FormMessageBox(wxWindow* parent)
    : wxDialog(parent, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxDEFAULT_DIALOG_STYLE,
               "FormMessageBox") {
    Bind(wxEVT_CHAR_HOOK, &FormMessageBox::OnKey, this);
    Bind(wxEVT_CLOSE_WINDOW, &FormMessageBox::OnCloseBox, this);
    Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
        if (event.GetActive()) FocusDefault();
        event.Skip();
    });
    // The toolkit would press a Cancel button by itself, and close the box where there is none.
    SetEscapeId(wxID_NONE);
}

std::int16_t FormMessageBox::Initialize(const std::string& sText, std::int16_t iOptions,
                                        const std::string& sTitle) {
    m_layout = LayoutOf(iOptions);
    m_returnCode = modMessageBox::Result::None;
    SetTitle(ToWx(sTitle));
    BuildControls(sText);
    modUtilities::SetFormFont(*this);
    GetSizer()->SetSizeHints(this);
    CentreOnScreen();
    FocusDefault();
    m_returnCode = static_cast<std::int16_t>(ShowModal());
    return m_returnCode;
}

void FormMessageBox::Display(const std::string& s1, const std::string& s2) {
    Initialize(s1, 0, s2);
}

bool FormMessageBox::YesNo(const std::string& s1, const std::string& s2) {
    return Initialize(s1, modMessageBox::Option::YesNo, s2) == modMessageBox::Result::Yes;
}

void FormMessageBox::BuildControls(const std::string& text) {
    const int margin = FromDIP(12);
    auto* message = new wxBoxSizer(wxHORIZONTAL);
    const wxBitmapBundle icon = IconBundle(m_layout.icon, wxSize(IconSize, IconSize));
    picIcon = new wxStaticBitmap(this, wxID_ANY, icon, wxDefaultPosition, wxDefaultSize, 0, "picIcon");
    picIcon->Show(!m_layout.icon.empty());
    message->Add(picIcon, wxSizerFlags().Top().Border(wxRIGHT, margin));

    lblMsg = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lblMsg");
    lblMsg->SetLabelText(ToWx(text));
    const wxRect screen = wxDisplay(this).GetClientArea();
    lblMsg->Wrap(std::min(FromDIP(LongestLine), screen.width * 3 / 4));
    lblMsg->SetMinSize(wxSize(std::max(FromDIP(ShortestLine), lblMsg->GetBestSize().x), -1));
    message->Add(lblMsg, wxSizerFlags(1).CentreVertical());

    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    for (const MessageBoxButton& button : m_layout.buttons) {
        const wxString name = wxString::Format("cmdButton%zu", cmdButton.size() + 1);
        auto* control = new wxButton(this, wxID_ANY, ToWx(button.caption), wxDefaultPosition, wxDefaultSize,
                                     0, wxDefaultValidator, name);
        const std::int16_t resultCode = button.resultCode;
        control->Bind(wxEVT_BUTTON, [this, resultCode](wxCommandEvent&) { Finish(resultCode); });
        buttons->Add(control, wxSizerFlags().Border(cmdButton.empty() ? 0 : wxLEFT, FromDIP(8)));
        cmdButton.push_back(control);
    }

    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(message, wxSizerFlags(1).Expand().Border(wxALL, margin));
    all->Add(buttons, wxSizerFlags().Centre().Border(wxLEFT | wxRIGHT | wxBOTTOM, margin));
    SetSizer(all);
}

void FormMessageBox::FocusDefault() {
    const auto index = static_cast<std::size_t>(m_layout.defaultButton) - 1;
    if (index >= cmdButton.size()) return;
    cmdButton[index]->SetDefault();
    cmdButton[index]->SetFocus();
}

void FormMessageBox::Finish(std::int16_t resultCode) {
    m_returnCode = resultCode;
    EndModal(resultCode);
}

void FormMessageBox::OnKey(wxKeyEvent& event) {
    if (event.HasAnyModifiers()) return event.Skip();
    if (event.GetKeyCode() == WXK_ESCAPE) {
        if (m_layout.EscapeCode() != modMessageBox::Result::None) Finish(m_layout.EscapeCode());
        return;
    }
    // The captions have no access keys, but no two of a set begin with the same letter.
    for (const MessageBoxButton& button : m_layout.buttons)
        if (button.caption.front() == event.GetKeyCode()) return Finish(button.resultCode);
    event.Skip();
}

void FormMessageBox::OnCloseBox(wxCloseEvent&) {
    EndModal(m_returnCode);
}

} // namespace nesk
