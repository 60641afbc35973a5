#pragma once

#include <functional>
#include <string>

#include <wx/panel.h>

class wxBitmapButton;
class wxCheckBox;
class wxKeyEvent;
class wxSearchCtrl;
class wxStaticText;

namespace nesk {

/// The bar in which the user types a text to find: the text, buttons for the next and the previous entry, how
/// many entries were found, and whether only these are shown. It decides nothing.
class FormFindBar : public wxPanel {
public:
    explicit FormFindBar(wxWindow* parent);

    /// Sets the texts of the controls in the language in use.
    void ShowTexts();

    /// The typed text.
    std::string Text() const;
    void SetText(const std::string& text);

    /// Gives the text box the focus and selects its text.
    void FocusText();

    /// Shows how many entries were found.
    void ShowFound(const std::string& text);

    /// True while a control of the bar has the focus.
    bool HasFocusInside() const;

    /// Handles a key while the bar has the focus. Returns false for a key that is a command of the window.
    bool OnCharHook(wxKeyEvent& event);

    // Controls.
    wxStaticText* lblFind = nullptr;
    wxSearchCtrl* txtFind = nullptr;
    wxBitmapButton* cmdPrevious = nullptr;
    wxBitmapButton* cmdNext = nullptr;
    wxCheckBox* chkMatchesOnly = nullptr;
    wxStaticText* lblFound = nullptr;
    wxBitmapButton* cmdClose = nullptr;

    // What the user did.
    std::function<void()> onText;
    std::function<void()> onNext;
    std::function<void()> onPrevious;
    std::function<void()> onMatchesOnly;
    std::function<void()> onClose;

private:
    wxBitmapButton* NewButton(const char* name, const char* art, std::function<void()>& action);
    bool OnTextKey(wxKeyEvent& event);
};

} // namespace nesk
