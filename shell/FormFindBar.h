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

/// The bar that is shown while the user finds a text: the text unless it is typed elsewhere, buttons for the
/// next and the previous entry, how many entries were found, and whether only these are shown. It decides
/// nothing.
class FormFindBar : public wxPanel {
public:
    explicit FormFindBar(wxWindow* parent);

    /// Sets the texts of the controls in the language in use.
    void ShowTexts();

    /// Uses a box of another window instead of the bar's own, which is hidden; null uses the own box again.
    void UseBox(wxSearchCtrl* box);

    /// True while a control of the bar or the box in use has the focus.
    bool HasFocusInside() const;

    /// The typed text.
    std::string Text() const;
    void SetText(const std::string& text);

    /// Gives the text box the focus and selects its text.
    void FocusText();

    /// Shows how many entries were found.
    void ShowFound(const std::string& text);

    /// Handles a key while the bar has the focus. Returns false for a key that is a command of the window.
    bool OnCharHook(wxKeyEvent& event);

    // Controls.
    wxStaticText* lblFind = nullptr;
    wxSearchCtrl* txtFindHere = nullptr;
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

    wxSearchCtrl* m_box = nullptr; // in use
};

} // namespace nesk
