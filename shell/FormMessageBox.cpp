#include "shell/FormMessageBox.h"

#include "shell/modMessageBox.h"
#include "widgets/UiIcons.h"
#include "widgets/UiUtilities.h"
#include "widgets/WrappedText.h"

#include <algorithm>
#include <string_view>

#include <wx/app.h>
#include <wx/button.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/dcclient.h>
#include <wx/display.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/textctrl.h>

namespace nesk {

using modUtilities::ToWx;

namespace {

// Limits of the text width in device-independent pixels: the widest text that is easy to read, and the
// narrowest box that still looks like a window.
constexpr int MaxTextWidth = 480;
constexpr int ShortestLine = 160;
constexpr int IconSize = 32;
constexpr int Margin = 12;

// The window that the user works in; null when there is no such window. It must own the box: a window that is
// disabled by a dialog in front of it cannot be activated when the box closes.
wxWindow* FrontWindow() {
    for (auto node = wxTopLevelWindows.GetLast(); node != nullptr; node = node->GetPrevious()) {
        auto* const dialog = dynamic_cast<wxDialog*>(node->GetData());
        // A dialog that the user has answered is hidden, but it is modal until the call that showed it
        // returns.
        if (dialog != nullptr && dialog->IsModal() && dialog->IsShown()) return dialog;
    }
    return wxTheApp->GetTopWindow();
}

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
    // Otherwise wx would press a Cancel button, and close a box that has no Cancel button.
    SetEscapeId(wxID_NONE);
}

std::int16_t FormMessageBox::ShowInFront(const std::string& text, std::int16_t options,
                                         const std::string& title) {
    FormMessageBox box(FrontWindow());
    return box.Initialize(text, options, title);
}

std::int16_t FormMessageBox::Initialize(const std::string& sText, std::int16_t iOptions,
                                        const std::string& sTitle) {
    m_layout = LayoutOf(iOptions);
    m_returnCode = modMessageBox::Result::None;
    SetTitle(ToWx(sTitle));
    BuildControls(sText);
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
    SetSizer(nullptr);
    DestroyChildren();
    cmdButton.clear();
    const int margin = FromDIP(Margin);
    auto* message = new wxBoxSizer(wxHORIZONTAL);
    // The icon is as high as two lines when the font is large.
    const int iconSize = std::max(IconSize, ToDIP(2 * GetCharHeight()));
    const wxBitmapBundle icon = IconBundle(m_layout.icon, wxSize(iconSize, iconSize));
    picIcon = new wxStaticBitmap(this, wxID_ANY, icon, wxDefaultPosition, wxDefaultSize, 0, "picIcon");
    picIcon->Show(!m_layout.icon.empty());
    message->Add(picIcon, wxSizerFlags().Top().Border(wxRIGHT, margin));
    wxSizer* buttons = MakeButtons();
    // The font determines the size of the text.
    modUtilities::SetFormFont(*this);
    MakeText(text);
    message->Add(lblMsg, wxSizerFlags(1).CentreVertical());

    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(message, wxSizerFlags(1).Expand().Border(wxALL, margin));
    all->Add(buttons, wxSizerFlags().Centre().Border(wxLEFT | wxRIGHT | wxBOTTOM, margin));
    SetSizer(all);
}

wxSizer* FormMessageBox::MakeButtons() {
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
    return buttons;
}

// Creates the text box in the size that the text needs. When that exceeds the limit for the screen, the text
// scrolls.
void FormMessageBox::MakeText(const std::string& text) {
    wxClientDC dc(this);
    // The control has the common font; the font of the window itself keeps its size.
    const wxFont font = picIcon->GetFont();
    dc.SetFont(font);
    const auto widthOf = [&dc](std::string_view piece) { return dc.GetTextExtent(ToWx(piece)).x; };
    const wxRect screen = wxDisplay(this).GetClientArea();
    const int longest = std::min(FromDIP(MaxTextWidth), screen.width * 3 / 4);
    int width = FromDIP(ShortestLine);
    const std::vector<std::string_view> lines = WrappedLines(text, longest, widthOf);
    for (const std::string_view line : lines)
        width = std::max(width, widthOf(line));
    const int height = static_cast<int>(lines.size()) * dc.GetCharHeight();
    const int highest = screen.height * 2 / 3;
    const bool scrolls = height > highest;

    // A static label cannot scroll, and its text cannot be selected.
    lblMsg = new wxTextCtrl(
        this, wxID_ANY, ToWx(WithWordsBroken(text, lines)), wxDefaultPosition, wxDefaultSize,
        wxTE_MULTILINE | wxTE_READONLY | wxTE_BESTWRAP | wxBORDER_NONE | (scrolls ? 0 : wxTE_NO_VSCROLL),
        wxDefaultValidator, "lblMsg");
    lblMsg->SetFont(font);
    // Handles copying by key and by the context menu of the text box.
    lblMsg->Bind(wxEVT_TEXT_COPY, [this](wxClipboardTextEvent&) { CopyText(); });
    lblMsg->SetBackgroundColour(GetBackgroundColour());
    lblMsg->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT));
    const int bar = scrolls ? wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, this) : 0;
    // The text box needs a small margin around its text.
    const wxSize edge = FromDIP(wxSize(8, 4));
    lblMsg->SetMinSize(wxSize(width + bar, std::min(height, highest)) + edge);
}

std::optional<std::size_t> FormMessageBox::DefaultIndex() const {
    const auto index = static_cast<std::size_t>(m_layout.defaultButton) - 1;
    if (index >= cmdButton.size()) return std::nullopt;
    return index;
}

void FormMessageBox::FocusDefault() {
    const std::optional<std::size_t> index = DefaultIndex();
    if (!index) return;
    cmdButton[*index]->SetDefault();
    cmdButton[*index]->SetFocus();
}

void FormMessageBox::Finish(std::int16_t resultCode) {
    m_returnCode = resultCode;
    EndModal(resultCode);
}

// Copies the selection, or the whole text when nothing is selected.
void FormMessageBox::CopyText() {
    wxString text = lblMsg->HasFocus() ? lblMsg->GetStringSelection() : wxString();
    if (text.empty()) text = lblMsg->GetValue();
    const wxClipboardLocker clipboard;
    if (!clipboard) return;
    wxTheClipboard->SetData(new wxTextDataObject(ToWx(WithoutWordBreaks(modUtilities::FromWx(text)))));
}

void FormMessageBox::OnKey(wxKeyEvent& event) {
    if (event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'C') return CopyText();
    // The captions have no access keys, but the captions of a button set begin with different letters. The
    // letter works with and without Alt.
    if (event.GetModifiers() == wxMOD_NONE || event.GetModifiers() == wxMOD_ALT)
        for (const MessageBoxButton& button : m_layout.buttons)
            if (button.caption.front() == event.GetKeyCode()) return Finish(button.resultCode);
    if (event.HasAnyModifiers()) return event.Skip();
    // Keys that no button uses scroll the text.
    switch (event.GetKeyCode()) {
    case WXK_PAGEUP: lblMsg->ScrollPages(-1); return;
    case WXK_PAGEDOWN: lblMsg->ScrollPages(1); return;
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
        if (lblMsg->HasFocus()) {
            if (const auto index = DefaultIndex()) Finish(m_layout.buttons[*index].resultCode);
            return;
        }
        break;
    default: break;
    }
    if (event.GetKeyCode() == WXK_ESCAPE) {
        if (m_layout.EscapeCode() != modMessageBox::Result::None) Finish(m_layout.EscapeCode());
        return;
    }
    event.Skip();
}

void FormMessageBox::OnCloseBox(wxCloseEvent&) {
    EndModal(m_returnCode);
}

} // namespace nesk
