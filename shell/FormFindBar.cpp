#include "shell/FormFindBar.h"

#include "base/Messages.h"
#include "platform/AccessibleName.h"
#include "shell/modStringRes.h"
#include "widgets/UiTextKeys.h"
#include "widgets/UiUtilities.h"

#include <wx/artprov.h>
#include <wx/bmpbuttn.h>
#include <wx/checkbox.h>
#include <wx/sizer.h>
#include <wx/srchctrl.h>
#include <wx/stattext.h>

namespace nesk {

using modStringRes::FormatResString;
using modStringRes::LoadResString;
using modUtilities::FromWx;
using modUtilities::ResText;
using modUtilities::ToWx;

namespace {

// In the narrowest window the label has room for so many entries.
constexpr int ManyEntries = 999;

bool IsWithin(const wxWindow* window, const wxWindow& ancestor) {
    while (window != nullptr && window != &ancestor)
        window = window->GetParent();
    return window != nullptr;
}

} // namespace

FormFindBar::FormFindBar(wxWindow* parent)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, "FormFindBar") {
    lblFind = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lblFind");
    txtFindHere = new wxSearchCtrl(this, wxID_ANY, "", wxDefaultPosition, FromDIP(wxSize(80, -1)), 0,
                                   wxDefaultValidator, "txtFindHere");
    txtFindHere->ShowSearchButton(true);
    m_box = txtFindHere;
    cmdPrevious = NewButton("cmdPrevious", wxART_GO_UP, onPrevious);
    cmdNext = NewButton("cmdNext", wxART_GO_DOWN, onNext);
    chkMatchesOnly = new wxCheckBox(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0,
                                    wxDefaultValidator, "chkMatchesOnly");
    lblFound = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END, "lblFound");
    cmdClose = NewButton("cmdClose", wxART_CLOSE, onClose);

    const int gap = FromDIP(6);
    const wxSizerFlags middle = wxSizerFlags().CenterVertical().Border(wxRIGHT, gap);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(lblFind, middle);
    row->Add(txtFindHere, wxSizerFlags(2).CenterVertical().Border(wxRIGHT, gap));
    row->Add(cmdPrevious, wxSizerFlags().CenterVertical());
    row->Add(cmdNext, middle);
    row->Add(chkMatchesOnly, middle);
    row->Add(lblFound, wxSizerFlags(1).CenterVertical().Border(wxRIGHT, gap));
    row->Add(cmdClose, wxSizerFlags().CenterVertical());
    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(row, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(4)));
    SetSizer(all);

    txtFindHere->Bind(wxEVT_TEXT, [this](wxCommandEvent&) {
        txtFindHere->ShowCancelButton(!txtFindHere->IsEmpty());
        if (onText) onText();
    });
    txtFindHere->Bind(wxEVT_SEARCH_CANCEL, [this](wxCommandEvent&) { txtFindHere->Clear(); });
    chkMatchesOnly->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) {
        if (onMatchesOnly) onMatchesOnly();
    });
}

wxBitmapButton* FormFindBar::NewButton(const char* name, const char* art, std::function<void()>& action) {
    auto* button =
        new wxBitmapButton(this, wxID_ANY, wxArtProvider::GetBitmapBundle(art, wxART_MENU), wxDefaultPosition,
                           wxDefaultSize, wxBORDER_NONE, wxDefaultValidator, name);
    button->Bind(wxEVT_BUTTON, [&action](wxCommandEvent&) {
        if (action) action();
    });
    return button;
}

void FormFindBar::ShowTexts() {
    lblFind->SetLabel(ResText(Message::FindBarText));
    chkMatchesOnly->SetLabel(ResText(Message::FindBarMatchesOnly));
    platform::SetAccessibleName(*txtFindHere, LoadResString(Message::FindBarText));
    const auto name = [](wxBitmapButton& button, int textId) {
        button.SetToolTip(ResText(textId));
        platform::SetAccessibleName(button, LoadResString(textId));
    };
    name(*cmdPrevious, Message::FindBarPrevious);
    name(*cmdNext, Message::FindBarNext);
    name(*cmdClose, Message::FindBarClose);
    const wxString longest = ToWx(FormatResString(Message::FindBarNumber, ManyEntries, ManyEntries));
    lblFound->SetMinSize(wxSize(lblFound->GetTextExtent(longest).x, -1));
}

std::string FormFindBar::Text() const {
    return FromWx(m_box->GetValue());
}

void FormFindBar::SetText(const std::string& text) {
    m_box->ChangeValue(ToWx(text));
    m_box->ShowCancelButton(!text.empty());
}

void FormFindBar::FocusText() {
    m_box->SetFocus();
    m_box->SelectAll();
}

void FormFindBar::ShowFound(const std::string& text) {
    if (FromWx(lblFound->GetLabelText()) == text) return;
    lblFound->SetLabelText(ToWx(text));
    lblFound->SetToolTip(ToWx(text));
}

void FormFindBar::UseBox(wxSearchCtrl* box) {
    wxSearchCtrl* const used = box != nullptr ? box : txtFindHere;
    if (used == m_box) return;
    const std::string text = Text();
    SetText("");
    m_box = used;
    SetText(text);
    lblFind->Show(box == nullptr);
    txtFindHere->Show(box == nullptr);
    Layout();
}

bool FormFindBar::HasFocusInside() const {
    const wxWindow* focus = wxWindow::FindFocus();
    return IsShown() && (IsWithin(focus, *this) || IsWithin(focus, *m_box));
}

bool FormFindBar::OnCharHook(wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    const bool isEnter = key == WXK_RETURN || key == WXK_NUMPAD_ENTER;
    if (key == WXK_ESCAPE && !event.HasAnyModifiers()) {
        onClose();
        return true;
    }
    if (!IsWithin(wxWindow::FindFocus(), *m_box)) {
        // The other controls need only these. A command must not change an entry from here.
        if (event.HasAnyModifiers()) return false;
        const bool isHarmful = key == WXK_DELETE || key == WXK_NUMPAD_DELETE || key == WXK_F2;
        if (!isHarmful && key >= WXK_F1 && key <= WXK_F24) return false;
        if (!isHarmful) event.Skip();
        return true;
    }
    if (isEnter && !event.HasModifiers()) {
        (event.ShiftDown() ? onPrevious : onNext)();
        return true;
    }
    return OnTextKey(event);
}

// Keys that edit the text belong to the box. Returns false for a key that does not.
bool FormFindBar::OnTextKey(wxKeyEvent& event) {
    switch (TextKeyOf(event)) {
    case TextKey::Text: event.Skip(); return true;
    case TextKey::Undo:
        if (m_box->CanUndo()) m_box->Undo();
        return true;
    case TextKey::Redo:
    case TextKey::Nothing: return true;
    case TextKey::Command: break;
    }
    return false;
}

} // namespace nesk
