#include "shell/FormStartPage.h"

#include "base/Messages.h"
#include "widgets/UiUtilities.h"
#include "widgets/WrappedText.h"

#include <algorithm>
#include <array>
#include <utility>

#include <wx/button.h>
#include <wx/dcclient.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace nesk {

using modUtilities::ResText;
using modUtilities::ToWx;

namespace {

// The widest text that is easy to read, in device-independent pixels.
constexpr int MaxTextWidth = 520;
constexpr int Margin = 24;
constexpr float HeadingScale = 1.4F;

struct StepButton {
    StartStep step;
    const char* name;
    int text;
};

constexpr std::array<StepButton, 4> StepButtons{{
    {StartStep::OpenMenu, "cmdOpenMenu", Message::StepOpenMenu},
    {StartStep::ChooseRoot, "cmdChooseRoot", Message::StepChooseRoot},
    {StartStep::CreateStation, "cmdCreateStation", Message::StepCreateStation},
    {StartStep::OpenStation, "cmdOpenStation", Message::StepOpenStation},
}};

} // namespace

FormStartPage::FormStartPage(wxWindow* parent, std::function<void(StartStep)> onStep)
    : wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL | wxTAB_TRAVERSAL,
                       "pgStart")
    , m_onStep(std::move(onStep)) {
    SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
    lblHeading = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE,
                                  "lblHeading");
    lblText =
        new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE, "lblText");
    m_buttons = new wxBoxSizer(wxVERTICAL);
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(lblHeading);
    content->Add(lblText, wxSizerFlags().Border(wxTOP | wxBOTTOM, FromDIP(12)));
    content->Add(m_buttons);
    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(content, wxSizerFlags().Border(wxALL, FromDIP(Margin)));
    SetSizer(all);
    SetScrollRate(0, FromDIP(10));
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        WrapTexts();
    });
}

wxButton*& FormStartPage::MemberOf(StartStep step) {
    switch (step) {
    case StartStep::OpenMenu: return cmdOpenMenu;
    case StartStep::ChooseRoot: return cmdChooseRoot;
    case StartStep::CreateStation: return cmdCreateStation;
    case StartStep::OpenStation: break;
    }
    return cmdOpenStation;
}

wxButton& FormStartPage::ButtonOf(StartStep step) {
    wxButton*& button = MemberOf(step);
    if (button == nullptr) {
        const auto* info = std::find_if(StepButtons.begin(), StepButtons.end(),
                                        [step](const StepButton& other) { return other.step == step; });
        button = new wxButton(this, wxID_ANY, ResText(info->text), wxDefaultPosition, wxDefaultSize, 0,
                              wxDefaultValidator, info->name);
        // The step runs after the event, because it may delete this window's buttons.
        button->Bind(wxEVT_BUTTON,
                     [this, step](wxCommandEvent&) { CallAfter([this, step] { m_onStep(step); }); });
    }
    return *button;
}

void FormStartPage::ShowChoices(const StartChoices& choices) {
    if (choices == m_choices) return;
    wxWindow* const focus = FindFocus();
    m_choices = choices;
    lblHeading->SetFont(GetFont().Scaled(HeadingScale).Bold());
    m_buttons->Clear();
    for (const StepButton& info : StepButtons) {
        wxButton* button = MemberOf(info.step);
        if (button == nullptr) continue;
        // The language may have changed together with the station. On GTK, a new label stays blank until the
        // next frame, so an equal one is left alone.
        const wxString text = ResText(info.text);
        if (button->GetLabel() != text) button->SetLabel(text);
        // A button that stays visible is not hidden in between: on Windows it would lose the focus.
        const auto& steps = m_choices.steps;
        button->Show(std::find(steps.begin(), steps.end(), info.step) != steps.end());
    }
    wxWindow* before = lblText;
    for (const StartStep step : m_choices.steps) {
        wxButton& button = ButtonOf(step);
        button.Show(); // for a new button
        // The Tab order follows the order on the page.
        button.MoveAfterInTabOrder(before);
        before = &button;
        m_buttons->Add(&button, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(8)));
    }
    m_wrappedAt = 0;
    WrapTexts();
    if (focus != nullptr && IsDescendant(focus) && !focus->IsShown()) FocusNextStep();
}

void FormStartPage::WrapTexts() {
    const int available = GetClientSize().x - 2 * FromDIP(Margin);
    const int width = std::max(std::min(available, FromDIP(MaxTextWidth)), FromDIP(Margin));
    if (width == m_wrappedAt) return;
    m_wrappedAt = width;
    const auto wrap = [width](wxStaticText& label, const std::string& text) {
        label.SetLabelText(ToWx(WrappedText(
            text, width, [&](std::string_view piece) { return label.GetTextExtent(ToWx(piece)).x; })));
        // On GTK, the label's best size is that of a narrower label, so the lines would wrap again.
        wxClientDC dc(&label);
        dc.SetFont(label.GetFont());
        label.SetMinSize(dc.GetMultiLineTextExtent(label.GetLabelText()));
    };
    wrap(*lblHeading, m_choices.heading);
    wrap(*lblText, m_choices.text);
    Layout();
    FitInside();
}

void FormStartPage::FocusNextStep() {
    if (!m_choices.steps.empty()) ButtonOf(m_choices.steps.front()).SetFocus();
}

} // namespace nesk
