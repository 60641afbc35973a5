#pragma once

#include "shell/StartChoices.h"

#include <functional>
#include <string>

#include <wx/scrolwin.h>

class wxButton;
class wxStaticText;

namespace nesk {

/// The page that the main window shows while no menu is open. It shows what exists, what is missing, and the
/// next steps as buttons.
class FormStartPage : public wxScrolledWindow {
public:
    /// @param onStep  called when the user chooses a step
    FormStartPage(wxWindow* parent, std::function<void(StartStep)> onStep);

    /// Shows a heading, a text and the buttons of the steps, in the order of `choices`.
    void ShowChoices(const StartChoices& choices);

    /// Moves the focus to the button of the next step.
    void FocusNextStep();

    // Controls. A button is null until its step is first offered, because creating all four would make every
    // start slower.
    wxStaticText* lblHeading = nullptr;
    wxStaticText* lblText = nullptr;
    wxButton* cmdOpenMenu = nullptr;
    wxButton* cmdChooseRoot = nullptr;
    wxButton* cmdCreateStation = nullptr;
    wxButton* cmdOpenStation = nullptr;

private:
    wxButton*& MemberOf(StartStep step);
    wxButton& ButtonOf(StartStep step);
    void WrapTexts();

    std::function<void(StartStep)> m_onStep;
    wxSizer* m_buttons = nullptr;
    StartChoices m_choices;
    int m_wrappedAt = 0; // the width at which the texts are wrapped
};

} // namespace nesk
