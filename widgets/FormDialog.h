#pragma once

#include <cstdint>
#include <string>

#include <wx/dialog.h>

class wxButton;
class wxSizer;
class wxStaticBoxSizer;
class wxStaticText;
class wxTextCtrl;

namespace nesk {

/// What the program's dialogs have in common: paddings, the row of buttons with its texts, Enter, Escape and
/// F1.
///
/// A dialog's constructor makes its controls, puts them into one sizer and ends with Finish.
class FormDialog : public wxDialog {
public:
    // Controls; cmdHelp is null in a dialog without help.
    wxButton* cmdOK = nullptr;
    wxButton* cmdCancel = nullptr;
    wxButton* cmdHelp = nullptr;
    wxStaticText* lblReason = nullptr; ///< why a field was refused; hidden until one is

protected:
    /// @param name       class name, which is also the window name
    /// @param titleId    message number of the title
    /// @param helpTopic  topic of the Help button and of F1; 0 for a dialog without help
    FormDialog(wxWindow* parent, const char* name, int titleId, std::int32_t helpTopic);

    /// Puts the content and the row of buttons into the dialog, gives it the common font and the smallest
    /// size that holds it, and places it on its parent.
    /// @param content  the dialog's controls without the buttons
    void Finish(wxSizer* content);

    /// What cmdOK does; the dialog closes itself with Accept.
    virtual void OnOK() = 0;

    /// What cmdCancel, Escape and, unless OnCloseBox says otherwise, the close box do.
    virtual void OnCancel() { EndModal(wxID_CANCEL); }

    /// What the close box of the title bar does.
    virtual void OnCloseBox() { OnCancel(); }

    /// Says above the buttons why a field was refused, until OK is pressed again. The dialog grows where it
    /// has to. "" takes the line away.
    void ShowReason(const std::string& reason);

    /// Closes the dialog with wxID_OK.
    void Accept() { EndModal(wxID_OK); }

    /// A button with a text by number. `name` is its control name.
    static wxButton* NewButton(wxWindow* parent, const char* name, int textId);

    /// A label with a text by number; its access key belongs to the control that is made next.
    static wxStaticText* NewLabel(wxWindow* parent, const char* name, int textId);

    /// A text box of one line.
    wxTextCtrl* NewTextBox(wxWindow* parent, const char* name);

    /// A frame with a title by number, which it is wide enough for. `name` is the window name of its box. The
    /// window that FrameWindow gives is what goes into a sizer.
    wxStaticBoxSizer* NewFrame(const char* name, int textId);

    /// The window that holds a frame and nothing else.
    static wxWindow* FrameWindow(const wxStaticBoxSizer& frame);

    /// Space between controls, in pixels.
    int Gap() const { return FromDIP(8); }

private:
    void ShowHelp();

    std::int32_t m_helpTopic;
};

} // namespace nesk
